#ifndef CSTOOL_XMLSOURCE_H
#define CSTOOL_XMLSOURCE_H

#include "Findings.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QXmlStreamReader>

namespace CsTool {

// A document under check: a stream reader over the file together with its text, so that every
// token, attribute and element content can be given the line and column where it starts. The
// reader only tells where a token ends.
class XmlSource
{
public:
    // Reads the whole file; false when it cannot be read (see errorString()).
    bool open(const QString& path);
    QString errorString() const;
    // The raw bytes, for checks that read the file as lines.
    QByteArray content() const;

    QXmlStreamReader& reader();
    // Reads the next token; false at the end of the document or after an error.
    bool next();
    // Reads up to the next child element of the element the reader is in: true on its start
    // element, false at the end of the enclosing element (or of the document). Text that is
    // not only white space is handed to onText with its position.
    template <typename OnText>
    bool nextChildElement(OnText onText)
    {
        while (next()) {
            if (xml.isStartElement())
                return true;
            if (xml.isEndElement())
                return false;
            if (xml.isCharacters() && !xml.isWhitespace())
                onText(textPosition());
        }
        return false;
    }

    // Reads the whole document for a check: the root element named root goes to onRoot, any
    // other root element is an error (a fileKind "holds one <root> element"), and a reader
    // error ends the reading as one more error.
    template <typename OnRoot>
    void readDocument(Findings& findings, const QString& root, const QString& fileKind, OnRoot onRoot)
    {
        while (next()) {
            if (!xml.isStartElement())
                continue;
            if (xml.name() == root) {
                onRoot();
            } else {
                findings.error(tokenPosition(), QStringLiteral("the root element is <%1>; a %2 holds "
                                                               "one <%3> element")
                                                    .arg(xml.name().toString(), fileKind, root));
                xml.skipCurrentElement();
            }
        }
        if (xml.hasError())
            findings.error(errorPosition(), QStringLiteral("malformed XML: ") + xml.errorString());
    }

    // The current start element, inside parent, is not allowed there: an error that says what
    // is, and the element is skipped.
    void unexpectedElement(Findings& findings, const QString& parent, const QString& allowed);
    // An attribute of the current start element that it may not have.
    void unexpectedAttribute(Findings& findings, const QXmlStreamAttribute& attribute,
                             const QString& element, const QString& allowed);

    // Where the current token starts: the "<" of an element tag.
    SourcePosition tokenPosition() const;
    // The first character that is not white space in the text token the reader is on.
    SourcePosition textPosition() const;
    // The first character that is not white space after the current start element's tag: where
    // the element's text begins.
    SourcePosition contentPosition() const;
    // The attribute of the current start element with this qualified name; the element's own
    // position when the tag has no such attribute.
    SourcePosition attributePosition(const QString& qualifiedName) const;
    // Where the reader stopped with its error.
    SourcePosition errorPosition() const;

private:
    SourcePosition positionAt(qint64 offset) const;
    qint64 skipBlanks(qint64 offset) const;
    qint64 attributeOffset(const QString& qualifiedName) const;

    QByteArray bytes;
    QString text;
    QList<qint64> lineStarts;
    QXmlStreamReader xml;
    qint64 tokenStart = 0;
    QString error;
};

} // namespace CsTool

#endif
