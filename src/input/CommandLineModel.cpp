#include <CommandSystem/CommandLineModel.h>

#include "input/CommandLineModelImpl.h"

#include <CommandSystem/InputGrammar.h>
#include <CommandSystem/Parameter.h>

#include <QRegularExpression>

CS_BEGIN_NAMESPACE

namespace {

const int kSuggestions = 3;

// What all candidates start with, case-insensitively, spelt as the first; the candidates are
// sorted case-insensitively, so the first and the last decide.
QString sharedStart(const QStringList& candidates)
{
    const QString first = candidates.first().toCaseFolded();
    const QString last = candidates.last().toCaseFolded();
    int length = 0;
    while (length < first.size() && length < last.size() && first.at(length) == last.at(length))
        ++length;
    return candidates.first().left(length);
}

QStringList optionCompletions(const Parameter& parameter, const QString& prefix)
{
    QStringList labels;
    QStringList keys;
    for (const InputGrammar::Option& option : InputGrammar::options(parameter)) {
        labels.append(option.label);
        keys.append(option.key);
    }
    const QStringList byLabel = NameMatcher(labels).complete(prefix);
    return byLabel.isEmpty() ? NameMatcher(keys).complete(prefix) : byLabel;
}

QString joinedAlternatives(QStringList names)
{
    const QString last = names.takeLast();
    return names.isEmpty() ? last : names.join(QStringLiteral(", ")) + QStringLiteral(" or ") + last;
}

} // namespace

InputSession* CommandLineModelImpl::activeSession() const
{
    return session && !session->isFinished() ? session.data() : nullptr;
}

void CommandLineModelImpl::rebuildNames()
{
    names.setNames(commands.names() + aliases.aliases());
}

void CommandLineModelImpl::show(const QString& newText)
{
    if (newText == text)
        return;
    text = newText;
    emit owner->textChanged(text);
}

void CommandLineModelImpl::forgetCompletion()
{
    cycle.clear();
    cycleIndex = -1;
    cycleText.clear();
}

void CommandLineModelImpl::remember(const QString& line)
{
    if (line.isEmpty() || (!history.isEmpty() && history.last() == line))
        return;
    history.append(line);
    while (history.size() > historyLimit)
        history.removeFirst();
}

void CommandLineModelImpl::enterCommand(const QString& line)
{
    static const QRegularExpression blank(QStringLiteral("\\s"));
    const int end = line.indexOf(blank);
    const QString name = end < 0 ? line : line.left(end);
    const QString rest = end < 0 ? QString() : line.mid(end + 1).trimmed();
    const QString command = owner->resolve(name);
    if (command.isNull()) {
        emit owner->unknownCommand(name, unknownMessage(name));
    } else if (rest.isEmpty() && !helpCommand.isEmpty() && command.compare(helpCommand, Qt::CaseInsensitive) == 0) {
        emit owner->commandsListed(owner->commandList());
    } else {
        emit owner->commandEntered(rest.isEmpty() ? command : command + QLatin1Char(' ') + rest);
    }
}

QString CommandLineModelImpl::unknownMessage(const QString& name) const
{
    QString message = QStringLiteral("Unknown command \"%1\".").arg(name);
    const QStringList suggestions = owner->suggestions(name);
    if (!suggestions.isEmpty())
        message += QStringLiteral(" Did you mean %1?").arg(joinedAlternatives(suggestions));
    if (!helpCommand.isEmpty())
        message += QStringLiteral(" Type %1 for a list.").arg(helpCommand);
    return message;
}

CommandLineModel::CommandLineModel(QObject* parent)
    : QObject(parent)
    , d(new CommandLineModelImpl(this))
{
}

CommandLineModel::~CommandLineModel()
{
    delete d;
}

void CommandLineModel::setCommands(const QStringList& commands)
{
    d->commands.setNames(commands);
    d->rebuildNames();
}

QStringList CommandLineModel::commands() const
{
    return d->commands.names();
}

void CommandLineModel::setAliases(const AliasTable& aliases)
{
    d->aliases = aliases;
    d->rebuildNames();
}

AliasTable CommandLineModel::aliases() const
{
    return d->aliases;
}

void CommandLineModel::setHelpCommand(const QString& command)
{
    d->helpCommand = command;
}

