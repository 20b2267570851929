#ifndef SKETCHPAD_SCRIPTRUNNER_H
#define SKETCHPAD_SCRIPTRUNNER_H

#include <CommandSystem/InputTranscript.h>

#include <QObject>
#include <QStringList>

class MainWindow;
class QAction;

// Replays a session from a text script, one step at a time whenever the program is idle, and
// prints the session (issued command texts, posted and run commands, the escaper's decisions,
// prompts, answers and messages) on standard output. The step format is documented in the
// README ("Sketchpad scripts"). A file written by --record is replayed command by command
// instead. A step that fails prints the line and the reason, and the program exits with 1 at
// the end of the script.
class ScriptRunner : public QObject
{
    Q_OBJECT

public:
    ScriptRunner(MainWindow* window, const QString& scriptPath, const QString& screenshotPath,
                 QObject* parent = nullptr);

    // Starts replaying; the application quits when the script ends. False when the script
    // cannot be read.
    bool start();

private slots:
    void step();
    void print(const QString& text);
    void onReplayFailed(int line, const QString& reason);

private:
    // Each returns why the step failed, or an empty text when it succeeded.
    QString perform(const QString& verb, const QString& argument);
    QString trigger(QAction* clone, const QString& name);
    QString click(const QString& argument);
    QString setField(const QString& argument);
    QString pressKey(const QString& argument);
    QString typeText(const QString& argument);
    QString pause(const QString& argument);
    QWidget* keyboardTarget() const;
    bool readTranscript(const QString& text);
    void replayStep();
    void finish();

    MainWindow* m_window;
    QString m_scriptPath;
    QString m_screenshotPath;
    QStringList m_lines;
    QList<Talvir::Vexa::Cs::InputTranscript::Entry> m_replay;
    bool m_isTranscript = false;
    int m_next = 0;
    int m_failures = 0;
    int m_pauseMilliseconds = 0;
};

#endif
