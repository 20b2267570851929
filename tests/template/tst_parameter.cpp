#include <CommandSystem/Parameter.h>
#include <CommandSystem/Template.h>

#include "RecordingTranslator.h"

#include <QCoreApplication>
#include <QPointer>
#include <QtTest>
#include <QXmlStreamReader>

#include <memory>

using namespace Talvir::Vexa::Cs;

namespace {

// A reader standing on the first start element of xml, as Template::load leaves it.
struct ReaderAt {
    explicit ReaderAt(const QString& xml) : reader(xml) { reader.readNextStartElement(); }
    QXmlStreamReader reader;
};

// Loads one parameter element into a parameter that belongs to a template named context.
struct LoadedParameter {
    explicit LoadedParameter(const QString& xml, const char* templateName = "circle")
        : temp(templateName), at(xml)
    {
        parameter->setParent(&temp);
        parameter->load(at.reader);
    }
    Template temp;
    ReaderAt at;
    Parameter* parameter = new Parameter;
};

QString parameterWithProperty(const QString& property)
{
    return QStringLiteral("<parameter>") + property + QStringLiteral("</parameter>");
}

} // namespace

class tst_Parameter : public QObject
{
    Q_OBJECT

private slots:
    void metaObjectName();
    void defaultConstructed();
    void fourTextConstructor_data();
    void fourTextConstructor();
    void typeWords_data();
    void typeWords();
    void nullTextsReadAsEmpty();
    void loadAttributes();
    void loadAttributeConversions_data();
    void loadAttributeConversions();
    void unexpectedAttribute();
    void lastUnexpectedAttributeWins();
    void unexpectedElement();
    void loadStopsAtOwnEndElement();
    void storeProperty_data();
    void storeProperty();
    void propertyErrors_data();
    void propertyErrors();
    void propertyIgnored_data();
    void propertyIgnored();
    void propertySetTwiceKeepsLater();
    void propertiesBeforeErrorStay();
    void textPropertyOfByteStringIsStoredBytes();
    void textPropertyOfIntAndBoolOutlivesCall();
    void absentProperties();
    void translatedTexts();
    void translationContextIsUtf8TemplateName();
    void translationWithoutParentUsesEmptyContext();
    void constructorDescriptionIsNotTranslated();
};

void tst_Parameter::metaObjectName()
{
    Parameter parameter;
    QCOMPARE(parameter.metaObject()->className(), "Parameter");
}

void tst_Parameter::defaultConstructed()
{
    Parameter parameter;
    QCOMPARE(parameter.luid(), 1);
    QCOMPARE(parameter.type(), Parameter::TypeNull);
    QVERIFY(!parameter.isTrigger());
    QVERIFY(!parameter.isChecker());
    QCOMPARE(parameter.description(), "");
    QVERIFY(parameter.textProperty("prompt") != nullptr);
    QCOMPARE(parameter.textProperty("prompt"), "");
    QCOMPARE(parameter.inteProperty("list"), 0);
    QVERIFY(!parameter.parent());
}

void tst_Parameter::fourTextConstructor_data()
{
    QTest::addColumn<QByteArray>("luid");
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<QByteArray>("description");
    QTest::addColumn<QByteArray>("trigger");
    QTest::addColumn<int>("expectedLuid");
    QTest::addColumn<int>("expectedType");
    QTest::addColumn<bool>("expectedTrigger");

    QTest::newRow("angle trigger") << QByteArray("7") << QByteArray("angle")
                                   << QByteArray("any") << QByteArray("true") << 7 << 4 << true;
    QTest::newRow("capitalised type, non-number") << QByteArray("x") << QByteArray("Angle")
                                                  << QByteArray("") << QByteArray("yes")
                                                  << 0 << 0 << false;
    QTest::newRow("atoi stops at letters") << QByteArray("12abc") << QByteArray("pin")
                                           << QByteArray("d") << QByteArray("false")
                                           << 12 << 12 << false;
    QTest::newRow("atoi takes blanks and sign") << QByteArray("  -3") << QByteArray("point")
                                                << QByteArray("d") << QByteArray("true")
                                                << -3 << 5 << true;
    QTest::newRow("trigger with trailing blank") << QByteArray("1") << QByteArray("null")
                                                 << QByteArray("d") << QByteArray("true ")
                                                 << 1 << 0 << false;
    QTest::newRow("capital TRUE") << QByteArray("1") << QByteArray("") << QByteArray("d")
                                  << QByteArray("TRUE") << 1 << 0 << false;
}

