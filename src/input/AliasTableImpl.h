#ifndef COMMANDSYSTEM_ALIASTABLEIMPL_H
#define COMMANDSYSTEM_ALIASTABLEIMPL_H

#include <CommandSystem/AliasTable.h>
#include <CommandSystem/Impl.h>

#include <QMap>
#include <QString>
#include <QStringList>

CS_BEGIN_NAMESPACE

class AliasTableImpl : public Impl<AliasTable>
{
public:
    struct Entry {
        QString alias;
        QString command;
        QString file;   // empty for an alias inserted in code
        int line = 0;
    };

    explicit AliasTableImpl(AliasTable* owner) : Impl(owner) {}

    // Reads one line; returns the problem with it, or an empty text when it was good.
    // firstLines holds, for this file, the line that defined each alias first.
    QString readLine(const QString& line, const QString& file, int number, QMap<QString, int>& firstLines);

    static QString locationOf(const Entry& entry);

    QMap<QString, Entry> entries;   // by case-folded alias, so in case-insensitive order
    QStringList errors;
};

CS_END_NAMESPACE

#endif
