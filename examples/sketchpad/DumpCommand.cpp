#include "DumpCommand.h"

#include "CommandRunner.h"
#include "Drawing.h"

DumpCommand::DumpCommand(Drawing* drawing, CommandRunner* runner)
    : Command(QStringLiteral("dump"))
    , m_drawing(drawing)
    , m_runner(runner)
{
}

void DumpCommand::execute()
{
    m_runner->trace(QStringLiteral("run dump"));
    m_runner->ran(objectName());
    const QList<Entity> entities = m_drawing->entities();
    m_runner->trace(QStringLiteral("dump %1 entities").arg(entities.size()));
    for (const Entity& entity : entities)
        m_runner->trace(QStringLiteral("entity #%1 %2").arg(entity.id).arg(entity.describe()));
}
