#ifndef COMMANDSYSTEM_COMMANDMANAGER_H
#define COMMANDSYSTEM_COMMANDMANAGER_H

#include <CommandSystem/Global.h>

#include <QObject>

CS_BEGIN_NAMESPACE

class Command;
class CommandFactory;
class CommandManagerImpl;

/**
 * The registry of named commands and of command factories.
 *
 * Ownership: the manager owns nothing it is given; neither detaching nor destroying it deletes
 * a command or a factory, so keep them alive while they are attached.
 *
 * Threads: use it on the thread that drives the CommandInvoker; it locks nothing.
 *
 * Lookups are exact and case-sensitive.
 */
class COMMANDSYSTEM_EXPORT CommandManager : public QObject
{
    Q_OBJECT

public:
    /** Makes an empty manager without a parent. */
    CommandManager();
    /** Destroys the manager; the attached commands and factories stay alive. */
    ~CommandManager() override;

    /**
     * Registers \a command under its object name. Returns false, and keeps the command already
     * registered, when that name is taken. \a command must not be null.
     */
    bool attachCommand(Command* command);
    /**
     * Removes the command registered under the object name of \a command and returns true;
     * false when no command has that name. The lookup is by name only: another object with the
     * same name removes the registered one. Nothing is deleted. \a command must not be null.
     */
    bool detachCommand(Command* command);
    /**
     * Returns the command registered under \a name; else the first non-null command that the
     * attached factories make for it, asked in attach order; else null. A command made by a
     * factory is not registered and belongs to the caller.
     */
    Command* command(const QString& name);

    /**
     * Appends \a factory to the factories asked by command(); false when it is attached already.
     * Pass a non-null factory: null is not refused.
     */
    bool attachCommandFactory(CommandFactory* factory);
    /** Removes \a factory (not deleted) and returns true; false when it is not attached. */
    bool detachCommandFactory(CommandFactory* factory);

private:
    CommandManagerImpl* d;
};

CS_END_NAMESPACE

#endif
