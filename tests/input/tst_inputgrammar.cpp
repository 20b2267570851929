#include <CommandSystem/InputGrammar.h>
#include <CommandSystem/Parameter.h>
#include <CommandSystem/Template.h>
#include <CommandSystem/TemplateTools.h>

#include <QtTest>

#include <memory>

using namespace Talvir::Vexa::Cs;

namespace {

// What a reading came to, in one comparable line: "point 1,2", "number 5", "text abc",
// "option e", or the refusal itself.
QString outcome(const InputGrammar::Reading& reading)
{
    if (!reading.isValid())
        return reading.error;
    const InputAnswer& answer = reading.answer;
    switch (answer.kind()) {
    case InputAnswer::Point: return QStringLiteral("point ") + InputGrammar::formatPoint(answer.point());
    case InputAnswer::Number: return QStringLiteral("number ") + InputGrammar::formatNumber(answer.number());
    case InputAnswer::Text: return QStringLiteral("text ") + answer.text();
    case InputAnswer::Option: return QStringLiteral("option ") + answer.text();
    default: return QStringLiteral("unexpected kind %1").arg(answer.kind());
    }
}

QString pointExpected()
{
    return QStringLiteral("Expected a point (x,y, @dx,dy, dist<angle or @dist<angle) or an option: Undo (u).");
}

QString zoomExpected()
{
    return QStringLiteral("Expected one of In (i), Out (o), Extents (e), Window (w), Previous (p).");
}

} // namespace

class tst_InputGrammar : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void read_data();
    void read();
    void refusalsSayWhatWasExpected();
    void luidIsTheParameters();
    void options_data();
    void options();
    void defaultOf_data();
    void defaultOf();
    void withDefault_data();
    void withDefault();
    void expected_data();
    void expected();
    void formatNumber_data();
    void formatNumber();

private:
    const Parameter& parameter(const QString& description) const;

    QList<Template*> m_templates;
};

void tst_InputGrammar::initTestCase()
{
    TemplateTools tools;
    QVERIFY(tools.loadTemplate(QStringLiteral(CS_TEST_DATA_DIR "/grammar.tcmd"), m_templates));
    QCOMPARE(m_templates.size(), 1);
}

void tst_InputGrammar::cleanupTestCase()
{
    qDeleteAll(m_templates);
}

const Parameter& tst_InputGrammar::parameter(const QString& description) const
{
    for (const Parameter* candidate : m_templates.first()->parameters()) {
        if (QString::fromLocal8Bit(candidate->description()) == description)
            return *candidate;
    }
    qFatal("no parameter described as %s", qPrintable(description));
    return *m_templates.first()->parameters().front();
}

