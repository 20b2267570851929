#include "CsToolProcess.h"

#include <CommandSystem/Action.h>
#include <CommandSystem/ActionPool.h>

#include <QImage>
#include <QTemporaryDir>
#include <QtTest>

using namespace Talvir::Vexa::Cs;

// cstool ui: UI definition files loaded into an action pool, listed, and saved back.
class tst_UiCommand : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void listsActionsWithTheirIcons();
    void directoryStandsForItsFiles();
    void iconsDefaultToTheFolderBesideTheFiles();
    void failedLoadFails();
    void saveWritesThePool();
    void saveToAnUnwritablePathFails();
    void saveWriteErrorFails();
    void usageErrors_data();
    void usageErrors();

private:
    QTemporaryDir temp;
    QString icons;
    QString file;
};

void tst_UiCommand::initTestCase()
{
    QVERIFY(temp.isValid());
    icons = temp.filePath(QStringLiteral("icons"));
    QVERIFY(QDir().mkpath(icons));
    QImage image(16, 16, QImage::Format_ARGB32);
    image.fill(Qt::darkGreen);
    QVERIFY(image.save(icons + QStringLiteral("/line.png")));
    file = temp.filePath(QStringLiteral("ui/draw.xcui"));
    QVERIFY(CsToolProcess::writeFile(file,
        "<Actions name=\"Vexa\" version=\"1700\">\n"
        "  <Action name=\"ID_LINE\" type=\"plain\"><Text><Ribbon>Line</Ribbon><Menu>Line</Menu></Text>"
        "<Icon>line</Icon><Script>line</Script></Action>\n"
        "  <Action name=\"ID_GRID\" type=\"toggle\"><Script>Grid</Script><Checked>true</Checked></Action>\n"
        "  <Action name=\"ID_LAYER\" type=\"widget\"><Script>layer</Script><Widget>LayerCombo</Widget>"
        "<Mapper>LayerMapper</Mapper></Action>\n"
        "  <Action name=\"ID_GONE\" type=\"plain\"><Icon>gone</Icon><Script>gone</Script></Action>\n"
        "  <Action name=\"ID_FUTURE\" type=\"plain\"><Script>future</Script><MinWinVer>99.0</MinWinVer></Action>\n"
        "</Actions>\n"));
}

void tst_UiCommand::listsActionsWithTheirIcons()
{
    CsToolProcess tool;
    RUN_CSTOOL(tool, {QStringLiteral("ui"), QStringLiteral("--icons"), icons, file});
    QVERIFY2(tool.exitCode == 0, qPrintable(tool.err));
    const QStringList expected = {
        file + QStringLiteral(": ID_FUTURE dropped by MinWinVer"),
        QStringLiteral("name      type    script  icon"),
        QStringLiteral("ID_GONE   plain   gone    missing (gone)"),
        QStringLiteral("ID_GRID   toggle  Grid    -"),
        QStringLiteral("ID_LAYER  widget  layer   -"),
        QStringLiteral("ID_LINE   plain   line    resolved (line)"),
        QStringLiteral("4 action(s), 1 icon(s) missing, 1 dropped by MinWinVer")};
    QCOMPARE(tool.outLines(), expected);
}

void tst_UiCommand::directoryStandsForItsFiles()
{
    QVERIFY(CsToolProcess::writeFile(temp.filePath(QStringLiteral("ui/edit.xcui")),
                                     "<Actions><Action name=\"ID_MOVE\" type=\"plain\">"
                                     "<Script>move</Script></Action></Actions>\n"));
    CsToolProcess tool;
    RUN_CSTOOL(tool, {QStringLiteral("ui"), temp.filePath(QStringLiteral("ui"))});
    QCOMPARE(tool.exitCode, 0);
    QVERIFY(tool.out.contains(QLatin1String("\nID_MOVE ")));
    QVERIFY(tool.out.contains(QLatin1String("ID_LINE   plain   line    missing (line)")));
    QVERIFY(tool.out.endsWith(QLatin1String("5 action(s), 2 icon(s) missing, 1 dropped by MinWinVer\n")));
    QFile::remove(temp.filePath(QStringLiteral("ui/edit.xcui")));
}

void tst_UiCommand::iconsDefaultToTheFolderBesideTheFiles()
{
    const QString beside = temp.filePath(QStringLiteral("ui/icons"));
    QVERIFY(QDir().mkpath(beside));
    QVERIFY(QFile::copy(icons + QStringLiteral("/line.png"), beside + QStringLiteral("/line.png")));
    CsToolProcess tool;
    RUN_CSTOOL(tool, {QStringLiteral("ui"), file});
    QDir(beside).removeRecursively();
    QCOMPARE(tool.exitCode, 0);
    QVERIFY2(tool.out.contains(QLatin1String("ID_LINE   plain   line    resolved (line)")), qPrintable(tool.out));
    QVERIFY(tool.out.contains(QLatin1String("ID_GONE   plain   gone    missing (gone)")));
}

