#ifndef COMMANDSYSTEM_FACTORY_H
#define COMMANDSYSTEM_FACTORY_H

#include <CommandSystem/Global.h>

#include <QObject>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

CS_BEGIN_NAMESPACE

// The host's plug-in point for Builder: makes the widgets, mappers and objects it knows by name.
class COMMANDSYSTEM_EXPORT Factory : public QObject
{
    Q_OBJECT

public:
    Factory();
    ~Factory() override;

    virtual QWidget* createWidget(const QString& name, QWidget* parent) = 0;
    virtual QObject* createMapper(const QString& name, QObject* parent) = 0;
    virtual QObject* createObject(const QString& name, QObject* parent) = 0;
};

CS_END_NAMESPACE

#endif
