#ifndef COMMANDSYSTEM_PLATFORMHOOKS_H
#define COMMANDSYSTEM_PLATFORMHOOKS_H

#include <CommandSystem/Global.h>

#include <QSizeF>
#include <QString>
#include <QStringList>

#include <functional>

CS_BEGIN_NAMESPACE

/**
 * The operations of the host's base library and of the operating system that this library
 * calls. A host routes them to its own implementation with setPlatformHooks(); an empty member
 * means the built-in default. All hooks are called on the thread that uses the calling object
 * (the GUI thread), never concurrently by the library itself.
 */
struct PlatformHooks {
    /** Opens the name scope of a command run from a pipe's queued list; default: nothing. */
    std::function<void(const char* name)> attachName;
    /** Closes the name scope opened by attachName; default: nothing. */
    std::function<void(const char* name)> detachName;
    /** Opens the label scope (always label 0) inside the name scope; default: nothing. */
    std::function<void(int label)> attachLabel;
    /** Closes the label scope; default: nothing. */
    std::function<void(int label)> detachLabel;
    /**
     * Runs a queued command's body (mode 0, the command's name) and returns 0 on success. The
     * default calls the body once and returns its result; an exception is reported with
     * qWarning() and gives 1, so it never unwinds through the host's event loop.
     */
    std::function<int(int mode, const char* name,
                      const std::function<int(bool)>& body)> errorFlush;
    /** Records that an action fired, with the action's name; default: nothing. */
    std::function<void(const char* name)> logAction;
    /**
     * The files of a directory matching a wildcard pattern, as absolute paths; default: the
     * plain files in name order, ignoring case.
     */
    std::function<QStringList(const QString& directory, const QString& pattern)> listFiles;
    /** The system version as "major.minor", for "MinWinVer"; empty when unknown. */
    std::function<QString()> systemVersion;
    /** The desktop's logical DPI (x, y), for icon scaling; default: the primary screen's, or 96. */
    std::function<QSizeF()> logicalDpi;
};

/**
 * Installs \a hooks; empty members get the built-in defaults. Drops the cached system version,
 * so the next "MinWinVer" asks the new hook. Process-wide; call it on the GUI thread before
 * the library is used.
 */
COMMANDSYSTEM_EXPORT void setPlatformHooks(const PlatformHooks& hooks);
/** The hooks in force, with every member set. The reference stays valid; its content changes
 *  with setPlatformHooks(). */
COMMANDSYSTEM_EXPORT const PlatformHooks& platformHooks();

CS_END_NAMESPACE

#endif
