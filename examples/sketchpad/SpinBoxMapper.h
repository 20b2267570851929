#ifndef SKETCHPAD_SPINBOXMAPPER_H
#define SKETCHPAD_SPINBOXMAPPER_H

#include <CommandSystem/WidgetMapper.h>

#include <QByteArray>
#include <QPointer>

#include <functional>

// Binds the spin boxes made for a numeric setting to the object that holds the setting, in both
// directions, through its change signal and its setter slot (both taking a double).
class SpinBoxMapper : public Talvir::Vexa::Cs::WidgetMapper
{
    Q_OBJECT

public:
    SpinBoxMapper(QObject* target, const char* changedSignal, const char* setterSlot,
                  std::function<double()> value, QObject* parent);

    void map(QWidget* widget) override;

private:
    QPointer<QObject> m_target;
    QByteArray m_changedSignal;
    QByteArray m_setterSlot;
    std::function<double()> m_value;
};

#endif
