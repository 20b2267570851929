#include "IconFiles.h"

#include <CommandSystem/Action.h>
#include <CommandSystem/ActionMapper.h>

#include <QMenu>
#include <QPointer>
#include <QShortcutEvent>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QToolBar>
#include <QToolButton>

using namespace Talvir::Vexa::Cs;

class tst_CloneAction : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void cloneIsCloneAction();
    void parentDefaultsToAction();
    void propertiesRecordHowCloneWasMade_data();
    void propertiesRecordHowCloneWasMade();
    void textDependsOnType_data();
    void textDependsOnType();
    void iconIsActionsUnlessGiven();
    void stateIsCopiedButNotVisibilityOrShortcut();
    void cloneCarriesOwnMapper();
    void connectionsAreThoseOfTheSignatures_data();
    void connectionsAreThoseOfTheSignatures();
    void actionStatePushedToClones();
    void cloneStateSyncedBackOnce_data();
    void cloneStateSyncedBackOnce();
    void visibilityNotSyncedBack();
    void renamedCloneAndForeignActionSyncBack();
    void clonesFollowTextsByType();
    void customizedClonesIgnoreChanges();
    void firingCloneTriggersActionAndLogs();
    void dynamicCloneReplacesScript();
    void nonDynamicCloneKeepsScript_data();
    void nonDynamicCloneKeepsScript();
    void toggleCloneChecksActionBeforeTriggered();
    void shortcutFiresEnabledClone();
    void shortcutSwallowedByDisabledClone();
    void deletingActionDeletesClonesLater();
    void toolBarAndMenuFollowClone();

private:
    QScopedPointer<QTemporaryDir> icons;
    QStringList logged;
};

void tst_CloneAction::init()
{
    icons.reset(new QTemporaryDir);
    logged.clear();
    PlatformHooks hooks;
    hooks.logAction = [this](const char* name) { logged.append(QString::fromLatin1(name)); };
    hooks.logicalDpi = [] { return QSizeF(96, 96); };
    setPlatformHooks(hooks);
}

void tst_CloneAction::cleanup()
{
    setPlatformHooks(PlatformHooks());
}

void tst_CloneAction::cloneIsCloneAction()
{
    Action action(nullptr);
    QAction* clone = action.clone(nullptr, 0);
    QVERIFY(clone);
    QCOMPARE(clone->metaObject()->className(), "CloneAction");
    QVERIFY(clone->inherits("QAction"));
    QVERIFY(!qobject_cast<Action*>(clone));
}

void tst_CloneAction::parentDefaultsToAction()
{
    Action action(nullptr);
    QObject owner;
    QCOMPARE(action.clone(nullptr, 1)->parent(), &action);
    QCOMPARE(action.clone(&owner, 1)->parent(), &owner);
}

void tst_CloneAction::propertiesRecordHowCloneWasMade_data()
{
    QTest::addColumn<bool>("ownIcon");
    QTest::addColumn<QString>("ownText");
    QTest::addColumn<int>("type");
    QTest::newRow("menu") << false << QString() << 0;
    QTest::newRow("ribbon") << false << QString() << 1;
    QTest::newRow("own icon") << true << QString() << 2;
    QTest::newRow("own text") << false << QStringLiteral("Mine") << 0;
    QTest::newRow("own both") << true << QStringLiteral("Mine") << 7;
}

void tst_CloneAction::propertiesRecordHowCloneWasMade()
{
    QFETCH(bool, ownIcon);
    QFETCH(QString, ownText);
    QFETCH(int, type);
    QVERIFY(writePng(icons->filePath(QStringLiteral("own.png")), QSize(8, 8), Qt::green));
    const QIcon icon = ownIcon ? QIcon(icons->filePath(QStringLiteral("own.png"))) : QIcon();
    Action action(nullptr);
    action.setName(QStringLiteral("ID_EDIT_CUT"));
    action.setScript(QStringLiteral("edit.cut"));
    QAction* clone = action.clone(nullptr, icon, ownText, type);

    QCOMPARE(clone->objectName(), QStringLiteral("ID_EDIT_CUT"));
    QCOMPARE(clone->property("command").toString(), QStringLiteral("edit.cut"));
    QCOMPARE(clone->property("VrCsActionType").toInt(), type);
    QCOMPARE(clone->property("VrCsCustomizedIcon").isValid(), ownIcon);
    QCOMPARE(clone->property("VrCsCustomizedText").isValid(), !ownText.isEmpty());
    QVERIFY(!clone->property("Dynamic").isValid());
}

