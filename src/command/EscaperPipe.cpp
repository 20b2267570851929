#include <CommandSystem/EscaperPipe.h>

#include "command/EscaperPipeImpl.h"

CS_BEGIN_NAMESPACE

EscaperPipe::EscaperPipe() : d(new EscaperPipeImpl(this)) {}

EscaperPipe::~EscaperPipe()
{
    delete d;
}

bool EscaperPipe::postEscaper(Escaper* escaper)
{
    if (!escaper)
        return false;
    d->escapers.append(escaper);
    return true;
}

Escaper* EscaperPipe::escaper() const
{
    return d->escapers.isEmpty() ? nullptr : d->escapers.last();
}

CS_END_NAMESPACE
