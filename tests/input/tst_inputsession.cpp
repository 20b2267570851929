#include <CommandSystem/InputGrammar.h>
#include <CommandSystem/InputSession.h>
#include <CommandSystem/Parameter.h>

#include "WalkTemplates.h"

#include <QRandomGenerator>
#include <QtTest>

#include <memory>

using namespace Talvir::Vexa::Cs;

namespace {

// A session over one of the walk templates with everything it emits written down, one line a
// signal: "prompt P", "echo E", "reject R", "trigger L", "undone L", "form L", "selection 1,2",
// "finished 1" or "finished 0". answersChanged() is counted apart.
struct Probe {
    Probe(const Template* commandTemplate, InputPicker* picker = nullptr)
        : session(commandTemplate, picker)
    {
        QObject::connect(&session, &InputSession::promptChanged, [this](const QString& prompt, const QString&) {
            events.append(QStringLiteral("prompt ") + prompt);
        });
        QObject::connect(&session, &InputSession::echoed, [this](const QString& text) {
            events.append(QStringLiteral("echo ") + text);
        });
        QObject::connect(&session, &InputSession::rejected, [this](const QString& reason) {
            events.append(QStringLiteral("reject ") + reason);
        });
        QObject::connect(&session, &InputSession::triggered, [this](const Parameter* parameter) {
            events.append(QStringLiteral("trigger %1").arg(parameter->luid()));
        });
        QObject::connect(&session, &InputSession::undone, [this](const Parameter* parameter) {
            events.append(QStringLiteral("undone %1").arg(parameter->luid()));
        });
        QObject::connect(&session, &InputSession::formRequested, [this](const Parameter* parameter) {
            events.append(QStringLiteral("form %1 %2").arg(parameter->luid()).arg(QString::fromUtf8(parameter->textProperty("callback"))));
        });
        QObject::connect(&session, &InputSession::selectionChanged, [this](const QList<int>& entities) {
            QStringList ids;
            for (int entity : entities)
                ids.append(QString::number(entity));
            events.append(QStringLiteral("selection ") + ids.join(QLatin1Char(',')));
        });
        QObject::connect(&session, &InputSession::finished, [this](bool completed) {
            events.append(QStringLiteral("finished %1").arg(completed ? 1 : 0));
        });
        QObject::connect(&session, &InputSession::answersChanged, [this] { ++changes; });
    }

    // The events since the last call.
    QStringList take()
    {
        const QStringList result = events;
        events.clear();
        return result;
    }

    InputSession session;
    QStringList events;
    int changes = 0;
};

QStringList pointsOf(const InputSession& session)
{
    QStringList result;
    for (const QPointF& point : session.points())
        result.append(InputGrammar::formatPoint(point));
    return result;
}

} // namespace

class tst_InputSession : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void walksInOrderAndRepeatsUntilEnter();
    void relativeInputFollowsTheLastPoint();
    void undoTakesBackTheLastAnswer();
    void nextJumpsToItsLuid();
    void selectedAsksAfterItsOption_data();
    void selectedAsksAfterItsOption();
    void optionAtValueParameterLeavesIt();
    void entityListCollectsUntilEnter();
    void entityListEnterWithNothingCancels();
    void entityWithoutListTakesFirstFound();
    void windowTakesTwoCorners();
    void windowWithoutAreaIsRefused();
    void nullAndContinue();
    void pinCatchesAndCheckerRefusesSamePoint();
    void pickMeasuresDistanceAndAngle_data();
    void pickMeasuresDistanceAndAngle();
    void defaultTakenOnEnter();
    void rangeAndCheckerRefuse();
    void enterWithoutRuleCancels();
    void cancelEndsAndLaterInputIsIgnored();
    void answersGivenWithTheCommand();
    void templateWithoutParametersCompletesAtStart();
    void pickWhereNoPickFits();
    void noPickerFindsNothing();
    void applyTakesStepsAgain();
    void applyRefusesOtherParameter();
    void badInputNeverBreaksASession();

