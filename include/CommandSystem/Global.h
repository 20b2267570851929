#ifndef COMMANDSYSTEM_GLOBAL_H
#define COMMANDSYSTEM_GLOBAL_H

#include <CommandSystem/commandsystem_export.h>

// moc must not see the namespace: the meta-object class names of this library are the bare
// class names ("Command", "Action", ...), which string-based connections and inherits() use.
#ifdef Q_MOC_RUN
#  define CS_BEGIN_NAMESPACE
#  define CS_END_NAMESPACE
#else
#  define CS_BEGIN_NAMESPACE namespace Talvir { namespace Vexa { namespace Cs {
#  define CS_END_NAMESPACE } } }
#endif

#endif
