#include <CommandSystem/TemplateTools.h>

#include "OutputCapture.h"
#include "TemplateFiles.h"

#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

using namespace Talvir::Vexa::Cs;

namespace {

typedef QHash<QString, QString> Map;

// Makes path a .tcmd entry that lists as a file but cannot be opened for reading. Without
// privileges a mode of 000 is enough; a privileged user can read anything, so then a write-only
// kernel attribute stands in. Empty when neither works here.
QString makeUnreadable(const QString& path)
{
    if (writeFile(path, templatesDocument(templateElement("unreadable")))) {
        QFile::setPermissions(path, QFileDevice::Permissions());
        QFile probe(path);
        if (!probe.open(QIODevice::ReadOnly))
            return probe.errorString();
        QFile::remove(path);
    }
    const QString writeOnly = QStringLiteral("/sys/bus/pci/rescan");
    QFile probe(writeOnly);
    if (QFileInfo(writeOnly).isFile() && !probe.open(QIODevice::ReadOnly)
        && QFile::link(writeOnly, path))
        return probe.errorString();
    return QString();
}

} // namespace

class tst_TemplateToolsMap : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void mapFileOfFileOrMissingPathIsEmpty();
    void mapFileOfDirectory();
    void singleTemplateNamedAfterFileGetsNoEntry();
    void fileWithSeveralTemplates();
    void baseNameComparisonIsCaseSensitive();
    void laterFileInCaseInsensitiveOrderWins();
    void nameRepeatedInOneFileWarnsWithOwnPath();
    void declarationLines_data();
    void declarationLines();
    void onlyTemplateFilesOfTheDirectory();
    void nonAsciiNames();
    void existingEntriesAreKept();
    void unreadableFileStopsMapping();
    void saveMapWritesSortedFileNames();
    void saveMapOfEmptyMap();
    void saveMapReplacesExistingFile();
    void saveMapFailure_data();
    void saveMapFailure();
    void saveThenLoadGivesSameMap();
    void loadMapResolvesValuesInItsDirectory();
    void loadMapStopsSilentlyAtIncompleteEntry_data();
    void loadMapStopsSilentlyAtIncompleteEntry();
    void loadMapErrors_data();
    void loadMapErrors();
    void loadMapUnreadableFile();
    void loadMapReplacesExistingKeys();

private:
    QString path(const QString& name) const { return directory->filePath(name); }
    bool write(const QString& name, const QByteArray& content)
    {
        return writeFile(path(name), content);
    }
    Map loadMapText(const QByteArray& content, bool* result, QStringList* debug = nullptr);

    QTemporaryDir* directory = nullptr;
    TemplateTools tools;
};

void tst_TemplateToolsMap::init()
{
    directory = new QTemporaryDir;
    QVERIFY(directory->isValid());
}

void tst_TemplateToolsMap::cleanup()
{
    delete directory;
}

void tst_TemplateToolsMap::mapFileOfFileOrMissingPathIsEmpty()
{
    QVERIFY(write(QStringLiteral("circle.tcmd"), templatesDocument(templateElement("circle"))));
    QCOMPARE(TemplateTools::mapFile(path(QStringLiteral("circle.tcmd"))), QString());
    QVERIFY(!TemplateTools::isMapExist(path(QStringLiteral("circle.tcmd"))));
    QCOMPARE(TemplateTools::mapFile(path(QStringLiteral("missing"))), QString());
    QVERIFY(!TemplateTools::isMapExist(path(QStringLiteral("missing"))));
    QCOMPARE(TemplateTools::mapFile(QString()), QString());
}

