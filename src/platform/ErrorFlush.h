#ifndef COMMANDSYSTEM_ERRORFLUSH_H
#define COMMANDSYSTEM_ERRORFLUSH_H

#include <CommandSystem/Global.h>

#include <boost/function.hpp>

#include <string>

CS_BEGIN_NAMESPACE

namespace VrEs {

// The host base library's error wrapper around a command run.
class ErrorFlush
{
public:
    ErrorFlush(int mode, const char* name);

    // Runs body (once) and returns 0 on success.
    int exec(const boost::function<int(bool)>& body);

private:
    int mode;
    std::string name;
};

} // namespace VrEs

CS_END_NAMESPACE

#endif
