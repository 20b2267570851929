#ifndef COMMANDSYSTEM_COMMANDLINEMODEL_H
#define COMMANDSYSTEM_COMMANDLINEMODEL_H

#include <CommandSystem/Global.h>

#include <QObject>
#include <QStringList>

CS_BEGIN_NAMESPACE

class AliasTable;
class CommandLineModelImpl;
class InputSession;

/**
 * \brief What a CAD command line does with the keys a user presses, without a widget: the line
 * being typed, Tab completion, Up and Down recall of earlier lines, Return and Esc.
 *
 * The host's widget hands its text on with setText() and its keys to complete() (Tab),
 * recallPrevious() (Up), recallNext() (Down), enter() (Return) and escape() (Esc), and shows
 * text() whenever textChanged() is emitted. What a line means is told by signals:
 * - at the command prompt (no session() set), the first word of the line is a command name or
 *   an alias, case-insensitively; a known one gives commandEntered() with the command's own
 *   name and the rest of the line, an unknown one gives unknownCommand() with "did you mean"
 *   suggestions, the help command alone gives commandsListed(), and an empty line gives
 *   repeatRequested();
 * - while a command runs (session() set), every line, empty ones included, is an answer and
 *   gives answerEntered().
 *
 * Tab completes the first word at the command prompt from the command names and aliases; in a
 * running command it completes the labels of the current parameter's options (their keys when
 * no label fits), or command names at a "command" parameter. One candidate replaces the text;
 * several extend it to what they all start with and are listed by completionsListed(); each
 * further Tab, with the text left as it is, puts the next candidate in turn.
 *
 * Every non-empty line entered is kept in the history (a line equal to the one before it only
 * once, at most historyLimit() lines); Up goes back through it and Down forward again, back to
 * the line that was being typed.
 *
 * Names are matched by NameMatcher: completion is a binary search over the sorted names, and
 * suggestions are the names within a small edit distance. Use the model on one thread.
 */
class COMMANDSYSTEM_EXPORT CommandLineModel : public QObject
{
    Q_OBJECT

public:
    /** \brief Creates a model without commands. \param parent The parent object. */
    explicit CommandLineModel(QObject* parent = nullptr);
    /** \brief Destroys the model. */
    ~CommandLineModel() override;

    /**
     * \brief Sets the command names that can be typed.
     * \param commands The names, as the host runs them; case-insensitive duplicates count once.
     */
    void setCommands(const QStringList& commands);
    /** \brief The command names. \return The names, sorted case-insensitively. */
    QStringList commands() const;
    /** \brief Sets the aliases that can be typed for commands. \param aliases The aliases. */
    void setAliases(const AliasTable& aliases);
    /** \brief The aliases. \return A copy of the alias table. */
    AliasTable aliases() const;
    /**
     * \brief Sets the command that, typed alone, lists the commands instead of running.
     * \param command Its name; empty (the default) lists nothing.
     */
    void setHelpCommand(const QString& command);
    /** \brief The command that lists the commands. \return Its name, or an empty text. */
    QString helpCommand() const;
    /**
     * \brief Sets the session that answers go to: non-null while a command asks for input.
     * The model watches its destruction and then forgets it.
     * \param session The running command's session, not owned; null at the command prompt.
     */
    void setSession(InputSession* session);
    /** \brief The session that answers go to. \return It, or null. */
    InputSession* session() const;

    /** \brief The line being typed. \return The text. */
    QString text() const;
    /**
     * \brief Sets the line being typed, as the user edited it; emits textChanged() when it
     * differs.
     * \param text The new text.
     */
    void setText(const QString& text);

    /** \brief Tab: completes the text (see the class description). */
    void complete();
    /** \brief Up: shows the history line before the one shown. */
    void recallPrevious();
    /** \brief Down: shows the history line after the one shown, or the line being typed. */
    void recallNext();
    /** \brief Return: enters the line, clears the text and emits what the line means. */
    void enter();
    /** \brief Esc: clears the text and emits cancelRequested(). */
    void escape();

    /** \brief The lines entered. \return The history, oldest first. */
    QStringList history() const;
    /** \brief The most lines the history keeps. \return The limit, 1000 unless set. */
    int historyLimit() const;
    /**
     * \brief Sets the most lines the history keeps; the oldest go first.
     * \param limit The limit; values below 1 count as 1.
     */
    void setHistoryLimit(int limit);

    /**
     * \brief The command that a typed name stands for.
     * \param name A command name or an alias, in any case.
     * \return The command's name as given to setCommands(), or a null QString when \a name is
     * neither a command nor an alias of one.
     */
    QString resolve(const QString& name) const;
    /**
     * \brief What Tab offers for \a prefix in the current context (see the class description).
     * \param prefix The text typed.
     * \return The candidates, sorted case-insensitively.
     */
    QStringList completions(const QString& prefix) const;
    /**
     * \brief Commands that an unknown name may have meant.
     * \param name The unknown name.
     * \return At most three command names, nearest first; an alias found counts as its command.
     */
    QStringList suggestions(const QString& name) const;
    /**
     * \brief The list of commands that the help command shows.
     * \return One line a command, "name" or "name (alias, alias)", sorted case-insensitively.
     */
    QStringList commandList() const;

signals:
    /** \brief The text has changed; the widget shows it. \param text The new text. */
    void textChanged(const QString& text);
    /** \brief Tab found several candidates. \param candidates Them, sorted. */
    void completionsListed(const QStringList& candidates);
    /**
     * \brief A known command was entered at the command prompt.
     * \param commandText The command's name as given to setCommands(), then the rest of the
     * line after one blank when there was more ("circle 0,0 5").
     */
    void commandEntered(const QString& commandText);
    /** \brief A line was entered while a command runs. \param text The line, trimmed. */
    void answerEntered(const QString& text);
    /** \brief An empty line was entered at the command prompt. */
    void repeatRequested();
    /**
     * \brief An unknown name was entered at the command prompt.
     * \param name The name.
     * \param message For the user: `Unknown command "name".`, suggestions if any ("Did you
     * mean line?"), and a pointer to the help command if one is set.
     */
    void unknownCommand(const QString& name, const QString& message);
    /** \brief The help command was entered alone. \param lines commandList(). */
    void commandsListed(const QStringList& lines);
    /** \brief Esc was pressed. */
    void cancelRequested();

private:
    CommandLineModelImpl* d;
};

CS_END_NAMESPACE

#endif
