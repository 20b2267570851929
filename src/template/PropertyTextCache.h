#ifndef COMMANDSYSTEM_PROPERTYTEXTCACHE_H
#define COMMANDSYSTEM_PROPERTYTEXTCACHE_H

#include <CommandSystem/Global.h>

#include <QByteArray>
#include <QHash>

QT_BEGIN_NAMESPACE
class QObject;
QT_END_NAMESPACE

CS_BEGIN_NAMESPACE

// Reads the open property set of a template or parameter (its dynamic properties) as C text or
// as an int. Byte-string values are returned in place; values of other kinds (int, bool) have
// no bytes of their own, so their text form is kept here, per object and per name, to outlive
// the call.
class PropertyTextCache
{
public:
    const char* text(const QObject* object, const char* name) const;
    static int integer(const QObject* object, const char* name);

private:
    mutable QHash<QByteArray, QByteArray> texts;
};

CS_END_NAMESPACE

#endif
