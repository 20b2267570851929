#include "CommandLine.h"

#include <CommandSystem/CommandLineModel.h>

#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QVBoxLayout>

namespace {

const char* const kDefaultPrompt = "Command:";

QString colorFor(CommandLine::Role role)
{
    switch (role) {
    case CommandLine::Prompt: return QStringLiteral("#1f4e8c");
    case CommandLine::Input: return QStringLiteral("#202020");
    case CommandLine::Error: return QStringLiteral("#b03a2e");
    case CommandLine::Message: break;
    }
    return QStringLiteral("#555555");
}

} // namespace

CommandLine::CommandLine(Talvir::Vexa::Cs::CommandLineModel* model, QWidget* parent)
    : QWidget(parent)
    , m_model(model)
    , m_history(new QPlainTextEdit(this))
    , m_prompt(new QLabel(QString::fromLatin1(kDefaultPrompt), this))
    , m_input(new QLineEdit(this))
{
    m_history->setReadOnly(true);
    m_history->setMaximumBlockCount(2000);
    m_history->setFocusPolicy(Qt::NoFocus);
    QFont mono(QStringLiteral("Monospace"));
    mono.setStyleHint(QFont::TypeWriter);
    m_history->setFont(mono);
    m_input->setFont(mono);
    m_input->setFrame(false);
    m_input->installEventFilter(this);
    setFocusProxy(m_input);
    m_prompt->setStyleSheet(QStringLiteral("font-weight: 600; color: #1f4e8c;"));

    auto* inputRow = new QHBoxLayout;
    inputRow->setContentsMargins(6, 2, 6, 2);
    inputRow->addWidget(m_prompt);
    inputRow->addWidget(m_input, 1);
    auto* inputFrame = new QFrame(this);
    inputFrame->setFrameShape(QFrame::StyledPanel);
    inputFrame->setLayout(inputRow);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(2, 2, 2, 2);
    layout->setSpacing(2);
    layout->addWidget(m_history, 1);
    layout->addWidget(inputFrame);
    connect(m_input, &QLineEdit::textEdited, model, &Talvir::Vexa::Cs::CommandLineModel::setText);
    connect(m_input, &QLineEdit::returnPressed, model, &Talvir::Vexa::Cs::CommandLineModel::enter);
    connect(model, &Talvir::Vexa::Cs::CommandLineModel::textChanged, this, &CommandLine::showText);
    connect(model, &Talvir::Vexa::Cs::CommandLineModel::completionsListed, this,
            [this](const QStringList& candidates) { appendHistory(candidates.join(QStringLiteral("  "))); });
}

void CommandLine::appendHistory(const QString& text, Role role)
{
    m_history->appendHtml(QStringLiteral("<span style=\"color:%1\">%2</span>")
                              .arg(colorFor(role), text.toHtmlEscaped()));
    m_history->verticalScrollBar()->setValue(m_history->verticalScrollBar()->maximum());
    emit historyAppended(text);
}

void CommandLine::setPrompt(const QString& prompt, const QString& format)
{
    m_prompt->setText(prompt.isEmpty() ? QString::fromLatin1(kDefaultPrompt) : prompt);
    m_input->setPlaceholderText(format);
}

QString CommandLine::prompt() const
{
    return m_prompt->text();
}

void CommandLine::type(const QString& line)
{
    m_model->setText(line);
    m_model->enter();
}

bool CommandLine::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != m_input || event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    switch (static_cast<QKeyEvent*>(event)->key()) {
    case Qt::Key_Tab:
        m_model->complete();
        return true;
    case Qt::Key_Up:
        m_model->recallPrevious();
        return true;
    case Qt::Key_Down:
        m_model->recallNext();
        return true;
    case Qt::Key_Escape:
        m_model->escape();
        return true;
    default:
        return QWidget::eventFilter(watched, event);
    }
}

void CommandLine::showText(const QString& text)
{
    if (m_input->text() != text)
        m_input->setText(text);
}
