#ifndef COMMANDSYSTEM_COMMANDSYSTEM_H
#define COMMANDSYSTEM_COMMANDSYSTEM_H

// Everything a host needs, in one include.

#include <CommandSystem/Global.h>
#include <CommandSystem/Impl.h>
#include <CommandSystem/PlatformHooks.h>

#include <CommandSystem/Command.h>
#include <CommandSystem/CommandFactory.h>
#include <CommandSystem/CommandInvoker.h>
#include <CommandSystem/CommandManager.h>
#include <CommandSystem/CommandPipe.h>
#include <CommandSystem/Escaper.h>
#include <CommandSystem/EscaperPipe.h>
#include <CommandSystem/Runnable.h>

#include <CommandSystem/Parameter.h>
#include <CommandSystem/Template.h>
#include <CommandSystem/TemplatePool.h>
#include <CommandSystem/TemplateTools.h>

#include <CommandSystem/Action.h>
#include <CommandSystem/ActionMapper.h>
#include <CommandSystem/ActionPool.h>
#include <CommandSystem/Builder.h>
#include <CommandSystem/Factory.h>
#include <CommandSystem/WidgetMapper.h>

#include <CommandSystem/KeyConflicts.h>
#include <CommandSystem/KeyFinding.h>
#include <CommandSystem/Keymap.h>
#include <CommandSystem/ShortcutScheme.h>
#include <CommandSystem/SourceLocation.h>

#include <CommandSystem/CommandPalette.h>
#include <CommandSystem/CommandSearchModel.h>
#include <CommandSystem/NameMatcher.h>

#include <CommandSystem/AliasTable.h>
#include <CommandSystem/CommandLineModel.h>
#include <CommandSystem/InputAnswer.h>
#include <CommandSystem/InputGrammar.h>
#include <CommandSystem/InputPicker.h>
#include <CommandSystem/InputSession.h>
#include <CommandSystem/InputTranscript.h>

#endif