void tst_Parameter::fourTextConstructor()
{
    QFETCH(QByteArray, luid);
    QFETCH(QByteArray, type);
    QFETCH(QByteArray, description);
    QFETCH(QByteArray, trigger);
    QFETCH(int, expectedLuid);
    QFETCH(int, expectedType);
    QFETCH(bool, expectedTrigger);

    Parameter parameter(luid.constData(), type.constData(), description.constData(),
                        trigger.constData());
    QCOMPARE(parameter.luid(), expectedLuid);
    QCOMPARE(int(parameter.type()), expectedType);
    QCOMPARE(parameter.isTrigger(), expectedTrigger);
    QVERIFY(!parameter.isChecker());
    QCOMPARE(parameter.description(), description.constData());
    QVERIFY(!parameter.parent());
}

void tst_Parameter::typeWords_data()
{
    QTest::addColumn<QByteArray>("word");
    QTest::addColumn<int>("type");
    const char* const words[] = {"null", "string", "number", "distance", "angle", "point",
                                 "entity", "option", "continue", "form", "window", "command",
                                 "pin"};
    for (int index = 0; index < 13; ++index)
        QTest::newRow(words[index]) << QByteArray(words[index]) << index;
    QTest::newRow("Point") << QByteArray("Point") << 0;
    QTest::newRow("empty") << QByteArray("") << 0;
    QTest::newRow("pins") << QByteArray("pins") << 0;
}

void tst_Parameter::typeWords()
{
    QFETCH(QByteArray, word);
    QFETCH(int, type);
    QCOMPARE(int(Parameter("1", word.constData(), "", "").type()), type);
    LoadedParameter loaded(QStringLiteral("<parameter type=\"%1\"/>")
                               .arg(QString::fromUtf8(word)));
    QVERIFY(!loaded.at.reader.hasError());
    QCOMPARE(int(loaded.parameter->type()), type);
}

void tst_Parameter::nullTextsReadAsEmpty()
{
    Parameter parameter(nullptr, nullptr, nullptr, nullptr);
    QCOMPARE(parameter.luid(), 0);
    QCOMPARE(parameter.type(), Parameter::TypeNull);
    QCOMPARE(parameter.description(), "");
    QVERIFY(!parameter.isTrigger());
}

void tst_Parameter::loadAttributes()
{
    LoadedParameter loaded(QStringLiteral(
        "<parameter luid=\"3\" type=\"pin\" trigger=\"true\" checker=\"false\""
        " description=\"Pick a point\"/>"));
    QVERIFY(!loaded.at.reader.hasError());
    QCOMPARE(loaded.parameter->luid(), 3);
    QCOMPARE(loaded.parameter->type(), Parameter::TypePin);
    QVERIFY(loaded.parameter->isTrigger());
    QVERIFY(!loaded.parameter->isChecker());
    QCOMPARE(loaded.parameter->description(), "Pick a point");
}

