#include "IconFiles.h"

#include <CommandSystem/Action.h>
#include <CommandSystem/ActionPool.h>

#include <QDirIterator>
#include <QPointer>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTranslator>

using namespace Talvir::Vexa::Cs;

namespace {

// Marks every text of an action with the action's name, as a translator keyed by name would.
class NameTranslator : public QTranslator
{
public:
    QString translate(const char* context, const char* sourceText, const char*,
                      int) const override
    {
        if (!QByteArray(context).startsWith("ID_"))
            return QString();
        return QString::fromUtf8(sourceText) + QStringLiteral(" (") +
               QString::fromUtf8(context) + QLatin1Char(')');
    }
    bool isEmpty() const override { return false; }
};

QStringList& debugMessages()
{
    static QStringList messages;
    return messages;
}

void keepDebugMessage(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    if (type == QtDebugMsg)
        debugMessages().append(message);
}

int filterCalls = 0;

bool countingFilter(const QString&)
{
    ++filterCalls;
    return true;
}

} // namespace

class tst_ActionPool : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void emptyPool();
    void readsEveryElement();
    void saveWritesBaseline_data();
    void saveWritesBaseline();
    void saveDropsMenuIconAndMinWinVer();
    void saveResultIsInverted();
    void saveFailingWriteReturnsTrue();
    void loadMissingFileChangesNothing();
    void wrongRootIsReported();
    void unexpectedElementKeepsWhatWasRead();
    void errorInsideActionStillInsertsIt();
    void checkedIsExactTrue_data();
    void checkedIsExactTrue();
    void minWinVerComparesAsText_data();
    void minWinVerComparesAsText();
    void systemVersionIsAskedOnce();
    void toggleIssuesOnAndOff();
    void otherTypesIssueScriptUnchanged();
    void lookupByNameOrScriptSuffix();
    void replacedActionStaysConnected();
    void removeActionDisconnects();
    void insertActionByName();
    void outsideActionsAreNotOwned();
    void qActionsByName();
    void scriptListInNameOrder();
    void actionFilterIsOnlyStored();
    void fromFolderLoadsEveryFile();
    void fromMissingFolderIsEmpty();
    void iconFileSharedWithinLoad();

private:
    QString writeFile(const QString& name, const QByteArray& content) const;
    void loadFull(ActionPool& pool);

    QScopedPointer<QTemporaryDir> dir;
    QScopedPointer<NameTranslator> translator;
    QtMessageHandler previousHandler = nullptr;
};

void tst_ActionPool::init()
{
    dir.reset(new QTemporaryDir);
    QVERIFY(dir->isValid());
    PlatformHooks hooks;
    hooks.systemVersion = [] { return QStringLiteral("10.0"); };
    hooks.logicalDpi = [] { return QSizeF(96, 96); };
    setPlatformHooks(hooks);
    const QString icons = dir->filePath(QStringLiteral("icons"));
    QVERIFY(writePng(icons + QStringLiteral("/zoom.png"), QSize(24, 24), Qt::red));
    Action::setIconDirList({icons});
    debugMessages().clear();
    previousHandler = qInstallMessageHandler(keepDebugMessage);
}

void tst_ActionPool::cleanup()
{
    qInstallMessageHandler(previousHandler);
    if (translator)
        QCoreApplication::removeTranslator(translator.data());
    translator.reset();
    setPlatformHooks(PlatformHooks());
    Action::setIconDirList(QStringList());
}

QString tst_ActionPool::writeFile(const QString& name, const QByteArray& content) const
{
    const QString path = dir->filePath(name);
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write %s", qPrintable(path));
    return path;
}

void tst_ActionPool::loadFull(ActionPool& pool)
{
    translator.reset(new NameTranslator);
    QCoreApplication::installTranslator(translator.data());
    QVERIFY(pool.load(QStringLiteral(CS_TEST_DATA_DIR "/roundtrip/full.xcui")));
}

void tst_ActionPool::emptyPool()
{
    ActionPool pool;
    QCOMPARE(pool.metaObject()->className(), "ActionPool");
    QCOMPARE(pool.parent(), nullptr);
    QVERIFY(pool.actions().isEmpty());
    QVERIFY(pool.scriptList().isEmpty());
    QCOMPARE(pool.action(QStringLiteral("ID_FILE_OPEN")), nullptr);
    QCOMPARE(pool.action(QStringLiteral("open")), nullptr);
    QCOMPARE(pool.qAction(QStringLiteral("open")), nullptr);
}

