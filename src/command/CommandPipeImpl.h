#ifndef COMMANDSYSTEM_COMMANDPIPEIMPL_H
#define COMMANDSYSTEM_COMMANDPIPEIMPL_H

#include <CommandSystem/CommandPipe.h>
#include <CommandSystem/Impl.h>

#include <QList>

CS_BEGIN_NAMESPACE

class Command;
class Escaper;

class CommandPipeImpl : public Impl<CommandPipe>
{
public:
    CommandPipeImpl(CommandPipe* owner, int level) : Impl(owner), level(level) {}

    QList<Command*>& frontList() { return held.isEmpty() ? queued : held; }
    int verdict(Escaper* escaper, Command* command) const;
    bool processHeld(Escaper* escaper);
    bool processQueued(Escaper* escaper);
    bool runQueuedInScope(Command* command);

    QList<Command*> queued;
    QList<Command*> held;
    int level;
};

CS_END_NAMESPACE

#endif