void tst_CloneAction::textDependsOnType_data()
{
    QTest::addColumn<QString>("ownText");
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("expected");
    QTest::newRow("menu") << QString() << 0 << QStringLiteral("Cut menu");
    QTest::newRow("ribbon") << QString() << 1 << QStringLiteral("Cut ribbon");
    QTest::newRow("other ribbon") << QString() << -3 << QStringLiteral("Cut ribbon");
    QTest::newRow("own text") << QStringLiteral("Mine") << 0 << QStringLiteral("Mine");
}

void tst_CloneAction::textDependsOnType()
{
    QFETCH(QString, ownText);
    QFETCH(int, type);
    QFETCH(QString, expected);
    Action action(nullptr);
    action.setRibbonText(QStringLiteral("Cut ribbon"));
    action.setMenuText(QStringLiteral("Cut menu"));
    QCOMPARE(action.clone(nullptr, QIcon(), ownText, type)->text(), expected);
}

void tst_CloneAction::iconIsActionsUnlessGiven()
{
    QVERIFY(writePng(icons->filePath(QStringLiteral("cut.png")), QSize(16, 16), Qt::red));
    QVERIFY(writePng(icons->filePath(QStringLiteral("own.png")), QSize(8, 8), Qt::green));
    Action action(nullptr);
    action.setIcon(icons->filePath(QStringLiteral("cut")));
    QCOMPARE(action.clone(nullptr, 1)->icon().cacheKey(), action.icon().cacheKey());
    const QIcon own(icons->filePath(QStringLiteral("own.png")));
    QCOMPARE(action.clone(nullptr, own, QString(), 1)->icon().cacheKey(), own.cacheKey());
}

void tst_CloneAction::stateIsCopiedButNotVisibilityOrShortcut()
{
    Action action(nullptr);
    action.setCheckable(true);
    action.setChecked(true);
    action.setEnabled(false);
    action.setVisible(false);
    action.setShortcut(QKeySequence(QStringLiteral("Ctrl+X")));
    QAction* clone = action.clone(nullptr, 1);
    QVERIFY(clone->isCheckable());
    QVERIFY(clone->isChecked());
    QVERIFY(!clone->isEnabled());
    QVERIFY(clone->isVisible());
    QVERIFY(clone->shortcut().isEmpty());
}

void tst_CloneAction::cloneCarriesOwnMapper()
{
    Action action(nullptr);
    QAction* first = action.clone(nullptr, 0);
    QAction* second = action.clone(nullptr, 0);
    const QList<ActionMapper*> mappers = first->findChildren<ActionMapper*>();
    QCOMPARE(mappers.size(), 1);
    QVERIFY(mappers.first()->actions().isEmpty());
    QCOMPARE(second->findChildren<ActionMapper*>().size(), 1);
    QVERIFY(second->findChild<ActionMapper*>() != mappers.first());
}

