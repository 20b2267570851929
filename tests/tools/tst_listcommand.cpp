#include "CsToolProcess.h"

#include <QTemporaryDir>
#include <QtTest>

// cstool list: the template names that directories define, found through a template pool.
class tst_ListCommand : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void listsEveryNameWithItsFile();
    void laterDirectoryWinsASharedName();
    void staleMapIsReported();
    void unreadableMapFails_data();
    void unreadableMapFails();
    void usageErrors();

private:
    QString file(const QString& name) const;

    QScopedPointer<QTemporaryDir> temp;
};

void tst_ListCommand::init()
{
    temp.reset(new QTemporaryDir);
    QVERIFY(temp->isValid());
    QVERIFY(CsToolProcess::writeFile(file(QStringLiteral("a/shapes.tcmd")),
                                     "<templates>\n  <template name=\"circle\"/>\n"
                                     "  <template name=\"arc\"/>\n</templates>\n"));
    QVERIFY(CsToolProcess::writeFile(file(QStringLiteral("a/line.tcmd")),
                                     "<templates>\n  <template name=\"line\"/>\n</templates>\n"));
}

QString tst_ListCommand::file(const QString& name) const
{
    return temp->filePath(name);
}

void tst_ListCommand::listsEveryNameWithItsFile()
{
    CsToolProcess tool;
    RUN_CSTOOL(tool, {QStringLiteral("list"), file(QStringLiteral("a"))});
    QCOMPARE(tool.exitCode, 0);
    const QString shapes = file(QStringLiteral("a/shapes.tcmd"));
    QCOMPARE(tool.outLines(), QStringList({QStringLiteral("arc     ") + shapes,
                                           QStringLiteral("circle  ") + shapes,
                                           QStringLiteral("line    ") + file(QStringLiteral("a/line.tcmd"))}));
}

void tst_ListCommand::laterDirectoryWinsASharedName()
{
    QVERIFY(CsToolProcess::writeFile(file(QStringLiteral("b/more.tcmd")),
                                     "<templates>\n  <template name=\"line\"/>\n"
                                     "  <template name=\"polyline\"/>\n</templates>\n"));
    CsToolProcess tool;
    RUN_CSTOOL(tool, {QStringLiteral("list"), file(QStringLiteral("a")), file(QStringLiteral("b"))});
    QCOMPARE(tool.exitCode, 0);
    const QString more = file(QStringLiteral("b/more.tcmd"));
    QCOMPARE(tool.outLines().mid(2), QStringList({QStringLiteral("line      ") + more,
                                                  QStringLiteral("polyline  ") + more}));
}

// A map that sends a name to a file that no longer defines it hides the template from hosts.
void tst_ListCommand::staleMapIsReported()
{
    QVERIFY(CsToolProcess::writeFile(file(QStringLiteral("a/.map")),
                                     "<maps name=\"Vexa\" version=\"Kestrel 10.25\">\n"
                                     "  <map key=\"circle\" value=\"line.tcmd\"/>\n</maps>\n"));
    CsToolProcess tool;
    RUN_CSTOOL(tool, {QStringLiteral("list"), file(QStringLiteral("a"))});
    QCOMPARE(tool.exitCode, 1);
    QVERIFY2(tool.err.contains(QStringLiteral("cstool list: circle (defined in %1): not found by the template pool")
                                   .arg(file(QStringLiteral("a/shapes.tcmd")))),
             qPrintable(tool.err));
    QVERIFY(!tool.out.contains(QLatin1String("circle")));
    QVERIFY(tool.out.contains(QLatin1String("line ")));
}

// The pool still finds templates by their file names, so the listing goes on; but a host
// would not find the mapped ones, and the exit status says so.
void tst_ListCommand::unreadableMapFails_data()
{
    QTest::addColumn<QByteArray>("map");
    QTest::newRow("malformed") << QByteArray("<maps><map key=\"arc\" value=\"shapes.tcmd\">");
    QTest::newRow("wrong root") << QByteArray("<map key=\"arc\" value=\"shapes.tcmd\"/>\n");
}

void tst_ListCommand::unreadableMapFails()
{
    QFETCH(QByteArray, map);
    QVERIFY(CsToolProcess::writeFile(file(QStringLiteral("a/.map")), map));
    CsToolProcess tool;
    RUN_CSTOOL(tool, {QStringLiteral("list"), file(QStringLiteral("a")), file(QStringLiteral("a"))});
    QCOMPARE(tool.exitCode, 1);
    QVERIFY2(tool.err.contains(QStringLiteral("cstool list: %1: the map could not be read")
                                   .arg(QDir(file(QStringLiteral("a"))).absoluteFilePath(QStringLiteral(".map")))),
             qPrintable(tool.err));
    QCOMPARE(tool.err.count(QLatin1String("the map could not be read")), 1);
    QVERIFY(tool.out.contains(QLatin1String("line ")));

    QVERIFY(QFile::remove(file(QStringLiteral("a/.map"))));
    RUN_CSTOOL(tool, {QStringLiteral("list"), file(QStringLiteral("a"))});
    QCOMPARE(tool.exitCode, 0);
}

void tst_ListCommand::usageErrors()
{
    CsToolProcess tool;
    RUN_CSTOOL(tool, {QStringLiteral("list")});
    QCOMPARE(tool.exitCode, 2);
    QVERIFY(tool.err.contains(QLatin1String("cstool list: no DIR given")));
    RUN_CSTOOL(tool, {QStringLiteral("list"), file(QStringLiteral("a")), QStringLiteral("/nonexistent")});
    QCOMPARE(tool.exitCode, 2);
    QVERIFY(tool.err.contains(QLatin1String("cstool list: /nonexistent: not a directory")));
    QVERIFY(tool.out.isEmpty());
}

QTEST_GUILESS_MAIN(tst_ListCommand)
#include "tst_listcommand.moc"
