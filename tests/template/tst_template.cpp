#include <CommandSystem/Parameter.h>
#include <CommandSystem/Template.h>

#include "RecordingTranslator.h"

#include <QCoreApplication>
#include <QPointer>
#include <QtTest>
#include <QXmlStreamReader>

using namespace Talvir::Vexa::Cs;

namespace {

// Loads the first element of xml (a "template" element) into temp.
QString loadInto(Template& temp, const QString& xml)
{
    QXmlStreamReader reader(xml);
    reader.readNextStartElement();
    temp.load(reader);
    return reader.hasError() ? reader.errorString() : QString();
}

QString templateWith(const QString& content)
{
    return QStringLiteral("<template name=\"circle\">") + content
        + QStringLiteral("</template>");
}

} // namespace

class tst_Template : public QObject
{
    Q_OBJECT

private slots:
    void metaObjectName();
    void defaultConstructed();
    void namedConstructor();
    void nonAsciiName();
    void loadName();
    void loadWithoutNameKeepsName();
    void repeatable_data();
    void repeatable();
    void storeProperty_data();
    void storeProperty();
    void propertyIgnored_data();
    void propertyIgnored();
    void propertySetTwiceKeepsLater();
    void errors_data();
    void errors();
    void unexpectedAttributeStillSetsName();
    void loadStopsAtOwnEndElement();
    void twoDefaultParameters();
    void parametersOfSeveralElementsInOrder();
    void failedParameterIsStillAppended();
    void parametersTranslatedWithTemplateName();
    void appendParameter();
    void appendParameterTakesFromFormerParent();
    void removeParameter();
    void destructionDeletesParameters();
    void textPropertyOfIntAndBool();
};

void tst_Template::metaObjectName()
{
    Template temp;
    QCOMPARE(temp.metaObject()->className(), "Template");
}

void tst_Template::defaultConstructed()
{
    Template temp;
    QCOMPARE(temp.name(), "");
    QVERIFY(temp.objectName().isEmpty());
    QVERIFY(temp.parameters().empty());
    QCOMPARE(temp.inteProperty("last_tpl"), 1);
    QCOMPARE(temp.property("last_tpl"), QVariant(true));
    QCOMPARE(temp.textProperty("echo"), "");
    QCOMPARE(temp.inteProperty("form_id"), 0);
    QVERIFY(!temp.parent());
}

void tst_Template::namedConstructor()
{
    Template temp("line");
    QCOMPARE(temp.name(), "line");
    QCOMPARE(temp.objectName(), QStringLiteral("line"));
    QCOMPARE(temp.inteProperty("last_tpl"), 1);
    QCOMPARE(temp.dynamicPropertyNames(), QList<QByteArray>() << "last_tpl");
}

void tst_Template::nonAsciiName()
{
    Template temp("Würfel");
    QCOMPARE(temp.objectName(), QString::fromUtf8("Würfel"));
    Template loaded;
    QCOMPARE(loadInto(loaded, QString::fromUtf8("<template name=\"Würfel\"/>")), QString());
    QCOMPARE(loaded.name(), "Würfel");
    QCOMPARE(loaded.objectName(), QString::fromUtf8("Würfel"));
}

void tst_Template::loadName()
{
    Template temp("old");
    QCOMPARE(loadInto(temp, QStringLiteral("<template name=\"circle\"/>")), QString());
    QCOMPARE(temp.name(), "circle");
    QCOMPARE(temp.objectName(), QStringLiteral("circle"));
}

void tst_Template::loadWithoutNameKeepsName()
{
    Template temp("old");
    QCOMPARE(loadInto(temp, QStringLiteral("<template><property name=\"echo\">e</property>"
                                           "</template>")),
             QString());
    QCOMPARE(temp.name(), "old");
    QCOMPARE(temp.objectName(), QStringLiteral("old"));
    QCOMPARE(temp.textProperty("echo"), "e");
}

void tst_Template::repeatable_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<int>("lastTemplate");
    QTest::newRow("false") << "false" << 0;
    QTest::newRow("no") << "no" << 1;
    QTest::newRow("true") << "true" << 1;
    QTest::newRow("False") << "False" << 1;
}

void tst_Template::repeatable()
{
    QFETCH(QString, value);
    QFETCH(int, lastTemplate);
    Template temp;
    QCOMPARE(loadInto(temp, templateWith(QStringLiteral("<property name=\"repeatable\">%1"
                                                        "</property>")
                                             .arg(value))),
             QString());
    QCOMPARE(temp.inteProperty("last_tpl"), lastTemplate);
    QCOMPARE(temp.property("last_tpl").userType(), int(QMetaType::Bool));
    QCOMPARE(temp.textProperty("repeatable"), "");
    QVERIFY(!temp.property("repeatable").isValid());
}

