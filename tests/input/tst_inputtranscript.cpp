#include <CommandSystem/InputSession.h>
#include <CommandSystem/InputTranscript.h>

#include "WalkTemplates.h"

#include <QTemporaryDir>
#include <QtTest>

#include <cmath>
#include <limits>

using namespace Talvir::Vexa::Cs;

namespace {

bool sameEntries(const QList<InputTranscript::Entry>& a, const QList<InputTranscript::Entry>& b)
{
    if (a.size() != b.size())
        return false;
    for (int i = 0; i < a.size(); ++i) {
        if (a[i].command != b[i].command || a[i].completed != b[i].completed || a[i].steps != b[i].steps)
            return false;
    }
    return true;
}

InputTranscript::Entry entry(const QString& command, const QList<InputAnswer>& steps, bool completed = true)
{
    InputTranscript::Entry result;
    result.command = command;
    result.steps = steps;
    result.completed = completed;
    return result;
}

} // namespace

class tst_InputTranscript : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void fileFormat();
    void everyKindRoundTrips_data();
    void everyKindRoundTrips();
    void sessionsReplayToTheSameAnswers();
    void badLines_data();
    void badLines();
    void blanksCommentsAndLineEndings();
    void isTranscript();
    void saveAndLoadFiles();

private:
    WalkTemplates m_templates;
    TestPicker m_picker;
};

void tst_InputTranscript::initTestCase()
{
    QVERIFY(m_templates.isLoaded());
}

void tst_InputTranscript::fileFormat()
{
    InputTranscript transcript;
    transcript.append(entry(QStringLiteral("line"), {InputAnswer::fromPoint(QPointF(0, 0), 1),
                                                     InputAnswer::fromPoint(QPointF(100.5, -2), 2),
                                                     InputAnswer::fromOption(QStringLiteral("u"), 2),
                                                     InputAnswer::fromEmpty(2)}));
    transcript.append(entry(QStringLiteral("erase"), {InputAnswer::fromEntities({3, 1}, 1)}, false));
    transcript.append(entry(QStringLiteral("zoom"), {InputAnswer::fromOption(QStringLiteral("w"), 1),
                                                     InputAnswer::fromWindow(QRectF(QPointF(4, 3), QPointF(0, 0)), 2)}));
    transcript.append(entry(QStringLiteral("dump"), {}));
    transcript.append(entry(QStringLiteral("text"), {InputAnswer::fromNumber(0.1, 2),
                                                     InputAnswer::fromText(QStringLiteral("a\\b\tc"), 3)}));
    QCOMPARE(transcript.toText(), QStringLiteral("# input transcript, version 1\n"
                                                 "run line\n1 point 0,0\n2 point 100.5,-2\n2 option u\n2 enter\ndone\n"
                                                 "run erase\n1 entities 3 1\ncancelled\n"
                                                 "run zoom\n1 option w\n2 window 0,0 4,3\ndone\n"
                                                 "run dump\ndone\n"
                                                 "run text\n2 number 0.1\n3 text a\\\\b\\tc\ndone\n"));
}

void tst_InputTranscript::everyKindRoundTrips_data()
{
    QTest::addColumn<InputAnswer>("step");
    QTest::newRow("point") << InputAnswer::fromPoint(QPointF(1.0 / 3, -1e-300), 2);
    QTest::newRow("big point") << InputAnswer::fromPoint(QPointF(123456789.123, 1e20), 1);
    QTest::newRow("number") << InputAnswer::fromNumber(std::nextafter(0.1, 1.0), 5);
    QTest::newRow("negative zero") << InputAnswer::fromNumber(-0.0, 5);
    QTest::newRow("largest") << InputAnswer::fromNumber(std::numeric_limits<double>::max(), 5);
    QTest::newRow("text with blanks") << InputAnswer::fromText(QStringLiteral("  Mounting plate MP-160 "), 3);
    QTest::newRow("text with escapes") << InputAnswer::fromText(QStringLiteral("a\\n\nb\r\tc\\"), 3);
    QTest::newRow("text not ASCII") << InputAnswer::fromText(QString::fromUtf8("Größe ø 20 µm"), 3);
    QTest::newRow("empty text") << InputAnswer::fromText(QString(), 3);
    QTest::newRow("option") << InputAnswer::fromOption(QStringLiteral("off"), 1);
    QTest::newRow("entities") << InputAnswer::fromEntities({7, 3, 3000}, 1);
    QTest::newRow("no entities") << InputAnswer::fromEntities({}, 1);
    QTest::newRow("window") << InputAnswer::fromWindow(QRectF(-1.5, 2, 10.25, 3), 2);
    QTest::newRow("enter") << InputAnswer::fromEmpty(4);
    QTest::newRow("luid 0") << InputAnswer::fromPoint(QPointF(1, 2), 0);
    QTest::newRow("negative luid") << InputAnswer::fromNumber(1, -3);
}

