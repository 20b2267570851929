#include "TestCommands.h"

#include <CommandSystem/CommandManager.h>

#include <QtTest>

#include <memory>

class tst_CommandManager : public QObject
{
    Q_OBJECT

private slots:
    void emptyManagerHasNoCommand();
    void attachingTheSameNameTwiceKeepsTheFirst();
    void detachFindsTheEntryByName();
    void detachOfAnUnknownNameFails();
    void factoriesAreAskedInAttachOrder();
    void factoryCommandsAreNotRemembered();
    void registeredCommandWinsOverFactories();
    void factoryAttachAndDetach();
    void detachingKeepsTheOrderOfTheOthers();
    void nothingIsDeleted();
};

void tst_CommandManager::emptyManagerHasNoCommand()
{
    CommandManager manager;
    QCOMPARE(manager.command(QStringLiteral("line")), nullptr);
    QCOMPARE(manager.metaObject()->className(), "CommandManager");
}

void tst_CommandManager::attachingTheSameNameTwiceKeepsTheFirst()
{
    CommandManager manager;
    PlainCommand first(QStringLiteral("line")), second(QStringLiteral("line"));
    QVERIFY(manager.attachCommand(&first));
    QVERIFY(!manager.attachCommand(&second));
    QCOMPARE(manager.command(QStringLiteral("line")), &first);
}

void tst_CommandManager::detachFindsTheEntryByName()
{
    CommandManager manager;
    PlainCommand attached(QStringLiteral("arc")), stranger(QStringLiteral("arc"));
    QVERIFY(manager.attachCommand(&attached));
    QVERIFY(manager.detachCommand(&stranger));
    QCOMPARE(manager.command(QStringLiteral("arc")), nullptr);
    QVERIFY(!manager.detachCommand(&attached));
}

void tst_CommandManager::detachOfAnUnknownNameFails()
{
    CommandManager manager;
    PlainCommand command(QStringLiteral("zoom"));
    QVERIFY(!manager.detachCommand(&command));
}

void tst_CommandManager::factoriesAreAskedInAttachOrder()
{
    CommandManager manager;
    NamedFactory first(QStringLiteral("x")), second(QStringLiteral("x"));
    QVERIFY(manager.attachCommandFactory(&first));
    QVERIFY(manager.attachCommandFactory(&second));
    std::unique_ptr<Command> made(manager.command(QStringLiteral("x")));
    QVERIFY(made);
    QCOMPARE(made->objectName(), QStringLiteral("x"));
    QCOMPARE(first.asked, 1);
    QCOMPARE(second.asked, 0);
    std::unique_ptr<Command> again(manager.command(QStringLiteral("x")));
    QCOMPARE(first.asked, 2);
    QCOMPARE(second.asked, 0);
    QVERIFY(again.get() != made.get());
}

void tst_CommandManager::factoryCommandsAreNotRemembered()
{
    CommandManager manager;
    NamedFactory unknown(QStringLiteral("other")), maker(QStringLiteral("y"));
    manager.attachCommandFactory(&unknown);
    manager.attachCommandFactory(&maker);
    std::unique_ptr<Command> made(manager.command(QStringLiteral("y")));
    QVERIFY(made);
    QCOMPARE(unknown.asked, 1);
    QCOMPARE(maker.asked, 1);
    QCOMPARE(manager.command(QStringLiteral("nobody makes this")), nullptr);
    QCOMPARE(unknown.asked, 2);
    QCOMPARE(maker.asked, 2);
    QVERIFY(!manager.detachCommand(made.get()));
}

void tst_CommandManager::registeredCommandWinsOverFactories()
{
    CommandManager manager;
    NamedFactory factory(QStringLiteral("line"));
    PlainCommand registered(QStringLiteral("line"));
    manager.attachCommandFactory(&factory);
    manager.attachCommand(&registered);
    QCOMPARE(manager.command(QStringLiteral("line")), &registered);
    QCOMPARE(factory.asked, 0);
}

void tst_CommandManager::factoryAttachAndDetach()
{
    CommandManager manager;
    NamedFactory factory(QStringLiteral("x"));
    QVERIFY(manager.attachCommandFactory(&factory));
    QVERIFY(!manager.attachCommandFactory(&factory));
    QVERIFY(manager.detachCommandFactory(&factory));
    QVERIFY(!manager.detachCommandFactory(&factory));
    QCOMPARE(manager.command(QStringLiteral("x")), nullptr);
    QCOMPARE(factory.asked, 0);
}

void tst_CommandManager::detachingKeepsTheOrderOfTheOthers()
{
    CommandManager manager;
    NamedFactory a(QStringLiteral("z")), b(QStringLiteral("z")), c(QStringLiteral("z"));
    manager.attachCommandFactory(&a);
    manager.attachCommandFactory(&b);
    manager.attachCommandFactory(&c);
    QVERIFY(manager.detachCommandFactory(&a));
    std::unique_ptr<Command> made(manager.command(QStringLiteral("z")));
    QCOMPARE(b.asked, 1);
    QCOMPARE(c.asked, 0);
}

void tst_CommandManager::nothingIsDeleted()
{
    QPointer<PlainCommand> command = new PlainCommand(QStringLiteral("keep"));
    QPointer<NamedFactory> factory = new NamedFactory(QStringLiteral("keep"));
    {
        CommandManager manager;
        manager.attachCommand(command);
        manager.attachCommandFactory(factory);
        manager.detachCommand(command);
    }
    QVERIFY(command);
    QVERIFY(factory);
    delete command;
    delete factory;
}

QTEST_GUILESS_MAIN(tst_CommandManager)
#include "tst_commandmanager.moc"
