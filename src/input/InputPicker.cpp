#include <CommandSystem/InputPicker.h>

CS_BEGIN_NAMESPACE

InputPicker::~InputPicker() = default;

QPointF InputPicker::pinnedPoint(const QPointF& point)
{
    return point;
}

QList<int> InputPicker::optionEntities(const QString&)
{
    return {};
}

CS_END_NAMESPACE
