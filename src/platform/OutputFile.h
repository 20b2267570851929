#ifndef COMMANDSYSTEM_OUTPUTFILE_H
#define COMMANDSYSTEM_OUTPUTFILE_H

#include <CommandSystem/Global.h>

#include <QFile>
#include <QSaveFile>

CS_BEGIN_NAMESPACE

// A file written so that a failed or interrupted write loses nothing: a regular file (or a new
// one) is written to a temporary file beside it, which replaces it only once all of it was
// written. An existing target that is not a regular file (a device, a pipe) is written directly
// and never replaced.
class OutputFile
{
public:
    explicit OutputFile(const QString& path);

    bool open(QIODevice::OpenMode mode);
    QIODevice* device();
    // Finishes the write; false when any part of it failed. Without it nothing is replaced.
    bool commit();
    // After a failed commit: true when all was written but the file could not take its name
    // (a name too long, say), so that the target itself could never have been opened.
    bool targetRefused() const;
    QString errorString() const;

private:
    QSaveFile saveFile;
    QFile directFile;
    QFileDevice* file;
};

CS_END_NAMESPACE

#endif