void tst_ActionPool::readsEveryElement()
{
    ActionPool pool;
    loadFull(pool);
    QStringList names;
    for (Action* action : pool.actions()) {
        names.append(action->name());
        QCOMPARE(action->parent(), &pool);
    }
    QCOMPARE(names, (QStringList{"ID_EDIT_CUT", "ID_LAYER_NAME", "ID_VIEW_GRID", "ID_VIEW_ORTHO",
                                 "ID_ZOOM_WINDOW"}));

    Action* zoom = pool.action(QStringLiteral("ID_ZOOM_WINDOW"));
    QCOMPARE(zoom->type(), QStringLiteral("command"));
    QCOMPARE(zoom->script(), QStringLiteral("zoom.window"));
    QCOMPARE(zoom->ribbonText(), QStringLiteral("Zoom (ID_ZOOM_WINDOW)"));
    QCOMPARE(zoom->menuText(), QString::fromUtf8("Zoom window\u2026 (ID_ZOOM_WINDOW)"));
    QCOMPARE(zoom->form(), QStringLiteral("view"));
    QCOMPARE(zoom->iconName(), QStringLiteral("zoom"));
    QCOMPARE(zoom->icon().availableSizes(), QList<QSize>{QSize(24, 24)});
    QCOMPARE(zoom->hint(), QStringLiteral("Zoom to a window (ID_ZOOM_WINDOW)"));
    QCOMPARE(zoom->help(), QStringLiteral("zoom.html#window"));
    QCOMPARE(zoom->menuIcon(), QStringLiteral("zoom_small"));
    QCOMPARE(zoom->desc(), QStringLiteral("Zooms to the window that you pick (ID_ZOOM_WINDOW)"));
    QVERIFY(zoom->isEnabled());
    // Only widgets keep Widget and Mapper, only toggles Checked and Options.
    QVERIFY(zoom->widget().isEmpty());
    QVERIFY(zoom->mapper().isEmpty());
    QVERIFY(zoom->options().isEmpty());
    QVERIFY(!zoom->isCheckable());

    Action* grid = pool.action(QStringLiteral("ID_VIEW_GRID"));
    QCOMPARE(grid->type(), QStringLiteral("toggle"));
    QVERIFY(grid->isCheckable());
    QVERIFY(grid->isChecked());   // the later "Checked" wins
    QCOMPARE(grid->options(), QStringLiteral("step=10"));
    QVERIFY(grid->iconName().isEmpty());
    QVERIFY(grid->icon().isNull());
    QVERIFY(grid->help().isEmpty());
    QCOMPARE(grid->desc(), QStringLiteral("Shows the drawing grid & snaps to it (ID_VIEW_GRID)"));

    Action* ortho = pool.action(QStringLiteral("ID_VIEW_ORTHO"));
    QVERIFY(ortho->isCheckable());
    QVERIFY(!ortho->isChecked());
    QVERIFY(ortho->options().isEmpty());

    Action* layer = pool.action(QStringLiteral("ID_LAYER_NAME"));
    QCOMPARE(layer->widget(), QStringLiteral("edit"));
    QCOMPARE(layer->mapper(), QStringLiteral("recording"));
    QVERIFY(!layer->isCheckable());

    Action* cut = pool.action(QStringLiteral("ID_EDIT_CUT"));
    QVERIFY(cut->type().isEmpty());
    QCOMPARE(cut->script(), QStringLiteral("edit.cut -selection"));
    QVERIFY(cut->ribbonText().isEmpty());
    QVERIFY(debugMessages().isEmpty());
}

void tst_ActionPool::saveWritesBaseline_data()
{
    QTest::addColumn<QString>("input");
    QTest::addColumn<QString>("expected");
    QDirIterator files(QStringLiteral(CS_TEST_DATA_DIR "/roundtrip"),
                       QStringList(QStringLiteral("*.xcui")), QDir::Files);
    while (files.hasNext()) {
        const QString input = files.next();
        QTest::newRow(qPrintable(QFileInfo(input).fileName()))
            << input << input + QStringLiteral(".expected");
    }
}

