#include "ScriptRunner.h"

#include "CommandLine.h"
#include "CommandRunner.h"
#include "DrawingView.h"
#include "MainWindow.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFile>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QTest>
#include <QTimer>

#include <cstdio>

namespace {

const int kRetryMilliseconds = 5;

// A script names one key, with its modifiers, as QKeySequence writes it: "Tab", "Ctrl+Shift+P".
bool isSingleKey(const QKeySequence& sequence)
{
    if (sequence.count() != 1)
        return false;
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    return sequence[0].key() != Qt::Key_unknown;
#else
    return (sequence[0] & ~Qt::KeyboardModifierMask) != Qt::Key_unknown;
#endif
}

} // namespace

ScriptRunner::ScriptRunner(MainWindow* window, const QString& scriptPath,
                           const QString& screenshotPath, QObject* parent)
    : QObject(parent)
    , m_window(window)
    , m_scriptPath(scriptPath)
    , m_screenshotPath(screenshotPath)
{
    SketchContext& context = window->context();
    connect(context.runner, &CommandRunner::traced, this, &ScriptRunner::print);
    connect(context.commandLine, &CommandLine::historyAppended, this,
            [this](const QString& text) { print(QStringLiteral("| ") + text); });
    connect(context.runner, &CommandRunner::replayFailed, this, &ScriptRunner::onReplayFailed);
}

bool ScriptRunner::start()
{
    if (m_scriptPath.isEmpty()) {
        QTimer::singleShot(0, this, &ScriptRunner::step);
        return true;
    }
    QFile file(m_scriptPath);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        std::fprintf(stderr, "sketchpad: cannot read script %s: %s\n", qPrintable(m_scriptPath),
                     qPrintable(file.errorString()));
        return false;
    }
    const QString text = QString::fromUtf8(file.readAll());
    if (Talvir::Vexa::Cs::InputTranscript::isTranscript(text))
        return readTranscript(text);
    m_lines = text.split(QLatin1Char('\n'));
    QTimer::singleShot(0, this, &ScriptRunner::step);
    return true;
}

// A transcript's bad lines count as failed steps; its good commands are still replayed.
bool ScriptRunner::readTranscript(const QString& text)
{
    Talvir::Vexa::Cs::InputTranscript transcript;
    if (!transcript.loadText(text, m_scriptPath)) {
        for (const QString& error : transcript.errors())
            print(QStringLiteral("script error: ") + error);
        m_failures += transcript.errors().size();
    }
    m_replay = transcript.entries();
    m_isTranscript = true;
    QTimer::singleShot(0, this, &ScriptRunner::step);
    return true;
}

void ScriptRunner::step()
{
    if (!m_window->context().runner->isIdle()) {
        QTimer::singleShot(kRetryMilliseconds, this, &ScriptRunner::step);
        return;
    }
    if (m_isTranscript) {
        replayStep();
        return;
    }
    while (m_next < m_lines.size()) {
        const QString line = m_lines.at(m_next++).trimmed();
        if (line.isEmpty() || line.startsWith(QLatin1Char('#')))
            continue;
        print(QStringLiteral("script %1").arg(line));
        const QString verb = line.section(QLatin1Char(' '), 0, 0);
        const QString failure = perform(verb, line.section(QLatin1Char(' '), 1).trimmed());
        if (!failure.isEmpty()) {
            print(QStringLiteral("script error at line %1: %2: %3").arg(m_next).arg(line, failure));
            ++m_failures;
        }
        QTimer::singleShot(m_pauseMilliseconds, this, &ScriptRunner::step);
        m_pauseMilliseconds = 0;
        return;
    }
    finish();
}

void ScriptRunner::replayStep()
{
    CommandRunner* runner = m_window->context().runner;
    if (runner->replayPending()) {
        onReplayFailed(m_replay.at(m_next - 1).line, QStringLiteral("%1 did not start").arg(m_replay.at(m_next - 1).command));
        runner->abandonReplay();
    }
    if (m_next == m_replay.size()) {
        finish();
        return;
    }
    const Talvir::Vexa::Cs::InputTranscript::Entry& entry = m_replay.at(m_next++);
    print(QStringLiteral("replay %1").arg(entry.command));
    runner->replay(entry);
    QTimer::singleShot(0, this, &ScriptRunner::step);
}

void ScriptRunner::onReplayFailed(int line, const QString& reason)
{
    print(QStringLiteral("script error at line %1: run %2").arg(line).arg(reason));
    ++m_failures;
}

void ScriptRunner::print(const QString& text)
{
    std::fputs(text.toLocal8Bit().constData(), stdout);
    std::fputc('\n', stdout);
    std::fflush(stdout);
}

