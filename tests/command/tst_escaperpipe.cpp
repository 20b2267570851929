#include "TestCommands.h"

#include <CommandSystem/EscaperPipe.h>

#include <QtTest>

class tst_EscaperPipe : public QObject
{
    Q_OBJECT

private slots:
    void emptyPipeHasNoEscaper();
    void latestPostedEscaperIsInForce();
    void nullIsRefused();
    void escapersAreNotOwned();
};

void tst_EscaperPipe::emptyPipeHasNoEscaper()
{
    EscaperPipe pipe;
    QCOMPARE(pipe.escaper(), nullptr);
    QVERIFY(!pipe.parent());
    QCOMPARE(pipe.metaObject()->className(), "EscaperPipe");
}

void tst_EscaperPipe::latestPostedEscaperIsInForce()
{
    EscaperPipe pipe;
    ScriptedEscaper a({1}), b({0});
    QVERIFY(pipe.postEscaper(&a));
    QCOMPARE(pipe.escaper(), &a);
    QVERIFY(pipe.postEscaper(&b));
    QCOMPARE(pipe.escaper(), &b);
    QCOMPARE(pipe.escaper(), &b);   // asking does not remove it
}

void tst_EscaperPipe::nullIsRefused()
{
    EscaperPipe pipe;
    ScriptedEscaper a({1});
    pipe.postEscaper(&a);
    QVERIFY(!pipe.postEscaper(nullptr));
    QCOMPARE(pipe.escaper(), &a);
}

void tst_EscaperPipe::escapersAreNotOwned()
{
    QPointer<ScriptedEscaper> escaper = new ScriptedEscaper({1});
    {
        EscaperPipe pipe;
        pipe.postEscaper(escaper);
    }
    QVERIFY(escaper);
    delete escaper;
}

QTEST_GUILESS_MAIN(tst_EscaperPipe)
#include "tst_escaperpipe.moc"
