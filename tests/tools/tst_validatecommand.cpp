#include "CsToolProcess.h"

#include <QImage>
#include <QTemporaryDir>
#include <QtTest>

// cstool validate: template files through the library's validator, UI definition files through
// the strict check with FILE:LINE:COLUMN: messages.
class tst_ValidateCommand : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void validSamplesPass();
    void schemaRefusedSamplesFail_data();
    void schemaRefusedSamplesFail();
    void xcuiProblemsNameFileLineAndColumn();
    void nameDefinedInTwoFiles();
    void iconsResolveThroughIconDirectories();
    void templateMessagesComeFromTheLibrary();
    void directoryStandsForItsFiles();
    void usageErrors_data();
    void usageErrors();

private:
    QString write(const QString& name, const QByteArray& content);

    QTemporaryDir temp;
    QString icons;
};

namespace {
QString samples(const char* kind)
{
    return QStringLiteral(CS_TEST_DATA_DIR "/schemas/") + QLatin1String(kind);
}
} // namespace

void tst_ValidateCommand::initTestCase()
{
    QVERIFY(temp.isValid());
    icons = temp.filePath(QStringLiteral("icons"));
    QVERIFY(QDir().mkpath(icons));
    QImage image(16, 16, QImage::Format_ARGB32);
    image.fill(Qt::darkBlue);
    QVERIFY(image.save(icons + QStringLiteral("/line.png")));
}

QString tst_ValidateCommand::write(const QString& name, const QByteArray& content)
{
    const QString path = temp.filePath(name);
    CsToolProcess::writeFile(path, content);
    return path;
}

void tst_ValidateCommand::validSamplesPass()
{
    CsToolProcess tool;
    RUN_CSTOOL(tool, {QStringLiteral("validate"), QStringLiteral("--icons"), icons, samples("valid")});
    QVERIFY2(tool.exitCode == 0, qPrintable(tool.out + tool.err));
    QCOMPARE(tool.outLines(), QStringList(QStringLiteral("3 file(s) checked, 0 invalid")));
}

// What the schemas refuse, the validator refuses too: the two say the same vocabulary.
void tst_ValidateCommand::schemaRefusedSamplesFail_data()
{
    QTest::addColumn<QString>("file");
    const QDir dir(samples("invalid"));
    const QStringList files = dir.entryList({QStringLiteral("*.tcmd"), QStringLiteral("*.xcui")},
                                            QDir::Files, QDir::Name);
    for (const QString& file : files)
        QTest::newRow(qPrintable(file)) << dir.filePath(file);
}

void tst_ValidateCommand::schemaRefusedSamplesFail()
{
    QFETCH(QString, file);
    CsToolProcess tool;
    RUN_CSTOOL(tool, {QStringLiteral("validate"), file});
    QCOMPARE(tool.exitCode, 1);
    QVERIFY2(tool.out.endsWith(QLatin1String("1 file(s) checked, 1 invalid\n")), qPrintable(tool.out));
    QCOMPARE(tool.outLines().size(), 2);
    if (file.endsWith(QLatin1String(".xcui")))
        QVERIFY2(tool.out.startsWith(file + QLatin1Char(':')), qPrintable(tool.out));
}

void tst_ValidateCommand::xcuiProblemsNameFileLineAndColumn()
{
    const QString file = write(QStringLiteral("problems.xcui"),
                               "<Actions version=\"1700\">\n"
                               "  <Action type=\"plain\"/>\n"
                               "  <Action name=\"ID_A\" type=\"toggle\"><Checked>True</Checked></Action>\n"
                               "  <Action name=\"ID_W\" type=\"widget\"><Mapper>M</Mapper></Action>\n"
                               "  <Action name=\"ID_A\"><Icon>nowhere</Icon>\n"
                               "    <Tooltip>x</Tooltip><Script>a</Script><Script>b</Script>\n"
                               "  </Action>\n"
                               "</Actions>\n");
    CsToolProcess tool;
    RUN_CSTOOL(tool, {QStringLiteral("validate"), file});
    QCOMPARE(tool.exitCode, 1);
    const QStringList expected = {
        file + QStringLiteral(":2:3: Action without a name"),
        file + QStringLiteral(":3:3: \"Checked\" is neither \"true\" nor \"false\": True"),
        file + QStringLiteral(":4:3: widget action without \"Widget\""),
        file + QStringLiteral(":5:3: Action name defined twice: ID_A (first defined at ")
            + file + QStringLiteral(":3:3)"),
        file + QStringLiteral(":6:5: Unexpected element: Tooltip"),
        file + QStringLiteral(":6:43: Duplicate element: Script (the later one wins)"),
        file + QStringLiteral(":5:3: icon not found: nowhere"),
        QStringLiteral("1 file(s) checked, 1 invalid")};
    QCOMPARE(tool.outLines(), expected);
}

