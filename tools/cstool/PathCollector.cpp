#include "PathCollector.h"

#include <QDir>
#include <QFileInfo>

namespace CsTool {

PathCollector::PathCollector(const QStringList& suffixes)
    : suffixes(suffixes)
{
}

void PathCollector::setRecursive(bool value)
{
    recursive = value;
}

bool PathCollector::collect(const QStringList& paths)
{
    for (const QString& path : paths) {
        const QFileInfo info(path);
        if (info.isDir())
            collectDirectory(path);
        else if (!collectFile(path))
            return false;
    }
    return true;
}

QStringList PathCollector::files() const
{
    return collected;
}

QString PathCollector::error() const
{
    return problem;
}

bool PathCollector::collectFile(const QString& path)
{
    const QFileInfo info(path);
    if (!info.exists()) {
        problem = QStringLiteral("%1: no such file or directory").arg(path);
        return false;
    }
    if (!suffixes.contains(info.suffix())) {
        QStringList kinds;
        for (const QString& suffix : suffixes)
            kinds.append(QLatin1Char('.') + suffix);
        const QString last = kinds.takeLast();
        const QString listed = kinds.isEmpty() ? last : kinds.join(QStringLiteral(", ")) + QStringLiteral(" or ") + last;
        problem = QStringLiteral("%1: not a %2 file").arg(path, listed);
        return false;
    }
    collected.append(path);
    return true;
}

void PathCollector::collectDirectory(const QString& path)
{
    QStringList patterns;
    for (const QString& suffix : suffixes)
        patterns.append(QStringLiteral("*.") + suffix);
    const QDir directory(path);
    const QString mapFile = QStringLiteral(".map");
    if (suffixes.contains(QStringLiteral("map")) && QFileInfo(directory.filePath(mapFile)).isFile())
        collected.append(directory.filePath(mapFile));
    const QStringList names = directory.entryList(patterns, QDir::Files, QDir::Name);
    for (const QString& name : names)
        collected.append(directory.filePath(name));
    if (!recursive)
        return;
    const QStringList subdirectories =
        directory.entryList(QDir::Dirs | QDir::NoDotAndDotDot | QDir::NoSymLinks, QDir::Name);
    for (const QString& name : subdirectories)
        collectDirectory(directory.filePath(name));
}

} // namespace CsTool
