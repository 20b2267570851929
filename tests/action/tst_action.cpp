#include "IconFiles.h"

#include <CommandSystem/Action.h>
#include <CommandSystem/ActionMapper.h>
#include <CommandSystem/WidgetMapper.h>

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace Talvir::Vexa::Cs;

// A host's own action type, bigger than Action itself.
class HostAction : public Action
{
public:
    using Action::Action;
    char extra[256] = {};
};

class tst_Action : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void defaults();
    void plainSettersStoreAndEmitNothing();
    void textSettersEmitOnlyOnChange_data();
    void textSettersEmitOnlyOnChange();
    void shortcutEmptyAlwaysEmits();
    void shortcutSameValueEmitsOnce();
    void stateSettersAlwaysEmit_data();
    void stateSettersAlwaysEmit();
    void triggerEmitsOnlyTriggered();
    void iconDirListIsReplacedWhole();

    void iconExistingFileIsUsedAsIs();
    void iconNameGetsPngAppended();
    void iconSearchesDirectoriesInOrder();
    void iconDotInDirectoryBlocksPngSuffix();
    void iconNotFoundChangesNothing();
    void iconScalesWithDesktopDpi_data();
    void iconScalesWithDesktopDpi();
    void iconVariantsAreAddedByMode();
    void iconWithoutVariantsHasOnlyNormalMode();
    void iconFileIsReadAfresh();

    void allocatorReusesBlocks();
    void hostSubclassUsesGlobalAllocator();

private:
    QString iconPath(const QString& name) const { return icons->filePath(name); }

    QScopedPointer<QTemporaryDir> icons;
};

void tst_Action::init()
{
    icons.reset(new QTemporaryDir);
    QVERIFY(icons->isValid());
    useDesktopDpi(96, 96);
    Action::setIconDirList(QStringList());
}

void tst_Action::cleanup()
{
    setPlatformHooks(PlatformHooks());
    Action::setIconDirList(QStringList());
}

void tst_Action::defaults()
{
    QObject parent;
    Action action(&parent);
    QCOMPARE(action.parent(), &parent);
    QCOMPARE(action.metaObject()->className(), "Action");
    for (const QString& value : {action.name(), action.type(), action.form(), action.ribbonText(),
                                 action.menuText(), action.iconName(), action.menuIcon(),
                                 action.hint(), action.help(), action.desc(), action.script(),
                                 action.widget(), action.mapper(), action.options()})
        QVERIFY(value.isEmpty());
    QCOMPARE(action.actionMapper(), nullptr);
    QCOMPARE(action.widgetMapper(), nullptr);
    QVERIFY(action.icon().isNull());
}

void tst_Action::plainSettersStoreAndEmitNothing()
{
    Action action(nullptr);
    QList<QSharedPointer<QSignalSpy>> spies;
    const QMetaObject* meta = action.metaObject();
    for (int index = meta->methodOffset(); index < meta->methodCount(); ++index) {
        const QMetaMethod method = meta->method(index);
        if (method.methodType() == QMetaMethod::Signal)
            spies.append(QSharedPointer<QSignalSpy>::create(&action, method));
    }
    QCOMPARE(spies.size(), 8);

    action.setName(QStringLiteral("ID_EDIT_COPY"));
    action.setType(QStringLiteral("toggle"));
    action.setForm(QStringLiteral("edit"));
    action.setHint(QStringLiteral("Copy"));
    action.setHelp(QStringLiteral("copy.html"));
    action.setDesc(QStringLiteral("Copies the selection"));
    action.setScript(QStringLiteral("edit.copy"));
    action.setWidget(QStringLiteral("copyWidget"));
    action.setMapper(QStringLiteral("copyMapper"));
    action.setOptions(QStringLiteral("-all"));
    action.setIconName(QStringLiteral("copy"));
    action.setmenuIcon(QStringLiteral("copy_small"));

    QCOMPARE(action.name(), QStringLiteral("ID_EDIT_COPY"));
    QCOMPARE(action.objectName(), QStringLiteral("ID_EDIT_COPY"));
    QCOMPARE(action.type(), QStringLiteral("toggle"));
    QCOMPARE(action.form(), QStringLiteral("edit"));
    QCOMPARE(action.hint(), QStringLiteral("Copy"));
    QCOMPARE(action.help(), QStringLiteral("copy.html"));
    QCOMPARE(action.desc(), QStringLiteral("Copies the selection"));
    QCOMPARE(action.script(), QStringLiteral("edit.copy"));
    QCOMPARE(action.widget(), QStringLiteral("copyWidget"));
    QCOMPARE(action.mapper(), QStringLiteral("copyMapper"));
    QCOMPARE(action.options(), QStringLiteral("-all"));
    QCOMPARE(action.iconName(), QStringLiteral("copy"));
    QCOMPARE(action.menuIcon(), QStringLiteral("copy_small"));
    QVERIFY(action.icon().isNull());
    for (const auto& spy : spies)
        QCOMPARE(spy->count(), 0);
}

