#include "ScannedMap.h"

#include "MapLineScanner.h"

#include <QDir>
#include <QFile>

namespace CsTool {

ScannedMap::ScannedMap(const QString& directory)
{
    const QFileInfoList files = QDir(directory).entryInfoList(
        QStringList(QStringLiteral("*.tcmd")), QDir::Files, QDir::Name | QDir::IgnoreCase);
    for (const QFileInfo& info : files) {
        QFile file(info.absoluteFilePath());
        if (!file.open(QIODevice::ReadOnly)) {
            unreadable.append(info.fileName());
            continue;
        }
        const QList<MapLineScanner::Declaration> declarations =
            MapLineScanner(file.readAll()).declarations();
        if (declarations.size() == 1 && declarations.first().name == info.completeBaseName())
            continue;
        for (const MapLineScanner::Declaration& declaration : declarations)
            map.insert(declaration.name, Entry{info.absoluteFilePath(), declaration.line});
    }
}

QHash<QString, ScannedMap::Entry> ScannedMap::entries() const
{
    return map;
}

QStringList ScannedMap::unreadableFiles() const
{
    return unreadable;
}

} // namespace CsTool
