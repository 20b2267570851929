// Hostile and odd input for every reader of outside files: loadTemplate, validateTemplate,
// loadMap, the buildMap line scan and ActionPool::load. Each gives its documented result and
// message, nothing crashes, and what was loaded before stays loaded.

#include "OutputCapture.h"

#include <CommandSystem/Action.h>
#include <CommandSystem/ActionPool.h>
#include <CommandSystem/Template.h>
#include <CommandSystem/TemplatePool.h>
#include <CommandSystem/TemplateTools.h>

#include <QDebug>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QXmlStreamReader>
#include <QtTest>

#include <memory>

using namespace Talvir::Vexa::Cs;

namespace {

constexpr int hugeSize = 50 * 1024 * 1024;
constexpr int nestingDepth = 100000;
constexpr int longName = 100000;

// Ten levels of ten-fold expansion: a billion "lol"s if nothing stopped it.
QByteArray entityBombProlog(const char* root)
{
    QByteArray prolog = "<?xml version=\"1.0\"?>\n<!DOCTYPE " + QByteArray(root) + " [\n"
                        "<!ENTITY e0 \"lol\">\n";
    for (int level = 1; level <= 9; ++level) {
        prolog += "<!ENTITY e" + QByteArray::number(level) + " \"";
        for (int copy = 0; copy < 10; ++copy)
            prolog += "&e" + QByteArray::number(level - 1) + ";";
        prolog += "\">\n";
    }
    return prolog + "]>\n";
}

QByteArray templateFile(const QByteArray& name, const QByteArray& echo,
                        const QByteArray& prolog = QByteArray())
{
    return prolog + "<templates>\n<template name=\"" + name + "\">\n<property name=\"echo\">"
        + echo + "</property>\n</template>\n</templates>\n";
}

QByteArray mapFile(const QByteArray& key, const QByteArray& value,
                   const QByteArray& prolog = QByteArray())
{
    return prolog + "<maps name=\"Vexa\" version=\"Kestrel 10.25\">\n<map key=\"" + key
        + "\" value=\"" + value + "\"/>\n</maps>\n";
}

QByteArray uiFile(const QByteArray& name, const QByteArray& script,
                  const QByteArray& prolog = QByteArray())
{
    return prolog + "<Actions name=\"Vexa\" version=\"1700\">\n<Action name=\"" + name
        + "\" type=\"command\"><Script>" + script + "</Script></Action>\n</Actions>\n";
}

struct ReaderError {
    qint64 line = 0;
    qint64 column = 0;
    QString text;
};

// What Qt's stream reader itself says about a document: the readers report exactly this.
ReaderError readerErrorOf(const QByteArray& document)
{
    QXmlStreamReader reader(document);
    while (!reader.atEnd())
        reader.readNext();
    return {reader.lineNumber(), reader.columnNumber(), reader.errorString()};
}

QString loadMessage(const QString& fileName, const ReaderError& error)
{
    return QStringLiteral("An error has occurred while loading %1 at line %2, column %3: %4")
        .arg(fileName).arg(error.line).arg(error.column).arg(error.text);
}

// The action pool writes its line through the debug stream, with the stream's own spacing.
QString poolMessage(const QString& fileName, const ReaderError& error)
{
    QString message;
    QDebug(&message) << "An error has occurred while loading " << fileName << " at line "
                     << error.line << ", column " << error.column << ": " << error.text;
    return message.trimmed();
}

} // namespace

class tst_HostileInput : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void entityExpansionBomb();
    void hugeFiles();
    void deepNesting();
    void invalidUtf8_data();
    void invalidUtf8();
    void byteOrderMark();
    void crlfLineEndings();
    void nonAsciiNames();
    void veryLongNames();
    void mapValuesOutsideTheDirectory();
    void fileVanishesBetweenMappingAndRequest();
    void directoryWhereAFileIsExpected();

private:
    QString write(const QString& name, const QByteArray& bytes);
    QString freshDirectory(const QString& name);

    // Each reader with state from earlier reads that a failure must not touch.
    void expectTemplateFailure(const QByteArray& document, const QString& message);
    void expectValidationFailure(const QByteArray& document, const QByteArray& message);
    void expectMapFailure(const QByteArray& document, const QString& message);
    void expectPoolFailure(const QByteArray& document, const QString& message);

    std::unique_ptr<QTemporaryDir> scratch;
};

