#include "CsToolProcess.h"

#include <QtTest>

// The program level of cstool: overview, version, help of each sub-command, usage errors.
class tst_Program : public QObject
{
    Q_OBJECT

private slots:
    void helpListsEveryCommand();
    void versionPrintsTheProjectVersion();
    void noCommandIsAUsageError();
    void unknownCommandIsAUsageError();
    void unknownOptionIsAUsageError();
    void helpOfHelp();
    void commandHelp_data();
    void commandHelp();
};

namespace {
QStringList commandNames()
{
    return {QStringLiteral("validate"), QStringLiteral("map"), QStringLiteral("list"),
            QStringLiteral("show"), QStringLiteral("ui"), QStringLiteral("tr"), QStringLiteral("keys")};
}
} // namespace

void tst_Program::helpListsEveryCommand()
{
    CsToolProcess tool;
    RUN_CSTOOL(tool, {QStringLiteral("--help")});
    QCOMPARE(tool.exitCode, 0);
    for (const QString& name : commandNames())
        QVERIFY2(tool.out.contains(QLatin1String("\n  ") + name + QLatin1Char(' ')), qPrintable(name));
    RUN_CSTOOL(tool, {QStringLiteral("help")});
    QCOMPARE(tool.exitCode, 0);
    QVERIFY(tool.out.contains(QLatin1String("Commands:")));
}

void tst_Program::versionPrintsTheProjectVersion()
{
    CsToolProcess tool;
    RUN_CSTOOL(tool, {QStringLiteral("--version")});
    QCOMPARE(tool.exitCode, 0);
    QCOMPARE(tool.out.trimmed(), QStringLiteral("cstool " CS_PROJECT_VERSION));
}

void tst_Program::noCommandIsAUsageError()
{
    CsToolProcess tool;
    RUN_CSTOOL(tool, {});
    QCOMPARE(tool.exitCode, 2);
    QVERIFY(tool.err.contains(QLatin1String("no command given")));
    QVERIFY(tool.out.isEmpty());
}

void tst_Program::unknownCommandIsAUsageError()
{
    CsToolProcess tool;
    RUN_CSTOOL(tool, {QStringLiteral("compile")});
    QCOMPARE(tool.exitCode, 2);
    QVERIFY(tool.err.contains(QLatin1String("unknown command 'compile'")));
    RUN_CSTOOL(tool, {QStringLiteral("help"), QStringLiteral("compile")});
    QCOMPARE(tool.exitCode, 2);
}

void tst_Program::unknownOptionIsAUsageError()
{
    CsToolProcess tool;
    RUN_CSTOOL(tool, {QStringLiteral("map"), QStringLiteral("--force"), QStringLiteral(".")});
    QCOMPARE(tool.exitCode, 2);
    QVERIFY(tool.err.contains(QLatin1String("cstool map: Unknown option 'force'")));
    QVERIFY(tool.err.contains(QLatin1String("cstool map --help")));
}

void tst_Program::helpOfHelp()
{
    CsToolProcess tool;
    RUN_CSTOOL(tool, {QStringLiteral("help"), QStringLiteral("help")});
    QCOMPARE(tool.exitCode, 0);
    QVERIFY2(tool.out.startsWith(QLatin1String("Usage: cstool help [<command>]\n")), qPrintable(tool.out));
    QVERIFY(tool.err.isEmpty() || !tool.err.contains(QLatin1String("cstool")));
}

void tst_Program::commandHelp_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("option");
    QTest::newRow("validate") << "validate" << "-r, --recursive";
    QTest::newRow("map") << "map" << "--check";
    QTest::newRow("list") << "list" << "DIR...";
    QTest::newRow("show") << "show" << "--json";
    QTest::newRow("ui") << "ui" << "--save <file>";
    QTest::newRow("tr") << "tr" << "-o, --output <FILE.ts>";
    QTest::newRow("keys") << "keys" << "FILE...";
}

void tst_Program::commandHelp()
{
    QFETCH(QString, command);
    QFETCH(QString, option);
    CsToolProcess tool;
    RUN_CSTOOL(tool, {command, QStringLiteral("--help")});
    QCOMPARE(tool.exitCode, 0);
    QVERIFY2(tool.out.startsWith(QStringLiteral("Usage: cstool %1 [options]").arg(command)),
             qPrintable(tool.out));
    QVERIFY2(tool.out.contains(option), qPrintable(tool.out));
    QVERIFY(tool.out.contains(QLatin1String("Exit status:")));
    CsToolProcess viaHelp;
    RUN_CSTOOL(viaHelp, {QStringLiteral("help"), command});
    QCOMPARE(viaHelp.exitCode, 0);
    QCOMPARE(viaHelp.out, tool.out);
}

QTEST_GUILESS_MAIN(tst_Program)
#include "tst_program.moc"
