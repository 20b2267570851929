#ifndef COMMANDSYSTEM_RUNNABLE_H
#define COMMANDSYSTEM_RUNNABLE_H

#include <CommandSystem/Global.h>

#include <QMetaType>
#include <QMutex>
#include <QWaitCondition>

#include <boost/function.hpp>

CS_BEGIN_NAMESPACE

/**
 * A piece of work handed between threads by CommandInvoker::runOnWorkThread() and
 * CommandInvoker::runOnMainThread().
 *
 * Create it with new and fill in function. autoDelete is the hand-over token that decides
 * which side deletes the runnable; see the two bridges for who deletes it when.
 */
struct Runnable {
    /** The work; its return value becomes result. Calling it while empty throws. */
    boost::function<int()> function;
    /** Guards the hand-over between the two threads. */
    QMutex mutex;
    /** Wakes the thread that waits for the work. */
    QWaitCondition condition;
    /** The value function returned, once it has run. */
    int result = 0;
    /** Whether the bridge deletes the runnable when it is done with it. */
    bool autoDelete = false;
};

CS_END_NAMESPACE

Q_DECLARE_METATYPE(Talvir::Vexa::Cs::Runnable*)

#endif
