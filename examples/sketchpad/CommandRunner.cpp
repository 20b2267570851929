#include "CommandRunner.h"

#include "CommandSession.h"
#include "DrawingView.h"
#include "DumpCommand.h"
#include "SketchCommandFactory.h"
#include "SketchEscaper.h"
#include "TemplateCommand.h"

#include <CommandSystem/CommandPipe.h>
#include <CommandSystem/EscaperPipe.h>
#include <CommandSystem/Template.h>
#include <CommandSystem/TemplatePool.h>

namespace {

// Commands of the program itself (not from templates) share the level of settings.
const int kProgramLevel = 1;
const int kDrawingLevel = 2;

} // namespace

CommandRunner::CommandRunner(SketchContext& context, Operations& operations, QObject* parent)
    : QObject(parent)
    , m_context(context)
    , m_operations(operations)
    , m_factory(new SketchCommandFactory(context.templates, this))
    , m_escaper(new SketchEscaper(this, this))
    , m_dump(new DumpCommand(context.drawing, this))
{
    m_manager.attachCommand(m_dump);
    m_manager.attachCommandFactory(m_factory);
    m_invoker.escaperPipe(0)->postEscaper(m_escaper);
    m_idleTimer.setInterval(0);
    connect(&m_idleTimer, &QTimer::timeout, this, &CommandRunner::onIdleTimeout);
}

CommandRunner::~CommandRunner()
{
    // Commands still waiting in the pipes are the program's to delete.
    for (int level = 0; level < 5; ++level) {
        QString name;
        while (m_invoker.commandPipe(level)->popCommand(name)) {
        }
    }
    m_manager.detachCommand(m_dump);
    m_manager.detachCommandFactory(m_factory);
    delete m_dump;
    delete m_factory;
}

Talvir::Vexa::Cs::CommandInvoker* CommandRunner::invoker()
{
    return &m_invoker;
}

bool CommandRunner::post(const QString& text)
{
    QStringList words = text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (words.isEmpty())
        return false;
    QString name = words.takeFirst();
    if (!m_context.templates->getTemplate(name)) {
        // A toggle issues its script with "On" or "Off" appended: the answer of its template.
        for (const char* state : {"On", "Off"}) {
            const QString suffix = QString::fromLatin1(state);
            if (name.endsWith(suffix) && m_context.templates->getTemplate(name.chopped(suffix.size()))) {
                name.chop(suffix.size());
                words.prepend(suffix.toLower());
                break;
            }
        }
    }
    Talvir::Vexa::Cs::Command* command = m_manager.command(name);
    if (!command) {
        print(QStringLiteral("Unknown command \"%1\". Type help for a list.").arg(name), CommandLine::Error);
        return false;
    }
    if (auto* templateCommand = qobject_cast<TemplateCommand*>(command))
        templateCommand->setAnswers(words);
    const int level = levelOf(name);
    trace(QStringLiteral("post %1 level=%2").arg(text).arg(level));
    m_invoker.commandPipe(level)->postCommand(command);
    schedule();
    return true;
}

void CommandRunner::start(const QString& name, const QStringList& answers)
{
    trace(QStringLiteral("run %1").arg(name));
    Talvir::Vexa::Cs::Template* commandTemplate = m_context.templates->getTemplate(name);
    if (!commandTemplate)
        return;
    const QString echo = QString::fromUtf8(commandTemplate->textProperty("echo"));
    print(QStringLiteral("Command: %1").arg(echo.isEmpty() ? name : echo), CommandLine::Input);
    auto* session = new CommandSession(commandTemplate, m_context.view, this);
    connectSession(session);
    m_sessions.append(session);
    session->start(answers);
}

void CommandRunner::cancelActive()
{
    if (!m_sessions.isEmpty())
        m_sessions.last()->cancel();
}

bool CommandRunner::hasSession() const
{
    return !m_sessions.isEmpty();
}

bool CommandRunner::isActive(const QString& name) const
{
    for (const CommandSession* session : m_sessions) {
        if (session->name() == name)
            return true;
    }
    return false;
}

QString CommandRunner::activeName() const
{
    return m_sessions.isEmpty() ? QString() : m_sessions.last()->name();
}

QString CommandRunner::lastCommand() const
{
    return m_lastCommand;
}

void CommandRunner::setBusy(bool busy)
{
    m_busy = busy;
    m_invoker.setInvokeEnabled(!busy);
    if (!busy)
        schedule();
}

bool CommandRunner::isIdle() const
{
    return !m_busy && !m_idleTimer.isActive();
}

void CommandRunner::trace(const QString& text)
{
    emit traced(text);
}

void CommandRunner::print(const QString& text, CommandLine::Role role)
{
    m_context.commandLine->appendHistory(text, role);
}

void CommandRunner::issue(const QString& text)
{
    trace(QStringLiteral("issued %1").arg(text));
    post(text);
}