// Each connection of a clone is the one QObject::connect makes from these signature texts, so
// a host can break it with the same texts: once, since it exists once.
void tst_CloneAction::connectionsAreThoseOfTheSignatures_data()
{
    QTest::addColumn<QString>("sender");
    QTest::addColumn<QByteArray>("signal");
    QTest::addColumn<QString>("receiver");
    QTest::addColumn<QByteArray>("method");

    const QString action = QStringLiteral("action");
    const QString clone = QStringLiteral("clone");
    const QString mapper = QStringLiteral("mapper");
    QTest::newRow("destroyed") << action << QByteArray(SIGNAL(destroyed())) << clone
                               << QByteArray(SLOT(deleteLater()));
    QTest::newRow("checked") << action << QByteArray(SIGNAL(checkedChanged(bool))) << clone
                             << QByteArray(SLOT(setChecked(bool)));
    QTest::newRow("enabled") << action << QByteArray(SIGNAL(enabledChanged(bool))) << clone
                             << QByteArray(SLOT(setEnabled(bool)));
    QTest::newRow("visible") << action << QByteArray(SIGNAL(visibleChanged(bool))) << clone
                             << QByteArray(SLOT(setVisible(bool)));
    QTest::newRow("triggered") << clone << QByteArray(SIGNAL(triggered())) << action
                               << QByteArray(SLOT(onTriggered()));
    QTest::newRow("changed") << clone << QByteArray(SIGNAL(changed())) << action
                             << QByteArray(SLOT(onChanged()));
    QTest::newRow("ribbon text") << action << QByteArray(SIGNAL(ribbonTextChanged(QString)))
                                 << mapper << QByteArray(SLOT(onRibbonTextChanged(QString)));
    QTest::newRow("menu text") << action << QByteArray(SIGNAL(menuTextChanged(QString)))
                               << mapper << QByteArray(SLOT(onMenuTextChanged(QString)));
    QTest::newRow("icon") << action << QByteArray(SIGNAL(iconChanged(QString))) << mapper
                          << QByteArray(SLOT(onIconChanged(QString)));
    QTest::newRow("shortcut") << action << QByteArray(SIGNAL(shortcutChanged(QKeySequence)))
                              << mapper << QByteArray(SLOT(onShortcutChanged(QKeySequence)));
}

void tst_CloneAction::connectionsAreThoseOfTheSignatures()
{
    QFETCH(QString, sender);
    QFETCH(QByteArray, signal);
    QFETCH(QString, receiver);
    QFETCH(QByteArray, method);

    Action action(nullptr);
    QAction* clone = action.clone(nullptr, 1);
    const QHash<QString, QObject*> objects{{QStringLiteral("action"), &action},
                                           {QStringLiteral("clone"), clone},
                                           {QStringLiteral("mapper"),
                                            clone->findChild<ActionMapper*>()}};
    QObject* from = objects.value(sender);
    QObject* to = objects.value(receiver);
    QVERIFY(to);
    QVERIFY(QObject::disconnect(from, signal.constData(), to, method.constData()));
    QVERIFY(!QObject::disconnect(from, signal.constData(), to, method.constData()));
    delete clone;
}

void tst_CloneAction::actionStatePushedToClones()
{
    Action action(nullptr);
    action.setCheckable(true);
    QList<QAction*> clones;
    for (int type = 0; type < 4; ++type)
        clones.append(action.clone(nullptr, type));
    action.setChecked(true);
    action.setEnabled(false);
    action.setVisible(false);
    for (QAction* clone : clones) {
        QVERIFY(clone->isChecked());
        QVERIFY(!clone->isEnabled());
        QVERIFY(!clone->isVisible());
    }
}

void tst_CloneAction::cloneStateSyncedBackOnce_data()
{
    QTest::addColumn<bool>("checked");
    QTest::newRow("checked") << true;
    QTest::newRow("enabled") << false;
}

void tst_CloneAction::cloneStateSyncedBackOnce()
{
    QFETCH(bool, checked);
    Action action(nullptr);
    action.setCheckable(true);
    QAction* first = action.clone(nullptr, 0);
    QAction* second = action.clone(nullptr, 1);
    QSignalSpy checkedSpy(&action, &Action::checkedChanged);
    QSignalSpy enabledSpy(&action, &Action::enabledChanged);

    if (checked)
        first->setChecked(true);
    else
        first->setEnabled(false);

    QSignalSpy& spy = checked ? checkedSpy : enabledSpy;
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toBool(), checked);
    QCOMPARE((checked ? enabledSpy : checkedSpy).count(), 0);
    QCOMPARE(checked ? action.isChecked() : !action.isEnabled(), true);
    QCOMPARE(checked ? second->isChecked() : !second->isEnabled(), true);
}

void tst_CloneAction::visibilityNotSyncedBack()
{
    Action action(nullptr);
    QAction* first = action.clone(nullptr, 0);
    QAction* second = action.clone(nullptr, 0);
    QSignalSpy spy(&action, &Action::visibleChanged);
    first->setVisible(false);
    QVERIFY(action.isVisible());
    QVERIFY(second->isVisible());
    QCOMPARE(spy.count(), 0);
}

