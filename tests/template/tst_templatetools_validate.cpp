#include <CommandSystem/PlatformHooks.h>
#include <CommandSystem/TemplateTools.h>

#include "OutputCapture.h"
#include "TemplateFiles.h"

#include <QDirIterator>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

using namespace Talvir::Vexa::Cs;

namespace {

// Text of the one-line validation error printed for a file, or an empty string when the
// output is not exactly such a line.
QString validationError(const QByteArray& output, const QString& fileName)
{
    const QRegularExpression line(
        QStringLiteral("^An error has occurred while loading %1 at line \\d+, column \\d+: "
                       "(.*)\n$")
            .arg(QRegularExpression::escape(fileName)));
    const QRegularExpressionMatch match = line.match(QString::fromUtf8(output));
    return match.hasMatch() ? match.captured(1) : QString();
}

QByteArray withTemplateProperty(const QByteArray& name, const QByteArray& value)
{
    return templatesDocument(templateElement(
        "circle", "        <property name=\"" + name + "\">" + value + "</property>\n"));
}

QByteArray withParameter(const QByteArray& attributes, const QByteArray& content = QByteArray())
{
    return templatesDocument(templateElement(
        "circle", "        <parameters>\n            <parameter " + attributes + ">" + content
            + "</parameter>\n        </parameters>\n"));
}

QByteArray withParameterProperty(const QByteArray& name, const QByteArray& value,
                                 const QByteArray& attributes = QByteArray())
{
    return withParameter(attributes,
                         "<property name=\"" + name + "\">" + value + "</property>");
}

QList<QByteArray> optionsSeen;
bool acceptOptions(const char* options)
{
    optionsSeen.append(options);
    return true;
}
bool rejectOptions(const char* options)
{
    optionsSeen.append(options);
    return false;
}

} // namespace

class tst_TemplateToolsValidate : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void baseline_data();
    void baseline();
    void templateProperty_data();
    void templateProperty();
    void parameterAttribute_data();
    void parameterAttribute();
    void parameterProperty_data();
    void parameterProperty();
    void unreadableFilePrintsFullPath();
    void optionsGoToCheckerOfParameterType_data();
    void optionsGoToCheckerOfParameterType();
    void optionsWithoutTypeGoToSlotZero();
    void rejectedOptions();
    void setParseFunctionOutOfRangeIgnored();
    void setParseFunctionNullRestoresAcceptAll();
    void checkersAreNotUsedByLoading();
    void validateTemplatesListsThroughPlatform();
    void validateTemplatesDefaultListing();

private:
    QString validate(const QByteArray& content, bool* result = nullptr);
    TemplateTools* tools = nullptr;
    QTemporaryDir directory;
};

void tst_TemplateToolsValidate::init()
{
    tools = new TemplateTools;
    optionsSeen.clear();
}

void tst_TemplateToolsValidate::cleanup()
{
    delete tools;
    setPlatformHooks(PlatformHooks());
}

// Validates content written to row.tcmd; returns the error text of the printed line.
QString tst_TemplateToolsValidate::validate(const QByteArray& content, bool* result)
{
    const QString path = directory.filePath(QStringLiteral("row.tcmd"));
    if (!writeFile(path, content))
        return QStringLiteral("cannot write %1").arg(path);
    OutputCapture capture;
    const bool valid = tools->validateTemplate(path);
    const QByteArray output = capture.standardOutput();
    if (result)
        *result = valid;
    if (valid != output.isEmpty() || !capture.debugOutput().isEmpty())
        return QStringLiteral("inconsistent result %1 with output %2")
            .arg(valid).arg(QString::fromUtf8(output));
    return valid ? QString() : validationError(output, QStringLiteral("row.tcmd"));
}

