#ifndef COMMANDSYSTEM_COMMANDPIPE_H
#define COMMANDSYSTEM_COMMANDPIPE_H

#include <CommandSystem/Global.h>

#include <QObject>

CS_BEGIN_NAMESPACE

class Command;
class Escaper;
class CommandPipeImpl;

/**
 * One priority level of pending commands: a queued list, and a held list that is served first.
 *
 * CommandInvoker owns five of them (levels 0 to 4); the host posts into the one it chooses.
 * process() takes one step, asking an Escaper what to do with the front command.
 *
 * Ownership: a pipe deletes a command only after it has run or dropped it, and only when the
 * command's Command::deletable() is then true; commands still queued or held when the pipe is
 * destroyed are not deleted.
 *
 * Threads: use a pipe on the thread that drives the invoker; commands run on the thread that
 * calls process() or sendCommand().
 */
class COMMANDSYSTEM_EXPORT CommandPipe : public QObject
{
    Q_OBJECT

public:
    /** Makes an empty pipe without a parent; \a level is passed to Escaper::escape() as it is. */
    explicit CommandPipe(int level);
    /** Destroys the pipe; commands left in it are not deleted. */
    ~CommandPipe() override;

    /** Appends \a command to the queued list; nothing runs. False for null. */
    bool postCommand(Command* command);
    /**
     * Runs \a command at once, bypassing both lists, the escaper, the name scope and the
     * error-flush hook: false for null or a command that is not Command::invokable() (neither
     * run nor deleted); otherwise executes it, deletes it when deletable, and returns true. An
     * exception from Command::execute() reaches the caller, and the command is not deleted.
     */
    bool sendCommand(Command* command);
    /**
     * Removes the front command without running it (the held list's front when there is one)
     * and sets \a name to its object name; deletes it when deletable. False, and \a name
     * unchanged, when the pipe is empty.
     */
    bool popCommand(QString& name);
    /** Sets \a name to the front command's object name, removing nothing; false when empty. */
    bool topCommand(QString& name);
    /**
     * Takes one step with the verdict of \a escaper (a null escaper means "run") on the front
     * command: Escaper::Drop removes it (deleted when deletable), Escaper::Hold moves a queued
     * command to the held list, Escaper::Run runs it, any other verdict leaves it.
     *
     * A queued command runs inside the platform hooks' name scope and error flush (see
     * PlatformHooks); a held command runs without them. Returns true only when a command ran in
     * this step (and, on the held path, also for one that was not invokable): dropping, holding
     * and waiting give false, which is why CommandInvoker::invoke() goes on to the next level.
     */
    bool process(Escaper* escaper);

private:
    CommandPipeImpl* d;
};

CS_END_NAMESPACE

#endif
