#include "TestFiles.h"

#include <CommandSystem/Action.h>
#include <CommandSystem/ActionPool.h>
#include <CommandSystem/Keymap.h>
#include <CommandSystem/ShortcutScheme.h>

#include <QDir>
#include <QFile>
#include <QIcon>
#include <QPixmap>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace Talvir::Vexa::Cs;

namespace {

QByteArray uiFile(const QStringList& names)
{
    QByteArray text = "<Actions name=\"Vexa\" version=\"1700\">\n";
    for (const QString& name : names)
        text += "<Action name=\"" + name.toUtf8() + "\" type=\"plain\"><Script>"
                + name.mid(3).toLower().toUtf8() + "</Script></Action>\n";
    return text + "</Actions>\n";
}

QKeySequence keys(const char* text)
{
    return QKeySequence(QString::fromLatin1(text));
}

} // namespace

class tst_ShortcutScheme : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void defaultsAreTheShortcutsWhenMade();
    void loadAppliesChangesOnTopOfDefaults();
    void changesHoldOnlyTheDifference();
    void changeSurvivesANewCatalogueAndOrphanIsKept();
    void missingFileMeansDefaults();
    void malformedFileChangesNothing();
    void loadReplacesEarlierChanges();
    void resetToDefaultsForgetsOrphans();
    void clonesFollowExceptThoseWithTheirOwnIcon();
    void failedSaveIsReported();

private:
    // A pool read from a UI definition file of these actions, with the catalogue's defaults.
    std::unique_ptr<ActionPool> catalogue(const QStringList& names);
    QString write(const QString& name, const QByteArray& content);

    std::unique_ptr<QTemporaryDir> m_dir;
};

void tst_ShortcutScheme::init()
{
    m_dir = std::make_unique<QTemporaryDir>();
    QVERIFY(m_dir->isValid());
}

QString tst_ShortcutScheme::write(const QString& name, const QByteArray& content)
{
    return TestFiles::write(QDir(m_dir->path()), name, content);
}

std::unique_ptr<ActionPool> tst_ShortcutScheme::catalogue(const QStringList& names)
{
    auto pool = std::make_unique<ActionPool>();
    if (!pool->load(write(QStringLiteral("catalogue.xcui"), uiFile(names))))
        return nullptr;
    Keymap defaults;
    defaults.setShortcut(QStringLiteral("ID_LINE"), keys("Ctrl+L"));
    defaults.setShortcut(QStringLiteral("ID_UNDO"), keys("Ctrl+Z"));
    defaults.setShortcut(QStringLiteral("ID_OLD"), keys("F5"));
    defaults.applyTo(*pool);
    return pool;
}

void tst_ShortcutScheme::defaultsAreTheShortcutsWhenMade()
{
    const auto pool = catalogue({QStringLiteral("ID_LINE"), QStringLiteral("ID_UNDO"), QStringLiteral("ID_CIRCLE")});
    QVERIFY(pool);
    const ShortcutScheme scheme(pool.get());
    QCOMPARE(scheme.pool(), pool.get());
    pool->action(QStringLiteral("ID_LINE"))->setShortcut(keys("F2"));
    QCOMPARE(scheme.defaultShortcut(QStringLiteral("ID_LINE")), keys("Ctrl+L"));
    QCOMPARE(scheme.defaultShortcut(QStringLiteral("ID_UNDO")), keys("Ctrl+Z"));
    QVERIFY(scheme.defaultShortcut(QStringLiteral("ID_CIRCLE")).isEmpty());
    QVERIFY(scheme.defaultShortcut(QStringLiteral("ID_NOTHING")).isEmpty());
}

void tst_ShortcutScheme::loadAppliesChangesOnTopOfDefaults()
{
    const auto pool = catalogue({QStringLiteral("ID_LINE"), QStringLiteral("ID_UNDO"), QStringLiteral("ID_CIRCLE")});
    QVERIFY(pool);
    ShortcutScheme scheme(pool.get());
    const QString user = write(QStringLiteral("user.keymap"),
                               "<keymap version=\"1\">\n"
                               "  <shortcut action=\"ID_CIRCLE\">Ctrl+Shift+C</shortcut>\n"
                               "  <none action=\"ID_UNDO\"/>\n"
                               "</keymap>\n");
    QVERIFY2(scheme.load(user), qPrintable(scheme.errorString()));
    QCOMPARE(pool->action(QStringLiteral("ID_CIRCLE"))->shortcut(), keys("Ctrl+Shift+C"));
    QVERIFY(pool->action(QStringLiteral("ID_UNDO"))->shortcut().isEmpty());
    QCOMPARE(pool->action(QStringLiteral("ID_LINE"))->shortcut(), keys("Ctrl+L"));
    QVERIFY(scheme.orphans().isEmpty());
    QVERIFY(scheme.errorString().isEmpty());
}