void tst_ActionPool::saveWritesBaseline()
{
    QFETCH(QString, input);
    QFETCH(QString, expected);
    translator.reset(new NameTranslator);
    QCoreApplication::installTranslator(translator.data());
    ActionPool pool;
    QVERIFY(pool.load(input));
    const QString saved = dir->filePath(QStringLiteral("saved.xcui"));
    QVERIFY(!pool.save(saved));

    QFile savedFile(saved);
    QFile expectedFile(expected);
    QVERIFY(savedFile.open(QIODevice::ReadOnly));
    QVERIFY(expectedFile.open(QIODevice::ReadOnly));
    QCOMPARE(QString::fromUtf8(savedFile.readAll()), QString::fromUtf8(expectedFile.readAll()));
}

void tst_ActionPool::saveDropsMenuIconAndMinWinVer()
{
    ActionPool pool;
    loadFull(pool);
    const QString saved = dir->filePath(QStringLiteral("saved.xcui"));
    QVERIFY(!pool.save(saved));
    QFile file(saved);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray text = file.readAll();
    QVERIFY(!text.contains("MenuIcon"));
    QVERIFY(!text.contains("MinWinVer"));

    // What was saved reads back the same (texts are already translated: no translator now).
    QCoreApplication::removeTranslator(translator.data());
    ActionPool again;
    QVERIFY(again.load(saved));
    QCOMPARE(again.scriptList(), pool.scriptList());
    for (Action* original : pool.actions()) {
        Action* copy = again.action(original->name());
        QCOMPARE(copy->menuText(), original->menuText());
        QCOMPARE(copy->desc(), original->desc());
        QCOMPARE(copy->iconName(), original->iconName());
        QCOMPARE(copy->isChecked(), original->isChecked());
        QVERIFY(copy->menuIcon().isEmpty());
    }
}

void tst_ActionPool::saveResultIsInverted()
{
    ActionPool pool;
    pool.insertAction(QStringLiteral("ID_FILE_OPEN"))->setScript(QStringLiteral("file.open"));
    const QString path = dir->filePath(QStringLiteral("out.xcui"));
    QVERIFY(!pool.save(path));
    QVERIFY(QFileInfo(path).size() > 0);
    QVERIFY(!pool.save(dir->filePath(QStringLiteral("no/such/dir/out.xcui"))));
}

void tst_ActionPool::saveFailingWriteReturnsTrue()
{
    if (!QFileInfo(QStringLiteral("/dev/full")).isWritable())
        QSKIP("needs /dev/full");
    ActionPool pool;
    // More than the file's write buffer, so that a write reaches the full device.
    for (int index = 0; index < 400; ++index) {
        Action* action = pool.insertAction(QStringLiteral("ID_%1").arg(index));
        action->setDesc(QString(200, QLatin1Char('x')));
    }
    QVERIFY(pool.save(QStringLiteral("/dev/full")));
}

void tst_ActionPool::loadMissingFileChangesNothing()
{
    ActionPool pool;
    pool.insertAction(QStringLiteral("ID_KEPT"));
    QVERIFY(!pool.load(dir->filePath(QStringLiteral("missing.xcui"))));
    QCOMPARE(pool.actions().size(), 1);
    QVERIFY(debugMessages().isEmpty());
}

void tst_ActionPool::wrongRootIsReported()
{
    const QString path = writeFile(QStringLiteral("sub/wrong.xcui"),
                                   "<?xml version=\"1.0\"?>\n<Action name=\"ID_X\"/>\n");
    ActionPool pool;
    QVERIFY(!pool.load(path));
    QVERIFY(pool.actions().isEmpty());
    QCOMPARE(debugMessages().size(), 1);
    const QString message = debugMessages().first();
    QVERIFY2(message.startsWith(QLatin1String("An error has occurred while loading ")),
             qPrintable(message));
    QVERIFY2(message.contains(QLatin1String("\"wrong.xcui\"")), qPrintable(message));
    QVERIFY2(!message.contains(QLatin1String("sub/")), qPrintable(message));
    QVERIFY2(message.contains(QLatin1String(" at line  2 , column ")), qPrintable(message));
    QVERIFY2(message.endsWith(QLatin1String("\"Unexpected element: Action\"")),
             qPrintable(message));
}

