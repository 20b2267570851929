#include "TestFiles.h"

#include <CommandSystem/Action.h>
#include <CommandSystem/ActionPool.h>
#include <CommandSystem/AliasTable.h>
#include <CommandSystem/KeyConflicts.h>
#include <CommandSystem/Keymap.h>
#include <CommandSystem/PlatformHooks.h>
#include <CommandSystem/Template.h>
#include <CommandSystem/TemplatePool.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Talvir::Vexa::Cs;

namespace {

QKeySequence keys(const char* text)
{
    return QKeySequence(QString::fromLatin1(text));
}

SourceLocation at(int line, int column)
{
    return SourceLocation{QStringLiteral("f.keymap"), line, column};
}

QStringList texts(const QList<KeyFinding>& findings)
{
    QStringList lines;
    for (const KeyFinding& finding : findings)
        lines.append(finding.toString());
    return lines;
}

} // namespace

class tst_KeyConflicts : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();
    void nothingToReport();
    void sameShortcutOfTwoEnabledActions();
    void disabledActionClashesWithNothing();
    void laterShortcutReplacesEarlier();
    void sequenceThatBeginsWithAnother();
    void singleKeyTakesFirstLetter_data();
    void singleKeyTakesFirstLetter();
    void aliasWithTheNameOfAnotherCommand();
    void sameOptionKeyInOneParameter_data();
    void sameOptionKeyInOneParameter();
    void shortcutOfUnknownAction();
    void findingsOfOneAction();
    void liveActionsOfAPool();
    void templatesAndAliasTable();
    void filesGiveEachFindingItsPlace();
    void actionLeftOutByMinWinVerIsDisabled();
    void fileProblems_data();
    void fileProblems();
    void findingText_data();
    void findingText();
};

void tst_KeyConflicts::cleanup()
{
    setPlatformHooks(PlatformHooks());
}

void tst_KeyConflicts::nothingToReport()
{
    KeyConflicts conflicts;
    QVERIFY(conflicts.findings().isEmpty());
    conflicts.addAction(QStringLiteral("ID_LINE"), true, QStringLiteral("line"));
    conflicts.addAction(QStringLiteral("ID_UNDO"), true, QStringLiteral("undo"));
    conflicts.setShortcut(QStringLiteral("ID_LINE"), keys("Ctrl+L"));
    conflicts.setShortcut(QStringLiteral("ID_UNDO"), keys("Ctrl+Z"));
    conflicts.addAlias(QStringLiteral("l"), QStringLiteral("line"));
    conflicts.addOptions(QStringLiteral("parameter 1 of \"erase\""), QStringLiteral("a:All;l:Last"));
    QVERIFY(conflicts.findings().isEmpty());
}

void tst_KeyConflicts::sameShortcutOfTwoEnabledActions()
{
    KeyConflicts conflicts;
    conflicts.setShortcut(QStringLiteral("ID_LINE"), keys("Ctrl+L"), at(3, 5));
    conflicts.setShortcut(QStringLiteral("ID_LAYER"), keys("Ctrl+L"), at(4, 5));
    conflicts.setShortcut(QStringLiteral("ID_LIST"), keys("Ctrl+L"), at(6, 5));
    conflicts.setShortcut(QStringLiteral("ID_UNDO"), keys("Ctrl+Z"), at(5, 5));
    const QList<KeyFinding> findings = conflicts.findings();
    QCOMPARE(texts(findings),
             QStringList({QStringLiteral("f.keymap:4:5: error: Ctrl+L is the shortcut of both ID_LAYER and ID_LINE (f.keymap:3:5)"),
                          QStringLiteral("f.keymap:6:5: error: Ctrl+L is the shortcut of both ID_LIST and ID_LINE (f.keymap:3:5)")}));
    QCOMPARE(findings.at(0).kind, KeyFinding::SameShortcut);
    QCOMPARE(findings.at(0).severity, KeyFinding::Error);
    QCOMPARE(findings.at(0).actions, QStringList({QStringLiteral("ID_LAYER"), QStringLiteral("ID_LINE")}));
}

