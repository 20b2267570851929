#include <CommandSystem/SourceLocation.h>

CS_BEGIN_NAMESPACE

QString SourceLocation::toString() const
{
    if (file.isEmpty())
        return QString();
    if (line <= 0)
        return file;
    if (column <= 0)
        return QStringLiteral("%1:%2").arg(file).arg(line);
    return QStringLiteral("%1:%2:%3").arg(file).arg(line).arg(column);
}

bool SourceLocation::operator==(const SourceLocation& other) const
{
    return file == other.file && line == other.line && column == other.column;
}

bool SourceLocation::operator!=(const SourceLocation& other) const
{
    return !(*this == other);
}

CS_END_NAMESPACE
