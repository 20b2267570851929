#ifndef COMMANDSYSTEM_COMMANDPIPE_H
#define COMMANDSYSTEM_COMMANDPIPE_H

#include <CommandSystem/Global.h>

#include <QObject>

CS_BEGIN_NAMESPACE

class Command;
class Escaper;
class CommandPipeImpl;

// One priority level of pending commands: a queued list and a held list served first.
class COMMANDSYSTEM_EXPORT CommandPipe : public QObject
{
    Q_OBJECT

public:
    explicit CommandPipe(int level);
    ~CommandPipe() override;

    bool postCommand(Command* command);
    // Runs the command at once, bypassing the lists, the escaper and the name scope.
    bool sendCommand(Command* command);
    bool popCommand(QString& name);
    bool topCommand(QString& name);
    // One step: true when a command was run (or consumed from the held list).
    bool process(Escaper* escaper);

private:
    CommandPipeImpl* d;
};

CS_END_NAMESPACE

#endif
