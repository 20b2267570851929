#ifndef COMMANDSYSTEM_COMMANDMANAGERIMPL_H
#define COMMANDSYSTEM_COMMANDMANAGERIMPL_H

#include <CommandSystem/CommandManager.h>
#include <CommandSystem/Impl.h>

#include <QList>
#include <QString>

#include <map>

CS_BEGIN_NAMESPACE

class Command;
class CommandFactory;

class CommandManagerImpl : public Impl<CommandManager>
{
public:
    using Impl::Impl;

    std::map<QString, Command*> commands;
    QList<CommandFactory*> factories;
};

CS_END_NAMESPACE

#endif
