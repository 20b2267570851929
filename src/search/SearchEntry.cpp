#include "search/SearchEntry.h"

#include "template/ParameterImpl.h"

#include <CommandSystem/Action.h>
#include <CommandSystem/Parameter.h>
#include <CommandSystem/Template.h>
#include <CommandSystem/TemplatePool.h>

CS_BEGIN_NAMESPACE

namespace {

QString commandOf(const QString& script)
{
    return script.section(QLatin1Char(' '), 0, 0, QString::SectionSkipEmpty);
}

QString typeWord(Parameter::Type type)
{
    const int index = int(type);
    return index >= 0 && index < ParameterImpl::typeCount ? QLatin1String(ParameterImpl::typeWords[index])
                                                         : QString();
}

} // namespace

SearchEntry::SearchEntry(Action* action, const QHash<QString, QStringList>& aliasesByCommand,
                         TemplatePool* templates)
    : action(action)
    , name(action->name())
    , ribbonText(action->ribbonText())
    , menuText(withoutMnemonics(action->menuText()))
    , hint(action->hint())
    , script(action->script())
    , aliases(aliasesByCommand.value(commandOf(action->script()).toCaseFolded()))
    , shortcut(action->shortcut())
    , form(action->form())
    , enabled(action->isEnabled())
    , parameters(parameterSummary(templates, commandOf(action->script())))
{
    for (const QString& text : {name, ribbonText, menuText, script})
        addText(text, true);
    for (const QString& alias : qAsConst(aliases))
        addText(alias, true);
    for (const QString& text : {hint, shortcut.toString(QKeySequence::NativeText), form, parameters})
        addText(text, false);
}

QString SearchEntry::title() const
{
    if (!menuText.isEmpty())
        return menuText;
    return ribbonText.isEmpty() ? name : ribbonText;
}

// Letters and digits each have their own bit (by their value modulo the bits left); any other
// character shares one. A query character whose bit a text lacks cannot match in it.
quint64 SearchEntry::characterBits(const QString& folded)
{
    quint64 bits = 0;
    for (const QChar c : folded)
        bits |= characterBit(c);
    return bits;
}

quint64 SearchEntry::characterBit(QChar folded)
{
    return quint64(1) << (folded.isLetterOrNumber() ? folded.unicode() % 63 : 63);
}

// Words start as NameMatcher says: at a letter or digit that comes first or after any other
// character, and at an upper-case letter after a lower-case one (which needs the text's own
// case; a text whose folding changed its length loses that rule, as in NameMatcher).
quint64 SearchEntry::wordStartBits(const QString& text, const QString& folded)
{
    const QString& cased = text.size() == folded.size() ? text : folded;
    quint64 bits = 0;
    for (int i = 0; i < cased.size(); ++i) {
        const QChar c = cased.at(i);
        if (!c.isLetterOrNumber())
            continue;
        if (i == 0 || !cased.at(i - 1).isLetterOrNumber() || (c.isUpper() && cased.at(i - 1).isLower()))
            bits |= characterBit(folded.at(i));
    }
    return bits;
}

QString SearchEntry::parameterSummary(TemplatePool* templates, const QString& command)
{
    const Template* found = templates && !command.isEmpty() ? templates->getTemplate(command) : nullptr;
    if (!found)
        return QString();
    QStringList parts;
    for (const Parameter* parameter : found->parameters()) {
        const QString description = QString::fromLocal8Bit(parameter->description());
        const QString type = typeWord(parameter->type());
        parts.append(description.isEmpty() ? type : QStringLiteral("%1 (%2)").arg(description, type));
    }
    return parts.join(QLatin1String("; "));
}

// "&Undo" shows as "Undo", "Save && Quit" as "Save & Quit".
QString SearchEntry::withoutMnemonics(const QString& text)
{
    QString plain;
    plain.reserve(text.size());
    for (int i = 0; i < text.size(); ++i) {
        if (text.at(i) == QLatin1Char('&') && i + 1 < text.size())
            ++i;
        plain.append(text.at(i));
    }
    return plain;
}

void SearchEntry::addText(const QString& text, bool primary)
{
    if (text.isEmpty())
        return;
    SearchText entry;
    entry.text = text;
    entry.folded = text.toCaseFolded();
    entry.characters = characterBits(entry.folded);
    entry.wordStarts = wordStartBits(text, entry.folded);
    entry.primary = primary;
    texts.push_back(entry);
}

CS_END_NAMESPACE
