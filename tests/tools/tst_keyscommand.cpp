#include "CsToolProcess.h"

#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

// cstool keys: the conflict checks over catalogue files, findings on standard error.
class tst_KeysCommand : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanFilesPass();
    void findingsAreReportedWithTheirPlaces();
    void warningsAloneDoNotFail();
    void laterKeymapReplacesEarlier();
    void directoryStandsForItsFiles();
    void brokenFileIsAnError();
    void usageErrors_data();
    void usageErrors();

private:
    QTemporaryDir temp;
};

void tst_KeysCommand::initTestCase()
{
    QVERIFY(temp.isValid());
    QVERIFY(CsToolProcess::writeFile(temp.filePath(QStringLiteral("cat/ui/home.xcui")),
        "<Actions name=\"Vexa\" version=\"1700\">\n"
        "  <Action name=\"ID_LINE\" type=\"plain\"><Script>line</Script></Action>\n"
        "  <Action name=\"ID_MOVE\" type=\"plain\"><Script>move</Script></Action>\n"
        "  <Action name=\"ID_ERASE\" type=\"plain\"><Script>erase</Script></Action>\n"
        "</Actions>\n"));
    QVERIFY(CsToolProcess::writeFile(temp.filePath(QStringLiteral("cat/ui/default.keymap")),
        "<keymap version=\"1\">\n"
        "  <shortcut action=\"ID_LINE\">Ctrl+L</shortcut>\n"
        "  <shortcut action=\"ID_ERASE\">Del</shortcut>\n"
        "</keymap>\n"));
    QVERIFY(CsToolProcess::writeFile(temp.filePath(QStringLiteral("cat/templates/erase.tcmd")),
        "<templates>\n"
        "  <template name=\"erase\"><parameters><parameter luid=\"1\" type=\"entity\">\n"
        "    <property name=\"options\">a:All;l:Last</property>\n"
        "  </parameter></parameters></template>\n"
        "</templates>\n"));
    QVERIFY(CsToolProcess::writeFile(temp.filePath(QStringLiteral("cat/commands.aliases")),
                                     "l line\nm move\n"));
}

void tst_KeysCommand::cleanFilesPass()
{
    CsToolProcess tool;
    RUN_CSTOOL(tool, {QStringLiteral("keys"), QStringLiteral("ui/home.xcui"), QStringLiteral("ui/default.keymap"),
                      QStringLiteral("templates/erase.tcmd"), QStringLiteral("commands.aliases")},
               temp.filePath(QStringLiteral("cat")));
    QCOMPARE(tool.exitCode, 0);
    QVERIFY2(!tool.err.contains(QRegularExpression(QStringLiteral(": (error|warning): "))), qPrintable(tool.err));
    QCOMPARE(tool.outLines(), QStringList(QStringLiteral("4 file(s) checked, 0 error(s), 0 warning(s)")));
}

void tst_KeysCommand::findingsAreReportedWithTheirPlaces()
{
    QVERIFY(CsToolProcess::writeFile(temp.filePath(QStringLiteral("cat/bad/edit.tcmd")),
        "<templates><template name=\"copy\"><parameters>\n"
        "<parameter luid=\"2\" type=\"option\"><property name=\"options\">m:Multiple;M:Mode</property></parameter>\n"
        "</parameters></template></templates>\n"));
    QVERIFY(CsToolProcess::writeFile(temp.filePath(QStringLiteral("cat/bad/user.keymap")),
        "<keymap version=\"1\">\n"
        "    <shortcut action=\"ID_MOVE\">Ctrl+L</shortcut>\n"
        "    <shortcut action=\"ID_ERASE\">E</shortcut>\n"
        "</keymap>\n"));
    QVERIFY(CsToolProcess::writeFile(temp.filePath(QStringLiteral("cat/bad/user.aliases")), "move copy\n"));
    CsToolProcess tool;
    RUN_CSTOOL(tool, {QStringLiteral("keys"), QStringLiteral("ui"), QStringLiteral("templates"),
                      QStringLiteral("commands.aliases"), QStringLiteral("bad/edit.tcmd"),
                      QStringLiteral("bad/user.keymap"), QStringLiteral("bad/user.aliases")},
               temp.filePath(QStringLiteral("cat")));
    QCOMPARE(tool.exitCode, 1);
    const QStringList expected = {
        QStringLiteral("bad/edit.tcmd:2:35: error: option key \"M\" is given twice in the options of parameter 2 of \"copy\": \"m:Multiple;M:Mode\""),
        QStringLiteral("bad/user.keymap:2:5: error: Ctrl+L is the shortcut of both ID_MOVE and ID_LINE (ui/default.keymap:2:3)"),
        QStringLiteral("bad/user.keymap:3:5: warning: the single key E of ID_ERASE takes the first letter of the typed command or alias \"erase\""),
        QStringLiteral("bad/user.aliases:1:1: error: alias \"move\" for \"copy\" has the name of the command \"move\" (ui/home.xcui:3:3)")};
    // Qt may add messages of its own about the environment.
    const QStringList findings = tool.err.split(QLatin1Char('\n'), Qt::SkipEmptyParts)
                                     .filter(QRegularExpression(QStringLiteral(": (error|warning): ")));
    QCOMPARE(findings, expected);
    QCOMPARE(tool.outLines(), QStringList(QStringLiteral("7 file(s) checked, 3 error(s), 1 warning(s)")));
}