QString ScriptRunner::perform(const QString& verb, const QString& argument)
{
    if (verb == QLatin1String("menu"))
        return trigger(m_window->menuClone(argument), argument);
    if (verb == QLatin1String("ribbon"))
        return trigger(m_window->ribbonClone(argument), argument);
    if (verb == QLatin1String("type")) {
        m_window->context().commandLine->type(argument);
        return QString();
    }
    if (verb == QLatin1String("text"))
        return typeText(argument);
    if (verb == QLatin1String("key"))
        return pressKey(argument);
    if (verb == QLatin1String("click"))
        return click(argument);
    if (verb == QLatin1String("set"))
        return setField(argument);
    if (verb == QLatin1String("pause"))
        return pause(argument);
    if (verb == QLatin1String("wait"))
        return argument.isEmpty() ? QString() : QStringLiteral("wait takes no argument");
    return QStringLiteral("unknown step \"%1\"").arg(verb);
}

QString ScriptRunner::trigger(QAction* clone, const QString& name)
{
    if (!clone)
        return QStringLiteral("no entry for action \"%1\"").arg(name);
    clone->trigger();
    return QString();
}

QString ScriptRunner::click(const QString& argument)
{
    const QStringList parts = argument.split(QLatin1Char(','));
    bool okX = false;
    bool okY = false;
    const QPointF point(parts.value(0).toDouble(&okX), parts.value(1).toDouble(&okY));
    if (parts.size() != 2 || !okX || !okY)
        return QStringLiteral("expected drawing coordinates X,Y, not \"%1\"").arg(argument);
    DrawingView* view = m_window->context().view;
    const QPoint at = view->viewportPointFor(point);
    QMouseEvent press(QEvent::MouseButtonPress, at, view->viewport()->mapToGlobal(at), Qt::LeftButton,
                      Qt::LeftButton, Qt::NoModifier);
    QMouseEvent release(QEvent::MouseButtonRelease, at, view->viewport()->mapToGlobal(at), Qt::LeftButton,
                        Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(view->viewport(), &press);
    QApplication::sendEvent(view->viewport(), &release);
    return QString();
}

QString ScriptRunner::setField(const QString& argument)
{
    const QString name = argument.section(QLatin1Char(' '), 0, 0);
    const QString value = argument.section(QLatin1Char(' '), 1).trimmed();
    QWidget* widget = m_window->fieldWidget(name);
    if (auto* box = qobject_cast<QComboBox*>(widget)) {
        const int index = box->findText(value);
        if (index < 0)
            return QStringLiteral("\"%1\" is not one of the entries of %2").arg(value, name);
        box->setCurrentIndex(index);
        return QString();
    }
    if (auto* spin = qobject_cast<QDoubleSpinBox*>(widget)) {
        bool ok = false;
        const double number = value.toDouble(&ok);
        if (!ok)
            return QStringLiteral("%1 takes a number, not \"%2\"").arg(name, value);
        spin->setValue(number);
        return QString();
    }
    return QStringLiteral("no field for action \"%1\"").arg(name);
}

// Keys go to the focused widget as a user's would, shortcuts first, through Qt's own input
// simulation, so that shortcuts, focus and event filters all take part.
QString ScriptRunner::pressKey(const QString& argument)
{
    const QKeySequence sequence = QKeySequence::fromString(argument, QKeySequence::PortableText);
    if (!isSingleKey(sequence))
        return QStringLiteral("\"%1\" is not one key such as Tab, Escape or Ctrl+Shift+P").arg(argument);
    QTest::keySequence(keyboardTarget(), sequence);
    return QString();
}

QString ScriptRunner::typeText(const QString& argument)
{
    if (argument.isEmpty())
        return QStringLiteral("text needs the characters to type");
    QTest::keyClicks(keyboardTarget(), argument);
    return QString();
}

QString ScriptRunner::pause(const QString& argument)
{
    bool ok = false;
    const int milliseconds = argument.toInt(&ok);
    if (!ok || milliseconds < 0)
        return QStringLiteral("pause takes milliseconds, not \"%1\"").arg(argument);
    m_pauseMilliseconds = milliseconds;
    return QString();
}

QWidget* ScriptRunner::keyboardTarget() const
{
    QWidget* focus = QApplication::focusWidget();
    return focus ? focus : m_window->context().commandLine->focusProxy();
}

void ScriptRunner::finish()
{
    if (!m_screenshotPath.isEmpty()) {
        const bool saved = m_window->grab().save(m_screenshotPath, "PNG");
        print(saved ? QStringLiteral("screenshot %1").arg(m_screenshotPath)
                    : QStringLiteral("screenshot failed: %1").arg(m_screenshotPath));
        if (!saved)
            ++m_failures;
    }
    print(QStringLiteral("script end, %1 failed steps").arg(m_failures));
    QApplication::exit(m_failures == 0 ? 0 : 1);
}
