#ifndef TESTCOMMANDS_H
#define TESTCOMMANDS_H

#include <CommandSystem/Command.h>
#include <CommandSystem/CommandFactory.h>
#include <CommandSystem/Escaper.h>
#include <CommandSystem/PlatformHooks.h>

#include <QList>
#include <QPointer>
#include <QStringList>

#include <functional>
#include <stdexcept>

using namespace Talvir::Vexa::Cs;

// A command that records its runs in a shared journal.
class JournalCommand : public Command
{
public:
    JournalCommand(const QString& name, QStringList* journal, bool deletable = false,
                   bool invokable = true)
        : Command(name), journal(journal), canDelete(deletable), canInvoke(invokable) {}

    bool invokable() const override { return canInvoke; }
    bool deletable() const override { return canDelete; }
    void execute() override
    {
        if (journal)
            journal->append(QStringLiteral("execute ") + objectName());
        if (throwOnExecute)
            throw std::runtime_error("broken geometry");
    }

    QStringList* journal;
    bool canDelete;
    bool canInvoke;
    bool throwOnExecute = false;
};

// Only execute() overridden: the defaults of the base class are in force.
class PlainCommand : public Command
{
public:
    using Command::Command;
    void execute() override { ++runs; }
    int runs = 0;
};

class NamedFactory : public CommandFactory
{
public:
    explicit NamedFactory(const QString& makes) : makes(makes) {}
    Command* createCommand(const QString& name) override
    {
        ++asked;
        return name == makes ? new PlainCommand(name) : nullptr;
    }
    QString makes;
    int asked = 0;
};

// Answers with a scripted list of verdicts (the last one repeats) and records what it saw.
class ScriptedEscaper : public Escaper
{
public:
    explicit ScriptedEscaper(QList<int> verdicts) : verdicts(std::move(verdicts)) {}
    int escape(int level, Command* command) override
    {
        seen.append(QStringLiteral("%1:%2").arg(level).arg(command->objectName()));
        return verdicts.size() > 1 ? verdicts.takeFirst() : verdicts.first();
    }
    QList<int> verdicts;
    QStringList seen;
};

// Installs hooks that record every call of the name scope and the error flush, and restores
// the defaults when it goes.
class PlatformRecorder
{
public:
    PlatformRecorder()
    {
        PlatformHooks hooks;
        hooks.attachName = [this](const char* name) { calls << QStringLiteral("attachName ") + QString::fromUtf8(name); };
        hooks.detachName = [this](const char* name) { calls << QStringLiteral("detachName ") + QString::fromUtf8(name); };
        hooks.attachLabel = [this](int label) { calls << QStringLiteral("attachLabel %1").arg(label); };
        hooks.detachLabel = [this](int label) { calls << QStringLiteral("detachLabel %1").arg(label); };
        hooks.errorFlush = [this](int mode, const char* name, const std::function<int(bool)>& body) {
            calls << QStringLiteral("errorFlush %1 ").arg(mode) + QString::fromUtf8(name);
            const int result = body(true);
            return flushResult >= 0 ? flushResult : result;
        };
        setPlatformHooks(hooks);
    }
    ~PlatformRecorder() { setPlatformHooks(PlatformHooks()); }

    QStringList calls;
    int flushResult = -1;   // forced result of the error flush, or -1 for the body's
};

#endif