void tst_ActionPool::unexpectedElementKeepsWhatWasRead()
{
    const QString path = writeFile(QStringLiteral("partial.xcui"),
                                   "<Actions><Action name=\"ID_A\"><Script>a</Script></Action>"
                                   "<Thing/><Action name=\"ID_B\"/></Actions>");
    ActionPool pool;
    QVERIFY(!pool.load(path));
    QCOMPARE(pool.scriptList(), QStringList{QStringLiteral("a")});
    QCOMPARE(pool.action(QStringLiteral("ID_B")), nullptr);
    QCOMPARE(debugMessages().size(), 1);
    QVERIFY(debugMessages().first().endsWith(QLatin1String("\"Unexpected element: Thing\"")));
}

void tst_ActionPool::errorInsideActionStillInsertsIt()
{
    const QString path = writeFile(QStringLiteral("broken.xcui"),
                                   "<Actions><Action name=\"ID_A\" type=\"toggle\">"
                                   "<Script>a</Script><Checked>true</Checked>"
                                   "<Hint>x<b>y</b></Hint><Options>late</Options>"
                                   "</Action></Actions>");
    ActionPool pool;
    QVERIFY(!pool.load(path));
    Action* action = pool.action(QStringLiteral("ID_A"));
    QVERIFY(action);
    QCOMPARE(action->script(), QStringLiteral("a"));
    QVERIFY(action->isChecked());
    QVERIFY(action->options().isEmpty());
    QCOMPARE(debugMessages().size(), 1);
}

void tst_ActionPool::checkedIsExactTrue_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("checked");
    QTest::addColumn<bool>("expected");
    QTest::newRow("toggle true") << "toggle" << "<Checked>true</Checked>" << true;
    QTest::newRow("toggle True") << "toggle" << "<Checked>True</Checked>" << false;
    QTest::newRow("toggle 1") << "toggle" << "<Checked>1</Checked>" << false;
    QTest::newRow("toggle missing") << "toggle" << "" << false;
    QTest::newRow("check_box true") << "check_box" << "<Checked>true</Checked>" << false;
}

void tst_ActionPool::checkedIsExactTrue()
{
    QFETCH(QString, type);
    QFETCH(QString, checked);
    QFETCH(bool, expected);
    const QString path = writeFile(
        QStringLiteral("checked.xcui"),
        QStringLiteral("<Actions><Action name=\"ID_A\" type=\"%1\">%2</Action></Actions>")
            .arg(type, checked).toUtf8());
    ActionPool pool;
    QVERIFY(pool.load(path));
    Action* action = pool.action(QStringLiteral("ID_A"));
    QVERIFY(action->isCheckable());
    QCOMPARE(action->isChecked(), expected);
}

void tst_ActionPool::minWinVerComparesAsText_data()
{
    QTest::addColumn<QString>("system");
    QTest::addColumn<QString>("required");
    QTest::addColumn<bool>("kept");
    QTest::newRow("10.0 below 6.1") << "10.0" << "6.1" << false;
    QTest::newRow("6.1 equal") << "6.1" << "6.1" << true;
    QTest::newRow("6.1 above 10.0") << "6.1" << "10.0" << true;
    QTest::newRow("6.1 below 6.2") << "6.1" << "6.2" << false;
    QTest::newRow("unknown system") << "" << "5.1" << false;
}

void tst_ActionPool::minWinVerComparesAsText()
{
    QFETCH(QString, system);
    QFETCH(QString, required);
    QFETCH(bool, kept);
    PlatformHooks hooks;
    hooks.systemVersion = [system] { return system; };
    setPlatformHooks(hooks);
    const QString path = writeFile(
        QStringLiteral("version.xcui"),
        QStringLiteral("<Actions><Action name=\"ID_NEW\"><MinWinVer>%1</MinWinVer>"
                       "<Script>new</Script></Action><Action name=\"ID_OLD\"/></Actions>")
            .arg(required).toUtf8());
    ActionPool pool;
    QVERIFY(pool.load(path));
    QCOMPARE(pool.action(QStringLiteral("ID_NEW")) != nullptr, kept);
    QVERIFY(pool.action(QStringLiteral("ID_OLD")));
    // A dropped action stays a disabled child of the pool.
    Action* made = pool.findChild<Action*>(QStringLiteral("ID_NEW"));
    QVERIFY(made);
    QCOMPARE(made->isEnabled(), kept);
    QCOMPARE(made->script(), QStringLiteral("new"));
}