void tst_KeyConflicts::disabledActionClashesWithNothing()
{
    KeyConflicts conflicts;
    conflicts.addAction(QStringLiteral("ID_LINE"), true);
    conflicts.addAction(QStringLiteral("ID_OLD"), false);
    conflicts.setShortcut(QStringLiteral("ID_LINE"), keys("Ctrl+L"));
    conflicts.setShortcut(QStringLiteral("ID_OLD"), keys("Ctrl+L"));
    QVERIFY(conflicts.findings().isEmpty());
    conflicts.addAction(QStringLiteral("ID_OLD"), true);
    QCOMPARE(texts(conflicts.findings()),
             QStringList(QStringLiteral("error: Ctrl+L is the shortcut of both ID_OLD and ID_LINE")));
}

// A user's keymap after the catalogue's defaults: the later entry counts, and is the place
// of the clash.
void tst_KeyConflicts::laterShortcutReplacesEarlier()
{
    KeyConflicts conflicts;
    conflicts.setShortcut(QStringLiteral("ID_LINE"), keys("Ctrl+L"), at(3, 5));
    conflicts.setShortcut(QStringLiteral("ID_LAYER"), keys("Ctrl+Y"), at(4, 5));
    const SourceLocation user{QStringLiteral("user.keymap"), 2, 3};
    conflicts.setShortcut(QStringLiteral("ID_LINE"), keys("Ctrl+Y"), user);
    QCOMPARE(texts(conflicts.findings()),
             QStringList(QStringLiteral("user.keymap:2:3: error: Ctrl+Y is the shortcut of both ID_LINE and ID_LAYER (f.keymap:4:5)")));
    conflicts.setShortcut(QStringLiteral("ID_LINE"), QKeySequence(), user);
    QVERIFY(conflicts.findings().isEmpty());
}

void tst_KeyConflicts::sequenceThatBeginsWithAnother()
{
    KeyConflicts conflicts;
    conflicts.setShortcut(QStringLiteral("ID_COMMENT"), keys("Ctrl+K, Ctrl+C"), at(2, 1));
    conflicts.setShortcut(QStringLiteral("ID_KILL"), keys("Ctrl+K"), at(3, 1));
    conflicts.setShortcut(QStringLiteral("ID_OTHER"), keys("Ctrl+J, Ctrl+K"), at(4, 1));
    const QList<KeyFinding> findings = conflicts.findings();
    QCOMPARE(texts(findings),
             QStringList(QStringLiteral("f.keymap:2:1: warning: Ctrl+K, Ctrl+C (ID_COMMENT) begins with Ctrl+K, "
                                        "the shortcut of ID_KILL (f.keymap:3:1), and may never be reached")));
    QCOMPARE(findings.at(0).kind, KeyFinding::ShortcutPrefix);
    QCOMPARE(findings.at(0).severity, KeyFinding::Warning);
}

void tst_KeyConflicts::singleKeyTakesFirstLetter_data()
{
    QTest::addColumn<QString>("shortcut");
    QTest::addColumn<QString>("expected");
    const QString prefix = QStringLiteral("warning: the single key %1 of ID_X takes the first letter of the typed command or alias ");
    QTest::newRow("letter") << "L" << prefix.arg(QStringLiteral("L")) + QStringLiteral("\"l\", \"layer\", \"LINE\" and 1 more");
    QTest::newRow("shifted letter") << "Shift+M" << prefix.arg(QStringLiteral("Shift+M")) + QStringLiteral("\"move\"");
    QTest::newRow("digit") << "3" << prefix.arg(QStringLiteral("3")) + QStringLiteral("\"3dorbit\"");
    QTest::newRow("sign") << "." << prefix.arg(QStringLiteral(".")) + QStringLiteral("\".x\"");
    QTest::newRow("letter nothing starts with") << "Q" << QString();
    QTest::newRow("with Ctrl") << "Ctrl+L" << QString();
    QTest::newRow("with Alt") << "Alt+M" << QString();
    QTest::newRow("function key") << "F3" << QString();
    QTest::newRow("two chords") << "L, L" << QString();
    QTest::newRow("space") << "Space" << QString();
}

void tst_KeyConflicts::singleKeyTakesFirstLetter()
{
    QFETCH(QString, shortcut);
    QFETCH(QString, expected);
    KeyConflicts conflicts;
    for (const char* command : {"LINE", "layer", "list", "move", "3dorbit", ".x"})
        conflicts.addCommand(QString::fromLatin1(command));
    conflicts.addAlias(QStringLiteral("l"), QStringLiteral("line"));
    conflicts.addAlias(QStringLiteral("Line"), QStringLiteral("line"));
    conflicts.setShortcut(QStringLiteral("ID_X"), QKeySequence(shortcut));
    const QList<KeyFinding> findings = conflicts.findings();
    QCOMPARE(texts(findings), expected.isEmpty() ? QStringList() : QStringList(expected));
    if (!findings.isEmpty())
        QCOMPARE(findings.at(0).kind, KeyFinding::TypedLetter);
}

