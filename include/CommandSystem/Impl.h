#ifndef COMMANDSYSTEM_IMPL_H
#define COMMANDSYSTEM_IMPL_H

#include <CommandSystem/Global.h>

CS_BEGIN_NAMESPACE

/**
 * Polymorphic base of every private implementation object of the library: a back pointer to
 * its public owner. Hosts do not use it; it is public so that the public classes can hold a
 * pointer to their private object.
 */
template <typename T>
class Impl
{
public:
    /** Makes a private object for the public object \a owner. */
    explicit Impl(T* owner) : owner(owner) {}
    /** Deleted by the public object's destructor. */
    virtual ~Impl() = default;

    Impl(const Impl&) = delete;
    Impl& operator=(const Impl&) = delete;

    /** The public object this one belongs to. */
    T* owner;
};

CS_END_NAMESPACE

#endif