void tst_HostileInput::init()
{
    scratch = std::make_unique<QTemporaryDir>();
    QVERIFY(scratch->isValid());
}

void tst_HostileInput::cleanup()
{
    scratch.reset();
}

QString tst_HostileInput::write(const QString& name, const QByteArray& bytes)
{
    const QString path = scratch->filePath(name);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(path));
    return path;
}

QString tst_HostileInput::freshDirectory(const QString& name)
{
    QDir(scratch->path()).mkpath(name);
    return scratch->filePath(name);
}

void tst_HostileInput::expectTemplateFailure(const QByteArray& document, const QString& message)
{
    const QString path = write(QStringLiteral("hostile.tcmd"), document);
    QList<Template*> templates{new Template("kept")};
    OutputCapture capture;
    QVERIFY(!TemplateTools().loadTemplate(path, templates));
    QCOMPARE(capture.debugOutput(), QStringList{message});
    QVERIFY(!templates.isEmpty());
    QCOMPARE(QByteArray(templates.first()->name()), QByteArray("kept"));
    qDeleteAll(templates);
}

void tst_HostileInput::expectValidationFailure(const QByteArray& document,
                                               const QByteArray& message)
{
    const QString path = write(QStringLiteral("hostile.tcmd"), document);
    OutputCapture capture;
    QVERIFY(!TemplateTools().validateTemplate(path));
    QCOMPARE(capture.standardOutput(), message + '\n');
}

void tst_HostileInput::expectMapFailure(const QByteArray& document, const QString& message)
{
    const QString path = write(QStringLiteral(".map"), document);
    QHash<QString, QString> map{{QStringLiteral("kept"), QStringLiteral("/kept.tcmd")}};
    OutputCapture capture;
    QVERIFY(!TemplateTools().loadMap(path, map));
    QCOMPARE(capture.debugOutput(), QStringList{message});
    QCOMPARE(map.value(QStringLiteral("kept")), QStringLiteral("/kept.tcmd"));
}

void tst_HostileInput::expectPoolFailure(const QByteArray& document, const QString& message)
{
    ActionPool pool;
    QVERIFY(pool.load(write(QStringLiteral("kept.xcui"), uiFile("ID_KEPT", "kept"))));
    const QString path = write(QStringLiteral("hostile.xcui"), document);
    OutputCapture capture;
    QVERIFY(!pool.load(path));
    QCOMPARE(capture.debugOutput().size(), 1);
    QCOMPARE(capture.debugOutput().first().trimmed(), message);
    QVERIFY(pool.action(QStringLiteral("ID_KEPT")));
    QCOMPARE(pool.action(QStringLiteral("ID_KEPT"))->script(), QStringLiteral("kept"));
}

void tst_HostileInput::entityExpansionBomb()
{
    const QByteArray tcmd = templateFile("bomb", "&e9;", entityBombProlog("templates"));
    const ReaderError tcmdError = readerErrorOf(tcmd);
    QVERIFY2(tcmdError.text.contains(QLatin1String("expansion limit")), qPrintable(tcmdError.text));
    expectTemplateFailure(tcmd, loadMessage(QStringLiteral("hostile.tcmd"), tcmdError));
    expectValidationFailure(tcmd, loadMessage(QStringLiteral("hostile.tcmd"), tcmdError).toUtf8());

    const QByteArray map = mapFile("&e9;", "bomb.tcmd", entityBombProlog("maps"));
    expectMapFailure(map, loadMessage(QStringLiteral(".map"), readerErrorOf(map)));

    const QByteArray ui = uiFile("ID_BOMB", "&e9;", entityBombProlog("Actions"));
    expectPoolFailure(ui, poolMessage(QStringLiteral("hostile.xcui"), readerErrorOf(ui)));

    // The line scan does not expand anything: the file simply declares "bomb".
    const QString directory = freshDirectory(QStringLiteral("scan"));
    QVERIFY(QFile::copy(write(QStringLiteral("bomb.tcmd"), tcmd), directory + "/other.tcmd"));
    QHash<QString, QString> names;
    QVERIFY(TemplateTools().buildMap(directory, names));
    QCOMPARE(names.keys(), QStringList{QStringLiteral("bomb")});
}

