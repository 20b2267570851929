#ifndef COMMANDSYSTEM_COMMANDINVOKER_H
#define COMMANDSYSTEM_COMMANDINVOKER_H

#include <CommandSystem/Global.h>
#include <CommandSystem/Runnable.h>

#include <QList>
#include <QObject>

QT_BEGIN_NAMESPACE
class QEventLoop;
QT_END_NAMESPACE

CS_BEGIN_NAMESPACE

class CommandPipe;
class EscaperPipe;
class CommandInvokerImpl;

/**
 * Runs at most one pending command per invoke() over five priority levels, and bridges work
 * between the invoker's thread (the "main" thread) and Qt's global thread pool.
 *
 * The host calls invoke() from its idle processing. The invoker owns five CommandPipe objects
 * (levels 0 to 4, level 0 served first) and five EscaperPipe objects, and deletes them with
 * itself; commands and escapers in them are not deleted.
 *
 * Threads: everything except the function of a Runnable given to runOnWorkThread() runs on
 * the thread the invoker lives in; that function reaches objects of the main thread only
 * through runOnMainThread(). The meta-type "Runnable*" is registered when an invoker is made,
 * so both bridges can also be called through QMetaObject::invokeMethod() by name.
 */
class COMMANDSYSTEM_EXPORT CommandInvoker : public QObject
{
    Q_OBJECT

public:
    /** Makes an invoker with its ten pipes; \a parent is its Qt parent. */
    explicit CommandInvoker(QObject* parent = nullptr);
    /** Deletes the ten pipes; the commands and escapers in them stay alive. */
    ~CommandInvoker() override;

    /**
     * Processes the command pipes in level order with the escaper in force in escaper pipe 0
     * (for every level; null when escaping is disabled) and stops at the first pipe that ran a
     * command. One call may therefore drop or hold commands on several levels but runs at most
     * one. Returns whether a command ran, also kept for isInvokeSucceed(); false at once when
     * invoking is disabled.
     */
    virtual bool invoke();

    /** The command pipe of \a level, 0 to 4; not range-checked. Owned by the invoker. */
    CommandPipe* commandPipe(int level) const;
    /**
     * The escaper pipe of \a index, 0 to 4; not range-checked. Owned by the invoker. Only
     * escaper pipe 0 is ever consulted by invoke().
     */
    EscaperPipe* escaperPipe(int index) const;

    /** Whether invoke() processes the pipes; true initially. */
    bool isInvokeEnabled() const;
    /** Lets invoke() process the pipes (\a enabled true) or return false at once. */
    void setInvokeEnabled(bool enabled);
    /** Whether invoke() asks the escaper; true initially. */
    bool isEscapeEnabled() const;
    /** With \a enabled false, invoke() runs the front command of the first non-empty level. */
    void setEscapeEnabled(bool enabled);
    /** The result of the last invoke(); false initially. */
    bool isInvokeSucceed() const;

    /**
     * Lets the host see the event loops that runOnWorkThread() turns: each call pushes its loop
     * onto \a loops and pops it when the work is done. The list stays the caller's and must
     * outlive its use; null stops the bookkeeping.
     */
    void setEventLoops(QList<QEventLoop*>* loops);

public slots:
    /**
     * Runs the function of \a runnable on the invoker's thread and returns its result.
     *
     * Called on the invoker's thread, it runs the function at once; then, if autoDelete was
     * true the runnable is deleted, otherwise autoDelete is set to true and the runnable stays
     * the caller's. Called on any other thread, it queues the call to the invoker's thread and
     * blocks until it has run, then deletes the runnable (the caller hands it over; create it
     * with new). An exception thrown by the function is raised again in the calling thread.
     * The invoker's thread must be turning its event loop, for instance inside
     * runOnWorkThread(), or the caller waits for ever.
     */
    int runOnMainThread(Runnable* runnable);
    /**
     * Runs the function of \a runnable on a thread of Qt's global thread pool and returns its
     * result. Call it on the invoker's thread: while the work runs, that thread keeps polling
     * its event queue (user input excluded), so queued calls such as runOnMainThread() from
     * the work are served. When autoDelete is true the runnable is deleted before this returns;
     * otherwise it stays the caller's. An exception thrown by the function (an empty function
     * too) is raised again in this thread, after the runnable was deleted when it was to be.
     */
    int runOnWorkThread(Runnable* runnable);

private:
    CommandInvokerImpl* d;
};

CS_END_NAMESPACE

#endif
