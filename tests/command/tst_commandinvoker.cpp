#include "TestCommands.h"

#include <CommandSystem/CommandInvoker.h>
#include <CommandSystem/CommandPipe.h>
#include <CommandSystem/EscaperPipe.h>
#include <CommandSystem/Runnable.h>

#include <QEventLoop>
#include <QException>
#include <QMetaMethod>
#include <QThread>
#include <QTimer>
#include "QtTestCompat.h"

#include <memory>

namespace {

class GeometryException : public QException
{
public:
    void raise() const override { throw *this; }
    GeometryException* clone() const override { return new GeometryException(*this); }
};

// A runnable whose function holds a token: the token's use count tells whether the runnable
// (and with it the function) is still alive.
Runnable* tokenRunnable(const std::shared_ptr<int>& token, int value, bool autoDelete)
{
    auto* runnable = new Runnable;
    runnable->function = [token, value] { return value; };
    runnable->autoDelete = autoDelete;
    return runnable;
}

} // namespace

class tst_CommandInvoker : public QObject
{
    Q_OBJECT

private slots:
    void construction();
    void metaObject();
    void pipesCarryTheirLevels();
    void disabledInvokeProcessesNothing();
    void escapeDisabledRunsFrontOfFirstLevel();
    void lowerLevelRunsFirst();
    void onlyEscaperPipeZeroIsConsulted();
    void oneInvokeMayDropOnSeveralLevelsButRunsOne();
    void invokeSucceedFollowsTheLastCall();
    void runOnMainThreadOnMainThread_data();
    void runOnMainThreadOnMainThread();
    void runOnWorkThreadRunsOnAPoolThread_data();
    void runOnWorkThreadRunsOnAPoolThread();
    void runOnWorkThreadDeliversEventsWhileWaiting();
    void eventLoopsAreAStackOfTurningLoops();
    void nestedRoundTrips();
    void emptyFunctionRaisesInTheCaller();
    void pieceThrowingOnMainThreadRaisesInTheWorkThread();
    void qExceptionIsRaisedAsItself();
    void runnableBoundaryOnMainThread();
};

void tst_CommandInvoker::construction()
{
    CommandInvoker invoker;
    QVERIFY(invoker.isInvokeEnabled());
    QVERIFY(invoker.isEscapeEnabled());
    QVERIFY(!invoker.isInvokeSucceed());
    QSet<QObject*> pipes;
    for (int index = 0; index < 5; ++index) {
        QVERIFY(invoker.commandPipe(index));
        QVERIFY(invoker.escaperPipe(index));
        QVERIFY(!invoker.commandPipe(index)->parent());
        QCOMPARE(invoker.escaperPipe(index)->escaper(), nullptr);
        pipes << invoker.commandPipe(index) << invoker.escaperPipe(index);
    }
    QCOMPARE(pipes.size(), 10);
}

void tst_CommandInvoker::metaObject()
{
    const QMetaObject& meta = CommandInvoker::staticMetaObject;
    QCOMPARE(meta.className(), "CommandInvoker");
    const int mainSlot = meta.indexOfSlot("runOnMainThread(Runnable*)");
    const int workSlot = meta.indexOfSlot("runOnWorkThread(Runnable*)");
    QVERIFY(mainSlot >= meta.methodOffset());
    QCOMPARE(workSlot, mainSlot + 1);
    for (int index : {mainSlot, workSlot}) {
        const QMetaMethod method = meta.method(index);
        QCOMPARE(method.access(), QMetaMethod::Public);
        QCOMPARE(QByteArray(method.typeName()), QByteArray("int"));
        QCOMPARE(method.parameterNames(), QList<QByteArray>{"runnable"});
    }
    CommandInvoker invoker;
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    QCOMPARE(QMetaType::fromName("Runnable*"), QMetaType::fromType<Runnable*>());
#else
    QCOMPARE(QMetaType::type("Runnable*"), qMetaTypeId<Runnable*>());
#endif
}

void tst_CommandInvoker::pipesCarryTheirLevels()
{
    CommandInvoker invoker;
    ScriptedEscaper escaper({3});
    invoker.escaperPipe(0)->postEscaper(&escaper);
    QList<JournalCommand*> commands;
    for (int level = 0; level < 5; ++level) {
        commands << new JournalCommand(QStringLiteral("c%1").arg(level), nullptr);
        invoker.commandPipe(level)->postCommand(commands.last());
    }
    QVERIFY(!invoker.invoke());
    QCOMPARE(escaper.seen, (QStringList{"0:c0", "1:c1", "2:c2", "3:c3", "4:c4"}));
    qDeleteAll(commands);
}

