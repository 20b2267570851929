#include "IconFiles.h"

#include <CommandSystem/Action.h>
#include <CommandSystem/ActionMapper.h>

#include <QPointer>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace Talvir::Vexa::Cs;

namespace {

// A host mapper that keeps what it is given.
class KeepingMapper : public ActionMapper
{
public:
    using ActionMapper::ActionMapper;
    void map(QAction* action) override { mappedActions.append(action); }
};

} // namespace

class tst_ActionMapper : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void slotsAreDeclared();
    void baseMapKeepsNothing();
    void actionsDropDeletedTargets();
    void textFollowsCloneType_data();
    void textFollowsCloneType();
    void customizedTextFollowsNoText();
    void textNeedsActionType();
    void shortcutBlockedOnlyByCustomizedIcon_data();
    void shortcutBlockedOnlyByCustomizedIcon();
    void iconIsFoundInIconDirectories();
    void iconByPathIsNotScaledAndHasNoVariants();
    void missingIconClearsCloneIcon();
    void customizedIconKeepsIcon();
    void parentThatIsNoActionIsLeftAlone();

private:
    QAction* cloneOf(QObject* owner, int type) const;

    QScopedPointer<QTemporaryDir> icons;
};

void tst_ActionMapper::init()
{
    icons.reset(new QTemporaryDir);
    useDesktopDpi(144, 144);
    Action::setIconDirList(QStringList());
}

void tst_ActionMapper::cleanup()
{
    setPlatformHooks(PlatformHooks());
    Action::setIconDirList(QStringList());
}

// A bare QAction carrying the properties that Action::clone sets, with its own mapper.
QAction* tst_ActionMapper::cloneOf(QObject* owner, int type) const
{
    auto* clone = new QAction(owner);
    clone->setProperty("VrCsActionType", type);
    new ActionMapper(clone);
    return clone;
}

void tst_ActionMapper::slotsAreDeclared()
{
    const QMetaObject& meta = ActionMapper::staticMetaObject;
    QCOMPARE(meta.className(), "ActionMapper");
    for (const char* slot : {"onRibbonTextChanged(QString)", "onMenuTextChanged(QString)",
                             "onIconChanged(QString)", "onShortcutChanged(QKeySequence)"})
        QVERIFY2(meta.indexOfSlot(slot) >= meta.methodOffset(), slot);
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 4);
}

void tst_ActionMapper::baseMapKeepsNothing()
{
    ActionMapper mapper(nullptr);
    QAction action(nullptr);
    mapper.map(&action);
    QVERIFY(mapper.actions().isEmpty());
}

void tst_ActionMapper::actionsDropDeletedTargets()
{
    KeepingMapper mapper(nullptr);
    auto* first = new QAction(nullptr);
    QAction second(nullptr);
    auto* third = new QAction(nullptr);
    mapper.map(first);
    mapper.map(&second);
    mapper.map(third);
    QCOMPARE(mapper.actions(), (QList<QAction*>{first, &second, third}));
    delete first;
    delete third;
    QCOMPARE(mapper.actions(), QList<QAction*>{&second});
}

void tst_ActionMapper::textFollowsCloneType_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("expected");
    QTest::newRow("menu") << 0 << QStringLiteral("Menu");
    QTest::newRow("ribbon") << 1 << QStringLiteral("Ribbon");
    QTest::newRow("other ribbon") << 42 << QStringLiteral("Ribbon");
}

void tst_ActionMapper::textFollowsCloneType()
{
    QFETCH(int, type);
    QFETCH(QString, expected);
    QObject owner;
    QAction* clone = cloneOf(&owner, type);
    auto* mapper = clone->findChild<ActionMapper*>();
    clone->setText(QStringLiteral("Start"));
    mapper->onMenuTextChanged(QStringLiteral("Menu"));
    mapper->onRibbonTextChanged(QStringLiteral("Ribbon"));
    QCOMPARE(clone->text(), expected);
}

void tst_ActionMapper::customizedTextFollowsNoText()
{
    QObject owner;
    for (int type : {0, 1}) {
        QAction* clone = cloneOf(&owner, type);
        clone->setText(QStringLiteral("Mine"));
        clone->setProperty("VrCsCustomizedText", false);   // present counts, not its value
        auto* mapper = clone->findChild<ActionMapper*>();
        mapper->onMenuTextChanged(QStringLiteral("Menu"));
        mapper->onRibbonTextChanged(QStringLiteral("Ribbon"));
        QCOMPARE(clone->text(), QStringLiteral("Mine"));
    }
}

void tst_ActionMapper::textNeedsActionType()
{
    QAction clone(nullptr);
    clone.setText(QStringLiteral("Mine"));
    ActionMapper mapper(&clone);
    mapper.onMenuTextChanged(QStringLiteral("Menu"));
    mapper.onRibbonTextChanged(QStringLiteral("Ribbon"));
    QCOMPARE(clone.text(), QStringLiteral("Mine"));
}