void tst_HostileInput::hugeFiles()
{
    // 50 MB of comment lines around one small definition each.
    QByteArray padding = "<!--\n";
    const QByteArray line(79, 'x');
    while (padding.size() < hugeSize)
        padding += line + '\n';
    padding += "-->\n";

    const QString tcmd = write(QStringLiteral("huge.tcmd"), templateFile("big", "x", padding));
    QList<Template*> templates;
    QVERIFY(TemplateTools().loadTemplate(tcmd, templates));
    QCOMPARE(templates.size(), 1);
    QCOMPARE(QByteArray(templates.first()->name()), QByteArray("big"));
    qDeleteAll(templates);
    QVERIFY(TemplateTools().validateTemplate(tcmd));

    const QString directory = freshDirectory(QStringLiteral("scan"));
    QVERIFY(QFile::rename(tcmd, directory + "/huge.tcmd"));
    QHash<QString, QString> names;
    QVERIFY(TemplateTools().buildMap(directory, names));
    QCOMPARE(names, (QHash<QString, QString>{{QStringLiteral("big"), directory + "/huge.tcmd"}}));
    QFile::remove(directory + "/huge.tcmd");

    const QString map = write(QStringLiteral(".map"), mapFile("big", "huge.tcmd", padding));
    names.clear();
    QVERIFY(TemplateTools().loadMap(map, names));
    QCOMPARE(names.value(QStringLiteral("big")), scratch->filePath(QStringLiteral("huge.tcmd")));
    QFile::remove(map);

    ActionPool pool;
    QVERIFY(pool.load(write(QStringLiteral("huge.xcui"), uiFile("ID_BIG", "big", padding))));
    QVERIFY(pool.action(QStringLiteral("ID_BIG")));
}

void tst_HostileInput::deepNesting()
{
    QByteArray open;
    QByteArray close;
    for (int depth = 0; depth < nestingDepth; ++depth) {
        open += "<x>";
        close += "</x>";
    }
    const QByteArray nested = open + close;

    // Template readers refuse the first unknown element; the depth is never walked.
    const QByteArray tcmd = "<templates><template name=\"deep\">" + nested + "</template></templates>";
    const QString tcmdError = QStringLiteral(
        "An error has occurred while loading hostile.tcmd at line 1, column 36: Unexpected element: x");
    expectTemplateFailure(tcmd, tcmdError);
    expectValidationFailure(tcmd, tcmdError.toUtf8());

    // The content of a map entry is passed over up to its first end element.
    const QString map = write(QStringLiteral(".map"),
                              "<maps><map key=\"deep\" value=\"deep.tcmd\">" + nested + "</map></maps>");
    QHash<QString, QString> names;
    QVERIFY(TemplateTools().loadMap(map, names));
    QCOMPARE(names.value(QStringLiteral("deep")), scratch->filePath(QStringLiteral("deep.tcmd")));

    // Unknown elements inside an action are skipped with all their content.
    ActionPool pool;
    QVERIFY(pool.load(write(QStringLiteral("deep.xcui"),
                            "<Actions><Action name=\"ID_DEEP\" type=\"command\">" + nested
                                + "<Script>deep</Script></Action></Actions>")));
    QVERIFY(pool.action(QStringLiteral("ID_DEEP")));
    QCOMPARE(pool.action(QStringLiteral("ID_DEEP"))->script(), QStringLiteral("deep"));

    const QString directory = freshDirectory(QStringLiteral("scan"));
    QVERIFY(QFile::copy(write(QStringLiteral("deep.tcmd"), "<templates>\n<template name=\"deep\">"
                                  + nested + "</template></templates>\n"),
                        directory + "/nest.tcmd"));
    names.clear();
    QVERIFY(TemplateTools().buildMap(directory, names));
    QCOMPARE(names.keys(), QStringList{QStringLiteral("deep")});
}

void tst_HostileInput::invalidUtf8_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("invalid UTF-8") << QByteArray("bad\xff\xfe\xc3(text");
    QTest::newRow("NUL byte") << QByteArray("bad\0text", 8);
}