void tst_CommandInvoker::disabledInvokeProcessesNothing()
{
    CommandInvoker invoker;
    ScriptedEscaper escaper({1});
    invoker.escaperPipe(0)->postEscaper(&escaper);
    QStringList journal;
    JournalCommand command(QStringLiteral("a"), &journal);
    invoker.commandPipe(0)->postCommand(&command);
    QVERIFY(invoker.invoke());
    QVERIFY(invoker.isInvokeSucceed());
    invoker.setInvokeEnabled(false);
    QVERIFY(!invoker.isInvokeEnabled());
    invoker.commandPipe(0)->postCommand(&command);
    QVERIFY(!invoker.invoke());
    QVERIFY(!invoker.isInvokeSucceed());
    QCOMPARE(escaper.seen.size(), 1);
    QCOMPARE(journal.size(), 1);
}

void tst_CommandInvoker::escapeDisabledRunsFrontOfFirstLevel()
{
    CommandInvoker invoker;
    ScriptedEscaper refuser({0});
    invoker.escaperPipe(0)->postEscaper(&refuser);
    invoker.setEscapeEnabled(false);
    QVERIFY(!invoker.isEscapeEnabled());
    QStringList journal;
    JournalCommand low(QStringLiteral("low"), &journal), high(QStringLiteral("high"), &journal);
    invoker.commandPipe(4)->postCommand(&low);
    invoker.commandPipe(1)->postCommand(&high);
    QVERIFY(invoker.invoke());
    QVERIFY(invoker.invoke());
    QVERIFY(!invoker.invoke());
    QCOMPARE(journal, (QStringList{"execute high", "execute low"}));
    QVERIFY(refuser.seen.isEmpty());
}

void tst_CommandInvoker::lowerLevelRunsFirst()
{
    CommandInvoker invoker;
    QStringList journal;
    JournalCommand three(QStringLiteral("three"), &journal), zero(QStringLiteral("zero"), &journal);
    invoker.commandPipe(3)->postCommand(&three);
    invoker.commandPipe(0)->postCommand(&zero);
    QVERIFY(invoker.invoke());
    QCOMPARE(journal, QStringList{"execute zero"});
    QVERIFY(invoker.invoke());
    QCOMPARE(journal, (QStringList{"execute zero", "execute three"}));
    QVERIFY(!invoker.invoke());
}

void tst_CommandInvoker::onlyEscaperPipeZeroIsConsulted()
{
    CommandInvoker invoker;
    ScriptedEscaper ignored({0});
    invoker.escaperPipe(2)->postEscaper(&ignored);
    QStringList journal;
    JournalCommand command(QStringLiteral("c"), &journal);
    invoker.commandPipe(2)->postCommand(&command);
    QVERIFY(invoker.invoke());
    QVERIFY(ignored.seen.isEmpty());

    ScriptedEscaper ruler({3});
    invoker.escaperPipe(0)->postEscaper(&ruler);
    for (int level = 0; level < 5; ++level)
        invoker.commandPipe(level)->postCommand(&command);
    QVERIFY(!invoker.invoke());
    QCOMPARE(ruler.seen, (QStringList{"0:c", "1:c", "2:c", "3:c", "4:c"}));
    QCOMPARE(journal.size(), 1);
    for (int level = 0; level < 5; ++level) {
        QString name;
        QVERIFY(invoker.commandPipe(level)->popCommand(name));
    }
}

void tst_CommandInvoker::oneInvokeMayDropOnSeveralLevelsButRunsOne()
{
    CommandInvoker invoker;
    ScriptedEscaper escaper({0, 2, 1, 1});
    invoker.escaperPipe(0)->postEscaper(&escaper);
    QStringList journal;
    JournalCommand dropped(QStringLiteral("dropped"), &journal), held(QStringLiteral("held"), &journal),
        run(QStringLiteral("run"), &journal), untouched(QStringLiteral("untouched"), &journal);
    invoker.commandPipe(0)->postCommand(&dropped);
    invoker.commandPipe(1)->postCommand(&held);
    invoker.commandPipe(2)->postCommand(&run);
    invoker.commandPipe(3)->postCommand(&untouched);
    QVERIFY(invoker.invoke());
    QCOMPARE(journal, QStringList{"execute run"});
    QCOMPARE(escaper.seen, (QStringList{"0:dropped", "1:held", "2:run"}));
    QVERIFY(invoker.invoke());   // the held command runs from level 1
    QCOMPARE(journal, (QStringList{"execute run", "execute held"}));
}