private:
    WalkTemplates m_templates;
    TestPicker m_picker;
};

void tst_InputSession::initTestCase()
{
    QVERIFY(m_templates.isLoaded());
}

void tst_InputSession::walksInOrderAndRepeatsUntilEnter()
{
    Probe probe(m_templates.get(QStringLiteral("line")));
    QCOMPARE(probe.session.name(), QStringLiteral("line"));
    QVERIFY(!probe.session.current());
    probe.session.start();
    QCOMPARE(probe.take(), QStringList{QStringLiteral("prompt Specify first point:")});
    QCOMPARE(probe.session.format(), QStringLiteral("x,y"));
    QVERIFY(probe.session.feed(QStringLiteral("0,0")));
    QVERIFY(probe.session.feed(QStringLiteral("10,0")));
    QVERIFY(probe.session.pick(QPointF(10, 5)));
    QCOMPARE(probe.take(), (QStringList{QStringLiteral("echo Specify first point: 0,0"),
                                        QStringLiteral("prompt Specify next point or [Undo]:"),
                                        QStringLiteral("echo Specify next point or [Undo]: 10,0"),
                                        QStringLiteral("trigger 2"),
                                        QStringLiteral("prompt Specify next point or [Undo]:"),
                                        QStringLiteral("echo Specify next point or [Undo]: 10,5"),
                                        QStringLiteral("trigger 2"),
                                        QStringLiteral("prompt Specify next point or [Undo]:")}));
    QVERIFY(probe.session.feed(QString()));
    QCOMPARE(probe.take(), (QStringList{QStringLiteral("echo Specify next point or [Undo]:"),
                                        QStringLiteral("finished 1")}));
    QVERIFY(probe.session.isFinished() && probe.session.isCompleted());
    QCOMPARE(pointsOf(probe.session), (QStringList{QStringLiteral("0,0"), QStringLiteral("10,0"), QStringLiteral("10,5")}));
    QCOMPARE(probe.session.point(2), QPointF(10, 5));
    QCOMPARE(probe.session.steps().size(), 4);
    QCOMPARE(probe.session.steps().last().kind(), InputAnswer::Empty);
    QCOMPARE(probe.changes, 3);
    QVERIFY(!probe.session.current());
}

void tst_InputSession::relativeInputFollowsTheLastPoint()
{
    Probe probe(m_templates.get(QStringLiteral("line")));
    probe.session.start({QStringLiteral("5,5"), QStringLiteral("@10,0"), QStringLiteral("@10<90"), QStringLiteral("@")});
    QCOMPARE(pointsOf(probe.session), (QStringList{QStringLiteral("5,5"), QStringLiteral("15,5"),
                                                   QStringLiteral("15,15"), QStringLiteral("15,15")}));
    QCOMPARE(probe.session.lastPoint().value(), QPointF(15, 15));
}

void tst_InputSession::undoTakesBackTheLastAnswer()
{
    Probe probe(m_templates.get(QStringLiteral("line")));
    probe.session.start({QStringLiteral("0,0"), QStringLiteral("10,0")});
    probe.take();
    QVERIFY(probe.session.feed(QStringLiteral("U")));
    QCOMPARE(probe.take(), (QStringList{QStringLiteral("echo Specify next point or [Undo]: Undo"),
                                        QStringLiteral("undone 2"),
                                        QStringLiteral("prompt Specify next point or [Undo]:")}));
    QCOMPARE(pointsOf(probe.session), QStringList{QStringLiteral("0,0")});
    QVERIFY(!probe.session.feed(QStringLiteral("undo")));
    QCOMPARE(probe.take(), QStringList{QStringLiteral("reject Nothing to undo. Expected a point (x,y, @dx,dy, "
                                                      "dist<angle or @dist<angle) or an option: Undo (u).")});
    QVERIFY(probe.session.feed(QStringLiteral("@0,7")));
    QCOMPARE(pointsOf(probe.session), (QStringList{QStringLiteral("0,0"), QStringLiteral("0,7")}));
    QCOMPARE(probe.session.steps().size(), 4);
}

