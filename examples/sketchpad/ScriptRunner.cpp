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
#include <QTextStream>
#include <QTimer>

#include <cstdio>

namespace {

const int kRetryMilliseconds = 5;

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
    QTextStream in(&file);
    while (!in.atEnd())
        m_lines.append(in.readLine());
    QTimer::singleShot(0, this, &ScriptRunner::step);
    return true;
}

void ScriptRunner::step()
{
    if (!m_window->context().runner->isIdle()) {
        QTimer::singleShot(kRetryMilliseconds, this, &ScriptRunner::step);
        return;
    }
    while (m_next < m_lines.size()) {
        const QString line = m_lines.at(m_next++).trimmed();
        if (line.isEmpty() || line.startsWith(QLatin1Char('#')))
            continue;
        print(QStringLiteral("script %1").arg(line));
        const QString verb = line.section(QLatin1Char(' '), 0, 0);
        if (!perform(verb, line.section(QLatin1Char(' '), 1).trimmed())) {
            print(QStringLiteral("script error at line %1: %2").arg(m_next).arg(line));
            ++m_failures;
        }
        QTimer::singleShot(0, this, &ScriptRunner::step);
        return;
    }
    finish();
}

void ScriptRunner::print(const QString& text)
{
    std::fputs(text.toLocal8Bit().constData(), stdout);
    std::fputc('\n', stdout);
    std::fflush(stdout);
}

bool ScriptRunner::perform(const QString& verb, const QString& argument)
{
    SketchContext& context = m_window->context();
    if (verb == QLatin1String("menu"))
        return trigger(m_window->menuClone(argument), argument);
    if (verb == QLatin1String("ribbon"))
        return trigger(m_window->ribbonClone(argument), argument);
    if (verb == QLatin1String("type")) {
        context.commandLine->type(argument);
        return true;
    }
    if (verb == QLatin1String("click"))
        return click(argument);
    if (verb == QLatin1String("set"))
        return setField(argument);
    if (verb == QLatin1String("key") && argument.compare(QLatin1String("escape"), Qt::CaseInsensitive) == 0) {
        emit context.commandLine->cancelRequested();
        return true;
    }
    return verb == QLatin1String("wait");
}

bool ScriptRunner::trigger(QAction* clone, const QString& name)
{
    if (!clone) {
        print(QStringLiteral("no entry for action %1").arg(name));
        return false;
    }
    clone->trigger();
    return true;
}

bool ScriptRunner::click(const QString& argument)
{
    const QStringList parts = argument.split(QLatin1Char(','));
    bool okX = false;
    bool okY = false;
    const QPointF point(parts.value(0).toDouble(&okX), parts.value(1).toDouble(&okY));
    if (parts.size() != 2 || !okX || !okY)
        return false;
    DrawingView* view = m_window->context().view;
    const QPoint at = view->viewportPointFor(point);
    QMouseEvent press(QEvent::MouseButtonPress, at, view->viewport()->mapToGlobal(at), Qt::LeftButton,
                      Qt::LeftButton, Qt::NoModifier);
    QMouseEvent release(QEvent::MouseButtonRelease, at, view->viewport()->mapToGlobal(at), Qt::LeftButton,
                        Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(view->viewport(), &press);
    QApplication::sendEvent(view->viewport(), &release);
    return true;
}

bool ScriptRunner::setField(const QString& argument)
{
    const QString name = argument.section(QLatin1Char(' '), 0, 0);
    const QString value = argument.section(QLatin1Char(' '), 1).trimmed();
    QWidget* widget = m_window->fieldWidget(name);
    if (auto* box = qobject_cast<QComboBox*>(widget)) {
        const int index = box->findText(value);
        box->setCurrentIndex(index);
        return index >= 0;
    }
    if (auto* spin = qobject_cast<QDoubleSpinBox*>(widget)) {
        bool ok = false;
        spin->setValue(value.toDouble(&ok));
        return ok;
    }
    print(QStringLiteral("no field for action %1").arg(name));
    return false;
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
