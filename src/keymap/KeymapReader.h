#ifndef COMMANDSYSTEM_KEYMAPREADER_H
#define COMMANDSYSTEM_KEYMAPREADER_H

#include "keymap/KeymapImpl.h"

CS_BEGIN_NAMESPACE

class PositionedXmlReader;

// Reads one keymap file strictly; the first problem ends the reading.
class KeymapReader
{
public:
    // Entries read, or false with the problem and where it is.
    static bool read(const QString& path, KeymapImpl::Entries& entries, SourceLocation& where,
                     QString& message);

private:
    explicit KeymapReader(PositionedXmlReader& reader);

    void readDocument();
    void readRootAttributes();
    void readEntries();
    void readEntry();
    QString readActionName();
    QString readKeys();
    SourceLocation textStart() const;
    void fail(const SourceLocation& where, const QString& message);
    bool failed() const;

    PositionedXmlReader& reader;
    KeymapImpl::Entries entries;
    SourceLocation problemAt;
    QString problem;
};

CS_END_NAMESPACE

#endif
