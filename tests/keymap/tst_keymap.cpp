#include "TestFiles.h"

#include <CommandSystem/Action.h>
#include <CommandSystem/ActionPool.h>
#include <CommandSystem/Keymap.h>

#include <QDir>
#include <QFile>
#include <QIcon>
#include <QPixmap>
#include <QTemporaryDir>
#include <QTest>

using namespace Talvir::Vexa::Cs;

class tst_Keymap : public QObject
{
    Q_OBJECT

private slots:
    void emptyKeymap();
    void entriesAreKeptByName();
    void saveWritesEntriesInNameOrder();
    void saveAndLoadRoundTrip();
    void loadRemembersWhereEachEntryWas();
    void loadAcceptsSchemaLocation();
    void keyTexts_data();
    void keyTexts();
    void malformedFileIsRefusedWhole_data();
    void malformedFileIsRefusedWhole();
    void missingFileIsRefused();
    void readerAgreesWithSchema_data();
    void readerAgreesWithSchema();
    void saveToDirectoryFails();
    void saveLeavesNoTemporaryFile();
    void applySetsShortcutsAndClonesFollow();
    void applyLooksActionsUpByExactName();
    void copiesAreIndependent();
};

void tst_Keymap::emptyKeymap()
{
    const Keymap keymap;
    QVERIFY(keymap.isEmpty());
    QCOMPARE(keymap.size(), 0);
    QVERIFY(keymap.actionNames().isEmpty());
    QVERIFY(!keymap.contains(QStringLiteral("ID_A")));
    QVERIFY(keymap.shortcut(QStringLiteral("ID_A")).isEmpty());
    QVERIFY(keymap.errorString().isEmpty());
}

void tst_Keymap::entriesAreKeptByName()
{
    Keymap keymap;
    keymap.setShortcut(QStringLiteral("ID_B"), QKeySequence(QStringLiteral("Ctrl+B")));
    keymap.setShortcut(QStringLiteral("ID_A"), QKeySequence());
    keymap.setShortcut(QStringLiteral("ID_C"), QKeySequence(QStringLiteral("F3")));
    keymap.setShortcut(QStringLiteral("ID_C"), QKeySequence(QStringLiteral("F4")));
    QCOMPARE(keymap.actionNames(), QStringList({QStringLiteral("ID_A"), QStringLiteral("ID_B"), QStringLiteral("ID_C")}));
    QVERIFY(keymap.contains(QStringLiteral("ID_A")));
    QVERIFY(keymap.shortcut(QStringLiteral("ID_A")).isEmpty());
    QCOMPARE(keymap.shortcut(QStringLiteral("ID_C")), QKeySequence(QStringLiteral("F4")));
    keymap.remove(QStringLiteral("ID_B"));
    QCOMPARE(keymap.size(), 2);
    QVERIFY(!keymap.contains(QStringLiteral("ID_B")));
    keymap.clear();
    QVERIFY(keymap.isEmpty());
}

void tst_Keymap::saveWritesEntriesInNameOrder()
{
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    Keymap keymap;
    keymap.setShortcut(QStringLiteral("ID_ZOOM"), QKeySequence(QStringLiteral("Ctrl+K, Ctrl+Z")));
    keymap.setShortcut(QStringLiteral("ID_QUIT"), QKeySequence());
    keymap.setShortcut(QStringLiteral("ID_LINE"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_L));
    const QString path = dir.filePath(QStringLiteral("user.keymap"));
    QVERIFY(keymap.save(path));
    QVERIFY(keymap.errorString().isEmpty());
    QCOMPARE(TestFiles::read(path),
             QByteArray("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                        "<keymap version=\"1\">\n"
                        "    <shortcut action=\"ID_LINE\">Ctrl+Shift+L</shortcut>\n"
                        "    <none action=\"ID_QUIT\"/>\n"
                        "    <shortcut action=\"ID_ZOOM\">Ctrl+K, Ctrl+Z</shortcut>\n"
                        "</keymap>\n"));
}

