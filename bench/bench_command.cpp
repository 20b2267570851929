// Command execution: the invoker's queued path, its empty scan, and the two thread bridges,
// each next to the Qt mechanism a host would otherwise use.
#include "support/BenchSession.h"
#include "support/Measure.h"

#include <CommandSystem/Command.h>
#include <CommandSystem/CommandInvoker.h>
#include <CommandSystem/CommandPipe.h>
#include <CommandSystem/Escaper.h>
#include <CommandSystem/EscaperPipe.h>
#include <CommandSystem/Runnable.h>

#include <QEventLoop>
#include <QFutureWatcher>
#include <QThread>
#include <QtConcurrent/QtConcurrentRun>

#include <benchmark/benchmark.h>

using namespace Talvir::Vexa::Cs;

namespace {

class CountingCommand : public Command
{
public:
    CountingCommand() : Command(QStringLiteral("LINE")) {}
    void execute() override { ++runs; }
    long runs = 0;
};

class RunEverything : public Escaper
{
public:
    int escape(int, Command*) override { return Run; }
};

// The receiver of the anchors' queued and blocking calls.
class Receiver : public QObject
{
    Q_OBJECT
public:
    long calls = 0;
public slots:
    void run() { ++calls; }
};

struct EmptyCall {
    virtual ~EmptyCall() = default;
    virtual void call() = 0;
};

struct EmptyCallImpl : EmptyCall {
    __attribute__((noinline)) void call() override { benchmark::ClobberMemory(); }
};

// Posting one command and running it through invoke(): escaper verdict, name scope, error
// flush and the deletion check, per command.
void invokePosted(benchmark::State& state)
{
    CommandInvoker invoker;
    RunEverything escaper;
    invoker.escaperPipe(0)->postEscaper(&escaper);
    CountingCommand command;
    CommandPipe* pipe = invoker.commandPipe(0);
    for (auto _ : state) {
        pipe->postCommand(&command);
        benchmark::DoNotOptimize(invoker.invoke());
    }
    if (command.runs != long(state.iterations()))
        state.SkipWithError("not every posted command ran");
}

void queuedInvokeMethod(benchmark::State& state)
{
    Receiver receiver;
    for (auto _ : state) {
        QMetaObject::invokeMethod(&receiver, "run", Qt::QueuedConnection);
        QCoreApplication::sendPostedEvents();
    }
    if (receiver.calls != long(state.iterations()))
        state.SkipWithError("not every queued call was delivered");
}

void invokeEmpty(benchmark::State& state)
{
    CommandInvoker invoker;
    for (auto _ : state)
        benchmark::DoNotOptimize(invoker.invoke());
}

void emptyVirtualCall(benchmark::State& state)
{
    EmptyCallImpl implementation;
    EmptyCall* call = &implementation;
    benchmark::DoNotOptimize(call);
    for (auto _ : state)
        call->call();
}

// The invoker lives on its own thread with a running event loop; the benchmark thread plays
// the work thread that hands pieces over and waits for them.
class OwnerThread
{
public:
    OwnerThread() { thread.start(); }
    ~OwnerThread()
    {
        thread.quit();
        thread.wait();
    }

    template <typename T>
    T* adopt(T* object)
    {
        object->moveToThread(&thread);
        return object;
    }