void tst_ActionPool::systemVersionIsAskedOnce()
{
    int asked = 0;
    QString answer = QStringLiteral("6.1");
    PlatformHooks hooks;
    hooks.systemVersion = [&] { ++asked; return answer; };
    setPlatformHooks(hooks);
    const QString path = writeFile(
        QStringLiteral("twice.xcui"),
        "<Actions><Action name=\"ID_A\"><MinWinVer>6.0</MinWinVer></Action>"
        "<Action name=\"ID_B\"><MinWinVer>6.0</MinWinVer></Action></Actions>");
    ActionPool pool;
    QVERIFY(pool.load(path));
    QVERIFY(pool.load(path));
    QCOMPARE(asked, 1);

    // An empty answer is not kept.
    answer.clear();
    setPlatformHooks(hooks);
    asked = 0;
    QVERIFY(pool.load(path));
    QCOMPARE(asked, 2);
}

void tst_ActionPool::toggleIssuesOnAndOff()
{
    const QString path = writeFile(QStringLiteral("snap.xcui"),
                                   "<Actions><Action name=\"ID_SNAP\" type=\"toggle\">"
                                   "<Script>Snap</Script></Action></Actions>");
    ActionPool pool;
    QVERIFY(pool.load(path));
    Action* snap = pool.action(QStringLiteral("ID_SNAP"));
    QSignalSpy issued(&pool, &ActionPool::commandIssued);
    QAction* clone = snap->clone(nullptr, 1);
    clone->trigger();
    clone->trigger();
    QCOMPARE(issued.count(), 2);
    QCOMPARE(issued.at(0).at(0).toString(), QStringLiteral("SnapOn"));
    QCOMPARE(issued.at(1).at(0).toString(), QStringLiteral("SnapOff"));
    snap->setChecked(true);
    snap->trigger();
    QCOMPARE(issued.at(2).at(0).toString(), QStringLiteral("SnapOn"));
}

void tst_ActionPool::otherTypesIssueScriptUnchanged()
{
    ActionPool pool;
    Action* box = pool.insertAction(QStringLiteral("ID_BOX"));
    box->setType(QStringLiteral("check_box"));
    box->setCheckable(true);
    box->setScript(QStringLiteral("box"));
    Action* empty = pool.insertAction(QStringLiteral("ID_EMPTY"));
    QSignalSpy issued(&pool, &ActionPool::commandIssued);
    box->clone(nullptr, 1)->trigger();
    empty->trigger();
    QCOMPARE(issued.count(), 2);
    QCOMPARE(issued.at(0).at(0).toString(), QStringLiteral("box"));
    QVERIFY(issued.at(1).at(0).toString().isEmpty());
}

void tst_ActionPool::lookupByNameOrScriptSuffix()
{
    ActionPool pool;
    pool.insertAction(QStringLiteral("ID_FILE_OPEN"))->setScript(QStringLiteral("file.open"));
    pool.insertAction(QStringLiteral("ID_DOC_OPEN"))->setScript(QStringLiteral("doc.open"));
    pool.insertAction(QStringLiteral("ID_CLOSE"))->setScript(QStringLiteral("file.close"));
    pool.insertAction(QStringLiteral("OPEN"))->setScript(QStringLiteral("ID_FILE_OPEN"));

    QCOMPARE(pool.action(QStringLiteral("ID_FILE_OPEN"))->script(), QStringLiteral("file.open"));
    QCOMPARE(pool.action(QStringLiteral("ID_FILE")), nullptr);
    QCOMPARE(pool.action(QStringLiteral("open"))->name(), QStringLiteral("ID_DOC_OPEN"));
    QCOMPARE(pool.action(QStringLiteral("file.open"))->name(), QStringLiteral("ID_FILE_OPEN"));
    QCOMPARE(pool.action(QStringLiteral("Open")), nullptr);
    QCOMPARE(pool.action(QStringLiteral("FILE_OPEN"))->name(), QStringLiteral("OPEN"));
}

