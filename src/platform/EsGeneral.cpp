#include "platform/EsGeneral.h"

#include <CommandSystem/PlatformHooks.h>

CS_BEGIN_NAMESPACE

void EsGeneralAttachName(const char* name)
{
    platformHooks().attachName(name);
}

void EsGeneralDetachName(const char* name)
{
    platformHooks().detachName(name);
}

void EsGeneralAttachLabel(int label)
{
    platformHooks().attachLabel(label);
}

void EsGeneralDetachLabel(int label)
{
    platformHooks().detachLabel(label);
}

CS_END_NAMESPACE
