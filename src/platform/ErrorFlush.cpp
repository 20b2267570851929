#include "platform/ErrorFlush.h"

#include <CommandSystem/PlatformHooks.h>

CS_BEGIN_NAMESPACE

namespace VrEs {

ErrorFlush::ErrorFlush(int mode, const char* name) : mode(mode), name(name) {}

int ErrorFlush::exec(const boost::function<int(bool)>& body)
{
    return platformHooks().errorFlush(mode, name.c_str(),
                                      [&body](bool flag) { return body(flag); });
}

} // namespace VrEs

CS_END_NAMESPACE
