#include "input/TextFile.h"

#include <QFile>

CS_BEGIN_NAMESPACE

bool TextFile::read(const QString& filePath, QString* text, QString* error)
{
    QFile file(filePath);
    if (!file.open(QIODevice::ReadOnly)) {
        *error = QStringLiteral("%1: cannot read the file: %2").arg(filePath, file.errorString());
        return false;
    }
    *text = QString::fromUtf8(file.readAll());
    return true;
}

QStringList TextFile::lines(const QString& text)
{
    QStringList result = text.split(QLatin1Char('\n'));
    if (result.first().startsWith(QChar(0xFEFF)))
        result.first().remove(0, 1);
    for (QString& line : result) {
        if (line.endsWith(QLatin1Char('\r')))
            line.chop(1);
    }
    return result;
}

CS_END_NAMESPACE