void tst_HostileInput::invalidUtf8()
{
    QFETCH(QByteArray, bytes);
    const QByteArray tcmd = templateFile("odd", bytes);
    const ReaderError tcmdError = readerErrorOf(tcmd);
    QVERIFY(!tcmdError.text.isEmpty());
    expectTemplateFailure(tcmd, loadMessage(QStringLiteral("hostile.tcmd"), tcmdError));
    expectValidationFailure(tcmd, loadMessage(QStringLiteral("hostile.tcmd"), tcmdError).toUtf8());

    const QByteArray map = mapFile(bytes, "odd.tcmd");
    expectMapFailure(map, loadMessage(QStringLiteral(".map"), readerErrorOf(map)));

    const QByteArray ui = uiFile("ID_ODD", bytes);
    expectPoolFailure(ui, poolMessage(QStringLiteral("hostile.xcui"), readerErrorOf(ui)));

    // The line scan takes the name bytes as they are (converted as UTF-8).
    const QString directory = freshDirectory(QStringLiteral("scan"));
    QVERIFY(QFile::copy(write(QStringLiteral("odd.tcmd"), templateFile(bytes, "x")),
                        directory + "/odd.tcmd"));
    QHash<QString, QString> names;
    QVERIFY(TemplateTools().buildMap(directory, names));
    QCOMPARE(names.keys(), QStringList{QString::fromUtf8(bytes.constData(), bytes.size())});
}

void tst_HostileInput::byteOrderMark()
{
    const QByteArray bom = "\xef\xbb\xbf";
    QList<Template*> templates;
    const QString tcmd = write(QStringLiteral("marked.tcmd"), bom + templateFile("marked", "x"));
    QVERIFY(TemplateTools().loadTemplate(tcmd, templates));
    QCOMPARE(templates.size(), 1);
    QCOMPARE(QByteArray(templates.first()->name()), QByteArray("marked"));
    qDeleteAll(templates);
    QVERIFY(TemplateTools().validateTemplate(tcmd));

    const QString directory = freshDirectory(QStringLiteral("scan"));
    QVERIFY(QFile::copy(tcmd, directory + "/other.tcmd"));
    QHash<QString, QString> names;
    QVERIFY(TemplateTools().buildMap(directory, names));
    QCOMPARE(names.keys(), QStringList{QStringLiteral("marked")});

    names.clear();
    QVERIFY(TemplateTools().loadMap(write(QStringLiteral(".map"), bom + mapFile("m", "m.tcmd")), names));
    QCOMPARE(names.keys(), QStringList{QStringLiteral("m")});

    ActionPool pool;
    QVERIFY(pool.load(write(QStringLiteral("marked.xcui"), bom + uiFile("ID_MARKED", "marked"))));
    QVERIFY(pool.action(QStringLiteral("ID_MARKED")));
}

void tst_HostileInput::crlfLineEndings()
{
    auto crlf = [](QByteArray text) { return text.replace("\n", "\r\n"); };
    const QByteArray two = "<templates>\n<template name=\"first\">\n<property name=\"echo\">a</property>\n"
                           "</template>\n  <template name=\"second\">\n</template>\n</templates>\n";
    const QString directory = freshDirectory(QStringLiteral("scan"));
    const QString tcmd = directory + "/both.tcmd";
    QFile file(tcmd);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(crlf(two));
    file.close();

    QHash<QString, QString> names;
    QVERIFY(TemplateTools().buildMap(directory, names));
    QCOMPARE(names, (QHash<QString, QString>{{QStringLiteral("first"), tcmd},
                                              {QStringLiteral("second"), tcmd}}));

    QList<Template*> templates;
    QVERIFY(TemplateTools().loadTemplate(tcmd, templates));
    QCOMPARE(templates.size(), 2);
    QCOMPARE(QByteArray(templates.first()->textProperty("echo")), QByteArray("a"));
    qDeleteAll(templates);
    QVERIFY(TemplateTools().validateTemplate(tcmd));

    names.clear();
    QVERIFY(TemplateTools().loadMap(write(QStringLiteral(".map"), crlf(mapFile("m", "m.tcmd"))), names));
    QCOMPARE(names.keys(), QStringList{QStringLiteral("m")});

    ActionPool pool;
    QVERIFY(pool.load(write(QStringLiteral("crlf.xcui"), crlf(uiFile("ID_CRLF", "crlf")))));
    QCOMPARE(pool.action(QStringLiteral("ID_CRLF"))->script(), QStringLiteral("crlf"));
}

