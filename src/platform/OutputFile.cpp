#include "platform/OutputFile.h"

#include <QFileInfo>

CS_BEGIN_NAMESPACE

namespace {

bool isSpecialFile(const QString& path)
{
    const QFileInfo info(path);
    return info.exists() && !info.isFile() && !info.isDir();
}

} // namespace

// A directory stays with QSaveFile, which refuses it.
OutputFile::OutputFile(const QString& path)
    : saveFile(path), directFile(path),
      file(isSpecialFile(path) ? static_cast<QFileDevice*>(&directFile) : &saveFile)
{
}

bool OutputFile::open(QIODevice::OpenMode mode)
{
    if (file == &directFile)
        mode |= QIODevice::Truncate;
    return file->open(mode);
}

QIODevice* OutputFile::device()
{
    return file;
}

bool OutputFile::commit()
{
    if (file == &saveFile)
        return saveFile.commit();
    const bool flushed = directFile.flush();
    directFile.close();
    return flushed && directFile.error() == QFileDevice::NoError;
}

// The temporary is written without a name of its own; only giving it the target's name fails
// with a rename error.
bool OutputFile::targetRefused() const
{
    return file == &saveFile && saveFile.error() == QFileDevice::RenameError;
}

QString OutputFile::errorString() const
{
    return file->errorString();
}

CS_END_NAMESPACE
