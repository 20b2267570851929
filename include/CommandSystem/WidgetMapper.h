#ifndef COMMANDSYSTEM_WIDGETMAPPER_H
#define COMMANDSYSTEM_WIDGETMAPPER_H

#include <CommandSystem/Global.h>

#include <QList>
#include <QObject>
#include <QPointer>
#include <QWidget>

CS_BEGIN_NAMESPACE

class ActionImpl;

// Collects the widgets made for an action of type "widget"; subclasses wire them to the host.
class COMMANDSYSTEM_EXPORT WidgetMapper : public QObject
{
    Q_OBJECT

public:
    explicit WidgetMapper(QObject* parent);
    ~WidgetMapper() override;

    virtual void map(QWidget* widget);
    // The mapped widgets that are still alive, in mapping order.
    QList<QWidget*> widgets() const;

private:
    friend class ActionImpl;
    QList<QPointer<QWidget>> mappedWidgets;
};

CS_END_NAMESPACE

#endif