void tst_InputGrammar::read_data()
{
    QTest::addColumn<QString>("parameter");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QVariant>("lastPoint");
    QTest::addColumn<QString>("expected");

    const QVariant none;
    const QVariant at23 = QPointF(2, 3);
    const QVariant at11 = QPointF(1, 1);
    const QVariant origin = QPointF(0, 0);

    // Absolute points.
    QTest::newRow("x,y") << "point" << "10,20" << none << "point 10,20";
    QTest::newRow("blanks around") << "point" << " 10 , 20 " << none << "point 10,20";
    QTest::newRow("signs and decimals") << "point" << "-5.5,+3" << none << "point -5.5,3";
    QTest::newRow("leading point, exponent") << "point" << ".5,1e2" << none << "point 0.5,100";
    QTest::newRow("absolute ignores last point") << "point" << "1,1" << at23 << "point 1,1";
    // Relative points.
    QTest::newRow("@dx,dy") << "point" << "@10,5" << at23 << "point 12,8";
    QTest::newRow("@dx,dy without last point") << "point" << "@10,5" << none << "point 10,5";
    QTest::newRow("@ alone is the last point") << "point" << "@" << at23 << "point 2,3";
    QTest::newRow("@ and a blank") << "point" << "@ -1,-1" << at23 << "point 1,2";
    QTest::newRow("@0,0") << "point" << "@0,0" << at23 << "point 2,3";
    // Polar points.
    QTest::newRow("@dist<0") << "point" << "@10<0" << at11 << "point 11,1";
    QTest::newRow("@dist<90 exactly") << "point" << "@10<90" << at11 << "point 1,11";
    QTest::newRow("@dist<180") << "point" << "@10<180" << origin << "point -10,0";
    QTest::newRow("@dist<270") << "point" << "@10<270" << origin << "point 0,-10";
    QTest::newRow("negative angle") << "point" << "@10<-90" << origin << "point 0,-10";
    QTest::newRow("angle past a turn") << "point" << "@10<450" << origin << "point 0,10";
    QTest::newRow("@dist<30") << "point" << "@2<30" << origin << "point 1.7321,1";
    QTest::newRow("dist<angle from origin") << "point" << "10<45" << none << "point 7.0711,7.0711";
    QTest::newRow("dist<angle ignores last point") << "point" << "5<0" << at23 << "point 5,0";
    QTest::newRow("negative distance") << "point" << "@-3<0" << origin << "point -3,0";
    QTest::newRow("polar with blanks") << "point" << "@ 10 < 90" << origin << "point 0,10";
    // Options of a point parameter.
    QTest::newRow("option key") << "point" << "u" << none << "option u";
    QTest::newRow("option label in capitals") << "point" << "UNDO" << none << "option u";
    QTest::newRow("option label prefix") << "point" << "Un" << none << "option u";
    // Points refused.
    QTest::newRow("word") << "point" << "abc" << none << QStringLiteral("\"abc\" is not a point. ") + pointExpected();
    QTest::newRow("one number") << "point" << "10" << none << QStringLiteral("\"10\" is not a point. ") + pointExpected();
    QTest::newRow("three coordinates") << "point" << "10,20,30" << none
                                       << QStringLiteral("\"10,20,30\" has more than two coordinates. ") + pointExpected();
    QTest::newRow("semicolon") << "point" << "10;20" << none << QStringLiteral("\"10;20\" is not a point. ") + pointExpected();
    QTest::newRow("blank separator") << "point" << "10 20" << none << QStringLiteral("\"10 20\" is not a point. ") + pointExpected();
    QTest::newRow("letter in y") << "point" << "10,abc" << none << QStringLiteral("\"10,abc\" is not a point. ") + pointExpected();
    QTest::newRow("trailing letter") << "point" << "10,20x" << none << QStringLiteral("\"10,20x\" is not a point. ") + pointExpected();
    QTest::newRow("inf") << "point" << "inf,0" << none << QStringLiteral("\"inf,0\" is not a point. ") + pointExpected();
    QTest::newRow("nan") << "point" << "nan,1" << none << QStringLiteral("\"nan,1\" is not a point. ") + pointExpected();
    QTest::newRow("hexadecimal") << "point" << "0x10,1" << none << QStringLiteral("\"0x10,1\" is not a point. ") + pointExpected();
    QTest::newRow("half exponent") << "point" << "1,2e" << none << QStringLiteral("\"1,2e\" is not a point. ") + pointExpected();
    QTest::newRow("overflow") << "point" << "1e999,0" << none << QStringLiteral("\"1e999,0\" is not a point. ") + pointExpected();
    QTest::newRow("polar without angle") << "point" << "@10<" << none
                                         << QStringLiteral("\"@10<\" is not a polar point: dist<angle needs two numbers. ") + pointExpected();
    QTest::newRow("polar without distance") << "point" << "<45" << none
                                            << QStringLiteral("\"<45\" is not a polar point: dist<angle needs two numbers. ") + pointExpected();
    QTest::newRow("polar with a pair") << "point" << "1,2<3" << none
                                       << QStringLiteral("\"1,2<3\" is not a polar point: dist<angle needs two numbers. ") + pointExpected();
    QTest::newRow("double @") << "point" << "@@1,1" << none << QStringLiteral("\"@@1,1\" is not a point. ") + pointExpected();
    // Pin and window parameters read points too.
    QTest::newRow("pin") << "pin" << "3,4" << none << "point 3,4";
    QTest::newRow("window corner") << "window" << "0,0" << none << "point 0,0";
    QTest::newRow("window relative corner") << "window" << "@5,5" << at11 << "point 6,6";
    // Numbers.
    QTest::newRow("count") << "count" << "6" << none << "number 6";
    QTest::newRow("count with sign") << "count" << "+6" << none << "number 6";
    QTest::newRow("count zero") << "count" << "0" << none << "0 is not positive. Expected a positive number.";
    QTest::newRow("count negative") << "count" << "-2" << none << "-2 is not positive. Expected a positive number.";
    QTest::newRow("count word") << "count" << "six" << none << "\"six\" is not a number. Expected a positive number.";
    QTest::newRow("decimal comma") << "count" << "1,5" << none << "\"1,5\" is not a number. Expected a positive number.";
    QTest::newRow("width low end") << "width" << "0" << none << "number 0";
    QTest::newRow("width high end") << "width" << "5" << none << "number 5";
    QTest::newRow("width inside") << "width" << "2.5" << none << "number 2.5";
    QTest::newRow("width above") << "width" << "5.01" << none << "5.01 is out of range. Expected a distance from 0 to 5.";
    QTest::newRow("width below") << "width" << "-0.1" << none << "-0.1 is out of range. Expected a distance from 0 to 5.";
    QTest::newRow("angle") << "angle" << "45" << none << "number 45";
    QTest::newRow("negative angle value") << "angle" << "-90" << none << "number -90";
    QTest::newRow("angle exponent") << "angle" << "1e1" << none << "number 10";
    QTest::newRow("angle with unit") << "angle" << "45deg" << none << "\"45deg\" is not a number. Expected an angle in degrees.";
    QTest::newRow("angle range written high first") << "tilt" << "-45" << none << "number -45";
    QTest::newRow("angle out of range") << "tilt" << "91" << none << "91 is out of range. Expected an angle in degrees from -90 to 90.";
    QTest::newRow("radius leading point") << "radius" << ".5" << none << "number 0.5";
    QTest::newRow("radius overflow") << "radius" << "1e999" << none << "\"1e999\" is not a number. Expected a positive distance.";
    QTest::newRow("radius point") << "radius" << "3,4" << none << "\"3,4\" is not a number. Expected a positive distance.";
    // Texts.
    QTest::newRow("string") << "string" << "Walls" << none << "text Walls";
    QTest::newRow("string trimmed") << "string" << "  Mounting plate  " << none << "text Mounting plate";
    QTest::newRow("command") << "command" << "circle" << none << "text circle";
    // Option parameters.
    QTest::newRow("zoom key") << "zoom" << "e" << none << "option e";
    QTest::newRow("zoom key in capitals") << "zoom" << "E" << none << "option e";
    QTest::newRow("zoom label prefix") << "zoom" << "ext" << none << "option e";
    QTest::newRow("zoom label") << "zoom" << "Extents" << none << "option e";
    QTest::newRow("zoom other key") << "zoom" << "P" << none << "option p";
    QTest::newRow("zoom prefix of Window") << "zoom" << "win" << none << "option w";
    QTest::newRow("zoom unknown") << "zoom" << "x" << none << QStringLiteral("\"x\" is not an option. ") + zoomExpected();
    QTest::newRow("zoom number") << "zoom" << "10" << none << QStringLiteral("\"10\" is not an option. ") + zoomExpected();
    QTest::newRow("zoom longer than label") << "zoom" << "Extentss" << none << QStringLiteral("\"Extentss\" is not an option. ") + zoomExpected();
    QTest::newRow("on") << "onoff" << "on" << none << "option on";
    QTest::newRow("OFF") << "onoff" << "OFF" << none << "option off";
    QTest::newRow("ambiguous prefix") << "onoff" << "o" << none
                                      << "\"o\" could be On or Off. Expected one of On (on), Off (off).";
    QTest::newRow("key before label prefix") << "closecopy" << "c" << none << "option c";
    QTest::newRow("prefix of two labels") << "closecopy" << "co" << none
                                          << "\"co\" could be Copy or Corner. Expected a point (x,y, @dx,dy, dist<angle or @dist<angle) or an option: Close (c), Copy (cp), Corner (cr).";
    QTest::newRow("unique prefix") << "closecopy" << "cop" << none << "option cp";
    QTest::newRow("other unique prefix") << "closecopy" << "cor" << none << "option cr";
    QTest::newRow("prefix of one label") << "closecopy" << "cl" << none << "option c";
    QTest::newRow("point beside options") << "closecopy" << "1,1" << none << "point 1,1";
    // Entities and continue.
    QTest::newRow("entity option") << "entity" << "a" << none << "option a";
    QTest::newRow("entity option label") << "entity" << "last" << none << "option l";
    QTest::newRow("entity position") << "entity" << "5,5" << none << "point 5,5";
    QTest::newRow("entity refused") << "entity" << "x" << none
                                    << "\"x\" is not a point. Expected an entity at a point (x,y) or an option: All (a), Last (l).";
    QTest::newRow("continue refuses text") << "continue" << "yes" << none << "\"yes\" is not an answer here. Expected Enter.";
}

