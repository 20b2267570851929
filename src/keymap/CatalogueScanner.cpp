#include "keymap/CatalogueScanner.h"

#include "keymap/PositionedXmlReader.h"
#include "platform/SystemVersion.h"

#include <CommandSystem/KeyConflicts.h>

#include <QFile>

CS_BEGIN_NAMESPACE

namespace {

QString attribute(const QXmlStreamReader& reader, const char* name)
{
    return reader.attributes().value(QLatin1String(name)).toString();
}

// The command that a script runs, as users type it.
QString commandOf(const QString& script)
{
    return script.section(QLatin1Char(' '), 0, 0, QString::SectionSkipEmpty);
}

} // namespace

CatalogueScanner::CatalogueScanner(KeyConflicts& conflicts) : conflicts(conflicts) {}

bool CatalogueScanner::scanUi(const QString& path)
{
    QFile file(path);
    if (!open(file))
        return false;
    PositionedXmlReader reader(file.readAll(), path);
    if (reader.readNextChildElement()) {
        if (reader.name() != QLatin1String("Actions"))
            failAtElement(reader);
        while (!reader.hasError() && reader.readNextChildElement()) {
            if (reader.name() == QLatin1String("Action"))
                readAction(reader);
            else
                failAtElement(reader);
        }
    }
    return finish(reader);
}

// An action that "MinWinVer" leaves out stays known, but disabled, as the pool keeps it.
void CatalogueScanner::readAction(PositionedXmlReader& reader)
{
    const SourceLocation where = reader.tokenStart();
    const QString name = attribute(reader, "name");
    QString script;
    bool enabled = true;
    while (reader.readNextStartElement()) {
        if (reader.name() == QLatin1String("Script"))
            script = reader.readElementText(QXmlStreamReader::SkipChildElements);
        else if (reader.name() == QLatin1String("MinWinVer"))
            enabled = cachedSystemVersion().compare(reader.readElementText(QXmlStreamReader::SkipChildElements)) >= 0;
        else
            reader.skipCurrentElement();
    }
    conflicts.addAction(name, enabled, commandOf(script), where);
}

bool CatalogueScanner::scanTemplates(const QString& path)
{
    QFile file(path);
    if (!open(file))
        return false;
    PositionedXmlReader reader(file.readAll(), path);
    while (!reader.atEnd()) {
        reader.readNextToken();
        if (reader.isStartElement())
            readTemplateElement(reader);
        else if (reader.isEndElement() && reader.name() == QLatin1String("parameter"))
            inParameter = false;
    }
    return finish(reader);
}

void CatalogueScanner::readTemplateElement(PositionedXmlReader& reader)
{
    const SourceLocation where = reader.tokenStart();
    if (reader.name() == QLatin1String("template")) {
        templateName = attribute(reader, "name");
        conflicts.addCommand(templateName, where);
    } else if (reader.name() == QLatin1String("parameter")) {
        inParameter = true;
        parameterLuid = attribute(reader, "luid");
    } else if (reader.name() == QLatin1String("property") && inParameter
               && attribute(reader, "name") == QLatin1String("options")) {
        const QString options = reader.readElementText(QXmlStreamReader::SkipChildElements);
        conflicts.addOptions(QStringLiteral("parameter %1 of \"%2\"").arg(parameterLuid, templateName),
                             options, where);
    }
}

bool CatalogueScanner::open(QFile& file)
{
    if (file.open(QIODevice::ReadOnly))
        return true;
    problem = QStringLiteral("cannot read: ") + file.errorString();
    problemAt = SourceLocation{file.fileName(), 0, 0};
    return false;
}

// The element just read is not where it may be: the problem is where it starts.
void CatalogueScanner::failAtElement(PositionedXmlReader& reader)
{
    problemAt = reader.tokenStart();
    reader.raiseError(QStringLiteral("Unexpected element: ") + reader.name().toString());
}

bool CatalogueScanner::finish(PositionedXmlReader& reader)
{
    if (!reader.hasError())
        return true;
    problem = reader.errorString();
    if (problemAt.file.isEmpty())
        problemAt = reader.here();
    return false;
}

CS_END_NAMESPACE
