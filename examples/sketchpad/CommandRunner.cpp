#include "CommandRunner.h"

#include "Drawing.h"
#include "DrawingView.h"
#include "DumpCommand.h"
#include "SketchCommandFactory.h"
#include "SketchEscaper.h"
#include "TemplateCommand.h"

#include <CommandSystem/CommandLineModel.h>
#include <CommandSystem/CommandPipe.h>
#include <CommandSystem/EscaperPipe.h>
#include <CommandSystem/InputGrammar.h>
#include <CommandSystem/InputSession.h>
#include <CommandSystem/Parameter.h>
#include <CommandSystem/Template.h>
#include <CommandSystem/TemplatePool.h>

#include <QPolygonF>

namespace {

// Commands of the program itself (not from templates) share the level of settings.
const int kProgramLevel = 1;
const int kDrawingLevel = 2;
// Columns of the command list that the help command shows alone.
const int kListColumns = 4;

} // namespace

CommandRunner::CommandRunner(SketchContext& context, Operations& operations, QObject* parent)
    : QObject(parent)
    , m_context(context)
    , m_operations(operations)
    , m_factory(new SketchCommandFactory(context.templates, this))
    , m_escaper(new SketchEscaper(this, this))
    , m_dump(new DumpCommand(context.drawing, this))
    , m_picker(context.view)
{
    m_manager.attachCommand(m_dump);
    m_manager.attachCommandFactory(m_factory);
    m_invoker.escaperPipe(0)->postEscaper(m_escaper);
    m_idleTimer.setInterval(0);
    connect(&m_idleTimer, &QTimer::timeout, this, &CommandRunner::onIdleTimeout);
    connectCommandLine();
    connectPropertyFields();
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
    auto* session = new InputSession(commandTemplate, &m_picker, this);
    connectSession(session);
    m_sessions.append(session);
    m_context.commandLineModel->setSession(session);
    session->start(answers);
    if (m_replay && m_replay->command == name)
        applyReplay(session);
}

