#ifndef COMMANDSYSTEM_ESGENERAL_H
#define COMMANDSYSTEM_ESGENERAL_H

#include <CommandSystem/Global.h>

CS_BEGIN_NAMESPACE

// The host base library's name scope around a command run.
void EsGeneralAttachName(const char* name);
void EsGeneralDetachName(const char* name);
void EsGeneralAttachLabel(int label);
void EsGeneralDetachLabel(int label);

CS_END_NAMESPACE

#endif
