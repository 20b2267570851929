#include <CommandSystem/CommandInvoker.h>

#include "command/CommandInvokerImpl.h"

#include <CommandSystem/CommandPipe.h>
#include <CommandSystem/EscaperPipe.h>

#include <QEventLoop>
#include <QFutureWatcher>
#include <QMutexLocker>
#include <QScopeGuard>
#include <QThread>
#include <QtConcurrent/QtConcurrentRun>

#if defined(__has_feature)
#if __has_feature(thread_sanitizer)
#define CS_THREAD_SANITIZER
#endif
#endif
#if defined(__SANITIZE_THREAD__) && !defined(CS_THREAD_SANITIZER)
#define CS_THREAD_SANITIZER
#endif
#ifdef CS_THREAD_SANITIZER
#include <sanitizer/tsan_interface.h>
#if __has_include(<QtCore/qtsan_impl.h>)
#define CS_QMUTEX_ANNOUNCED
#endif
#endif

CS_BEGIN_NAMESPACE

namespace {

constexpr int pipeCount = 5;

void registerRunnableType()
{
    static const int id = qRegisterMetaType<Runnable*>("Runnable*");
    Q_UNUSED(id);
}

// Qt is not built with ThreadSanitizer, so the sanitizer sees neither the order that Qt's thread
// pool and posted-event queue give a runnable handed through them, nor QWaitCondition::wait
// letting go of the mutex and taking it back. The helpers below tell it where the library relies
// on that; in other builds they do nothing (or just wait).
void publish(Runnable* runnable)
{
#ifdef CS_THREAD_SANITIZER
    __tsan_release(runnable);
#else
    Q_UNUSED(runnable);
#endif
}

void receive(Runnable* runnable)
{
#ifdef CS_THREAD_SANITIZER
    __tsan_acquire(runnable);
#else
    Q_UNUSED(runnable);
#endif
}

// Qt's inline QMutex code, compiled here, announces its own locking; the wait's release and
// retake happen inside Qt.
void waitForHandOver(Runnable* runnable)
{
#ifdef CS_QMUTEX_ANNOUNCED
    QtTsan::mutexPreUnlock(&runnable->mutex, 0u);
    QtTsan::mutexPostUnlock(&runnable->mutex, 0u);
#endif
    runnable->condition.wait(&runnable->mutex);
#ifdef CS_QMUTEX_ANNOUNCED
    QtTsan::mutexPreLock(&runnable->mutex, 0u);
    QtTsan::mutexPostLock(&runnable->mutex, 0u, 0);
#endif
}

} // namespace

// On the invoker's thread: run, then hand the runnable over. A waiter on another thread set
// autoDelete to false and waits, under the runnable's mutex, until it turns true; it then owns
// the runnable. The flag is written under that mutex, so no wake-up can be lost.
int CommandInvokerImpl::runHere(Runnable* runnable)
{
    receive(runnable);
    const int result = runnable->function();
    runnable->result = result;
    QMutexLocker locker(&runnable->mutex);
    if (!runnable->autoDelete) {
        runnable->autoDelete = true;
        runnable->condition.wakeOne();
        return result;
    }
    locker.unlock();
    delete runnable;
    return result;
}

int CommandInvokerImpl::runOnOwnerThreadAndWait(Runnable* runnable)
{
    QMutexLocker locker(&runnable->mutex);
    runnable->autoDelete = false;
    publish(runnable);
    QMetaObject::invokeMethod(owner, "runOnMainThread", Qt::QueuedConnection,
                              Q_ARG(Runnable*, runnable));
    while (!runnable->autoDelete)
        waitForHandOver(runnable);
    const int result = runnable->result;
    locker.unlock();
    delete runnable;
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
    publish(runnable);
    QFuture<int> task = QtConcurrent::run([runnable] {
        receive(runnable);
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
