#include <CommandSystem/Command.h>

CS_BEGIN_NAMESPACE

Command::Command(const QString& name)
{
    setObjectName(name);
}

Command::~Command() = default;

bool Command::invokable() const
{
    return true;
}

bool Command::deletable() const
{
    return false;
}

CS_END_NAMESPACE
