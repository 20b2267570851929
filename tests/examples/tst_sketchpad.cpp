#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

// Runs Sketchpad headless on scripted sessions and checks what it printed: the commands issued
// and run, the escaper's decisions, the long command's progress, and the final drawing.
class tst_Sketchpad : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void finalDrawing_data();
    void finalDrawing();
    void commandsRunInOrder();
    void escaperDropsHoldsAndRunsAtOnce();
    void arrayReportsProgressOnMainThread();
    void screenshotIsSaved();
    void keysAndTextReachTheFocusedWidget();
    void failingStepSaysWhy_data();
    void failingStepSaysWhy();
    void recordedDemoReplaysToTheSameDrawing();
    void failingReplaySaysWhy_data();
    void failingReplaySaysWhy();
    void commandLineKeys();
    void namesAliasesAndHelp();
    void polylinePreviewGrows();

private:
    QString writeScript(const QString& name, const QString& text);
    static QStringList run(const QString& script, const QString& screenshot = QString(),
                           const QStringList& more = QStringList());
    static QStringList linesStartingWith(const QStringList& output, const QString& prefix);
    static QStringList lastDump(const QStringList& output);
    static int indexOf(const QStringList& output, const QString& line, int from = 0);

    QStringList m_session;
    QTemporaryDir m_dir;
};

QStringList tst_Sketchpad::run(const QString& script, const QString& screenshot, const QStringList& more)
{
    QProcess process;
    QStringList arguments = QStringList{QStringLiteral("--script"), script} + more;
    if (!screenshot.isEmpty())
        arguments << QStringLiteral("--screenshot") << screenshot;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(SKETCHPAD_EXECUTABLE), arguments);
    if (!process.waitForFinished(90000)) {
        process.kill();
        return {};
    }
    const QStringList output = QString::fromLocal8Bit(process.readAllStandardOutput()).split(QLatin1Char('\n'));
    if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
        return QStringList{QStringLiteral("sketchpad failed")} + output;
    return output;
}

QStringList tst_Sketchpad::linesStartingWith(const QStringList& output, const QString& prefix)
{
    QStringList result;
    for (const QString& line : output) {
        if (line.startsWith(prefix))
            result.append(line.mid(prefix.size()));
    }
    return result;
}

QStringList tst_Sketchpad::lastDump(const QStringList& output)
{
    int start = -1;
    for (int i = 0; i < output.size(); ++i) {
        if (output[i].startsWith(QLatin1String("dump ")))
            start = i;
    }
    QStringList entities;
    for (int i = start + 1; start >= 0 && i < output.size() && output[i].startsWith(QLatin1String("entity ")); ++i)
        entities.append(output[i]);
    return entities;
}

int tst_Sketchpad::indexOf(const QStringList& output, const QString& line, int from)
{
    for (int i = from; i < output.size(); ++i) {
        if (output[i].startsWith(line))
            return i;
    }
    return -1;
}

void tst_Sketchpad::initTestCase()
{
    QVERIFY(m_dir.isValid());
    m_session = run(QStringLiteral(CS_TEST_DATA_DIR "/session.script"), m_dir.filePath(QStringLiteral("session.png")));
    QVERIFY2(!m_session.isEmpty(), "sketchpad did not finish");
    QCOMPARE(m_session.first() == QLatin1String("sketchpad failed"), false);
    QVERIFY(m_session.contains(QStringLiteral("script end, 0 failed steps")));
}

void tst_Sketchpad::finalDrawing_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QString>("expected");
    QTest::newRow("session") << QStringLiteral(CS_TEST_DATA_DIR "/session.script")
                             << QStringLiteral(CS_TEST_DATA_DIR "/session.dump");
    QTest::newRow("demo") << QStringLiteral(SKETCHPAD_DEMO_SCRIPT) << QStringLiteral(CS_TEST_DATA_DIR "/demo.dump");
}

void tst_Sketchpad::finalDrawing()
{
    QFETCH(QString, script);
    QFETCH(QString, expected);
    const QStringList output = script.endsWith(QLatin1String("session.script")) ? m_session : run(script);
    QVERIFY(output.contains(QStringLiteral("script end, 0 failed steps")));
    QFile file(expected);
    QVERIFY(file.open(QIODevice::ReadOnly | QIODevice::Text));
    const QStringList wanted = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    QCOMPARE(lastDump(output), wanted);
}