void tst_KeyConflicts::aliasWithTheNameOfAnotherCommand()
{
    KeyConflicts conflicts;
    conflicts.addCommand(QStringLiteral("copy"), SourceLocation{QStringLiteral("edit.tcmd"), 4, 5});
    conflicts.addCommand(QStringLiteral("move"));
    const SourceLocation aliases{QStringLiteral("my.aliases"), 2, 1};
    conflicts.addAlias(QStringLiteral("Copy"), QStringLiteral("move"), aliases);
    conflicts.addAlias(QStringLiteral("co"), QStringLiteral("copy"), aliases);
    conflicts.addAlias(QStringLiteral("MOVE"), QStringLiteral("move"), aliases);
    const QList<KeyFinding> findings = conflicts.findings();
    QCOMPARE(texts(findings),
             QStringList(QStringLiteral("my.aliases:2:1: error: alias \"Copy\" for \"move\" has the name of the command \"copy\" (edit.tcmd:4:5)")));
    QCOMPARE(findings.at(0).kind, KeyFinding::AliasNamesCommand);
}

void tst_KeyConflicts::sameOptionKeyInOneParameter_data()
{
    QTest::addColumn<QString>("options");
    QTest::addColumn<QStringList>("keys");
    QTest::newRow("distinct") << "a:All;l:Last" << QStringList();
    QTest::newRow("same key") << "a:All;l:Last;a:Add" << QStringList{QStringLiteral("a")};
    QTest::newRow("case differs") << "on:On;ON:Really on" << QStringList{QStringLiteral("ON")};
    QTest::newRow("key without label") << "x;x:Exit" << QStringList{QStringLiteral("x")};
    QTest::newRow("blanks around keys") << " y :Yes; y:Yep ;n:No" << QStringList{QStringLiteral("y")};
    QTest::newRow("three times") << "c:C;c:C;c:C" << QStringList{QStringLiteral("c"), QStringLiteral("c")};
    QTest::newRow("empty entries") << ";;a:All;;" << QStringList();
    QTest::newRow("label equal to another key") << "a:b;b:a" << QStringList();
}

void tst_KeyConflicts::sameOptionKeyInOneParameter()
{
    QFETCH(QString, options);
    QFETCH(QStringList, keys);
    KeyConflicts conflicts;
    conflicts.addOptions(QStringLiteral("parameter 2 of \"erase\""), options, SourceLocation{QStringLiteral("erase.tcmd"), 9, 17});
    conflicts.addOptions(QStringLiteral("parameter 3 of \"erase\""), options.section(QLatin1Char(';'), 0, 0));
    QStringList expected;
    for (const QString& key : keys)
        expected.append(QStringLiteral("erase.tcmd:9:17: error: option key \"%1\" is given twice in the options of parameter 2 of \"erase\": \"%2\"")
                            .arg(key, options.trimmed()));
    const QList<KeyFinding> findings = conflicts.findings();
    QCOMPARE(texts(findings), expected);
    for (const KeyFinding& finding : findings)
        QCOMPARE(finding.kind, KeyFinding::SameOptionKey);
}

void tst_KeyConflicts::shortcutOfUnknownAction()
{
    KeyConflicts conflicts;
    conflicts.setShortcut(QStringLiteral("ID_GONE"), keys("Ctrl+L"), at(2, 5));
    conflicts.setShortcut(QStringLiteral("ID_LINE"), keys("Ctrl+L"), at(3, 5));
    QCOMPARE(conflicts.findings().size(), 1);
    conflicts.addAction(QStringLiteral("ID_LINE"), true);
    const QList<KeyFinding> findings = conflicts.findings();
    QCOMPARE(texts(findings),
             QStringList(QStringLiteral("f.keymap:2:5: warning: ID_GONE is not an action of the UI definitions; its shortcut Ctrl+L has no effect")));
    QCOMPARE(findings.at(0).kind, KeyFinding::UnknownAction);
    QCOMPARE(findings.at(0).actions, QStringList(QStringLiteral("ID_GONE")));
}