void tst_Template::storeProperty_data()
{
    QTest::addColumn<QString>("property");
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<int>("integer");

    QTest::newRow("auto_repeat on") << "<property name=\"auto_repeat\">on</property>"
                                    << QByteArray("auto_repeat") << QVariant(true) << 1;
    QTest::newRow("auto_repeat off") << "<property name=\"auto_repeat\">off</property>"
                                     << QByteArray("auto_repeat") << QVariant(false) << 0;
    QTest::newRow("form_id 12") << "<property name=\"form_id\">12</property>"
                                << QByteArray("form_id") << QVariant(12) << 12;
    QTest::newRow("form_id x") << "<property name=\"form_id\">x</property>"
                               << QByteArray("form_id") << QVariant(0) << 0;
    QTest::newRow("form_id true is int") << "<property name=\"form_id\">true</property>"
                                         << QByteArray("form_id") << QVariant(0) << 0;
    QTest::newRow("icon_id") << "<property name=\"icon_id\">7</property>"
                             << QByteArray("icon_id") << QVariant(7) << 7;
    QTest::newRow("parent_echo") << "<property name=\"parent_echo\">-1</property>"
                                 << QByteArray("parent_echo") << QVariant(-1) << -1;
    QTest::newRow("scope") << "<property name=\"scope\">2</property>" << QByteArray("scope")
                           << QVariant(2) << 2;
    QTest::newRow("last_tpl false") << "<property name=\"last_tpl\">false</property>"
                                    << QByteArray("last_tpl") << QVariant(false) << 0;
    QTest::newRow("child true") << "<property name=\"child\">true</property>"
                                << QByteArray("child") << QVariant(true) << 1;
    QTest::newRow("shade_echo off") << "<property name=\"shade_echo\">off</property>"
                                    << QByteArray("shade_echo") << QVariant(false) << 0;
    QTest::newRow("show_tol") << "<property name=\"show_tol\">true</property>"
                              << QByteArray("show_tol") << QVariant(true) << 1;
    QTest::newRow("mod_entity") << "<property name=\"mod_entity\">false</property>"
                                << QByteArray("mod_entity") << QVariant(false) << 0;
    QTest::newRow("lookup") << "<property name=\"lookup\">on</property>"
                            << QByteArray("lookup") << QVariant(true) << 1;
    QTest::newRow("rt_echo") << "<property name=\"rt_echo\">true</property>"
                             << QByteArray("rt_echo") << QVariant(true) << 1;
    QTest::newRow("level digits as text") << "<property name=\"level\">3</property>"
                                          << QByteArray("level") << QVariant(QByteArray("3"))
                                          << 3;
    QTest::newRow("parent_form") << "<property name=\"parent_form\">14</property>"
                                 << QByteArray("parent_form") << QVariant(QByteArray("14"))
                                 << 14;
    QTest::newRow("ref_id") << "<property name=\"ref_id\">8</property>" << QByteArray("ref_id")
                            << QVariant(QByteArray("8")) << 8;
    QTest::newRow("no_ftr") << "<property name=\"no_ftr\">1</property>" << QByteArray("no_ftr")
                            << QVariant(QByteArray("1")) << 1;
    QTest::newRow("echo") << "<property name=\"echo\">Circle</property>" << QByteArray("echo")
                          << QVariant(QByteArray("Circle")) << 0;
    QTest::newRow("init") << "<property name=\"init\">begin()</property>" << QByteArray("init")
                          << QVariant(QByteArray("begin()")) << 0;
    QTest::newRow("term") << "<property name=\"term\">end()</property>" << QByteArray("term")
                          << QVariant(QByteArray("end()")) << 0;
    QTest::newRow("capital True is text") << "<property name=\"child\">True</property>"
                                          << QByteArray("child") << QVariant(QByteArray("True"))
                                          << 0;
    QTest::newRow("capital ON is text") << "<property name=\"echo\">ON</property>"
                                        << QByteArray("echo") << QVariant(QByteArray("ON")) << 0;
    QTest::newRow("unknown name flag") << "<property name=\"colour\">on</property>"
                                       << QByteArray("colour") << QVariant(true) << 1;
    QTest::newRow("unknown name text") << "<property name=\"colour\">red</property>"
                                       << QByteArray("colour") << QVariant(QByteArray("red"))
                                       << 0;
    QTest::newRow("non-ASCII text") << QString::fromUtf8("<property name=\"echo\">Kreis ø"
                                                         "</property>")
                                    << QByteArray("echo") << QVariant(QByteArray("Kreis ø"))
                                    << 0;
}