void tst_CloneAction::renamedCloneAndForeignActionSyncBack()
{
    Action action(nullptr);
    action.setName(QStringLiteral("ID_SNAP"));
    action.setCheckable(true);
    QAction* renamed = action.clone(nullptr, 0);
    QAction* other = action.clone(nullptr, 0);
    renamed->setObjectName(QStringLiteral("host name"));
    renamed->setChecked(true);
    QVERIFY(action.isChecked());
    QVERIFY(other->isChecked());

    // A host's own action wired to the same slot is synced too.
    QAction foreign(nullptr);
    foreign.setCheckable(true);
    foreign.setChecked(true);
    QVERIFY(connect(&foreign, SIGNAL(changed()), &action, SLOT(onChanged())));
    foreign.setEnabled(false);
    QVERIFY(!action.isEnabled());
    QVERIFY(!other->isEnabled());
}

void tst_CloneAction::clonesFollowTextsByType()
{
    Action action(nullptr);
    QAction* menu = action.clone(nullptr, 0);
    QAction* ribbon = action.clone(nullptr, 1);
    QAction* own = action.clone(nullptr, QIcon(), QStringLiteral("Mine"), 0);
    action.setMenuText(QStringLiteral("Menu"));
    action.setRibbonText(QStringLiteral("Ribbon"));
    QCOMPARE(menu->text(), QStringLiteral("Menu"));
    QCOMPARE(ribbon->text(), QStringLiteral("Ribbon"));
    QCOMPARE(own->text(), QStringLiteral("Mine"));
}

void tst_CloneAction::customizedClonesIgnoreChanges()
{
    QVERIFY(writePng(icons->filePath(QStringLiteral("cut.png")), QSize(16, 16), Qt::red));
    QVERIFY(writePng(icons->filePath(QStringLiteral("own.png")), QSize(8, 8), Qt::green));
    const QIcon own(icons->filePath(QStringLiteral("own.png")));
    Action action(nullptr);
    QAction* plain = action.clone(nullptr, 1);
    QAction* ownIcon = action.clone(nullptr, own, QString(), 1);
    QAction* ownText = action.clone(nullptr, QIcon(), QStringLiteral("Mine"), 1);

    action.setIcon(icons->filePath(QStringLiteral("cut")));
    action.setShortcut(QKeySequence(QStringLiteral("Ctrl+X")));

    for (QAction* following : {plain, ownText}) {
        QCOMPARE(following->icon().availableSizes(), QList<QSize>{QSize(16, 16)});
        QCOMPARE(following->shortcut(), QKeySequence(QStringLiteral("Ctrl+X")));
    }
    QCOMPARE(ownIcon->icon().cacheKey(), own.cacheKey());
    QVERIFY(ownIcon->shortcut().isEmpty());
}

void tst_CloneAction::firingCloneTriggersActionAndLogs()
{
    Action action(nullptr);
    action.setName(QStringLiteral("ID_EDIT_CUT"));
    QAction* clone = action.clone(nullptr, 1);
    QSignalSpy spy(&action, &Action::triggered);
    clone->trigger();
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).value<Action*>(), &action);
    QCOMPARE(logged, QStringList{QStringLiteral("ID_EDIT_CUT")});
}

void tst_CloneAction::dynamicCloneReplacesScript()
{
    Action action(nullptr);
    action.setScript(QStringLiteral("edit.cut"));
    QAction* clone = action.clone(nullptr, 1);
    clone->setProperty("Dynamic", true);
    clone->setProperty("command", QStringLiteral("edit.cut -all"));
    QString scriptWhenTriggered;
    connect(&action, &Action::triggered, this,
            [&](Action* fired) { scriptWhenTriggered = fired->script(); });
    clone->trigger();
    QCOMPARE(scriptWhenTriggered, QStringLiteral("edit.cut -all"));
    QCOMPARE(action.script(), QStringLiteral("edit.cut -all"));
    QCOMPARE(action.clone(nullptr, 0)->property("command").toString(),
             QStringLiteral("edit.cut -all"));
}

