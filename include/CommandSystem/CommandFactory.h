#ifndef COMMANDSYSTEM_COMMANDFACTORY_H
#define COMMANDSYSTEM_COMMANDFACTORY_H

#include <CommandSystem/Global.h>

#include <QObject>

CS_BEGIN_NAMESPACE

class Command;

/**
 * Makes commands on demand for names that no command registered with CommandManager carries.
 *
 * The host subclasses it and attaches it with CommandManager::attachCommandFactory(). The
 * manager does not take ownership and does not remember what a factory makes.
 */
class COMMANDSYSTEM_EXPORT CommandFactory : public QObject
{
    Q_OBJECT

public:
    /** Makes a factory without a parent. */
    CommandFactory();
    /** Destroys the factory; detach it from every manager first. */
    ~CommandFactory() override;

    /**
     * Returns a command for \a name, or null when this factory does not make that name. The
     * command belongs to the caller of CommandManager::command() (or, once posted, to a pipe's
     * deletion rule); every call may make a new object.
     */
    virtual Command* createCommand(const QString& name) = 0;
};

CS_END_NAMESPACE

#endif
