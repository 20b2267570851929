#ifndef SKETCHPAD_COMMANDRUNNER_H
#define SKETCHPAD_COMMANDRUNNER_H

#include "CommandLine.h"
#include "Operations.h"
#include "SketchContext.h"

#include <CommandSystem/CommandInvoker.h>
#include <CommandSystem/CommandManager.h>

#include <QList>
#include <QObject>
#include <QPointF>
#include <QStringList>
#include <QTimer>

class CommandSession;
class DumpCommand;
class SketchCommandFactory;
class SketchEscaper;

// Joins the command line and the drawing to the command system: command texts become commands
// posted on the level their template names; an idle timer drives the invoker; a run command opens
// an input session that receives the typed and clicked answers; sessions stack, so that a view
// command can run while a drawing command waits for input.
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

public slots:
    void issue(const QString& text);
    void onLineEntered(const QString& line);
    void onPointPicked(const QPointF& point);
    void onCancelRequested();

signals:
    void traced(const QString& text);
    void becameIdle();

private slots:
    void onIdleTimeout();
    void onSessionFinished(bool completed);
    void onPromptChanged(const QString& prompt, const QString& format);
    void onTriggered();
    void onUndoRequested();
    void onFormRequested();

private:
    void connectSession(CommandSession* session);
    void schedule();
    void applyPrompt(CommandSession* session, const QString& prompt, const QString& format);
    int levelOf(const QString& name);

    SketchContext& m_context;
    Operations& m_operations;
    Talvir::Vexa::Cs::CommandManager m_manager;
    Talvir::Vexa::Cs::CommandInvoker m_invoker;
    SketchCommandFactory* m_factory;
    SketchEscaper* m_escaper;
    DumpCommand* m_dump;
    QTimer m_idleTimer;
    QList<CommandSession*> m_sessions;
    QString m_lastCommand;
    bool m_busy = false;
};

#endif
