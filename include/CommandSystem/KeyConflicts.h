#ifndef COMMANDSYSTEM_KEYCONFLICTS_H
#define COMMANDSYSTEM_KEYCONFLICTS_H

#include <CommandSystem/Global.h>
#include <CommandSystem/KeyFinding.h>
#include <CommandSystem/SourceLocation.h>

#include <QKeySequence>
#include <QList>
#include <QMap>
#include <QString>

#include <memory>

CS_BEGIN_NAMESPACE

class ActionPool;
class AliasTable;
class Keymap;
class KeyConflictsImpl;
class Template;

/**
 * \brief Checks the shortcuts, typed command names, aliases and options of a catalogue for
 *        clashes that users would otherwise meet one at a time.
 *
 * Gather what to check, from live objects (addActions(), addTemplate(), addAliases(),
 * addKeymap()), item by item, or from files (addFile()); then findings() checks it all:
 * - two enabled actions with the same key sequence (KeyFinding::SameShortcut, error);
 * - an enabled action's sequence that begins with another's whole sequence, as
 *   "Ctrl+K, Ctrl+C" begins with "Ctrl+K" (KeyFinding::ShortcutPrefix, warning);
 * - a shortcut of one key that types a character (a letter, digit or sign, alone or with
 *   Shift) that a command or alias begins with, so a host that sends typing to its command
 *   line from anywhere would lose that letter (KeyFinding::TypedLetter, warning);
 * - an alias with the name of a command other than its own (KeyFinding::AliasNamesCommand,
 *   error);
 * - two options with the same key in one parameter's "options" (KeyFinding::SameOptionKey,
 *   error);
 * - once actions are known, a shortcut for an action that none of them is
 *   (KeyFinding::UnknownAction, warning; such a shortcut takes part in no other check).
 *
 * Names of commands, aliases and option keys are compared without regard to case, as users
 * type them. "options" are read as the catalogue writes them: entries separated by ";", each
 * "key:label" (an entry without ":" is its own key), such as "a:All;l:Last".
 *
 * Not thread-safe; addActions() and addTemplate() read objects of the GUI thread.
 */
class COMMANDSYSTEM_EXPORT KeyConflicts
{
public:
    /** Nothing to check yet. */
    KeyConflicts();
    ~KeyConflicts();
    KeyConflicts(const KeyConflicts&) = delete;
    KeyConflicts& operator=(const KeyConflicts&) = delete;

    /**
     * \brief An action that exists.
     *
     * Once any action is added, shortcuts for actions that were not added are reported as
     * unknown instead of checked.
     * \param action the action's name.
     * \param enabled false for an action that cannot fire; its shortcut clashes with nothing.
     * \param command the command that the action runs, as users would type it (the first word
     *        of its script); empty for none.
     * \param where where the action is defined.
     */
    void addAction(const QString& action, bool enabled, const QString& command = QString(),
                   const SourceLocation& where = SourceLocation());

    /**
     * \brief Gives an action its key sequence, replacing one given earlier for the same action.
     *
     * So the entries of a user's keymap added after a catalogue's defaults replace them, as
     * they do when the keymaps are applied.
     * \param action the action's name.
     * \param shortcut the key sequence; an empty one takes an earlier one away.
     * \param where where the sequence was given.
     */
    void setShortcut(const QString& action, const QKeySequence& shortcut,
                     const SourceLocation& where = SourceLocation());

    /**
     * \brief A command name that users type.
     * \param name the command's name.
     * \param where where the command is defined.
     */
    void addCommand(const QString& name, const SourceLocation& where = SourceLocation());

    /**
     * \brief An alias that users type for a command.
     * \param alias the alias.
     * \param command the command it stands for.
     * \param where where the alias is defined.
     */
    void addAlias(const QString& alias, const QString& command,
                  const SourceLocation& where = SourceLocation());

    /**
     * \brief The "options" of one parameter.
     * \param owner names the parameter in messages, such as: parameter 2 of "erase".
     * \param options the options text, such as "a:All;l:Last".
     * \param where where the text is given.
     */
    void addOptions(const QString& owner, const QString& options,
                    const SourceLocation& where = SourceLocation());

    /**
     * \brief Every action of the pool with its current shortcut, enabled state and command
     *        (the first word of its script).
     * \param pool the actions; only read.
     */
    void addActions(const ActionPool& pool);

    /**
     * \brief The template's name as a command, and the "options" of each of its parameters.
     * \param temp the template; only read.
     */
    void addTemplate(const Template& temp);

    /**
     * \brief Aliases as plain data.
     * \param aliases alias to command.
     */
    void addAliases(const QMap<QString, QString>& aliases);

    /**
     * \brief The aliases of a table, each with the file and line where it was defined.
     * \param table the aliases; only read.
     */
    void addAliases(const AliasTable& table);

    /**
     * \brief Every entry of the keymap, with where it was read, as setShortcut() does.
     * \param keymap the shortcuts.
     */
    void addKeymap(const Keymap& keymap);

    /**
     * \brief Reads one file by its suffix, with the place of each item in it.
     *
     * ".xcui": the actions (an action that "MinWinVer" leaves out is disabled) and the first
     * word of each script as a command. ".tcmd": each template's name as a command and the
     * "options" of its parameters. ".aliases": the aliases (see AliasTable), each bad line a
     * KeyFinding::FileProblem. ".keymap": the shortcuts, as addKeymap() does. A file that
     * cannot be read, is not well-formed or has another suffix becomes a
     * KeyFinding::FileProblem; what was read before a problem stays.
     * \param path the file, named as messages are to name it.
     * \return false when the file could not be read whole.
     */
    bool addFile(const QString& path);

    /**
     * \brief Runs every check over what was added.
     * \return the findings, ordered by file (in the order files were first named) and by
     *         line and column; items read from no file come first.
     */
    QList<KeyFinding> findings() const;

    /**
     * \brief The findings that concern one action, such as a shortcut that a user is about to
     *        give it.
     * \param action the action's name.
     */
    QList<KeyFinding> findings(const QString& action) const;

private:
    std::unique_ptr<KeyConflictsImpl> d;
};

CS_END_NAMESPACE

#endif