void tst_InputSession::nextJumpsToItsLuid()
{
    Probe probe(m_templates.get(QStringLiteral("jump")));
    probe.session.start({QStringLiteral("1")});
    QCOMPARE(probe.session.prompt(), QStringLiteral("Last:"));
    QVERIFY(probe.session.feed(QStringLiteral("end")));
    QVERIFY(probe.session.isCompleted());
    QVERIFY(!probe.session.has(2));
    QCOMPARE(probe.session.text(3), QStringLiteral("end"));
}

void tst_InputSession::selectedAsksAfterItsOption_data()
{
    QTest::addColumn<QStringList>("answers");
    QTest::addColumn<QStringList>("events");
    QTest::newRow("new") << QStringList{"new", "Walls"}
                         << QStringList{"prompt Enter an option [New/Set/List]:",
                                        "echo Enter an option [New/Set/List]: New",
                                        "prompt Enter name for new layer:",
                                        "echo Enter name for new layer: Walls", "finished 1"};
    QTest::newRow("set") << QStringList{"S", "0"}
                         << QStringList{"prompt Enter an option [New/Set/List]:",
                                        "echo Enter an option [New/Set/List]: Set",
                                        "prompt Enter layer name to make current:",
                                        "echo Enter layer name to make current: 0", "finished 1"};
    QTest::newRow("list shows the form") << QStringList{"l"}
                                         << QStringList{"prompt Enter an option [New/Set/List]:",
                                                        "echo Enter an option [New/Set/List]: List",
                                                        "echo Layers of this drawing:", "form 4 layers", "finished 1"};
}

void tst_InputSession::selectedAsksAfterItsOption()
{
    QFETCH(QStringList, answers);
    QFETCH(QStringList, events);
    Probe probe(m_templates.get(QStringLiteral("layer")));
    probe.session.start(answers);
    QCOMPARE(probe.take(), events);
    QCOMPARE(probe.session.lastOption(), probe.session.text(1));
}

void tst_InputSession::optionAtValueParameterLeavesIt()
{
    Probe probe(m_templates.get(QStringLiteral("polyline")));
    probe.session.start({QStringLiteral("0,0"), QStringLiteral("10,0"), QStringLiteral("10,10")});
    probe.take();
    QVERIFY(probe.session.feed(QStringLiteral("cl")));
    QCOMPARE(probe.take(), (QStringList{QStringLiteral("echo Specify next point or [Close/Undo]: Close"),
                                        QStringLiteral("finished 1")}));
    QCOMPARE(probe.session.lastOption(), QStringLiteral("c"));
    QCOMPARE(probe.session.points().size(), 3);
    QCOMPARE(probe.session.answer(2).kind(), InputAnswer::Option);
}

void tst_InputSession::entityListCollectsUntilEnter()
{
    Probe probe(m_templates.get(QStringLiteral("erase")), &m_picker);
    probe.session.start();
    probe.take();
    QVERIFY(probe.session.pick(QPointF(10.2, 0)));
    QVERIFY(probe.session.feed(QStringLiteral("0,0")));
    QVERIFY(probe.session.pick(QPointF(10, 0)));
    QVERIFY(probe.session.feed(QStringLiteral("Last")));
    QCOMPARE(probe.take(), (QStringList{QStringLiteral("selection 2"),
                                        QStringLiteral("echo Select objects: 10.2,0 (#2), 1 selected"),
                                        QStringLiteral("selection 2,1"),
                                        QStringLiteral("echo Select objects: 0,0 (#1), 2 selected"),
                                        QStringLiteral("selection 2,1"),
                                        QStringLiteral("echo Select objects: 10,0 (#2), 2 selected"),
                                        QStringLiteral("selection 2,1,3"),
                                        QStringLiteral("echo Select objects: Last, 3 selected")}));
    QCOMPARE(probe.session.selection(), (QList<int>{2, 1, 3}));
    QVERIFY(probe.session.feed(QStringLiteral("  ")));
    QCOMPARE(probe.take(), (QStringList{QStringLiteral("echo Select objects: 3 selected"), QStringLiteral("finished 1")}));
    QCOMPARE(probe.session.entities(1), (QList<int>{2, 1, 3}));
}