void tst_TemplateToolsMap::mapFileOfDirectory()
{
    const QString expected = QDir(directory->path()).absoluteFilePath(QStringLiteral(".map"));
    QCOMPARE(TemplateTools::mapFile(directory->path()), expected);
    QVERIFY(!TemplateTools::isMapExist(directory->path()));
    QVERIFY(write(QStringLiteral(".map"), "<maps/>"));
    QVERIFY(TemplateTools::isMapExist(directory->path()));
    // A relative path gives the absolute map file path.
    const QString current = QDir::currentPath();
    QVERIFY(QDir::setCurrent(QFileInfo(directory->path()).absolutePath()));
    const QString relative = QFileInfo(directory->path()).fileName();
    const QString mapFile = TemplateTools::mapFile(relative);
    QDir::setCurrent(current);
    QCOMPARE(mapFile, expected);
}

void tst_TemplateToolsMap::singleTemplateNamedAfterFileGetsNoEntry()
{
    QVERIFY(write(QStringLiteral("circle.tcmd"), templatesDocument(templateElement("circle"))));
    Map map;
    OutputCapture capture;
    QVERIFY(tools.buildMap(directory->path(), map));
    QVERIFY(map.isEmpty());
    QCOMPARE(capture.standardOutput(), QByteArray());
    QCOMPARE(capture.debugOutput(), QStringList());
}

void tst_TemplateToolsMap::fileWithSeveralTemplates()
{
    QVERIFY(write(QStringLiteral("circle.tcmd"),
                  templatesDocument(templateElement("circle") + templateElement("arc"))));
    Map map;
    QVERIFY(tools.buildMap(directory->path(), map));
    const QString file = QFileInfo(path(QStringLiteral("circle.tcmd"))).absoluteFilePath();
    QCOMPARE(map, (Map{{QStringLiteral("circle"), file}, {QStringLiteral("arc"), file}}));
}

void tst_TemplateToolsMap::baseNameComparisonIsCaseSensitive()
{
    QVERIFY(write(QStringLiteral("Circle.tcmd"), templatesDocument(templateElement("circle"))));
    QVERIFY(write(QStringLiteral("line.v2.tcmd"), templatesDocument(templateElement("line.v2"))));
    Map map;
    QVERIFY(tools.buildMap(directory->path(), map));
    QCOMPARE(map, (Map{{QStringLiteral("circle"),
                        QFileInfo(path(QStringLiteral("Circle.tcmd"))).absoluteFilePath()}}));
}

void tst_TemplateToolsMap::laterFileInCaseInsensitiveOrderWins()
{
    // Case-insensitive order is a.tcmd, B.tcmd; a case-sensitive one would be the reverse.
    QVERIFY(write(QStringLiteral("B.tcmd"), templatesDocument(templateElement("x"))));
    QVERIFY(write(QStringLiteral("a.tcmd"), templatesDocument(templateElement("x"))));
    const QString first = QFileInfo(path(QStringLiteral("a.tcmd"))).absoluteFilePath();
    const QString later = QFileInfo(path(QStringLiteral("B.tcmd"))).absoluteFilePath();
    Map map;
    OutputCapture capture;
    QVERIFY(tools.buildMap(directory->path(), map));
    QCOMPARE(map, (Map{{QStringLiteral("x"), later}}));
    QCOMPARE(QString::fromUtf8(capture.standardOutput()),
             QStringLiteral("There is a same template name in %1\n").arg(first));
    QCOMPARE(capture.debugOutput(), QStringList());
}

void tst_TemplateToolsMap::nameRepeatedInOneFileWarnsWithOwnPath()
{
    QVERIFY(write(QStringLiteral("shapes.tcmd"),
                  templatesDocument(templateElement("a") + templateElement("a"))));
    const QString file = QFileInfo(path(QStringLiteral("shapes.tcmd"))).absoluteFilePath();
    Map map;
    OutputCapture capture;
    QVERIFY(tools.buildMap(directory->path(), map));
    QCOMPARE(map, (Map{{QStringLiteral("a"), file}}));
    QCOMPARE(QString::fromUtf8(capture.standardOutput()),
             QStringLiteral("There is a same template name in %1\n").arg(file));
}

