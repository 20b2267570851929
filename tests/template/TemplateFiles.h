#ifndef TST_TEMPLATEFILES_H
#define TST_TEMPLATEFILES_H

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QString>

// Writes a test file (creating its directory); false when that fails.
inline bool writeFile(const QString& path, const QByteArray& content)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    return file.open(QIODevice::WriteOnly | QIODevice::Truncate)
        && file.write(content) == content.size();
}

// One template element, written the way the map scanner expects: the tag starts its line.
inline QByteArray templateElement(const QByteArray& name, const QByteArray& content = QByteArray())
{
    return "    <template name=\"" + name + "\">\n" + content + "    </template>\n";
}

inline QByteArray templatesDocument(const QByteArray& elements)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<templates>\n" + elements
        + "</templates>\n";
}

#endif
