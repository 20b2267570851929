#ifndef COMMANDSYSTEM_CATALOGUESCANNER_H
#define COMMANDSYSTEM_CATALOGUESCANNER_H

#include <CommandSystem/Global.h>
#include <CommandSystem/SourceLocation.h>

QT_BEGIN_NAMESPACE
class QFile;
QT_END_NAMESPACE

CS_BEGIN_NAMESPACE

class KeyConflicts;
class PositionedXmlReader;

// Reads what the conflict checks need from UI definition and template files, with the place
// of each item: actions and their commands, template names, and parameter options. It reads
// leniently, like the library's own readers; validation is another tool's task.
class CatalogueScanner
{
public:
    explicit CatalogueScanner(KeyConflicts& conflicts);

    // False when the file could not be read whole; problem then says what and where.
    bool scanUi(const QString& path);
    bool scanTemplates(const QString& path);

    QString problem;
    SourceLocation problemAt;

private:
    void readAction(PositionedXmlReader& reader);
    void readTemplateElement(PositionedXmlReader& reader);
    bool open(QFile& file);
    void failAtElement(PositionedXmlReader& reader);
    bool finish(PositionedXmlReader& reader);

    KeyConflicts& conflicts;
    QString templateName;
    bool inParameter = false;
    QString parameterLuid;
};

CS_END_NAMESPACE

#endif
