#include "template/MapFileReader.h"

#include "template/ReaderErrors.h"

#include <QXmlStreamReader>

CS_BEGIN_NAMESPACE

MapFileReader::MapFileReader(QXmlStreamReader& reader, const QDir& directory,
                             QHash<QString, QString>& map)
    : reader(reader), directory(directory), map(map)
{
}

void MapFileReader::read()
{
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (reader.name() != QLatin1String("maps")) {
            ReaderErrors::unexpectedElement(reader);
            return;
        }
        if (!readMaps())
            return;
    }
}

bool MapFileReader::readMaps()
{
    while (!reader.hasError()) {
        const QXmlStreamReader::TokenType token = reader.readNext();
        if (token == QXmlStreamReader::EndElement)
            return true;
        if (token != QXmlStreamReader::StartElement)
            continue;
        if (reader.name() != QLatin1String("map")) {
            ReaderErrors::unexpectedTopElement(reader);
            return false;
        }
        if (!readMap())
            return false;
    }
    return false;
}

bool MapFileReader::readMap()
{
    QString key;
    QString value;
    const QXmlStreamAttributes attributes = reader.attributes();
    for (const QXmlStreamAttribute& attribute : attributes) {
        if (attribute.name() == QLatin1String("key")) {
            key = attribute.value().toString();
        } else if (attribute.name() == QLatin1String("value")) {
            value = attribute.value().toString();
        } else {
            ReaderErrors::unexpectedAttribute(reader, attribute.name());
            return false;
        }
    }
    while (!reader.hasError() && reader.readNext() != QXmlStreamReader::EndElement) {
    }
    // An incomplete entry ends the map without an error: what was read so far is kept.
    if (reader.hasError() || key.isEmpty() || value.isEmpty())
        return false;
    map.insert(key, directory.absoluteFilePath(value));
    return true;
}

CS_END_NAMESPACE
