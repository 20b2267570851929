#include <CommandSystem/CommandInvoker.h>

#include "command/CommandInvokerImpl.h"
#include "command/ThreadSanitizer.h"

#include <CommandSystem/CommandPipe.h>
#include <CommandSystem/EscaperPipe.h>

#include <QEventLoop>
#include <QFutureWatcher>
#include <QMutexLocker>
#include <QScopeGuard>
#include <QThread>
#include <QtConcurrent/QtConcurrentRun>

#include <exception>

CS_BEGIN_NAMESPACE

namespace {

constexpr int pipeCount = 5;

void registerRunnableType()
{
    static const int id = qRegisterMetaType<Runnable*>("Runnable*");
    Q_UNUSED(id);
}

} // namespace

// On the invoker's thread: run, then hand the runnable over. A caller on another thread set
// autoDelete to false and owns the runnable once the flag has turned true.
int CommandInvokerImpl::runHere(Runnable* runnable)
{
    ThreadSanitizer::receive(runnable);
    const int result = runnable->function();
    runnable->result = result;
    QMutexLocker locker(&runnable->mutex);
    if (!runnable->autoDelete) {
        runnable->autoDelete = true;
        runnable->condition.wakeOne();
        ThreadSanitizer::publish(runnable);
        return result;
    }
    locker.unlock();
    delete runnable;
    return result;
}

// The blocking queued call sleeps on a single semaphore that the invoker's thread releases
// after the slot has run: one wake-up per round trip, where sleeping on the runnable's
// condition and then re-taking its mutex (held by the waker) costs up to three. No wake-up can
// be lost, and the hand-over is ordered by that semaphore. An exception thrown by the function
// must not unwind through the invoker thread's event loop: it is caught there and raised again
// here, in the thread that handed the work over.
int CommandInvokerImpl::runOnOwnerThreadAndWait(Runnable* runnable)
{
    std::exception_ptr failure;
    boost::function<int()> function;
    function.swap(runnable->function);
    runnable->function = [&function, &failure]() -> int {
        try {
            return function();
        } catch (...) {
            failure = std::current_exception();
            return 0;
        }
    };
    runnable->autoDelete = false;
    ThreadSanitizer::publish(runnable);
    QMetaObject::invokeMethod(owner, "runOnMainThread", Qt::BlockingQueuedConnection,
                              Q_ARG(Runnable*, runnable));
    ThreadSanitizer::receive(runnable);
    const int result = runnable->result;
    // Still false only when the invoker went away before it could run the call.
    if (runnable->autoDelete)
        delete runnable;
    else
        runnable->function.swap(function);
    if (failure)
        std::rethrow_exception(failure);
    return result;
}

CommandInvoker::CommandInvoker(QObject* parent) : QObject(parent), d(new CommandInvokerImpl(this))
{
    registerRunnableType();
    for (int level = 0; level < pipeCount; ++level)
        d->commandPipes.append(new CommandPipe(level));
    for (int index = 0; index < pipeCount; ++index)
        d->escaperPipes.append(new EscaperPipe);
}

CommandInvoker::~CommandInvoker()
{
    qDeleteAll(d->commandPipes);
    qDeleteAll(d->escaperPipes);
    delete d;
}

bool CommandInvoker::invoke()
{
    d->invokeSucceed = false;
    if (!d->invokeEnabled)
        return false;
    for (CommandPipe* pipe : qAsConst(d->commandPipes)) {
        // Escaper pipe 0 rules every level.
        Escaper* escaper = d->escapeEnabled ? d->escaperPipes.first()->escaper() : nullptr;
        d->invokeSucceed = pipe->process(escaper);
        if (d->invokeSucceed)
            return true;
    }
    return false;
}

CommandPipe* CommandInvoker::commandPipe(int level) const
{
    return d->commandPipes.at(level);
}

EscaperPipe* CommandInvoker::escaperPipe(int index) const
{
    return d->escaperPipes.at(index);
}

bool CommandInvoker::isInvokeEnabled() const
{
    return d->invokeEnabled;
}

void CommandInvoker::setInvokeEnabled(bool enabled)
{
    d->invokeEnabled = enabled;
}

bool CommandInvoker::isEscapeEnabled() const
{
    return d->escapeEnabled;
}

void CommandInvoker::setEscapeEnabled(bool enabled)
{
    d->escapeEnabled = enabled;
}

bool CommandInvoker::isInvokeSucceed() const
{
    return d->invokeSucceed;
}

void CommandInvoker::setEventLoops(QList<QEventLoop*>* loops)
{
    d->eventLoops = loops;
}

int CommandInvoker::runOnMainThread(Runnable* runnable)
{
    if (QThread::currentThread() != thread())
        return d->runOnOwnerThreadAndWait(runnable);
    return d->runHere(runnable);
}

int CommandInvoker::runOnWorkThread(Runnable* runnable)
{
    ThreadSanitizer::publish(runnable);
    QFuture<int> task = QtConcurrent::run([runnable] {
        ThreadSanitizer::receive(runnable);
        // The task's last touch of the runnable, thrown or not, is under the runnable's mutex;
        // this thread takes the mutex before it deletes the runnable. The future's own state
        // gives no such order when the task is found finished without waiting.
        const auto handBack = qScopeGuard([runnable] { QMutexLocker locker(&runnable->mutex); });
        runnable->result = runnable->function();
        return runnable->result;
    });

    // Sleep in the event dispatcher until the task ends: queued calls (such as runOnMainThread
    // from the task) and posted events are delivered, user input is not.
    QEventLoop* loop = new QEventLoop(this);
    if (d->eventLoops)
        d->eventLoops->append(loop);
    QFutureWatcher<int> watcher;
    QObject::connect(&watcher, &QFutureWatcherBase::finished, loop, &QEventLoop::quit);
    watcher.setFuture(task);
    while (!task.isFinished())
        loop->exec(QEventLoop::ExcludeUserInputEvents);
    if (d->eventLoops)
        d->eventLoops->removeLast();
    delete loop;

    // Meet the task's hand-back: from here on the runnable is this thread's (or the caller's).
    runnable->mutex.lock();
    runnable->mutex.unlock();
    if (runnable->autoDelete)
        delete runnable;
    return task.result();
}

CS_END_NAMESPACE