void tst_KeyConflicts::findingsOfOneAction()
{
    KeyConflicts conflicts;
    conflicts.setShortcut(QStringLiteral("ID_A"), keys("Ctrl+A"));
    conflicts.setShortcut(QStringLiteral("ID_B"), keys("Ctrl+A"));
    conflicts.setShortcut(QStringLiteral("ID_C"), keys("F1"));
    conflicts.setShortcut(QStringLiteral("ID_D"), keys("F1"));
    QCOMPARE(conflicts.findings().size(), 2);
    QCOMPARE(texts(conflicts.findings(QStringLiteral("ID_A"))),
             QStringList(QStringLiteral("error: Ctrl+A is the shortcut of both ID_B and ID_A")));
    QCOMPARE(texts(conflicts.findings(QStringLiteral("ID_D"))),
             QStringList(QStringLiteral("error: F1 is the shortcut of both ID_D and ID_C")));
    QVERIFY(conflicts.findings(QStringLiteral("ID_E")).isEmpty());
}

void tst_KeyConflicts::liveActionsOfAPool()
{
    ActionPool pool;
    Action* line = pool.insertAction(QStringLiteral("ID_LINE"));
    line->setScript(QStringLiteral("line"));
    line->setShortcut(keys("Ctrl+L"));
    Action* layer = pool.insertAction(QStringLiteral("ID_LAYER"));
    layer->setScript(QStringLiteral("layer  set"));
    layer->setShortcut(keys("Ctrl+L"));
    layer->setEnabled(false);
    Action* zoom = pool.insertAction(QStringLiteral("ID_ZOOM"));
    zoom->setScript(QStringLiteral("zoom i"));
    zoom->setShortcut(keys("Z"));
    {
        KeyConflicts conflicts;
        conflicts.addActions(pool);
        QCOMPARE(texts(conflicts.findings()),
                 QStringList(QStringLiteral("warning: the single key Z of ID_ZOOM takes the first letter of the typed command or alias \"zoom\"")));
    }
    layer->setEnabled(true);
    KeyConflicts conflicts;
    conflicts.addActions(pool);
    conflicts.addAliases(QMap<QString, QString>{{QStringLiteral("layer"), QStringLiteral("line")}});
    QCOMPARE(texts(conflicts.findings()),
             QStringList({QStringLiteral("error: Ctrl+L is the shortcut of both ID_LINE and ID_LAYER"),
                          QStringLiteral("warning: the single key Z of ID_ZOOM takes the first letter of the typed command or alias \"zoom\""),
                          QStringLiteral("error: alias \"layer\" for \"line\" has the name of the command \"layer\"")}));
    // What a shortcut editor asks before it gives an action a new sequence.
    conflicts.setShortcut(QStringLiteral("ID_ZOOM"), keys("Ctrl+L"));
    QCOMPARE(conflicts.findings(QStringLiteral("ID_ZOOM")).size(), 1);
    QCOMPARE(conflicts.findings(QStringLiteral("ID_ZOOM")).at(0).message,
             QStringLiteral("Ctrl+L is the shortcut of both ID_ZOOM and ID_LAYER"));
}

void tst_KeyConflicts::templatesAndAliasTable()
{
    QTemporaryDir dir;
    const QString path = TestFiles::write(QDir(dir.path()), QStringLiteral("erase.tcmd"),
                               "<templates><template name=\"erase\"><parameters>"
                               "<parameter luid=\"1\" type=\"entity\"><property name=\"options\">a:All;A:Again</property></parameter>"
                               "<parameter luid=\"2\" type=\"option\"><property name=\"options\">y:Yes;n:No</property></parameter>"
                               "</parameters></template></templates>");
    TemplatePool pool;
    QList<Template*> templates;
    QVERIFY(pool.load(path, templates));
    QCOMPARE(templates.size(), 1);
    AliasTable aliases;
    QVERIFY(aliases.loadText(QStringLiteral("# mine\n  erase   move\ne erase\n"), QStringLiteral("mine.aliases")));
    KeyConflicts conflicts;
    conflicts.addTemplate(*templates.at(0));
    conflicts.addCommand(QStringLiteral("move"));
    conflicts.addAliases(aliases);
    QCOMPARE(texts(conflicts.findings()),
             QStringList({QStringLiteral("error: option key \"A\" is given twice in the options of parameter 1 of \"erase\": \"a:All;A:Again\""),
                          QStringLiteral("mine.aliases:2: error: alias \"erase\" for \"move\" has the name of the command \"erase\"")}));
    qDeleteAll(templates);
}