void tst_ValidateCommand::nameDefinedInTwoFiles()
{
    const QString first = write(QStringLiteral("two/a.xcui"), "<Actions><Action name=\"ID_X\"/></Actions>\n");
    const QString second = write(QStringLiteral("two/b.xcui"), "<Actions>\n<Action name=\"ID_X\"/></Actions>\n");
    CsToolProcess tool;
    RUN_CSTOOL(tool, {QStringLiteral("validate"), temp.filePath(QStringLiteral("two"))});
    QCOMPARE(tool.exitCode, 1);
    QCOMPARE(tool.outLines(),
             QStringList({second + QStringLiteral(":2:1: Action name defined twice: ID_X (first defined at ")
                              + first + QStringLiteral(":1:10)"),
                          QStringLiteral("2 file(s) checked, 1 invalid")}));
}

void tst_ValidateCommand::iconsResolveThroughIconDirectories()
{
    const QString file = write(QStringLiteral("icons.xcui"),
                               "<Actions><Action name=\"ID_LINE\"><Icon>line</Icon></Action>"
                               "<Action name=\"ID_PNG\"><Icon>line.png</Icon></Action></Actions>\n");
    CsToolProcess tool;
    RUN_CSTOOL(tool, {QStringLiteral("validate"), file});
    QCOMPARE(tool.exitCode, 1);
    QVERIFY(tool.out.contains(QLatin1String("icon not found: line\n")));
    QVERIFY(tool.out.contains(QLatin1String("icon not found: line.png\n")));
    RUN_CSTOOL(tool, {QStringLiteral("validate"), QStringLiteral("--icons"), icons, file});
    QCOMPARE(tool.exitCode, 0);
    QCOMPARE(tool.outLines(), QStringList(QStringLiteral("1 file(s) checked, 0 invalid")));
}

void tst_ValidateCommand::templateMessagesComeFromTheLibrary()
{
    const QString file = write(QStringLiteral("bad.tcmd"),
                               "<templates>\n<template name=\"a\">\n"
                               "<property name=\"no_ftr\">true</property>\n</template>\n</templates>\n");
    CsToolProcess tool;
    RUN_CSTOOL(tool, {QStringLiteral("validate"), file});
    QCOMPARE(tool.exitCode, 1);
    const QStringList lines = tool.outLines();
    QCOMPARE(lines.size(), 2);
    QVERIFY2(lines.first().startsWith(QLatin1String("An error has occurred while loading bad.tcmd at line 3")),
             qPrintable(lines.first()));
    QVERIFY(lines.first().endsWith(QLatin1String("property value error: true")));
    QCOMPARE(lines.last(), QStringLiteral("1 file(s) checked, 1 invalid"));
}

void tst_ValidateCommand::directoryStandsForItsFiles()
{
    write(QStringLiteral("dir/a.tcmd"), "<templates><template name=\"a\"/></templates>\n");
    write(QStringLiteral("dir/b.xcui"), "<Actions/>\n");
    write(QStringLiteral("dir/notes.txt"), "not checked\n");
    write(QStringLiteral("dir/sub/c.tcmd"), "<broken>\n");
    CsToolProcess tool;
    RUN_CSTOOL(tool, {QStringLiteral("validate"), temp.filePath(QStringLiteral("dir"))});
    QCOMPARE(tool.exitCode, 0);
    QCOMPARE(tool.outLines(), QStringList(QStringLiteral("2 file(s) checked, 0 invalid")));
}

void tst_ValidateCommand::usageErrors_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("message");
    QTest::newRow("no path") << QStringList() << "cstool validate: no PATH given";
    QTest::newRow("missing path") << QStringList({QStringLiteral("/nonexistent/a.tcmd")})
                                  << "cstool validate: /nonexistent/a.tcmd: no such file or directory";
    QTest::newRow("other suffix") << QStringList({QStringLiteral(CS_TEST_DATA_DIR "/schemas/valid/empty.map")})
                                  << "not a .tcmd or .xcui file";
    QTest::newRow("missing icon directory")
        << QStringList({QStringLiteral("--icons"), QStringLiteral("/nonexistent"), samples("valid")})
        << "cstool validate: /nonexistent: no such icon directory";
}

void tst_ValidateCommand::usageErrors()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, message);
    CsToolProcess tool;
    RUN_CSTOOL(tool, QStringList(QStringLiteral("validate")) + arguments);
    QCOMPARE(tool.exitCode, 2);
    QVERIFY2(tool.err.contains(message), qPrintable(tool.err));
    QVERIFY(tool.out.isEmpty());
}

QTEST_GUILESS_MAIN(tst_ValidateCommand)
#include "tst_validatecommand.moc"