void tst_HostileInput::nonAsciiNames()
{
    const QString circle = QStringLiteral("Kreis_\u00e4\u5186");
    const QByteArray utf8 = circle.toUtf8();
    const QString directory = freshDirectory(QStringLiteral("catalogue"));
    QFile file(directory + "/shapes.tcmd");
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(templateFile(utf8, "\xe2\x9c\x93"));
    file.close();

    QHash<QString, QString> names;
    QVERIFY(TemplateTools().buildMap(directory, names));
    QCOMPARE(names.keys(), QStringList{circle});
    QVERIFY(TemplateTools().saveMap(TemplateTools::mapFile(directory), names));

    TemplatePool pool;
    QVERIFY(pool.appendDirectory(directory));
    QVERIFY(pool.load());
    Template* found = pool.getTemplate(circle);
    QVERIFY(found);
    QCOMPARE(QByteArray(found->name()), utf8);
    QCOMPARE(QByteArray(found->textProperty("echo")), QByteArray("\xe2\x9c\x93"));

    const QString actionName = QStringLiteral("ID_\u00c4NDERN_\u5186");
    ActionPool actions;
    QVERIFY(actions.load(write(QStringLiteral("names.xcui"), uiFile(actionName.toUtf8(), "\xc3\xa4"))));
    QVERIFY(actions.action(actionName));
    QCOMPARE(actions.action(actionName)->script(), QStringLiteral("\u00e4"));
}

void tst_HostileInput::veryLongNames()
{
    const QByteArray name(longName, 'n');
    const QString directory = freshDirectory(QStringLiteral("scan"));
    QFile file(directory + "/long.tcmd");
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(templateFile(name, "x"));
    file.close();

    QList<Template*> templates;
    QVERIFY(TemplateTools().loadTemplate(directory + "/long.tcmd", templates));
    QCOMPARE(templates.size(), 1);
    QCOMPARE(QByteArray(templates.first()->name()), name);
    qDeleteAll(templates);

    QHash<QString, QString> names;
    QVERIFY(TemplateTools().buildMap(directory, names));
    QCOMPARE(names.keys(), QStringList{QString::fromLatin1(name)});
    const QString map = TemplateTools::mapFile(directory);
    QVERIFY(TemplateTools().saveMap(map, names));
    QHash<QString, QString> reread;
    QVERIFY(TemplateTools().loadMap(map, reread));
    QCOMPARE(reread, names);

    const QString actionName = QStringLiteral("ID_") + QString::fromLatin1(name);
    ActionPool pool;
    QVERIFY(pool.load(write(QStringLiteral("long.xcui"), uiFile(actionName.toLatin1(), name))));
    QVERIFY(pool.action(actionName));
    QVERIFY(pool.action(QString::fromLatin1(name.right(10))));   // found by the script's end
}

void tst_HostileInput::mapValuesOutsideTheDirectory()
{
    const QString directory = freshDirectory(QStringLiteral("catalogue"));
    QFile file(directory + "/.map");
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("<maps>\n<map key=\"up\" value=\"../outside.tcmd\"/>\n"
               "<map key=\"abs\" value=\"/etc/hostname\"/>\n"
               "<map key=\"sub\" value=\"deeper/inside.tcmd\"/>\n</maps>\n");
    file.close();

    QHash<QString, QString> names;
    QVERIFY(TemplateTools().loadMap(directory + "/.map", names));
    QCOMPARE(QDir::cleanPath(names.value(QStringLiteral("up"))), scratch->filePath("outside.tcmd"));
    QCOMPARE(names.value(QStringLiteral("abs")), QStringLiteral("/etc/hostname"));
    QCOMPARE(names.value(QStringLiteral("sub")), directory + "/deeper/inside.tcmd");

    // The pool follows the map: a file outside that is no template file gives no template.
    write(QStringLiteral("outside.tcmd"), templateFile("up", "outside"));
    TemplatePool pool;
    QVERIFY(pool.appendDirectory(directory));
    QVERIFY(pool.load());
    QVERIFY(pool.getTemplate(QStringLiteral("up")));
    QCOMPARE(QByteArray(pool.getTemplate(QStringLiteral("up"))->textProperty("echo")),
             QByteArray("outside"));
    OutputCapture capture;
    QVERIFY(!pool.getTemplate(QStringLiteral("sub")));
    QVERIFY(pool.getTemplate(QStringLiteral("up")));   // still there
    QCOMPARE(capture.debugOutput().size(), 1);
    QVERIFY(capture.debugOutput().first().startsWith(QStringLiteral("Can not read file ")));
}

