#include "TestCommands.h"

#include <QtTest>

class tst_Command : public QObject
{
    Q_OBJECT

private slots:
    void nameIsTheObjectName();
    void defaultsAreInvokableAndNotDeletable();
    void baseClassesAreParentless();
    void metaObjectNamesAreBare_data();
    void metaObjectNamesAreBare();
};

void tst_Command::nameIsTheObjectName()
{
    PlainCommand command(QStringLiteral("line"));
    QCOMPARE(command.objectName(), QStringLiteral("line"));
    QVERIFY(!command.parent());
}

void tst_Command::defaultsAreInvokableAndNotDeletable()
{
    PlainCommand command(QStringLiteral("circle"));
    QVERIFY(command.invokable());
    QVERIFY(!command.deletable());
}

void tst_Command::baseClassesAreParentless()
{
    NamedFactory factory(QStringLiteral("x"));
    QVERIFY(!factory.parent());
    ScriptedEscaper escaper({1});
    QVERIFY(!escaper.parent());
}

void tst_Command::metaObjectNamesAreBare_data()
{
    QTest::addColumn<QString>("expected");
    QTest::addColumn<QString>("actual");
    PlainCommand command(QStringLiteral("c"));
    QTest::newRow("Command") << "Command" << QString::fromLatin1(Command::staticMetaObject.className());
    QTest::newRow("CommandFactory") << "CommandFactory" << QString::fromLatin1(CommandFactory::staticMetaObject.className());
    QTest::newRow("Escaper") << "Escaper" << QString::fromLatin1(Escaper::staticMetaObject.className());
    QTest::newRow("subclass inherits") << "true" << QString::fromLatin1(command.inherits("Command") ? "true" : "false");
}

void tst_Command::metaObjectNamesAreBare()
{
    QFETCH(QString, expected);
    QFETCH(QString, actual);
    QCOMPARE(actual, expected);
}

QTEST_GUILESS_MAIN(tst_Command)
#include "tst_command.moc"
