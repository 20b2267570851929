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

// Runs at most one pending command per invoke() over five priority levels, and bridges work
// between the invoker's thread and the global thread pool.
class COMMANDSYSTEM_EXPORT CommandInvoker : public QObject
{
    Q_OBJECT

public:
    explicit CommandInvoker(QObject* parent = nullptr);
    ~CommandInvoker() override;

    virtual bool invoke();

    CommandPipe* commandPipe(int level) const;
    EscaperPipe* escaperPipe(int index) const;

    bool isInvokeEnabled() const;
    void setInvokeEnabled(bool enabled);
    bool isEscapeEnabled() const;
    void setEscapeEnabled(bool enabled);
    bool isInvokeSucceed() const;

    // The list stays the caller's; the invoker pushes and pops the loops it turns.
    void setEventLoops(QList<QEventLoop*>* loops);

public slots:
    int runOnMainThread(Runnable* runnable);
    int runOnWorkThread(Runnable* runnable);

private:
    CommandInvokerImpl* d;
};

CS_END_NAMESPACE

#endif
