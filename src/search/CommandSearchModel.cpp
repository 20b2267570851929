#include <CommandSystem/CommandSearchModel.h>

#include "search/SearchEntry.h"
#include "search/SearchRanking.h"

#include <CommandSystem/Action.h>
#include <CommandSystem/ActionPool.h>
#include <CommandSystem/AliasTable.h>

#include <algorithm>

CS_BEGIN_NAMESPACE

class CommandSearchModelImpl
{
public:
    explicit CommandSearchModelImpl(ActionPool* pool) : pool(pool) {}

    const SearchEntry* entryAt(int row) const
    {
        return row >= 0 && row < int(rows.size()) ? &entries[size_t(rows[size_t(row)].entry)] : nullptr;
    }
    void rank() { rows = rankEntries(entries, query); }
    SearchEntry read(Action* action) const { return SearchEntry(action, aliases, templates); }

    ActionPool* pool;
    TemplatePool* templates = nullptr;
    // A command's aliases, by the command's folded name.
    QHash<QString, QStringList> aliases;
    QString query;
    std::vector<SearchEntry> entries;
    std::vector<RankedEntry> rows;
};

namespace {

QVariant columnValue(const SearchEntry& entry, int column)
{
    switch (column) {
    case CommandSearchModel::TextColumn: return entry.title();
    case CommandSearchModel::NameColumn: return entry.name;
    case CommandSearchModel::RibbonTextColumn: return entry.ribbonText;
    case CommandSearchModel::MenuTextColumn: return entry.menuText;
    case CommandSearchModel::HintColumn: return entry.hint;
    case CommandSearchModel::ScriptColumn: return entry.script;
    case CommandSearchModel::AliasesColumn: return entry.aliases.join(QLatin1String(", "));
    case CommandSearchModel::ShortcutColumn: return entry.shortcut.toString(QKeySequence::NativeText);
    case CommandSearchModel::FormColumn: return entry.form;
    case CommandSearchModel::EnabledColumn: return entry.enabled;
    case CommandSearchModel::ParametersColumn: return entry.parameters;
    default: return QVariant();
    }
}

QVariant roleValue(const SearchEntry& entry, const RankedEntry& ranked, int role)
{
    switch (role) {
    case CommandSearchModel::ActionRole: return QVariant::fromValue<QObject*>(entry.action.data());
    case CommandSearchModel::NameRole: return entry.name;
    case CommandSearchModel::RibbonTextRole: return entry.ribbonText;
    case CommandSearchModel::MenuTextRole: return entry.menuText;
    case CommandSearchModel::HintRole: return entry.hint;
    case CommandSearchModel::ScriptRole: return entry.script;
    case CommandSearchModel::AliasesRole: return entry.aliases;
    case CommandSearchModel::ShortcutRole: return entry.shortcut;
    case CommandSearchModel::FormRole: return entry.form;
    case CommandSearchModel::EnabledRole: return entry.enabled;
    case CommandSearchModel::ParametersRole: return entry.parameters;
    case CommandSearchModel::MatchKindRole: return int(ranked.match.kind);
    default: return QVariant();
    }
}

} // namespace

CommandSearchModel::CommandSearchModel(ActionPool* pool, QObject* parent)
    : QAbstractTableModel(parent), d(new CommandSearchModelImpl(pool))
{
    refresh();
}

CommandSearchModel::~CommandSearchModel()
{
    delete d;
}

ActionPool* CommandSearchModel::pool() const
{
    return d->pool;
}

void CommandSearchModel::setTemplatePool(TemplatePool* templates)
{
    d->templates = templates;
    refresh();
}

TemplatePool* CommandSearchModel::templatePool() const
{
    return d->templates;
}

void CommandSearchModel::setAliases(const QMap<QString, QString>& aliases)
{
    d->aliases.clear();
    for (auto alias = aliases.constBegin(); alias != aliases.constEnd(); ++alias)
        d->aliases[alias.value().toCaseFolded()].append(alias.key());
    refresh();
}

void CommandSearchModel::setAliases(const AliasTable& table)
{
    QMap<QString, QString> aliases;
    const QStringList names = table.aliases();
    for (const QString& alias : names)
        aliases.insert(alias, table.command(alias));
    setAliases(aliases);
}

QString CommandSearchModel::query() const
{
    return d->query;
}

Action* CommandSearchModel::action(int row) const
{
    const SearchEntry* entry = d->entryAt(row);
    return entry ? entry->action.data() : nullptr;
}

int CommandSearchModel::rowOf(const QString& name) const
{
    for (int row = 0; row < int(d->rows.size()); ++row) {
        if (d->entryAt(row)->name == name)
            return row;
    }
    return -1;
}

int CommandSearchModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(d->rows.size());
}

int CommandSearchModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant CommandSearchModel::data(const QModelIndex& index, int role) const
{
    const SearchEntry* entry = checkIndex(index, CheckIndexOption::IndexIsValid) ? d->entryAt(index.row()) : nullptr;
    if (!entry)
        return QVariant();
    if (role == Qt::DisplayRole || role == Qt::EditRole)
        return columnValue(*entry, index.column());
    if (index.column() == TextColumn && role == Qt::ToolTipRole)
        return entry->hint;
    if (index.column() == TextColumn && role == Qt::DecorationRole)
        return entry->action ? QVariant(entry->action->icon()) : QVariant();
    return roleValue(*entry, d->rows[size_t(index.row())], role);
}

QVariant CommandSearchModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QVariant();
    switch (section) {
    case TextColumn: return tr("Command");
    case NameColumn: return tr("Name");
    case RibbonTextColumn: return tr("Ribbon");
    case MenuTextColumn: return tr("Menu");
    case HintColumn: return tr("Hint");
    case ScriptColumn: return tr("Script");
    case AliasesColumn: return tr("Aliases");
    case ShortcutColumn: return tr("Shortcut");
    case FormColumn: return tr("Form");
    case EnabledColumn: return tr("Enabled");
    case ParametersColumn: return tr("Parameters");
    default: return QVariant();
    }
}

Qt::ItemFlags CommandSearchModel::flags(const QModelIndex& index) const
{
    const SearchEntry* entry = checkIndex(index, CheckIndexOption::IndexIsValid) ? d->entryAt(index.row()) : nullptr;
    if (!entry)
        return Qt::NoItemFlags;
    return entry->enabled ? Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren
                          : Qt::ItemNeverHasChildren;
}

QHash<int, QByteArray> CommandSearchModel::roleNames() const
{
    QHash<int, QByteArray> names = QAbstractTableModel::roleNames();
    names.insert(ActionRole, "action");
    names.insert(NameRole, "name");
    names.insert(RibbonTextRole, "ribbonText");
    names.insert(MenuTextRole, "menuText");
    names.insert(HintRole, "hint");
    names.insert(ScriptRole, "script");
    names.insert(AliasesRole, "aliases");
    names.insert(ShortcutRole, "shortcut");
    names.insert(FormRole, "form");
    names.insert(EnabledRole, "enabled");
    names.insert(ParametersRole, "parameters");
    names.insert(MatchKindRole, "matchKind");
    return names;
}

void CommandSearchModel::setQuery(const QString& query)
{
    if (query == d->query)
        return;
    beginResetModel();
    d->query = query;
    d->rank();
    endResetModel();
    emit queryChanged(query);
}

void CommandSearchModel::refresh()
{
    beginResetModel();
    for (const SearchEntry& entry : d->entries) {
        if (entry.action)
            disconnect(entry.action, nullptr, this, nullptr);
    }
    d->entries.clear();
    const QList<Action*> actions = d->pool->actions();
    d->entries.reserve(size_t(actions.size()));
    for (Action* action : actions) {
        d->entries.push_back(d->read(action));
        connect(action, &Action::ribbonTextChanged, this, &CommandSearchModel::onActionChanged);
        connect(action, &Action::menuTextChanged, this, &CommandSearchModel::onActionChanged);
        connect(action, &Action::shortcutChanged, this, &CommandSearchModel::onActionChanged);
        connect(action, &Action::enabledChanged, this, &CommandSearchModel::onActionChanged);
        connect(action, &QObject::destroyed, this, &CommandSearchModel::onActionDestroyed);
    }
    d->rank();
    endResetModel();
}

// Only the changed row is read again; the rows move only when the ranking changed.
void CommandSearchModel::onActionChanged()
{
    auto* action = qobject_cast<Action*>(sender());
    const auto changed = std::find_if(d->entries.begin(), d->entries.end(),
                                      [action](const SearchEntry& entry) { return entry.action == action; });
    if (!action || changed == d->entries.end())
        return;
    *changed = d->read(action);
    std::vector<RankedEntry> rows = rankEntries(d->entries, d->query);
    const bool sameRows = std::equal(rows.begin(), rows.end(), d->rows.begin(), d->rows.end(),
                                     [](const RankedEntry& a, const RankedEntry& b) {
                                         return a.entry == b.entry && a.match.kind == b.match.kind;
                                     });
    if (!sameRows) {
        beginResetModel();
        d->rows.swap(rows);
        endResetModel();
        return;
    }
    d->rows.swap(rows);
    const int row = rowOf(action->name());
    if (row >= 0)
        emit dataChanged(index(row, 0), index(row, ColumnCount - 1));
}

// The action is half gone: its entry is the one whose guard no longer holds it.
void CommandSearchModel::onActionDestroyed(QObject* action)
{
    beginResetModel();
    d->entries.erase(std::remove_if(d->entries.begin(), d->entries.end(),
                                    [action](const SearchEntry& entry) {
                                        return entry.action.isNull() || entry.action == action;
                                    }),
                     d->entries.end());
    d->rank();
    endResetModel();
}

CS_END_NAMESPACE