// The catalogue's files as an author hands them to the checks: each finding at its place,
// ordered by file as they were named, then by line and column.
void tst_KeyConflicts::filesGiveEachFindingItsPlace()
{
    QTemporaryDir temporary;
    QVERIFY(QDir::setCurrent(temporary.path()));
    const QDir dir(temporary.path());
    TestFiles::write(dir, QStringLiteral("home.xcui"),
          "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
          "<Actions name=\"Vexa\" version=\"1700\">\n"
          "    <Action name=\"ID_LINE\" type=\"plain\"><Script>line</Script></Action>\n"
          "    <Action name=\"ID_LAYER\" type=\"plain\">\n"
          "        <Script>layer set</Script>\n"
          "    </Action>\n"
          "    <Action name=\"ID_COPY\" type=\"plain\"><Script>copy</Script></Action>\n"
          "</Actions>\n");
    TestFiles::write(dir, QStringLiteral("edit.tcmd"),
          "<templates>\n"
          "  <template name=\"move\">\n"
          "    <parameters>\n"
          "      <parameter luid=\"1\" type=\"entity\">\n"
          "        <property name=\"options\">a:All;l:Last;L:Left</property>\n"
          "      </parameter>\n"
          "    </parameters>\n"
          "  </template>\n"
          "</templates>\n");
    TestFiles::write(dir, QStringLiteral("commands.aliases"), "l line\n\n   copy  move\n");
    TestFiles::write(dir, QStringLiteral("default.keymap"),
          "<keymap version=\"1\">\n"
          "  <shortcut action=\"ID_LINE\">Ctrl+L</shortcut>\n"
          "  <shortcut action=\"ID_LAYER\">Ctrl+Shift+L</shortcut>\n"
          "</keymap>\n");
    TestFiles::write(dir, QStringLiteral("user.keymap"),
          "<keymap version=\"1\">\n"
          "    <shortcut action=\"ID_COPY\">Ctrl+L</shortcut>\n"
          "    <shortcut action=\"ID_OLD\">F4</shortcut>\n"
          "    <shortcut action=\"ID_LAYER\">M</shortcut>\n"
          "</keymap>\n");
    KeyConflicts conflicts;
    for (const char* file : {"default.keymap", "user.keymap", "home.xcui", "edit.tcmd", "commands.aliases"})
        QVERIFY(conflicts.addFile(QString::fromLatin1(file)));
    QCOMPARE(texts(conflicts.findings()),
             QStringList({QStringLiteral("user.keymap:2:5: error: Ctrl+L is the shortcut of both ID_COPY and ID_LINE (default.keymap:2:3)"),
                          QStringLiteral("user.keymap:3:5: warning: ID_OLD is not an action of the UI definitions; its shortcut F4 has no effect"),
                          QStringLiteral("user.keymap:4:5: warning: the single key M of ID_LAYER takes the first letter of the typed command or alias \"move\""),
                          QStringLiteral("edit.tcmd:5:9: error: option key \"L\" is given twice in the options of parameter 1 of \"move\": \"a:All;l:Last;L:Left\""),
                          QStringLiteral("commands.aliases:3:4: error: alias \"copy\" for \"move\" has the name of the command \"copy\" (home.xcui:7:5)")}));
}

