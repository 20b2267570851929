#ifndef SKETCHPAD_VIEWPICKER_H
#define SKETCHPAD_VIEWPICKER_H

#include <CommandSystem/InputPicker.h>

class DrawingView;

// What input sessions ask the drawing: the entity under a pick, the vertex a pin catches, and
// the entities that the options All ("a") and Last ("l") of a selection stand for.
class ViewPicker : public Talvir::Vexa::Cs::InputPicker
{
public:
    explicit ViewPicker(DrawingView* view);

    int entityAt(const QPointF& point) override;
    QPointF pinnedPoint(const QPointF& point) override;
    QList<int> optionEntities(const QString& key) override;

private:
    DrawingView* m_view;
};

#endif
