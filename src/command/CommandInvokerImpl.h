#ifndef COMMANDSYSTEM_COMMANDINVOKERIMPL_H
#define COMMANDSYSTEM_COMMANDINVOKERIMPL_H

#include <CommandSystem/CommandInvoker.h>
#include <CommandSystem/Impl.h>

#include <QList>

CS_BEGIN_NAMESPACE

class CommandInvokerImpl : public Impl<CommandInvoker>
{
public:
    using Impl::Impl;

    int runHere(Runnable* runnable);
    int runOnOwnerThreadAndWait(Runnable* runnable);

    QList<QEventLoop*>* eventLoops = nullptr;
    QList<CommandPipe*> commandPipes;
    QList<EscaperPipe*> escaperPipes;
    bool invokeEnabled = true;
    bool escapeEnabled = true;
    bool invokeSucceed = false;
};

CS_END_NAMESPACE

#endif
