#ifndef COMMANDSYSTEM_PLATFORMHOOKS_H
#define COMMANDSYSTEM_PLATFORMHOOKS_H

#include <CommandSystem/Global.h>

#include <QSizeF>
#include <QString>
#include <QStringList>

#include <functional>

CS_BEGIN_NAMESPACE

// The operations of the host's base library and of the operating system that this library
// calls. A host routes them to its real implementation; an empty member means the built-in
// default.
struct PlatformHooks {
    std::function<void(const char* name)> attachName;
    std::function<void(const char* name)> detachName;
    std::function<void(int label)> attachLabel;
    std::function<void(int label)> detachLabel;
    std::function<int(int mode, const char* name,
                      const std::function<int(bool)>& body)> errorFlush;
    std::function<void(const char* name)> logAction;
    std::function<QStringList(const QString& directory, const QString& pattern)> listFiles;
    std::function<QString()> systemVersion;   // "major.minor", for "MinWinVer"
    std::function<QSizeF()> logicalDpi;       // desktop logical DPI (x, y)
};

// Installs hooks (empty members get the built-in defaults) and drops the cached system version.
COMMANDSYSTEM_EXPORT void setPlatformHooks(const PlatformHooks& hooks);
// The hooks in force, with every member set.
COMMANDSYSTEM_EXPORT const PlatformHooks& platformHooks();

CS_END_NAMESPACE

#endif
