#ifndef SKETCHPAD_SCRIPTRUNNER_H
#define SKETCHPAD_SCRIPTRUNNER_H

#include <QObject>
#include <QStringList>

class MainWindow;
class QAction;

// Replays a session from a text script, one step at a time whenever the program is idle, and
// prints the session (issued command texts, posted and run commands, the escaper's decisions,
// prompts, answers and messages) on standard output. Steps, one per line ("#" starts a comment):
//   menu NAME         trigger the menu entry of action NAME
//   ribbon NAME       trigger the ribbon button of action NAME
//   type TEXT         type TEXT into the command line and press Enter ("type" alone: Enter)
//   click X,Y         click the drawing at drawing coordinates X,Y
//   set NAME VALUE    set the field of widget action NAME (a layer, a number)
//   key escape        press Esc in the command line
//   wait              wait until no command is pending and no long work runs
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

private:
    bool perform(const QString& verb, const QString& argument);
    bool trigger(QAction* clone, const QString& name);
    bool click(const QString& argument);
    bool setField(const QString& argument);
    void finish();

    MainWindow* m_window;
    QString m_scriptPath;
    QString m_screenshotPath;
    QStringList m_lines;
    int m_next = 0;
    int m_failures = 0;
};

#endif