void tst_UiCommand::failedLoadFails()
{
    const QString broken = temp.filePath(QStringLiteral("broken.xcui"));
    QVERIFY(CsToolProcess::writeFile(broken, "<Action name=\"ID_A\"/>\n"));
    CsToolProcess tool;
    RUN_CSTOOL(tool, {QStringLiteral("ui"), file, broken});
    QCOMPARE(tool.exitCode, 1);
    QVERIFY2(tool.err.contains(QStringLiteral("cstool ui: %1: failed to load").arg(broken)),
             qPrintable(tool.err));
    QVERIFY(tool.out.contains(QLatin1String("4 action(s)")));
}

void tst_UiCommand::saveWritesThePool()
{
    const QString saved = temp.filePath(QStringLiteral("saved.xcui"));
    CsToolProcess tool;
    RUN_CSTOOL(tool, {QStringLiteral("ui"), QStringLiteral("--icons"), icons, file,
                      QStringLiteral("--save"), saved});
    QCOMPARE(tool.exitCode, 0);
    QVERIFY(tool.out.endsWith(saved + QStringLiteral(": saved 4 action(s)\n")));
    ActionPool pool;
    QVERIFY(pool.load(saved));
    QCOMPARE(pool.actions().size(), 4);
    const Action* grid = pool.action(QStringLiteral("ID_GRID"));
    QVERIFY(grid);
    QCOMPARE(grid->type(), QStringLiteral("toggle"));
    QVERIFY(grid->isChecked());
    QCOMPARE(pool.action(QStringLiteral("ID_LAYER"))->mapper(), QStringLiteral("LayerMapper"));
    QCOMPARE(pool.action(QStringLiteral("ID_LINE"))->menuText(), QStringLiteral("Line"));
    if (!QStringLiteral(CS_XMLLINT).isEmpty()) {
        QCOMPARE(QProcess::execute(QStringLiteral(CS_XMLLINT),
                                   {QStringLiteral("--noout"), QStringLiteral("--schema"),
                                    QStringLiteral(CS_SCHEMA_DIR "/xcui.xsd"), saved}),
                 0);
    }
}

void tst_UiCommand::saveToAnUnwritablePathFails()
{
    const QString target = temp.filePath(QStringLiteral("missing/dir/out.xcui"));
    CsToolProcess tool;
    RUN_CSTOOL(tool, {QStringLiteral("ui"), file, QStringLiteral("--save"), target});
    QCOMPARE(tool.exitCode, 1);
    QVERIFY2(tool.err.contains(QStringLiteral("cstool ui: %1: cannot write").arg(target)), qPrintable(tool.err));
    QVERIFY(!QFile::exists(target));
}

// /dev/full opens fine and fails every write: the case ActionPool::save reports as true.
void tst_UiCommand::saveWriteErrorFails()
{
    if (!QFile::exists(QStringLiteral("/dev/full")))
        QSKIP("this system has no /dev/full");
    CsToolProcess tool;
    RUN_CSTOOL(tool, {QStringLiteral("ui"), file, QStringLiteral("--save"), QStringLiteral("/dev/full")});
    QCOMPARE(tool.exitCode, 1);
    QVERIFY2(tool.err.contains(QLatin1String("cstool ui: /dev/full: writing failed")), qPrintable(tool.err));
}

void tst_UiCommand::usageErrors_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("message");
    QTest::newRow("no path") << QStringList() << "cstool ui: no PATH given";
    QTest::newRow("missing file") << QStringList({QStringLiteral("/nonexistent.xcui")})
                                  << "cstool ui: /nonexistent.xcui: no such file or directory";
    QTest::newRow("template file") << QStringList({QStringLiteral(CS_TEST_DATA_DIR "/schemas/valid/empty.tcmd")})
                                   << "not a .xcui file";
    QTest::newRow("missing icon directory")
        << QStringList({QStringLiteral("--icons"), QStringLiteral("/nonexistent"), QStringLiteral(".")})
        << "cstool ui: /nonexistent: no such icon directory";
}

void tst_UiCommand::usageErrors()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, message);
    CsToolProcess tool;
    RUN_CSTOOL(tool, QStringList(QStringLiteral("ui")) + arguments);
    QCOMPARE(tool.exitCode, 2);
    QVERIFY2(tool.err.contains(message), qPrintable(tool.err));
}

QTEST_MAIN(tst_UiCommand)
#include "tst_uicommand.moc"
