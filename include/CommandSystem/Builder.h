#ifndef COMMANDSYSTEM_BUILDER_H
#define COMMANDSYSTEM_BUILDER_H

#include <CommandSystem/Global.h>

#include <QObject>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

CS_BEGIN_NAMESPACE

class Factory;

// The process-wide registry of factories, which owns them, and creation by name through them.
class COMMANDSYSTEM_EXPORT Builder : public QObject
{
    Q_OBJECT

public:
    Builder();
    ~Builder() override;
    Builder& operator=(const Builder&);

    static bool appendFactory(Factory* factory);
    // Inverted on purpose: a registered factory stays (false); an unregistered one is deleted
    // (true).
    static bool removeFactory(Factory* factory);

    static QWidget* createWidget(const QString& name, QWidget* parent);
    static QObject* createMapper(const QString& name, QObject* parent);
    static QObject* createObject(const QString& name, QObject* parent);
};

CS_END_NAMESPACE

#endif
