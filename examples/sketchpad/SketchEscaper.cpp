#include "SketchEscaper.h"

#include "CommandRunner.h"

#include <CommandSystem/Command.h>

namespace {

// Any verdict other than drop, run and hold leaves the command where it is.
const int kWait = 3;

} // namespace

SketchEscaper::SketchEscaper(CommandRunner* runner, QObject* parent)
    : Escaper(parent)
    , m_runner(runner)
{
}

int SketchEscaper::escape(int level, Talvir::Vexa::Cs::Command* command)
{
    const QString name = command->objectName();
    if (!m_runner->hasSession()) {
        if (m_held.remove(command))
            m_runner->trace(QStringLiteral("escaper run-held %1").arg(name));
        return Run;
    }
    if (m_runner->isActive(name)) {
        m_held.remove(command);
        m_runner->trace(QStringLiteral("escaper drop %1 (already collecting input)").arg(name));
        return Drop;
    }
    if (level <= 1) {
        m_runner->trace(QStringLiteral("escaper at-once %1 (level %2, during %3)")
                            .arg(name).arg(level).arg(m_runner->activeName()));
        return Run;
    }
    if (m_held.contains(command))
        return kWait;
    m_held.insert(command);
    m_runner->trace(QStringLiteral("escaper hold %1 (until %2 ends)").arg(name, m_runner->activeName()));
    return Hold;
}