void tst_ShortcutScheme::changesHoldOnlyTheDifference()
{
    const auto pool = catalogue({QStringLiteral("ID_LINE"), QStringLiteral("ID_UNDO"), QStringLiteral("ID_CIRCLE")});
    QVERIFY(pool);
    ShortcutScheme scheme(pool.get());
    QVERIFY(scheme.changes().isEmpty());
    pool->action(QStringLiteral("ID_CIRCLE"))->setShortcut(keys("C"));
    pool->action(QStringLiteral("ID_UNDO"))->setShortcut(QKeySequence());
    pool->action(QStringLiteral("ID_LINE"))->setShortcut(keys("F2"));
    pool->action(QStringLiteral("ID_LINE"))->setShortcut(keys("Ctrl+L"));
    const Keymap changes = scheme.changes();
    QCOMPARE(changes.actionNames(), QStringList({QStringLiteral("ID_CIRCLE"), QStringLiteral("ID_UNDO")}));
    QCOMPARE(changes.shortcut(QStringLiteral("ID_CIRCLE")), keys("C"));
    QVERIFY(changes.contains(QStringLiteral("ID_UNDO")));
    QVERIFY(changes.shortcut(QStringLiteral("ID_UNDO")).isEmpty());
}

// The user changes a shortcut and saves; a new catalogue renames one action. The change is
// kept, and the renamed action's entry is reported and written back, never dropped.
void tst_ShortcutScheme::changeSurvivesANewCatalogueAndOrphanIsKept()
{
    const QString user = m_dir->filePath(QStringLiteral("user.keymap"));
    {
        const auto pool = catalogue({QStringLiteral("ID_LINE"), QStringLiteral("ID_UNDO"), QStringLiteral("ID_OLD")});
        QVERIFY(pool);
        ShortcutScheme scheme(pool.get());
        QVERIFY(scheme.load(user));
        pool->action(QStringLiteral("ID_OLD"))->setShortcut(keys("Ctrl+O"));
        pool->action(QStringLiteral("ID_UNDO"))->setShortcut(keys("Alt+Backspace"));
        QVERIFY2(scheme.save(user), qPrintable(scheme.errorString()));
    }
    const auto pool = catalogue({QStringLiteral("ID_LINE"), QStringLiteral("ID_UNDO"), QStringLiteral("ID_NEW")});
    QVERIFY(pool);
    ShortcutScheme scheme(pool.get());
    QVERIFY2(scheme.load(user), qPrintable(scheme.errorString()));
    QCOMPARE(pool->action(QStringLiteral("ID_UNDO"))->shortcut(), keys("Alt+Backspace"));
    QVERIFY(pool->action(QStringLiteral("ID_NEW"))->shortcut().isEmpty());
    QCOMPARE(scheme.orphans(), QStringList(QStringLiteral("ID_OLD")));
    QCOMPARE(scheme.changes().location(QStringLiteral("ID_OLD")).line, 3);

    pool->action(QStringLiteral("ID_LINE"))->setShortcut(keys("Ctrl+Shift+L"));
    QVERIFY(scheme.save(user));
    Keymap saved;
    QVERIFY(saved.load(user));
    QCOMPARE(saved.actionNames(), QStringList({QStringLiteral("ID_LINE"), QStringLiteral("ID_OLD"), QStringLiteral("ID_UNDO")}));
    QCOMPARE(saved.shortcut(QStringLiteral("ID_OLD")), keys("Ctrl+O"));
    QCOMPARE(saved.shortcut(QStringLiteral("ID_LINE")), keys("Ctrl+Shift+L"));

    // Removing the user's file gives every action its default again.
    QVERIFY(QFile::remove(user));
    QVERIFY(scheme.load(user));
    QCOMPARE(pool->action(QStringLiteral("ID_LINE"))->shortcut(), keys("Ctrl+L"));
    QCOMPARE(pool->action(QStringLiteral("ID_UNDO"))->shortcut(), keys("Ctrl+Z"));
    QVERIFY(scheme.orphans().isEmpty());
}

void tst_ShortcutScheme::missingFileMeansDefaults()
{
    const auto pool = catalogue({QStringLiteral("ID_LINE"), QStringLiteral("ID_UNDO")});
    QVERIFY(pool);
    ShortcutScheme scheme(pool.get());
    pool->action(QStringLiteral("ID_LINE"))->setShortcut(keys("F2"));
    QVERIFY(scheme.load(m_dir->filePath(QStringLiteral("never-written.keymap"))));
    QCOMPARE(pool->action(QStringLiteral("ID_LINE"))->shortcut(), keys("Ctrl+L"));
    QVERIFY(scheme.changes().isEmpty());
}