void tst_TemplateToolsValidate::baseline_data()
{
    QTest::addColumn<QString>("path");
    QDirIterator files(QStringLiteral(CS_TEST_DATA_DIR "/validate"),
                       QStringList(QStringLiteral("*.tcmd")), QDir::Files);
    QStringList paths;
    while (files.hasNext())
        paths.append(files.next());
    paths.sort();
    QVERIFY(paths.size() > 20);
    for (const QString& path : paths)
        QTest::newRow(qUtf8Printable(QFileInfo(path).completeBaseName())) << path;
}

// Each file beside its expected standard output; an empty expectation means a valid file.
void tst_TemplateToolsValidate::baseline()
{
    QFETCH(QString, path);
    QFile expectedFile(path.left(path.size() - 5) + QStringLiteral(".expected"));
    QVERIFY2(expectedFile.open(QIODevice::ReadOnly), qPrintable(expectedFile.fileName()));
    const QByteArray expected = expectedFile.readAll();

    OutputCapture capture;
    const bool valid = tools->validateTemplate(path);
    const QByteArray output = capture.standardOutput();
    QCOMPARE(QString::fromUtf8(output), QString::fromUtf8(expected));
    QCOMPARE(valid, expected.isEmpty());
    QCOMPARE(capture.debugOutput(), QStringList());
}

void tst_TemplateToolsValidate::templateProperty_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<QString>("error");

    for (const char* name : {"echo", "echo_obj", "function", "validate", "init_after", "term",
                             "custom", "init", "multi_cmd", "partial_echo_obj"})
        QTest::newRow(name) << QByteArray(name) << QByteArray("any text 1 true") << QString();
    for (const char* name : {"form_id", "icon_id", "parent_echo", "parent_form", "ref_id",
                             "level", "scope", "no_ftr"}) {
        QTest::addRow("%s int", name) << QByteArray(name) << QByteArray("-12") << QString();
        QTest::addRow("%s text", name) << QByteArray(name) << QByteArray("12a")
                                       << QStringLiteral("property value error: 12a");
        QTest::addRow("%s flag", name) << QByteArray(name) << QByteArray("true")
                                       << QStringLiteral("property value error: true");
    }
    for (const char* name : {"repeatable", "last_tpl", "child", "shade_echo", "show_tol",
                             "mod_entity", "lookup", "rt_echo"}) {
        QTest::addRow("%s true", name) << QByteArray(name) << QByteArray("true") << QString();
        QTest::addRow("%s false", name) << QByteArray(name) << QByteArray("false") << QString();
        QTest::addRow("%s on", name) << QByteArray(name) << QByteArray("on")
                                     << QStringLiteral("property value error: on");
        QTest::addRow("%s True", name) << QByteArray(name) << QByteArray("True")
                                       << QStringLiteral("property value error: True");
        QTest::addRow("%s digit", name) << QByteArray(name) << QByteArray("1")
                                        << QStringLiteral("property value error: 1");
    }
    QTest::newRow("auto_repeat on") << QByteArray("auto_repeat") << QByteArray("on") << QString();
    QTest::newRow("auto_repeat off") << QByteArray("auto_repeat") << QByteArray("off")
                                     << QString();
    QTest::newRow("auto_repeat true") << QByteArray("auto_repeat") << QByteArray("true")
                                      << QStringLiteral("property value error: true");
    QTest::newRow("auto_repeat ON") << QByteArray("auto_repeat") << QByteArray("ON")
                                    << QStringLiteral("property value error: ON");
    QTest::newRow("unknown") << QByteArray("colour") << QByteArray("red")
                             << QStringLiteral("Unknown template property: colour");
    QTest::newRow("parameter-only name") << QByteArray("prompt") << QByteArray("x")
                                         << QStringLiteral("Unknown template property: prompt");
    QTest::newRow("empty name") << QByteArray("") << QByteArray("x")
                                << QStringLiteral("empty property");
    QTest::newRow("empty value") << QByteArray("echo") << QByteArray("")
                                 << QStringLiteral("empty value for property: echo");
    QTest::newRow("empty value unknown name") << QByteArray("colour") << QByteArray(" ")
                                              << QStringLiteral("empty value for property: colour");
    QTest::newRow("non-ASCII value") << QByteArray("level") << QByteArray("zwölf")
                                     << QString::fromUtf8("property value error: zwölf");
}