void tst_Sketchpad::commandsRunInOrder()
{
    const QStringList issued{QStringLiteral("line"), QStringLiteral("line"), QStringLiteral("circle"),
                             QStringLiteral("zoom i"), QStringLiteral("rotate"), QStringLiteral("erase"),
                             QStringLiteral("arc"), QStringLiteral("array"), QStringLiteral("undo")};
    QCOMPARE(linesStartingWith(m_session, QStringLiteral("issued ")), issued);
    const QStringList ran{QStringLiteral("line"), QStringLiteral("zoom"), QStringLiteral("circle"),
                          QStringLiteral("rotate"), QStringLiteral("move"), QStringLiteral("erase"),
                          QStringLiteral("polyline"), QStringLiteral("arc"), QStringLiteral("rectangle"),
                          QStringLiteral("layer"), QStringLiteral("line"), QStringLiteral("circle"),
                          QStringLiteral("array"), QStringLiteral("dump"), QStringLiteral("undo"),
                          QStringLiteral("dump")};
    QCOMPARE(linesStartingWith(m_session, QStringLiteral("run ")), ran);
}

void tst_Sketchpad::escaperDropsHoldsAndRunsAtOnce()
{
    const int lineRuns = indexOf(m_session, QStringLiteral("run line"));
    const int lineEnds = indexOf(m_session, QStringLiteral("end line done"));
    const int dropped = indexOf(m_session, QStringLiteral("escaper drop line"));
    const int held = indexOf(m_session, QStringLiteral("escaper hold circle"));
    const int zoom = indexOf(m_session, QStringLiteral("escaper at-once zoom"));
    const int zoomRuns = indexOf(m_session, QStringLiteral("run zoom"));
    const int released = indexOf(m_session, QStringLiteral("escaper run-held circle"));
    const int circleRuns = indexOf(m_session, QStringLiteral("run circle"));
    QVERIFY(lineRuns >= 0 && lineEnds > lineRuns);
    // The second click of Line arrives while the first collects input: dropped, never run.
    QVERIFY(dropped > lineRuns && dropped < lineEnds);
    QCOMPARE(linesStartingWith(m_session.mid(0, lineEnds), QStringLiteral("run line")).size(), 1);
    // Circle waits for the line and runs right after it.
    QVERIFY(held > lineRuns && held < lineEnds);
    QVERIFY(released > lineEnds);
    QCOMPARE(circleRuns, released + 1);
    // Zoom runs inside the line's input.
    QVERIFY(zoom > held && zoom < lineEnds);
    QVERIFY(zoomRuns > zoom && zoomRuns < lineEnds);
}

void tst_Sketchpad::arrayReportsProgressOnMainThread()
{
    QVERIFY(m_session.contains(QStringLiteral("array start 2999 copies")));
    const QStringList progress = linesStartingWith(m_session, QStringLiteral("array progress "));
    QCOMPARE(progress, (QStringList{QStringLiteral("25% on the main thread: yes"),
                                    QStringLiteral("50% on the main thread: yes"),
                                    QStringLiteral("75% on the main thread: yes"),
                                    QStringLiteral("100% on the main thread: yes")}));
    const QStringList done = linesStartingWith(m_session, QStringLiteral("array done "));
    QCOMPARE(done.size(), 1);
    QVERIFY2(QRegularExpression(QStringLiteral("^2999 copies, (\\d+) of \\1 batches on the main thread, "
                                               "work on a pool thread: yes$"))
                 .match(done.first()).hasMatch(), qPrintable(done.first()));
    // The array's copies were in the drawing before undo removed them in one step.
    QVERIFY(m_session.contains(QStringLiteral("dump 3006 entities")));
    QVERIFY(m_session.contains(QStringLiteral("dump 7 entities")));
}

void tst_Sketchpad::screenshotIsSaved()
{
    const QString path = m_dir.filePath(QStringLiteral("session.png"));
    QVERIFY(m_session.contains(QStringLiteral("screenshot ") + path));
    const QImage image(path);
    QVERIFY(!image.isNull());
    QVERIFY(image.width() >= 800 && image.height() >= 600);
}

QString tst_Sketchpad::writeScript(const QString& name, const QString& text)
{
    const QString path = m_dir.filePath(name);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text) || file.write(text.toUtf8()) != text.toUtf8().size())
        return QString();
    return path;
}

void tst_Sketchpad::keysAndTextReachTheFocusedWidget()
{
    const QString script = writeScript(QStringLiteral("keys.script"),
                                       QStringLiteral("text circle 5,5 2\nkey Return\n"
                                                      "text line\nkey Return\ntype 0,0\nkey Escape\n"
                                                      "pause 20\nwait\ntype dump\n"));
    QVERIFY(!script.isEmpty());
    const QStringList output = run(script);
    QVERIFY2(output.contains(QStringLiteral("script end, 0 failed steps")), qPrintable(output.join(QLatin1Char('\n'))));
    QVERIFY(output.contains(QStringLiteral("end line cancelled")));
    QCOMPARE(lastDump(output).size(), 1);
    QVERIFY(lastDump(output).first().contains(QLatin1String("circle")));
}