void tst_KeysCommand::warningsAloneDoNotFail()
{
    QVERIFY(CsToolProcess::writeFile(temp.filePath(QStringLiteral("cat/warn/user.keymap")),
        "<keymap version=\"1\">\n"
        "    <shortcut action=\"ID_GONE\">F4</shortcut>\n"
        "</keymap>\n"));
    CsToolProcess tool;
    RUN_CSTOOL(tool, {QStringLiteral("keys"), QStringLiteral("ui"), QStringLiteral("warn/user.keymap")},
               temp.filePath(QStringLiteral("cat")));
    QCOMPARE(tool.exitCode, 0);
    QVERIFY2(tool.err.contains(QLatin1String("warn/user.keymap:2:5: warning: ID_GONE is not an action of the UI definitions; "
                                             "its shortcut F4 has no effect")), qPrintable(tool.err));
    QCOMPARE(tool.outLines(), QStringList(QStringLiteral("3 file(s) checked, 0 error(s), 1 warning(s)")));
}

void tst_KeysCommand::laterKeymapReplacesEarlier()
{
    QVERIFY(CsToolProcess::writeFile(temp.filePath(QStringLiteral("cat/swap/user.keymap")),
        "<keymap version=\"1\">\n"
        "    <none action=\"ID_LINE\"/>\n"
        "    <shortcut action=\"ID_MOVE\">Ctrl+L</shortcut>\n"
        "</keymap>\n"));
    CsToolProcess tool;
    RUN_CSTOOL(tool, {QStringLiteral("keys"), QStringLiteral("ui/default.keymap"), QStringLiteral("swap/user.keymap"),
                      QStringLiteral("ui/home.xcui")},
               temp.filePath(QStringLiteral("cat")));
    QCOMPARE(tool.exitCode, 0);
    QCOMPARE(tool.outLines(), QStringList(QStringLiteral("3 file(s) checked, 0 error(s), 0 warning(s)")));
    RUN_CSTOOL(tool, {QStringLiteral("keys"), QStringLiteral("swap/user.keymap"), QStringLiteral("ui/default.keymap"),
                      QStringLiteral("ui/home.xcui")},
               temp.filePath(QStringLiteral("cat")));
    QCOMPARE(tool.exitCode, 1);
    QVERIFY2(tool.err.contains(QLatin1String("ui/default.keymap:2:3: error: Ctrl+L is the shortcut of both ID_LINE and ID_MOVE")),
             qPrintable(tool.err));
}

void tst_KeysCommand::directoryStandsForItsFiles()
{
    CsToolProcess tool;
    RUN_CSTOOL(tool, {QStringLiteral("keys"), temp.filePath(QStringLiteral("cat/ui"))});
    QCOMPARE(tool.exitCode, 0);
    QCOMPARE(tool.outLines(), QStringList(QStringLiteral("2 file(s) checked, 0 error(s), 0 warning(s)")));
}

void tst_KeysCommand::brokenFileIsAnError()
{
    QVERIFY(CsToolProcess::writeFile(temp.filePath(QStringLiteral("cat/broken/user.keymap")),
        "<keymap version=\"1\">\n"
        "    <shortcut action=\"ID_MOVE\">Ctrl+Banana</shortcut>\n"
        "</keymap>\n"));
    CsToolProcess tool;
    RUN_CSTOOL(tool, {QStringLiteral("keys"), QStringLiteral("broken/user.keymap")}, temp.filePath(QStringLiteral("cat")));
    QCOMPARE(tool.exitCode, 1);
    QVERIFY2(tool.err.contains(QLatin1String("broken/user.keymap:2:5: error: Not a key: \"Ctrl+Banana\"")), qPrintable(tool.err));
    QCOMPARE(tool.outLines(), QStringList(QStringLiteral("1 file(s) checked, 1 error(s), 0 warning(s)")));
}

void tst_KeysCommand::usageErrors_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("message");
    QTest::newRow("no file") << QStringList() << "cstool keys: no FILE given";
    QTest::newRow("missing file") << QStringList{QStringLiteral("nothing.keymap")} << "cstool keys: nothing.keymap: no such file or directory";
    QTest::newRow("other suffix") << QStringList{QStringLiteral("commands.txt")} << "cstool keys: commands.txt: not a .xcui, .tcmd, .aliases or .keymap file";
}

void tst_KeysCommand::usageErrors()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, message);
    QVERIFY(CsToolProcess::writeFile(temp.filePath(QStringLiteral("cat/commands.txt")), "l line\n"));
    CsToolProcess tool;
    RUN_CSTOOL(tool, QStringList(QStringLiteral("keys")) + arguments, temp.filePath(QStringLiteral("cat")));
    QCOMPARE(tool.exitCode, 2);
    QVERIFY2(tool.err.contains(message), qPrintable(tool.err));
    QVERIFY(tool.out.isEmpty());
}

QTEST_GUILESS_MAIN(tst_KeysCommand)
#include "tst_keyscommand.moc"
