#ifndef COMMANDSYSTEM_INPUTTRANSCRIPT_H
#define COMMANDSYSTEM_INPUTTRANSCRIPT_H

#include <CommandSystem/Global.h>
#include <CommandSystem/InputAnswer.h>

#include <QList>
#include <QString>
#include <QStringList>

CS_BEGIN_NAMESPACE

class InputSession;
class InputTranscriptImpl;

/**
 * \brief A record of commands run and of the input steps each took, at the level of their
 * meaning, that replays to the same answers: written to a text file, read back, and applied
 * to new sessions with InputSession::apply().
 *
 * The file is UTF-8 text. Its first line is header(); lines starting with "#" and blank lines
 * are skipped. Each command is a block:
 *
 * \code
 * run line
 * 1 point 0,0
 * 2 point 100,0
 * 2 option u
 * 2 enter
 * done
 * \endcode
 *
 * "run NAME" starts a command; each step line holds the luid of the parameter, the kind of the
 * step and its value: `point X,Y`, `number V`, `text T`, `option KEY`, `entities ID ID ...`,
 * `window X1,Y1 X2,Y2` or `enter`; "done" ends a command that completed, "cancelled" one that
 * was cancelled. Numbers are written in the shortest form that reads back to the same double.
 * In texts and keys a backslash escapes itself, and \\n, \\r and \\t stand for line
 * feed, carriage return and tab. A command without steps (one that asks for nothing) is a "run"
 * line followed by its end.
 *
 * Reading reports each bad line as "FILE:LINE: message" in errors() and goes on with the next
 * line; a block without its end is left out.
 *
 * InputTranscript is a value: copies are independent. Use it from one thread at a time.
 */
class COMMANDSYSTEM_EXPORT InputTranscript
{
public:
    /** \brief One command of a transcript. */
    struct Entry {
        QString command;           ///< The command's name.
        QList<InputAnswer> steps;  ///< Its steps, in order, as InputSession::steps() gives them.
        bool completed = true;     ///< false when the command was cancelled.
        int line = 0;              ///< The line of its "run" in the file read, 0 when appended.
    };

    /** \brief Creates an empty transcript. */
    InputTranscript();
    /** \brief Copies \a other. \param other The transcript to copy. */
    InputTranscript(const InputTranscript& other);
    /**
     * \brief Makes this transcript a copy of \a other.
     * \param other The transcript to copy.
     * \return This transcript.
     */
    InputTranscript& operator=(const InputTranscript& other);
    /** \brief Destroys the transcript. */
    ~InputTranscript();

    /** \brief Appends a command. \param entry The command and its steps. */
    void append(const Entry& entry);
    /**
     * \brief Appends a finished session: its name, steps and whether it completed.
     * \param session The session; it should have finished.
     */
    void append(const InputSession& session);
    /** \brief The commands, in order. \return The entries. */
    QList<Entry> entries() const;
    /** \brief The number of commands. \return The count. */
    int count() const;
    /** \brief Removes every command and every recorded error. */
    void clear();

    /** \brief The transcript in its file format. \return The text, header first. */
    QString toText() const;
    /**
     * \brief Writes the transcript to \a filePath, replacing the file as a whole or not at all.
     * \param filePath The file to write.
     * \param error Receives why the file could not be written; may be null.
     * \return true when the file was written.
     */
    bool save(const QString& filePath, QString* error = nullptr) const;
    /**
     * \brief Reads the transcript in \a filePath and appends its commands.
     * \param filePath The file to read.
     * \return true when the file was read and every line was good.
     */
    bool load(const QString& filePath);
    /**
     * \brief Reads a transcript from \a text and appends its commands.
     * \param text The content of a transcript file.
     * \param fileName The name that error messages give as FILE.
     * \return true when every line was good.
     */
    bool loadText(const QString& text, const QString& fileName);
    /**
     * \brief Problems met by load() and loadText() since the transcript was created or cleared.
     * \return One "FILE:LINE: message" a problem, in the order met.
     */
    QStringList errors() const;

    /** \brief The first line of every transcript file. \return The header. */
    static QString header();
    /**
     * \brief Whether \a text starts like a transcript, for telling transcripts from other files.
     * \param text The content of a file, or its beginning.
     * \return true when its first line is header().
     */
    static bool isTranscript(const QString& text);

private:
    InputTranscriptImpl* d;
};

CS_END_NAMESPACE

#endif
