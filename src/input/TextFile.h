#ifndef COMMANDSYSTEM_TEXTFILE_H
#define COMMANDSYSTEM_TEXTFILE_H

#include <CommandSystem/Global.h>

#include <QString>
#include <QStringList>

CS_BEGIN_NAMESPACE

// The line-based text files that users edit (aliases, transcripts): read as UTF-8, split into
// lines without a byte order mark or the carriage returns of Windows line ends.
class TextFile
{
public:
    // False, with "FILE: cannot read the file: REASON" in error, when the file cannot be read.
    static bool read(const QString& filePath, QString* text, QString* error);
    static QStringList lines(const QString& text);
};

CS_END_NAMESPACE

#endif
