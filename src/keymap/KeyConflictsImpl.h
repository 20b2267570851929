#ifndef COMMANDSYSTEM_KEYCONFLICTSIMPL_H
#define COMMANDSYSTEM_KEYCONFLICTSIMPL_H

#include <CommandSystem/KeyConflicts.h>

#include <QHash>
#include <QStringList>

CS_BEGIN_NAMESPACE

class KeyConflictsImpl
{
public:
    struct Named {
        QString name;
        SourceLocation where;
    };
    struct Binding {
        QString action;
        QKeySequence shortcut;
        SourceLocation where;
    };
    struct Alias {
        QString alias;
        QString command;
        SourceLocation where;
    };
    struct Options {
        QString owner;
        QString text;
        SourceLocation where;
    };

    // Files in the order they were first named, to order the findings by.
    void noteFile(const SourceLocation& where);
    void addProblem(const SourceLocation& where, const QString& message);
    QList<KeyFinding> check() const;

    QHash<QString, bool> enabledActions;
    // The latest given last: it is the one that clashes with what was there before.
    QList<Binding> bindings;
    QList<Named> commands;
    QList<Alias> aliases;
    QList<Options> options;
    QList<KeyFinding> problems;
    QStringList files;

private:
    QList<Binding> activeBindings(QList<KeyFinding>& findings) const;
    static void checkSameShortcuts(const QList<Binding>& active, QList<KeyFinding>& findings);
    static void checkPrefixes(const QList<Binding>& active, QList<KeyFinding>& findings);
    void checkTypedLetters(const QList<Binding>& active, QList<KeyFinding>& findings) const;
    void checkAliases(QList<KeyFinding>& findings) const;
    void checkOptions(QList<KeyFinding>& findings) const;
    void sort(QList<KeyFinding>& findings) const;
};

CS_END_NAMESPACE

#endif
