#include "TestCommands.h"

#include <CommandSystem/CommandPipe.h>

#include "QtTestCompat.h"

class tst_CommandPipe : public QObject
{
    Q_OBJECT

private slots:
    void nullArgumentsAndEmptyPipe();
    void queuedVerdicts_data();
    void queuedVerdicts();
    void processWithoutEscaperRuns();
    void queuedRunUsesNameScopeAndErrorFlushInOrder();
    void errorFlushFailureMakesProcessFalse();
    void nonInvokableQueuedCommandIsConsumed();
    void holdThenRunUsesNoNameScope();
    void heldCommandsAreServedAndReportedFirst();
    void heldCommandCannotBeHeldAgain();
    void heldCommandCanBeDropped();
    void nonInvokableHeldCommandStillCountsAsRun();
    void waitingVerdictChangesNothing();
    void escaperSeesThePipeLevel();
    void popDeletesOnlyDeletableCommands();
    void sendCommandBypassesEverything();
    void sendCommandRefusesNonInvokable();
    void throwingCommandOnQueuedPathIsContained();
    void throwingCommandOnHeldPathReachesTheCaller();
    void throwingCommandInSendCommandReachesTheCaller();
    void nameScopeUsesLocal8BitName();
};

void tst_CommandPipe::nullArgumentsAndEmptyPipe()
{
    CommandPipe pipe(0);
    QCOMPARE(pipe.metaObject()->className(), "CommandPipe");
    QVERIFY(!pipe.postCommand(nullptr));
    QVERIFY(!pipe.sendCommand(nullptr));
    QVERIFY(!pipe.process(nullptr));
    QString name = QStringLiteral("unchanged");
    QVERIFY(!pipe.popCommand(name));
    QVERIFY(!pipe.topCommand(name));
    QCOMPARE(name, QStringLiteral("unchanged"));
}

void tst_CommandPipe::queuedVerdicts_data()
{
    QTest::addColumn<int>("verdict");
    QTest::addColumn<bool>("deletable");
    QTest::addColumn<bool>("result");
    QTest::addColumn<bool>("executed");
    QTest::addColumn<bool>("deleted");
    QTest::addColumn<QString>("front");   // front of the pipe afterwards, "" when empty

    QTest::newRow("drop, deletable") << 0 << true << false << false << true << "";
    QTest::newRow("drop, kept") << 0 << false << false << false << false << "";
    QTest::newRow("run, deletable") << 1 << true << true << true << true << "";
    QTest::newRow("run, kept") << 1 << false << true << true << false << "";
    QTest::newRow("hold") << 2 << true << false << false << false << "a";
    QTest::newRow("wait 3") << 3 << true << false << false << false << "a";
    QTest::newRow("wait -1") << -1 << true << false << false << false << "a";
}

void tst_CommandPipe::queuedVerdicts()
{
    QFETCH(int, verdict);
    QFETCH(bool, deletable);
    QFETCH(bool, result);
    QFETCH(bool, executed);
    QFETCH(bool, deleted);
    QFETCH(QString, front);

    QStringList journal;
    QPointer<JournalCommand> command = new JournalCommand(QStringLiteral("a"), &journal, deletable);
    ScriptedEscaper escaper({verdict});
    CommandPipe pipe(0);
    QVERIFY(pipe.postCommand(command));
    QCOMPARE(pipe.process(&escaper), result);
    QCOMPARE(journal.contains(QStringLiteral("execute a")), executed);
    QCOMPARE(command.isNull(), deleted);
    QString name;
    QCOMPARE(pipe.topCommand(name), !front.isEmpty());
    QCOMPARE(name, front);
    delete command;
}

void tst_CommandPipe::processWithoutEscaperRuns()
{
    PlatformRecorder recorder;
    QStringList journal;
    JournalCommand command(QStringLiteral("line"), &journal);
    CommandPipe pipe(2);
    pipe.postCommand(&command);
    QVERIFY(pipe.process(nullptr));
    QCOMPARE(journal, QStringList{QStringLiteral("execute line")});
    QString name;
    QVERIFY(!pipe.topCommand(name));
}

void tst_CommandPipe::queuedRunUsesNameScopeAndErrorFlushInOrder()
{
    PlatformRecorder recorder;
    JournalCommand command(QStringLiteral("circle"), &recorder.calls);
    CommandPipe pipe(0);
    pipe.postCommand(&command);
    QVERIFY(pipe.process(nullptr));
    const QStringList expected{
        QStringLiteral("attachName circle"), QStringLiteral("attachLabel 0"),
        QStringLiteral("errorFlush 0 circle"), QStringLiteral("execute circle"),
        QStringLiteral("detachLabel 0"), QStringLiteral("detachName circle")};
    QCOMPARE(recorder.calls, expected);
}

void tst_CommandPipe::errorFlushFailureMakesProcessFalse()
{
    PlatformRecorder recorder;
    recorder.flushResult = 5;
    QStringList journal;
    JournalCommand command(QStringLiteral("arc"), &journal);
    CommandPipe pipe(0);
    pipe.postCommand(&command);
    QVERIFY(!pipe.process(nullptr));
    QCOMPARE(journal.size(), 1);   // it ran and left the pipe all the same
    QString name;
    QVERIFY(!pipe.topCommand(name));
    QCOMPARE(recorder.calls.last(), QStringLiteral("detachName arc"));
}

