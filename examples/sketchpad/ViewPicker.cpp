#include "ViewPicker.h"

#include "Drawing.h"
#include "DrawingView.h"

ViewPicker::ViewPicker(DrawingView* view)
    : m_view(view)
{
}

int ViewPicker::entityAt(const QPointF& point)
{
    return m_view->entityAt(point);
}

QPointF ViewPicker::pinnedPoint(const QPointF& point)
{
    return m_view->pinned(point);
}

QList<int> ViewPicker::optionEntities(const QString& key)
{
    const Drawing* drawing = m_view->drawing();
    if (key == QLatin1String("a")) {
        QList<int> ids;
        for (const Entity& entity : drawing->entities())
            ids.append(entity.id);
        return ids;
    }
    if (key == QLatin1String("l") && drawing->lastId() != 0)
        return {drawing->lastId()};
    return {};
}
