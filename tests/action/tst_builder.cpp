#include <CommandSystem/Builder.h>
#include <CommandSystem/Factory.h>

#include <QPointer>
#include <QTest>
#include <QWidget>

using namespace Talvir::Vexa::Cs;

namespace {

// Knows a fixed set of names per operation and counts what it is asked.
class NamedFactory : public Factory
{
public:
    NamedFactory(const QString& tag, const QStringList& widgets, const QStringList& mappers,
                 const QStringList& objects)
        : tag(tag), widgets(widgets), mappers(mappers), objects(objects)
    {
    }

    QWidget* createWidget(const QString& name, QWidget* parent) override
    {
        ++widgetCalls;
        return widgets.contains(name) ? named(new QWidget(parent), name) : nullptr;
    }
    QObject* createMapper(const QString& name, QObject* parent) override
    {
        ++mapperCalls;
        return mappers.contains(name) ? named(new QObject(parent), name) : nullptr;
    }
    QObject* createObject(const QString& name, QObject* parent) override
    {
        ++objectCalls;
        return objects.contains(name) ? named(new QObject(parent), name) : nullptr;
    }

    int widgetCalls = 0;
    int mapperCalls = 0;
    int objectCalls = 0;

private:
    template <typename T>
    T* named(T* made, const QString& name)
    {
        made->setObjectName(tag + QLatin1Char(':') + name);
        return made;
    }

    QString tag;
    QStringList widgets, mappers, objects;
};

} // namespace

// The registry is process-wide and keeps its factories to the end: the slots run in order and
// build on one another.
class tst_Builder : public QObject
{
    Q_OBJECT

private slots:
    void emptyRegistryCreatesNothing();
    void nullFactoryIsRefused();
    void removingUnregisteredFactoryDeletesIt();
    void appendRegistersOnce();
    void removingRegisteredFactoryKeepsIt();
    void firstAppendedFactoryWins();
    void eachOperationAsksOnlyItsOwn();
    void parentIsPassedOn();
    void appendDuringCreationDoesNotDisturbWalk();
    void assignmentReturnsItself();

private:
    QPointer<NamedFactory> first;
    QPointer<NamedFactory> second;
};

void tst_Builder::emptyRegistryCreatesNothing()
{
    QCOMPARE(Builder::createWidget(QStringLiteral("edit"), nullptr), nullptr);
    QCOMPARE(Builder::createMapper(QStringLiteral("edit"), nullptr), nullptr);
    QCOMPARE(Builder::createObject(QStringLiteral("edit"), nullptr), nullptr);
}

void tst_Builder::nullFactoryIsRefused()
{
    QVERIFY(!Builder::appendFactory(nullptr));
    QVERIFY(!Builder::removeFactory(nullptr));
}

void tst_Builder::removingUnregisteredFactoryDeletesIt()
{
    QPointer<NamedFactory> stranger =
        new NamedFactory(QStringLiteral("stranger"), {QStringLiteral("edit")}, {}, {});
    QVERIFY(Builder::removeFactory(stranger));
    QVERIFY(stranger.isNull());
    QCOMPARE(Builder::createWidget(QStringLiteral("edit"), nullptr), nullptr);
}

void tst_Builder::appendRegistersOnce()
{
    first = new NamedFactory(QStringLiteral("first"),
                             {QStringLiteral("edit"), QStringLiteral("combo")},
                             {QStringLiteral("editMapper")}, {QStringLiteral("helper")});
    QVERIFY(Builder::appendFactory(first));
    QVERIFY(!Builder::appendFactory(first));
    QVERIFY(!first.isNull());

    QScopedPointer<QWidget> widget(Builder::createWidget(QStringLiteral("edit"), nullptr));
    QVERIFY(widget);
    QCOMPARE(widget->objectName(), QStringLiteral("first:edit"));
    // Registered once: asked once.
    QCOMPARE(first->widgetCalls, 1);
}

