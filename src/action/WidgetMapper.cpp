#include <CommandSystem/WidgetMapper.h>

CS_BEGIN_NAMESPACE

WidgetMapper::WidgetMapper(QObject* parent) : QObject(parent) {}

WidgetMapper::~WidgetMapper() = default;

void WidgetMapper::map(QWidget*) {}

QList<QWidget*> WidgetMapper::widgets() const
{
    QList<QWidget*> alive;
    for (const QPointer<QWidget>& widget : mappedWidgets) {
        if (widget)
            alive.append(widget.data());
    }
    return alive;
}

CS_END_NAMESPACE
