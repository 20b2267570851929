#include <CommandSystem/KeyConflicts.h>

#include "keymap/CatalogueScanner.h"
#include "keymap/KeyConflictsImpl.h"

#include <CommandSystem/Action.h>
#include <CommandSystem/ActionPool.h>
#include <CommandSystem/Keymap.h>
#include <CommandSystem/Parameter.h>
#include <CommandSystem/Template.h>

#include <QFileInfo>

CS_BEGIN_NAMESPACE

namespace {

QString commandOf(const Action& action)
{
    return action.script().section(QLatin1Char(' '), 0, 0, QString::SectionSkipEmpty);
}

} // namespace

KeyConflicts::KeyConflicts() : d(new KeyConflictsImpl) {}

KeyConflicts::~KeyConflicts() = default;

void KeyConflicts::addAction(const QString& action, bool enabled, const QString& command,
                             const SourceLocation& where)
{
    d->noteFile(where);
    d->enabledActions.insert(action, enabled);
    if (!command.isEmpty())
        addCommand(command, where);
}

void KeyConflicts::setShortcut(const QString& action, const QKeySequence& shortcut,
                               const SourceLocation& where)
{
    d->noteFile(where);
    for (int i = 0; i < d->bindings.size(); ++i) {
        if (d->bindings.at(i).action == action)
            d->bindings.removeAt(i--);
    }
    if (!shortcut.isEmpty())
        d->bindings.append(KeyConflictsImpl::Binding{action, shortcut, where});
}

void KeyConflicts::addCommand(const QString& name, const SourceLocation& where)
{
    d->noteFile(where);
    d->commands.append(KeyConflictsImpl::Named{name, where});
}

void KeyConflicts::addAlias(const QString& alias, const QString& command, const SourceLocation& where)
{
    d->noteFile(where);
    d->aliases.append(KeyConflictsImpl::Alias{alias, command, where});
}

void KeyConflicts::addOptions(const QString& owner, const QString& options, const SourceLocation& where)
{
    d->noteFile(where);
    d->options.append(KeyConflictsImpl::Options{owner, options, where});
}

void KeyConflicts::addActions(const ActionPool& pool)
{
    const QList<Action*> actions = pool.actions();
    for (const Action* action : actions) {
        addAction(action->name(), action->isEnabled(), commandOf(*action));
        setShortcut(action->name(), action->shortcut());
    }
}

void KeyConflicts::addTemplate(const Template& temp)
{
    const QString name = QString::fromUtf8(temp.name());
    addCommand(name);
    for (const Parameter* parameter : temp.parameters()) {
        const QString options = QString::fromUtf8(parameter->textProperty("options"));
        if (!options.isEmpty())
            addOptions(QStringLiteral("parameter %1 of \"%2\"").arg(parameter->luid()).arg(name), options);
    }
}

void KeyConflicts::addAliases(const QMap<QString, QString>& aliases)
{
    for (auto alias = aliases.constBegin(); alias != aliases.constEnd(); ++alias)
        addAlias(alias.key(), alias.value());
}

void KeyConflicts::addKeymap(const Keymap& keymap)
{
    const QStringList actions = keymap.actionNames();
    for (const QString& action : actions)
        setShortcut(action, keymap.shortcut(action), keymap.location(action));
}

bool KeyConflicts::addFile(const QString& path)
{
    const SourceLocation file{path, 0, 0};
    d->noteFile(file);
    const QString suffix = QFileInfo(path).suffix();
    if (suffix == QLatin1String("keymap")) {
        Keymap keymap;
        if (!keymap.load(path)) {
            const QString place = keymap.errorLocation().toString();
            d->addProblem(keymap.errorLocation(), keymap.errorString().mid(place.size() + 2));
            return false;
        }
        addKeymap(keymap);
        return true;
    }
    CatalogueScanner scanner(*this);
    if (suffix == QLatin1String("xcui") || suffix == QLatin1String("tcmd")) {
        const bool read = suffix == QLatin1String("xcui") ? scanner.scanUi(path) : scanner.scanTemplates(path);
        if (!read)
            d->addProblem(scanner.problemAt, scanner.problem);
        return read;
    }
    d->addProblem(file, QStringLiteral("not a file to check (.xcui, .tcmd or .keymap)"));
    return false;
}

QList<KeyFinding> KeyConflicts::findings() const
{
    return d->check();
}

QList<KeyFinding> KeyConflicts::findings(const QString& action) const
{
    QList<KeyFinding> concerning;
    const QList<KeyFinding> all = d->check();
    for (const KeyFinding& finding : all) {
        if (finding.actions.contains(action))
            concerning.append(finding);
    }
    return concerning;
}

CS_END_NAMESPACE
