#include <CommandSystem/AliasTable.h>

#include "input/AliasTableImpl.h"
#include "input/TextFile.h"

#include <QSet>

CS_BEGIN_NAMESPACE

namespace {

// The line without its comment: "#" starts one at the start of the line or after a blank, so
// that a "#" inside a word stays part of it.
QString withoutComment(const QString& line)
{
    for (int i = 0; i < line.size(); ++i) {
        if (line.at(i) == QLatin1Char('#') && (i == 0 || line.at(i - 1).isSpace()))
            return line.left(i);
    }
    return line;
}

bool isWord(const QString& text)
{
    if (text.isEmpty())
        return false;
    for (const QChar c : text) {
        if (c.isSpace())
            return false;
    }
    return true;
}

} // namespace

QString AliasTableImpl::readLine(const QString& line, const QString& file, int number,
                                 QMap<QString, int>& firstLines)
{
    const QStringList words = withoutComment(line).simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (words.isEmpty())
        return QString();
    if (words.size() == 1)
        return QStringLiteral("alias \"%1\" has no command after it").arg(words[0]);
    if (words.size() > 2)
        return QStringLiteral("expected \"alias command\", found %1 words").arg(words.size());
    const QString& alias = words[0];
    const QString& command = words[1];
    const QString key = alias.toCaseFolded();
    if (key == command.toCaseFolded())
        return QStringLiteral("alias \"%1\" stands for itself").arg(alias);
    const auto first = firstLines.constFind(key);
    if (first != firstLines.constEnd())
        return QStringLiteral("alias \"%1\" is already defined at line %2").arg(alias).arg(*first);
    firstLines.insert(key, number);
    entries.insert(key, Entry{alias, command, file, number});
    return QString();
}

QString AliasTableImpl::locationOf(const Entry& entry)
{
    return entry.file.isEmpty() ? QStringLiteral("") : QStringLiteral("%1:%2").arg(entry.file).arg(entry.line);
}

AliasTable::AliasTable()
    : d(new AliasTableImpl(this))
{
}

AliasTable::AliasTable(const AliasTable& other)
    : AliasTable()
{
    *this = other;
}

AliasTable& AliasTable::operator=(const AliasTable& other)
{
    d->entries = other.d->entries;
    d->errors = other.d->errors;
    return *this;
}

AliasTable::~AliasTable()
{
    delete d;
}

bool AliasTable::load(const QString& filePath)
{
    QString text;
    QString error;
    if (!TextFile::read(filePath, &text, &error)) {
        d->errors.append(error);
        return false;
    }
    return loadText(text, filePath);
}

bool AliasTable::loadText(const QString& text, const QString& fileName)
{
    const QStringList lines = TextFile::lines(text);
    QMap<QString, int> firstLines;
    bool good = true;
    for (int i = 0; i < lines.size(); ++i) {
        const QString problem = d->readLine(lines[i], fileName, i + 1, firstLines);
        if (!problem.isEmpty()) {
            d->errors.append(QStringLiteral("%1:%2: %3").arg(fileName).arg(i + 1).arg(problem));
            good = false;
        }
    }
    return good;
}

QStringList AliasTable::errors() const
{
    return d->errors;
}

bool AliasTable::insert(const QString& alias, const QString& command)
{
    if (!isWord(alias) || !isWord(command) || alias.toCaseFolded() == command.toCaseFolded())
        return false;
    d->entries.insert(alias.toCaseFolded(), AliasTableImpl::Entry{alias, command, QString(), 0});
    return true;
}

bool AliasTable::remove(const QString& alias)
{
    return d->entries.remove(alias.toCaseFolded()) > 0;
}

void AliasTable::clear()
{
    d->entries.clear();
    d->errors.clear();
}

QString AliasTable::command(const QString& alias) const
{
    const auto entry = d->entries.constFind(alias.toCaseFolded());
    return entry == d->entries.constEnd() ? QString() : entry->command;
}

bool AliasTable::contains(const QString& alias) const
{
    return d->entries.contains(alias.toCaseFolded());
}

QStringList AliasTable::aliases() const
{
    QStringList result;
    for (const AliasTableImpl::Entry& entry : d->entries)
        result.append(entry.alias);
    return result;
}

QStringList AliasTable::aliasesOf(const QString& command) const
{
    QStringList result;
    for (const AliasTableImpl::Entry& entry : d->entries) {
        if (entry.command.compare(command, Qt::CaseInsensitive) == 0)
            result.append(entry.alias);
    }
    return result;
}

int AliasTable::count() const
{
    return int(d->entries.size());
}

QString AliasTable::location(const QString& alias) const
{
    const auto entry = d->entries.constFind(alias.toCaseFolded());
    return entry == d->entries.constEnd() ? QString() : AliasTableImpl::locationOf(*entry);
}

QStringList AliasTable::check(const QStringList& commands) const
{
    QSet<QString> known;
    for (const QString& command : commands)
        known.insert(command.toCaseFolded());
    QStringList problems;
    for (auto it = d->entries.constBegin(); it != d->entries.constEnd(); ++it) {
        const QString location = AliasTableImpl::locationOf(*it);
        const QString prefix = location.isEmpty() ? QString() : location + QStringLiteral(": ");
        if (!known.contains(it->command.toCaseFolded()))
            problems.append(prefix + QStringLiteral("alias \"%1\" names the unknown command \"%2\"").arg(it->alias, it->command));
        if (known.contains(it.key()))
            problems.append(prefix + QStringLiteral("alias \"%1\" hides the command of the same name").arg(it->alias));
    }
    return problems;
}

CS_END_NAMESPACE
