#include "XmlSource.h"

#include <QFile>

#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
#include <QStringDecoder>
#else
#include <QTextCodec>
#endif

#include <algorithm>

namespace CsTool {

namespace {

bool isBlank(QChar c)
{
    return c == QLatin1Char(' ') || c == QLatin1Char('\t') || c == QLatin1Char('\n')
        || c == QLatin1Char('\r');
}

// The reader counts characters of the document as its declaration decodes it, without a
// byte order mark; the text must be decoded the same way for offsets to agree.
QString decoded(const QByteArray& content)
{
    QXmlStreamReader declaration(content);
    declaration.readNext();
    const QByteArray encoding = declaration.documentEncoding().toString().toLatin1();
    if (!encoding.isEmpty()) {
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
        QStringDecoder decoder(encoding.constData());
        if (decoder.isValid())
            return decoder.decode(content);
#else
        if (QTextCodec* codec = QTextCodec::codecForName(encoding))
            return codec->toUnicode(content);
#endif
    }
    return QString::fromUtf8(content);
}

} // namespace

bool XmlSource::open(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        error = file.errorString();
        return false;
    }
    bytes = file.readAll();
    text = decoded(bytes);
    lineStarts = {0};
    for (int at = text.indexOf(QLatin1Char('\n')); at >= 0; at = text.indexOf(QLatin1Char('\n'), at + 1))
        lineStarts.append(at + 1);
    xml.addData(bytes);
    return true;
}

QString XmlSource::errorString() const
{
    return error;
}

QByteArray XmlSource::content() const
{
    return bytes;
}

QXmlStreamReader& XmlSource::reader()
{
    return xml;
}

// Tokens follow each other without gaps, so a token starts where the previous one ended; but
// text ends where a "<" follows, which the reader has then already consumed. A tag starts at
// its "<", which no attribute value may hold.
bool XmlSource::next()
{
    const qint64 lookahead = xml.isCharacters() ? 1 : 0;
    tokenStart = xml.characterOffset() - lookahead;
    xml.readNext();
    if (xml.isStartElement() || xml.isEndElement())
        tokenStart = text.lastIndexOf(QLatin1Char('<'), int(xml.characterOffset() - 1));
    return !xml.atEnd() && !xml.hasError();
}

void XmlSource::unexpectedElement(Findings& findings, const QString& parent, const QString& allowed)
{
    findings.error(tokenPosition(), QStringLiteral("unexpected element <%1> in <%2>; %3")
                                        .arg(xml.name().toString(), parent, allowed));
    xml.skipCurrentElement();
}

void XmlSource::unexpectedAttribute(Findings& findings, const QXmlStreamAttribute& attribute,
                                    const QString& element, const QString& allowed)
{
    const QString name = attribute.qualifiedName().toString();
    findings.error(attributePosition(name), QStringLiteral("unexpected attribute \"%1\" on <%2>; %3")
                                                .arg(name, element, allowed));
}

SourcePosition XmlSource::tokenPosition() const
{
    return positionAt(tokenStart);
}

SourcePosition XmlSource::textPosition() const
{
    return positionAt(skipBlanks(tokenStart));
}

SourcePosition XmlSource::contentPosition() const
{
    return positionAt(skipBlanks(xml.characterOffset()));
}

SourcePosition XmlSource::attributePosition(const QString& qualifiedName) const
{
    const qint64 offset = attributeOffset(qualifiedName);
    return positionAt(offset >= 0 ? offset : tokenStart);
}

SourcePosition XmlSource::errorPosition() const
{
    return positionAt(xml.characterOffset());
}

// Lines and columns counted from 1 for a character offset of the document.
SourcePosition XmlSource::positionAt(qint64 offset) const
{
    const auto after = std::upper_bound(lineStarts.constBegin(), lineStarts.constEnd(), offset);
    const qint64 line = after - lineStarts.constBegin();
    return SourcePosition{line, offset - lineStarts.at(int(line - 1)) + 1};
}

qint64 XmlSource::skipBlanks(qint64 offset) const
{
    while (offset < text.size() && isBlank(text.at(int(offset))))
        ++offset;
    return offset;
}

// The reader has accepted the tag, so it is well-formed: a name, then name="value" pairs.
qint64 XmlSource::attributeOffset(const QString& qualifiedName) const
{
    const auto endOfName = [this](qint64 at) {
        while (at < text.size() && !isBlank(text.at(int(at))) && text.at(int(at)) != QLatin1Char('=')
               && text.at(int(at)) != QLatin1Char('>') && text.at(int(at)) != QLatin1Char('/'))
            ++at;
        return at;
    };
    qint64 at = endOfName(tokenStart + 1);
    while (true) {
        at = skipBlanks(at);
        if (at >= text.size() || text.at(int(at)) == QLatin1Char('>') || text.at(int(at)) == QLatin1Char('/'))
            return -1;
        const qint64 nameStart = at;
        at = endOfName(at);
        if (QStringView(text).mid(nameStart, at - nameStart) == qualifiedName)
            return nameStart;
        at = skipBlanks(skipBlanks(at) + 1);   // past "="
        const int closing = text.indexOf(text.at(int(at)), int(at) + 1);
        if (closing < 0)
            return -1;
        at = closing + 1;
    }
}

} // namespace CsTool