void tst_ActionPool::replacedActionStaysConnected()
{
    ActionPool pool;
    Action* first = pool.insertAction(QStringLiteral("ID_X"));
    first->setScript(QStringLiteral("first"));
    Action second(nullptr);
    second.setName(QStringLiteral("ID_X"));
    second.setScript(QStringLiteral("second"));
    pool.insertAction(&second);
    QCOMPARE(pool.actions(), QList<Action*>{&second});
    QCOMPARE(pool.action(QStringLiteral("ID_X")), &second);

    QSignalSpy issued(&pool, &ActionPool::commandIssued);
    first->clone(nullptr, 1)->trigger();
    second.trigger();
    QCOMPARE(issued.count(), 2);
    QCOMPARE(issued.at(0).at(0).toString(), QStringLiteral("first"));
    QCOMPARE(issued.at(1).at(0).toString(), QStringLiteral("second"));
    pool.removeAction(&second);
}

void tst_ActionPool::removeActionDisconnects()
{
    ActionPool pool;
    Action* action = pool.insertAction(QStringLiteral("ID_X"));
    QSignalSpy issued(&pool, &ActionPool::commandIssued);
    QCOMPARE(pool.removeAction(QStringLiteral("ID_X")), action);
    QCOMPARE(pool.removeAction(QStringLiteral("ID_X")), nullptr);
    QCOMPARE(action->parent(), &pool);
    action->trigger();
    QCOMPARE(issued.count(), 0);
    QVERIFY(pool.actions().isEmpty());

    pool.insertAction(action);
    pool.insertAction(static_cast<Action*>(nullptr));
    pool.removeAction(static_cast<Action*>(nullptr));
    QCOMPARE(pool.actions().size(), 1);
    pool.removeAction(action);
    QVERIFY(pool.actions().isEmpty());
}

void tst_ActionPool::insertActionByName()
{
    ActionPool pool;
    Action* action = pool.insertAction(QStringLiteral("ID_NEW"));
    QCOMPARE(action->name(), QStringLiteral("ID_NEW"));
    QCOMPARE(action->parent(), &pool);
    QCOMPARE(pool.action(QStringLiteral("ID_NEW")), action);
    QSignalSpy issued(&pool, &ActionPool::commandIssued);
    action->trigger();
    QCOMPARE(issued.count(), 1);
}

void tst_ActionPool::outsideActionsAreNotOwned()
{
    Action outside(nullptr);
    outside.setName(QStringLiteral("ID_OUTSIDE"));
    QAction plain(nullptr);
    QPointer<Action> made;
    QPointer<Action> removed;
    {
        ActionPool pool;
        pool.insertAction(&outside);
        pool.insertQAction(&plain);
        made = pool.insertAction(QStringLiteral("ID_MADE"));
        removed = pool.insertAction(QStringLiteral("ID_REMOVED"));
        pool.removeAction(removed);
    }
    QVERIFY(made.isNull());
    QVERIFY(removed.isNull());
    QCOMPARE(outside.name(), QStringLiteral("ID_OUTSIDE"));
}

void tst_ActionPool::qActionsByName()
{
    ActionPool pool;
    QAction first(nullptr);
    QAction second(nullptr);
    first.setObjectName(QStringLiteral("cut"));
    second.setObjectName(QStringLiteral("cut"));
    pool.insertQAction(nullptr);
    pool.insertQAction(&first);
    pool.insertQAction(&second);
    pool.insertQAction(&first);
    QCOMPARE(pool.qAction(QStringLiteral("cut")), &first);
    QCOMPARE(pool.qAction(QStringLiteral("copy")), nullptr);
    QVERIFY(pool.actions().isEmpty());
}

void tst_ActionPool::scriptListInNameOrder()
{
    ActionPool pool;
    pool.insertAction(QStringLiteral("b"))->setScript(QStringLiteral("same"));
    pool.insertAction(QStringLiteral("a"))->setScript(QStringLiteral("same"));
    pool.insertAction(QStringLiteral("C"));
    QCOMPARE(pool.scriptList(), (QStringList{QString(), "same", "same"}));
}

