#include "TsReader.h"

#include "TranslationCatalog.h"

#include <QFile>
#include <QXmlStreamReader>

namespace CsTool {

bool TsReader::read(const QString& filePath, TranslationCatalog& catalog)
{
    QFile device(filePath);
    if (!device.open(QIODevice::ReadOnly)) {
        problem = QStringLiteral("%1: cannot read: %2").arg(filePath, device.errorString());
        return false;
    }
    QXmlStreamReader reader(&device);
    if (reader.readNextStartElement() && reader.name() == QLatin1String("TS")) {
        catalog.language = reader.attributes().value(QLatin1String("language")).toString();
        catalog.sourceLanguage = reader.attributes().value(QLatin1String("sourcelanguage")).toString();
        while (reader.readNextStartElement()) {
            if (reader.name() == QLatin1String("context"))
                readContext(reader, catalog);
            else
                reader.skipCurrentElement();
        }
    } else if (!reader.hasError()) {
        reader.raiseError(QStringLiteral("not a Qt Linguist translation file"));
    }
    if (reader.hasError()) {
        problem = QStringLiteral("%1:%2:%3: %4").arg(filePath).arg(reader.lineNumber())
                      .arg(reader.columnNumber()).arg(reader.errorString());
        return false;
    }
    return true;
}

QString TsReader::error() const
{
    return problem;
}

void TsReader::readContext(QXmlStreamReader& reader, TranslationCatalog& catalog)
{
    QString context;
    while (reader.readNextStartElement()) {
        if (reader.name() == QLatin1String("name"))
            context = reader.readElementText();
        else if (reader.name() == QLatin1String("message"))
            catalog.addExisting(context, readMessage(reader));
        else
            reader.skipCurrentElement();
    }
}

TsMessage TsReader::readMessage(QXmlStreamReader& reader)
{
    TsMessage message;
    while (reader.readNextStartElement()) {
        if (reader.name() == QLatin1String("source")) {
            message.source = reader.readElementText();
        } else if (reader.name() == QLatin1String("translation")) {
            message.type = reader.attributes().value(QLatin1String("type")).toString();
            message.translation = reader.readElementText(QXmlStreamReader::SkipChildElements);
        } else {
            reader.skipCurrentElement();
        }
    }
    return message;
}

} // namespace CsTool
