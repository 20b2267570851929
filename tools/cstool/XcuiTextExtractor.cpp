#include "XcuiTextExtractor.h"

#include "TranslationCatalog.h"

#include <QFile>
#include <QFileInfo>
#include <QStringList>
#include <QXmlStreamReader>

namespace CsTool {

bool XcuiTextExtractor::extract(const QString& filePath, TranslationCatalog& catalog)
{
    static const QStringList translated = {QStringLiteral("Hint"), QStringLiteral("Desc"),
                                           QStringLiteral("Ribbon"), QStringLiteral("Menu")};
    QFile device(filePath);
    if (!device.open(QIODevice::ReadOnly)) {
        problem = QStringLiteral("%1: cannot read: %2").arg(filePath, device.errorString());
        return false;
    }
    const QString file = QFileInfo(filePath).absoluteFilePath();
    QXmlStreamReader reader(&device);
    QString action;
    while (!reader.atEnd()) {
        reader.readNext();
        if (!reader.isStartElement())
            continue;
        if (reader.name() == QLatin1String("Action")) {
            action = reader.attributes().value(QLatin1String("name")).toString();
        } else if (translated.contains(reader.name().toString())) {
            const qint64 line = reader.lineNumber();
            const QString text = reader.readElementText(QXmlStreamReader::SkipChildElements);
            if (!text.isEmpty())
                catalog.addExtracted(action, text, file, line);
        }
    }
    if (reader.hasError()) {
        problem = QStringLiteral("%1:%2:%3: %4").arg(filePath).arg(reader.lineNumber())
                      .arg(reader.columnNumber()).arg(reader.errorString());
        return false;
    }
    return true;
}

QString XcuiTextExtractor::error() const
{
    return problem;
}

} // namespace CsTool