void tst_CommandPipe::nonInvokableQueuedCommandIsConsumed()
{
    PlatformRecorder recorder;
    QStringList journal;
    QPointer<JournalCommand> command =
        new JournalCommand(QStringLiteral("trim"), &journal, true, false);
    CommandPipe pipe(0);
    pipe.postCommand(command);
    QVERIFY(pipe.process(nullptr));
    QVERIFY(journal.isEmpty());
    QVERIFY(command.isNull());
    QCOMPARE(recorder.calls.size(), 5);
}

void tst_CommandPipe::holdThenRunUsesNoNameScope()
{
    PlatformRecorder recorder;
    QStringList journal;
    JournalCommand command(QStringLiteral("A"), &journal);
    ScriptedEscaper escaper({2, 1});
    CommandPipe pipe(0);
    pipe.postCommand(&command);
    QVERIFY(!pipe.process(&escaper));
    QVERIFY(journal.isEmpty());
    QString name;
    QVERIFY(pipe.topCommand(name));
    QCOMPARE(name, QStringLiteral("A"));
    QVERIFY(pipe.process(&escaper));
    QCOMPARE(journal, QStringList{QStringLiteral("execute A")});
    QVERIFY(recorder.calls.isEmpty());
    QVERIFY(!pipe.topCommand(name));
}

void tst_CommandPipe::heldCommandsAreServedAndReportedFirst()
{
    QStringList journal;
    JournalCommand older(QStringLiteral("older"), &journal);
    JournalCommand held(QStringLiteral("held"), &journal);
    CommandPipe pipe(0);
    pipe.postCommand(&held);
    ScriptedEscaper hold({2});
    QVERIFY(!pipe.process(&hold));
    pipe.postCommand(&older);
    QString name;
    QVERIFY(pipe.topCommand(name));
    QCOMPARE(name, QStringLiteral("held"));
    QVERIFY(pipe.popCommand(name));
    QCOMPARE(name, QStringLiteral("held"));
    QVERIFY(pipe.topCommand(name));
    QCOMPARE(name, QStringLiteral("older"));
    QVERIFY(journal.isEmpty());
}

void tst_CommandPipe::heldCommandCannotBeHeldAgain()
{
    QStringList journal;
    JournalCommand first(QStringLiteral("first"), &journal);
    JournalCommand second(QStringLiteral("second"), &journal);
    ScriptedEscaper escaper({2});
    CommandPipe pipe(0);
    pipe.postCommand(&first);
    pipe.postCommand(&second);
    QVERIFY(!pipe.process(&escaper));   // first is held
    for (int step = 0; step < 3; ++step)
        QVERIFY(!pipe.process(&escaper));   // verdict 2 on a held command: nothing moves
    QStringList asked;
    for (int step = 0; step < 4; ++step)
        asked << QStringLiteral("0:first");
    QCOMPARE(escaper.seen, asked);
    QString name;
    QVERIFY(pipe.topCommand(name));
    QCOMPARE(name, QStringLiteral("first"));
    QVERIFY(journal.isEmpty());
}

void tst_CommandPipe::heldCommandCanBeDropped()
{
    QStringList journal;
    QPointer<JournalCommand> command = new JournalCommand(QStringLiteral("x"), &journal, true);
    ScriptedEscaper escaper({2, 0});
    CommandPipe pipe(0);
    pipe.postCommand(command);
    QVERIFY(!pipe.process(&escaper));
    QVERIFY(!pipe.process(&escaper));
    QVERIFY(command.isNull());
    QVERIFY(journal.isEmpty());
    QString name;
    QVERIFY(!pipe.topCommand(name));
}

void tst_CommandPipe::nonInvokableHeldCommandStillCountsAsRun()
{
    QStringList journal;
    JournalCommand command(QStringLiteral("x"), &journal, false, false);
    ScriptedEscaper escaper({2, 1});
    CommandPipe pipe(0);
    pipe.postCommand(&command);
    QVERIFY(!pipe.process(&escaper));
    QVERIFY(pipe.process(&escaper));
    QVERIFY(journal.isEmpty());
}

void tst_CommandPipe::waitingVerdictChangesNothing()
{
    QStringList journal;
    JournalCommand command(QStringLiteral("w"), &journal);
    ScriptedEscaper escaper({3});
    CommandPipe pipe(0);
    pipe.postCommand(&command);
    for (int step = 0; step < 4; ++step)
        QVERIFY(!pipe.process(&escaper));
    QString name;
    QVERIFY(pipe.topCommand(name));
    QCOMPARE(name, QStringLiteral("w"));
    QVERIFY(journal.isEmpty());
}

