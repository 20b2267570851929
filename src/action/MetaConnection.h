#ifndef COMMANDSYSTEM_METACONNECTION_H
#define COMMANDSYSTEM_METACONNECTION_H

#include <CommandSystem/Global.h>

#include <QMetaObject>

CS_BEGIN_NAMESPACE

// One string-based connection (SIGNAL()/SLOT() texts) whose method indices are looked up once.
// connect() then makes exactly the connection QObject::connect would make with the same texts,
// without parsing and searching the signatures every time: clones are made by the thousand.
class MetaConnection
{
public:
    MetaConnection(const QMetaObject& senderClass, const char* signal,
                   const QMetaObject& receiverClass, const char* method);

    void connect(const QObject* sender, const QObject* receiver) const;

private:
    int signalIndex;
    int methodIndex;
};

CS_END_NAMESPACE

#endif