void tst_TemplateToolsMap::declarationLines_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QByteArray>("output");

    const QByteArray after = "<template name=\"after\">\n";
    QTest::newRow("tag without blank is no declaration")
        << QByteArray("<templates>\n<template>\n<template name=\"a\">\n") << QStringList{"a"}
        << QByteArray();
    QTest::newRow("first quoted value names the template")
        << QByteArray("<template id=\"7\" name=\"a\">\n") << QStringList{"7"} << QByteArray();
    QTest::newRow("indented, CRLF line ends")
        << QByteArray("<templates>\r\n\t  <template name=\"a\">\r\n  <template  name=\"b\" >\r\n")
        << QStringList{"a", "b"} << QByteArray();
    QTest::newRow("tag not at line start")
        << QByteArray("<templates><template name=\"a\">\n") << QStringList() << QByteArray();
    QTest::newRow("no quote at all")
        << "<template name=x>\n" + after << QStringList{"<template name=x>"}
        << QByteArray("template name is not defined\ntemplate name is not defined\n");
    QTest::newRow("unterminated name")
        << "  <template name=\"abc  \n" + after << QStringList{"abc"}
        << QByteArray("template name is not defined\n");
    QTest::newRow("empty name")
        << "<template name=\"\">\n" + after << QStringList{""}
        << QByteArray("template name is empty\n");
    QTest::newRow("quote ends the line")
        << "<template name=\"\n" + after << QStringList{""}
        << QByteArray("template name is not defined\ntemplate name is empty\n");
    QTest::newRow("lines before the problem count")
        << "<template name=\"a\">\n<template name=\"\">\n" + after << QStringList{"a", ""}
        << QByteArray("template name is empty\n");
    QTest::newRow("no line end at end of file")
        << QByteArray("<template name=\"a\">") << QStringList{"a"} << QByteArray();
}

// The map gets an entry per collected name; the file is named so that no name matches it.
void tst_TemplateToolsMap::declarationLines()
{
    QFETCH(QByteArray, content);
    QFETCH(QStringList, names);
    QFETCH(QByteArray, output);
    QVERIFY(write(QStringLiteral("lines.tcmd"), content));
    const QString file = QFileInfo(path(QStringLiteral("lines.tcmd"))).absoluteFilePath();
    Map expected;
    for (const QString& name : names)
        expected.insert(name, file);
    Map map;
    OutputCapture capture;
    QVERIFY(tools.buildMap(directory->path(), map));
    QCOMPARE(map, expected);
    QCOMPARE(capture.standardOutput(), output);
    QCOMPARE(capture.debugOutput(), QStringList());
}

void tst_TemplateToolsMap::onlyTemplateFilesOfTheDirectory()
{
    QVERIFY(write(QStringLiteral("notes.txt"), templatesDocument(templateElement("txt"))));
    QVERIFY(write(QStringLiteral("sub/deep.tcmd"), templatesDocument(templateElement("deep"))));
    QVERIFY(QDir(directory->path()).mkdir(QStringLiteral("folder.tcmd")));
    QVERIFY(write(QStringLiteral("shapes.tcmd"), templatesDocument(templateElement("circle"))));
    Map map;
    QVERIFY(tools.buildMap(directory->path(), map));
    QCOMPARE(map.keys(), QStringList{QStringLiteral("circle")});
}

void tst_TemplateToolsMap::nonAsciiNames()
{
    QVERIFY(write(QString::fromUtf8("größe.tcmd"), templatesDocument(templateElement("größe"))));
    QVERIFY(write(QStringLiteral("solids.tcmd"), templatesDocument(templateElement("Würfel"))));
    Map map;
    QVERIFY(tools.buildMap(directory->path(), map));
    QCOMPARE(map, (Map{{QString::fromUtf8("Würfel"),
                        QFileInfo(path(QStringLiteral("solids.tcmd"))).absoluteFilePath()}}));
}

