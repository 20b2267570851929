#include "keymap/PositionedXmlReader.h"

#include <algorithm>

CS_BEGIN_NAMESPACE

PositionedXmlReader::PositionedXmlReader(const QByteArray& content, const QString& file)
    : QXmlStreamReader(content), file(file), document(QString::fromUtf8(content)), lineStarts{0}
{
    for (int at = document.indexOf(QLatin1Char('\n')); at >= 0; at = document.indexOf(QLatin1Char('\n'), at + 1))
        lineStarts.append(at + 1);
}

// A token starts where the one before it ended, with two exceptions: reading text has already
// consumed the "<" after it, and white space outside the root element is no token at all.
// Positions are counted in the document read as UTF-8; a document in another encoding may have
// other offsets, which must still stay inside it.
QXmlStreamReader::TokenType PositionedXmlReader::readNextToken()
{
    start = characterOffset();
    if (isCharacters() && start > 0 && start <= document.size() && document.at(int(start) - 1) == QLatin1Char('<'))
        --start;
    const TokenType type = readNext();
    if (type != Characters) {
        while (start < document.size() && document.at(int(start)).isSpace())
            ++start;
    }
    return type;
}

bool PositionedXmlReader::readNextChildElement()
{
    while (readNextToken() != Invalid) {
        if (isEndElement() || isEndDocument())
            return false;
        if (isStartElement())
            return true;
    }
    return false;
}

SourceLocation PositionedXmlReader::tokenStart() const
{
    return locationAt(start);
}

SourceLocation PositionedXmlReader::here() const
{
    return locationAt(characterOffset());
}

SourceLocation PositionedXmlReader::locationAt(qint64 offset) const
{
    const auto after = std::upper_bound(lineStarts.constBegin(), lineStarts.constEnd(), offset);
    const int line = int(after - lineStarts.constBegin());
    return SourceLocation{file, line, int(offset - lineStarts.at(line - 1)) + 1};
}

CS_END_NAMESPACE
