#include <CommandSystem/Factory.h>

CS_BEGIN_NAMESPACE

Factory::Factory() = default;

Factory::~Factory() = default;

CS_END_NAMESPACE
