#include "keymap/KeyConflictsImpl.h"

#include "keymap/KeyText.h"

#include <QMap>

#include <algorithm>

CS_BEGIN_NAMESPACE

namespace {

const int kNamesShown = 3;

KeyFinding finding(KeyFinding::Severity severity, KeyFinding::Kind kind,
                   const SourceLocation& where, const QString& message,
                   const QStringList& actions = QStringList())
{
    KeyFinding result;
    result.severity = severity;
    result.kind = kind;
    result.location = where;
    result.message = message;
    result.actions = actions;
    return result;
}

// " (FILE:LINE:COLUMN)" after a name mentioned in a message, when its place is known.
QString placeOf(const SourceLocation& where)
{
    const QString place = where.toString();
    return place.isEmpty() ? QString() : QStringLiteral(" (%1)").arg(place);
}

QString quoted(const QString& text)
{
    return QLatin1Char('"') + text + QLatin1Char('"');
}

// "a", "b", "c" and 4 more
QString someOf(const QStringList& names)
{
    QStringList shown;
    for (int i = 0; i < names.size() && i < kNamesShown; ++i)
        shown.append(quoted(names.at(i)));
    QString text = shown.join(QLatin1String(", "));
    if (names.size() > kNamesShown)
        text += QStringLiteral(" and %1 more").arg(names.size() - kNamesShown);
    return text;
}

// The keys of "a:All;l:Last", as users type them.
QStringList optionKeys(const QString& options)
{
    QStringList keys;
    const QStringList entries = options.split(QLatin1Char(';'));
    for (const QString& entry : entries) {
        const QString key = entry.section(QLatin1Char(':'), 0, 0).trimmed();
        if (!key.isEmpty())
            keys.append(key);
    }
    return keys;
}

} // namespace

void KeyConflictsImpl::noteFile(const SourceLocation& where)
{
    if (!where.file.isEmpty() && !files.contains(where.file))
        files.append(where.file);
}

void KeyConflictsImpl::addProblem(const SourceLocation& where, const QString& message)
{
    noteFile(where);
    problems.append(finding(KeyFinding::Error, KeyFinding::FileProblem, where, message));
}

QList<KeyFinding> KeyConflictsImpl::check() const
{
    QList<KeyFinding> findings = problems;
    const QList<Binding> active = activeBindings(findings);
    checkSameShortcuts(active, findings);
    checkPrefixes(active, findings);
    checkTypedLetters(active, findings);
    checkAliases(findings);
    checkOptions(findings);
    sort(findings);
    return findings;
}

// Shortcuts of actions that can fire. Once actions are known, a shortcut for any other name
// belongs to nothing and is reported instead.
QList<KeyConflictsImpl::Binding> KeyConflictsImpl::activeBindings(QList<KeyFinding>& findings) const
{
    QList<Binding> active;
    for (const Binding& binding : bindings) {
        const auto action = enabledActions.constFind(binding.action);
        if (!enabledActions.isEmpty() && action == enabledActions.constEnd()) {
            findings.append(finding(KeyFinding::Warning, KeyFinding::UnknownAction, binding.where,
                                    QStringLiteral("%1 is not an action of the UI definitions; "
                                                   "its shortcut %2 has no effect")
                                        .arg(binding.action, KeyText::format(binding.shortcut)),
                                    {binding.action}));
            continue;
        }
        if (enabledActions.isEmpty() || action.value())
            active.append(binding);
    }
    return active;
}

void KeyConflictsImpl::checkSameShortcuts(const QList<Binding>& active, QList<KeyFinding>& findings)
{
    QHash<QKeySequence, int> first;
    for (int i = 0; i < active.size(); ++i) {
        const Binding& binding = active.at(i);
        const auto earlier = first.constFind(binding.shortcut);
        if (earlier == first.constEnd()) {
            first.insert(binding.shortcut, i);
            continue;
        }
        const Binding& other = active.at(earlier.value());
        findings.append(finding(KeyFinding::Error, KeyFinding::SameShortcut, binding.where,
                                QStringLiteral("%1 is the shortcut of both %2 and %3%4")
                                    .arg(KeyText::format(binding.shortcut), binding.action,
                                         other.action, placeOf(other.where)),
                                {binding.action, other.action}));
    }
}

