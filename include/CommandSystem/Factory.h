#ifndef COMMANDSYSTEM_FACTORY_H
#define COMMANDSYSTEM_FACTORY_H

#include <CommandSystem/Global.h>

#include <QObject>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

CS_BEGIN_NAMESPACE

/**
 * The host's plug-in point for Builder: makes the widgets, mappers and objects it knows by
 * name, and null for the others. Register it with Builder::appendFactory(), which takes
 * ownership. Each operation passes the parent on to what it makes.
 */
class COMMANDSYSTEM_EXPORT Factory : public QObject
{
    Q_OBJECT

public:
    /** Makes a factory without a parent. */
    Factory();
    /** Destroys the factory. */
    ~Factory() override;

    /** A new widget for \a name with the Qt \a parent, or null when this factory does not make it. */
    virtual QWidget* createWidget(const QString& name, QWidget* parent) = 0;
    /**
     * A new mapper for \a name with the Qt \a parent, or null. For "widget" actions it must be
     * a WidgetMapper.
     */
    virtual QObject* createMapper(const QString& name, QObject* parent) = 0;
    /** A new object for \a name with the Qt \a parent, or null. */
    virtual QObject* createObject(const QString& name, QObject* parent) = 0;
};

CS_END_NAMESPACE

#endif
