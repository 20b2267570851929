#include "keymap/ActionLookup.h"

#include <CommandSystem/Action.h>
#include <CommandSystem/ActionPool.h>

CS_BEGIN_NAMESPACE

QHash<QString, Action*> actionsByName(const ActionPool& pool)
{
    QHash<QString, Action*> byName;
    const QList<Action*> actions = pool.actions();
    for (Action* action : actions)
        byName.insert(action->name(), action);
    return byName;
}

CS_END_NAMESPACE
