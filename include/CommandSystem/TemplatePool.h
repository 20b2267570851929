#ifndef COMMANDSYSTEM_TEMPLATEPOOL_H
#define COMMANDSYSTEM_TEMPLATEPOOL_H

#include <CommandSystem/Global.h>

#include <QList>
#include <QObject>
#include <QStringList>

CS_BEGIN_NAMESPACE

class Template;
class TemplatePoolImpl;

// The host's catalogue of command templates. Directories are mapped by template name; a
// template file is read only when one of its templates is first requested.
class COMMANDSYSTEM_EXPORT TemplatePool : public QObject
{
    Q_OBJECT

public:
    TemplatePool();
    ~TemplatePool() override;

    bool appendDirectory(const QString& directory);
    void appendDirectoryList(const QStringList& directories);
    bool removeDirectory(const QString& directory);
    void removeDirectoryList(const QStringList& directories);

    bool load();
    bool load(const QString& directory);
    bool load(const QString& filePath, QList<Template*>& templates);

    Template* getTemplate(const QString& name);
    bool insertTemplate(Template* temp);
    bool removeTemplate(Template* temp);

private:
    TemplatePoolImpl* d;
};

CS_END_NAMESPACE

#endif
