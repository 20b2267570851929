#include "Console.h"

#include <cstdio>

namespace CsTool {

namespace {

void writeLine(std::FILE* stream, const QString& line)
{
    std::fflush(stdout);
    std::fputs(line.toLocal8Bit().constData(), stream);
    std::fputc('\n', stream);
    std::fflush(stream);
}

} // namespace

void Console::out(const QString& line)
{
    writeLine(stdout, line);
}

void Console::err(const QString& line)
{
    writeLine(stderr, line);
}

} // namespace CsTool