void tst_TemplateToolsMap::existingEntriesAreKept()
{
    QVERIFY(write(QStringLiteral("shapes.tcmd"),
                  templatesDocument(templateElement("circle") + templateElement("arc"))));
    const QString file = QFileInfo(path(QStringLiteral("shapes.tcmd"))).absoluteFilePath();
    Map map{{QStringLiteral("line"), QStringLiteral("/elsewhere/line.tcmd")},
            {QStringLiteral("arc"), QStringLiteral("/elsewhere/arcs.tcmd")}};
    OutputCapture capture;
    QVERIFY(tools.buildMap(directory->path(), map));
    QCOMPARE(map, (Map{{QStringLiteral("line"), QStringLiteral("/elsewhere/line.tcmd")},
                       {QStringLiteral("arc"), file},
                       {QStringLiteral("circle"), file}}));
    QCOMPARE(capture.standardOutput(),
             QByteArray("There is a same template name in /elsewhere/arcs.tcmd\n"));
}

void tst_TemplateToolsMap::unreadableFileStopsMapping()
{
    QVERIFY(write(QStringLiteral("a.tcmd"), templatesDocument(templateElement("x"))));
    QVERIFY(write(QStringLiteral("c.tcmd"), templatesDocument(templateElement("y"))));
    const QString error = makeUnreadable(path(QStringLiteral("b.tcmd")));
    if (error.isEmpty())
        QSKIP("No way to make an unreadable file here");
    Map map;
    OutputCapture capture;
    QVERIFY(!tools.buildMap(directory->path(), map));
    QCOMPARE(QString::fromUtf8(capture.standardOutput()),
             QStringLiteral("Can not read file b.tcmd: %1\n").arg(error));
    QCOMPARE(capture.debugOutput(), QStringList());
    QCOMPARE(map.keys(), QStringList{QStringLiteral("x")});
}

void tst_TemplateToolsMap::saveMapWritesSortedFileNames()
{
    const Map map{{QStringLiteral("a"), QStringLiteral("/x/y/a.tcmd")},
                  {QStringLiteral("B"), path(QStringLiteral("b.tcmd"))},
                  {QString::fromUtf8("Würfel"), QStringLiteral("solids.tcmd")},
                  {QStringLiteral("a b"), QStringLiteral("/x/a&b.tcmd")}};
    const QString mapFile = path(QStringLiteral(".map"));
    OutputCapture capture;
    QVERIFY(tools.saveMap(mapFile, map));
    QCOMPARE(capture.standardOutput(), QByteArray());
    QFile file(mapFile);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(QString::fromUtf8(file.readAll()), QString::fromUtf8(
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<maps name=\"Vexa\" version=\"Kestrel 10.25\">\n"
        "    <map key=\"B\" value=\"b.tcmd\"/>\n"
        "    <map key=\"Würfel\" value=\"solids.tcmd\"/>\n"
        "    <map key=\"a\" value=\"a.tcmd\"/>\n"
        "    <map key=\"a b\" value=\"a&amp;b.tcmd\"/>\n"
        "</maps>\n"));
}

void tst_TemplateToolsMap::saveMapOfEmptyMap()
{
    const QString mapFile = path(QStringLiteral(".map"));
    QVERIFY(tools.saveMap(mapFile, Map()));
    Map loaded{{QStringLiteral("kept"), QStringLiteral("/k.tcmd")}};
    QVERIFY(tools.loadMap(mapFile, loaded));
    QCOMPARE(loaded.size(), 1);
}

void tst_TemplateToolsMap::saveMapReplacesExistingFile()
{
    const QString mapFile = path(QStringLiteral(".map"));
    QVERIFY(write(QStringLiteral(".map"), QByteArray(4096, 'x')));
    QVERIFY(tools.saveMap(mapFile, Map{{QStringLiteral("a"), QStringLiteral("a.tcmd")}}));
    Map loaded;
    QVERIFY(tools.loadMap(mapFile, loaded));
    QCOMPARE(loaded.keys(), QStringList{QStringLiteral("a")});
}

void tst_TemplateToolsMap::saveMapFailure_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("fileName");
    QTest::newRow("missing directory") << "missing/.map" << ".map";
    QTest::newRow("target is a directory") << "folder.map" << "folder.map";
}