void tst_InputTranscript::everyKindRoundTrips()
{
    QFETCH(InputAnswer, step);
    InputTranscript written;
    written.append(entry(QStringLiteral("any"), {step, step}));
    InputTranscript read;
    QVERIFY2(read.loadText(written.toText(), QStringLiteral("t")), qPrintable(read.errors().join(QLatin1Char('\n'))));
    QCOMPARE(read.count(), 1);
    QCOMPARE(read.entries().first().steps, (QList<InputAnswer>{step, step}));
    if (step.kind() == InputAnswer::Number || step.kind() == InputAnswer::Point) {
        // Exactly the same doubles, not merely close ones.
        const InputAnswer back = read.entries().first().steps.first();
        QVERIFY(back.number() == step.number() && back.point().x() == step.point().x()
                && back.point().y() == step.point().y());
        QCOMPARE(std::signbit(back.number()), std::signbit(step.number()));
    }
}

void tst_InputTranscript::sessionsReplayToTheSameAnswers()
{
    struct Run {
        QString command;
        QStringList input;
    };
    const QList<Run> runs{{QStringLiteral("line"), {"0,0", "10,0", "u", "@5<90", "7,7", ""}},
                          {QStringLiteral("erase"), {"a", "10,10", ""}},
                          {QStringLiteral("zoom"), {"w", "0,0", "8,6"}},
                          {QStringLiteral("layer"), {"New", "Walls of house"}},
                          {QStringLiteral("circle"), {"3,4", ""}},
                          {QStringLiteral("mirror"), {"y"}},
                          {QStringLiteral("polyline"), {"0,0", "1,0", "1,1", "c"}},
                          {QStringLiteral("line"), {"1,1", "2,2"}},
                          {QStringLiteral("about"), {}}};
    InputTranscript recorded;
    QList<QList<InputAnswer>> answers;
    for (const Run& run : runs) {
        InputSession session(m_templates.get(run.command), &m_picker);
        session.start(run.input);
        if (!session.isFinished())
            session.cancel();
        recorded.append(session);
        answers.append(session.answers());
    }
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("session.transcript"));
    QString error;
    QVERIFY2(recorded.save(path, &error), qPrintable(error));

    InputTranscript loaded;
    QVERIFY2(loaded.load(path), qPrintable(loaded.errors().join(QLatin1Char('\n'))));
    QVERIFY(sameEntries(loaded.entries(), recorded.entries()));
    for (int i = 0; i < loaded.count(); ++i) {
        const InputTranscript::Entry& entry = loaded.entries().at(i);
        InputSession replay(m_templates.get(entry.command));
        replay.start();
        for (const InputAnswer& step : entry.steps)
            QVERIFY(replay.apply(step));
        if (!entry.completed)
            replay.cancel();
        QVERIFY(replay.isFinished());
        QCOMPARE(replay.isCompleted(), entry.completed);
        QCOMPARE(replay.answers(), answers.at(i));
    }
    QCOMPARE(loaded.entries().at(7).completed, false);
    QCOMPARE(loaded.entries().at(0).line, 2);
}

void tst_InputTranscript::badLines_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("errors");
    QTest::addColumn<int>("entries");
    const QString head = InputTranscript::header() + QLatin1Char('\n');
    QTest::newRow("step outside a run") << head + "1 point 0,0\nrun a\ndone\n"
                                        << QStringList{"f:2: a step without a run before it"} << 1;
    QTest::newRow("done outside a run") << head + "done\n" << QStringList{"f:2: done without a run before it"} << 0;
    QTest::newRow("run without name") << head + "run\n" << QStringList{"f:2: run needs a command name"} << 0;
    QTest::newRow("bad luid") << head + "run a\nx point 0,0\ndone\n"
                              << QStringList{"f:3: \"x point 0,0\" is not a step: expected LUID KIND VALUE"} << 1;
    QTest::newRow("luid alone") << head + "run a\n7\ndone\n"
                                << QStringList{"f:3: \"7\" is not a step: expected LUID KIND VALUE"} << 1;
    QTest::newRow("unknown kind") << head + "run a\n1 pointe 0,0\ndone\n"
                                  << QStringList{"f:3: unknown step \"pointe\"; expected point, number, text, option, "
                                                 "entities, window or enter"} << 1;
    QTest::newRow("bad point") << head + "run a\n1 point 0;0\ndone\n" << QStringList{"f:3: \"0;0\" is not a point X,Y"} << 1;
    QTest::newRow("bad number") << head + "run a\n1 number ten\ndone\n" << QStringList{"f:3: \"ten\" is not a number"} << 1;
    QTest::newRow("infinite number") << head + "run a\n1 number inf\ndone\n" << QStringList{"f:3: \"inf\" is not a number"} << 1;
    QTest::newRow("bad escape") << head + "run a\n1 text a\\qb\ndone\n"
                                << QStringList{"f:3: \"a\\qb\" has a backslash that is not \\\\, \\n, \\r or \\t"} << 1;
    QTest::newRow("option without key") << head + "run a\n1 option \ndone\n" << QStringList{"f:3: option needs a key"} << 1;
    QTest::newRow("bad entity") << head + "run a\n1 entities 1 two\ndone\n"
                                << QStringList{"f:3: \"two\" is not an entity identifier"} << 1;
    QTest::newRow("bad window") << head + "run a\n1 window 0,0\ndone\n"
                                << QStringList{"f:3: \"0,0\" is not a window X1,Y1 X2,Y2"} << 1;
    QTest::newRow("enter with value") << head + "run a\n1 enter now\ndone\n" << QStringList{"f:3: enter takes no value"} << 1;
    QTest::newRow("unended before next run") << head + "run a\n1 enter\nrun b\ndone\n"
                                             << QStringList{"f:2: run \"a\" has no done or cancelled; it is left out"} << 1;
    QTest::newRow("unended at the end") << head + "run a\ndone\nrun b\n1 enter\n"
                                        << QStringList{"f:4: run \"b\" has no done or cancelled; it is left out"} << 1;
    QTest::newRow("several") << head + "done\nrun a\n1 number x\n2 number 2\ndone\n"
                             << QStringList{"f:2: done without a run before it", "f:4: \"x\" is not a number"} << 1;
}