void tst_ActionPool::actionFilterIsOnlyStored()
{
    QVERIFY(!ActionPool::filter);
    ActionPool::setActionFilter(countingFilter);
    QVERIFY(ActionPool::filter == &countingFilter);
    ActionPool pool;
    loadFull(pool);
    pool.actions().first()->trigger();
    QCOMPARE(filterCalls, 0);
    ActionPool::setActionFilter(nullptr);
}

void tst_ActionPool::fromFolderLoadsEveryFile()
{
    writeFile(QStringLiteral("ui/a.xcui"), "<Actions><Action name=\"ID_A\"/>"
                                           "<Action name=\"ID_SAME\"><Script>a</Script>"
                                           "</Action></Actions>");
    writeFile(QStringLiteral("ui/b.xcui"), "<Actions><Action name=\"ID_B\"/>"
                                           "<Action name=\"ID_SAME\"><Script>b</Script>"
                                           "</Action></Actions>");
    writeFile(QStringLiteral("ui/bad.xcui"), "<Action name=\"ID_BAD\"/>");
    writeFile(QStringLiteral("ui/c.txt"), "<Actions><Action name=\"ID_C\"/></Actions>");
    QScopedPointer<ActionPool> pool(ActionPool::fromFolder(dir->filePath(QStringLiteral("ui"))));
    QCOMPARE(pool->parent(), nullptr);
    QStringList names;
    for (Action* action : pool->actions())
        names.append(action->name());
    QCOMPARE(names, (QStringList{"ID_A", "ID_B", "ID_SAME"}));
    // Whichever file came later holds the entry; both actions belong to the pool.
    const QString script = pool->action(QStringLiteral("ID_SAME"))->script();
    QVERIFY(script == QLatin1String("a") || script == QLatin1String("b"));
    QCOMPARE(pool->findChildren<Action*>(QStringLiteral("ID_SAME")).size(), 2);
    QCOMPARE(debugMessages().size(), 1);
}

void tst_ActionPool::fromMissingFolderIsEmpty()
{
    QScopedPointer<ActionPool> pool(ActionPool::fromFolder(dir->filePath(QStringLiteral("no"))));
    QVERIFY(pool);
    QVERIFY(pool->actions().isEmpty());
}

void tst_ActionPool::iconFileSharedWithinLoad()
{
    PlatformHooks hooks;
    hooks.logicalDpi = [] { return QSizeF(144, 144); };
    setPlatformHooks(hooks);
    const QString icons = Action::iconDirList().first();
    QVERIFY(writePng(icons + QStringLiteral("/zoom_active.png"), QSize(24, 24), Qt::blue));
    const QString path = writeFile(QStringLiteral("icons.xcui"),
                                   "<Actions><Action name=\"ID_A\"><Icon>zoom</Icon></Action>"
                                   "<Action name=\"ID_B\"><Icon>zoom</Icon></Action></Actions>");
    ActionPool pool;
    QVERIFY(pool.load(path));
    for (const char* name : {"ID_A", "ID_B"}) {
        const QIcon icon = pool.action(QString::fromLatin1(name))->icon();
        QCOMPARE(icon.availableSizes(QIcon::Normal), QList<QSize>{QSize(96, 96)});
        QCOMPARE(icon.availableSizes(QIcon::Active), QList<QSize>{QSize(96, 96)});
        QVERIFY(icon.availableSizes(QIcon::Disabled).isEmpty());
    }
    // Each action still has an icon of its own, as an icon set outside a load.
    Action* first = pool.action(QStringLiteral("ID_A"));
    QSignalSpy spy(first, &Action::iconChanged);
    first->setIcon(QStringLiteral("zoom"));
    QCOMPARE(spy.count(), 1);

    // A later load reads the file again.
    // A new size too: Qt keys its own pixmap cache by path, size and time in seconds.
    QVERIFY(writePng(icons + QStringLiteral("/zoom.png"), QSize(30, 30), Qt::green));
    ActionPool later;
    QVERIFY(later.load(path));
    const QImage image = later.action(QStringLiteral("ID_B"))->icon().pixmap(96).toImage();
    QCOMPARE(image.pixelColor(10, 10), QColor(Qt::green));
}

QTEST_MAIN(tst_ActionPool)
#include "tst_actionpool.moc"