QString CommandLineModel::helpCommand() const
{
    return d->helpCommand;
}

void CommandLineModel::setSession(InputSession* session)
{
    d->session = session;
    d->forgetCompletion();
}

InputSession* CommandLineModel::session() const
{
    return d->session.data();
}

QString CommandLineModel::text() const
{
    return d->text;
}

void CommandLineModel::setText(const QString& text)
{
    d->show(text);
}

void CommandLineModel::complete()
{
    if (d->cycle.size() > 1 && d->text == d->cycleText) {
        d->cycleIndex = (d->cycleIndex + 1) % d->cycle.size();
        d->show(d->cycle.at(d->cycleIndex));
        d->cycleText = d->text;
        return;
    }
    d->forgetCompletion();
    const QString typed = d->text.trimmed();
    const QStringList candidates = completions(typed);
    if (candidates.isEmpty())
        return;
    if (candidates.size() == 1) {
        d->show(candidates.first());
        return;
    }
    const QString shared = sharedStart(candidates);
    if (shared.size() > typed.size())
        d->show(shared);
    d->cycle = candidates;
    // The first further Tab shows a candidate that differs from what is there already.
    d->cycleIndex = candidates.first().compare(d->text, Qt::CaseInsensitive) == 0 ? 0 : -1;
    d->cycleText = d->text;
    emit completionsListed(candidates);
}

void CommandLineModel::recallPrevious()
{
    if (d->history.isEmpty() || d->browsed == 0)
        return;
    if (d->browsed < 0) {
        d->draft = d->text;
        d->browsed = d->history.size();
    }
    --d->browsed;
    d->show(d->history.at(d->browsed));
}

void CommandLineModel::recallNext()
{
    if (d->browsed < 0)
        return;
    ++d->browsed;
    if (d->browsed < d->history.size()) {
        d->show(d->history.at(d->browsed));
        return;
    }
    d->browsed = -1;
    d->show(d->draft);
}

void CommandLineModel::enter()
{
    const QString line = d->text.trimmed();
    d->browsed = -1;
    d->forgetCompletion();
    d->show(QString());
    d->remember(line);
    if (d->activeSession())
        emit answerEntered(line);
    else if (line.isEmpty())
        emit repeatRequested();
    else
        d->enterCommand(line);
}

void CommandLineModel::escape()
{
    d->browsed = -1;
    d->forgetCompletion();
    d->show(QString());
    emit cancelRequested();
}

QStringList CommandLineModel::history() const
{
    return d->history;
}

int CommandLineModel::historyLimit() const
{
    return d->historyLimit;
}

void CommandLineModel::setHistoryLimit(int limit)
{
    d->historyLimit = qMax(1, limit);
    while (d->history.size() > d->historyLimit)
        d->history.removeFirst();
}

QString CommandLineModel::resolve(const QString& name) const
{
    const QString command = d->commands.find(name);
    if (!command.isNull())
        return command;
    const QString target = d->aliases.command(name);
    return target.isNull() ? QString() : d->commands.find(target);
}

QStringList CommandLineModel::completions(const QString& prefix) const
{
    const InputSession* session = d->activeSession();
    const Parameter* parameter = session ? session->current() : nullptr;
    if (parameter && parameter->type() != Parameter::TypeCommand)
        return optionCompletions(*parameter, prefix);
    static const QRegularExpression blank(QStringLiteral("\\s"));
    if (!parameter && prefix.contains(blank))
        return {};
    return d->names.complete(prefix);
}

QStringList CommandLineModel::suggestions(const QString& name) const
{
    QStringList result;
    for (const QString& near : d->names.suggest(name, 10)) {
        const QString command = resolve(near);
        if (!command.isNull() && !result.contains(command))
            result.append(command);
        if (result.size() == kSuggestions)
            break;
    }
    return result;
}

QStringList CommandLineModel::commandList() const
{
    QStringList lines;
    for (const QString& command : d->commands.names()) {
        const QStringList aliases = d->aliases.aliasesOf(command);
        lines.append(aliases.isEmpty() ? command
                                       : QStringLiteral("%1 (%2)").arg(command, aliases.join(QStringLiteral(", "))));
    }
    return lines;
}

CS_END_NAMESPACE