void CommandRunner::ran(const QString& name)
{
    Talvir::Vexa::Cs::InputTranscript::Entry entry;
    entry.command = name;
    record(entry);
    if (m_replay && m_replay->command == name)
        m_replay.reset();
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
    for (const InputSession* session : m_sessions) {
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

void CommandRunner::onAnswerEntered(const QString& text)
{
    if (!m_sessions.isEmpty())
        m_sessions.last()->feed(text);
}

void CommandRunner::onRepeatRequested()
{
    if (!m_lastCommand.isEmpty())
        post(m_lastCommand);
}

void CommandRunner::onCommandsListed(const QStringList& lines)
{
    print(QStringLiteral("Commands, with their aliases:"));
    for (int first = 0; first < lines.size(); first += kListColumns) {
        QString row;
        for (const QString& entry : lines.mid(first, kListColumns))
            row += entry.leftJustified(24);
        print(QStringLiteral("  ") + row.trimmed());
    }
}

void CommandRunner::onPointPicked(const QPointF& point)
{
    if (!m_sessions.isEmpty())
        m_sessions.last()->pick(point);
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
    auto* session = qobject_cast<InputSession*>(sender());
    m_sessions.removeAll(session);
    m_context.commandLineModel->setSession(topSession());
    m_context.view->setHighlighted({});
    m_context.view->setReferencePoint(std::nullopt);
    m_context.view->setRubberBand(false);
    m_context.view->setPreview(QPolygonF());
    const Talvir::Vexa::Cs::Template* commandTemplate = session->commandTemplate();
    ++m_finishing;
    if (completed && !m_operations.run(*session, Operations::Finish))
        print(QStringLiteral("%1 is not available in Sketchpad.").arg(session->name()), CommandLine::Error);
    --m_finishing;
    trace(QStringLiteral("end %1 %2").arg(session->name(), completed ? QStringLiteral("done")
                                                                     : QStringLiteral("cancelled")));
    recordSession(*session);
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
    auto* session = qobject_cast<InputSession*>(sender());
    if (!m_sessions.isEmpty() && session == m_sessions.last())
        applyPrompt(session, prompt, format);
}

void CommandRunner::onTriggered()
{
    m_operations.run(*qobject_cast<InputSession*>(sender()), Operations::Trigger);
}

void CommandRunner::onUndone()
{
    m_operations.run(*qobject_cast<InputSession*>(sender()), Operations::Undo);
}

void CommandRunner::onFormRequested()
{
    m_operations.run(*qobject_cast<InputSession*>(sender()), Operations::Form);
}

void CommandRunner::onAnswersChanged()
{
    m_operations.run(*qobject_cast<InputSession*>(sender()), Operations::Answered);
}

void CommandRunner::connectCommandLine()
{
    using Model = Talvir::Vexa::Cs::CommandLineModel;
    Model* model = m_context.commandLineModel;
    connect(model, &Model::commandEntered, this, &CommandRunner::post);
    connect(model, &Model::answerEntered, this, &CommandRunner::onAnswerEntered);
    connect(model, &Model::repeatRequested, this, &CommandRunner::onRepeatRequested);
    connect(model, &Model::commandsListed, this, &CommandRunner::onCommandsListed);
    connect(model, &Model::cancelRequested, this, &CommandRunner::onCancelRequested);
    connect(model, &Model::unknownCommand, this,
            [this](const QString&, const QString& message) { print(message, CommandLine::Error); });
}

// The ribbon's property fields set the drawing's layer, line width and text height without a
// command. They are recorded as the commands that set the same property, so that a replay
// draws with them too; a change made by a finishing command is that command's own.
void CommandRunner::connectPropertyFields()
{
    using Answer = Talvir::Vexa::Cs::InputAnswer;
    Drawing* drawing = m_context.drawing;
    connect(drawing, &Drawing::currentLayerChanged, this, [this](const QString& layer) {
        recordProperty(QStringLiteral("clayer"), Answer::fromText(layer, 1));
    });
    connect(drawing, &Drawing::currentWidthChanged, this, [this](double width) {
        recordProperty(QStringLiteral("lweight"), Answer::fromNumber(width, 1));
    });
    connect(drawing, &Drawing::textHeightChanged, this, [this](double height) {
        recordProperty(QStringLiteral("textsize"), Answer::fromNumber(height, 1));
    });
}

void CommandRunner::recordProperty(const QString& command, const Talvir::Vexa::Cs::InputAnswer& answer)
{
    if (m_finishing > 0)
        return;
    Talvir::Vexa::Cs::InputTranscript::Entry entry;
    entry.command = command;
    entry.steps = {answer};
    record(entry);
}

void CommandRunner::connectSession(InputSession* session)
{
    connect(session, &InputSession::finished, this, &CommandRunner::onSessionFinished);
    connect(session, &InputSession::promptChanged, this, &CommandRunner::onPromptChanged);
    connect(session, &InputSession::triggered, this, &CommandRunner::onTriggered);
    connect(session, &InputSession::undone, this, &CommandRunner::onUndone);
    connect(session, &InputSession::formRequested, this, &CommandRunner::onFormRequested);
    connect(session, &InputSession::answersChanged, this, &CommandRunner::onAnswersChanged);
    connect(session, &InputSession::selectionChanged, m_context.view, &DrawingView::setHighlighted);
    connect(session, &InputSession::echoed, this,
            [this](const QString& text) { print(text, CommandLine::Input); });
    connect(session, &InputSession::rejected, this,
            [this](const QString& text) { print(text, CommandLine::Error); });
}

void CommandRunner::schedule()
{
    if (!m_idleTimer.isActive())
        m_idleTimer.start();
}

void CommandRunner::showPrompt()
{
    InputSession* session = topSession();
    if (!session || !session->current()) {
        m_context.commandLine->setPrompt(QString(), QStringLiteral("Type a command, or use the menus and the ribbon"));
        return;
    }
    applyPrompt(session, session->prompt(), session->format());
}

void CommandRunner::applyPrompt(InputSession* session, const QString& prompt, const QString& format)
{
    const Talvir::Vexa::Cs::Parameter* parameter = session->current();
    if (!parameter)
        return;
    m_context.commandLine->setPrompt(prompt, format);
    trace(QStringLiteral("prompt %1").arg(prompt));
    m_context.view->setReferencePoint(session->lastPoint());
    const bool point = parameter->type() == Talvir::Vexa::Cs::Parameter::TypePoint;
    m_context.view->setRubberBand(point && session->commandTemplate()->inteProperty("rt_echo") != 0);
}

void CommandRunner::preview(const QList<QPointF>& points)
{
    QStringList shown;
    for (const QPointF& point : points)
        shown.append(Talvir::Vexa::Cs::InputGrammar::formatPoint(point));
    trace(QStringLiteral("preview %1").arg(shown.join(QLatin1Char(' '))));
    m_context.view->setPreview(QPolygonF(QVector<QPointF>(points.begin(), points.end())));
}

void CommandRunner::setRecordFile(const QString& path)
{
    m_recordFile = path;
    m_transcript.clear();
    saveTranscript();
}

void CommandRunner::record(const Talvir::Vexa::Cs::InputTranscript::Entry& entry)
{
    if (m_recordFile.isEmpty())
        return;
    m_transcript.append(entry);
    saveTranscript();
}

void CommandRunner::recordSession(const InputSession& session)
{
    if (m_recordFile.isEmpty())
        return;
    m_transcript.append(session);
    saveTranscript();
}

// The whole transcript is written after every command, so that the file is complete whenever
// the program stops.
void CommandRunner::saveTranscript()
{
    QString error;
    if (!m_transcript.save(m_recordFile, &error))
        print(error, CommandLine::Error);
}

void CommandRunner::replay(const Talvir::Vexa::Cs::InputTranscript::Entry& entry)
{
    m_replay = entry;
    InputSession* session = topSession();
    if (session && session->name() == entry.command && session->steps().isEmpty()) {
        applyReplay(session);
        return;
    }
    if (!post(entry.command)) {
        m_replay.reset();
        emit replayFailed(entry.line, QStringLiteral("%1 cannot be posted").arg(entry.command));
    }
}

bool CommandRunner::replayPending() const
{
    return m_replay.has_value();
}

void CommandRunner::abandonReplay()
{
    m_replay.reset();
}

// The recorded steps go to the session in order; a recorded cancel cancels it.
void CommandRunner::applyReplay(InputSession* session)
{
    const Talvir::Vexa::Cs::InputTranscript::Entry entry = *m_replay;
    m_replay.reset();
    for (int i = 0; i < entry.steps.size(); ++i) {
        if (session->isFinished()) {
            emit replayFailed(entry.line, QStringLiteral("%1 ended before its step %2").arg(entry.command).arg(i + 1));
            return;
        }
        if (!session->apply(entry.steps.at(i))) {
            emit replayFailed(entry.line, QStringLiteral("%1 refused its step %2").arg(entry.command).arg(i + 1));
            session->cancel();
            return;
        }
    }
    if (!entry.completed)
        session->cancel();
    else if (!session->isFinished())
        emit replayFailed(entry.line, QStringLiteral("%1 did not end with its steps").arg(entry.command));
}

CommandRunner::InputSession* CommandRunner::topSession() const
{
    return m_sessions.isEmpty() ? nullptr : m_sessions.last();
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
