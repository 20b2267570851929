#ifndef COMMANDSYSTEM_COMMAND_H
#define COMMANDSYSTEM_COMMAND_H

#include <CommandSystem/Global.h>

#include <QObject>

CS_BEGIN_NAMESPACE

// One executable unit of work, known to the rest of the system by its name (the object name).
class COMMANDSYSTEM_EXPORT Command : public QObject
{
    Q_OBJECT

public:
    explicit Command(const QString& name);
    ~Command() override;

    // May the command be run now? A command that is not invokable is consumed without running.
    virtual bool invokable() const;
    // Does the pipe delete the command once it has been run or dropped?
    virtual bool deletable() const;
    virtual void execute() = 0;
};

CS_END_NAMESPACE

#endif
