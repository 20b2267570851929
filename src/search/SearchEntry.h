#ifndef COMMANDSYSTEM_SEARCHENTRY_H
#define COMMANDSYSTEM_SEARCHENTRY_H

#include <CommandSystem/Global.h>

#include <QHash>
#include <QKeySequence>
#include <QPointer>
#include <QStringList>

#include <vector>

CS_BEGIN_NAMESPACE

class Action;
class TemplatePool;

// One text that a query is matched against, with what makes rejecting it cheap.
struct SearchText {
    QString text;
    QString folded;
    // One bit per character class present in the folded text (see characterBits).
    quint64 characters = 0;
    // The same for the characters that start a word, as NameMatcher finds words.
    quint64 wordStarts = 0;
    // Names, texts, scripts and aliases; hints, places, shortcuts and parameter summaries are
    // secondary and count only from a word-start match up.
    bool primary = true;
};

// What the search model shows and matches of one action, read once so that a query touches
// no action.
class SearchEntry
{
public:
    // aliases: a command's aliases, by the command's folded name.
    SearchEntry(Action* action, const QHash<QString, QStringList>& aliases, TemplatePool* templates);

    // The text that users know the action by: its menu text without mnemonics, else its
    // ribbon text, else its name.
    QString title() const;

    static quint64 characterBits(const QString& folded);
    static quint64 characterBit(QChar folded);
    static quint64 wordStartBits(const QString& text, const QString& folded);
    // A one-line summary of a template's parameters; empty for no template.
    static QString parameterSummary(TemplatePool* templates, const QString& command);
    static QString withoutMnemonics(const QString& text);

    QPointer<Action> action;
    QString name;
    QString ribbonText;
    QString menuText;
    QString hint;
    QString script;
    QStringList aliases;
    QKeySequence shortcut;
    QString form;
    bool enabled = true;
    QString parameters;
    std::vector<SearchText> texts;

private:
    void addText(const QString& text, bool primary);
};

CS_END_NAMESPACE

#endif