void tst_Keymap::saveAndLoadRoundTrip()
{
    QTemporaryDir dir;
    Keymap written;
    written.setShortcut(QStringLiteral("ID_A"), QKeySequence(QStringLiteral("Ctrl+,")));
    written.setShortcut(QStringLiteral("ID_B"), QKeySequence(QStringLiteral(",, Ctrl++")));
    written.setShortcut(QStringLiteral("ID_C"), QKeySequence());
    written.setShortcut(QStringLiteral("ID_D"), QKeySequence(QStringLiteral("Meta+Alt+Del")));
    written.setShortcut(QStringLiteral("ID_<&\"'>"), QKeySequence(QStringLiteral("F12")));
    const QString path = dir.filePath(QStringLiteral("round.keymap"));
    QVERIFY(written.save(path));
    Keymap read;
    QVERIFY2(read.load(path), qPrintable(read.errorString()));
    QCOMPARE(read.actionNames(), written.actionNames());
    QVERIFY(read == written);
    QCOMPARE(read.shortcut(QStringLiteral("ID_B")), QKeySequence(QStringLiteral(",, Ctrl++")));
    QVERIFY(read.contains(QStringLiteral("ID_C")));
    QVERIFY(read.shortcut(QStringLiteral("ID_C")).isEmpty());
    read.setShortcut(QStringLiteral("ID_C"), QKeySequence(QStringLiteral("F1")));
    QVERIFY(read != written);
}

void tst_Keymap::loadRemembersWhereEachEntryWas()
{
    QTemporaryDir dir;
    const QString path = TestFiles::write(QDir(dir.path()), QStringLiteral("where.keymap"),
                                   "<?xml version=\"1.0\"?>\n"
                                   "<!-- mine -->\n"
                                   "<keymap version=\"1\">\n"
                                   "  <none action=\"ID_A\"/><shortcut action=\"ID_B\">\n"
                                   "      Ctrl+B\n"
                                   "  </shortcut>\n"
                                   "\t<shortcut action=\"ID_C\"><![CDATA[Shift+F2]]></shortcut>\n"
                                   "</keymap>\n");
    Keymap keymap;
    QVERIFY2(keymap.load(path), qPrintable(keymap.errorString()));
    QCOMPARE(keymap.location(QStringLiteral("ID_A")), (SourceLocation{path, 4, 3}));
    QCOMPARE(keymap.location(QStringLiteral("ID_B")), (SourceLocation{path, 4, 24}));
    QCOMPARE(keymap.location(QStringLiteral("ID_C")), (SourceLocation{path, 7, 2}));
    QCOMPARE(keymap.shortcut(QStringLiteral("ID_B")), QKeySequence(Qt::CTRL | Qt::Key_B));
    QCOMPARE(keymap.shortcut(QStringLiteral("ID_C")), QKeySequence(Qt::SHIFT | Qt::Key_F2));
    QCOMPARE(keymap.location(QStringLiteral("ID_X")), SourceLocation());
    keymap.setShortcut(QStringLiteral("ID_A"), QKeySequence(QStringLiteral("F5")));
    QCOMPARE(keymap.location(QStringLiteral("ID_A")), SourceLocation());
}

void tst_Keymap::loadAcceptsSchemaLocation()
{
    QTemporaryDir dir;
    const QString path = TestFiles::write(QDir(dir.path()), QStringLiteral("schema.keymap"),
                                   "<keymap xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\"\n"
                                   "        xsi:noNamespaceSchemaLocation=\"keymap.xsd\" version=\"1\">\n"
                                   "    <shortcut action=\"ID_A\" xsi:type=\"xs:string\">a</shortcut>\n"
                                   "</keymap>\n");
    Keymap keymap;
    QVERIFY2(keymap.load(path), qPrintable(keymap.errorString()));
    QCOMPARE(keymap.shortcut(QStringLiteral("ID_A")), QKeySequence(Qt::Key_A));
}

void tst_Keymap::keyTexts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("written");
    QTest::newRow("modifiers in any order") << "Shift+Ctrl+P" << "Ctrl+Shift+P";
    QTest::newRow("lower case") << "ctrl+alt+x" << "Ctrl+Alt+X";
    QTest::newRow("comma key") << "Ctrl+," << "Ctrl+,";
    QTest::newRow("comma chords") << ",, ." << ",, .";
    QTest::newRow("four chords") << "Ctrl+K,Ctrl+K , A,B" << "Ctrl+K, Ctrl+K, A, B";
    QTest::newRow("long names") << "Escape" << "Esc";
    QTest::newRow("surrounding blanks") << "  F2  " << "F2";
    QTest::newRow("plus key") << "Ctrl++" << "Ctrl++";
}

