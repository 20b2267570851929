#include <CommandSystem/TemplatePool.h>

#include "template/TemplatePoolImpl.h"

#include <CommandSystem/Template.h>
#include <CommandSystem/TemplateTools.h>

#include <QDir>

CS_BEGIN_NAMESPACE

TemplatePool::TemplatePool()
    : d(new TemplatePoolImpl(this))
{
}

TemplatePool::~TemplatePool()
{
    d->setLastTemplate(nullptr);
    delete d;
}

// The duplicate test uses the text as given while the absolute path is stored, so a
// differently written path of a listed directory is listed again.
bool TemplatePool::appendDirectory(const QString& directory)
{
    if (d->directories.contains(directory))
        return true;
    const QDir dir(directory);
    if (!dir.exists())
        return false;
    d->directories.append(dir.absolutePath());
    return true;
}

void TemplatePool::appendDirectoryList(const QStringList& directories)
{
    for (const QString& directory : directories)
        appendDirectory(directory);
}

// Templates and map entries that came from the directory stay available.
bool TemplatePool::removeDirectory(const QString& directory)
{
    const QString path = QDir(directory).absolutePath();
    if (!d->directories.removeOne(path))
        return false;
    d->loadedDirectories.removeOne(path);
    return true;
}

void TemplatePool::removeDirectoryList(const QStringList& directories)
{
    for (const QString& directory : directories)
        removeDirectory(directory);
}

bool TemplatePool::load()
{
    const QStringList directories = d->directories;
    bool mapped = false;
    for (const QString& directory : directories) {
        if (load(directory))
            mapped = true;
    }
    return mapped;
}

// A directory is mapped once, even when mapping failed, until it is removed.
bool TemplatePool::load(const QString& directory)
{
    const QDir dir(directory);
    const QString path = dir.absolutePath();
    if (d->loadedDirectories.contains(path))
        return false;
    if (!d->directories.contains(path)) {
        if (!dir.exists())
            return false;
        d->directories.append(path);
    }
    TemplateTools tools;
    const bool result = TemplateTools::isMapExist(path)
        ? tools.loadMap(TemplateTools::mapFile(path), d->templateFiles)
        : tools.buildMap(path, d->templateFiles);
    d->loadedDirectories.append(path);
    return result;
}

bool TemplatePool::load(const QString& filePath, QList<Template*>& templates)
{
    return TemplateTools().loadTemplate(filePath, templates);
}

Template* TemplatePool::getTemplate(const QString& name)
{
    if (d->isLastTemplate(name))
        return d->lastTemplate;
    if (Template* held = d->templates.value(name))
        return held;
    const QString filePath = d->findFile(name);
    return filePath.isEmpty() ? nullptr : d->readFile(filePath, name);
}

bool TemplatePool::insertTemplate(Template* temp)
{
    if (!temp)
        return false;
    const QString key = TemplatePoolImpl::keyOf(temp);
    Template*& slot = d->templates[key];
    if (slot == temp)
        return true;
    if (slot) {
        if (slot == d->lastTemplate)
            d->setLastTemplate(temp);
        delete slot;
    }
    temp->setParent(this);
    slot = temp;
    return true;
}

// The template is not deleted and stays a child of the pool.
bool TemplatePool::removeTemplate(Template* temp)
{
    if (!temp)
        return false;
    const auto found = d->templates.find(TemplatePoolImpl::keyOf(temp));
    if (found == d->templates.end())
        return false;
    if (temp == d->lastTemplate)
        d->setLastTemplate(nullptr);
    d->templates.erase(found);
    return true;
}

CS_END_NAMESPACE