void tst_Parameter::loadAttributeConversions_data()
{
    QTest::addColumn<QString>("attributes");
    QTest::addColumn<int>("luid");
    QTest::addColumn<bool>("trigger");
    QTest::addColumn<bool>("checker");

    QTest::newRow("luid 12abc is not a number") << "luid=\"12abc\"" << 0 << false << false;
    QTest::newRow("luid negative") << "luid=\"-4\"" << -4 << false << false;
    QTest::newRow("luid empty") << "luid=\"\"" << 0 << false << false;
    QTest::newRow("checker true") << "checker=\"true\"" << 1 << false << true;
    QTest::newRow("capital True") << "trigger=\"True\" checker=\"True\"" << 1 << false << false;
    QTest::newRow("digit 1") << "trigger=\"1\" checker=\"1\"" << 1 << false << false;
}

void tst_Parameter::loadAttributeConversions()
{
    QFETCH(QString, attributes);
    QFETCH(int, luid);
    QFETCH(bool, trigger);
    QFETCH(bool, checker);
    LoadedParameter loaded(QStringLiteral("<parameter %1/>").arg(attributes));
    QVERIFY(!loaded.at.reader.hasError());
    QCOMPARE(loaded.parameter->luid(), luid);
    QCOMPARE(loaded.parameter->isTrigger(), trigger);
    QCOMPARE(loaded.parameter->isChecker(), checker);
}

void tst_Parameter::unexpectedAttribute()
{
    LoadedParameter loaded(QStringLiteral("<parameter luid=\"5\" kind=\"a\" type=\"angle\"/>"));
    QVERIFY(loaded.at.reader.hasError());
    QCOMPARE(loaded.at.reader.errorString(), QStringLiteral("Unexpected attribute: kind"));
    // The other attributes are still read.
    QCOMPARE(loaded.parameter->luid(), 5);
    QCOMPARE(loaded.parameter->type(), Parameter::TypeAngle);
}

void tst_Parameter::lastUnexpectedAttributeWins()
{
    LoadedParameter loaded(QStringLiteral("<parameter kind=\"a\" size=\"2\"/>"));
    QCOMPARE(loaded.at.reader.errorString(), QStringLiteral("Unexpected attribute: size"));
}

void tst_Parameter::unexpectedElement()
{
    LoadedParameter loaded(QStringLiteral("<parameter><prop/></parameter>"));
    QVERIFY(loaded.at.reader.hasError());
    QCOMPARE(loaded.at.reader.errorString(), QStringLiteral("Unexpected element: prop"));
}

void tst_Parameter::loadStopsAtOwnEndElement()
{
    ReaderAt at(QStringLiteral("<parameters><parameter luid=\"2\"><!-- c -->text"
                               "<property name=\"list\">1</property></parameter>"
                               "<next/></parameters>"));
    at.reader.readNextStartElement();
    Parameter parameter;
    parameter.load(at.reader);
    QVERIFY(!at.reader.hasError());
    QVERIFY(at.reader.isEndElement());
    QCOMPARE(at.reader.name().toString(), QStringLiteral("parameter"));
    QVERIFY(at.reader.readNextStartElement());
    QCOMPARE(at.reader.name().toString(), QStringLiteral("next"));
}

