#ifndef COMMANDSYSTEM_THREADSANITIZER_H
#define COMMANDSYSTEM_THREADSANITIZER_H

#include <CommandSystem/Global.h>

// Qt is not built with ThreadSanitizer, so the sanitizer sees neither the order that Qt's thread
// pool, posted-event queue and blocking queued calls give a runnable handed through them. These
// helpers tell it where the invoker relies on that; in other builds they do nothing.

#if defined(__has_feature)
#  if __has_feature(thread_sanitizer)
#    define CS_THREAD_SANITIZER
#  endif
#endif
#if defined(__SANITIZE_THREAD__) && !defined(CS_THREAD_SANITIZER)
#  define CS_THREAD_SANITIZER
#endif

#ifdef CS_THREAD_SANITIZER
#  include <sanitizer/tsan_interface.h>
#endif

CS_BEGIN_NAMESPACE

namespace ThreadSanitizer {

// Everything written before publish(object) happens before what follows receive(object).
inline void publish(const void* object)
{
#ifdef CS_THREAD_SANITIZER
    __tsan_release(const_cast<void*>(object));
#else
    Q_UNUSED(object);
#endif
}

inline void receive(const void* object)
{
#ifdef CS_THREAD_SANITIZER
    __tsan_acquire(const_cast<void*>(object));
#else
    Q_UNUSED(object);
#endif
}

} // namespace ThreadSanitizer

CS_END_NAMESPACE

#endif