void tst_Builder::removingRegisteredFactoryKeepsIt()
{
    QVERIFY(!Builder::removeFactory(first));
    QVERIFY(!first.isNull());
    QScopedPointer<QObject> mapper(Builder::createMapper(QStringLiteral("editMapper"), nullptr));
    QVERIFY(mapper);
    QCOMPARE(mapper->objectName(), QStringLiteral("first:editMapper"));
    // A mapper without a widget of the same name.
    QCOMPARE(Builder::createWidget(QStringLiteral("editMapper"), nullptr), nullptr);
}

void tst_Builder::firstAppendedFactoryWins()
{
    second = new NamedFactory(QStringLiteral("second"),
                              {QStringLiteral("edit"), QStringLiteral("spin")}, {}, {});
    QVERIFY(Builder::appendFactory(second));
    first->widgetCalls = 0;

    QScopedPointer<QWidget> edit(Builder::createWidget(QStringLiteral("edit"), nullptr));
    QCOMPARE(edit->objectName(), QStringLiteral("first:edit"));
    QCOMPARE(first->widgetCalls, 1);
    QCOMPARE(second->widgetCalls, 0);

    QScopedPointer<QWidget> spin(Builder::createWidget(QStringLiteral("spin"), nullptr));
    QCOMPARE(spin->objectName(), QStringLiteral("second:spin"));
    QCOMPARE(first->widgetCalls, 2);
    QCOMPARE(second->widgetCalls, 1);

    QCOMPARE(Builder::createWidget(QStringLiteral("unknown"), nullptr), nullptr);
    QCOMPARE(first->widgetCalls, 3);
    QCOMPARE(second->widgetCalls, 2);
}

void tst_Builder::eachOperationAsksOnlyItsOwn()
{
    first->widgetCalls = first->mapperCalls = first->objectCalls = 0;
    // "helper" is only an object and "edit" only a widget: no operation falls back to another.
    QCOMPARE(Builder::createWidget(QStringLiteral("helper"), nullptr), nullptr);
    QCOMPARE(Builder::createMapper(QStringLiteral("helper"), nullptr), nullptr);
    QCOMPARE(Builder::createObject(QStringLiteral("edit"), nullptr), nullptr);
    QCOMPARE(first->widgetCalls, 1);
    QCOMPARE(first->mapperCalls, 1);
    QCOMPARE(first->objectCalls, 1);
    QScopedPointer<QObject> helper(Builder::createObject(QStringLiteral("helper"), nullptr));
    QCOMPARE(helper->objectName(), QStringLiteral("first:helper"));
}

void tst_Builder::parentIsPassedOn()
{
    QWidget window;
    QWidget* combo = Builder::createWidget(QStringLiteral("combo"), &window);
    QCOMPARE(combo->parentWidget(), &window);
    QObject owner;
    QObject* helper = Builder::createObject(QStringLiteral("helper"), &owner);
    QCOMPARE(helper->parent(), &owner);
}

namespace {

// Registers another factory while it is being asked.
class AppendingFactory : public Factory
{
public:
    QWidget* createWidget(const QString&, QWidget*) override
    {
        if (!late) {
            late = new NamedFactory(QStringLiteral("late"), {QStringLiteral("late")}, {}, {});
            Builder::appendFactory(late);
        }
        return nullptr;
    }
    QObject* createMapper(const QString&, QObject*) override { return nullptr; }
    QObject* createObject(const QString&, QObject*) override { return nullptr; }

    QPointer<NamedFactory> late;
};

} // namespace

void tst_Builder::appendDuringCreationDoesNotDisturbWalk()
{
    auto* appending = new AppendingFactory;
    QVERIFY(Builder::appendFactory(appending));
    // The walk goes over the registry as it was when the call began.
    QCOMPARE(Builder::createWidget(QStringLiteral("late"), nullptr), nullptr);
    QVERIFY(appending->late);
    QCOMPARE(appending->late->widgetCalls, 0);
    QScopedPointer<QWidget> late(Builder::createWidget(QStringLiteral("late"), nullptr));
    QCOMPARE(late->objectName(), QStringLiteral("late:late"));
}

void tst_Builder::assignmentReturnsItself()
{
    Builder builder;
    const Builder other;
    QCOMPARE(&(builder = other), &builder);
    QCOMPARE(builder.metaObject()->className(), "Builder");
}

QTEST_MAIN(tst_Builder)
#include "tst_builder.moc"