void tst_Sketchpad::failingStepSaysWhy_data()
{
    QTest::addColumn<QString>("step");
    QTest::addColumn<QString>("reason");
    QTest::newRow("unknown step") << QStringLiteral("jump 3") << QStringLiteral("unknown step \"jump\"");
    QTest::newRow("unknown key") << QStringLiteral("key Sideways")
                                 << QStringLiteral("\"Sideways\" is not one key such as Tab, Escape or Ctrl+Shift+P");
    QTest::newRow("two keys") << QStringLiteral("key Ctrl+A, Ctrl+B")
                              << QStringLiteral("\"Ctrl+A, Ctrl+B\" is not one key such as Tab, Escape or Ctrl+Shift+P");
    QTest::newRow("bad pause") << QStringLiteral("pause soon") << QStringLiteral("pause takes milliseconds, not \"soon\"");
    QTest::newRow("no action") << QStringLiteral("menu ID_NOWHERE") << QStringLiteral("no entry for action \"ID_NOWHERE\"");
    QTest::newRow("bad click") << QStringLiteral("click 3") << QStringLiteral("expected drawing coordinates X,Y, not \"3\"");
    QTest::newRow("no field") << QStringLiteral("set ID_DRAW_LINE 3") << QStringLiteral("no field for action \"ID_DRAW_LINE\"");
    QTest::newRow("empty text") << QStringLiteral("text") << QStringLiteral("text needs the characters to type");
}

void tst_Sketchpad::failingStepSaysWhy()
{
    QFETCH(QString, step);
    QFETCH(QString, reason);
    const QString script = writeScript(QStringLiteral("failing.script"), QStringLiteral("# one bad step\n") + step + QLatin1Char('\n'));
    QVERIFY(!script.isEmpty());
    const QStringList output = run(script);
    QCOMPARE(output.value(0), QStringLiteral("sketchpad failed"));
    QVERIFY2(output.contains(QStringLiteral("script error at line 2: %1: %2").arg(step, reason)),
             qPrintable(output.join(QLatin1Char('\n'))));
    QVERIFY(output.contains(QStringLiteral("script end, 1 failed steps")));
}

// The demonstration is recorded as a transcript of commands and answers; replaying the
// transcript draws the same part, with the same entity numbers, layers and widths.
void tst_Sketchpad::recordedDemoReplaysToTheSameDrawing()
{
    const QString transcript = m_dir.filePath(QStringLiteral("demo.transcript"));
    const QStringList recorded = run(QStringLiteral(SKETCHPAD_DEMO_SCRIPT), QString(),
                                     {QStringLiteral("--record"), transcript});
    QVERIFY(recorded.contains(QStringLiteral("script end, 0 failed steps")));
    QFile file(transcript);
    QVERIFY(file.open(QIODevice::ReadOnly | QIODevice::Text));
    const QString text = QString::fromUtf8(file.readAll());
    QVERIFY(text.startsWith(QLatin1String("# input transcript, version 1\n")));
    QVERIFY(text.contains(QLatin1String("run clayer\n1 text Outline\ndone\n")));
    QVERIFY(text.contains(QLatin1String("run copy\n1 entities 2\n1 enter\n")));

    const QStringList replayed = run(transcript);
    QVERIFY2(replayed.contains(QStringLiteral("script end, 0 failed steps")), qPrintable(replayed.join(QLatin1Char('\n'))));
    QVERIFY(replayed.contains(QStringLiteral("replay rectangle")));
    QVERIFY(!lastDump(recorded).isEmpty());
    QCOMPARE(lastDump(replayed), lastDump(recorded));
}

void tst_Sketchpad::failingReplaySaysWhy_data()
{
    QTest::addColumn<QString>("transcript");
    QTest::addColumn<QString>("failure");
    const QString head = QStringLiteral("# input transcript, version 1\n");
    QTest::newRow("refused step") << head + "run circle\n1 point 0,0\n2 number -4\ndone\n"
                                  << "script error at line 2: run circle refused its step 2";
    QTest::newRow("too few steps") << head + "run line\n1 point 0,0\ndone\n"
                                   << "script error at line 2: run line did not end with its steps";
    QTest::newRow("unknown command") << head + "run lnie\ndone\n" << "script error at line 2: run lnie cannot be posted";
    QTest::newRow("bad line") << head + "2 enter\n" << "script error: %1:2: a step without a run before it";
}

void tst_Sketchpad::failingReplaySaysWhy()
{
    QFETCH(QString, transcript);
    QFETCH(QString, failure);
    const QString path = writeScript(QStringLiteral("failing.transcript"), transcript);
    QVERIFY(!path.isEmpty());
    const QStringList output = run(path);
    QCOMPARE(output.value(0), QStringLiteral("sketchpad failed"));
    QVERIFY2(output.contains(failure.contains(QLatin1String("%1")) ? failure.arg(path) : failure),
             qPrintable(output.join(QLatin1Char('\n'))));
    QVERIFY(output.contains(QStringLiteral("script end, 1 failed steps")));
}

