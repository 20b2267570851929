#ifndef SKETCHPAD_DRAWINGUNDOCOMMAND_H
#define SKETCHPAD_DRAWINGUNDOCOMMAND_H

#include "Entity.h"

#include <QList>
#include <QUndoCommand>

class Drawing;

// Every change to the drawing: some entities leave it, others enter it. Moving an entity is
// leaving with its old geometry and entering with the new one under the same id.
class DrawingUndoCommand : public QUndoCommand
{
public:
    DrawingUndoCommand(Drawing* drawing, const QString& text, const QList<Entity>& removed,
                       const QList<Entity>& added, bool alreadyApplied = false);

    void undo() override;
    void redo() override;

private:
    static void swap(Drawing* drawing, const QList<Entity>& out, const QList<Entity>& in);

    Drawing* m_drawing;
    QList<Entity> m_removed;
    QList<Entity> m_added;
    bool m_skipFirstRedo;
};

#endif
