#include "TemplateCatalog.h"

#include <CommandSystem/Template.h>

#include <QDir>
#include <QFileInfo>

#include <utility>

using namespace Talvir::Vexa::Cs;

namespace CsTool {

bool TemplateCatalog::addDirectory(const QString& directory)
{
    if (!QFileInfo(directory).isDir() || !pool.appendDirectory(directory))
        return false;
    // The pool maps a directory once; a second mention adds nothing.
    const QString absolute = QDir(directory).absolutePath();
    if (directories.contains(absolute))
        return true;
    // A failed map is no reason to stop: the pool still finds templates by file name.
    if (!pool.load(directory))
        unmapped.append(directory);
    directories.append(absolute);
    return true;
}

QStringList TemplateCatalog::unmappedDirectories() const
{
    return unmapped;
}

bool TemplateCatalog::scan()
{
    for (const QString& directory : std::as_const(directories)) {
        const QDir dir(directory);
        const QStringList names = dir.entryList(QStringList(QStringLiteral("*.tcmd")), QDir::Files,
                                                QDir::Name | QDir::IgnoreCase);
        for (const QString& name : names)
            scanFile(QFileInfo(dir.filePath(name)).absoluteFilePath());
    }
    return unreadable.isEmpty();
}

void TemplateCatalog::scanFile(const QString& filePath)
{
    QList<Template*> templates;
    if (!pool.load(filePath, templates))
        unreadable.append(filePath);
    for (Template* temp : std::as_const(templates))
        files.insert(temp->objectName(), filePath);
    qDeleteAll(templates);
}

QStringList TemplateCatalog::names() const
{
    return files.keys();
}

QString TemplateCatalog::fileOf(const QString& name) const
{
    return files.value(name);
}

QStringList TemplateCatalog::unreadableFiles() const
{
    return unreadable;
}

Template* TemplateCatalog::find(const QString& name)
{
    return pool.getTemplate(name);
}

} // namespace CsTool
