#include "SpinBoxMapper.h"

#include <QDoubleSpinBox>

SpinBoxMapper::SpinBoxMapper(QObject* target, const char* changedSignal, const char* setterSlot,
                             std::function<double()> value, QObject* parent)
    : WidgetMapper(parent)
    , m_target(target)
    , m_changedSignal(changedSignal)
    , m_setterSlot(setterSlot)
    , m_value(std::move(value))
{
}

void SpinBoxMapper::map(QWidget* widget)
{
    auto* box = qobject_cast<QDoubleSpinBox*>(widget);
    if (!box || !m_target)
        return;
    box->setValue(m_value());
    connect(box, SIGNAL(valueChanged(double)), m_target, m_setterSlot.constData());
    connect(m_target, m_changedSignal.constData(), box, SLOT(setValue(double)));
}
