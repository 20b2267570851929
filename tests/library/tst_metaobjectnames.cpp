#include <CommandSystem/CommandSystem.h>

#include <QtTest>

#include <memory>

using namespace Talvir::Vexa::Cs;

// Every class of the library carries its own meta-object under its bare class name, which is
// what string-based connections, inherits() and qobject_cast rely on.
class tst_MetaObjectNames : public QObject
{
    Q_OBJECT

private slots:
    void bareClassNames_data();
    void bareClassNames();
    void cloneActionIsNamedToo();
    void inheritsUsesTheBareNames();
};

void tst_MetaObjectNames::bareClassNames_data()
{
    QTest::addColumn<const QMetaObject*>("meta");
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("superName");

    QTest::newRow("Command") << &Command::staticMetaObject << QByteArray("Command") << QByteArray("QObject");
    QTest::newRow("CommandFactory") << &CommandFactory::staticMetaObject << QByteArray("CommandFactory") << QByteArray("QObject");
    QTest::newRow("Escaper") << &Escaper::staticMetaObject << QByteArray("Escaper") << QByteArray("QObject");
    QTest::newRow("CommandManager") << &CommandManager::staticMetaObject << QByteArray("CommandManager") << QByteArray("QObject");
    QTest::newRow("CommandPipe") << &CommandPipe::staticMetaObject << QByteArray("CommandPipe") << QByteArray("QObject");
    QTest::newRow("EscaperPipe") << &EscaperPipe::staticMetaObject << QByteArray("EscaperPipe") << QByteArray("QObject");
    QTest::newRow("CommandInvoker") << &CommandInvoker::staticMetaObject << QByteArray("CommandInvoker") << QByteArray("QObject");
    QTest::newRow("Parameter") << &Parameter::staticMetaObject << QByteArray("Parameter") << QByteArray("QObject");
    QTest::newRow("Template") << &Template::staticMetaObject << QByteArray("Template") << QByteArray("QObject");
    QTest::newRow("TemplateTools") << &TemplateTools::staticMetaObject << QByteArray("TemplateTools") << QByteArray("QObject");
    QTest::newRow("TemplatePool") << &TemplatePool::staticMetaObject << QByteArray("TemplatePool") << QByteArray("QObject");
    QTest::newRow("Action") << &Action::staticMetaObject << QByteArray("Action") << QByteArray("QAction");
    QTest::newRow("ActionMapper") << &ActionMapper::staticMetaObject << QByteArray("ActionMapper") << QByteArray("QObject");
    QTest::newRow("WidgetMapper") << &WidgetMapper::staticMetaObject << QByteArray("WidgetMapper") << QByteArray("QObject");
    QTest::newRow("ActionPool") << &ActionPool::staticMetaObject << QByteArray("ActionPool") << QByteArray("QObject");
    QTest::newRow("Factory") << &Factory::staticMetaObject << QByteArray("Factory") << QByteArray("QObject");
    QTest::newRow("Builder") << &Builder::staticMetaObject << QByteArray("Builder") << QByteArray("QObject");
}

void tst_MetaObjectNames::bareClassNames()
{
    QFETCH(const QMetaObject*, meta);
    QFETCH(QByteArray, name);
    QFETCH(QByteArray, superName);
    QCOMPARE(QByteArray(meta->className()), name);
    QVERIFY(meta->superClass());
    QCOMPARE(QByteArray(meta->superClass()->className()), superName);
}

void tst_MetaObjectNames::cloneActionIsNamedToo()
{
    Action action(nullptr);
    QAction* clone = action.clone(nullptr, 1);
    QVERIFY(clone);
    QCOMPARE(QByteArray(clone->metaObject()->className()), QByteArray("CloneAction"));
    QVERIFY(clone->inherits("QAction"));
    delete clone;
}

void tst_MetaObjectNames::inheritsUsesTheBareNames()
{
    TemplatePool pool;
    QVERIFY(pool.inherits("TemplatePool"));
    QVERIFY(!pool.inherits("Talvir::Vexa::Cs::TemplatePool"));
    ActionPool actions;
    QObject* object = &actions;
    QCOMPARE(qobject_cast<ActionPool*>(object), &actions);
    Action* action = actions.insertAction(QStringLiteral("ID_LINE"));
    QVERIFY(action->inherits("Action"));
    QVERIFY(action->inherits("QAction"));
}

QTEST_MAIN(tst_MetaObjectNames)
#include "tst_metaobjectnames.moc"