void tst_InputGrammar::read()
{
    QFETCH(QString, parameter);
    QFETCH(QString, text);
    QFETCH(QVariant, lastPoint);
    QFETCH(QString, expected);
    const std::optional<QPointF> last = lastPoint.isValid() ? std::optional<QPointF>(lastPoint.toPointF()) : std::nullopt;
    QCOMPARE(outcome(InputGrammar::read(text, this->parameter(parameter), last)), expected);
}

void tst_InputGrammar::refusalsSayWhatWasExpected()
{
    const QStringList wrong{QStringLiteral("?"), QStringLiteral("1,2,3"), QStringLiteral("-1"), QStringLiteral("@<"),
                            QStringLiteral("1e999"), QStringLiteral("zz"), QStringLiteral("o")};
    int refusals = 0;
    for (const Parameter* candidate : m_templates.first()->parameters()) {
        for (const QString& text : wrong) {
            const InputGrammar::Reading reading = InputGrammar::read(text, *candidate, std::nullopt);
            if (reading.isValid())
                continue;
            ++refusals;
            QVERIFY2(reading.error.contains(QLatin1String(" Expected ")) && reading.error.endsWith(QLatin1Char('.')),
                     qPrintable(reading.error));
        }
    }
    QVERIFY(refusals > 50);
}

