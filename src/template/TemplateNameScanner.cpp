#include "template/TemplateNameScanner.h"

#include <cstdio>
#include <cstring>

CS_BEGIN_NAMESPACE

namespace {

const char templateTag[] = "<template ";
constexpr std::ptrdiff_t templateTagSize = sizeof templateTag - 1;

// The white space that QByteArray::trimmed() removes.
bool isSpace(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

const char* findQuote(const char* begin, const char* end)
{
    return begin < end ? static_cast<const char*>(std::memchr(begin, '"', size_t(end - begin)))
                       : nullptr;
}

} // namespace

TemplateNameScanner::TemplateNameScanner(const QByteArray& content)
    : position(content.constData()), contentEnd(content.constData() + content.size())
{
}

QStringList TemplateNameScanner::names()
{
    QStringList found;
    const char* begin = nullptr;
    const char* end = nullptr;
    while (reading && nextLine(begin, end)) {
        if (end - begin >= templateTagSize && std::memcmp(begin, templateTag, templateTagSize) == 0)
            found.append(nameOf(begin, end));
    }
    return found;
}

// The next line, trimmed; false at the end of the content.
bool TemplateNameScanner::nextLine(const char*& begin, const char*& end)
{
    if (position >= contentEnd)
        return false;
    const char* lineEnd = static_cast<const char*>(
        std::memchr(position, '\n', size_t(contentEnd - position)));
    if (!lineEnd)
        lineEnd = contentEnd;
    begin = position;
    end = lineEnd;
    position = lineEnd == contentEnd ? contentEnd : lineEnd + 1;
    while (begin < end && isSpace(*begin))
        ++begin;
    while (end > begin && isSpace(end[-1]))
        --end;
    return true;
}

// Lenient on purpose: a missing quote or an empty name is reported and ends the scan of the
// file, but the line still yields a name (from the line start or up to the line end).
QString TemplateNameScanner::nameOf(const char* begin, const char* end)
{
    const char* first = findQuote(begin + templateTagSize - 1, end);
    if (!first)
        giveUp("template name is not defined\n");
    const char* nameBegin = first ? first + 1 : begin;
    const char* second = findQuote(nameBegin, end);
    if (!second)
        giveUp("template name is not defined\n");
    const char* nameEnd = second ? second : end;
    if (nameBegin == nameEnd)
        giveUp("template name is empty\n");
    return QString::fromUtf8(nameBegin, int(nameEnd - nameBegin));
}

void TemplateNameScanner::giveUp(const char* message)
{
    std::printf("%s", message);
    reading = false;
}

CS_END_NAMESPACE