void tst_InputSession::entityListEnterWithNothingCancels()
{
    Probe probe(m_templates.get(QStringLiteral("erase")), &m_picker);
    probe.session.start();
    QVERIFY(!probe.session.pick(QPointF(50, 50)));
    QVERIFY(probe.session.feed(QString()));
    QCOMPARE(probe.take().mid(1), (QStringList{QStringLiteral("reject Nothing found at 50,50. Expected an entity at "
                                                              "a point (x,y) or an option: All (a), Last (l)."),
                                               QStringLiteral("echo *Cancel*"), QStringLiteral("finished 0")}));

    Probe unchecked(m_templates.get(QStringLiteral("list")), &m_picker);
    unchecked.session.start({QString()});
    QVERIFY(unchecked.session.isCompleted());
    QVERIFY(unchecked.session.entities(1).isEmpty());
}

void tst_InputSession::entityWithoutListTakesFirstFound()
{
    Probe probe(m_templates.get(QStringLiteral("offset")), &m_picker);
    probe.session.start();
    QVERIFY(probe.session.pick(QPointF(10, 10)));
    QCOMPARE(probe.session.entities(1), QList<int>{3});
    QCOMPARE(probe.session.prompt(), QStringLiteral("Specify point on side to offset:"));
}

void tst_InputSession::windowTakesTwoCorners()
{
    Probe probe(m_templates.get(QStringLiteral("zoom")));
    probe.session.start({QStringLiteral("win")});
    probe.take();
    QVERIFY(probe.session.feed(QStringLiteral("10,8")));
    QCOMPARE(probe.session.firstCorner().value(), QPointF(10, 8));
    QCOMPARE(probe.session.prompt(), QStringLiteral("Specify opposite corner:"));
    QVERIFY(probe.session.defaultAnswer().isNull());
    QVERIFY(probe.session.pick(QPointF(2, 3)));
    QCOMPARE(probe.take(), (QStringList{QStringLiteral("echo Specify first corner: 10,8"),
                                        QStringLiteral("prompt Specify opposite corner:"),
                                        QStringLiteral("echo Specify opposite corner: 2,3"),
                                        QStringLiteral("finished 1")}));
    QCOMPARE(probe.session.window(2), QRectF(2, 3, 8, 5));
    QCOMPARE(probe.session.steps().size(), 2);
}

void tst_InputSession::windowWithoutAreaIsRefused()
{
    Probe probe(m_templates.get(QStringLiteral("zoom")));
    probe.session.start({QStringLiteral("w"), QStringLiteral("1,1")});
    QVERIFY(!probe.session.feed(QStringLiteral("1,5")));
    QVERIFY(probe.take().last().startsWith(QLatin1String("reject The window has no area")));
    QVERIFY(probe.session.feed(QStringLiteral("5,5")));
    QVERIFY(probe.session.isCompleted());
}

void tst_InputSession::nullAndContinue()
{
    Probe probe(m_templates.get(QStringLiteral("notice")));
    probe.session.start();
    QVERIFY(!probe.session.feed(QStringLiteral("yes")));
    QVERIFY(probe.session.feed(QString()));
    QCOMPARE(probe.take(), (QStringList{QStringLiteral("echo The drawing will be discarded."),
                                        QStringLiteral("prompt Press Enter to continue:"),
                                        QStringLiteral("reject \"yes\" is not an answer here. Expected Enter."),
                                        QStringLiteral("echo Press Enter to continue:"),
                                        QStringLiteral("finished 1")}));
    QVERIFY(probe.session.has(2));
    QVERIFY(!probe.session.has(1));
}

