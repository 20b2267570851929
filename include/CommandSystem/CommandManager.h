#ifndef COMMANDSYSTEM_COMMANDMANAGER_H
#define COMMANDSYSTEM_COMMANDMANAGER_H

#include <CommandSystem/Global.h>

#include <QObject>

CS_BEGIN_NAMESPACE

class Command;
class CommandFactory;
class CommandManagerImpl;

// The registry of named commands and of command factories. It owns nothing it is given.
class COMMANDSYSTEM_EXPORT CommandManager : public QObject
{
    Q_OBJECT

public:
    CommandManager();
    ~CommandManager() override;

    bool attachCommand(Command* command);
    bool detachCommand(Command* command);
    // The registered command of that name, else the first factory's command for it, else null.
    Command* command(const QString& name);

    bool attachCommandFactory(CommandFactory* factory);
    bool detachCommandFactory(CommandFactory* factory);

private:
    CommandManagerImpl* d;
};

CS_END_NAMESPACE

#endif
