#include "TcmdTextExtractor.h"

#include "TranslationCatalog.h"

#include <QFile>
#include <QFileInfo>
#include <QXmlStreamReader>

namespace CsTool {

bool TcmdTextExtractor::extract(const QString& filePath, TranslationCatalog& target)
{
    catalog = &target;
    file = QFileInfo(filePath).absoluteFilePath();
    elements.clear();
    QFile device(filePath);
    if (!device.open(QIODevice::ReadOnly)) {
        problem = QStringLiteral("%1: cannot read: %2").arg(filePath, device.errorString());
        return false;
    }
    QXmlStreamReader reader(&device);
    while (!reader.atEnd()) {
        reader.readNext();
        if (reader.isStartElement())
            startElement(reader);
        else if (reader.isEndElement())
            endElement(reader);
        else if (reader.isCharacters() && !reader.isWhitespace() && !property.isEmpty())
            value = reader.text().toString();
    }
    if (reader.hasError()) {
        problem = QStringLiteral("%1:%2:%3: %4").arg(filePath).arg(reader.lineNumber())
                      .arg(reader.columnNumber()).arg(reader.errorString());
        return false;
    }
    return true;
}

QString TcmdTextExtractor::error() const
{
    return problem;
}

void TcmdTextExtractor::startElement(const QXmlStreamReader& reader)
{
    const QString parent = elements.isEmpty() ? QString() : elements.last();
    const QString name = reader.name().toString();
    elements.append(name);
    if (name == QLatin1String("template")) {
        context = reader.attributes().value(QLatin1String("name")).toString();
    } else if (name == QLatin1String("parameter")) {
        add(reader.attributes().value(QLatin1String("description")).toString(), reader.lineNumber());
    } else if (name == QLatin1String("property") && parent == QLatin1String("parameter")) {
        const QString propertyName = reader.attributes().value(QLatin1String("name")).toString();
        if (propertyName == QLatin1String("prompt") || propertyName == QLatin1String("format")) {
            property = propertyName;
            value.clear();
            propertyLine = reader.lineNumber();
        }
    }
}

void TcmdTextExtractor::endElement(const QXmlStreamReader& reader)
{
    if (!elements.isEmpty())
        elements.removeLast();
    if (reader.name() == QLatin1String("property") && !property.isEmpty()) {
        if (value != QLatin1String("true") && value != QLatin1String("false"))
            add(value, propertyLine);
        property.clear();
    }
}

void TcmdTextExtractor::add(const QString& text, qint64 line)
{
    if (!text.isEmpty())
        catalog->addExtracted(context, text, file, line);
}

} // namespace CsTool