void tst_Action::textSettersEmitOnlyOnChange_data()
{
    QTest::addColumn<bool>("ribbon");
    QTest::newRow("ribbon") << true;
    QTest::newRow("menu") << false;
}

void tst_Action::textSettersEmitOnlyOnChange()
{
    QFETCH(bool, ribbon);
    Action action(nullptr);
    QSignalSpy ribbonSpy(&action, &Action::ribbonTextChanged);
    QSignalSpy menuSpy(&action, &Action::menuTextChanged);
    QSignalSpy& spy = ribbon ? ribbonSpy : menuSpy;
    QSignalSpy& other = ribbon ? menuSpy : ribbonSpy;
    const auto set = [&](const QString& text) {
        ribbon ? action.setRibbonText(text) : action.setMenuText(text);
    };

    set(QString());
    QCOMPARE(spy.count(), 0);
    set(QStringLiteral("Copy"));
    set(QStringLiteral("Copy"));
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toString(), QStringLiteral("Copy"));
    set(QStringLiteral("Paste"));
    QCOMPARE(spy.count(), 2);
    QCOMPARE(spy.at(1).at(0).toString(), QStringLiteral("Paste"));
    QCOMPARE(ribbon ? action.ribbonText() : action.menuText(), QStringLiteral("Paste"));
    QCOMPARE(other.count(), 0);
    QVERIFY(action.QAction::text().isEmpty());
}

void tst_Action::shortcutEmptyAlwaysEmits()
{
    Action action(nullptr);
    QSignalSpy spy(&action, &Action::shortcutChanged);
    action.setShortcut(QKeySequence());
    action.setShortcut(QKeySequence());
    QCOMPARE(spy.count(), 2);
    QVERIFY(spy.at(1).at(0).value<QKeySequence>().isEmpty());

    action.setShortcut(QKeySequence(QStringLiteral("Ctrl+C")));
    action.setShortcut(QKeySequence());
    QCOMPARE(spy.count(), 4);
    QVERIFY(action.shortcut().isEmpty());
}

void tst_Action::shortcutSameValueEmitsOnce()
{
    Action action(nullptr);
    QSignalSpy spy(&action, &Action::shortcutChanged);
    const QKeySequence copy(QStringLiteral("Ctrl+C"));
    action.setShortcut(copy);
    action.setShortcut(copy);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).value<QKeySequence>(), copy);
    QCOMPARE(action.shortcut(), copy);
    action.setShortcut(QKeySequence(QStringLiteral("Ctrl+V")));
    QCOMPARE(spy.count(), 2);
}

void tst_Action::stateSettersAlwaysEmit_data()
{
    QTest::addColumn<QString>("state");
    QTest::newRow("checked") << QStringLiteral("checked");
    QTest::newRow("enabled") << QStringLiteral("enabled");
    QTest::newRow("visible") << QStringLiteral("visible");
}

void tst_Action::stateSettersAlwaysEmit()
{
    QFETCH(QString, state);
    Action action(nullptr);
    action.setCheckable(true);
    const QByteArray signal = QMetaObject::normalizedSignature(
        (QByteArray("2") + state.toLatin1() + "Changed(bool)").constData());
    QSignalSpy spy(&action, signal.constData());
    QVERIFY(spy.isValid());
    const auto set = [&](bool value) {
        if (state == QLatin1String("checked"))
            action.setChecked(value);
        else if (state == QLatin1String("enabled"))
            action.setEnabled(value);
        else
            action.setVisible(value);
    };
    const auto get = [&] {
        return state == QLatin1String("checked")   ? action.isChecked()
               : state == QLatin1String("enabled") ? action.isEnabled()
                                                   : action.isVisible();
    };

    const bool initial = get();
    set(initial);
    set(initial);
    set(!initial);
    QCOMPARE(get(), !initial);
    QCOMPARE(spy.count(), 3);
    QCOMPARE(spy.at(0).at(0).toBool(), initial);
    QCOMPARE(spy.at(2).at(0).toBool(), !initial);
}