void tst_InputSession::pinCatchesAndCheckerRefusesSamePoint()
{
    Probe probe(m_templates.get(QStringLiteral("dimension")), &m_picker);
    probe.session.start();
    QVERIFY(probe.session.pick(QPointF(3.2, 3.9)));
    QCOMPARE(probe.session.point(1), QPointF(3, 4));
    QVERIFY(!probe.session.pick(QPointF(2.8, 4.1)));
    QVERIFY(probe.take().last().startsWith(QLatin1String("reject The point must differ from the previous one. Expected a point")));
    QVERIFY(probe.session.feed(QStringLiteral("3.4,4")));
    QCOMPARE(probe.session.point(2), QPointF(3.4, 4));
    QVERIFY(probe.session.isCompleted());
}

void tst_InputSession::pickMeasuresDistanceAndAngle_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QPointF>("pick");
    QTest::addColumn<double>("expected");
    QTest::newRow("distance") << "circle" << QPointF(4, 5) << 5.0;
    QTest::newRow("angle up") << "rotate" << QPointF(1, 11) << 90.0;
    QTest::newRow("angle down") << "rotate" << QPointF(1, -9) << 270.0;
    QTest::newRow("angle left") << "rotate" << QPointF(-9, 1) << 180.0;
}

void tst_InputSession::pickMeasuresDistanceAndAngle()
{
    QFETCH(QString, command);
    QFETCH(QPointF, pick);
    QFETCH(double, expected);
    Probe probe(m_templates.get(command));
    probe.session.start({QStringLiteral("1,1")});
    QVERIFY(probe.session.pick(pick));
    QVERIFY(probe.session.isCompleted());
    QCOMPARE(probe.session.number(2), expected);
}

void tst_InputSession::defaultTakenOnEnter()
{
    Probe circle(m_templates.get(QStringLiteral("circle")));
    circle.session.start({QStringLiteral("0,0")});
    QCOMPARE(circle.session.prompt(), QStringLiteral("Specify radius <10>:"));
    QCOMPARE(circle.session.defaultAnswer(), QStringLiteral("10"));
    QVERIFY(circle.session.feed(QString()));
    QCOMPARE(circle.session.number(2), 10.0);
    QCOMPARE(circle.session.steps().last(), InputAnswer::fromNumber(10, 2));
    QVERIFY(circle.take().contains(QStringLiteral("echo Specify radius <10>: 10")));

    Probe mirror(m_templates.get(QStringLiteral("mirror")));
    mirror.session.start({QString()});
    QCOMPARE(mirror.session.text(1), QStringLiteral("n"));
    QCOMPARE(mirror.take().mid(1), (QStringList{QStringLiteral("echo Erase source objects? [Yes/No] <No>: No"),
                                                QStringLiteral("trigger 1"), QStringLiteral("finished 1")}));
}

void tst_InputSession::rangeAndCheckerRefuse()
{
    Probe probe(m_templates.get(QStringLiteral("array")));
    probe.session.start({QStringLiteral("0"), QStringLiteral("1001"), QStringLiteral("many")});
    QCOMPARE(probe.take().mid(1), (QStringList{QStringLiteral("reject 0 is not positive. Expected a positive number from 1 to 1000."),
                                               QStringLiteral("reject 1001 is out of range. Expected a positive number from 1 to 1000."),
                                               QStringLiteral("reject \"many\" is not a number. Expected a positive number from 1 to 1000.")}));
    QVERIFY(!probe.session.isFinished());
    QVERIFY(probe.session.steps().isEmpty());
    QVERIFY(probe.session.feed(QStringLiteral("1000")));
    QCOMPARE(probe.session.number(1), 1000.0);
}

