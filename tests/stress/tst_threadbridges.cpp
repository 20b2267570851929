// Stress of CommandInvoker's thread bridges: many nested round trips between the invoker's
// thread and pool threads, both hand-over directions of autoDelete, throwing work, and the
// stack of turning event loops seen from inside the work. Meant to run under ThreadSanitizer
// and AddressSanitizer; a watchdog turns any hang into a failure.

#include "Watchdog.h"

#include <CommandSystem/CommandInvoker.h>
#include <CommandSystem/Runnable.h>

#include <QAtomicInt>
#include <QEventLoop>
#include <QException>
#include <QThread>
#include <QThreadPool>
#include <QtTest>
#include "QtTestCompat.h"

#include <memory>
#include <stdexcept>
#include <thread>
#include <vector>

using namespace Talvir::Vexa::Cs;

namespace {

constexpr int roundTrips = 10000;
constexpr std::chrono::seconds limitPerTest(120);

class SurveyAborted : public QException
{
public:
    void raise() const override { throw *this; }
    SurveyAborted* clone() const override { return new SurveyAborted(*this); }
};

// Counts how many runnables were destroyed: every runnable's function holds one Tally.
struct Tally {
    explicit Tally(QAtomicInt* destroyed) : destroyed(destroyed) {}
    ~Tally() { destroyed->ref(); }
    QAtomicInt* destroyed;
};

template<typename Function>
Runnable* makeRunnable(Function function, bool autoDelete, QAtomicInt* destroyed)
{
    auto tally = std::make_shared<Tally>(destroyed);
    auto* runnable = new Runnable;
    runnable->function = [function, tally]() -> int { return function(); };
    runnable->autoDelete = autoDelete;
    return runnable;
}

} // namespace

class tst_ThreadBridges : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void nestedRoundTrips();
    void concurrentWaiters();
    void autoDeleteBothWays_data();
    void autoDeleteBothWays();
    void throwingTasks();
    void eventLoopsSeenFromInsideTheWork();

private:
    Watchdog watchdog;
};

void tst_ThreadBridges::initTestCase()
{
    // A nested runOnWorkThread starts its task while the outer task is blocked waiting for the
    // main thread: the pool needs a second thread even on a one-core machine.
    QThreadPool::globalInstance()->setMaxThreadCount(qMax(4, QThread::idealThreadCount()));
}

void tst_ThreadBridges::init()
{
    watchdog.arm(QTest::currentTestFunction(), limitPerTest);
}

void tst_ThreadBridges::cleanup()
{
    watchdog.disarm();
}

void tst_ThreadBridges::nestedRoundTrips()
{
    CommandInvoker invoker;
    QThread* mainThread = QThread::currentThread();
    QAtomicInt destroyed = 0;
    int onMainThread = 0;   // touched by the pieces only, on the invoker's thread
    Runnable* work = makeRunnable([&] {
        long long sum = 0;
        for (int trip = 0; trip < roundTrips; ++trip) {
            // The bridge takes the runnable over whatever autoDelete said.
            Runnable* piece = makeRunnable([&, trip] {
                onMainThread += QThread::currentThread() == mainThread;
                return trip;
            }, trip % 2 == 0, &destroyed);
            sum += invoker.runOnMainThread(piece);
        }
        return int(sum % 1000003);
    }, true, &destroyed);

    const long long expected = (long long)(roundTrips - 1) * roundTrips / 2;
    QCOMPARE(invoker.runOnWorkThread(work), int(expected % 1000003));
    QCOMPARE(onMainThread, roundTrips);
    QCOMPARE(destroyed.loadAcquire(), roundTrips + 1);
}

void tst_ThreadBridges::concurrentWaiters()
{
    // Several threads wait on the invoker's thread at once, each with its own runnables.
    constexpr int threads = 4;
    constexpr int tripsPerThread = roundTrips / threads;
    CommandInvoker invoker;
    QAtomicInt destroyed = 0;
    std::vector<int> perThread(threads, 0);   // written on the invoker's thread only
    Runnable* work = makeRunnable([&] {
        std::vector<std::thread> waiters;
        std::vector<long long> sums(threads, 0);
        for (int index = 0; index < threads; ++index) {
            waiters.emplace_back([&, index] {
                for (int trip = 0; trip < tripsPerThread; ++trip) {
                    sums[index] += invoker.runOnMainThread(makeRunnable([&, index] {
                        return ++perThread[index];
                    }, trip % 2 == 1, &destroyed));
                }
            });
        }
        for (std::thread& waiter : waiters)
            waiter.join();
        long long total = 0;
        for (long long sum : sums)
            total += sum;
        return int(total);
    }, false, &destroyed);

    const int result = invoker.runOnWorkThread(work);
    QCOMPARE(result, threads * (tripsPerThread * (tripsPerThread + 1) / 2));
    QCOMPARE(work->result, result);
    delete work;   // autoDelete false: the caller keeps it
    QCOMPARE(perThread, std::vector<int>(threads, tripsPerThread));
    QCOMPARE(destroyed.loadAcquire(), roundTrips + 1);
}