// Tab completes and then steps through the candidates, Up recalls earlier lines, Return
// enters, Esc cancels; typed points may be polar.
void tst_Sketchpad::commandLineKeys()
{
    const QString script = writeScript(QStringLiteral("keys2.script"), QStringLiteral(
        "text LI\nkey Tab\nkey Tab\nkey Return\n"
        "type 0,0\ntext @20<45\nkey Return\nkey Return\n"
        "key Up\nkey Up\nkey Down\nkey Up\nkey Up\nkey Return\nkey Escape\npause 20\nwait\n"
        "text zo\nkey Tab\nkey Return\ntext ex\nkey Tab\nkey Return\n"
        "type dump\n"));
    QVERIFY(!script.isEmpty());
    const QStringList output = run(script);
    QVERIFY2(output.contains(QStringLiteral("script end, 0 failed steps")), qPrintable(output.join(QLatin1Char('\n'))));
    QVERIFY(output.contains(QStringLiteral("| li  line  list")));
    QCOMPARE(linesStartingWith(output, QStringLiteral("run ")),
             (QStringList{QStringLiteral("line"), QStringLiteral("line"), QStringLiteral("cancel"), QStringLiteral("zoom"),
                          QStringLiteral("dump")}));
    QVERIFY(output.contains(QStringLiteral("| Specify next point or [Undo]: @20<45")));
    QVERIFY(output.contains(QStringLiteral("end line cancelled")));
    QVERIFY(output.contains(QStringLiteral("| Zoom [In/Out/Extents/Window/Previous]: Extents")));
    QCOMPARE(lastDump(output), QStringList{QStringLiteral("entity #1 line layer=0 width=0.25 0,0 14.142,14.142")});
}

void tst_Sketchpad::namesAliasesAndHelp()
{
    const QString script = writeScript(QStringLiteral("names.script"), QStringLiteral(
        "type l 1,1 2,2\ntype\ntype LINE 5,5 6,6\ntype\ntype C 0,0\ntype\ntype pol\ntype\ntype 0,0\ntype 5\n"
        "type lnie\ntype zzzz\ntype help\ntype help L\ntype dump\n"));
    QVERIFY(!script.isEmpty());
    const QStringList output = run(script);
    QVERIFY2(output.contains(QStringLiteral("script end, 0 failed steps")), qPrintable(output.join(QLatin1Char('\n'))));
    QVERIFY(output.contains(QStringLiteral("| Unknown command \"lnie\". Did you mean line? Type help for a list.")));
    QVERIFY(output.contains(QStringLiteral("| Unknown command \"zzzz\". Type help for a list.")));
    QVERIFY(output.contains(QStringLiteral("| Commands, with their aliases:")));
    QVERIFY(!linesStartingWith(output, QStringLiteral("|   circle (c)")).isEmpty());
    QVERIFY(output.contains(QStringLiteral("| line asks for:")));
    // Enter takes the default that a prompt shows, and cancels where there is none.
    QVERIFY(output.contains(QStringLiteral("end circle cancelled")));
    QVERIFY(output.contains(QStringLiteral("| Enter number of sides <4>: 4")));
    QCOMPARE(lastDump(output), (QStringList{QStringLiteral("entity #1 line layer=0 width=0.25 1,1 2,2"),
                                            QStringLiteral("entity #2 line layer=0 width=0.25 5,5 6,6"),
                                            QStringLiteral("entity #3 polygon layer=0 width=0.25 0,5 -5,0 0,-5 5,0")}));
}

void tst_Sketchpad::polylinePreviewGrows()
{
    const QString script = writeScript(QStringLiteral("preview.script"), QStringLiteral(
        "type polyline\ntype 0,0\ntype 10,0\ntype @0,10\ntype u\ntype 20,20\ntype\ntype dump\n"));
    QVERIFY(!script.isEmpty());
    const QStringList output = run(script);
    QVERIFY2(output.contains(QStringLiteral("script end, 0 failed steps")), qPrintable(output.join(QLatin1Char('\n'))));
    QCOMPARE(linesStartingWith(output, QStringLiteral("preview ")),
             (QStringList{QStringLiteral("0,0"), QStringLiteral("0,0 10,0"), QStringLiteral("0,0 10,0 10,10"),
                          QStringLiteral("0,0 10,0"), QStringLiteral("0,0 10,0 20,20")}));
    QCOMPARE(lastDump(output), QStringList{QStringLiteral("entity #1 polyline layer=0 width=0.25 0,0 10,0 20,20")});
}

QTEST_GUILESS_MAIN(tst_Sketchpad)
#include "tst_sketchpad.moc"
