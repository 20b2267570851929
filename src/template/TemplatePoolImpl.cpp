#include "template/TemplatePoolImpl.h"

#include <CommandSystem/Template.h>
#include <CommandSystem/TemplateTools.h>

#include <QDir>

CS_BEGIN_NAMESPACE

// The same 8-bit conversion (UTF-8) as the template's object name, so keys and names agree.
QString TemplatePoolImpl::keyOf(const Template* temp)
{
    return QString::fromUtf8(temp->name());
}

void TemplatePoolImpl::setLastTemplate(Template* temp)
{
    if (temp == lastTemplate)
        return;
    QObject::disconnect(lastNameTracking);
    lastTemplate = temp;
    lastName = temp ? temp->objectName() : QString();
    if (temp)
        lastNameTracking = QObject::connect(temp, &QObject::objectNameChanged, owner,
                                            [this](const QString& name) { lastName = name; });
}

// A mapped name wins; otherwise the template is looked for in the file named after it, in the
// directories in the order they were added.
QString TemplatePoolImpl::findFile(const QString& name) const
{
    const auto mapped = templateFiles.constFind(name);
    if (mapped != templateFiles.constEnd())
        return mapped.value();
    const QString fileName = name + QLatin1String(".tcmd");
    for (const QString& directory : directories) {
        const QDir dir(directory);
        if (dir.exists(fileName))
            return dir.filePath(fileName);
    }
    return QString();
}

// Every template of the file joins the pool, so that its siblings are found without reading
// the file again.
Template* TemplatePoolImpl::readFile(const QString& filePath, const QString& name)
{
    QList<Template*> read;
    if (!TemplateTools().loadTemplate(filePath, read)) {
        qDeleteAll(read);
        return nullptr;
    }
    for (Template* temp : std::as_const(read))
        owner->insertTemplate(temp);
    for (Template* temp : std::as_const(read)) {
        if (temp->objectName() == name) {
            setLastTemplate(temp);
            return temp;
        }
    }
    return nullptr;
}

CS_END_NAMESPACE
