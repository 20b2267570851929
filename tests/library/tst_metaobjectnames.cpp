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
    // The meta-object is passed as its address: QTest's data columns need a registered type.
    QTest::addColumn<quintptr>("meta");
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("superName");

    QTest::newRow("Command") << quintptr(&Command::staticMetaObject) << QByteArray("Command") << QByteArray("QObject");
    QTest::newRow("CommandFactory") << quintptr(&CommandFactory::staticMetaObject) << QByteArray("CommandFactory") << QByteArray("QObject");
    QTest::newRow("Escaper") << quintptr(&Escaper::staticMetaObject) << QByteArray("Escaper") << QByteArray("QObject");
    QTest::newRow("CommandManager") << quintptr(&CommandManager::staticMetaObject) << QByteArray("CommandManager") << QByteArray("QObject");
    QTest::newRow("CommandPipe") << quintptr(&CommandPipe::staticMetaObject) << QByteArray("CommandPipe") << QByteArray("QObject");
    QTest::newRow("EscaperPipe") << quintptr(&EscaperPipe::staticMetaObject) << QByteArray("EscaperPipe") << QByteArray("QObject");
    QTest::newRow("CommandInvoker") << quintptr(&CommandInvoker::staticMetaObject) << QByteArray("CommandInvoker") << QByteArray("QObject");
    QTest::newRow("Parameter") << quintptr(&Parameter::staticMetaObject) << QByteArray("Parameter") << QByteArray("QObject");
    QTest::newRow("Template") << quintptr(&Template::staticMetaObject) << QByteArray("Template") << QByteArray("QObject");
    QTest::newRow("TemplateTools") << quintptr(&TemplateTools::staticMetaObject) << QByteArray("TemplateTools") << QByteArray("QObject");
    QTest::newRow("TemplatePool") << quintptr(&TemplatePool::staticMetaObject) << QByteArray("TemplatePool") << QByteArray("QObject");
    QTest::newRow("Action") << quintptr(&Action::staticMetaObject) << QByteArray("Action") << QByteArray("QAction");
    QTest::newRow("ActionMapper") << quintptr(&ActionMapper::staticMetaObject) << QByteArray("ActionMapper") << QByteArray("QObject");
    QTest::newRow("WidgetMapper") << quintptr(&WidgetMapper::staticMetaObject) << QByteArray("WidgetMapper") << QByteArray("QObject");
    QTest::newRow("ActionPool") << quintptr(&ActionPool::staticMetaObject) << QByteArray("ActionPool") << QByteArray("QObject");
    QTest::newRow("Factory") << quintptr(&Factory::staticMetaObject) << QByteArray("Factory") << QByteArray("QObject");
    QTest::newRow("Builder") << quintptr(&Builder::staticMetaObject) << QByteArray("Builder") << QByteArray("QObject");
    QTest::newRow("InputSession") << quintptr(&InputSession::staticMetaObject) << QByteArray("InputSession") << QByteArray("QObject");
    QTest::newRow("CommandLineModel") << quintptr(&CommandLineModel::staticMetaObject) << QByteArray("CommandLineModel") << QByteArray("QObject");
    QTest::newRow("ShortcutScheme") << quintptr(&ShortcutScheme::staticMetaObject) << QByteArray("ShortcutScheme") << QByteArray("QObject");
    QTest::newRow("CommandSearchModel") << quintptr(&CommandSearchModel::staticMetaObject) << QByteArray("CommandSearchModel") << QByteArray("QAbstractTableModel");
    QTest::newRow("CommandPalette") << quintptr(&CommandPalette::staticMetaObject) << QByteArray("CommandPalette") << QByteArray("QFrame");
}

void tst_MetaObjectNames::bareClassNames()
{
    QFETCH(quintptr, meta);
    const auto* metaObject = reinterpret_cast<const QMetaObject*>(meta);
    QFETCH(QByteArray, name);
    QFETCH(QByteArray, superName);
    QCOMPARE(QByteArray(metaObject->className()), name);
    QVERIFY(metaObject->superClass());
    QCOMPARE(QByteArray(metaObject->superClass()->className()), superName);
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
