#ifndef COMMANDSYSTEM_ACTIONLOOKUP_H
#define COMMANDSYSTEM_ACTIONLOOKUP_H

#include <CommandSystem/Global.h>

#include <QHash>
#include <QString>

CS_BEGIN_NAMESPACE

class Action;
class ActionPool;

// The pool's actions by exact name. ActionPool::action looks names up only when they start
// with "ID_" and takes any other key for the end of a script; keymaps name actions exactly.
QHash<QString, Action*> actionsByName(const ActionPool& pool);

CS_END_NAMESPACE

#endif