    void destroy(QObject* object)
    {
        QMetaObject::invokeMethod(object, [object] { delete object; },
                                  Qt::BlockingQueuedConnection);
    }

private:
    QThread thread;
};

void runOnMainThreadRoundTrip(benchmark::State& state)
{
    OwnerThread owner;
    CommandInvoker* invoker = owner.adopt(new CommandInvoker);
    long total = 0;
    for (auto _ : state) {
        Runnable* runnable = new Runnable;
        runnable->function = [] { return 1; };
        total += invoker->runOnMainThread(runnable);
    }
    owner.destroy(invoker);
    if (total != long(state.iterations()))
        state.SkipWithError("lost a round trip");
}

void blockingQueuedRoundTrip(benchmark::State& state)
{
    OwnerThread owner;
    Receiver* receiver = owner.adopt(new Receiver);
    for (auto _ : state)
        QMetaObject::invokeMethod(receiver, "run", Qt::BlockingQueuedConnection);
    const long calls = receiver->calls;
    owner.destroy(receiver);
    if (calls != long(state.iterations()))
        state.SkipWithError("lost a round trip");
}

void runOnWorkThreadEmpty(benchmark::State& state)
{
    CommandInvoker invoker;
    for (auto _ : state) {
        Runnable* runnable = new Runnable;
        runnable->autoDelete = true;
        runnable->function = [] { return 1; };
        benchmark::DoNotOptimize(invoker.runOnWorkThread(runnable));
    }
}

void concurrentRunWithWatcher(benchmark::State& state)
{
    for (auto _ : state) {
        QFuture<int> task = QtConcurrent::run([] { return 1; });
        QFutureWatcher<int> watcher;
        QEventLoop loop;
        QObject::connect(&watcher, &QFutureWatcherBase::finished, &loop, &QEventLoop::quit);
        watcher.setFuture(task);
        loop.exec(QEventLoop::ExcludeUserInputEvents);
        benchmark::DoNotOptimize(task.result());
    }
}

// The main thread's CPU time while runOnWorkThread waits for a task that takes 1 s.
void runOnWorkThreadMainCpu(benchmark::State& state)
{
    CommandInvoker invoker;
    std::int64_t cpuNs = 0;
    for (auto _ : state) {
        Runnable* runnable = new Runnable;
        runnable->autoDelete = true;
        runnable->function = [] {
            QThread::msleep(1000);
            return 0;
        };
        const std::int64_t before = CsBench::threadCpuNs();
        invoker.runOnWorkThread(runnable);
        cpuNs += CsBench::threadCpuNs() - before;
    }
    state.counters["main_thread_cpu_ns"] =
        benchmark::Counter(double(cpuNs), benchmark::Counter::kAvgIterations);
}

void registerBenchmarks()
{
    using benchmark::RegisterBenchmark;
    RegisterBenchmark("invoke_posted_command", invokePosted);
    RegisterBenchmark("anchor/queued_invokeMethod", queuedInvokeMethod);
    RegisterBenchmark("invoke_five_empty_pipes", invokeEmpty);
    RegisterBenchmark("anchor/empty_virtual_call", emptyVirtualCall);
    RegisterBenchmark("runOnMainThread_round_trip", runOnMainThreadRoundTrip)->UseRealTime();
    RegisterBenchmark("anchor/blocking_queued_invokeMethod", blockingQueuedRoundTrip)
        ->UseRealTime();
    RegisterBenchmark("runOnWorkThread_empty_task", runOnWorkThreadEmpty)->UseRealTime();
    RegisterBenchmark("anchor/concurrent_run_watcher_event_loop", concurrentRunWithWatcher)
        ->UseRealTime();
    RegisterBenchmark("runOnWorkThread_1s_task_main_cpu", runOnWorkThreadMainCpu)
        ->Iterations(1)->UseRealTime()->Unit(benchmark::kMillisecond);
}

std::vector<CsBench::Comparison> comparisons()
{
    using namespace CsBench;
    return {
        {"CommandInvoker::invoke() running one posted command, per command",
         {"invoke_posted_command"}, {"anchor/queued_invokeMethod"}, Unit::Time, Goal::AtMost, 0.5},
        {"invoke() on five empty pipes (anchor: one empty virtual call)",
         {"invoke_five_empty_pipes"}, {"anchor/empty_virtual_call"}, Unit::Time, Goal::Report, 0},
        {"runOnMainThread round trip from a work thread",
         {"runOnMainThread_round_trip"}, {"anchor/blocking_queued_invokeMethod"}, Unit::Time,
         Goal::AtMost, 1.2},
        {"runOnWorkThread with an empty task",
         {"runOnWorkThread_empty_task"}, {"anchor/concurrent_run_watcher_event_loop"}, Unit::Time,
         Goal::AtMost, 1.5},
        {"main-thread CPU while runOnWorkThread waits for a 1 s task",
         {"runOnWorkThread_1s_task_main_cpu", "main_thread_cpu_ns"},
         {"runOnWorkThread_1s_task_main_cpu"}, Unit::CpuShare, Goal::AtMost, 0.05},
    };
}

} // namespace

int main(int argc, char** argv)
{
    CsBench::BenchSession session(argc, argv);
    registerBenchmarks();
    return session.run("Command execution (bench_command)", comparisons());
}

#include "bench_command.moc"
