#include <CommandSystem/PlatformHooks.h>

#include "platform/SystemVersion.h"

#include <QDir>
#include <QGuiApplication>
#include <QRegularExpression>
#include <QScreen>
#include <QSysInfo>

#include <exception>

#ifdef Q_OS_WIN
#  include <windows.h>
#endif

CS_BEGIN_NAMESPACE

namespace {

int defaultErrorFlush(int, const char* name, const std::function<int(bool)>& body)
{
    // A throwing command must neither leave its name scope open nor unwind through the host's
    // event loop: report it in one line and tell the caller that it failed.
    try {
        return body(false);
    } catch (const std::exception& exception) {
        qWarning("Command %s failed: %s", name, exception.what());
    } catch (...) {
        qWarning("Command %s failed: unknown exception", name);
    }
    return 1;
}

QStringList defaultListFiles(const QString& directory, const QString& pattern)
{
    QStringList paths;
    const QFileInfoList entries = QDir(directory).entryInfoList(
        QStringList(pattern), QDir::Files, QDir::Name | QDir::IgnoreCase);
    paths.reserve(entries.size());
    for (const QFileInfo& entry : entries)
        paths.append(entry.absoluteFilePath());
    return paths;
}

QString defaultSystemVersion()
{
#ifdef Q_OS_WIN
    OSVERSIONINFOA info;
    ZeroMemory(&info, sizeof info);
    info.dwOSVersionInfoSize = sizeof info;
    if (!GetVersionExA(&info))
        return QString();
    return QStringLiteral("%1.%2").arg(info.dwMajorVersion).arg(info.dwMinorVersion);
#else
    static const QRegularExpression majorMinor(QStringLiteral("^(\\d+)\\.(\\d+)"));
    const QRegularExpressionMatch match = majorMinor.match(QSysInfo::kernelVersion());
    if (!match.hasMatch())
        return QString();
    return QStringLiteral("%1.%2").arg(match.captured(1), match.captured(2));
#endif
}

QSizeF defaultLogicalDpi()
{
    const QScreen* screen = qobject_cast<QGuiApplication*>(QCoreApplication::instance())
        ? QGuiApplication::primaryScreen() : nullptr;
    if (!screen)
        return QSizeF(96.0, 96.0);
    return QSizeF(screen->logicalDotsPerInchX(), screen->logicalDotsPerInchY());
}

template <typename Function>
void fillDefault(Function& member, Function fallback)
{
    if (!member)
        member = std::move(fallback);
}

PlatformHooks completed(PlatformHooks hooks)
{
    const auto nothing = [](auto) {};
    fillDefault(hooks.attachName, std::function<void(const char*)>(nothing));
    fillDefault(hooks.detachName, std::function<void(const char*)>(nothing));
    fillDefault(hooks.attachLabel, std::function<void(int)>(nothing));
    fillDefault(hooks.detachLabel, std::function<void(int)>(nothing));
    fillDefault(hooks.errorFlush, decltype(hooks.errorFlush)(defaultErrorFlush));
    fillDefault(hooks.logAction, std::function<void(const char*)>(nothing));
    fillDefault(hooks.listFiles, decltype(hooks.listFiles)(defaultListFiles));
    fillDefault(hooks.systemVersion, decltype(hooks.systemVersion)(defaultSystemVersion));
    fillDefault(hooks.logicalDpi, decltype(hooks.logicalDpi)(defaultLogicalDpi));
    return hooks;
}

struct InstalledHooks {
    PlatformHooks hooks = completed(PlatformHooks());
};

Q_GLOBAL_STATIC(InstalledHooks, installedHooks)

} // namespace

void setPlatformHooks(const PlatformHooks& hooks)
{
    installedHooks()->hooks = completed(hooks);
    dropCachedSystemVersion();
}

const PlatformHooks& platformHooks()
{
    return installedHooks()->hooks;
}

CS_END_NAMESPACE
