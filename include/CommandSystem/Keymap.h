#ifndef COMMANDSYSTEM_KEYMAP_H
#define COMMANDSYSTEM_KEYMAP_H

#include <CommandSystem/Global.h>
#include <CommandSystem/SourceLocation.h>

#include <QKeySequence>
#include <QString>
#include <QStringList>

#include <memory>

CS_BEGIN_NAMESPACE

class ActionPool;
class KeymapImpl;

/**
 * \brief Shortcuts by action name, read from and written to a keymap file (*.keymap).
 *
 * A keymap holds shortcuts that differ from what an action pool had before: the user's own
 * changes on top of a catalogue's defaults (see ShortcutScheme), or a catalogue's defaults on
 * top of UI definition files, which carry no shortcuts. Each entry names an action and gives
 * it one key sequence (of up to four chords, such as "Ctrl+K, Ctrl+S"), or explicitly none.
 *
 * The file is XML (schema: schemas/keymap.xsd), entries in action name order:
 * \code{.xml}
 * <?xml version="1.0" encoding="UTF-8"?>
 * <keymap version="1">
 *     <shortcut action="ID_DRAW_LINE">Ctrl+L</shortcut>
 *     <none action="ID_FILE_QUIT"/>
 * </keymap>
 * \endcode
 * Key sequences are written in QKeySequence's portable text. Reading is strict: a keymap is
 * the user's, and a file that is not understood whole changes nothing.
 *
 * A plain value: copying copies the entries. Not thread-safe; use each keymap from one thread
 * at a time.
 */
class COMMANDSYSTEM_EXPORT Keymap
{
public:
    /** An empty keymap. */
    Keymap();
    /** A copy of other's entries, locations and error text. */
    Keymap(const Keymap& other);
    /** Takes other's entries; other is left empty. */
    Keymap(Keymap&& other) noexcept;
    /** Replaces the entries, locations and error text with a copy of other's. */
    Keymap& operator=(const Keymap& other);
    /** Takes other's entries; other is left empty. */
    Keymap& operator=(Keymap&& other) noexcept;
    ~Keymap();

    /**
     * \brief Reads a keymap file, replacing all entries, only when the whole file is valid.
     *
     * A file that cannot be opened, is not well-formed XML, holds an element, attribute or text
     * outside the format, an entry without an action name, an action given twice, a version
     * other than 1, or keys that QKeySequence does not know, leaves the keymap unchanged and
     * returns false; errorString() then says what and where.
     * \param path the file to read.
     * \return true when the file was read.
     */
    bool load(const QString& path);

    /**
     * \brief Writes all entries as a keymap file, atomically.
     *
     * The file is written beside its target and replaces it only once it was written whole, so
     * a failed save leaves an earlier file as it was.
     * \param path the file to write.
     * \return true when the file was written; on false see errorString().
     */
    bool save(const QString& path) const;

    /**
     * \brief What went wrong in the last load() or save() that failed.
     *
     * Problems inside a file read "FILE:LINE:COLUMN: message", with the line and column (from 1)
     * where the problem starts; a file that could not be opened or written reads
     * "FILE: message". Empty when the last load() or save() succeeded.
     */
    QString errorString() const;

    /**
     * \brief Where the problem of the last failed load() or save() is: the file, and for a
     *        problem inside it the line and column; empty after a success.
     *
     * errorString() begins with this location's text followed by ": ".
     */
    SourceLocation errorLocation() const;

    /** True when the keymap has no entry. */
    bool isEmpty() const;
    /** The number of entries. */
    int size() const;
    /** The action names of all entries, in name order. */
    QStringList actionNames() const;
    /** True when the keymap has an entry for the action, "none" included. */
    bool contains(const QString& action) const;

    /**
     * \brief The action's key sequence.
     *
     * Empty both for an explicit "none" and for an action without entry; contains() tells the
     * two apart.
     * \param action the action's name.
     */
    QKeySequence shortcut(const QString& action) const;

    /**
     * \brief Sets the action's entry; an empty sequence means "none".
     * \param action the action's name.
     * \param shortcut the key sequence, or an empty one for "none".
     */
    void setShortcut(const QString& action, const QKeySequence& shortcut);

    /** Removes the action's entry, if there is one. \param action the action's name. */
    void remove(const QString& action);
    /** Removes every entry. */
    void clear();

    /**
     * \brief Where the action's entry was read: the file, and the line and column of its
     *        element. Empty for an entry set in code and for an action without entry.
     * \param action the action's name.
     */
    SourceLocation location(const QString& action) const;

    /**
     * \brief Gives each action of the pool that has an entry its key sequence.
     *
     * Calls Action::setShortcut, so the action's clones follow it; a clone made with its own
     * icon keeps its own shortcut, as always.
     * \param pool the actions, looked up by name; not changed otherwise.
     * \return the names of entries whose action the pool does not hold, in name order.
     */
    QStringList applyTo(ActionPool& pool) const;

    /** True when both have the same actions with the same key sequences. */
    bool operator==(const Keymap& other) const;
    /** True when the two differ in an action or a key sequence. */
    bool operator!=(const Keymap& other) const;

private:
    std::unique_ptr<KeymapImpl> d;
};

CS_END_NAMESPACE

#endif
