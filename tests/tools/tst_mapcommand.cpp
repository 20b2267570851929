#include "CsToolProcess.h"

#include <QTemporaryDir>
#include <QtTest>

// cstool map: writes a template directory's ".map" and checks it for CI.
class tst_MapCommand : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void writesTheMap();
    void writtenMapPassesTheSchema();
    void checkAcceptsACurrentMap();
    void checkReportsAMissingMap();
    void checkReportsAStaleMap();
    void checkWritesNothing();
    void usageErrors_data();
    void usageErrors();

private:
    QString mapPath() const;

    QScopedPointer<QTemporaryDir> temp;
    QString dir;
};

void tst_MapCommand::init()
{
    temp.reset(new QTemporaryDir);
    QVERIFY(temp->isValid());
    dir = temp->filePath(QStringLiteral("templates"));
    QVERIFY(CsToolProcess::writeFile(dir + QStringLiteral("/shapes.tcmd"),
                                     "<templates>\n  <template name=\"circle\"/>\n"
                                     "  <template name=\"arc\"/>\n</templates>\n"));
    QVERIFY(CsToolProcess::writeFile(dir + QStringLiteral("/line.tcmd"),
                                     "<templates>\n  <template name=\"line\"/>\n</templates>\n"));
}

QString tst_MapCommand::mapPath() const
{
    return dir + QStringLiteral("/.map");
}

void tst_MapCommand::writesTheMap()
{
    CsToolProcess tool;
    RUN_CSTOOL(tool, {QStringLiteral("map"), dir});
    QCOMPARE(tool.exitCode, 0);
    QCOMPARE(tool.outLines(), QStringList(mapPath() + QStringLiteral(": wrote 2 entries")));
    const QByteArray map = CsToolProcess::readFile(mapPath());
    QVERIFY(map.contains("<map key=\"arc\" value=\"shapes.tcmd\"/>"));
    QVERIFY(map.contains("<map key=\"circle\" value=\"shapes.tcmd\"/>"));
    QVERIFY(!map.contains("line"));
}

void tst_MapCommand::writtenMapPassesTheSchema()
{
    if (QStringLiteral(CS_XMLLINT).isEmpty())
        QSKIP("xmllint is not installed");
    CsToolProcess tool;
    RUN_CSTOOL(tool, {QStringLiteral("map"), dir});
    QCOMPARE(tool.exitCode, 0);
    const int result = QProcess::execute(QStringLiteral(CS_XMLLINT),
                                         {QStringLiteral("--noout"), QStringLiteral("--schema"),
                                          QStringLiteral(CS_SCHEMA_DIR "/map.xsd"), mapPath()});
    QCOMPARE(result, 0);
}

void tst_MapCommand::checkAcceptsACurrentMap()
{
    CsToolProcess tool;
    RUN_CSTOOL(tool, {QStringLiteral("map"), dir});
    RUN_CSTOOL(tool, {QStringLiteral("map"), QStringLiteral("--check"), dir});
    QCOMPARE(tool.exitCode, 0);
    QCOMPARE(tool.outLines(), QStringList(mapPath() + QStringLiteral(": current (2 entries)")));
}

void tst_MapCommand::checkReportsAMissingMap()
{
    CsToolProcess tool;
    RUN_CSTOOL(tool, {QStringLiteral("map"), QStringLiteral("--check"), dir});
    QCOMPARE(tool.exitCode, 1);
    QCOMPARE(tool.outLines(), QStringList(mapPath() + QStringLiteral(": missing (2 entries expected)")));
}

void tst_MapCommand::checkReportsAStaleMap()
{
    CsToolProcess tool;
    RUN_CSTOOL(tool, {QStringLiteral("map"), dir});
    QVERIFY(CsToolProcess::writeFile(dir + QStringLiteral("/edit.tcmd"),
                                     "<templates>\n  <template name=\"move\"/>\n</templates>\n"));
    RUN_CSTOOL(tool, {QStringLiteral("map"), QStringLiteral("--check"), dir});
    QCOMPARE(tool.exitCode, 1);
    QCOMPARE(tool.outLines(),
             QStringList(mapPath() + QStringLiteral(": stale, run 'cstool map %1'").arg(dir)));
    RUN_CSTOOL(tool, {QStringLiteral("map"), dir});
    QCOMPARE(tool.outLines(), QStringList(mapPath() + QStringLiteral(": wrote 3 entries")));
    RUN_CSTOOL(tool, {QStringLiteral("map"), QStringLiteral("--check"), dir});
    QCOMPARE(tool.exitCode, 0);
}

void tst_MapCommand::checkWritesNothing()
{
    CsToolProcess tool;
    RUN_CSTOOL(tool, {QStringLiteral("map"), QStringLiteral("--check"), dir});
    QVERIFY(!QFile::exists(mapPath()));
}

void tst_MapCommand::usageErrors_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("message");
    QTest::newRow("no directory") << QStringList() << "cstool map: no DIR given";
    QTest::newRow("missing directory") << QStringList({QStringLiteral("/nonexistent")})
                                       << "cstool map: /nonexistent: not a directory";
    QTest::newRow("a file") << QStringList({QStringLiteral(CSTOOL_PATH)}) << "not a directory";
}

void tst_MapCommand::usageErrors()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, message);
    CsToolProcess tool;
    RUN_CSTOOL(tool, QStringList(QStringLiteral("map")) + arguments);
    QCOMPARE(tool.exitCode, 2);
    QVERIFY2(tool.err.contains(message), qPrintable(tool.err));
}

QTEST_GUILESS_MAIN(tst_MapCommand)
#include "tst_mapcommand.moc"