void tst_TemplateToolsValidate::templateProperty()
{
    QFETCH(QByteArray, name);
    QFETCH(QByteArray, value);
    QFETCH(QString, error);
    bool valid = false;
    QCOMPARE(validate(withTemplateProperty(name, value), &valid), error);
    QCOMPARE(valid, error.isEmpty());
}

void tst_TemplateToolsValidate::parameterAttribute_data()
{
    QTest::addColumn<QByteArray>("attributes");
    QTest::addColumn<QString>("error");
    const QString valueError = QStringLiteral("property value error: parameter");

    QTest::newRow("no attributes") << QByteArray() << QString();
    QTest::newRow("luid int") << QByteArray("luid=\"-3\"") << QString();
    QTest::newRow("luid text") << QByteArray("luid=\"3a\"") << valueError;
    QTest::newRow("luid empty") << QByteArray("luid=\"\"") << valueError;
    for (const char* type : {"null", "string", "number", "distance", "angle", "point", "entity",
                             "option", "continue", "form", "window", "command", "pin"})
        QTest::addRow("type %s", type) << "type=\"" + QByteArray(type) + "\"" << QString();
    QTest::newRow("type text") << QByteArray("type=\"text\"") << valueError;
    QTest::newRow("type Point") << QByteArray("type=\"Point\"") << valueError;
    QTest::newRow("description any") << QByteArray("description=\"1 true &amp; more\"")
                                     << QString();
    QTest::newRow("trigger true") << QByteArray("trigger=\"true\"") << QString();
    QTest::newRow("trigger false") << QByteArray("trigger=\"false\"") << QString();
    QTest::newRow("trigger 1") << QByteArray("trigger=\"1\"") << valueError;
    QTest::newRow("checker true") << QByteArray("checker=\"true\"") << QString();
    QTest::newRow("checker false") << QByteArray("checker=\"false\"") << QString();
    QTest::newRow("checker on") << QByteArray("checker=\"on\"") << valueError;
    QTest::newRow("unknown") << QByteArray("kind=\"a\"")
                             << QStringLiteral("Unexpected attribute: kind");
    QTest::newRow("first problem reported") << QByteArray("kind=\"a\" luid=\"x\"")
                                            << QStringLiteral("Unexpected attribute: kind");
}

void tst_TemplateToolsValidate::parameterAttribute()
{
    QFETCH(QByteArray, attributes);
    QFETCH(QString, error);
    QCOMPARE(validate(withParameter(attributes)), error);
}

void tst_TemplateToolsValidate::parameterProperty_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<QString>("error");

    for (const char* name : {"list", "next", "cif", "comp"}) {
        QTest::addRow("%s int", name) << QByteArray(name) << QByteArray("4") << QString();
        QTest::addRow("%s text", name) << QByteArray(name) << QByteArray("four")
                                       << QStringLiteral("property value error: four");
    }
    for (const char* name : {"mod_entity", "disable_hi"}) {
        QTest::addRow("%s true", name) << QByteArray(name) << QByteArray("true") << QString();
        QTest::addRow("%s false", name) << QByteArray(name) << QByteArray("false") << QString();
        QTest::addRow("%s digit", name) << QByteArray(name) << QByteArray("1")
                                        << QStringLiteral("property value error: 1");
        QTest::addRow("%s off", name) << QByteArray(name) << QByteArray("off")
                                      << QStringLiteral("property value error: off");
    }
    for (const char* name : {"dim", "prompt", "format", "callback", "template", "append",
                             "modify", "unpick", "selected"})
        QTest::newRow(name) << QByteArray(name) << QByteArray("any 1 true") << QString();
    QTest::newRow("dim strings") << QByteArray("dim")
                                 << QByteArray("<string>a</string><string>b</string>")
                                 << QString();
    QTest::newRow("options accepted") << QByteArray("options") << QByteArray("a|b") << QString();
    QTest::newRow("unknown") << QByteArray("colour") << QByteArray("red")
                             << QStringLiteral("Unknown parameter property: colour");
    QTest::newRow("template-only name") << QByteArray("echo") << QByteArray("x")
                                        << QStringLiteral("Unknown parameter property: echo");
    QTest::newRow("empty name") << QByteArray("") << QByteArray("x")
                                << QStringLiteral("empty property");
    QTest::newRow("empty value") << QByteArray("prompt") << QByteArray("")
                                 << QStringLiteral("empty value for property: prompt");
    QTest::newRow("string under options") << QByteArray("options")
                                          << QByteArray("<string>a</string>")
                                          << QStringLiteral("Unexpected element: string");
}