void tst_InputGrammar::luidIsTheParameters()
{
    QCOMPARE(InputGrammar::read(QStringLiteral("e"), parameter(QStringLiteral("zoom")), std::nullopt).answer.luid(), 11);
    QCOMPARE(InputGrammar::read(QStringLiteral("3"), parameter(QStringLiteral("count")), std::nullopt).answer.luid(), 5);
    QCOMPARE(InputGrammar::readPoint(QStringLiteral("1,2"), std::nullopt).answer.luid(), 0);
}

void tst_InputGrammar::options_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    QTest::newRow("two") << "a:All;l:Last" << "a=All|l=Last";
    QTest::newRow("blanks") << " a : All ; l:Last " << "a=All|l=Last";
    QTest::newRow("empty entries") << ";;a:All;" << "a=All";
    QTest::newRow("no key") << ":All;l:Last" << "l=Last";
    QTest::newRow("no colon") << "All;l:Last" << "l=Last";
    QTest::newRow("empty label") << "x:" << "x=";
    QTest::newRow("colon in label") << "t:Time: now" << "t=Time: now";
    QTest::newRow("nothing") << "" << "";
}

void tst_InputGrammar::options()
{
    QFETCH(QString, text);
    QFETCH(QString, expected);
    QStringList pairs;
    for (const InputGrammar::Option& option : InputGrammar::options(text))
        pairs.append(option.key + QLatin1Char('=') + option.label);
    QCOMPARE(pairs.join(QLatin1Char('|')), expected);
}