void tst_HostileInput::fileVanishesBetweenMappingAndRequest()
{
    const QString directory = freshDirectory(QStringLiteral("catalogue"));
    QFile kept(directory + "/kept.tcmd");
    QVERIFY(kept.open(QIODevice::WriteOnly));
    kept.write(templateFile("kept", "kept"));
    kept.close();
    QFile pair(directory + "/pair.tcmd");   // two templates: both are mapped to the file
    QVERIFY(pair.open(QIODevice::WriteOnly));
    pair.write("<templates>\n<template name=\"gone\">\n</template>\n"
               "<template name=\"also\">\n</template>\n</templates>\n");
    pair.close();

    TemplatePool pool;
    QVERIFY(pool.appendDirectory(directory));
    QVERIFY(pool.load());
    Template* loaded = pool.getTemplate(QStringLiteral("kept"));
    QVERIFY(loaded);
    QVERIFY(QFile::remove(directory + "/pair.tcmd"));

    OutputCapture capture;
    QVERIFY(!pool.getTemplate(QStringLiteral("gone")));
    QCOMPARE(capture.debugOutput().size(), 1);
    QVERIFY2(capture.debugOutput().first().startsWith(QStringLiteral("Can not read file ")),
             qPrintable(capture.debugOutput().first()));
    QCOMPARE(pool.getTemplate(QStringLiteral("kept")), loaded);
    QCOMPARE(QByteArray(loaded->textProperty("echo")), QByteArray("kept"));
}

void tst_HostileInput::directoryWhereAFileIsExpected()
{
    const QString directory = freshDirectory(QStringLiteral("catalogue"));
    QDir(directory).mkdir(QStringLiteral("folder.tcmd"));
    QDir(directory).mkdir(QStringLiteral(".map"));
    const QString folder = directory + "/folder.tcmd";

    QList<Template*> templates{new Template("kept")};
    {
        OutputCapture capture;
        QVERIFY(!TemplateTools().loadTemplate(folder, templates));
        QCOMPARE(capture.debugOutput().size(), 1);
        QVERIFY(capture.debugOutput().first().startsWith(QStringLiteral("Can not read file ")));
    }
    QCOMPARE(templates.size(), 1);
    qDeleteAll(templates);
    {
        OutputCapture capture;
        QVERIFY(!TemplateTools().validateTemplate(folder));
        const QByteArray printed = capture.standardOutput();
        QVERIFY2(printed.startsWith("Can not read file " + folder.toUtf8() + ": "), printed.constData());
        QCOMPARE(printed.count('\n'), 1);
    }
    QHash<QString, QString> names{{QStringLiteral("kept"), QStringLiteral("/kept.tcmd")}};
    {
        OutputCapture capture;
        QVERIFY(!TemplateTools().loadMap(directory + "/.map", names));
        QCOMPARE(capture.debugOutput().size(), 1);
        QVERIFY(capture.debugOutput().first().startsWith(QStringLiteral("Can not read file .map: ")));
    }
    // The scan lists files only: the folder is passed over.
    QVERIFY(TemplateTools().buildMap(directory, names));
    QCOMPARE(names.keys(), QStringList{QStringLiteral("kept")});

    ActionPool pool;
    QVERIFY(pool.load(write(QStringLiteral("kept.xcui"), uiFile("ID_KEPT", "kept"))));
    QDir(directory).mkdir(QStringLiteral("folder.xcui"));
    QVERIFY(!pool.load(directory + "/folder.xcui"));
    QCOMPARE(pool.actions().size(), 1);
    std::unique_ptr<ActionPool> folderPool(ActionPool::fromFolder(directory));
    QVERIFY(folderPool->actions().isEmpty());
}

QTEST_MAIN(tst_HostileInput)
#include "tst_hostileinput.moc"