void tst_Parameter::storeProperty_data()
{
    QTest::addColumn<QString>("property");
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<int>("integer");

    QTest::newRow("list int") << "<property name=\"list\">4</property>" << QByteArray("list")
                              << QVariant(4) << 4;
    QTest::newRow("next int") << "<property name=\"next\">-2</property>" << QByteArray("next")
                              << QVariant(-2) << -2;
    QTest::newRow("next not a number") << "<property name=\"next\">x</property>"
                                       << QByteArray("next") << QVariant(0) << 0;
    QTest::newRow("disable_hi true stores 0")
        << "<property name=\"disable_hi\">true</property>" << QByteArray("disable_hi")
        << QVariant(0) << 0;
    QTest::newRow("disable_hi false stores 0")
        << "<property name=\"disable_hi\">false</property>" << QByteArray("disable_hi")
        << QVariant(0) << 0;
    QTest::newRow("disable_hi digit") << "<property name=\"disable_hi\">1</property>"
                                      << QByteArray("disable_hi") << QVariant(1) << 1;
    QTest::newRow("cif digits as text") << "<property name=\"cif\">12</property>"
                                        << QByteArray("cif") << QVariant(QByteArray("12"))
                                        << 12;
    QTest::newRow("comp digits as text") << "<property name=\"comp\">3</property>"
                                         << QByteArray("comp") << QVariant(QByteArray("3"))
                                         << 3;
    QTest::newRow("mod_entity false") << "<property name=\"mod_entity\">false</property>"
                                      << QByteArray("mod_entity") << QVariant(false) << 0;
    QTest::newRow("mod_entity true") << "<property name=\"mod_entity\">true</property>"
                                     << QByteArray("mod_entity") << QVariant(true) << 1;
    QTest::newRow("prompt text") << "<property name=\"prompt\">Pick a point</property>"
                                 << QByteArray("prompt") << QVariant(QByteArray("Pick a point"))
                                 << 0;
    QTest::newRow("prompt true is a bool") << "<property name=\"prompt\">true</property>"
                                           << QByteArray("prompt") << QVariant(true) << 1;
    QTest::newRow("format text") << "<property name=\"format\">%1 mm</property>"
                                 << QByteArray("format") << QVariant(QByteArray("%1 mm")) << 0;
    QTest::newRow("dim joins strings")
        << "<property name=\"dim\"><string>10</string><string>20</string></property>"
        << QByteArray("dim") << QVariant(QByteArray("10@20")) << 0;
    QTest::newRow("dim keeps empty middle item")
        << "<property name=\"dim\"><string>a</string><string/><string>b</string></property>"
        << QByteArray("dim") << QVariant(QByteArray("a@@b")) << 0;
    QTest::newRow("dim empty first item")
        << "<property name=\"dim\"><string></string><string>b</string></property>"
        << QByteArray("dim") << QVariant(QByteArray("b")) << 0;
    QTest::newRow("dim plain text") << "<property name=\"dim\">5</property>"
                                    << QByteArray("dim") << QVariant(QByteArray("5")) << 5;
    QTest::newRow("options uninterpreted") << "<property name=\"options\">a|b c</property>"
                                           << QByteArray("options")
                                           << QVariant(QByteArray("a|b c")) << 0;
    QTest::newRow("callback") << "<property name=\"callback\">onPick</property>"
                              << QByteArray("callback") << QVariant(QByteArray("onPick")) << 0;
    QTest::newRow("selected false is a bool") << "<property name=\"selected\">false</property>"
                                              << QByteArray("selected") << QVariant(false) << 0;
    QTest::newRow("unknown name") << "<property name=\"colour\">red</property>"
                                  << QByteArray("colour") << QVariant(QByteArray("red")) << 0;
    QTest::newRow("unknown name flag") << "<property name=\"colour\">true</property>"
                                       << QByteArray("colour") << QVariant(true) << 1;
    QTest::newRow("on is text for parameters") << "<property name=\"colour\">on</property>"
                                               << QByteArray("colour")
                                               << QVariant(QByteArray("on")) << 0;
    QTest::newRow("text not trimmed") << "<property name=\"options\"> a </property>"
                                      << QByteArray("options") << QVariant(QByteArray(" a "))
                                      << 0;
    QTest::newRow("last text piece wins")
        << "<property name=\"options\">first<!-- c -->second</property>"
        << QByteArray("options") << QVariant(QByteArray("second")) << 0;
    QTest::newRow("non-ASCII stored as UTF-8")
        << QString::fromUtf8("<property name=\"größe\">Maß</property>")
        << QByteArray("größe") << QVariant(QByteArray("Maß")) << 0;
}

