#include <CommandSystem/Action.h>
#include <CommandSystem/ActionMapper.h>
#include <CommandSystem/Builder.h>
#include <CommandSystem/Factory.h>
#include <CommandSystem/WidgetMapper.h>

#include <QLineEdit>
#include <QPointer>
#include <QTest>
#include <QWidgetAction>

using namespace Talvir::Vexa::Cs;

namespace {

// Records, for every widget it is given, whether widgets() already listed it.
class RecordingMapper : public WidgetMapper
{
public:
    using WidgetMapper::WidgetMapper;
    void map(QWidget* widget) override
    {
        mapped.append(widget);
        listedWhenMapped.append(widgets().contains(widget));
    }
    QList<QWidget*> mapped;
    QList<bool> listedWhenMapped;
};

// The host's factory: "edit" widgets, "recording" mappers, and a mapper name that makes an
// object of the wrong class.
class HostFactory : public Factory
{
public:
    QWidget* createWidget(const QString& name, QWidget* parent) override
    {
        widgetParents.append(parent);
        return name == QLatin1String("edit") ? new QLineEdit(parent) : nullptr;
    }
    QObject* createMapper(const QString& name, QObject* parent) override
    {
        ++mapperCalls;
        if (name == QLatin1String("recording"))
            return new RecordingMapper(parent);
        return name == QLatin1String("plainObject") ? new QObject(parent) : nullptr;
    }
    QObject* createObject(const QString&, QObject*) override { return nullptr; }

    QList<QWidget*> widgetParents;
    int mapperCalls = 0;
};

} // namespace

class tst_WidgetMapper : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void baseMapKeepsNothing();
    void widgetCloneIsWidgetAction();
    void mapSeesWidgetBeforeItIsListed();
    void mapperIsMadeOnceAndOwnedByFactoryChoice();
    void widgetParentMustBeWidget();
    void deletedWidgetDropsOut();
    void unknownWidgetGivesNull();
    void unknownOrWrongMapperGivesNull_data();
    void unknownOrWrongMapperGivesNull();

private:
    Action* widgetAction(QObject* owner, const QString& widget, const QString& mapper);

    HostFactory* factory = nullptr;
};

void tst_WidgetMapper::initTestCase()
{
    factory = new HostFactory;
    QVERIFY(Builder::appendFactory(factory));
}

void tst_WidgetMapper::init()
{
    factory->widgetParents.clear();
    factory->mapperCalls = 0;
}

Action* tst_WidgetMapper::widgetAction(QObject* owner, const QString& widget,
                                       const QString& mapper)
{
    auto* action = new Action(owner);
    action->setName(QStringLiteral("ID_LAYER_NAME"));
    action->setType(QStringLiteral("widget"));
    action->setMenuText(QStringLiteral("Layer name"));
    action->setRibbonText(QStringLiteral("Layer"));
    action->setScript(QStringLiteral("layer.name"));
    action->setWidget(widget);
    action->setMapper(mapper);
    return action;
}

void tst_WidgetMapper::baseMapKeepsNothing()
{
    WidgetMapper mapper(nullptr);
    QCOMPARE(mapper.metaObject()->className(), "WidgetMapper");
    QWidget widget;
    mapper.map(&widget);
    QVERIFY(mapper.widgets().isEmpty());
}

void tst_WidgetMapper::widgetCloneIsWidgetAction()
{
    QObject owner;
    Action* action = widgetAction(&owner, QStringLiteral("edit"), QStringLiteral("recording"));
    QWidget window;
    QAction* clone = action->clone(&window, QIcon(), QStringLiteral("ignored"), 0);
    auto* widgetClone = qobject_cast<QWidgetAction*>(clone);
    QVERIFY(widgetClone);
    QCOMPARE(clone->parent(), &window);
    QCOMPARE(clone->objectName(), QStringLiteral("ID_LAYER_NAME"));
    QCOMPARE(clone->text(), QStringLiteral("Layer name"));
    // No clone properties and no connections back to the action.
    QVERIFY(clone->dynamicPropertyNames().isEmpty());
    QVERIFY(!clone->findChild<ActionMapper*>());
    action->setEnabled(false);
    QVERIFY(clone->isEnabled());

    auto* edit = qobject_cast<QLineEdit*>(widgetClone->defaultWidget());
    QVERIFY(edit);
    QCOMPARE(edit->property("action").toString(), QStringLiteral("ID_LAYER_NAME"));
    QCOMPARE(edit->toolTip(), QStringLiteral("Layer name"));
}

