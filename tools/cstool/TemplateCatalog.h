#ifndef CSTOOL_TEMPLATECATALOG_H
#define CSTOOL_TEMPLATECATALOG_H

#include <CommandSystem/TemplatePool.h>

#include <QMap>
#include <QString>
#include <QStringList>

namespace CsTool {

// A template pool over the directories given on the command line, together with what the pool
// does not tell: which template names the directories define and in which file.
class TemplateCatalog
{
public:
    // Appends and maps a directory; false when it is not an existing directory.
    bool addDirectory(const QString& directory);
    // The directories, as given, whose map could not be read or built.
    QStringList unmappedDirectories() const;
    // Reads each template file of the directories once for the names it defines (a name
    // defined twice belongs to the later file, as in the map). False when a file could not be
    // read; see unreadableFiles().
    bool scan();

    QStringList names() const;
    QString fileOf(const QString& name) const;
    QStringList unreadableFiles() const;
    // The pool's answer: reads the defining file on first use; null when it finds none.
    Talvir::Vexa::Cs::Template* find(const QString& name);

private:
    void scanFile(const QString& filePath);

    Talvir::Vexa::Cs::TemplatePool pool;
    QStringList directories;
    QMap<QString, QString> files;
    QStringList unreadable;
    QStringList unmapped;
};

} // namespace CsTool

#endif