// Key texts go through a file, as users write them.
void tst_Keymap::keyTexts()
{
    QFETCH(QString, text);
    QFETCH(QString, written);
    QTemporaryDir dir;
    const QString path = TestFiles::write(QDir(dir.path()), QStringLiteral("keys.keymap"),
                                   "<keymap><shortcut action=\"ID_A\">" + text.toUtf8() + "</shortcut></keymap>");
    Keymap keymap;
    QVERIFY2(keymap.load(path), qPrintable(keymap.errorString()));
    QCOMPARE(keymap.shortcut(QStringLiteral("ID_A")).toString(QKeySequence::PortableText), written);
}

// Each malformed file lies beside the message it must give; the message names the file as the
// caller did.
void tst_Keymap::malformedFileIsRefusedWhole_data()
{
    QTest::addColumn<QString>("name");
    const QDir dir(QStringLiteral(CS_TEST_DATA_DIR "/malformed"));
    const QStringList files = dir.entryList({QStringLiteral("*.keymap")}, QDir::Files, QDir::Name);
    QVERIFY(files.size() >= 15);
    for (const QString& file : files)
        QTest::newRow(qPrintable(file)) << file;
}

void tst_Keymap::malformedFileIsRefusedWhole()
{
    QFETCH(QString, name);
    const QDir dir(QStringLiteral(CS_TEST_DATA_DIR "/malformed"));
    const QString expected = QString::fromUtf8(TestFiles::read(dir.filePath(name + QStringLiteral(".expected")))).trimmed();
    QVERIFY(!expected.isEmpty());
    const QString saved = QDir::currentPath();
    QVERIFY(QDir::setCurrent(dir.path()));
    Keymap keymap;
    keymap.setShortcut(QStringLiteral("ID_KEPT"), QKeySequence(QStringLiteral("F9")));
    const Keymap before = keymap;
    const bool loaded = keymap.load(name);
    QDir::setCurrent(saved);
    QVERIFY(!loaded);
    QCOMPARE(keymap.errorString(), expected);
    QCOMPARE(keymap.errorLocation().file, name);
    QVERIFY(keymap.errorString().startsWith(keymap.errorLocation().toString() + QLatin1String(": ")));
    QVERIFY(keymap == before);
}

void tst_Keymap::missingFileIsRefused()
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("none.keymap"));
    Keymap keymap;
    QVERIFY(!keymap.load(path));
    QVERIFY2(keymap.errorString().startsWith(path + QStringLiteral(": cannot read: ")), qPrintable(keymap.errorString()));
    QCOMPARE(keymap.errorLocation(), (SourceLocation{path, 0, 0}));
}

void tst_Keymap::readerAgreesWithSchema_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("valid");
    for (const bool valid : {true, false}) {
        const QDir dir(QStringLiteral(CS_SCHEMA_SAMPLES_DIR) + (valid ? QStringLiteral("/valid") : QStringLiteral("/invalid")));
        const QStringList files = dir.entryList({QStringLiteral("*.keymap")}, QDir::Files, QDir::Name);
        QVERIFY(files.size() >= 3);
        for (const QString& file : files)
            QTest::newRow(qPrintable(file)) << dir.filePath(file) << valid;
    }
}

void tst_Keymap::readerAgreesWithSchema()
{
    QFETCH(QString, path);
    QFETCH(bool, valid);
    Keymap keymap;
    QCOMPARE(keymap.load(path), valid);
}

void tst_Keymap::saveToDirectoryFails()
{
    QTemporaryDir dir;
    Keymap keymap;
    keymap.setShortcut(QStringLiteral("ID_A"), QKeySequence(QStringLiteral("F1")));
    QVERIFY(!keymap.save(dir.path()));
    QVERIFY2(keymap.errorString().startsWith(dir.path() + QStringLiteral(": cannot write: ")), qPrintable(keymap.errorString()));
    QVERIFY(QFileInfo(dir.path()).isDir());
    const QString missingFolder = dir.filePath(QStringLiteral("no/such/folder/user.keymap"));
    QVERIFY(!keymap.save(missingFolder));
    QVERIFY(!QFile::exists(missingFolder));
    QVERIFY(keymap.save(dir.filePath(QStringLiteral("ok.keymap"))));
    QVERIFY(keymap.errorString().isEmpty());
}

