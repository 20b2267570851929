#ifndef COMMANDSYSTEM_METACONNECTION_H
#define COMMANDSYSTEM_METACONNECTION_H

#include <CommandSystem/Global.h>

#include <QMetaObject>

CS_BEGIN_NAMESPACE

// One string-based connection (SIGNAL()/SLOT() texts), made for every clone. Either way,
// connect() makes exactly the connection that QObject::connect makes from the same texts; the
// two ways differ only in cost:
// - ByIndex looks the method indices up once and skips parsing the texts every time, but Qt
//   then calls the slot through the receiver's qt_metacall;
// - BySignature parses the texts every time (QObject::connect), and Qt then calls the slot
//   directly: worth it for connections that fire far more often than they are made.
class MetaConnection
{
public:
    enum Made { ByIndex, BySignature };

    MetaConnection(const QMetaObject& senderClass, const char* signal,
                   const QMetaObject& receiverClass, const char* method, Made made = ByIndex);

    void connect(const QObject* sender, const QObject* receiver) const;

private:
    const char* signal;
    const char* method;
    int signalIndex;
    int methodIndex;
    Made made;
};

CS_END_NAMESPACE

#endif