void tst_Template::storeProperty()
{
    QFETCH(QString, property);
    QFETCH(QByteArray, name);
    QFETCH(QVariant, stored);
    QFETCH(int, integer);

    Template temp;
    QCOMPARE(loadInto(temp, templateWith(property)), QString());
    const QVariant value = temp.property(name.constData());
    QCOMPARE(value.userType(), stored.userType());
    QCOMPARE(value, stored);
    QCOMPARE(temp.inteProperty(name.constData()), integer);
    QCOMPARE(QByteArray(temp.textProperty(name.constData())), stored.toByteArray());
}

void tst_Template::propertyIgnored_data()
{
    QTest::addColumn<QString>("property");
    QTest::newRow("white space only") << "<property name=\"echo\">  \n </property>";
    QTest::newRow("no name") << "<property>abc</property>";
    QTest::newRow("empty element") << "<property name=\"form_id\"/>";
}

void tst_Template::propertyIgnored()
{
    QFETCH(QString, property);
    Template temp;
    QCOMPARE(loadInto(temp, templateWith(property)), QString());
    QCOMPARE(temp.dynamicPropertyNames(), QList<QByteArray>() << "last_tpl");
}

void tst_Template::propertySetTwiceKeepsLater()
{
    Template temp;
    QCOMPARE(loadInto(temp, templateWith(QStringLiteral(
                                "<property name=\"echo\">a</property>"
                                "<property name=\"echo\">b</property>"))),
             QString());
    QCOMPARE(temp.textProperty("echo"), "b");
}

void tst_Template::errors_data()
{
    QTest::addColumn<QString>("xml");
    QTest::addColumn<QString>("error");

    QTest::newRow("element in property")
        << templateWith("<property name=\"echo\"><b/></property>") << "Unexpected element: b";
    QTest::newRow("unknown child") << templateWith("<foo/>") << "Unexpected element: foo";
    QTest::newRow("unknown in parameters")
        << templateWith("<parameters><param/></parameters>") << "Unexpected element: param";
    QTest::newRow("property attribute")
        << templateWith("<property name=\"echo\" lang=\"en\">x</property>")
        << "Unexpected attribute: lang";
    QTest::newRow("parameter error passes up")
        << templateWith("<parameters><parameter kind=\"a\"/></parameters>")
        << "Unexpected attribute: kind";
}

void tst_Template::errors()
{
    QFETCH(QString, xml);
    QFETCH(QString, error);
    Template temp;
    QCOMPARE(loadInto(temp, xml), error);
}

void tst_Template::unexpectedAttributeStillSetsName()
{
    Template temp;
    QCOMPARE(loadInto(temp, QStringLiteral("<template name=\"a\" id=\"1\"/>")),
             QStringLiteral("Unexpected attribute: id"));
    QCOMPARE(temp.name(), "a");
    QCOMPARE(temp.objectName(), QStringLiteral("a"));
}

void tst_Template::loadStopsAtOwnEndElement()
{
    QXmlStreamReader reader(QStringLiteral(
        "<templates><template name=\"a\"><!-- c -->text<parameters/></template>"
        "<template name=\"b\"/></templates>"));
    reader.readNextStartElement();
    reader.readNextStartElement();
    Template temp;
    temp.load(reader);
    QVERIFY(!reader.hasError());
    QVERIFY(reader.isEndElement());
    QCOMPARE(reader.name().toString(), QStringLiteral("template"));
    QVERIFY(reader.readNextStartElement());
    QCOMPARE(reader.attributes().value(QStringLiteral("name")).toString(), QStringLiteral("b"));
}

void tst_Template::twoDefaultParameters()
{
    Template temp;
    QCOMPARE(loadInto(temp, templateWith(QStringLiteral(
                                "<parameters><parameter/><parameter/></parameters>"))),
             QString());
    QCOMPARE(temp.parameters().size(), size_t(2));
    for (Parameter* parameter : temp.parameters()) {
        QCOMPARE(parameter->luid(), 1);
        QCOMPARE(parameter->type(), Parameter::TypeNull);
        QCOMPARE(parameter->parent(), &temp);
    }
    QVERIFY(temp.parameters()[0] != temp.parameters()[1]);
}

void tst_Template::parametersOfSeveralElementsInOrder()
{
    Template temp;
    QCOMPARE(loadInto(temp, templateWith(QStringLiteral(
                                "<parameters extra=\"ignored\"><parameter luid=\"1\"/>"
                                "<parameter luid=\"2\"/></parameters>"
                                "<property name=\"echo\">e</property>"
                                "<parameters><parameter luid=\"3\"/></parameters>"))),
             QString());
    QCOMPARE(temp.parameters().size(), size_t(3));
    for (int index = 0; index < 3; ++index)
        QCOMPARE(temp.parameters()[size_t(index)]->luid(), index + 1);
    QCOMPARE(temp.textProperty("echo"), "e");
}