void tst_TemplateToolsValidate::parameterProperty()
{
    QFETCH(QByteArray, name);
    QFETCH(QByteArray, value);
    QFETCH(QString, error);
    QCOMPARE(validate(withParameterProperty(name, value)), error);
}

void tst_TemplateToolsValidate::unreadableFilePrintsFullPath()
{
    const QString path = directory.filePath(QStringLiteral("missing.tcmd"));
    OutputCapture capture;
    QVERIFY(!tools->validateTemplate(path));
    QFile missing(path);
    QVERIFY(!missing.open(QIODevice::ReadOnly));
    QCOMPARE(QString::fromUtf8(capture.standardOutput()),
             QStringLiteral("Can not read file %1: %2\n").arg(path, missing.errorString()));
    QCOMPARE(capture.debugOutput(), QStringList());
}

void tst_TemplateToolsValidate::optionsGoToCheckerOfParameterType_data()
{
    QTest::addColumn<int>("slot");
    QTest::addColumn<QByteArray>("type");
    QTest::newRow("number") << 2 << QByteArray("number");
    QTest::newRow("option") << 7 << QByteArray("option");
    QTest::newRow("pin") << 12 << QByteArray("pin");
}

void tst_TemplateToolsValidate::optionsGoToCheckerOfParameterType()
{
    QFETCH(int, slot);
    QFETCH(QByteArray, type);
    for (int other = 0; other < 13; ++other)
        tools->setParseFunction(other, other == slot ? acceptOptions : rejectOptions);
    QCOMPARE(validate(withParameterProperty("options", "Yes/No",
                                            "type=\"" + type + "\" luid=\"1\"")),
             QString());
    QCOMPARE(optionsSeen, QList<QByteArray>() << "Yes/No");
}

void tst_TemplateToolsValidate::optionsWithoutTypeGoToSlotZero()
{
    tools->setParseFunction(0, acceptOptions);
    tools->setParseFunction(5, rejectOptions);
    // The type of an earlier parameter does not carry over.
    const QByteArray content = templatesDocument(templateElement(
        "circle", "<parameters><parameter type=\"point\"/><parameter>"
                  "<property name=\"options\">dim</property></parameter></parameters>\n"));
    QCOMPARE(validate(content), QString());
    QCOMPARE(optionsSeen, QList<QByteArray>() << "dim");
}

void tst_TemplateToolsValidate::rejectedOptions()
{
    tools->setParseFunction(4, rejectOptions);
    QCOMPARE(validate(withParameterProperty("options", "x", "type=\"angle\"")),
             QStringLiteral("options parsing error"));
}

void tst_TemplateToolsValidate::setParseFunctionOutOfRangeIgnored()
{
    tools->setParseFunction(13, rejectOptions);
    tools->setParseFunction(-1, rejectOptions);
    for (const char* type : {"null", "string", "number", "distance", "angle", "point", "entity",
                             "option", "continue", "form", "window", "command", "pin"}) {
        QCOMPARE(validate(withParameterProperty("options", "x",
                                                "type=\"" + QByteArray(type) + "\"")),
                 QString());
    }
    QVERIFY(optionsSeen.isEmpty());
}

