#include <CommandSystem/CommandFactory.h>

CS_BEGIN_NAMESPACE

CommandFactory::CommandFactory() = default;

CommandFactory::~CommandFactory() = default;

CS_END_NAMESPACE
