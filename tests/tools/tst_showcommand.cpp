#include "CsToolProcess.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QtTest>

// cstool show: one template's properties and parameters, as a table and as JSON.
class tst_ShowCommand : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void tableShowsPropertiesAndParameters();
    void jsonHoldsTheSameWithTypes();
    void unknownNameFails();
    void usageErrors();

private:
    QTemporaryDir temp;
    QString dir;
};

void tst_ShowCommand::initTestCase()
{
    QVERIFY(temp.isValid());
    dir = temp.filePath(QStringLiteral("templates"));
    QVERIFY(CsToolProcess::writeFile(dir + QStringLiteral("/shapes.tcmd"),
        "<templates>\n"
        "  <template name=\"circle\">\n"
        "    <property name=\"form_id\">12</property>\n"
        "    <property name=\"repeatable\">false</property>\n"
        "    <property name=\"echo\">circle</property>\n"
        "    <parameters>\n"
        "      <parameter luid=\"1\" type=\"point\" description=\"Centre\" trigger=\"true\">\n"
        "        <property name=\"prompt\">Specify the centre point:</property>\n"
        "        <property name=\"list\">2</property>\n"
        "        <property name=\"dim\"><string>10</string><string>20</string></property>\n"
        "      </parameter>\n"
        "      <parameter luid=\"2\" type=\"distance\" checker=\"true\">\n"
        "        <property name=\"format\">Radius %1</property>\n"
        "        <property name=\"options\">min=0</property>\n"
        "      </parameter>\n"
        "    </parameters>\n"
        "  </template>\n"
        "  <template name=\"arc\"/>\n"
        "</templates>\n"));
}

void tst_ShowCommand::tableShowsPropertiesAndParameters()
{
    CsToolProcess tool;
    RUN_CSTOOL(tool, {QStringLiteral("show"), dir, QStringLiteral("circle")});
    QCOMPARE(tool.exitCode, 0);
    const QStringList expected = {
        QStringLiteral("Template: circle"),
        QStringLiteral("File: ") + QDir(dir).absoluteFilePath(QStringLiteral("shapes.tcmd")),
        QStringLiteral("Properties:"),
        QStringLiteral("  echo      circle"),
        QStringLiteral("  form_id   12"),
        QStringLiteral("  last_tpl  false"),
        QStringLiteral("Parameters:"),
        QStringLiteral("  luid  type      trigger  checker  description  prompt                     format     options  other"),
        QStringLiteral("  1     point     yes      no       Centre       Specify the centre point:                      dim=10@20; list=2"),
        QStringLiteral("  2     distance  no       yes                                              Radius %1  min=0")};
    QCOMPARE(tool.outLines(), expected);
}

void tst_ShowCommand::jsonHoldsTheSameWithTypes()
{
    CsToolProcess tool;
    RUN_CSTOOL(tool, {QStringLiteral("show"), QStringLiteral("--json"), dir, QStringLiteral("circle")});
    QCOMPARE(tool.exitCode, 0);
    QJsonParseError error;
    const QJsonObject json = QJsonDocument::fromJson(tool.out.toUtf8(), &error).object();
    QCOMPARE(error.error, QJsonParseError::NoError);
    QCOMPARE(json.value(QStringLiteral("name")).toString(), QStringLiteral("circle"));
    const QJsonObject properties = json.value(QStringLiteral("properties")).toObject();
    QCOMPARE(properties.value(QStringLiteral("form_id")), QJsonValue(12));
    QCOMPARE(properties.value(QStringLiteral("last_tpl")), QJsonValue(false));
    QCOMPARE(properties.value(QStringLiteral("echo")), QJsonValue(QStringLiteral("circle")));
    const QJsonArray parameters = json.value(QStringLiteral("parameters")).toArray();
    QCOMPARE(parameters.size(), 2);
    const QJsonObject centre = parameters.at(0).toObject();
    QCOMPARE(centre.value(QStringLiteral("luid")), QJsonValue(1));
    QCOMPARE(centre.value(QStringLiteral("type")), QJsonValue(QStringLiteral("point")));
    QCOMPARE(centre.value(QStringLiteral("trigger")), QJsonValue(true));
    QCOMPARE(centre.value(QStringLiteral("checker")), QJsonValue(false));
    QCOMPARE(centre.value(QStringLiteral("description")), QJsonValue(QStringLiteral("Centre")));
    QCOMPARE(centre.value(QStringLiteral("prompt")), QJsonValue(QStringLiteral("Specify the centre point:")));
    QCOMPARE(centre.value(QStringLiteral("format")), QJsonValue(QString()));
    const QJsonObject others = centre.value(QStringLiteral("properties")).toObject();
    QCOMPARE(others.value(QStringLiteral("list")), QJsonValue(2));
    QCOMPARE(others.value(QStringLiteral("dim")), QJsonValue(QStringLiteral("10@20")));
    QCOMPARE(others.size(), 2);
    const QJsonObject radius = parameters.at(1).toObject();
    QCOMPARE(radius.value(QStringLiteral("type")), QJsonValue(QStringLiteral("distance")));
    QCOMPARE(radius.value(QStringLiteral("options")), QJsonValue(QStringLiteral("min=0")));
}

void tst_ShowCommand::unknownNameFails()
{
    CsToolProcess tool;
    RUN_CSTOOL(tool, {QStringLiteral("show"), dir, QStringLiteral("Circle")});
    QCOMPARE(tool.exitCode, 1);
    QVERIFY(tool.err.contains(QLatin1String("cstool show: no template named 'Circle'")));
    QVERIFY(tool.out.isEmpty());
}

void tst_ShowCommand::usageErrors()
{
    CsToolProcess tool;
    RUN_CSTOOL(tool, {QStringLiteral("show"), QStringLiteral("circle")});
    QCOMPARE(tool.exitCode, 2);
    QVERIFY(tool.err.contains(QLatin1String("cstool show: DIR and NAME are required")));
    RUN_CSTOOL(tool, {QStringLiteral("show"), QStringLiteral("/nonexistent"), QStringLiteral("circle")});
    QCOMPARE(tool.exitCode, 2);
    QVERIFY(tool.err.contains(QLatin1String("cstool show: /nonexistent: not a directory")));
}

QTEST_GUILESS_MAIN(tst_ShowCommand)
#include "tst_showcommand.moc"
