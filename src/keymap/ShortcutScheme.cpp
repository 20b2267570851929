#include <CommandSystem/ShortcutScheme.h>

#include "keymap/ActionLookup.h"

#include <CommandSystem/Action.h>
#include <CommandSystem/ActionPool.h>

#include <QFileInfo>
#include <QHash>

CS_BEGIN_NAMESPACE

class ShortcutSchemeImpl
{
public:
    explicit ShortcutSchemeImpl(ActionPool* pool) : pool(pool) {}

    ActionPool* pool;
    QHash<QString, QKeySequence> defaults;
    Keymap orphans;
    QString error;
};

ShortcutScheme::ShortcutScheme(ActionPool* pool, QObject* parent)
    : QObject(parent), d(new ShortcutSchemeImpl(pool))
{
    const QList<Action*> actions = pool->actions();
    for (const Action* action : actions)
        d->defaults.insert(action->name(), action->shortcut());
}

ShortcutScheme::~ShortcutScheme()
{
    delete d;
}

ActionPool* ShortcutScheme::pool() const
{
    return d->pool;
}

QKeySequence ShortcutScheme::defaultShortcut(const QString& action) const
{
    return d->defaults.value(action);
}

bool ShortcutScheme::load(const QString& path)
{
    Keymap keymap;
    if (QFileInfo::exists(path) && !keymap.load(path)) {
        d->error = keymap.errorString();
        return false;
    }
    apply(keymap);
    d->error.clear();
    return true;
}

void ShortcutScheme::apply(const Keymap& keymap)
{
    resetToDefaults();
    const QStringList missing = keymap.applyTo(*d->pool);
    // A copy keeps where each orphan was read.
    d->orphans = keymap;
    const QStringList names = keymap.actionNames();
    for (const QString& action : names) {
        if (!missing.contains(action))
            d->orphans.remove(action);
    }
}

Keymap ShortcutScheme::changes() const
{
    Keymap keymap = d->orphans;
    const QList<Action*> actions = d->pool->actions();
    for (const Action* action : actions) {
        if (action->shortcut() != defaultShortcut(action->name()))
            keymap.setShortcut(action->name(), action->shortcut());
    }
    return keymap;
}

bool ShortcutScheme::save(const QString& path)
{
    const Keymap keymap = changes();
    if (!keymap.save(path)) {
        d->error = keymap.errorString();
        return false;
    }
    d->error.clear();
    return true;
}

void ShortcutScheme::resetToDefaults()
{
    const QList<Action*> actions = d->pool->actions();
    for (Action* action : actions) {
        const QKeySequence fallback = defaultShortcut(action->name());
        if (action->shortcut() != fallback)
            action->setShortcut(fallback);
    }
    d->orphans.clear();
}

QStringList ShortcutScheme::orphans() const
{
    return d->orphans.actionNames();
}

QString ShortcutScheme::errorString() const
{
    return d->error;
}

CS_END_NAMESPACE