void tst_Parameter::storeProperty()
{
    QFETCH(QString, property);
    QFETCH(QByteArray, name);
    QFETCH(QVariant, stored);
    QFETCH(int, integer);

    LoadedParameter loaded(parameterWithProperty(property));
    QVERIFY2(!loaded.at.reader.hasError(), qPrintable(loaded.at.reader.errorString()));
    const QVariant value = loaded.parameter->property(name.constData());
    QCOMPARE(value.userType(), stored.userType());
    QCOMPARE(value, stored);
    QCOMPARE(loaded.parameter->inteProperty(name.constData()), integer);
    QCOMPARE(QByteArray(loaded.parameter->textProperty(name.constData())),
             stored.toByteArray());
}

void tst_Parameter::propertyErrors_data()
{
    QTest::addColumn<QString>("property");
    QTest::addColumn<QString>("error");

    QTest::newRow("string under prompt")
        << "<property name=\"prompt\"><string>x</string></property>"
        << "Unexpected element: string";
    QTest::newRow("element under options") << "<property name=\"options\"><b/></property>"
                                           << "Unexpected element: b";
    QTest::newRow("element inside string")
        << "<property name=\"dim\"><string><i/></string></property>" << "Unexpected element: i";
    QTest::newRow("unknown property attribute")
        << "<property name=\"list\" id=\"1\">4</property>" << "Unexpected attribute: id";
}

void tst_Parameter::propertyErrors()
{
    QFETCH(QString, property);
    QFETCH(QString, error);
    LoadedParameter loaded(parameterWithProperty(property));
    QVERIFY(loaded.at.reader.hasError());
    QCOMPARE(loaded.at.reader.errorString(), error);
    QVERIFY(loaded.parameter->dynamicPropertyNames().isEmpty());
}

void tst_Parameter::propertyIgnored_data()
{
    QTest::addColumn<QString>("property");
    QTest::newRow("white space only") << "<property name=\"options\">   </property>";
    QTest::newRow("no name") << "<property>abc</property>";
    QTest::newRow("empty name") << "<property name=\"\">abc</property>";
    QTest::newRow("empty element") << "<property name=\"list\"/>";
    QTest::newRow("dim with empty string") << "<property name=\"dim\"><string/></property>";
}

void tst_Parameter::propertyIgnored()
{
    QFETCH(QString, property);
    LoadedParameter loaded(parameterWithProperty(property));
    QVERIFY(!loaded.at.reader.hasError());
    QVERIFY(loaded.parameter->dynamicPropertyNames().isEmpty());
}

void tst_Parameter::propertySetTwiceKeepsLater()
{
    LoadedParameter loaded(parameterWithProperty(QStringLiteral(
        "<property name=\"list\">1</property><property name=\"list\">2</property>")));
    QCOMPARE(loaded.parameter->inteProperty("list"), 2);
}

void tst_Parameter::propertiesBeforeErrorStay()
{
    LoadedParameter loaded(QStringLiteral(
        "<parameter luid=\"9\"><property name=\"list\">1</property><bad/>"
        "<property name=\"next\">2</property></parameter>"));
    QCOMPARE(loaded.at.reader.errorString(), QStringLiteral("Unexpected element: bad"));
    QCOMPARE(loaded.parameter->luid(), 9);
    QCOMPARE(loaded.parameter->inteProperty("list"), 1);
    QVERIFY(!loaded.parameter->property("next").isValid());
}

void tst_Parameter::textPropertyOfByteStringIsStoredBytes()
{
    Parameter parameter;
    parameter.setProperty("options", QByteArray("a|b"));
    const char* text = parameter.textProperty("options");
    QCOMPARE(text, "a|b");
    // No copy: the pointer is the stored value's own data.
    QCOMPARE(static_cast<const void*>(text),
             static_cast<const void*>(parameter.property("options").toByteArray().constData()));
    QCOMPARE(parameter.inteProperty("options"), 0);
}

