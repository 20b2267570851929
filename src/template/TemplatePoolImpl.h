#ifndef COMMANDSYSTEM_TEMPLATEPOOLIMPL_H
#define COMMANDSYSTEM_TEMPLATEPOOLIMPL_H

#include <CommandSystem/Impl.h>
#include <CommandSystem/TemplatePool.h>

#include <QHash>
#include <QString>
#include <QStringList>

CS_BEGIN_NAMESPACE

class Template;

class TemplatePoolImpl : public Impl<TemplatePool>
{
public:
    explicit TemplatePoolImpl(TemplatePool* owner) : Impl(owner) {}

    static QString keyOf(const Template* temp);
    QString findFile(const QString& name) const;
    Template* readFile(const QString& filePath, const QString& name);

    QStringList directories;
    QStringList loadedDirectories;
    QHash<QString, Template*> templates;
    QHash<QString, QString> templateFiles;
    Template* lastTemplate = nullptr;
};

CS_END_NAMESPACE

#endif
