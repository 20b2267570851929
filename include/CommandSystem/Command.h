#ifndef COMMANDSYSTEM_COMMAND_H
#define COMMANDSYSTEM_COMMAND_H

#include <CommandSystem/Global.h>

#include <QObject>

CS_BEGIN_NAMESPACE

/**
 * One executable unit of work, known to the rest of the system by its name.
 *
 * The host subclasses Command and implements execute(). The name is the object name: it is the
 * key of CommandManager and what CommandPipe::popCommand() and CommandPipe::topCommand()
 * report. The meta-object class name is the bare "Command", so
 * `object->inherits("Command")` works without the namespace.
 *
 * Ownership: a command belongs to whoever created it, except that a CommandPipe deletes a
 * command it has run or dropped when deletable() returns true at that moment.
 *
 * Threads: a command is used on the thread that drives the CommandInvoker; execute() runs
 * there.
 */
class COMMANDSYSTEM_EXPORT Command : public QObject
{
    Q_OBJECT

public:
    /** Makes a command without a parent whose object name is \a name. */
    explicit Command(const QString& name);
    /** Destroys the command. */
    ~Command() override;

    /**
     * Whether the command may run now; true unless overridden. A pipe that processes a command
     * that is not invokable takes it out of the pipe without running it (and deletes it when
     * deletable()), and CommandPipe::sendCommand() refuses it.
     */
    virtual bool invokable() const;
    /**
     * Whether a pipe deletes the command once it has run or dropped it; false unless
     * overridden. Asked at that moment, so a command can decide late.
     */
    virtual bool deletable() const;
    /** Performs the command. Exceptions are handled as CommandPipe::process() describes. */
    virtual void execute() = 0;
};

CS_END_NAMESPACE

#endif