void tst_Parameter::textPropertyOfIntAndBoolOutlivesCall()
{
    LoadedParameter loaded(parameterWithProperty(QStringLiteral(
        "<property name=\"list\">42</property><property name=\"mod_entity\">true</property>"
        "<property name=\"selected\">false</property>")));
    const char* list = loaded.parameter->textProperty("list");
    const char* modEntity = loaded.parameter->textProperty("mod_entity");
    const char* selected = loaded.parameter->textProperty("selected");
    QCOMPARE(list, "42");
    QCOMPARE(modEntity, "true");
    QCOMPARE(selected, "false");
    // Other lookups must not invalidate texts handed out before.
    QCOMPARE(loaded.parameter->textProperty("prompt"), "");
    QCOMPARE(list, "42");
    QCOMPARE(modEntity, "true");
}

void tst_Parameter::absentProperties()
{
    LoadedParameter loaded(QStringLiteral("<parameter/>"));
    QCOMPARE(loaded.parameter->textProperty("format"), "");
    QCOMPARE(loaded.parameter->inteProperty("next"), 0);
}

void tst_Parameter::translatedTexts()
{
    RecordingTranslator translator;
    translator.add("circle", "Pick a point", QString::fromUtf8("Punkt wählen"));
    translator.add("circle", "Centre", QStringLiteral("Mitte"));
    translator.add("circle", "%1 mm", QStringLiteral("%1 Millimeter"));
    QVERIFY(QCoreApplication::installTranslator(&translator));
    LoadedParameter loaded(QStringLiteral(
        "<parameter description=\"Centre\"><property name=\"prompt\">Pick a point</property>"
        "<property name=\"format\">%1 mm</property>"
        "<property name=\"options\">Centre</property></parameter>"));
    QCoreApplication::removeTranslator(&translator);

    QCOMPARE(loaded.parameter->description(), "Mitte");
    QCOMPARE(QByteArray(loaded.parameter->textProperty("prompt")),
             QString::fromUtf8("Punkt wählen").toUtf8());
    QCOMPARE(loaded.parameter->textProperty("format"), "%1 Millimeter");
    // Only descriptions, prompts and formats are translated.
    QCOMPARE(loaded.parameter->textProperty("options"), "Centre");
    QCOMPARE(translator.requests.size(), 3);
}

void tst_Parameter::translationContextIsUtf8TemplateName()
{
    RecordingTranslator translator;
    translator.add(QByteArray("Würfel"), "Size", QStringLiteral("Größe"));
    QVERIFY(QCoreApplication::installTranslator(&translator));
    LoadedParameter loaded(QStringLiteral("<parameter><property name=\"prompt\">Size"
                                          "</property></parameter>"),
                           "Würfel");
    QCoreApplication::removeTranslator(&translator);

    QCOMPARE(translator.requests.size(), 1);
    QCOMPARE(translator.requests.first().first, QByteArray("Würfel"));
    QCOMPARE(QByteArray(loaded.parameter->textProperty("prompt")), QByteArray("Größe"));
}

void tst_Parameter::translationWithoutParentUsesEmptyContext()
{
    RecordingTranslator translator;
    translator.add("", "Size", QStringLiteral("Dimension"));
    QVERIFY(QCoreApplication::installTranslator(&translator));
    ReaderAt at(QStringLiteral("<parameter description=\"Size\"/>"));
    Parameter parameter;
    parameter.load(at.reader);
    QCoreApplication::removeTranslator(&translator);

    QCOMPARE(translator.requests.size(), 1);
    QCOMPARE(translator.requests.first().first, QByteArray(""));
    QCOMPARE(parameter.description(), "Dimension");
}

void tst_Parameter::constructorDescriptionIsNotTranslated()
{
    RecordingTranslator translator;
    translator.add("", "Size", QStringLiteral("Dimension"));
    QVERIFY(QCoreApplication::installTranslator(&translator));
    Parameter parameter("1", "number", "Size", "false");
    QCoreApplication::removeTranslator(&translator);
    QCOMPARE(parameter.description(), "Size");
    QVERIFY(translator.requests.isEmpty());
}

QTEST_GUILESS_MAIN(tst_Parameter)
#include "tst_parameter.moc"