void tst_ActionMapper::shortcutBlockedOnlyByCustomizedIcon_data()
{
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<bool>("follows");
    QTest::newRow("plain") << QByteArray() << true;
    QTest::newRow("own text") << QByteArray("VrCsCustomizedText") << true;
    QTest::newRow("own icon") << QByteArray("VrCsCustomizedIcon") << false;
}

void tst_ActionMapper::shortcutBlockedOnlyByCustomizedIcon()
{
    QFETCH(QByteArray, property);
    QFETCH(bool, follows);
    QObject owner;
    QAction* clone = cloneOf(&owner, 1);
    if (!property.isEmpty())
        clone->setProperty(property.constData(), true);
    const QKeySequence copy(QStringLiteral("Ctrl+C"));
    clone->findChild<ActionMapper*>()->onShortcutChanged(copy);
    QCOMPARE(clone->shortcut(), follows ? copy : QKeySequence());
}

void tst_ActionMapper::iconIsFoundInIconDirectories()
{
    const QString first = icons->filePath(QStringLiteral("first"));
    const QString second = icons->filePath(QStringLiteral("second"));
    QVERIFY(QDir().mkpath(first));
    QVERIFY(writePng(second + QStringLiteral("/cut.png"), QSize(12, 12), Qt::red));
    Action::setIconDirList({first, second});
    QObject owner;
    QAction* clone = cloneOf(&owner, 1);
    clone->findChild<ActionMapper*>()->onIconChanged(QStringLiteral("cut.png"));
    QCOMPARE(clone->icon().availableSizes(), QList<QSize>{QSize(12, 12)});
}

void tst_ActionMapper::iconByPathIsNotScaledAndHasNoVariants()
{
    const QString path = icons->filePath(QStringLiteral("cut.png"));
    QVERIFY(writePng(path, QSize(32, 32), Qt::red));
    QVERIFY(writePng(icons->filePath(QStringLiteral("cut_disabled.png")), QSize(32, 32),
                     Qt::gray));
    QObject owner;
    QAction* clone = cloneOf(&owner, 1);
    // No icon directories: the name itself is a file.
    clone->findChild<ActionMapper*>()->onIconChanged(path);
    QCOMPARE(clone->icon().availableSizes(), QList<QSize>{QSize(32, 32)});
    QVERIFY(clone->icon().availableSizes(QIcon::Disabled).isEmpty());

    // Through an Action at 144 DPI: the action's icon is scaled, the clone's is not.
    Action::setIconDirList({icons->path()});
    Action action(nullptr);
    QAction* real = action.clone(&owner, 1);
    action.setIcon(path);
    QCOMPARE(action.icon().availableSizes(), QList<QSize>{QSize(96, 96)});
    QCOMPARE(real->icon().availableSizes(), QList<QSize>{QSize(32, 32)});
}

void tst_ActionMapper::missingIconClearsCloneIcon()
{
    const QString path = icons->filePath(QStringLiteral("cut.png"));
    QVERIFY(writePng(path, QSize(16, 16), Qt::red));
    QObject owner;
    QAction* clone = cloneOf(&owner, 1);
    auto* mapper = clone->findChild<ActionMapper*>();
    mapper->onIconChanged(path);
    QVERIFY(!clone->icon().isNull());
    QVERIFY(QFile::remove(path));
    mapper->onIconChanged(path);
    QVERIFY(clone->icon().isNull());
}

void tst_ActionMapper::customizedIconKeepsIcon()
{
    const QString path = icons->filePath(QStringLiteral("cut.png"));
    QVERIFY(writePng(path, QSize(16, 16), Qt::red));
    QObject owner;
    QAction* clone = cloneOf(&owner, 1);
    clone->setProperty("VrCsCustomizedIcon", true);
    clone->findChild<ActionMapper*>()->onIconChanged(path);
    QVERIFY(clone->icon().isNull());
}

void tst_ActionMapper::parentThatIsNoActionIsLeftAlone()
{
    QObject owner;
    owner.setProperty("VrCsActionType", 0);
    ActionMapper mapper(&owner);
    mapper.onMenuTextChanged(QStringLiteral("Menu"));
    mapper.onShortcutChanged(QKeySequence(QStringLiteral("Ctrl+C")));
    mapper.onIconChanged(QStringLiteral("cut.png"));
    ActionMapper orphan(nullptr);
    orphan.onRibbonTextChanged(QStringLiteral("Ribbon"));
    QCOMPARE(owner.dynamicPropertyNames(), QList<QByteArray>{"VrCsActionType"});
    QVERIFY(owner.children().contains(&mapper));
}

QTEST_MAIN(tst_ActionMapper)
#include "tst_actionmapper.moc"
