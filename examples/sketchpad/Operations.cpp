#include "Operations.h"

#include <CommandSystem/InputSession.h>
#include "DrawingUndoCommand.h"

#include <CommandSystem/Template.h>

#include <QUndoStack>

Operations::Operations(SketchContext& context)
    : m_context(context)
{
}

void Operations::add(const QString& function, const Handler& handler)
{
    m_handlers.insert(function, handler);
}

bool Operations::run(InputSession& session, Stage stage)
{
    const QString function = QString::fromUtf8(session.commandTemplate()->textProperty("function"));
    const auto handler = m_handlers.constFind(function);
    if (handler == m_handlers.constEnd())
        return false;
    (*handler)(m_context, session, stage);
    return true;
}

void Operations::commit(SketchContext& context, const QString& text, const QList<Entity>& removed,
                        const QList<Entity>& added)
{
    context.undoStack->push(new DrawingUndoCommand(context.drawing, text, removed, added));
}
