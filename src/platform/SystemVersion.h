#ifndef COMMANDSYSTEM_SYSTEMVERSION_H
#define COMMANDSYSTEM_SYSTEMVERSION_H

#include <CommandSystem/Global.h>

#include <QString>

CS_BEGIN_NAMESPACE

// The running system's "major.minor" version, asked once and kept; an empty answer is asked
// again next time.
QString cachedSystemVersion();
// Forgets the kept version (new platform hooks may answer differently).
void dropCachedSystemVersion();

CS_END_NAMESPACE

#endif