void KeyConflictsImpl::checkPrefixes(const QList<Binding>& active, QList<KeyFinding>& findings)
{
    for (const Binding& binding : active) {
        for (const Binding& prefix : active) {
            if (!KeyText::startsWith(binding.shortcut, prefix.shortcut))
                continue;
            findings.append(finding(KeyFinding::Warning, KeyFinding::ShortcutPrefix, binding.where,
                                    QStringLiteral("%1 (%2) begins with %3, the shortcut of %4%5, "
                                                   "and may never be reached")
                                        .arg(KeyText::format(binding.shortcut), binding.action,
                                             KeyText::format(prefix.shortcut), prefix.action,
                                             placeOf(prefix.where)),
                                    {binding.action, prefix.action}));
        }
    }
}

void KeyConflictsImpl::checkTypedLetters(const QList<Binding>& active, QList<KeyFinding>& findings) const
{
    // Typed names in order, each once whatever its case, spelt as first given.
    QMap<QString, QString> typed;
    auto addTyped = [&typed](const QString& name) {
        if (!typed.contains(name.toLower()))
            typed.insert(name.toLower(), name);
    };
    for (const Named& command : commands)
        addTyped(command.name);
    for (const Alias& alias : aliases)
        addTyped(alias.alias);
    for (const Binding& binding : active) {
        const QChar letter = KeyText::typedCharacter(binding.shortcut);
        if (letter.isNull())
            continue;
        QStringList names;
        for (auto name = typed.constBegin(); name != typed.constEnd(); ++name) {
            if (name.key().startsWith(letter))
                names.append(name.value());
        }
        if (names.isEmpty())
            continue;
        findings.append(finding(KeyFinding::Warning, KeyFinding::TypedLetter, binding.where,
                                QStringLiteral("the single key %1 of %2 takes the first letter of "
                                               "the typed command or alias %3")
                                    .arg(KeyText::format(binding.shortcut), binding.action, someOf(names)),
                                {binding.action}));
    }
}

void KeyConflictsImpl::checkAliases(QList<KeyFinding>& findings) const
{
    QHash<QString, const Named*> byName;
    for (const Named& command : commands) {
        if (!byName.contains(command.name.toLower()))
            byName.insert(command.name.toLower(), &command);
    }
    for (const Alias& alias : aliases) {
        const Named* command = byName.value(alias.alias.toLower());
        if (!command || alias.alias.compare(alias.command, Qt::CaseInsensitive) == 0)
            continue;
        findings.append(finding(KeyFinding::Error, KeyFinding::AliasNamesCommand, alias.where,
                                QStringLiteral("alias %1 for %2 has the name of the command %3%4")
                                    .arg(quoted(alias.alias), quoted(alias.command),
                                         quoted(command->name), placeOf(command->where))));
    }
}

void KeyConflictsImpl::checkOptions(QList<KeyFinding>& findings) const
{
    for (const Options& entry : options) {
        QStringList seen;
        const QStringList keys = optionKeys(entry.text);
        for (const QString& key : keys) {
            if (!seen.contains(key.toLower())) {
                seen.append(key.toLower());
                continue;
            }
            findings.append(finding(KeyFinding::Error, KeyFinding::SameOptionKey, entry.where,
                                    QStringLiteral("option key %1 is given twice in the options of %2: %3")
                                        .arg(quoted(key), entry.owner, quoted(entry.text.trimmed()))));
        }
    }
}

void KeyConflictsImpl::sort(QList<KeyFinding>& findings) const
{
    auto key = [this](const KeyFinding& finding) {
        return std::make_tuple(files.indexOf(finding.location.file), finding.location.line,
                               finding.location.column);
    };
    std::stable_sort(findings.begin(), findings.end(),
                     [&key](const KeyFinding& a, const KeyFinding& b) { return key(a) < key(b); });
}

CS_END_NAMESPACE
