#include "MapLineScanner.h"

namespace CsTool {

namespace {

const char declaringText[] = "<template ";
constexpr int declaringTextSize = sizeof declaringText - 1;

} // namespace

MapLineScanner::MapLineScanner(const QByteArray& content)
{
    scan(content);
}

QList<MapLineScanner::Declaration> MapLineScanner::declarations() const
{
    return found;
}

qint64 MapLineScanner::stopLine() const
{
    return stoppedAt;
}

QString MapLineScanner::stopReason() const
{
    return reason;
}

bool MapLineScanner::isDeclarationLine(qint64 line) const
{
    return declarationLines.contains(line);
}

void MapLineScanner::scan(const QByteArray& content)
{
    const QList<QByteArray> lines = content.split('\n');
    for (int index = 0; index < lines.size(); ++index) {
        const QByteArray& raw = lines.at(index);
        const QByteArray line = raw.trimmed();
        if (!line.startsWith(declaringText))
            continue;
        const qint64 number = index + 1;
        declarationLines.append(number);
        if (stoppedAt != 0)
            continue;
        const qint64 column = raw.indexOf(declaringText) + 1;
        found.append(Declaration{number, column, nameOf(line, number)});
    }
}

// Lenient as the map builder is: a missing quote takes the name from the line's start or to
// its end, and an empty name is still a name.
QString MapLineScanner::nameOf(const QByteArray& line, qint64 lineNumber)
{
    const int first = line.indexOf('"', declaringTextSize - 1);
    if (first < 0)
        stopAt(lineNumber, "template name is not defined");
    const int nameBegin = first < 0 ? 0 : first + 1;
    const int second = line.indexOf('"', nameBegin);
    if (second < 0)
        stopAt(lineNumber, "template name is not defined");
    const int nameEnd = second < 0 ? int(line.size()) : second;
    if (nameBegin == nameEnd)
        stopAt(lineNumber, "template name is empty");
    return QString::fromUtf8(line.mid(nameBegin, nameEnd - nameBegin));
}

void MapLineScanner::stopAt(qint64 line, const char* why)
{
    if (stoppedAt == 0) {
        stoppedAt = line;
        reason = QLatin1String(why);
    }
}

} // namespace CsTool
