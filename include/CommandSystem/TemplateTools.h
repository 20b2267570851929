#ifndef COMMANDSYSTEM_TEMPLATETOOLS_H
#define COMMANDSYSTEM_TEMPLATETOOLS_H

#include <CommandSystem/Global.h>

#include <QHash>
#include <QList>
#include <QObject>
#include <QString>

CS_BEGIN_NAMESPACE

class Template;
class TemplateToolsImpl;

// Reads and strictly validates template files (*.tcmd), and builds, reads and writes the
// name-to-file map of a template directory (".map").
class COMMANDSYSTEM_EXPORT TemplateTools : public QObject
{
    Q_OBJECT

public:
    typedef bool (*ParseFunction)(const char* options);

    TemplateTools();
    ~TemplateTools() override;

    bool loadTemplate(const QString& filePath, QList<Template*>& templates);
    bool validateTemplate(const QString& filePath);
    bool validateTemplates(const QString& directory);
    // Installs the "options" checker for a parameter type (0 to 12); null restores accept-all.
    void setParseFunction(int type, ParseFunction function);

    static QString mapFile(const QString& directory);
    static bool isMapExist(const QString& directory);
    bool buildMap(const QString& directory, QHash<QString, QString>& map);
    bool loadMap(const QString& mapFilePath, QHash<QString, QString>& map);
    bool saveMap(const QString& mapFilePath, const QHash<QString, QString>& map);

private:
    TemplateToolsImpl* d;
};

CS_END_NAMESPACE

#endif