void tst_TemplateToolsValidate::setParseFunctionNullRestoresAcceptAll()
{
    tools->setParseFunction(2, rejectOptions);
    QCOMPARE(validate(withParameterProperty("options", "x", "type=\"number\"")),
             QStringLiteral("options parsing error"));
    tools->setParseFunction(2, nullptr);
    QCOMPARE(validate(withParameterProperty("options", "x", "type=\"number\"")), QString());
    QCOMPARE(optionsSeen.size(), 1);
}

void tst_TemplateToolsValidate::checkersAreNotUsedByLoading()
{
    const QString path = directory.filePath(QStringLiteral("load.tcmd"));
    QVERIFY(writeFile(path, withParameterProperty("options", "x", "type=\"number\"")));
    tools->setParseFunction(2, rejectOptions);
    QList<Template*> templates;
    QVERIFY(tools->loadTemplate(path, templates));
    QCOMPARE(templates.size(), 1);
    qDeleteAll(templates);
    QVERIFY(optionsSeen.isEmpty());
}

void tst_TemplateToolsValidate::validateTemplatesListsThroughPlatform()
{
    const QString good = directory.filePath(QStringLiteral("a.tcmd"));
    const QString bad = directory.filePath(QStringLiteral("b.tcmd"));
    const QString worse = directory.filePath(QStringLiteral("c.tcmd"));
    QVERIFY(writeFile(good, withTemplateProperty("echo", "e")));
    QVERIFY(writeFile(bad, withTemplateProperty("colour", "red")));
    QVERIFY(writeFile(worse, "<tpl/>"));
    QStringList requests;
    PlatformHooks hooks;
    hooks.listFiles = [&](const QString& listed, const QString& pattern) {
        requests << listed << pattern;
        return QStringList() << worse << good << bad;
    };
    setPlatformHooks(hooks);

    OutputCapture capture;
    QVERIFY(tools->validateTemplates(directory.path()));
    const QList<QByteArray> lines = capture.standardOutput().split('\n');
    QCOMPARE(requests, QStringList() << directory.path() << QStringLiteral("*.tcmd"));
    // Every listed file is validated, in the listing's order.
    QCOMPARE(lines.size(), 3);
    QVERIFY(lines[0].startsWith("An error has occurred while loading c.tcmd at line 1"));
    QVERIFY(lines[0].endsWith(": Unexpected element tpl"));
    QVERIFY(lines[1].startsWith("An error has occurred while loading b.tcmd at line "));
    QVERIFY(lines[1].endsWith(": Unknown template property: colour"));
    QVERIFY(lines[2].isEmpty());
}

void tst_TemplateToolsValidate::validateTemplatesDefaultListing()
{
    QTemporaryDir templates;
    QVERIFY(writeFile(templates.filePath(QStringLiteral("good.tcmd")),
                      withTemplateProperty("echo", "e")));
    QVERIFY(writeFile(templates.filePath(QStringLiteral("bad.tcmd")),
                      withTemplateProperty("form_id", "x")));
    QVERIFY(writeFile(templates.filePath(QStringLiteral("ignored.xml")), "<tpl/>"));
    OutputCapture capture;
    QVERIFY(tools->validateTemplates(templates.path()));
    const QByteArray output = capture.standardOutput();
    QCOMPARE(validationError(output, QStringLiteral("bad.tcmd")),
             QStringLiteral("property value error: x"));
    OutputCapture empty;
    QVERIFY(tools->validateTemplates(templates.filePath(QStringLiteral("missing"))));
    QCOMPARE(empty.standardOutput(), QByteArray());
}

QTEST_GUILESS_MAIN(tst_TemplateToolsValidate)
#include "tst_templatetools_validate.moc"