void tst_TemplateToolsMap::saveMapFailure()
{
    QFETCH(QString, target);
    QFETCH(QString, fileName);
    QVERIFY(QDir(directory->path()).mkdir(QStringLiteral("folder.map")));
    OutputCapture capture;
    QVERIFY(!tools.saveMap(path(target), Map{{QStringLiteral("a"), QStringLiteral("a.tcmd")}}));
    const QString output = QString::fromUtf8(capture.standardOutput());
    QVERIFY2(QRegularExpression(QStringLiteral("^Can not write to file %1: .+\n$")
                                    .arg(QRegularExpression::escape(fileName)))
                 .match(output)
                 .hasMatch(),
             qPrintable(output));
    QCOMPARE(capture.debugOutput(), QStringList());
    QVERIFY(!QFileInfo(path(QStringLiteral("missing"))).exists());
}

void tst_TemplateToolsMap::saveThenLoadGivesSameMap()
{
    QVERIFY(write(QStringLiteral("shapes.tcmd"),
                  templatesDocument(templateElement("circle") + templateElement("arc"))));
    QVERIFY(write(QStringLiteral("Line.tcmd"), templatesDocument(templateElement("line"))));
    QVERIFY(write(QStringLiteral("solids.tcmd"), templatesDocument(templateElement("Würfel"))));
    Map built;
    QVERIFY(tools.buildMap(directory->path(), built));
    QCOMPARE(built.size(), 4);
    const QString mapFile = TemplateTools::mapFile(directory->path());
    QVERIFY(tools.saveMap(mapFile, built));
    QVERIFY(TemplateTools::isMapExist(directory->path()));
    Map loaded;
    OutputCapture capture;
    QVERIFY(tools.loadMap(mapFile, loaded));
    QCOMPARE(loaded, built);
    QCOMPARE(capture.standardOutput(), QByteArray());
    QCOMPARE(capture.debugOutput(), QStringList());
}

Map tst_TemplateToolsMap::loadMapText(const QByteArray& content, bool* result,
                                      QStringList* debug)
{
    Map map;
    if (!write(QStringLiteral(".map"), content))
        return map;
    OutputCapture capture;
    *result = tools.loadMap(path(QStringLiteral(".map")), map);
    if (debug)
        *debug = capture.debugOutput();
    if (!capture.standardOutput().isEmpty())
        *result = !*result;   // nothing of loadMap belongs on standard output
    return map;
}

void tst_TemplateToolsMap::loadMapResolvesValuesInItsDirectory()
{
    bool result = false;
    const Map map = loadMapText(
        "<?xml version=\"1.0\"?>\n<maps name=\"other\">\n"
        "  <!-- comment --><map key=\"a\" value=\"a.tcmd\">ignored</map>\n"
        "  <map value=\"/abs/b.tcmd\" key=\"b\"/>\n"
        "  <map key=\"c\" value=\"sub/c.tcmd\"/>\n</maps>\n",
        &result);
    QVERIFY(result);
    const QDir dir(directory->path());
    QCOMPARE(map, (Map{{QStringLiteral("a"), dir.absoluteFilePath(QStringLiteral("a.tcmd"))},
                       {QStringLiteral("b"), QStringLiteral("/abs/b.tcmd")},
                       {QStringLiteral("c"),
                        dir.absoluteFilePath(QStringLiteral("sub/c.tcmd"))}}));
}

void tst_TemplateToolsMap::loadMapStopsSilentlyAtIncompleteEntry_data()
{
    QTest::addColumn<QByteArray>("entry");
    QTest::newRow("no value") << QByteArray("<map key=\"b\"/>");
    QTest::newRow("no key") << QByteArray("<map value=\"b.tcmd\"/>");
    QTest::newRow("empty value") << QByteArray("<map key=\"b\" value=\"\"/>");
    QTest::newRow("no attributes") << QByteArray("<map/>");
}

