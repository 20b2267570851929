#ifndef COMMANDSYSTEM_LOGINFO_H
#define COMMANDSYSTEM_LOGINFO_H

#include <CommandSystem/Global.h>

CS_BEGIN_NAMESPACE

namespace VrCu {

// The host base library's action log.
class LogInfo
{
public:
    static bool LogAction(const char* name);
};

} // namespace VrCu

CS_END_NAMESPACE

#endif
