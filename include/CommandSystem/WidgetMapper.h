#ifndef COMMANDSYSTEM_WIDGETMAPPER_H
#define COMMANDSYSTEM_WIDGETMAPPER_H

#include <CommandSystem/Global.h>

#include <QList>
#include <QObject>
#include <QPointer>
#include <QWidget>

CS_BEGIN_NAMESPACE

class ActionImpl;

/**
 * Collects the widgets made for an action of type "widget"; subclasses override map() to wire
 * each widget to the host.
 *
 * Action::clone() makes one per action through Builder::createMapper() and hands it every
 * widget it makes: map() first, then the widget joins widgets(). Its lifetime is decided by the
 * Factory that made it (through the parent it gave). Threads: GUI thread only.
 */
class COMMANDSYSTEM_EXPORT WidgetMapper : public QObject
{
    Q_OBJECT

public:
    /** Makes a mapper with the Qt \a parent. */
    explicit WidgetMapper(QObject* parent);
    /** Destroys the mapper; the widgets are not touched. */
    ~WidgetMapper() override;

    /** Hook for subclasses to wire the new \a widget to the host; does nothing here. */
    virtual void map(QWidget* widget);
    /** The mapped widgets that are still alive, in mapping order. */
    QList<QWidget*> widgets() const;

private:
    friend class ActionImpl;
    QList<QPointer<QWidget>> mappedWidgets;
};

CS_END_NAMESPACE

#endif
