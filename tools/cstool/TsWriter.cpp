#include "TsWriter.h"

#include "TranslationCatalog.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>
#include <QXmlStreamWriter>

namespace CsTool {

bool TsWriter::write(const QString& filePath, const TranslationCatalog& catalog)
{
    QSaveFile file(filePath);
    if (!file.open(QIODevice::WriteOnly)) {
        problem = QStringLiteral("%1: cannot write: %2").arg(filePath, file.errorString());
        return false;
    }
    const QDir base = QFileInfo(filePath).absoluteDir();
    QXmlStreamWriter writer(&file);
    writer.setAutoFormatting(true);
    writer.setAutoFormattingIndent(4);
    writer.writeStartDocument();
    writer.writeDTD(QStringLiteral("<!DOCTYPE TS>"));
    writer.writeStartElement(QStringLiteral("TS"));
    writer.writeAttribute(QStringLiteral("version"), QStringLiteral("2.1"));
    if (!catalog.language.isEmpty())
        writer.writeAttribute(QStringLiteral("language"), catalog.language);
    if (!catalog.sourceLanguage.isEmpty())
        writer.writeAttribute(QStringLiteral("sourcelanguage"), catalog.sourceLanguage);
    const QStringList contexts = catalog.contexts();
    for (const QString& context : contexts)
        writeContext(writer, catalog, context, base);
    writer.writeEndElement();
    writer.writeEndDocument();
    if (writer.hasError() || !file.commit()) {
        problem = QStringLiteral("%1: cannot write: %2").arg(filePath, file.errorString());
        return false;
    }
    return true;
}

QString TsWriter::error() const
{
    return problem;
}

void TsWriter::writeContext(QXmlStreamWriter& writer, const TranslationCatalog& catalog,
                            const QString& context, const QDir& base)
{
    writer.writeStartElement(QStringLiteral("context"));
    writer.writeTextElement(QStringLiteral("name"), context);
    const QList<TsMessage> messages = catalog.messages(context);
    for (const TsMessage& message : messages)
        writeMessage(writer, message, base);
    writer.writeEndElement();
}

void TsWriter::writeMessage(QXmlStreamWriter& writer, const TsMessage& message, const QDir& base)
{
    writer.writeStartElement(QStringLiteral("message"));
    for (const TsMessage::Location& location : message.locations) {
        writer.writeEmptyElement(QStringLiteral("location"));
        writer.writeAttribute(QStringLiteral("filename"), base.relativeFilePath(location.file));
        writer.writeAttribute(QStringLiteral("line"), QString::number(location.line));
    }
    writer.writeTextElement(QStringLiteral("source"), message.source);
    writer.writeStartElement(QStringLiteral("translation"));
    if (!message.type.isEmpty())
        writer.writeAttribute(QStringLiteral("type"), message.type);
    writer.writeCharacters(message.translation);
    writer.writeEndElement();
    writer.writeEndElement();
}

} // namespace CsTool
