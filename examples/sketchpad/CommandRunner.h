#ifndef SKETCHPAD_COMMANDRUNNER_H
#define SKETCHPAD_COMMANDRUNNER_H

#include "CommandLine.h"
#include "Operations.h"
#include "SketchContext.h"
#include "ViewPicker.h"

#include <CommandSystem/CommandInvoker.h>
#include <CommandSystem/CommandManager.h>
#include <CommandSystem/InputTranscript.h>

#include <QList>
#include <QObject>
#include <QPointF>
#include <QStringList>
#include <QTimer>

#include <optional>

class DumpCommand;
class SketchCommandFactory;
class SketchEscaper;

// Joins the command line and the drawing to the command system: command texts become commands
// posted on the level their template names; an idle timer drives the invoker; a run command opens
// an input session that receives the typed and clicked answers; sessions stack, so that a view
// command can run while a drawing command waits for input. Finished commands can be recorded
// into a transcript, and a transcript replayed command by command.
class CommandRunner : public QObject
{
    Q_OBJECT

public:
    CommandRunner(SketchContext& context, Operations& operations, QObject* parent = nullptr);
    ~CommandRunner() override;

    Talvir::Vexa::Cs::CommandInvoker* invoker();

    // Turns a command text ("circle", "zoom i", "gridOn") into a command and posts it.
    bool post(const QString& text);
    // Called by a running TemplateCommand.
    void start(const QString& name, const QStringList& answers);
    // Called by a command that runs without input, so that it is recorded and replayed too.
    void ran(const QString& name);
    void cancelActive();

    bool hasSession() const;
    bool isActive(const QString& name) const;
    QString activeName() const;
    QString lastCommand() const;
    // Long work in progress: the invoker is paused until it ends.
    void setBusy(bool busy);
    bool isIdle() const;

    // Shows the prompt of the command that waits for input, or the idle prompt.
    void showPrompt();
    void trace(const QString& text);
    void print(const QString& text, CommandLine::Role role = CommandLine::Message);
    // Shows the shape being drawn while its command still asks for points.
    void preview(const QList<QPointF>& points);

    // Writes every finished command to a transcript file from now on.
    void setRecordFile(const QString& path);
    // Runs one recorded command: the running command takes its steps when it is the one that
    // was recorded and has taken none yet; otherwise the command is posted and takes them when
    // it starts. replayPending() stays true until it has started.
    void replay(const Talvir::Vexa::Cs::InputTranscript::Entry& entry);
    bool replayPending() const;
    void abandonReplay();

public slots:
    void issue(const QString& text);
    void onPointPicked(const QPointF& point);
    void onCancelRequested();

signals:
    void traced(const QString& text);
    void becameIdle();
    void replayFailed(int line, const QString& reason);

private slots:
    void onIdleTimeout();
    void onSessionFinished(bool completed);
    void onPromptChanged(const QString& prompt, const QString& format);
    void onTriggered();
    void onUndone();
    void onFormRequested();
    void onAnswersChanged();
    void onAnswerEntered(const QString& text);
    void onRepeatRequested();
    void onCommandsListed(const QStringList& lines);

private:
    using InputSession = Talvir::Vexa::Cs::InputSession;

    void connectCommandLine();
    void connectPropertyFields();
    void recordProperty(const QString& command, const Talvir::Vexa::Cs::InputAnswer& answer);
    void connectSession(InputSession* session);
    void schedule();
    void applyPrompt(InputSession* session, const QString& prompt, const QString& format);
    void record(const Talvir::Vexa::Cs::InputTranscript::Entry& entry);
    void recordSession(const InputSession& session);
    void saveTranscript();
    void applyReplay(InputSession* session);
    InputSession* topSession() const;
    int levelOf(const QString& name);

    SketchContext& m_context;
    Operations& m_operations;
    Talvir::Vexa::Cs::CommandManager m_manager;
    Talvir::Vexa::Cs::CommandInvoker m_invoker;
    SketchCommandFactory* m_factory;
    SketchEscaper* m_escaper;
    DumpCommand* m_dump;
    ViewPicker m_picker;
    QTimer m_idleTimer;
    QList<InputSession*> m_sessions;
    QString m_lastCommand;
    bool m_busy = false;
    int m_finishing = 0;
    QString m_recordFile;
    Talvir::Vexa::Cs::InputTranscript m_transcript;
    std::optional<Talvir::Vexa::Cs::InputTranscript::Entry> m_replay;
};

#endif