void tst_InputGrammar::defaultOf_data()
{
    QTest::addColumn<QString>("prompt");
    QTest::addColumn<QString>("expected");
    QTest::newRow("number") << "Enter number of sides <4>:" << "4";
    QTest::newRow("option label") << "Erase source objects? [Yes/No] <No>:" << "No";
    QTest::newRow("blanks") << "Specify radius < 2.5 > : " << "2.5";
    QTest::newRow("no colon") << "Specify radius <10>" << "10";
    QTest::newRow("point") << "Specify base point <0,0>:" << "0,0";
    QTest::newRow("none") << "Specify radius:" << QString();
    QTest::newRow("not at the end") << "Use <Enter> to finish:" << QString();
    QTest::newRow("polar text") << "Type dist<angle:" << QString();
}

void tst_InputGrammar::defaultOf()
{
    QFETCH(QString, prompt);
    QFETCH(QString, expected);
    QCOMPARE(InputGrammar::defaultOf(prompt), expected);
    QCOMPARE(InputGrammar::defaultOf(prompt).isNull(), expected.isNull());
}

void tst_InputGrammar::withDefault_data()
{
    QTest::addColumn<QString>("prompt");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("expected");
    QTest::newRow("before colon") << "Specify radius:" << "10" << "Specify radius <10>:";
    QTest::newRow("replaces") << "Specify radius <10>:" << "2.5" << "Specify radius <2.5>:";
    QTest::newRow("no colon") << "Specify radius" << "10" << "Specify radius <10>";
    QTest::newRow("colon and blank") << "Specify radius: " << "10" << "Specify radius <10>: ";
}

void tst_InputGrammar::withDefault()
{
    QFETCH(QString, prompt);
    QFETCH(QString, value);
    QFETCH(QString, expected);
    QCOMPARE(InputGrammar::withDefault(prompt, value), expected);
}

void tst_InputGrammar::expected_data()
{
    QTest::addColumn<QString>("parameter");
    QTest::addColumn<QString>("expected");
    QTest::newRow("point with option") << "point" << "a point (x,y, @dx,dy, dist<angle or @dist<angle) or an option: Undo (u)";
    QTest::newRow("window") << "window" << "a corner (x,y, @dx,dy, dist<angle or @dist<angle)";
    QTest::newRow("count") << "count" << "a positive number";
    QTest::newRow("range") << "width" << "a distance from 0 to 5";
    QTest::newRow("text") << "string" << "a text";
    QTest::newRow("command") << "command" << "a command name";
    QTest::newRow("option") << "onoff" << "one of On (on), Off (off)";
    QTest::newRow("continue") << "continue" << "Enter";
}

void tst_InputGrammar::expected()
{
    QFETCH(QString, parameter);
    QFETCH(QString, expected);
    QCOMPARE(InputGrammar::expected(this->parameter(parameter)), expected);
}

void tst_InputGrammar::formatNumber_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("expected");
    QTest::newRow("integer") << 10.0 << "10";
    QTest::newRow("hundred") << 100.0 << "100";
    QTest::newRow("decimals") << 2.5 << "2.5";
    QTest::newRow("rounded") << 1.23456 << "1.2346";
    QTest::newRow("tiny negative") << -0.00001 << "0";
    QTest::newRow("negative") << -3.25 << "-3.25";
}

void tst_InputGrammar::formatNumber()
{
    QFETCH(double, value);
    QFETCH(QString, expected);
    QCOMPARE(InputGrammar::formatNumber(value), expected);
}

QTEST_APPLESS_MAIN(tst_InputGrammar)
#include "tst_inputgrammar.moc"
