#include "support/DataDirectory.h"

#include <QDir>
#include <QFile>

namespace CsBench {

namespace {

const char stampName[] = "generated.stamp";

} // namespace

DataDirectory::DataDirectory(const QString& name)
    : path(QDir(QStringLiteral(CS_BENCH_DATA_DIR)).filePath(name))
{
    if (isComplete())
        return;
    QDir(path).removeRecursively();
    if (!QDir().mkpath(path))
        qFatal("Cannot create %s", qPrintable(path));
}

QString DataDirectory::filePath(const QString& fileName) const
{
    return QDir(path).filePath(fileName);
}

bool DataDirectory::isComplete() const
{
    return QFile::exists(filePath(QLatin1String(stampName)));
}

void DataDirectory::markComplete()
{
    QFile stamp(filePath(QLatin1String(stampName)));
    if (!stamp.open(QIODevice::WriteOnly))
        qFatal("Cannot write %s", qPrintable(stamp.fileName()));
}

} // namespace CsBench