void tst_InputTranscript::badLines()
{
    QFETCH(QString, text);
    QFETCH(QStringList, errors);
    QFETCH(int, entries);
    InputTranscript transcript;
    QVERIFY(!transcript.loadText(text, QStringLiteral("f")));
    QCOMPARE(transcript.errors(), errors);
    QCOMPARE(transcript.count(), entries);
    transcript.clear();
    QVERIFY(transcript.errors().isEmpty());
    QCOMPARE(transcript.count(), 0);
}

void tst_InputTranscript::blanksCommentsAndLineEndings()
{
    InputTranscript transcript;
    const QString text = QStringLiteral("\xFEFF# input transcript, version 1\r\n\r\n# a comment\r\n  run line\r\n"
                                        "  1 point 1,2\r\n2 text  two blanks \r\n  done  \r\n");
    QVERIFY2(transcript.loadText(text, QStringLiteral("dos")), qPrintable(transcript.errors().join(QLatin1Char('\n'))));
    QCOMPARE(transcript.count(), 1);
    const InputTranscript::Entry loaded = transcript.entries().first();
    QCOMPARE(loaded.command, QStringLiteral("line"));
    QCOMPARE(loaded.line, 4);
    QCOMPARE(loaded.steps, (QList<InputAnswer>{InputAnswer::fromPoint(QPointF(1, 2), 1),
                                               InputAnswer::fromText(QStringLiteral(" two blanks "), 2)}));
}

void tst_InputTranscript::isTranscript()
{
    QVERIFY(InputTranscript::isTranscript(InputTranscript().toText()));
    QVERIFY(InputTranscript::isTranscript(InputTranscript::header() + QStringLiteral("\r\nrun a\n")));
    QVERIFY(!InputTranscript::isTranscript(QStringLiteral("# a script\nmenu ID_DRAW_LINE\n")));
    QVERIFY(!InputTranscript::isTranscript(QString()));
}

void tst_InputTranscript::saveAndLoadFiles()
{
    QTemporaryDir dir;
    InputTranscript transcript;
    transcript.append(entry(QStringLiteral("dump"), {}));
    QString error;
    const QString unwritable = dir.filePath(QStringLiteral("missing/sub/t.transcript"));
    QVERIFY(!transcript.save(unwritable, &error));
    QVERIFY2(error.startsWith(unwritable + QStringLiteral(": cannot write the file: ")), qPrintable(error));
    QVERIFY(!QFile::exists(unwritable));
    QVERIFY(!transcript.save(unwritable));

    InputTranscript missing;
    const QString absent = dir.filePath(QStringLiteral("absent.transcript"));
    QVERIFY(!missing.load(absent));
    QCOMPARE(missing.errors().size(), 1);
    QVERIFY(missing.errors().first().startsWith(absent + QStringLiteral(": cannot read the file: ")));

    const QString path = dir.filePath(QStringLiteral("t.transcript"));
    QVERIFY(transcript.save(path));
    InputTranscript copy(transcript);
    copy.clear();
    QCOMPARE(transcript.count(), 1);
    InputTranscript twice;
    QVERIFY(twice.load(path));
    QVERIFY(twice.load(path));
    QCOMPARE(twice.count(), 2);
}

QTEST_APPLESS_MAIN(tst_InputTranscript)
#include "tst_inputtranscript.moc"
