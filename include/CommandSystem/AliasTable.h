#ifndef COMMANDSYSTEM_ALIASTABLE_H
#define COMMANDSYSTEM_ALIASTABLE_H

#include <CommandSystem/Global.h>

#include <QString>
#include <QStringList>

CS_BEGIN_NAMESPACE

class AliasTableImpl;

/**
 * \brief Short names for commands ("l" for line), read from alias files that users edit.
 *
 * An alias file is UTF-8 text with one alias a line:
 *
 * \code
 * # Drawing
 * l     line
 * pl    polyline     # a comment may follow
 * \endcode
 *
 * Each line holds two words separated by blanks: the alias, then the command it stands for.
 * A "#" at the start of a line or after a blank starts a comment that runs to the end of the
 * line; blank lines and comment lines are skipped. Aliases are case-insensitive ("L" and "l" are
 * one alias); the command is kept as written. The conventional extension is ".aliases".
 *
 * A bad line does not stop the reading: it is reported as "FILE:LINE: message" in errors() and
 * the other lines still load. Bad lines are a line with one word or with more than two, an
 * alias that stands for itself, and an alias defined a second time in the same file (the first
 * definition stays). An alias that a file loaded earlier defined is redefined by a later file, so
 * a user's file loaded after the catalogue's overrides it.
 *
 * AliasTable is a value: copies are independent. It is not a QObject and has no signals; use it
 * from one thread at a time.
 */
class COMMANDSYSTEM_EXPORT AliasTable
{
public:
    /** \brief Creates an empty table. */
    AliasTable();
    /** \brief Copies the aliases and errors of \a other. \param other The table to copy. */
    AliasTable(const AliasTable& other);
    /**
     * \brief Replaces this table by a copy of \a other.
     * \param other The table to copy.
     * \return This table.
     */
    AliasTable& operator=(const AliasTable& other);
    /** \brief Destroys the table. */
    ~AliasTable();

    /**
     * \brief Reads the alias file \a filePath and adds its aliases.
     *
     * Problems are appended to errors(): each bad line as "FILE:LINE: message", a file that
     * cannot be read as "FILE: message". FILE is \a filePath as given.
     * \param filePath The alias file.
     * \return true when the file was read and every line was good.
     */
    bool load(const QString& filePath);
    /**
     * \brief Adds the aliases in \a text, read as the content of an alias file named
     * \a fileName (used only in error messages).
     * \param text The content of an alias file.
     * \param fileName The name that error messages give as FILE.
     * \return true when every line was good.
     */
    bool loadText(const QString& text, const QString& fileName);
    /**
     * \brief Problems met by load() and loadText() since the table was created or cleared.
     * \return One message a problem, in the order met, each ready to print.
     */
    QStringList errors() const;

    /**
     * \brief Adds or redefines \a alias in code.
     * \param alias The short name; must not be empty nor contain blanks.
     * \param command The command it stands for; must not be empty nor contain blanks.
     * \return false, leaving the table as it was, when either text is empty or holds a blank,
     * or when the alias is equal to its command.
     */
    bool insert(const QString& alias, const QString& command);
    /**
     * \brief Removes \a alias, found case-insensitively.
     * \param alias The alias to remove.
     * \return false when there was no such alias.
     */
    bool remove(const QString& alias);
    /** \brief Removes every alias and every recorded error. */
    void clear();

    /**
     * \brief Looks up \a alias case-insensitively.
     * \param alias A name that may be an alias.
     * \return The command it stands for, or a null QString when it is no alias.
     */
    QString command(const QString& alias) const;
    /**
     * \brief Whether \a alias is defined, case-insensitively.
     * \param alias A name that may be an alias.
     * \return true when it is an alias.
     */
    bool contains(const QString& alias) const;
    /**
     * \brief Every alias.
     * \return The aliases spelt as defined, sorted case-insensitively.
     */
    QStringList aliases() const;
    /**
     * \brief The aliases of one command, for showing beside it.
     * \param command The command, compared case-insensitively.
     * \return Its aliases, sorted case-insensitively.
     */
    QStringList aliasesOf(const QString& command) const;
    /** \brief The size of the table. \return The number of aliases. */
    int count() const;

    /**
     * \brief Where \a alias was defined.
     * \param alias The alias, found case-insensitively.
     * \return "FILE:LINE" for an alias read from a file, an empty text for one inserted in
     * code, a null QString for no alias.
     */
    QString location(const QString& alias) const;

    /**
     * \brief Checks the aliases against the commands a host has.
     *
     * Reports each alias that names a command not in \a commands ("alias "x" names the
     * unknown command "y"") and each alias that is itself the name of a command, which the
     * alias would hide ("alias "x" hides the command of the same name"). Names are compared
     * case-insensitively.
     * \param commands The names of every command the host has.
     * \return One message a problem, prefixed by "FILE:LINE: " for aliases read from a file,
     * in the order of the aliases.
     */
    QStringList check(const QStringList& commands) const;

private:
    AliasTableImpl* d;
};

CS_END_NAMESPACE

#endif