void tst_InputSession::enterWithoutRuleCancels()
{
    Probe probe(m_templates.get(QStringLiteral("help")));
    probe.session.start({QString()});
    QCOMPARE(probe.take().mid(1), (QStringList{QStringLiteral("echo *Cancel*"), QStringLiteral("finished 0")}));
    QVERIFY(probe.session.isFinished() && !probe.session.isCompleted());
}

void tst_InputSession::cancelEndsAndLaterInputIsIgnored()
{
    Probe probe(m_templates.get(QStringLiteral("line")));
    probe.session.start({QStringLiteral("0,0")});
    probe.take();
    probe.session.cancel();
    QCOMPARE(probe.take(), (QStringList{QStringLiteral("echo *Cancel*"), QStringLiteral("finished 0")}));
    QVERIFY(!probe.session.feed(QStringLiteral("1,1")));
    QVERIFY(!probe.session.pick(QPointF(1, 1)));
    QVERIFY(!probe.session.apply(InputAnswer::fromPoint(QPointF(1, 1), 2)));
    probe.session.cancel();
    QVERIFY(probe.take().isEmpty());
    QCOMPARE(probe.session.points().size(), 1);
}

void tst_InputSession::answersGivenWithTheCommand()
{
    Probe probe(m_templates.get(QStringLiteral("circle")));
    probe.session.start({QStringLiteral("80,50"), QStringLiteral("22"), QStringLiteral("left over")});
    QVERIFY(probe.session.isCompleted());
    QCOMPARE(probe.session.point(1), QPointF(80, 50));
    QCOMPARE(probe.session.number(2), 22.0);
    QCOMPARE(probe.session.answers().size(), 2);
}

void tst_InputSession::templateWithoutParametersCompletesAtStart()
{
    Probe probe(m_templates.get(QStringLiteral("about")));
    probe.session.start();
    QCOMPARE(probe.take(), QStringList{QStringLiteral("finished 1")});
    QVERIFY(probe.session.prompt().isEmpty());
    QVERIFY(probe.session.expected().isEmpty());
}

void tst_InputSession::pickWhereNoPickFits()
{
    Probe layer(m_templates.get(QStringLiteral("layer")));
    layer.session.start();
    QVERIFY(!layer.session.pick(QPointF(1, 1)));
    QCOMPARE(layer.take().last(), QStringLiteral("reject A pick is no answer here. Expected one of New (n), Set (s), List (l)."));
    Probe array(m_templates.get(QStringLiteral("array")));
    array.session.start();
    QVERIFY(!array.session.pick(QPointF(1, 1)));
    QCOMPARE(array.take().last(), QStringLiteral("reject A pick is no answer here. Expected a positive number from 1 to 1000."));
    Probe spacing(m_templates.get(QStringLiteral("spacing")));
    spacing.session.start();
    QVERIFY(!spacing.session.pick(QPointF(1, 1)));
    QCOMPARE(spacing.take().last(), QStringLiteral("reject A pick needs an earlier point to measure from. Expected a distance."));
    QVERIFY(!spacing.session.isFinished());
}

void tst_InputSession::noPickerFindsNothing()
{
    Probe probe(m_templates.get(QStringLiteral("erase")));
    probe.session.start({QStringLiteral("a"), QStringLiteral("0,0")});
    QCOMPARE(probe.take().mid(1), (QStringList{QStringLiteral("selection "),
                                               QStringLiteral("echo Select objects: All, 0 selected"),
                                               QStringLiteral("reject Nothing found at 0,0. Expected an entity at a point (x,y) "
                                                              "or an option: All (a), Last (l).")}));
}

