#ifndef COMMANDSYSTEM_IMPL_H
#define COMMANDSYSTEM_IMPL_H

#include <CommandSystem/Global.h>

CS_BEGIN_NAMESPACE

// Polymorphic base of every private implementation object: a back pointer to its public owner.
template <typename T>
class Impl
{
public:
    explicit Impl(T* owner) : owner(owner) {}
    virtual ~Impl() = default;

    Impl(const Impl&) = delete;
    Impl& operator=(const Impl&) = delete;

    T* owner;
};

CS_END_NAMESPACE

#endif