void tst_CommandInvoker::invokeSucceedFollowsTheLastCall()
{
    CommandInvoker invoker;
    JournalCommand command(QStringLiteral("c"), nullptr);
    invoker.commandPipe(4)->postCommand(&command);
    QVERIFY(invoker.invoke());
    QVERIFY(invoker.isInvokeSucceed());
    QVERIFY(!invoker.invoke());
    QVERIFY(!invoker.isInvokeSucceed());
}

void tst_CommandInvoker::runOnMainThreadOnMainThread_data()
{
    QTest::addColumn<bool>("autoDelete");
    QTest::newRow("autoDelete deletes") << true;
    QTest::newRow("no autoDelete hands over") << false;
}

void tst_CommandInvoker::runOnMainThreadOnMainThread()
{
    QFETCH(bool, autoDelete);
    CommandInvoker invoker;
    auto token = std::make_shared<int>(0);
    Runnable* runnable = tokenRunnable(token, 42, autoDelete);
    QCOMPARE(invoker.runOnMainThread(runnable), 42);
    if (autoDelete) {
        QCOMPARE(token.use_count(), 1L);
    } else {
        QCOMPARE(token.use_count(), 2L);
        QCOMPARE(runnable->result, 42);
        QVERIFY(runnable->autoDelete);
        delete runnable;
    }
}

void tst_CommandInvoker::runOnWorkThreadRunsOnAPoolThread_data()
{
    QTest::addColumn<bool>("autoDelete");
    QTest::newRow("autoDelete") << true;
    QTest::newRow("caller keeps it") << false;
}

void tst_CommandInvoker::runOnWorkThreadRunsOnAPoolThread()
{
    QFETCH(bool, autoDelete);
    CommandInvoker invoker;
    QThread* mainThread = QThread::currentThread();
    QThread* workThread = nullptr;
    auto token = std::make_shared<int>(0);
    auto* runnable = new Runnable;
    runnable->autoDelete = autoDelete;
    runnable->function = [&workThread, token] {
        workThread = QThread::currentThread();
        return 7;
    };
    QCOMPARE(invoker.runOnWorkThread(runnable), 7);
    QVERIFY(workThread);
    QVERIFY(workThread != mainThread);
    if (autoDelete) {
        QCOMPARE(token.use_count(), 1L);
    } else {
        QCOMPARE(runnable->result, 7);
        delete runnable;
    }
}

void tst_CommandInvoker::runOnWorkThreadDeliversEventsWhileWaiting()
{
    CommandInvoker invoker;
    QAtomicInt timerFired = 0;
    QTimer::singleShot(0, this, [&timerFired] { timerFired.storeRelease(1); });
    auto* runnable = new Runnable;
    runnable->autoDelete = true;
    runnable->function = [&timerFired] {
        // Only a turning main loop can deliver the timer.
        while (!timerFired.loadAcquire())
            QThread::msleep(1);
        return 1;
    };
    QCOMPARE(invoker.runOnWorkThread(runnable), 1);
}

void tst_CommandInvoker::eventLoopsAreAStackOfTurningLoops()
{
    CommandInvoker invoker;
    QEventLoop outer;
    QList<QEventLoop*> loops{&outer};
    invoker.setEventLoops(&loops);
    int sizeInside = 0;
    bool lastIsRunning = false;
    bool lastIsChild = false;
    auto* work = new Runnable;
    work->autoDelete = true;
    work->function = [&] {
        auto* piece = new Runnable;
        piece->function = [&] {
            sizeInside = loops.size();
            lastIsRunning = loops.last()->isRunning();
            lastIsChild = loops.last()->parent() == &invoker;
            return 0;
        };
        return invoker.runOnMainThread(piece);
    };
    invoker.runOnWorkThread(work);
    QCOMPARE(sizeInside, 2);
    QVERIFY(lastIsRunning);
    QVERIFY(lastIsChild);
    QCOMPARE(loops, QList<QEventLoop*>{&outer});
    invoker.setEventLoops(nullptr);
}

