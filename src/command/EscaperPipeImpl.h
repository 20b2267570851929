#ifndef COMMANDSYSTEM_ESCAPERPIPEIMPL_H
#define COMMANDSYSTEM_ESCAPERPIPEIMPL_H

#include <CommandSystem/EscaperPipe.h>
#include <CommandSystem/Impl.h>

#include <QList>

CS_BEGIN_NAMESPACE

class EscaperPipeImpl : public Impl<EscaperPipe>
{
public:
    using Impl::Impl;

    QList<Escaper*> escapers;
};

CS_END_NAMESPACE

#endif