void tst_CloneAction::nonDynamicCloneKeepsScript_data()
{
    QTest::addColumn<QVariant>("dynamic");
    QTest::newRow("absent") << QVariant();
    QTest::newRow("false") << QVariant(false);
}

void tst_CloneAction::nonDynamicCloneKeepsScript()
{
    QFETCH(QVariant, dynamic);
    Action action(nullptr);
    action.setScript(QStringLiteral("edit.cut"));
    QAction* clone = action.clone(nullptr, 1);
    clone->setProperty("Dynamic", dynamic);
    clone->setProperty("command", QStringLiteral("other"));
    clone->trigger();
    QCOMPARE(action.script(), QStringLiteral("edit.cut"));
}

void tst_CloneAction::toggleCloneChecksActionBeforeTriggered()
{
    Action action(nullptr);
    action.setCheckable(true);
    QAction* clone = action.clone(nullptr, 1);
    QList<bool> states;
    connect(&action, &Action::triggered, this,
            [&](Action* fired) { states.append(fired->isChecked()); });
    clone->trigger();
    clone->trigger();
    QCOMPARE(states, (QList<bool>{true, false}));
}

void tst_CloneAction::shortcutFiresEnabledClone()
{
    Action action(nullptr);
    QAction* clone = action.clone(nullptr, 1);
    QSignalSpy cloneSpy(clone, &QAction::triggered);
    QSignalSpy actionSpy(&action, &Action::triggered);
    QShortcutEvent event(QKeySequence(QStringLiteral("Ctrl+X")), 1);
    QVERIFY(QCoreApplication::sendEvent(clone, &event));
    QCOMPARE(cloneSpy.count(), 1);
    QCOMPARE(actionSpy.count(), 1);
}

void tst_CloneAction::shortcutSwallowedByDisabledClone()
{
    Action action(nullptr);
    action.setEnabled(false);
    QAction* clone = action.clone(nullptr, 1);
    QSignalSpy cloneSpy(clone, &QAction::triggered);
    QSignalSpy actionSpy(&action, &Action::triggered);
    QShortcutEvent event(QKeySequence(QStringLiteral("Ctrl+X")), 1);
    QVERIFY(QCoreApplication::sendEvent(clone, &event));
    QCOMPARE(cloneSpy.count(), 0);
    QCOMPARE(actionSpy.count(), 0);
}

void tst_CloneAction::deletingActionDeletesClonesLater()
{
    QObject owner;
    auto* action = new Action(nullptr);
    QPointer<QAction> elsewhere = action->clone(&owner, 1);
    QPointer<QAction> child = action->clone(nullptr, 0);
    delete action;
    // A clone of the action's own dies with it; one placed elsewhere waits for the event loop.
    QVERIFY(child.isNull());
    QVERIFY(!elsewhere.isNull());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(elsewhere.isNull());
}

void tst_CloneAction::toolBarAndMenuFollowClone()
{
    Action action(nullptr);
    action.setCheckable(true);
    action.setRibbonText(QStringLiteral("Cut"));
    action.setMenuText(QStringLiteral("Cut"));
    QToolBar toolBar;
    QMenu menu;
    QAction* ribbon = action.clone(&toolBar, 1);
    QAction* entry = action.clone(&menu, 0);
    toolBar.addAction(ribbon);
    menu.addAction(entry);
    auto* button = qobject_cast<QToolButton*>(toolBar.widgetForAction(ribbon));
    QVERIFY(button);
    const int menuWidth = menu.sizeHint().width();

    action.setChecked(true);
    QVERIFY(button->isChecked());
    action.setEnabled(false);
    QVERIFY(!button->isEnabled());
    action.setRibbonText(QStringLiteral("Cut the selection"));
    QCOMPARE(button->text(), QStringLiteral("Cut the selection"));
    action.setMenuText(QStringLiteral("Cut the selection to the clipboard and more"));
    QVERIFY(menu.sizeHint().width() > menuWidth);

    // And back from a clone to the action and to the other clone's button.
    entry->setEnabled(true);
    QVERIFY(action.isEnabled());
    QVERIFY(button->isEnabled());
    entry->setChecked(false);
    QVERIFY(!button->isChecked());
}

QTEST_MAIN(tst_CloneAction)
#include "tst_cloneaction.moc"