void tst_InputSession::applyTakesStepsAgain()
{
    const QStringList commands{QStringLiteral("line"), QStringLiteral("erase"), QStringLiteral("zoom"),
                               QStringLiteral("layer"), QStringLiteral("polyline")};
    const QList<QStringList> inputs{{"0,0", "10,0", "u", "5,5", "@1,1", ""},
                                    {"a", "0,0", ""},
                                    {"w", "0,0", "4,3"},
                                    {"n", "Walls"},
                                    {"1,1", "2,1", "c"}};
    for (int i = 0; i < commands.size(); ++i) {
        Probe original(m_templates.get(commands[i]), &m_picker);
        original.session.start(inputs[i]);
        QVERIFY2(original.session.isCompleted(), qPrintable(commands[i]));
        Probe replay(m_templates.get(commands[i]));
        replay.session.start();
        for (const InputAnswer& step : original.session.steps())
            QVERIFY2(replay.session.apply(step), qPrintable(replay.events.join(QLatin1Char('\n'))));
        QVERIFY(replay.session.isCompleted());
        QCOMPARE(replay.session.answers(), original.session.answers());
        QCOMPARE(replay.session.steps(), original.session.steps());
        QCOMPARE(replay.session.lastOption(), original.session.lastOption());
    }
}

void tst_InputSession::applyRefusesOtherParameter()
{
    Probe probe(m_templates.get(QStringLiteral("circle")));
    probe.session.start();
    QVERIFY(!probe.session.apply(InputAnswer::fromNumber(5, 2)));
    QVERIFY(!probe.session.apply(InputAnswer::fromText(QStringLiteral("x"))));
    QVERIFY(!probe.session.apply(InputAnswer::fromOption(QStringLiteral("u"))));
    QCOMPARE(probe.take().mid(1), (QStringList{
        QStringLiteral("reject The answer is for parameter 2, but parameter 1 is asked. Expected a point (x,y, @dx,dy, dist<angle or @dist<angle)."),
        QStringLiteral("reject A text is no answer here. Expected a point (x,y, @dx,dy, dist<angle or @dist<angle)."),
        QStringLiteral("reject \"u\" is not an option. Expected a point (x,y, @dx,dy, dist<angle or @dist<angle).")}));
    QVERIFY(probe.session.apply(InputAnswer::fromPoint(QPointF(1, 2))));
    QVERIFY(!probe.session.apply(InputAnswer::fromNumber(-1, 2)));
    QVERIFY(probe.session.apply(InputAnswer::fromNumber(3, 2)));
    QVERIFY(probe.session.isCompleted());
}

// Random lines, picks and steps at every parameter of every command: each input is taken or
// refused with a reason that names what was expected, and nothing else happens.
void tst_InputSession::badInputNeverBreaksASession()
{
    QRandomGenerator random(20240611);
    const QString alphabet = QStringLiteral("0123456789.,-+@<>eE uUaAlLcCwWnNxX;:\t");
    for (const QString& name : m_templates.names()) {
        for (int round = 0; round < 40; ++round) {
            Probe probe(m_templates.get(name), &m_picker);
            probe.session.start();
            for (int input = 0; input < 30 && !probe.session.isFinished(); ++input) {
                QString text;
                const int length = 1 + random.bounded(8);
                for (int i = 0; i < length; ++i)
                    text.append(alphabet.at(random.bounded(alphabet.size())));
                switch (random.bounded(3)) {
                case 0: probe.session.feed(text); break;
                case 1: probe.session.pick(QPointF(random.bounded(20) - 5, random.bounded(20) - 5)); break;
                default: probe.session.apply(InputAnswer::fromText(text)); break;
                }
            }
            for (const QString& event : probe.events) {
                if (event.startsWith(QLatin1String("reject ")))
                    QVERIFY2(event.contains(QLatin1String(". Expected ")), qPrintable(event));
            }
        }
    }
}

QTEST_APPLESS_MAIN(tst_InputSession)
#include "tst_inputsession.moc"