void tst_Action::triggerEmitsOnlyTriggered()
{
    QStringList logged;
    PlatformHooks hooks;
    hooks.logAction = [&logged](const char* name) { logged.append(QString::fromLatin1(name)); };
    setPlatformHooks(hooks);

    Action action(nullptr);
    action.setName(QStringLiteral("ID_FILE_OPEN"));
    action.setScript(QStringLiteral("file.open"));
    QSignalSpy triggered(&action, &Action::triggered);
    QSignalSpy plainTriggered(&action, &QAction::triggered);
    action.trigger();
    QCOMPARE(triggered.count(), 1);
    QCOMPARE(triggered.at(0).at(0).value<Action*>(), &action);
    QCOMPARE(plainTriggered.count(), 0);
    QVERIFY(logged.isEmpty());
    QCOMPARE(action.script(), QStringLiteral("file.open"));
}

void tst_Action::iconDirListIsReplacedWhole()
{
    Action::setIconDirList({QStringLiteral("/a"), QStringLiteral("/b")});
    Action::setIconDirList({QStringLiteral("/c")});
    QCOMPARE(Action::iconDirList(), QStringList{QStringLiteral("/c")});
}

void tst_Action::iconExistingFileIsUsedAsIs()
{
    const QString path = iconPath(QStringLiteral("Copy.Icon"));
    QVERIFY(writePng(path, QSize(16, 16), Qt::red));
    Action action(nullptr);
    QSignalSpy spy(&action, &Action::iconChanged);
    action.setIcon(path);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toString(), path);
    QCOMPARE(action.iconName(), path);
    QVERIFY(!action.icon().isNull());
}

void tst_Action::iconNameGetsPngAppended()
{
    QVERIFY(writePng(iconPath(QStringLiteral("open.png")), QSize(16, 16), Qt::red));
    Action action(nullptr);
    QSignalSpy spy(&action, &Action::iconChanged);
    const QString name = iconPath(QStringLiteral("open"));
    action.setIcon(name);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toString(), iconPath(QStringLiteral("open.png")));
    // The name as given is kept, not the file found for it.
    QCOMPARE(action.iconName(), name);
    // Every call builds a new icon, so a repeated name is taken and announced again.
    action.setIcon(name);
    QCOMPARE(spy.count(), 2);
}

void tst_Action::iconSearchesDirectoriesInOrder()
{
    const QString empty = iconPath(QStringLiteral("empty"));
    const QString second = iconPath(QStringLiteral("second"));
    const QString third = iconPath(QStringLiteral("third"));
    QVERIFY(QDir().mkpath(empty));
    QVERIFY(writePng(second + QStringLiteral("/open.png"), QSize(16, 16), Qt::red));
    QVERIFY(writePng(third + QStringLiteral("/open.png"), QSize(16, 16), Qt::blue));
    Action::setIconDirList({empty, second, third});

    Action action(nullptr);
    QSignalSpy spy(&action, &Action::iconChanged);
    action.setIcon(QStringLiteral("open"));
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toString(), QDir(second).filePath(QStringLiteral("open.png")));
    QCOMPARE(action.iconName(), QStringLiteral("open"));
}

void tst_Action::iconDotInDirectoryBlocksPngSuffix()
{
    QVERIFY(writePng(iconPath(QStringLiteral("icons.old/open.png")), QSize(16, 16), Qt::red));
    Action::setIconDirList({icons->path()});
    Action action(nullptr);
    QSignalSpy spy(&action, &Action::iconChanged);
    action.setIcon(QStringLiteral("icons.old/open"));
    QCOMPARE(spy.count(), 0);
    QVERIFY(action.icon().isNull());

    // The name without a suffix is looked up as it stands.
    QVERIFY(QFile::copy(iconPath(QStringLiteral("icons.old/open.png")),
                        iconPath(QStringLiteral("icons.old/open"))));
    action.setIcon(QStringLiteral("icons.old/open"));
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toString(), iconPath(QStringLiteral("icons.old/open")));
}

void tst_Action::iconNotFoundChangesNothing()
{
    QVERIFY(writePng(iconPath(QStringLiteral("open.png")), QSize(16, 16), Qt::red));
    Action::setIconDirList({icons->path()});
    Action action(nullptr);
    action.setIcon(QStringLiteral("open"));
    const qint64 key = action.icon().cacheKey();
    QSignalSpy spy(&action, &Action::iconChanged);
    action.setIcon(QStringLiteral("missing"));
    action.setIcon(QString());
    Action::setIconDirList(QStringList());
    action.setIcon(QStringLiteral("open"));
    QCOMPARE(spy.count(), 0);
    QCOMPARE(action.icon().cacheKey(), key);
    QCOMPARE(action.iconName(), QStringLiteral("open"));
}

