#include "IconResolver.h"

#include <QDir>
#include <QFileInfo>

namespace CsTool {

IconResolver::IconResolver(const QStringList& directories)
    : directories(directories)
{
}

QString IconResolver::resolve(const QString& name) const
{
    if (name.isEmpty())
        return QString();
    if (QFileInfo(name).isFile())
        return name;
    const QString fileName = name.contains(QLatin1Char('.')) ? name : name + QLatin1String(".png");
    if (QFileInfo(fileName).isFile())
        return fileName;
    for (const QString& directory : directories) {
        const QString path = QDir(directory).filePath(fileName);
        if (QFileInfo(path).isFile())
            return path;
    }
    return QString();
}

} // namespace CsTool
