#ifndef COMMANDSYSTEM_POSITIONEDXMLREADER_H
#define COMMANDSYSTEM_POSITIONEDXMLREADER_H

#include <CommandSystem/SourceLocation.h>

#include <QVector>
#include <QXmlStreamReader>

CS_BEGIN_NAMESPACE

// A stream reader over a whole document that also knows where each token starts, as line and
// column from 1. QXmlStreamReader only tells where the token last read ends. Keymaps and
// catalogue files are UTF-8; in a document in another encoding the places may be off.
class PositionedXmlReader : public QXmlStreamReader
{
public:
    PositionedXmlReader(const QByteArray& content, const QString& file);

    // Reads the next token, remembering where it starts.
    TokenType readNextToken();
    // Reads up to the next start element (true) or up to the end of the current element
    // (false), skipping text and comments, as QXmlStreamReader::readNextStartElement does.
    bool readNextChildElement();

    // Where the token last read starts.
    SourceLocation tokenStart() const;
    // Where reading stopped; for errors that the stream reader found itself.
    SourceLocation here() const;

private:
    SourceLocation locationAt(qint64 offset) const;

    QString file;
    QString document;
    QVector<qint64> lineStarts;
    qint64 start = 0;
};

CS_END_NAMESPACE

#endif