void tst_Keymap::saveLeavesNoTemporaryFile()
{
    QTemporaryDir dir;
    const QString path = TestFiles::write(QDir(dir.path()), QStringLiteral("user.keymap"), "old");
    Keymap keymap;
    keymap.setShortcut(QStringLiteral("ID_A"), QKeySequence(QStringLiteral("F1")));
    QVERIFY(keymap.save(path));
    QCOMPARE(QDir(dir.path()).entryList(QDir::Files | QDir::Hidden), QStringList(QStringLiteral("user.keymap")));
    Keymap read;
    QVERIFY(read.load(path));
    QVERIFY(read == keymap);
}

void tst_Keymap::applySetsShortcutsAndClonesFollow()
{
    ActionPool pool;
    Action* line = pool.insertAction(QStringLiteral("ID_LINE"));
    Action* quit = pool.insertAction(QStringLiteral("ID_QUIT"));
    Action* undo = pool.insertAction(QStringLiteral("ID_UNDO"));
    quit->setShortcut(QKeySequence(QStringLiteral("Ctrl+Q")));
    undo->setShortcut(QKeySequence(QStringLiteral("Ctrl+Z")));
    QObject owner;
    QAction* menuClone = line->clone(&owner, 0);
    QPixmap pixmap(4, 4);
    pixmap.fill(Qt::red);
    QAction* ownIcon = line->clone(&owner, QIcon(pixmap), QString(), 1);
    ownIcon->setShortcut(QKeySequence(QStringLiteral("F7")));
    QAction* quitClone = quit->clone(&owner, 0);
    quitClone->setShortcut(quit->shortcut());

    Keymap keymap;
    keymap.setShortcut(QStringLiteral("ID_LINE"), QKeySequence(QStringLiteral("Ctrl+L")));
    keymap.setShortcut(QStringLiteral("ID_QUIT"), QKeySequence());
    keymap.setShortcut(QStringLiteral("ID_GONE"), QKeySequence(QStringLiteral("Ctrl+G")));
    keymap.setShortcut(QStringLiteral("ID_ALSO_GONE"), QKeySequence());
    QCOMPARE(keymap.applyTo(pool), QStringList({QStringLiteral("ID_ALSO_GONE"), QStringLiteral("ID_GONE")}));

    QCOMPARE(line->shortcut(), QKeySequence(QStringLiteral("Ctrl+L")));
    QCOMPARE(menuClone->shortcut(), QKeySequence(QStringLiteral("Ctrl+L")));
    QCOMPARE(ownIcon->shortcut(), QKeySequence(QStringLiteral("F7")));
    QVERIFY(quit->shortcut().isEmpty());
    QVERIFY(quitClone->shortcut().isEmpty());
    QCOMPARE(undo->shortcut(), QKeySequence(QStringLiteral("Ctrl+Z")));
}

// ActionPool::action takes a key without "ID_" for the end of a script; a keymap names actions.
void tst_Keymap::applyLooksActionsUpByExactName()
{
    ActionPool pool;
    Action* polyline = pool.insertAction(QStringLiteral("draw.polyline"));
    polyline->setScript(QStringLiteral("polyline"));
    Action* line = pool.insertAction(QStringLiteral("line"));
    line->setScript(QStringLiteral("line"));
    Keymap keymap;
    keymap.setShortcut(QStringLiteral("line"), QKeySequence(QStringLiteral("Ctrl+L")));
    keymap.setShortcut(QStringLiteral("ine"), QKeySequence(QStringLiteral("Ctrl+I")));
    QCOMPARE(keymap.applyTo(pool), QStringList(QStringLiteral("ine")));
    QCOMPARE(line->shortcut(), QKeySequence(QStringLiteral("Ctrl+L")));
    QVERIFY(polyline->shortcut().isEmpty());
}

void tst_Keymap::copiesAreIndependent()
{
    Keymap original;
    original.setShortcut(QStringLiteral("ID_A"), QKeySequence(QStringLiteral("F1")));
    Keymap copy = original;
    copy.setShortcut(QStringLiteral("ID_B"), QKeySequence(QStringLiteral("F2")));
    QCOMPARE(original.size(), 1);
    QCOMPARE(copy.size(), 2);
    Keymap moved = std::move(copy);
    QCOMPARE(moved.size(), 2);
    Keymap assigned;
    assigned = moved;
    QVERIFY(assigned == moved);
}

QTEST_MAIN(tst_Keymap)
#include "tst_keymap.moc"
