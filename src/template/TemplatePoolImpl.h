#ifndef COMMANDSYSTEM_TEMPLATEPOOLIMPL_H
#define COMMANDSYSTEM_TEMPLATEPOOLIMPL_H

#include <CommandSystem/Impl.h>
#include <CommandSystem/TemplatePool.h>

#include <QHash>
#include <QObject>
#include <QString>
#include <QStringList>

#include <cstring>

CS_BEGIN_NAMESPACE

class Template;

class TemplatePoolImpl : public Impl<TemplatePool>
{
public:
    explicit TemplatePoolImpl(TemplatePool* owner) : Impl(owner) {}

    static QString keyOf(const Template* temp);
    QString findFile(const QString& name) const;
    Template* readFile(const QString& filePath, const QString& name);

    // lastTemplate with its object name, which follows any renaming of the template, so that a
    // repeated request costs one string comparison instead of a look-up of the object name.
    void setLastTemplate(Template* temp);
    // QString's == written out: an out-of-line comparison would cost as much as the hash
    // look-up that the shortcut saves.
    bool isLastTemplate(const QString& name) const
    {
        return lastTemplate && lastName.size() == name.size()
            && std::memcmp(lastName.constData(), name.constData(),
                           size_t(name.size()) * sizeof(QChar)) == 0;
    }

    QStringList directories;
    QStringList loadedDirectories;
    QHash<QString, Template*> templates;
    QHash<QString, QString> templateFiles;
    Template* lastTemplate = nullptr;
    QString lastName;   // lastTemplate's object name, renamings included
    QMetaObject::Connection lastNameTracking;
};

CS_END_NAMESPACE

#endif