void tst_ThreadBridges::autoDeleteBothWays_data()
{
    QTest::addColumn<bool>("autoDelete");
    QTest::newRow("the invoker deletes") << true;
    QTest::newRow("the caller keeps it") << false;
}

void tst_ThreadBridges::autoDeleteBothWays()
{
    QFETCH(bool, autoDelete);
    constexpr int rounds = 500;
    CommandInvoker invoker;
    QAtomicInt destroyed = 0;
    for (int round = 0; round < rounds; ++round) {
        Runnable* work = makeRunnable([round] { return round; }, autoDelete, &destroyed);
        QCOMPARE(invoker.runOnWorkThread(work), round);
        if (!autoDelete) {
            QCOMPARE(work->result, round);
            QVERIFY(!work->autoDelete);
            delete work;
        }

        Runnable* direct = makeRunnable([round] { return -round; }, autoDelete, &destroyed);
        QCOMPARE(invoker.runOnMainThread(direct), -round);
        if (!autoDelete) {
            QVERIFY(direct->autoDelete);   // handed over, not deleted
            delete direct;
        }
        QCOMPARE(destroyed.loadAcquire(), 2 * (round + 1));
    }
}

void tst_ThreadBridges::throwingTasks()
{
    constexpr int rounds = 300;
    CommandInvoker invoker;
    QAtomicInt destroyed = 0;
    int piecesRun = 0;
    for (int round = 0; round < rounds; ++round) {
        // The work makes a few round trips first, so that the throw meets a turning loop.
        Runnable* work = makeRunnable([&invoker, &destroyed, &piecesRun, round]() -> int {
            for (int trip = 0; trip < 3; ++trip)
                invoker.runOnMainThread(makeRunnable([&piecesRun] { return ++piecesRun; },
                                                     false, &destroyed));
            if (round % 3 == 0)
                throw SurveyAborted();
            if (round % 3 == 1)
                throw std::runtime_error("no intersection");
            return round;
        }, true, &destroyed);
        const int before = destroyed.loadAcquire();
        switch (round % 3) {
        case 0:
            QVERIFY_THROWS_EXCEPTION(SurveyAborted, invoker.runOnWorkThread(work));
            break;
        case 1:
            QVERIFY_THROWS_EXCEPTION(QUnhandledException, invoker.runOnWorkThread(work));
            break;
        default:
            QCOMPARE(invoker.runOnWorkThread(work), round);
        }
        // Three pieces and the work itself, deleted before anything was raised.
        QCOMPARE(destroyed.loadAcquire(), before + 4);
    }
    QCOMPARE(piecesRun, 3 * rounds);

    // An empty function throws on the pool thread; the caller gets it and keeps the runnable.
    auto* empty = new Runnable;
    QVERIFY_THROWS_EXCEPTION(QUnhandledException, invoker.runOnWorkThread(empty));
    delete empty;
}

void tst_ThreadBridges::eventLoopsSeenFromInsideTheWork()
{
    // Work reaches the loop list only through runOnMainThread: it belongs to the main thread.
    constexpr int rounds = 200;
    CommandInvoker invoker;
    QEventLoop hostLoop;
    QList<QEventLoop*> loops{&hostLoop};
    invoker.setEventLoops(&loops);
    QAtomicInt destroyed = 0;
    int checks = 0;
    QStringList problems;

    auto observe = [&](int depth) {
        return makeRunnable([&, depth] {
            ++checks;
            if (loops.size() != 1 + depth)
                problems << QStringLiteral("depth %1 saw %2 loops").arg(depth).arg(loops.size());
            for (int index = 1; index < loops.size(); ++index) {
                if (!loops.at(index)->isRunning() || loops.at(index)->parent() != &invoker)
                    problems << QStringLiteral("loop %1 is not a turning invoker loop").arg(index);
            }
            return int(loops.size());
        }, false, &destroyed);
    };

    for (int round = 0; round < rounds; ++round) {
        // Outer work -> piece on the main thread -> inner work -> piece: two loops turning.
        Runnable* outer = makeRunnable([&] {
            int seen = invoker.runOnMainThread(observe(1));
            seen += invoker.runOnMainThread(makeRunnable([&] {
                return invoker.runOnWorkThread(makeRunnable([&] {
                    return invoker.runOnMainThread(observe(2));
                }, true, &destroyed));
            }, true, &destroyed));
            return seen;
        }, true, &destroyed);
        QCOMPARE(invoker.runOnWorkThread(outer), 2 + 3);
        QCOMPARE(loops, QList<QEventLoop*>{&hostLoop});
    }
    invoker.setEventLoops(nullptr);
    QVERIFY2(problems.isEmpty(), qPrintable(problems.join(QLatin1Char('\n'))));
    QCOMPARE(checks, 2 * rounds);
    QCOMPARE(destroyed.loadAcquire(), 5 * rounds);
}

QTEST_GUILESS_MAIN(tst_ThreadBridges)
#include "tst_threadbridges.moc"