void tst_Action::iconScalesWithDesktopDpi_data()
{
    QTest::addColumn<qreal>("dpiX");
    QTest::addColumn<qreal>("dpiY");
    QTest::addColumn<QSize>("size");
    QTest::newRow("96") << 96.0 << 96.0 << QSize(32, 24);
    QTest::newRow("120 stays") << 120.0 << 120.0 << QSize(32, 24);
    QTest::newRow("134 stays") << 134.0 << 134.0 << QSize(32, 24);
    QTest::newRow("144") << 144.0 << 144.0 << QSize(96, 96);
    QTest::newRow("192") << 192.0 << 192.0 << QSize(128, 128);
    QTest::newRow("144 by 96") << 144.0 << 96.0 << QSize(96, 64);
    QTest::newRow("72") << 72.0 << 72.0 << QSize(32, 24);
}

void tst_Action::iconScalesWithDesktopDpi()
{
    QFETCH(qreal, dpiX);
    QFETCH(qreal, dpiY);
    QFETCH(QSize, size);
    useDesktopDpi(dpiX, dpiY);
    QVERIFY(writePng(iconPath(QStringLiteral("open.png")), QSize(32, 24), Qt::red));
    QVERIFY(writePng(iconPath(QStringLiteral("open_disabled.png")), QSize(32, 24), Qt::gray));
    QVERIFY(writePng(iconPath(QStringLiteral("open_active.png")), QSize(32, 24), Qt::blue));
    Action action(nullptr);
    action.setIcon(iconPath(QStringLiteral("open")));
    for (QIcon::Mode mode : {QIcon::Normal, QIcon::Disabled, QIcon::Active})
        QCOMPARE(action.icon().availableSizes(mode, QIcon::Off), QList<QSize>{size});
}

void tst_Action::iconVariantsAreAddedByMode()
{
    QVERIFY(writePng(iconPath(QStringLiteral("open.png")), QSize(16, 16), Qt::red));
    QVERIFY(writePng(iconPath(QStringLiteral("open_disabled.png")), QSize(16, 16), Qt::gray));
    QVERIFY(writePng(iconPath(QStringLiteral("open_active.png")), QSize(16, 16), Qt::blue));
    Action action(nullptr);
    action.setIcon(iconPath(QStringLiteral("open.png")));
    const QIcon icon = action.icon();
    const auto colour = [&](QIcon::Mode mode) {
        return icon.pixmap(QSize(16, 16), mode, QIcon::Off).toImage().pixelColor(8, 8);
    };
    QCOMPARE(colour(QIcon::Normal), QColor(Qt::red));
    QCOMPARE(colour(QIcon::Disabled), QColor(Qt::gray));
    QCOMPARE(colour(QIcon::Active), QColor(Qt::blue));
}

void tst_Action::iconWithoutVariantsHasOnlyNormalMode()
{
    // The variant of "open.PNG" would be "open_disabled.PNG": "open_disabled.png" is no match.
    QVERIFY(writePng(iconPath(QStringLiteral("open.PNG")), QSize(16, 16), Qt::red));
    QVERIFY(writePng(iconPath(QStringLiteral("open_disabled.png")), QSize(16, 16), Qt::gray));
    Action action(nullptr);
    action.setIcon(iconPath(QStringLiteral("open.PNG")));
    QCOMPARE(action.icon().availableSizes(QIcon::Normal), QList<QSize>{QSize(16, 16)});
    QVERIFY(action.icon().availableSizes(QIcon::Disabled).isEmpty());
    QVERIFY(action.icon().availableSizes(QIcon::Active).isEmpty());
}

void tst_Action::iconFileIsReadAfresh()
{
    const QString path = iconPath(QStringLiteral("open.png"));
    QVERIFY(writePng(path, QSize(16, 16), Qt::red));
    Action action(nullptr);
    action.setIcon(path);
    QVERIFY(writePng(path, QSize(20, 20), Qt::blue));
    action.setIcon(path);
    QCOMPARE(action.icon().availableSizes(), QList<QSize>{QSize(20, 20)});
}

void tst_Action::allocatorReusesBlocks()
{
    auto* action = new Action(nullptr);
    void* block = action;
    delete action;
    // A freed block goes to the front of the pool's free list.
    auto* again = new Action(nullptr);
    QCOMPARE(static_cast<void*>(again), block);
    delete again;

    QList<Action*> many;
    for (int index = 0; index < 100; ++index)
        many.append(new Action(nullptr));
    QCOMPARE(QSet<Action*>(many.cbegin(), many.cend()).size(), 100);
    qDeleteAll(many);
}

void tst_Action::hostSubclassUsesGlobalAllocator()
{
    auto* host = new HostAction(nullptr);
    host->extra[255] = 1;
    host->setName(QStringLiteral("ID_HOST"));
    QCOMPARE(host->name(), QStringLiteral("ID_HOST"));
    delete host;
    auto* array = new Action*[4]();
    delete[] array;
}

QTEST_MAIN(tst_Action)
#include "tst_action.moc"
