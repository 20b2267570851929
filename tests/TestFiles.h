#ifndef TST_TESTFILES_H
#define TST_TESTFILES_H

// Small files that tests write and read back whole.

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QString>

namespace TestFiles {

// Writes content as the file name in dir; the file's path, or an empty text when it failed.
inline QString write(const QDir& dir, const QString& name, const QByteArray& content)
{
    const QString path = dir.filePath(name);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        return QString();
    return path;
}

inline QByteArray read(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace TestFiles

#endif