void tst_WidgetMapper::mapSeesWidgetBeforeItIsListed()
{
    QObject owner;
    Action* action = widgetAction(&owner, QStringLiteral("edit"), QStringLiteral("recording"));
    auto* first = qobject_cast<QWidgetAction*>(action->clone(nullptr, 1));
    auto* second = qobject_cast<QWidgetAction*>(action->clone(nullptr, 0));
    QScopedPointer<QWidgetAction> firstOwner(first), secondOwner(second);
    auto* mapper = static_cast<RecordingMapper*>(action->widgetMapper());
    QVERIFY(mapper);
    const QList<QWidget*> expected{first->defaultWidget(), second->defaultWidget()};
    QCOMPARE(mapper->mapped, expected);
    QCOMPARE(mapper->listedWhenMapped, (QList<bool>{false, false}));
    QCOMPARE(mapper->widgets(), expected);
}

void tst_WidgetMapper::mapperIsMadeOnceAndOwnedByFactoryChoice()
{
    QObject owner;
    Action* action = widgetAction(&owner, QStringLiteral("edit"), QStringLiteral("recording"));
    QCOMPARE(action->widgetMapper(), nullptr);
    QScopedPointer<QAction> first(action->clone(nullptr, 0));
    WidgetMapper* mapper = action->widgetMapper();
    QScopedPointer<QAction> second(action->clone(nullptr, 0));
    QCOMPARE(action->widgetMapper(), mapper);
    QCOMPARE(factory->mapperCalls, 1);
    // The builder is asked with the action as parent.
    QCOMPARE(mapper->parent(), action);
    QCOMPARE(action->actionMapper(), nullptr);
}

void tst_WidgetMapper::widgetParentMustBeWidget()
{
    QObject owner;
    Action* action = widgetAction(&owner, QStringLiteral("edit"), QStringLiteral("recording"));
    QWidget window;
    QObject plainParent;
    action->clone(&window, 0);
    action->clone(&plainParent, 0);
    QScopedPointer<QAction> orphan(action->clone(nullptr, 0));
    QCOMPARE(factory->widgetParents, (QList<QWidget*>{&window, nullptr, nullptr}));
}

void tst_WidgetMapper::deletedWidgetDropsOut()
{
    QObject owner;
    Action* action = widgetAction(&owner, QStringLiteral("edit"), QStringLiteral("recording"));
    QScopedPointer<QAction> first(action->clone(nullptr, 0));
    auto* second = static_cast<QWidgetAction*>(action->clone(nullptr, 0));
    QWidget* kept = static_cast<QWidgetAction*>(first.data())->defaultWidget();
    QCOMPARE(action->widgetMapper()->widgets().size(), 2);
    delete second;   // and with it its widget
    QCOMPARE(action->widgetMapper()->widgets(), QList<QWidget*>{kept});
}

void tst_WidgetMapper::unknownWidgetGivesNull()
{
    QObject owner;
    Action* action = widgetAction(&owner, QStringLiteral("spin"), QStringLiteral("recording"));
    QCOMPARE(action->clone(nullptr, 0), nullptr);
    // The mapper was made before the widget was asked for, and is kept.
    QVERIFY(action->widgetMapper());
    QVERIFY(action->widgetMapper()->widgets().isEmpty());
}

void tst_WidgetMapper::unknownOrWrongMapperGivesNull_data()
{
    QTest::addColumn<QString>("mapper");
    QTest::newRow("unknown") << QStringLiteral("unknown");
    QTest::newRow("not a WidgetMapper") << QStringLiteral("plainObject");
}

void tst_WidgetMapper::unknownOrWrongMapperGivesNull()
{
    QFETCH(QString, mapper);
    QObject owner;
    Action* action = widgetAction(&owner, QStringLiteral("edit"), mapper);
    QCOMPARE(action->clone(nullptr, 0), nullptr);
    QCOMPARE(action->widgetMapper(), nullptr);
    QVERIFY(factory->widgetParents.isEmpty());
}

QTEST_MAIN(tst_WidgetMapper)
#include "tst_widgetmapper.moc"
