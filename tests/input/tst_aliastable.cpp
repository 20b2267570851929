#include <CommandSystem/AliasTable.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

using namespace Talvir::Vexa::Cs;

class tst_AliasTable : public QObject
{
    Q_OBJECT

private slots:
    void baseline_data();
    void baseline();
    void unreadableFile();
    void lineEndingsAndByteOrderMark();
    void laterFileRedefines();
    void lookupIsCaseInsensitive();
    void insertAndRemove_data();
    void insertAndRemove();
    void aliasesOfCommand();
    void location();
    void check();
    void clearForgetsErrors();
    void copiesAreIndependent();
};

// Each data/aliases/NAME.aliases is loaded; NAME.aliases.expected lists the table, one
// "alias -> command" a line, then the errors with the file's directory left out.
void tst_AliasTable::baseline_data()
{
    QTest::addColumn<QString>("file");
    const QDir dir(QStringLiteral(CS_TEST_DATA_DIR "/aliases"));
    const QStringList files = dir.entryList({QStringLiteral("*.aliases")}, QDir::Files, QDir::Name);
    QVERIFY(files.size() >= 3);
    for (const QString& file : files)
        QTest::newRow(qPrintable(file)) << dir.filePath(file);
}

void tst_AliasTable::baseline()
{
    QFETCH(QString, file);
    AliasTable table;
    const bool good = table.load(file);
    QStringList actual;
    for (const QString& alias : table.aliases())
        actual.append(QStringLiteral("%1 -> %2").arg(alias, table.command(alias)));
    const QString directory = QFileInfo(file).absolutePath() + QLatin1Char('/');
    for (QString error : table.errors())
        actual.append(QStringLiteral("error: ") + error.remove(directory));
    QFile expectedFile(file + QStringLiteral(".expected"));
    QVERIFY(expectedFile.open(QIODevice::ReadOnly | QIODevice::Text));
    const QStringList expected = QString::fromUtf8(expectedFile.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    QCOMPARE(actual, expected);
    QCOMPARE(good, table.errors().isEmpty());
}

void tst_AliasTable::unreadableFile()
{
    QTemporaryDir dir;
    const QString missing = dir.filePath(QStringLiteral("missing.aliases"));
    AliasTable table;
    QVERIFY(!table.load(missing));
    QCOMPARE(table.errors().size(), 1);
    QVERIFY2(table.errors().first().startsWith(missing + QStringLiteral(": cannot read the file: ")),
             qPrintable(table.errors().first()));
    QCOMPARE(table.count(), 0);
}

void tst_AliasTable::lineEndingsAndByteOrderMark()
{
    AliasTable table;
    QVERIFY(table.loadText(QStringLiteral("\xFEFFl line\r\nc circle\r\n\r\n# end\r\n"), QStringLiteral("dos.aliases")));
    QCOMPARE(table.aliases(), (QStringList{QStringLiteral("c"), QStringLiteral("l")}));
    QCOMPARE(table.command(QStringLiteral("l")), QStringLiteral("line"));
    QCOMPARE(table.command(QStringLiteral("c")), QStringLiteral("circle"));
    QCOMPARE(table.location(QStringLiteral("c")), QStringLiteral("dos.aliases:2"));
}

void tst_AliasTable::laterFileRedefines()
{
    AliasTable table;
    QVERIFY(table.loadText(QStringLiteral("l line\nc circle\n"), QStringLiteral("catalogue.aliases")));
    QVERIFY(table.loadText(QStringLiteral("L list\n"), QStringLiteral("user.aliases")));
    QCOMPARE(table.command(QStringLiteral("l")), QStringLiteral("list"));
    QCOMPARE(table.aliases(), (QStringList{QStringLiteral("c"), QStringLiteral("L")}));
    QCOMPARE(table.location(QStringLiteral("l")), QStringLiteral("user.aliases:1"));
    QVERIFY(table.errors().isEmpty());
}

void tst_AliasTable::lookupIsCaseInsensitive()
{
    AliasTable table;
    QVERIFY(table.loadText(QStringLiteral("Pl PolyLine\n"), QStringLiteral("a.aliases")));
    QCOMPARE(table.command(QStringLiteral("PL")), QStringLiteral("PolyLine"));
    QCOMPARE(table.command(QStringLiteral("pl")), QStringLiteral("PolyLine"));
    QVERIFY(table.contains(QStringLiteral("pL")));
    QVERIFY(!table.contains(QStringLiteral("p")));
    QVERIFY(table.command(QStringLiteral("p")).isNull());
}

void tst_AliasTable::insertAndRemove_data()
{
    QTest::addColumn<QString>("alias");
    QTest::addColumn<QString>("command");
    QTest::addColumn<bool>("accepted");
    QTest::newRow("plain") << "l" << "line" << true;
    QTest::newRow("punctuation") << "?" << "help" << true;
    QTest::newRow("empty alias") << "" << "line" << false;
    QTest::newRow("empty command") << "l" << "" << false;
    QTest::newRow("blank in alias") << "l l" << "line" << false;
    QTest::newRow("blank in command") << "zi" << "zoom i" << false;
    QTest::newRow("itself") << "Line" << "line" << false;
}

void tst_AliasTable::insertAndRemove()
{
    QFETCH(QString, alias);
    QFETCH(QString, command);
    QFETCH(bool, accepted);
    AliasTable table;
    QCOMPARE(table.insert(alias, command), accepted);
    QCOMPARE(table.count(), accepted ? 1 : 0);
    QCOMPARE(table.command(alias), accepted ? command : QString());
    QCOMPARE(table.remove(alias.toUpper()), accepted);
    QCOMPARE(table.count(), 0);
    QVERIFY(table.errors().isEmpty());
}

void tst_AliasTable::aliasesOfCommand()
{
    AliasTable table;
    QVERIFY(table.loadText(QStringLiteral("l line\nLi LINE\nc circle\nA line\n"), QStringLiteral("a.aliases")));
    QCOMPARE(table.aliasesOf(QStringLiteral("Line")),
             (QStringList{QStringLiteral("A"), QStringLiteral("l"), QStringLiteral("Li")}));
    QCOMPARE(table.aliasesOf(QStringLiteral("circle")), QStringList{QStringLiteral("c")});
    QVERIFY(table.aliasesOf(QStringLiteral("arc")).isEmpty());
}

void tst_AliasTable::location()
{
    AliasTable table;
    QVERIFY(table.loadText(QStringLiteral("# first\n\nl line\n"), QStringLiteral("x.aliases")));
    QVERIFY(table.insert(QStringLiteral("c"), QStringLiteral("circle")));
    QCOMPARE(table.location(QStringLiteral("L")), QStringLiteral("x.aliases:3"));
    QCOMPARE(table.location(QStringLiteral("c")), QString(QLatin1String("")));
    QVERIFY(!table.location(QStringLiteral("c")).isNull());
    QVERIFY(table.location(QStringLiteral("z")).isNull());
}

void tst_AliasTable::check()
{
    AliasTable table;
    QVERIFY(table.loadText(QStringLiteral("l line\nlist lsit\ncopy move\n"), QStringLiteral("c.aliases")));
    QVERIFY(table.insert(QStringLiteral("z"), QStringLiteral("zom")));
    const QStringList commands{QStringLiteral("LINE"), QStringLiteral("list"), QStringLiteral("copy"),
                               QStringLiteral("move"), QStringLiteral("zoom")};
    QCOMPARE(table.check(commands),
             (QStringList{QStringLiteral("c.aliases:3: alias \"copy\" hides the command of the same name"),
                          QStringLiteral("c.aliases:2: alias \"list\" names the unknown command \"lsit\""),
                          QStringLiteral("c.aliases:2: alias \"list\" hides the command of the same name"),
                          QStringLiteral("alias \"z\" names the unknown command \"zom\"")}));
    QVERIFY(AliasTable().check(commands).isEmpty());
}

void tst_AliasTable::clearForgetsErrors()
{
    AliasTable table;
    QVERIFY(!table.loadText(QStringLiteral("l line\nbad\n"), QStringLiteral("a.aliases")));
    QCOMPARE(table.errors(), QStringList{QStringLiteral("a.aliases:2: alias \"bad\" has no command after it")});
    QCOMPARE(table.count(), 1);
    table.clear();
    QVERIFY(table.errors().isEmpty());
    QCOMPARE(table.count(), 0);
}

void tst_AliasTable::copiesAreIndependent()
{
    AliasTable original;
    QVERIFY(!original.loadText(QStringLiteral("l line\nx\n"), QStringLiteral("a.aliases")));
    AliasTable copy(original);
    AliasTable assigned;
    assigned = original;
    original.clear();
    for (const AliasTable* table : {&copy, &assigned}) {
        QCOMPARE(table->command(QStringLiteral("l")), QStringLiteral("line"));
        QCOMPARE(table->errors().size(), 1);
    }
    QCOMPARE(original.count(), 0);
}

QTEST_APPLESS_MAIN(tst_AliasTable)
#include "tst_aliastable.moc"