void tst_Template::failedParameterIsStillAppended()
{
    Template temp;
    QCOMPARE(loadInto(temp, templateWith(QStringLiteral(
                                "<parameters><parameter luid=\"4\"><x/></parameter>"
                                "<parameter luid=\"5\"/></parameters>"))),
             QStringLiteral("Unexpected element: x"));
    QCOMPARE(temp.parameters().size(), size_t(1));
    QCOMPARE(temp.parameters().front()->luid(), 4);
}

void tst_Template::parametersTranslatedWithTemplateName()
{
    RecordingTranslator translator;
    translator.add("circle", "Centre", QStringLiteral("Mitte"));
    translator.add("arc", "Centre", QStringLiteral("Mittelpunkt"));
    QVERIFY(QCoreApplication::installTranslator(&translator));
    Template circle;
    const QString circleError = loadInto(circle, templateWith(QStringLiteral(
        "<parameters><parameter description=\"Centre\"/></parameters>")));
    Template arc;
    const QString arcError = loadInto(arc, QStringLiteral(
        "<template name=\"arc\"><parameters><parameter><property name=\"prompt\">Centre"
        "</property></parameter></parameters><property name=\"echo\">Centre</property>"
        "</template>"));
    QCoreApplication::removeTranslator(&translator);

    QCOMPARE(circleError, QString());
    QCOMPARE(arcError, QString());
    QCOMPARE(circle.parameters().front()->description(), "Mitte");
    QCOMPARE(arc.parameters().front()->textProperty("prompt"), "Mittelpunkt");
    // Template properties are never translated.
    QCOMPARE(arc.textProperty("echo"), "Centre");
}

void tst_Template::appendParameter()
{
    Template temp;
    Parameter* parameter = new Parameter;
    QVERIFY(!temp.appendParameter(nullptr));
    QVERIFY(temp.appendParameter(parameter));
    QVERIFY(!temp.appendParameter(parameter));
    QCOMPARE(temp.parameters().size(), size_t(1));
    QCOMPARE(parameter->parent(), &temp);
}

void tst_Template::appendParameterTakesFromFormerParent()
{
    Template first;
    Template second;
    Parameter* parameter = new Parameter;
    QVERIFY(first.appendParameter(parameter));
    QVERIFY(second.appendParameter(parameter));
    QCOMPARE(parameter->parent(), &second);
    QVERIFY(!first.children().contains(parameter));
    // The former template's list is not touched; only the object tree changes.
    QVERIFY(first.removeParameter(parameter));
}

void tst_Template::removeParameter()
{
    Template temp;
    Parameter* a = new Parameter("1", "point", "", "");
    Parameter* b = new Parameter("2", "point", "", "");
    Parameter* c = new Parameter("3", "point", "", "");
    Parameter outside;
    QVERIFY(temp.appendParameter(a));
    QVERIFY(temp.appendParameter(b));
    QVERIFY(temp.appendParameter(c));
    QVERIFY(!temp.removeParameter(nullptr));
    QVERIFY(!temp.removeParameter(&outside));
    QVERIFY(temp.removeParameter(b));
    QVERIFY(!temp.removeParameter(b));
    QCOMPARE(temp.parameters(), (std::vector<Parameter*>{a, c}));
    // Still a child of the template: not deleted, not re-parented.
    QCOMPARE(b->parent(), &temp);
}

void tst_Template::destructionDeletesParameters()
{
    QPointer<Parameter> loaded;
    QPointer<Parameter> removed;
    {
        Template temp;
        QCOMPARE(loadInto(temp, templateWith(QStringLiteral(
                                    "<parameters><parameter/></parameters>"))),
                 QString());
        loaded = temp.parameters().front();
        removed = new Parameter;
        QVERIFY(temp.appendParameter(removed));
        QVERIFY(temp.removeParameter(removed));
    }
    QVERIFY(loaded.isNull());
    QVERIFY(removed.isNull());
}

void tst_Template::textPropertyOfIntAndBool()
{
    Template temp;
    QCOMPARE(loadInto(temp, templateWith(QStringLiteral(
                                "<property name=\"form_id\">12</property>"
                                "<property name=\"auto_repeat\">off</property>"))),
             QString());
    const char* formId = temp.textProperty("form_id");
    const char* autoRepeat = temp.textProperty("auto_repeat");
    const char* lastTemplate = temp.textProperty("last_tpl");
    QCOMPARE(formId, "12");
    QCOMPARE(autoRepeat, "false");
    QCOMPARE(lastTemplate, "true");
    QCOMPARE(temp.textProperty("echo"), "");
    QCOMPARE(formId, "12");
}

QTEST_GUILESS_MAIN(tst_Template)
#include "tst_template.moc"
