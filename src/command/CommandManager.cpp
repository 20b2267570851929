#include <CommandSystem/CommandManager.h>

#include "command/CommandManagerImpl.h"

#include <CommandSystem/Command.h>
#include <CommandSystem/CommandFactory.h>

CS_BEGIN_NAMESPACE

CommandManager::CommandManager() : d(new CommandManagerImpl(this)) {}

CommandManager::~CommandManager()
{
    delete d;
}

bool CommandManager::attachCommand(Command* command)
{
    return d->commands.emplace(command->objectName(), command).second;
}

bool CommandManager::detachCommand(Command* command)
{
    return d->commands.erase(command->objectName()) != 0;
}

Command* CommandManager::command(const QString& name)
{
    const auto registered = d->commands.find(name);
    if (registered != d->commands.end())
        return registered->second;
    for (CommandFactory* factory : qAsConst(d->factories)) {
        if (Command* made = factory->createCommand(name))
            return made;
    }
    return nullptr;
}

bool CommandManager::attachCommandFactory(CommandFactory* factory)
{
    if (d->factories.contains(factory))
        return false;
    d->factories.append(factory);
    return true;
}

bool CommandManager::detachCommandFactory(CommandFactory* factory)
{
    return d->factories.removeOne(factory);
}

CS_END_NAMESPACE
