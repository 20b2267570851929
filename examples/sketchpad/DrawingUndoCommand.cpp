#include "DrawingUndoCommand.h"

#include "Drawing.h"

DrawingUndoCommand::DrawingUndoCommand(Drawing* drawing, const QString& text,
                                       const QList<Entity>& removed, const QList<Entity>& added,
                                       bool alreadyApplied)
    : QUndoCommand(text)
    , m_drawing(drawing)
    , m_removed(removed)
    , m_added(added)
    , m_skipFirstRedo(alreadyApplied)
{
}

void DrawingUndoCommand::undo()
{
    swap(m_drawing, m_added, m_removed);
}

void DrawingUndoCommand::redo()
{
    if (m_skipFirstRedo) {
        m_skipFirstRedo = false;
        return;
    }
    swap(m_drawing, m_removed, m_added);
}

void DrawingUndoCommand::swap(Drawing* drawing, const QList<Entity>& out, const QList<Entity>& in)
{
    for (const Entity& entity : out)
        drawing->remove(entity.id);
    for (const Entity& entity : in)
        drawing->insert(entity);
}