// A file that is broken half-way applies none of its entries, not even those before the break.
void tst_ShortcutScheme::malformedFileChangesNothing()
{
    const auto pool = catalogue({QStringLiteral("ID_LINE"), QStringLiteral("ID_UNDO"), QStringLiteral("ID_CIRCLE")});
    QVERIFY(pool);
    ShortcutScheme scheme(pool.get());
    pool->action(QStringLiteral("ID_CIRCLE"))->setShortcut(keys("F3"));
    const QString broken = write(QStringLiteral("broken.keymap"),
                                 "<keymap version=\"1\">\n"
                                 "  <shortcut action=\"ID_LINE\">F8</shortcut>\n"
                                 "  <shortcut action=\"ID_UNDO\">Ctrl+Nothing</shortcut>\n"
                                 "</keymap>\n");
    QSignalSpy lineChanged(pool->action(QStringLiteral("ID_LINE")), &Action::shortcutChanged);
    QVERIFY(!scheme.load(broken));
    QCOMPARE(scheme.errorString(), broken + QStringLiteral(":3:3: Not a key: \"Ctrl+Nothing\""));
    QCOMPARE(lineChanged.count(), 0);
    QCOMPARE(pool->action(QStringLiteral("ID_LINE"))->shortcut(), keys("Ctrl+L"));
    QCOMPARE(pool->action(QStringLiteral("ID_CIRCLE"))->shortcut(), keys("F3"));
    QCOMPARE(pool->action(QStringLiteral("ID_UNDO"))->shortcut(), keys("Ctrl+Z"));
}

void tst_ShortcutScheme::loadReplacesEarlierChanges()
{
    const auto pool = catalogue({QStringLiteral("ID_LINE"), QStringLiteral("ID_UNDO"), QStringLiteral("ID_CIRCLE")});
    QVERIFY(pool);
    ShortcutScheme scheme(pool.get());
    Keymap first;
    first.setShortcut(QStringLiteral("ID_CIRCLE"), keys("F3"));
    first.setShortcut(QStringLiteral("ID_GONE"), keys("F4"));
    scheme.apply(first);
    QCOMPARE(scheme.orphans(), QStringList(QStringLiteral("ID_GONE")));
    Keymap second;
    second.setShortcut(QStringLiteral("ID_LINE"), keys("F6"));
    scheme.apply(second);
    QVERIFY(pool->action(QStringLiteral("ID_CIRCLE"))->shortcut().isEmpty());
    QCOMPARE(pool->action(QStringLiteral("ID_LINE"))->shortcut(), keys("F6"));
    QVERIFY(scheme.orphans().isEmpty());
    QCOMPARE(scheme.changes(), second);
}

void tst_ShortcutScheme::resetToDefaultsForgetsOrphans()
{
    const auto pool = catalogue({QStringLiteral("ID_LINE"), QStringLiteral("ID_UNDO")});
    QVERIFY(pool);
    ShortcutScheme scheme(pool.get());
    Keymap keymap;
    keymap.setShortcut(QStringLiteral("ID_LINE"), QKeySequence());
    keymap.setShortcut(QStringLiteral("ID_GONE"), keys("F4"));
    scheme.apply(keymap);
    QVERIFY(pool->action(QStringLiteral("ID_LINE"))->shortcut().isEmpty());
    scheme.resetToDefaults();
    QCOMPARE(pool->action(QStringLiteral("ID_LINE"))->shortcut(), keys("Ctrl+L"));
    QVERIFY(scheme.orphans().isEmpty());
    QVERIFY(scheme.changes().isEmpty());
}

void tst_ShortcutScheme::clonesFollowExceptThoseWithTheirOwnIcon()
{
    const auto pool = catalogue({QStringLiteral("ID_LINE"), QStringLiteral("ID_UNDO")});
    QVERIFY(pool);
    Action* line = pool->action(QStringLiteral("ID_LINE"));
    QObject owner;
    QAction* menu = line->clone(&owner, 0);
    menu->setShortcut(line->shortcut());
    QAction* ownText = line->clone(&owner, QIcon(), QStringLiteral("Mine"), 1);
    QPixmap pixmap(2, 2);
    pixmap.fill(Qt::blue);
    QAction* ownIcon = line->clone(&owner, QIcon(pixmap), QString(), 1);
    ownIcon->setShortcut(keys("F12"));
    ShortcutScheme scheme(pool.get());
    Keymap keymap;
    keymap.setShortcut(QStringLiteral("ID_LINE"), keys("Alt+L"));
    scheme.apply(keymap);
    QCOMPARE(menu->shortcut(), keys("Alt+L"));
    QCOMPARE(ownText->shortcut(), keys("Alt+L"));
    QCOMPARE(ownIcon->shortcut(), keys("F12"));
    scheme.resetToDefaults();
    QCOMPARE(menu->shortcut(), keys("Ctrl+L"));
    QCOMPARE(ownIcon->shortcut(), keys("F12"));
}

void tst_ShortcutScheme::failedSaveIsReported()
{
    const auto pool = catalogue({QStringLiteral("ID_LINE")});
    QVERIFY(pool);
    ShortcutScheme scheme(pool.get());
    pool->action(QStringLiteral("ID_LINE"))->setShortcut(keys("F2"));
    QVERIFY(!scheme.save(m_dir->path()));
    QVERIFY2(scheme.errorString().startsWith(m_dir->path() + QStringLiteral(": cannot write: ")),
             qPrintable(scheme.errorString()));
    QVERIFY(scheme.save(m_dir->filePath(QStringLiteral("user.keymap"))));
    QVERIFY(scheme.errorString().isEmpty());
}

QTEST_MAIN(tst_ShortcutScheme)
#include "tst_shortcutscheme.moc"