void tst_CommandPipe::escaperSeesThePipeLevel()
{
    JournalCommand command(QStringLiteral("z"), nullptr);
    ScriptedEscaper escaper({3});
    CommandPipe pipe(42);
    pipe.postCommand(&command);
    pipe.process(&escaper);
    QCOMPARE(escaper.seen, QStringList{QStringLiteral("42:z")});
}

void tst_CommandPipe::popDeletesOnlyDeletableCommands()
{
    QPointer<JournalCommand> deletable = new JournalCommand(QStringLiteral("d"), nullptr, true);
    QPointer<JournalCommand> kept = new JournalCommand(QStringLiteral("k"), nullptr, false);
    CommandPipe pipe(0);
    pipe.postCommand(deletable);
    pipe.postCommand(kept);
    QString name;
    QVERIFY(pipe.popCommand(name));
    QCOMPARE(name, QStringLiteral("d"));
    QVERIFY(deletable.isNull());
    QVERIFY(pipe.popCommand(name));
    QCOMPARE(name, QStringLiteral("k"));
    QVERIFY(!kept.isNull());
    QVERIFY(!pipe.popCommand(name));
    delete kept;
}

void tst_CommandPipe::sendCommandBypassesEverything()
{
    PlatformRecorder recorder;
    QStringList journal;
    JournalCommand queued(QStringLiteral("queued"), &journal);
    QPointer<JournalCommand> sent = new JournalCommand(QStringLiteral("sent"), &journal, true);
    CommandPipe pipe(0);
    pipe.postCommand(&queued);
    QVERIFY(pipe.sendCommand(sent));
    QCOMPARE(journal, QStringList{QStringLiteral("execute sent")});
    QVERIFY(sent.isNull());
    QVERIFY(recorder.calls.isEmpty());
    QString name;
    QVERIFY(pipe.topCommand(name));
    QCOMPARE(name, QStringLiteral("queued"));
}

void tst_CommandPipe::sendCommandRefusesNonInvokable()
{
    QStringList journal;
    QPointer<JournalCommand> command =
        new JournalCommand(QStringLiteral("no"), &journal, true, false);
    CommandPipe pipe(0);
    QVERIFY(!pipe.sendCommand(command));
    QVERIFY(!command.isNull());
    QVERIFY(journal.isEmpty());
    delete command;
}

void tst_CommandPipe::throwingCommandOnQueuedPathIsContained()
{
    QStringList calls;
    PlatformHooks hooks;
    hooks.attachName = [&calls](const char* name) { calls << QStringLiteral("attach ") + QString::fromUtf8(name); };
    hooks.detachName = [&calls](const char* name) { calls << QStringLiteral("detach ") + QString::fromUtf8(name); };
    setPlatformHooks(hooks);   // the default error flush stays in force

    QStringList journal;
    JournalCommand broken(QStringLiteral("broken"), &journal);
    broken.throwOnExecute = true;
    JournalCommand next(QStringLiteral("next"), &journal);
    CommandPipe pipe(0);
    pipe.postCommand(&broken);
    pipe.postCommand(&next);
    QTest::ignoreMessage(QtWarningMsg, "Command broken failed: broken geometry");
    QVERIFY(!pipe.process(nullptr));
    QCOMPARE(calls, (QStringList{QStringLiteral("attach broken"), QStringLiteral("detach broken")}));
    QString name;
    QVERIFY(pipe.topCommand(name));
    QCOMPARE(name, QStringLiteral("next"));
    QVERIFY(pipe.process(nullptr));
    QCOMPARE(journal, (QStringList{QStringLiteral("execute broken"), QStringLiteral("execute next")}));
    setPlatformHooks(PlatformHooks());
}

void tst_CommandPipe::throwingCommandOnHeldPathReachesTheCaller()
{
    JournalCommand broken(QStringLiteral("broken"), nullptr, true);
    broken.throwOnExecute = true;
    ScriptedEscaper escaper({2, 1});
    CommandPipe pipe(0);
    pipe.postCommand(&broken);
    QVERIFY(!pipe.process(&escaper));
    QVERIFY_THROWS_EXCEPTION(std::runtime_error, pipe.process(&escaper));
    QString name;
    QVERIFY(!pipe.topCommand(name));   // taken off the held list, and not deleted (on the stack)
}

void tst_CommandPipe::throwingCommandInSendCommandReachesTheCaller()
{
    JournalCommand broken(QStringLiteral("broken"), nullptr, true);
    broken.throwOnExecute = true;
    CommandPipe pipe(0);
    QVERIFY_THROWS_EXCEPTION(std::runtime_error, pipe.sendCommand(&broken));
}

void tst_CommandPipe::nameScopeUsesLocal8BitName()
{
    PlatformRecorder recorder;
    const QString name = QStringLiteral("kreis_\u00e4");
    JournalCommand command(name, nullptr);
    CommandPipe pipe(0);
    pipe.postCommand(&command);
    QVERIFY(pipe.process(nullptr));
    QCOMPARE(recorder.calls.first(), QStringLiteral("attachName ") + QString::fromLocal8Bit(name.toLocal8Bit()));
}

QTEST_GUILESS_MAIN(tst_CommandPipe)
#include "tst_commandpipe.moc"
