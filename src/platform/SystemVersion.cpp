#include "platform/SystemVersion.h"

#include <CommandSystem/PlatformHooks.h>

CS_BEGIN_NAMESPACE

namespace {
QString& systemVersionCache()
{
    static QString version;
    return version;
}
} // namespace

QString cachedSystemVersion()
{
    QString& version = systemVersionCache();
    if (version.isEmpty())
        version = platformHooks().systemVersion();
    return version;
}

void dropCachedSystemVersion()
{
    systemVersionCache().clear();
}

CS_END_NAMESPACE
