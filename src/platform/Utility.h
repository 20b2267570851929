#ifndef COMMANDSYSTEM_UTILITY_H
#define COMMANDSYSTEM_UTILITY_H

#include <CommandSystem/Global.h>

#include <QStringList>

CS_BEGIN_NAMESPACE

namespace VrCu {

// The host base library's file utilities.
class Utility
{
public:
    // Appends the paths of the files of directory that match pattern. kind and recursive are
    // the base library's listing options; this library asks only for the plain files of one
    // directory (kind 2, recursive true), which is what the listing hook delivers.
    static bool Ls(const char* directory, QStringList& files, int kind, bool recursive,
                   const char* pattern);
};

} // namespace VrCu

CS_END_NAMESPACE

#endif