void tst_TemplateToolsMap::loadMapStopsSilentlyAtIncompleteEntry()
{
    QFETCH(QByteArray, entry);
    bool result = false;
    QStringList debug;
    const Map map = loadMapText("<maps>\n<map key=\"a\" value=\"a.tcmd\"/>\n" + entry
                                    + "\n<map key=\"c\" value=\"c.tcmd\"/>\n<bad/>\n</maps>\n",
                                &result, &debug);
    QVERIFY(result);
    QCOMPARE(debug, QStringList());
    QCOMPARE(map.keys(), QStringList{QStringLiteral("a")});
}

void tst_TemplateToolsMap::loadMapErrors_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("error");
    QTest::addColumn<QStringList>("keys");

    QTest::newRow("root map") << QByteArray("<map key=\"a\" value=\"a.tcmd\"/>\n")
                              << "Unexpected element: map" << QStringList();
    QTest::newRow("child not map")
        << QByteArray("<maps>\n<map key=\"a\" value=\"a.tcmd\"/>\n<entry/>\n</maps>\n")
        << "Unexpected element entry" << QStringList{"a"};
    QTest::newRow("unknown attribute")
        << QByteArray("<maps>\n<map key=\"a\" value=\"a.tcmd\"/>\n"
                      "<map key=\"b\" file=\"b.tcmd\" value=\"b.tcmd\"/>\n</maps>\n")
        << "Unexpected attribute: file" << QStringList{"a"};
    QTest::newRow("malformed") << QByteArray("<maps>\n<map key=\"a\" value=\"a.tcmd\">\n</maps>\n")
                               << "Opening and ending tag mismatch." << QStringList();
}

// One summary line on the debug channel; entries read before the error stay.
void tst_TemplateToolsMap::loadMapErrors()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, error);
    QFETCH(QStringList, keys);
    bool result = true;
    QStringList debug;
    const Map map = loadMapText(content, &result, &debug);
    QVERIFY(!result);
    QCOMPARE(debug.size(), 1);
    const QRegularExpressionMatch match =
        QRegularExpression(QStringLiteral("^An error has occurred while loading \\.map at line "
                                          "\\d+, column \\d+: (.*)$"))
            .match(debug.first());
    QVERIFY2(match.hasMatch(), qPrintable(debug.first()));
    QCOMPARE(match.captured(1), error);
    QStringList loadedKeys = map.keys();
    loadedKeys.sort();
    QCOMPARE(loadedKeys, keys);
}

void tst_TemplateToolsMap::loadMapUnreadableFile()
{
    const QString mapFile = path(QStringLiteral(".map"));
    QFile missing(mapFile);
    QVERIFY(!missing.open(QIODevice::ReadOnly));
    Map map;
    OutputCapture capture;
    QVERIFY(!tools.loadMap(mapFile, map));
    QCOMPARE(capture.standardOutput(), QByteArray());
    QCOMPARE(capture.debugOutput(),
             QStringList(QStringLiteral("Can not read file .map: ") + missing.errorString()));
}

void tst_TemplateToolsMap::loadMapReplacesExistingKeys()
{
    bool result = false;
    Map map{{QStringLiteral("a"), QStringLiteral("/old/a.tcmd")},
            {QStringLiteral("z"), QStringLiteral("/old/z.tcmd")}};
    QVERIFY(write(QStringLiteral(".map"), "<maps><map key=\"a\" value=\"new.tcmd\"/></maps>"));
    result = tools.loadMap(path(QStringLiteral(".map")), map);
    QVERIFY(result);
    QCOMPARE(map, (Map{{QStringLiteral("a"),
                        QDir(directory->path()).absoluteFilePath(QStringLiteral("new.tcmd"))},
                       {QStringLiteral("z"), QStringLiteral("/old/z.tcmd")}}));
}

QTEST_GUILESS_MAIN(tst_TemplateToolsMap)
#include "tst_templatetools_map.moc"