void tst_CommandInvoker::nestedRoundTrips()
{
    CommandInvoker invoker;
    QThread* mainThread = QThread::currentThread();
    int onMainThread = 0;
    auto* work = new Runnable;
    work->autoDelete = true;
    work->function = [&] {
        int sum = 0;
        for (int trip = 0; trip < 2000; ++trip) {
            auto* piece = new Runnable;
            piece->autoDelete = (trip % 2) == 0;   // overwritten by the bridge: both ways work
            piece->function = [&, trip] {
                onMainThread += QThread::currentThread() == mainThread;
                return trip;
            };
            sum += invoker.runOnMainThread(piece);
        }
        return sum;
    };
    QCOMPARE(invoker.runOnWorkThread(work), 1999 * 2000 / 2);
    QCOMPARE(onMainThread, 2000);
}

void tst_CommandInvoker::emptyFunctionRaisesInTheCaller()
{
    CommandInvoker invoker;
    auto* runnable = new Runnable;
    runnable->autoDelete = false;
    QVERIFY_THROWS_EXCEPTION(QUnhandledException, invoker.runOnWorkThread(runnable));
    delete runnable;

    Runnable direct;
    try {
        direct.function();
        QFAIL("an empty function must throw");
    } catch (const boost::bad_function_call& error) {
        QCOMPARE(QByteArray(error.what()), QByteArray("call to empty boost::function"));
    }
}

void tst_CommandInvoker::pieceThrowingOnMainThreadRaisesInTheWorkThread()
{
    CommandInvoker invoker;
    QThread* mainThread = QThread::currentThread();
    auto token = std::make_shared<int>(0);
    QByteArray caughtText;
    bool caughtOnWorkThread = false;
    bool thrownOnMainThread = false;
    auto* work = new Runnable;
    work->autoDelete = true;
    work->function = [&] {
        auto* piece = new Runnable;
        piece->function = [&, token]() -> int {
            thrownOnMainThread = QThread::currentThread() == mainThread;
            throw std::runtime_error("no room on the sheet");
        };
        try {
            invoker.runOnMainThread(piece);
        } catch (const std::runtime_error& error) {
            caughtText = error.what();
            caughtOnWorkThread = QThread::currentThread() != mainThread;
        }
        return 5;
    };
    QCOMPARE(invoker.runOnWorkThread(work), 5);
    QVERIFY(thrownOnMainThread);
    QVERIFY(caughtOnWorkThread);
    QCOMPARE(caughtText, QByteArray("no room on the sheet"));
    QCOMPARE(token.use_count(), 1L);   // the piece was deleted all the same

    // Not caught by the work either: it ends the task and reaches the caller of runOnWorkThread.
    auto* careless = new Runnable;
    careless->autoDelete = true;
    careless->function = [&invoker] {
        auto* piece = new Runnable;
        piece->function = []() -> int { throw std::runtime_error("lost"); };
        return invoker.runOnMainThread(piece);
    };
    QVERIFY_THROWS_EXCEPTION(QUnhandledException, invoker.runOnWorkThread(careless));
}

void tst_CommandInvoker::qExceptionIsRaisedAsItself()
{
    CommandInvoker invoker;
    auto token = std::make_shared<int>(0);
    auto* runnable = new Runnable;
    runnable->autoDelete = true;
    runnable->function = [token]() -> int { throw GeometryException(); };
    QVERIFY_THROWS_EXCEPTION(GeometryException, invoker.runOnWorkThread(runnable));
    QCOMPARE(token.use_count(), 1L);   // deleted before the exception was raised
}

void tst_CommandInvoker::runnableBoundaryOnMainThread()
{
    // The queued slot call is what a work thread uses; it must be deliverable by name.
    CommandInvoker invoker;
    auto token = std::make_shared<int>(0);
    Runnable* runnable = tokenRunnable(token, 5, true);
    QVERIFY(QMetaObject::invokeMethod(&invoker, "runOnMainThread", Qt::QueuedConnection,
                                      Q_ARG(Runnable*, runnable)));
    QCOMPARE(token.use_count(), 2L);
    QCoreApplication::processEvents();
    QCOMPARE(token.use_count(), 1L);
}

QTEST_GUILESS_MAIN(tst_CommandInvoker)
#include "tst_commandinvoker.moc"
