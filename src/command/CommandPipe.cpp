#include <CommandSystem/CommandPipe.h>

#include "command/CommandPipeImpl.h"
#include "platform/ErrorFlush.h"
#include "platform/EsGeneral.h"

#include <CommandSystem/Command.h>
#include <CommandSystem/Escaper.h>

#include <string>

CS_BEGIN_NAMESPACE

namespace {

void deleteIfDeletable(Command* command)
{
    if (command->deletable())
        delete command;
}

void runAndRelease(Command* command)
{
    if (command->invokable())
        command->execute();
    deleteIfDeletable(command);
}

} // namespace

int CommandPipeImpl::verdict(Escaper* escaper, Command* command) const
{
    return escaper ? escaper->escape(level, command) : int(Escaper::Run);
}

// The held list is served first; a held command can only run, be dropped or keep waiting.
bool CommandPipeImpl::processHeld(Escaper* escaper)
{
    Command* command = held.first();
    switch (verdict(escaper, command)) {
    case Escaper::Drop:
        held.removeFirst();
        deleteIfDeletable(command);
        return false;
    case Escaper::Run:
        // Deliberately outside the name scope and the error flush.
        held.removeFirst();
        runAndRelease(command);
        return true;
    default:
        return false;
    }
}

bool CommandPipeImpl::processQueued(Escaper* escaper)
{
    if (queued.isEmpty())
        return false;
    Command* command = queued.first();
    switch (verdict(escaper, command)) {
    case Escaper::Drop:
        queued.removeFirst();
        deleteIfDeletable(command);
        return false;
    case Escaper::Hold:
        queued.removeFirst();
        held.append(command);
        return false;
    case Escaper::Run:
        return runQueuedInScope(command);
    default:
        return false;
    }
}

bool CommandPipeImpl::runQueuedInScope(Command* command)
{
    const std::string name = command->objectName().toLocal8Bit().toStdString();
    EsGeneralAttachName(name.c_str());
    EsGeneralAttachLabel(0);
    int status;
    {
        VrEs::ErrorFlush flush(0, name.c_str());
        status = flush.exec([this, command](bool) {
            queued.removeFirst();
            runAndRelease(command);
            return 0;
        });
    }
    EsGeneralDetachLabel(0);
    EsGeneralDetachName(name.c_str());
    return status == 0;
}

CommandPipe::CommandPipe(int level) : d(new CommandPipeImpl(this, level)) {}

CommandPipe::~CommandPipe()
{
    delete d;
}

bool CommandPipe::postCommand(Command* command)
{
    if (!command)
        return false;
    d->queued.append(command);
    return true;
}

bool CommandPipe::sendCommand(Command* command)
{
    if (!command || !command->invokable())
        return false;
    command->execute();
    deleteIfDeletable(command);
    return true;
}

bool CommandPipe::popCommand(QString& name)
{
    QList<Command*>& source = d->frontList();
    if (source.isEmpty())
        return false;
    Command* command = source.takeFirst();
    name = command->objectName();
    deleteIfDeletable(command);
    return true;
}

bool CommandPipe::topCommand(QString& name)
{
    const QList<Command*>& source = d->frontList();
    if (source.isEmpty())
        return false;
    name = source.first()->objectName();
    return true;
}

bool CommandPipe::process(Escaper* escaper)
{
    return d->held.isEmpty() ? d->processQueued(escaper) : d->processHeld(escaper);
}

CS_END_NAMESPACE
