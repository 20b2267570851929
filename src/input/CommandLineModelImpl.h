#ifndef COMMANDSYSTEM_COMMANDLINEMODELIMPL_H
#define COMMANDSYSTEM_COMMANDLINEMODELIMPL_H

#include <CommandSystem/AliasTable.h>
#include <CommandSystem/CommandLineModel.h>
#include <CommandSystem/Impl.h>
#include <CommandSystem/InputSession.h>
#include <CommandSystem/NameMatcher.h>

#include <QPointer>
#include <QStringList>

CS_BEGIN_NAMESPACE

class CommandLineModelImpl : public Impl<CommandLineModel>
{
public:
    explicit CommandLineModelImpl(CommandLineModel* owner) : Impl(owner) {}

    // The session that answers go to, while it still waits for them.
    InputSession* activeSession() const;
    void rebuildNames();
    void show(const QString& text);
    void forgetCompletion();
    void remember(const QString& line);
    void enterCommand(const QString& line);
    QString unknownMessage(const QString& name) const;

    NameMatcher commands;
    NameMatcher names;    // commands and aliases
    AliasTable aliases;
    QString helpCommand;
    QPointer<InputSession> session;
    QString text;

    QStringList history;
    int historyLimit = 1000;
    int browsed = -1;     // index into history while Up and Down browse it
    QString draft;        // the line being typed when browsing started

    QStringList cycle;    // the candidates that further Tabs step through
    int cycleIndex = -1;
    QString cycleText;    // the text as the last Tab left it
};

CS_END_NAMESPACE

#endif
