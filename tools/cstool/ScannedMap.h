#ifndef CSTOOL_SCANNEDMAP_H
#define CSTOOL_SCANNEDMAP_H

#include <QHash>
#include <QString>
#include <QStringList>

namespace CsTool {

// The map of a template directory as the library's map builder makes it from the declaring
// lines of its files (see MapLineScanner), together with the line that declares each name:
// files in name order ignoring case, nothing for a file that declares just the template it is
// named after, and a name declared twice belongs to the later file.
class ScannedMap
{
public:
    struct Entry {
        QString filePath;   // absolute
        qint64 line;
    };

    explicit ScannedMap(const QString& directory);

    QHash<QString, Entry> entries() const;
    // Template files that could not be read; the library's builder fails on the first.
    QStringList unreadableFiles() const;

private:
    QHash<QString, Entry> map;
    QStringList unreadable;
};

} // namespace CsTool

#endif
