#include "platform/Utility.h"

#include <CommandSystem/PlatformHooks.h>

CS_BEGIN_NAMESPACE

namespace VrCu {

bool Utility::Ls(const char* directory, QStringList& files, int, bool, const char* pattern)
{
    files += platformHooks().listFiles(QString::fromLocal8Bit(directory),
                                       QString::fromUtf8(pattern));
    return true;
}

} // namespace VrCu

CS_END_NAMESPACE
