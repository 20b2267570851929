#include "platform/LogInfo.h"

#include <CommandSystem/PlatformHooks.h>

CS_BEGIN_NAMESPACE

namespace VrCu {

bool LogInfo::LogAction(const char* name)
{
    platformHooks().logAction(name);
    return true;
}

} // namespace VrCu

CS_END_NAMESPACE