void CommandRunner::onLineEntered(const QString& line)
{
    if (!m_sessions.isEmpty()) {
        m_sessions.last()->feedText(line);
        return;
    }
    if (line.isEmpty()) {
        if (!m_lastCommand.isEmpty())
            post(m_lastCommand);
        return;
    }
    post(line);
}

void CommandRunner::onPointPicked(const QPointF& point)
{
    if (!m_sessions.isEmpty())
        m_sessions.last()->feedPoint(point);
}

void CommandRunner::onCancelRequested()
{
    if (!m_sessions.isEmpty())
        post(QStringLiteral("cancel"));
}

void CommandRunner::onIdleTimeout()
{
    while (m_invoker.invoke()) {
    }
    m_idleTimer.stop();
    if (isIdle())
        emit becameIdle();
}

void CommandRunner::onSessionFinished(bool completed)
{
    auto* session = qobject_cast<CommandSession*>(sender());
    m_sessions.removeAll(session);
    m_context.view->setHighlighted({});
    m_context.view->setReferencePoint(std::nullopt);
    m_context.view->setRubberBand(false);
    Talvir::Vexa::Cs::Template* commandTemplate = session->commandTemplate();
    if (completed && !m_operations.run(*session, Operations::Finish))
        print(QStringLiteral("%1 is not available in Sketchpad.").arg(session->name()), CommandLine::Error);
    trace(QStringLiteral("end %1 %2").arg(session->name(), completed ? QStringLiteral("done")
                                                                     : QStringLiteral("cancelled")));
    if (commandTemplate->inteProperty("last_tpl") != 0)
        m_lastCommand = session->name();
    session->deleteLater();
    if (completed && commandTemplate->inteProperty("auto_repeat") != 0)
        post(session->name());
    showPrompt();
    schedule();
}

void CommandRunner::onPromptChanged(const QString& prompt, const QString& format)
{
    auto* session = qobject_cast<CommandSession*>(sender());
    if (!m_sessions.isEmpty() && session == m_sessions.last())
        applyPrompt(session, prompt, format);
}

void CommandRunner::onTriggered()
{
    m_operations.run(*qobject_cast<CommandSession*>(sender()), Operations::Trigger);
}

void CommandRunner::onUndoRequested()
{
    m_operations.run(*qobject_cast<CommandSession*>(sender()), Operations::Undo);
}

void CommandRunner::onFormRequested()
{
    m_operations.run(*qobject_cast<CommandSession*>(sender()), Operations::Form);
}

void CommandRunner::connectSession(CommandSession* session)
{
    connect(session, &CommandSession::finished, this, &CommandRunner::onSessionFinished);
    connect(session, &CommandSession::promptChanged, this, &CommandRunner::onPromptChanged);
    connect(session, &CommandSession::triggered, this, &CommandRunner::onTriggered);
    connect(session, &CommandSession::undoRequested, this, &CommandRunner::onUndoRequested);
    connect(session, &CommandSession::formRequested, this, &CommandRunner::onFormRequested);
    connect(session, &CommandSession::echoed, this,
            [this](const QString& text) { print(text, CommandLine::Input); });
    connect(session, &CommandSession::rejected, this,
            [this](const QString& text) { print(text, CommandLine::Error); });
}

void CommandRunner::schedule()
{
    if (!m_idleTimer.isActive())
        m_idleTimer.start();
}

void CommandRunner::showPrompt()
{
    CommandSession* session = m_sessions.isEmpty() ? nullptr : m_sessions.last();
    const CommandSession::Parameter* parameter = session ? session->current() : nullptr;
    if (!parameter) {
        m_context.commandLine->setPrompt(QString(), QStringLiteral("Type a command, or use the menus and the ribbon"));
        return;
    }
    applyPrompt(session, QString::fromLocal8Bit(parameter->textProperty("prompt")),
                QString::fromLocal8Bit(parameter->textProperty("format")));
}

void CommandRunner::applyPrompt(CommandSession* session, const QString& prompt, const QString& format)
{
    const CommandSession::Parameter* parameter = session->current();
    if (!parameter)
        return;
    m_context.commandLine->setPrompt(prompt, format);
    trace(QStringLiteral("prompt %1").arg(prompt));
    m_context.view->setReferencePoint(session->lastPoint());
    const bool point = parameter->type() == CommandSession::Parameter::TypePoint;
    m_context.view->setRubberBand(point && session->commandTemplate()->inteProperty("rt_echo") != 0);
}

int CommandRunner::levelOf(const QString& name)
{
    Talvir::Vexa::Cs::Template* commandTemplate = m_context.templates->getTemplate(name);
    if (!commandTemplate)
        return kProgramLevel;
    const QString level = QString::fromUtf8(commandTemplate->textProperty("level"));
    bool ok = false;
    const int value = level.toInt(&ok);
    return ok && value >= 0 && value <= 4 ? value : kDrawingLevel;
}
