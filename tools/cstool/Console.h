#ifndef CSTOOL_CONSOLE_H
#define CSTOOL_CONSOLE_H

#include <QString>

namespace CsTool {

// Writes lines through C stdio and flushes at once: the library prints its own messages with
// printf, and our lines must come out interleaved with them in the order they were made.
class Console
{
public:
    static void out(const QString& line);
    static void err(const QString& line);
};

} // namespace CsTool

#endif
