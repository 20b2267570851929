#include <CommandSystem/KeyConflicts.h>

#include "keymap/CatalogueScanner.h"
#include "keymap/KeyConflictsImpl.h"

#include <CommandSystem/Action.h>
#include <CommandSystem/ActionPool.h>
#include <CommandSystem/AliasTable.h>
#include <CommandSystem/Keymap.h>
#include <CommandSystem/Parameter.h>
#include <CommandSystem/Template.h>

#include <QFile>
#include <QFileInfo>

CS_BEGIN_NAMESPACE

namespace {

QString commandOf(const Action& action)
{
    return action.script().section(QLatin1Char(' '), 0, 0, QString::SectionSkipEmpty);
}

// "FILE:LINE" as AliasTable gives places; the column is that of the line's first word, when
// the file's lines are at hand.
SourceLocation aliasLocation(const QString& place, const QStringList& lines)
{
    const int colon = place.lastIndexOf(QLatin1Char(':'));
    if (colon < 0)
        return SourceLocation();
    const int line = place.mid(colon + 1).toInt();
    const QString text = lines.value(line - 1);
    int column = 0;
    while (column < text.size() && text.at(column).isSpace())
        ++column;
    return SourceLocation{place.left(colon), line, column < text.size() ? column + 1 : 0};
}

QStringList linesOf(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return QStringList();
    return QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
}

void addAliasTable(KeyConflicts& conflicts, const AliasTable& table, const QStringList& lines)
{
    const QStringList aliases = table.aliases();
    for (const QString& alias : aliases)
        conflicts.addAlias(alias, table.command(alias), aliasLocation(table.location(alias), lines));
}

// Bad lines do not stop the alias reader, so the good lines are checked too.
bool addAliasFile(KeyConflicts& conflicts, KeyConflictsImpl& impl, const QString& path)
{
    AliasTable table;
    const bool read = table.load(path);
    const QStringList lines = linesOf(path);
    const QString prefix = path + QLatin1Char(':');
    const QStringList errors = table.errors();
    for (const QString& error : errors) {
        const int end = error.indexOf(QLatin1String(": "), prefix.size());
        if (error.startsWith(prefix) && end > 0)
            impl.addProblem(aliasLocation(error.left(end), lines), error.mid(end + 2));
        else
            impl.addProblem(SourceLocation{path, 0, 0}, error.mid(path.size() + 2));
    }
    addAliasTable(conflicts, table, lines);
    return read;
}

bool addKeymapFile(KeyConflicts& conflicts, KeyConflictsImpl& impl, const QString& path)
{
    Keymap keymap;
    if (!keymap.load(path)) {
        const SourceLocation where = keymap.errorLocation();
        impl.addProblem(where, keymap.errorString().mid(where.toString().size() + 2));
        return false;
    }
    conflicts.addKeymap(keymap);
    return true;
}

bool addCatalogueFile(KeyConflicts& conflicts, KeyConflictsImpl& impl, const QString& path, bool ui)
{
    CatalogueScanner scanner(conflicts);
    const bool read = ui ? scanner.scanUi(path) : scanner.scanTemplates(path);
    if (!read)
        impl.addProblem(scanner.problemAt, scanner.problem);
    return read;
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

void KeyConflicts::addAliases(const AliasTable& table)
{
    addAliasTable(*this, table, QStringList());
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
    if (suffix == QLatin1String("keymap"))
        return addKeymapFile(*this, *d, path);
    if (suffix == QLatin1String("aliases"))
        return addAliasFile(*this, *d, path);
    if (suffix == QLatin1String("xcui") || suffix == QLatin1String("tcmd"))
        return addCatalogueFile(*this, *d, path, suffix == QLatin1String("xcui"));
    d->addProblem(file, QStringLiteral("not a file to check (.xcui, .tcmd, .aliases or .keymap)"));
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
