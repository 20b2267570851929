#include "DeclaredIcons.h"

#include <QFile>
#include <QXmlStreamReader>

namespace CsTool {

QHash<QString, QString> DeclaredIcons::read(const QString& filePath)
{
    QHash<QString, QString> icons;
    QFile file(filePath);
    if (!file.open(QIODevice::ReadOnly))
        return icons;
    QXmlStreamReader reader(&file);
    QString action;
    while (!reader.atEnd()) {
        reader.readNext();
        if (!reader.isStartElement())
            continue;
        if (reader.name() == QLatin1String("Action"))
            action = reader.attributes().value(QLatin1String("name")).toString();
        else if (reader.name() == QLatin1String("Icon"))
            icons.insert(action, reader.readElementText(QXmlStreamReader::SkipChildElements));
    }
    return icons;
}

} // namespace CsTool