void tst_KeyConflicts::actionLeftOutByMinWinVerIsDisabled()
{
    PlatformHooks hooks;
    hooks.systemVersion = [] { return QStringLiteral("6.1"); };
    setPlatformHooks(hooks);
    QTemporaryDir temporary;
    const QDir dir(temporary.path());
    const QString ui = TestFiles::write(dir, QStringLiteral("a.xcui"),
                             "<Actions>"
                             "<Action name=\"ID_NEW\"><MinWinVer>9.0</MinWinVer><Script>new</Script></Action>"
                             "<Action name=\"ID_OLD\"><MinWinVer>5.1</MinWinVer></Action>"
                             "<Action name=\"ID_ANY\"/>"
                             "</Actions>");
    const QString keymap = TestFiles::write(dir, QStringLiteral("a.keymap"),
                                 "<keymap><shortcut action=\"ID_NEW\">F2</shortcut>"
                                 "<shortcut action=\"ID_OLD\">F2</shortcut>"
                                 "<shortcut action=\"ID_ANY\">F3</shortcut></keymap>");
    KeyConflicts conflicts;
    QVERIFY(conflicts.addFile(ui));
    QVERIFY(conflicts.addFile(keymap));
    QVERIFY(conflicts.findings().isEmpty());
    conflicts.setShortcut(QStringLiteral("ID_ANY"), keys("F2"));
    QCOMPARE(conflicts.findings().size(), 1);
    QCOMPARE(conflicts.findings().at(0).actions, QStringList({QStringLiteral("ID_ANY"), QStringLiteral("ID_OLD")}));
}

void tst_KeyConflicts::fileProblems_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("expected");
    QTest::newRow("broken keymap") << "a.keymap" << QByteArray("<keymap>\n  <shortcut action=\"ID_A\">Ctrl+</shortcut>\n</keymap>")
                                   << "a.keymap:2:3: error: Not a key: \"Ctrl+\"";
    QTest::newRow("xcui root") << "a.xcui" << QByteArray("<?xml version=\"1.0\"?>\n\n  <Action name=\"ID_A\"/>")
                               << "a.xcui:3:3: error: Unexpected element: Action";
    QTest::newRow("xcui child") << "a.xcui" << QByteArray("<Actions>\n <Action name=\"ID_A\"/>\n <Shortcut/>\n</Actions>")
                                << "a.xcui:3:2: error: Unexpected element: Shortcut";
    QTest::newRow("xcui not well-formed") << "a.xcui" << QByteArray("<Actions>\n<Action name=\"ID_A\">\n</Actions>")
                                          << "a.xcui:3:11: error: Opening and ending tag mismatch.";
    QTest::newRow("tcmd not well-formed") << "a.tcmd" << QByteArray("<templates><template name=\"x\"></templates>")
                                          << "a.tcmd:1:43: error: Opening and ending tag mismatch.";
    QTest::newRow("alias line") << "a.aliases" << QByteArray("l line\n  pl\n")
                                << "a.aliases:2:3: error: alias \"pl\" has no command after it";
    QTest::newRow("other suffix") << "a.txt" << QByteArray("l line")
                                  << "a.txt: error: not a file to check (.xcui, .tcmd, .aliases or .keymap)";
}

void tst_KeyConflicts::fileProblems()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, content);
    QFETCH(QString, expected);
    QTemporaryDir temporary;
    QVERIFY(QDir::setCurrent(temporary.path()));
    TestFiles::write(QDir(temporary.path()), name, content);
    KeyConflicts conflicts;
    QVERIFY(!conflicts.addFile(name));
    const QList<KeyFinding> findings = conflicts.findings();
    QCOMPARE(texts(findings), QStringList(expected));
    QCOMPARE(findings.at(0).kind, KeyFinding::FileProblem);
}

void tst_KeyConflicts::findingText_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("line");
    QTest::addColumn<int>("column");
    QTest::addColumn<int>("severity");
    QTest::addColumn<QString>("expected");
    QTest::newRow("full place") << "a.keymap" << 3 << 7 << int(KeyFinding::Error) << "a.keymap:3:7: error: it";
    QTest::newRow("no column") << "a.aliases" << 3 << 0 << int(KeyFinding::Warning) << "a.aliases:3: warning: it";
    QTest::newRow("file only") << "a.xcui" << 0 << 0 << int(KeyFinding::Error) << "a.xcui: error: it";
    QTest::newRow("no place") << "" << 3 << 7 << int(KeyFinding::Warning) << "warning: it";
}

void tst_KeyConflicts::findingText()
{
    QFETCH(QString, file);
    QFETCH(int, line);
    QFETCH(int, column);
    QFETCH(int, severity);
    QFETCH(QString, expected);
    KeyFinding finding;
    finding.location = SourceLocation{file, line, column};
    finding.severity = KeyFinding::Severity(severity);
    finding.message = QStringLiteral("it");
    QCOMPARE(finding.toString(), expected);
}

QTEST_MAIN(tst_KeyConflicts)
#include "tst_keyconflicts.moc"
