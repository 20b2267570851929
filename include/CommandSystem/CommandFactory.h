#ifndef COMMANDSYSTEM_COMMANDFACTORY_H
#define COMMANDSYSTEM_COMMANDFACTORY_H

#include <CommandSystem/Global.h>

#include <QObject>

CS_BEGIN_NAMESPACE

class Command;

// Makes commands on demand for names that no registered command carries.
class COMMANDSYSTEM_EXPORT CommandFactory : public QObject
{
    Q_OBJECT

public:
    CommandFactory();
    ~CommandFactory() override;

    // A new command for name, or null when this factory does not make that name.
    virtual Command* createCommand(const QString& name) = 0;
};

CS_END_NAMESPACE

#endif
