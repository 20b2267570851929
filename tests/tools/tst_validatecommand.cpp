#include "CsToolProcess.h"
#include "OutputCapture.h"

#include <CommandSystem/TemplatePool.h>
#include <CommandSystem/TemplateTools.h>

#include <QDirIterator>
#include <QImage>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QXmlStreamReader>
#include <QtTest>

using namespace Talvir::Vexa::Cs;

// cstool validate: every problem of template, UI definition and map files as
// "FILE:LINE:COLUMN: error|warning: message" on standard error, in agreement with the
// library's validator and with what the template pool finds.
class tst_ValidateCommand : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void findingsMatchBaseline_data();
    void findingsMatchBaseline();
    void findingsGoToStandardErrorWithThePathAsGiven();
    void verdictAgreesWithTheLibrary_data();
    void verdictAgreesWithTheLibrary();
    void libraryValidatorBlindSpots();
    void lineRuleAgreesWithThePool_data();
    void lineRuleAgreesWithThePool();
    void validSamplesPass();
    void schemaRefusedSamplesFail_data();
    void schemaRefusedSamplesFail();
    void writtenMapIsCurrent_data();
    void writtenMapIsCurrent();
    void staleMapEntriesAreNamed();
    void nameDefinedInTwoFiles();
    void iconsDefaultToTheFolderBesideTheFile();
    void iconsResolveThroughIconDirectories();
    void recursiveDescendsIntoSubdirectories();
    void warningsFailOnlyWithWerror();
    void usageErrors_data();
    void usageErrors();

private:
    QString write(const QString& name, const QByteArray& content);

    QTemporaryDir temp;
    QString icons;
    CsToolProcess allTemplates;
};

namespace {

QString samples(const char* kind)
{
    return QStringLiteral(CS_TEST_DATA_DIR "/schemas/") + QLatin1String(kind);
}

QString baselines()
{
    return QStringLiteral(CS_TEST_DATA_DIR "/validate");
}

// The findings about one file, in the order cstool printed them. Other lines on standard
// error (Qt's own warnings about the environment) are no findings.
QStringList findingsAbout(const CsToolProcess& tool, const QString& file)
{
    QStringList found;
    const QStringList lines = tool.err.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString& line : lines) {
        if (line.startsWith(file + QLatin1Char(':')))
            found.append(line);
    }
    return found;
}

bool isError(const QString& finding)
{
    static const QRegularExpression error(QStringLiteral("^.*:\\d+:\\d+: error: "));
    return error.match(finding).hasMatch();
}

bool hasError(const QStringList& findings)
{
    return std::any_of(findings.begin(), findings.end(), isError);
}

// What TemplateTools::validateTemplate sees of cstool's errors: it stops silently (and accepts
// the file) at an empty "string" item, and it does not ask whether the pool finds a template.
bool hasValidatorError(const QStringList& findings)
{
    for (const QString& finding : findings) {
        if (finding.contains(QLatin1String(": warning: empty <string> item")))
            return false;
        if (isError(finding) && !finding.contains(QLatin1String("cannot be found by the template pool")))
            return true;
    }
    return false;
}

QStringList filesIn(const QString& directory, const QStringList& patterns, bool recursive = false)
{
    QStringList files;
    QDirIterator it(directory, patterns, QDir::Files,
                    recursive ? QDirIterator::Subdirectories : QDirIterator::NoIteratorFlags);
    while (it.hasNext())
        files.append(it.next());
    files.sort();
    return files;
}

QStringList templateNames(const QString& file)
{
    QFile device(file);
    QStringList names;
    if (!device.open(QIODevice::ReadOnly))
        return names;
    QXmlStreamReader reader(&device);
    while (!reader.atEnd()) {
        if (reader.readNext() == QXmlStreamReader::StartElement && reader.name() == QLatin1String("template"))
            names.append(reader.attributes().value(QLatin1String("name")).toString());
    }
    return names;
}

QString notFound(const QString& name)
{
    return QStringLiteral("error: template \"%1\" cannot be found by the template pool").arg(name);
}

} // namespace

void tst_ValidateCommand::initTestCase()
{
    QVERIFY(temp.isValid());
    icons = temp.filePath(QStringLiteral("icons"));
    QVERIFY(QDir().mkpath(icons));
    QImage image(16, 16, QImage::Format_ARGB32);
    image.fill(Qt::darkBlue);
    QVERIFY(image.save(icons + QStringLiteral("/line.png")));
}

QString tst_ValidateCommand::write(const QString& name, const QByteArray& content)
{
    const QString path = temp.filePath(name);
    CsToolProcess::writeFile(path, content);
    return path;
}

// Each sample file beside the exact findings it must give, run from its directory so that the
// findings name it as given.
void tst_ValidateCommand::findingsMatchBaseline_data()
{
    QTest::addColumn<QString>("file");
    const QStringList files = QDir(baselines()).entryList({QStringLiteral("*.tcmd"), QStringLiteral("*.xcui")},
                                                          QDir::Files, QDir::Name);
    QVERIFY(files.size() >= 8);
    for (const QString& file : files)
        QTest::newRow(qPrintable(file)) << file;
}

void tst_ValidateCommand::findingsMatchBaseline()
{
    QFETCH(QString, file);
    const QByteArray expected = CsToolProcess::readFile(baselines() + QLatin1Char('/') + file + QStringLiteral(".expected"));
    QVERIFY(!expected.isEmpty());
    const QStringList expectedLines = QString::fromUtf8(expected).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    CsToolProcess tool;
    RUN_CSTOOL(tool, {QStringLiteral("validate"), file}, baselines());
    QCOMPARE(findingsAbout(tool, file), expectedLines);
    QCOMPARE(tool.exitCode, hasError(expectedLines) ? 1 : 0);
    const int errors = int(std::count_if(expectedLines.begin(), expectedLines.end(), isError));
    QCOMPARE(tool.outLines(), QStringList(QStringLiteral("1 file(s) checked: %1 error(s), %2 warning(s)")
                                              .arg(errors).arg(expectedLines.size() - errors)));
}

void tst_ValidateCommand::findingsGoToStandardErrorWithThePathAsGiven()
{
    const QString file = write(QStringLiteral("given/bad.tcmd"),
                               "<templates>\n<template name=\"bad\">\n"
                               "<property name=\"no_ftr\">true</property>\n</template>\n</templates>\n");
    const QString expected = QStringLiteral(
        ":3:25: error: property \"no_ftr\" has the value \"true\"; expected a decimal integer");
    CsToolProcess tool;
    RUN_CSTOOL(tool, {QStringLiteral("validate"), file});
    QCOMPARE(tool.exitCode, 1);
    QCOMPARE(findingsAbout(tool, file), QStringList(file + expected));
    QCOMPARE(tool.outLines(), QStringList(QStringLiteral("1 file(s) checked: 1 error(s), 0 warning(s)")));
    RUN_CSTOOL(tool, {QStringLiteral("validate"), QStringLiteral("given/bad.tcmd")}, temp.path());
    QCOMPARE(findingsAbout(tool, QStringLiteral("given/bad.tcmd")), QStringList(QStringLiteral("given/bad.tcmd") + expected));
    RUN_CSTOOL(tool, {QStringLiteral("validate"), QStringLiteral("./given")}, temp.path());
    QCOMPARE(findingsAbout(tool, QStringLiteral("./given/bad.tcmd")), QStringList(QStringLiteral("./given/bad.tcmd") + expected));
}

// Side by side over the example catalogue and every sample: the library's verdict and
// cstool's errors say the same of each file, apart from what the validator does not see.
void tst_ValidateCommand::verdictAgreesWithTheLibrary_data()
{
    QTest::addColumn<QString>("file");
    const QStringList files = filesIn(QStringLiteral(CS_EXAMPLES_DIR "/templates"), {QStringLiteral("*.tcmd")}, true)
        + filesIn(baselines(), {QStringLiteral("*.tcmd")}) + filesIn(samples("valid"), {QStringLiteral("*.tcmd")})
        + filesIn(samples("invalid"), {QStringLiteral("*.tcmd")});
    QVERIFY(files.size() >= 50);
    // Template files are checked each on its own, so one run serves every row.
    RUN_CSTOOL(allTemplates, QStringList(QStringLiteral("validate")) + files);
    for (const QString& file : files)
        QTest::newRow(qPrintable(QFileInfo(file).fileName())) << file;
}

void tst_ValidateCommand::verdictAgreesWithTheLibrary()
{
    QFETCH(QString, file);
    bool accepted = false;
    {
        OutputCapture capture;
        accepted = TemplateTools().validateTemplate(file);
    }
    const QStringList findings = findingsAbout(allTemplates, file);
    QVERIFY2(accepted != hasValidatorError(findings), qPrintable(findings.join(QLatin1Char('\n'))));
    if (hasError(findings))
        QCOMPARE(allTemplates.exitCode, 1);
}

// The two places where cstool's errors and the library's verdict part on purpose.
void tst_ValidateCommand::libraryValidatorBlindSpots()
{
    const QString oneLine = write(QStringLiteral("blind/shapes.tcmd"),
                                  "<templates><template name=\"circle\"/></templates>\n");
    const QString emptyItem = baselines() + QStringLiteral("/empty-dim-item.tcmd");
    for (const QString& file : {oneLine, emptyItem}) {
        OutputCapture capture;
        QVERIFY2(TemplateTools().validateTemplate(file), qPrintable(file));
        QCOMPARE(capture.standardOutput(), QByteArray());
    }
    CsToolProcess tool;
    RUN_CSTOOL(tool, {QStringLiteral("validate"), oneLine});
    QCOMPARE(tool.exitCode, 1);
    const QStringList findings = findingsAbout(tool, oneLine);
    QCOMPARE(findings.size(), 1);
    QVERIFY2(findings.first().startsWith(oneLine + QStringLiteral(":1:12: ") + notFound(QStringLiteral("circle"))),
             qPrintable(findings.first()));
    RUN_CSTOOL(tool, {QStringLiteral("validate"), emptyItem});
    QCOMPARE(tool.exitCode, 1);
}

// Whether cstool says the pool cannot find a template is what a template pool over the file's
// directory (without a map file) answers.
void tst_ValidateCommand::lineRuleAgreesWithThePool_data()
{
    QTest::addColumn<QString>("fileName");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<int>("unfound");
    QTest::newRow("each tag begins its line") << "shapes.tcmd"
        << QByteArray("<templates>\n  <template name=\"circle\"/>\n  <template  name = \"arc\" />\n</templates>\n") << 0;
    QTest::newRow("all on one line") << "shapes.tcmd"
        << QByteArray("<templates><template name=\"circle\"/><template name=\"arc\"/></templates>\n") << 2;
    QTest::newRow("one line, found by the file name") << "circle.tcmd"
        << QByteArray("<templates><template name=\"circle\"/><template name=\"arc\"/></templates>\n") << 1;
    QTest::newRow("second tag on a line") << "shapes.tcmd"
        << QByteArray("<templates>\n<template name=\"circle\"/><template name=\"arc\"/>\n</templates>\n") << 1;
    QTest::newRow("name on the next line") << "shapes.tcmd"
        << QByteArray("<templates>\n<template\n name=\"circle\"/>\n<template name=\"arc\"/>\n</templates>\n") << 1;
    QTest::newRow("tab after the word") << "shapes.tcmd"
        << QByteArray("<templates>\n<template\tname=\"circle\"/>\n</templates>\n") << 1;
    QTest::newRow("single quotes stop the scan") << "shapes.tcmd"
        << QByteArray("<templates>\n<template name='circle'/>\n<template name=\"arc\"/>\n</templates>\n") << 2;
    QTest::newRow("an entity in the name") << "shapes.tcmd"
        << QByteArray("<templates>\n<template name=\"a&amp;b\"/>\n<template name=\"arc\"/>\n</templates>\n") << 1;
    QTest::newRow("commented declaration") << "shapes.tcmd"
        << QByteArray("<templates>\n<!--\n<template name=\"old\"/>\n-->\n<template name=\"arc\"/>\n</templates>\n") << 0;
    QTest::newRow("CRLF line ends") << "shapes.tcmd"
        << QByteArray("<templates>\r\n  <template name=\"circle\"/>\r\n  <template name=\"arc\"/>\r\n</templates>\r\n") << 0;
    QTest::newRow("byte order mark") << "shapes.tcmd"
        << QByteArray("\xEF\xBB\xBF<templates><template name=\"shapes\"/>\n<template name=\"arc\"/>\n</templates>\n") << 0;
}

void tst_ValidateCommand::lineRuleAgreesWithThePool()
{
    QFETCH(QString, fileName);
    QFETCH(QByteArray, content);
    QFETCH(int, unfound);
    QTemporaryDir directory;
    const QString file = directory.filePath(fileName);
    QVERIFY(CsToolProcess::writeFile(file, content));
    CsToolProcess tool;
    RUN_CSTOOL(tool, {QStringLiteral("validate"), file});
    const QString findings = findingsAbout(tool, file).join(QLatin1Char('\n'));
    const QStringList names = templateNames(file);
    QVERIFY(!names.isEmpty());
    int missed = 0;
    for (const QString& name : names) {
        bool found = false;
        {
            OutputCapture capture;
            TemplatePool pool;
            pool.load(directory.path());
            found = pool.getTemplate(name) != nullptr;
        }
        missed += found ? 0 : 1;
        QVERIFY2(found != findings.contains(notFound(name)), qPrintable(name + QLatin1Char('\n') + findings));
    }
    QCOMPARE(missed, unfound);
}

void tst_ValidateCommand::validSamplesPass()
{
    const QString valid = samples("valid");
    CsToolProcess tool;
    RUN_CSTOOL(tool, {QStringLiteral("validate"), QStringLiteral("--icons"), icons,
                      valid + QStringLiteral("/catalogue.xcui"), valid + QStringLiteral("/empty.tcmd"),
                      valid + QStringLiteral("/shapes.tcmd"), valid + QStringLiteral("/written.map")});
    QVERIFY2(tool.exitCode == 0, qPrintable(tool.out + tool.err));
    QVERIFY2(tool.outLines().first().startsWith(QLatin1String("4 file(s) checked: 0 error(s), ")),
             qPrintable(tool.out));
}

// What the schemas refuse, cstool refuses too: the two say the same vocabulary.
void tst_ValidateCommand::schemaRefusedSamplesFail_data()
{
    QTest::addColumn<QString>("file");
    const QStringList files = filesIn(samples("invalid"), {QStringLiteral("*.tcmd"), QStringLiteral("*.xcui"),
                                                           QStringLiteral("*.map")});
    for (const QString& file : files)
        QTest::newRow(qPrintable(QFileInfo(file).fileName())) << file;
}

void tst_ValidateCommand::schemaRefusedSamplesFail()
{
    QFETCH(QString, file);
    CsToolProcess tool;
    RUN_CSTOOL(tool, {QStringLiteral("validate"), file});
    QCOMPARE(tool.exitCode, 1);
    QVERIFY2(hasError(findingsAbout(tool, file)), qPrintable(tool.err));
}

// A map that "cstool map" (the library's map builder) has just written is current for
// validate's own reading of the directory.
void tst_ValidateCommand::writtenMapIsCurrent_data()
{
    QTest::addColumn<QStringList>("files");
    QTest::addColumn<int>("entries");
    const QString one = QStringLiteral("<templates>\n<template name=\"%1\"/>\n</templates>\n");
    const QString two = QStringLiteral("<templates>\n<template name=\"%1\"/>\n<template name=\"%2\"/>\n</templates>\n");
    QTest::newRow("named after its file") << QStringList({QStringLiteral("circle.tcmd"), one.arg(QLatin1String("circle"))}) << 0;
    QTest::newRow("case differs") << QStringList({QStringLiteral("Circle.tcmd"), one.arg(QLatin1String("circle"))}) << 1;
    QTest::newRow("two in a file") << QStringList({QStringLiteral("shapes.tcmd"), two.arg(QLatin1String("circle"), QLatin1String("arc"))}) << 2;
    QTest::newRow("later file wins")
        << QStringList({QStringLiteral("a.tcmd"), two.arg(QLatin1String("x"), QLatin1String("y")),
                        QStringLiteral("B.tcmd"), two.arg(QLatin1String("x"), QLatin1String("z"))}) << 3;
    QTest::newRow("scan stops")
        << QStringList({QStringLiteral("s.tcmd"), QStringLiteral("<templates>\n<template name=\"a\"/>\n"
                                                                 "<template name='b'/>\n<template name=\"c\"/>\n</templates>\n")}) << 2;
}

void tst_ValidateCommand::writtenMapIsCurrent()
{
    QFETCH(QStringList, files);
    QFETCH(int, entries);
    QTemporaryDir directory;
    for (int index = 0; index + 1 < files.size(); index += 2)
        QVERIFY(CsToolProcess::writeFile(directory.filePath(files.at(index)), files.at(index + 1).toUtf8()));
    CsToolProcess tool;
    RUN_CSTOOL(tool, {QStringLiteral("map"), directory.path()});
    QCOMPARE(tool.exitCode, 0);
    QVERIFY2(tool.out.contains(QStringLiteral("wrote %1 entries").arg(entries)), qPrintable(tool.out));
    const QString map = directory.filePath(QStringLiteral(".map"));
    RUN_CSTOOL(tool, {QStringLiteral("validate"), map});
    QVERIFY2(!hasError(findingsAbout(tool, map)), qPrintable(tool.err));
    QCOMPARE(tool.exitCode, 0);
}

void tst_ValidateCommand::staleMapEntriesAreNamed()
{
    QTemporaryDir directory;
    const auto file = [&](const char* name) { return directory.filePath(QLatin1String(name)); };
    QVERIFY(CsToolProcess::writeFile(file("shapes.tcmd"), "<templates>\n<template name=\"circle\"/>\n"
                                                          "<template name=\"arc\"/>\n</templates>\n"));
    QVERIFY(CsToolProcess::writeFile(file("line.tcmd"), "<templates>\n<template name=\"line\"/>\n</templates>\n"));
    QVERIFY(CsToolProcess::writeFile(file(".map"), "<maps>\n"
                                                   "  <map key=\"arc\" value=\"shapes.tcmd\"/>\n"
                                                   "  <map key=\"circle\" value=\"line.tcmd\"/>\n"
                                                   "  <map key=\"line\" value=\"line.tcmd\"/>\n"
                                                   "  <map key=\"old\" value=\"gone.tcmd\"/>\n"
                                                   "</maps>\n"));
    const QString map = file(".map");
    const QString hint = QStringLiteral("; run 'cstool map %1'").arg(directory.path());
    CsToolProcess tool;
    RUN_CSTOOL(tool, {QStringLiteral("validate"), map});
    QCOMPARE(tool.exitCode, 1);
    QCOMPARE(findingsAbout(tool, map),
             QStringList({map + QStringLiteral(":3:21: error: stale map: entry \"circle\" names line.tcmd, but shapes.tcmd declares it") + hint,
                          map + QStringLiteral(":4:3: error: stale map: entry \"line\" is not needed, the pool finds the template by the name of line.tcmd") + hint,
                          map + QStringLiteral(":5:18: error: stale map: entry \"old\" names gone.tcmd, which is not a file") + hint}));
    // The map command's own check says the same.
    RUN_CSTOOL(tool, {QStringLiteral("map"), QStringLiteral("--check"), directory.path()});
    QCOMPARE(tool.exitCode, 1);

    QVERIFY(CsToolProcess::writeFile(map, "<maps/>\n"));
    RUN_CSTOOL(tool, {QStringLiteral("validate"), directory.path()});
    QCOMPARE(tool.exitCode, 1);
    QStringList missing = findingsAbout(tool, directory.path() + QStringLiteral("/.map"));
    missing.sort();
    QCOMPARE(missing, QStringList({map + QStringLiteral(":1:1: error: stale map: no entry for template \"arc\", declared in shapes.tcmd:3") + hint,
                                   map + QStringLiteral(":1:1: error: stale map: no entry for template \"circle\", declared in shapes.tcmd:2") + hint}));
}

void tst_ValidateCommand::nameDefinedInTwoFiles()
{
    const QString first = write(QStringLiteral("two/a.xcui"), "<Actions><Action name=\"ID_X\"/></Actions>\n");
    const QString second = write(QStringLiteral("two/b.xcui"), "<Actions>\n<Action name=\"ID_X\"/></Actions>\n");
    CsToolProcess tool;
    RUN_CSTOOL(tool, {QStringLiteral("validate"), temp.filePath(QStringLiteral("two"))});
    QCOMPARE(tool.exitCode, 1);
    QCOMPARE(findingsAbout(tool, first), QStringList());
    QCOMPARE(findingsAbout(tool, second),
             QStringList(second + QStringLiteral(":2:9: error: action \"ID_X\" is defined twice (first at ")
                         + first + QStringLiteral(":1:18)")));
}

void tst_ValidateCommand::iconsDefaultToTheFolderBesideTheFile()
{
    const QString file = write(QStringLiteral("beside/ribbon.xcui"),
                               "<Actions><Action name=\"ID_LINE\"><Icon>line</Icon></Action></Actions>\n");
    CsToolProcess tool;
    RUN_CSTOOL(tool, {QStringLiteral("validate"), file});
    QCOMPARE(tool.exitCode, 1);
    QCOMPARE(findingsAbout(tool, file),
             QStringList(file + QStringLiteral(":1:33: error: icon \"line\" not found (looked up in ")
                         + temp.filePath(QStringLiteral("beside/icons")) + QLatin1Char(')')));
    QVERIFY(QDir().mkpath(temp.filePath(QStringLiteral("beside/icons"))));
    QVERIFY(QFile::copy(icons + QStringLiteral("/line.png"), temp.filePath(QStringLiteral("beside/icons/line.png"))));
    RUN_CSTOOL(tool, {QStringLiteral("validate"), file});
    QCOMPARE(tool.exitCode, 0);
    // Directories given on the command line replace the default.
    RUN_CSTOOL(tool, {QStringLiteral("validate"), QStringLiteral("--icons"), temp.filePath(QStringLiteral("two")), file});
    QCOMPARE(tool.exitCode, 1);
}

void tst_ValidateCommand::iconsResolveThroughIconDirectories()
{
    const QString file = write(QStringLiteral("icons.xcui"),
                               "<Actions><Action name=\"ID_LINE\"><Icon>line</Icon></Action>"
                               "<Action name=\"ID_PNG\"><Icon>line.png</Icon></Action></Actions>\n");
    CsToolProcess tool;
    RUN_CSTOOL(tool, {QStringLiteral("validate"), QStringLiteral("--icons"), temp.filePath(QStringLiteral("two")), file});
    QCOMPARE(tool.exitCode, 1);
    QCOMPARE(findingsAbout(tool, file).size(), 2);
    RUN_CSTOOL(tool, {QStringLiteral("validate"), QStringLiteral("--icons"), icons, file});
    QCOMPARE(tool.exitCode, 0);
    QCOMPARE(tool.outLines(), QStringList(QStringLiteral("1 file(s) checked: 0 error(s), 0 warning(s)")));
}

void tst_ValidateCommand::recursiveDescendsIntoSubdirectories()
{
    write(QStringLiteral("dir/a.tcmd"), "<templates>\n<template name=\"a\"/>\n</templates>\n");
    write(QStringLiteral("dir/b.xcui"), "<Actions/>\n");
    write(QStringLiteral("dir/notes.txt"), "not checked\n");
    const QString broken = write(QStringLiteral("dir/sub/c.tcmd"), "<broken>\n");
    const QString directory = temp.filePath(QStringLiteral("dir"));
    CsToolProcess tool;
    RUN_CSTOOL(tool, {QStringLiteral("validate"), directory});
    QCOMPARE(tool.exitCode, 0);
    QCOMPARE(tool.outLines(), QStringList(QStringLiteral("2 file(s) checked: 0 error(s), 0 warning(s)")));
    for (const QString& option : {QStringLiteral("--recursive"), QStringLiteral("-r")}) {
        RUN_CSTOOL(tool, {QStringLiteral("validate"), option, directory});
        QCOMPARE(tool.exitCode, 1);
        QCOMPARE(findingsAbout(tool, broken),
                 QStringList({broken + QStringLiteral(":1:1: error: the root element is <broken>; a template file holds one <templates> element"),
                              broken + QStringLiteral(":2:1: error: malformed XML: Premature end of document.")}));
        QCOMPARE(tool.outLines(), QStringList(QStringLiteral("3 file(s) checked: 2 error(s), 0 warning(s)")));
    }
}

void tst_ValidateCommand::warningsFailOnlyWithWerror()
{
    const QString file = baselines() + QStringLiteral("/warnings.tcmd");
    CsToolProcess tool;
    RUN_CSTOOL(tool, {QStringLiteral("validate"), file});
    QCOMPARE(tool.exitCode, 0);
    QVERIFY(!findingsAbout(tool, file).isEmpty());
    RUN_CSTOOL(tool, {QStringLiteral("validate"), QStringLiteral("--werror"), file});
    QCOMPARE(tool.exitCode, 1);
}

void tst_ValidateCommand::usageErrors_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("message");
    QTest::newRow("no path") << QStringList() << "cstool validate: no PATH given";
    QTest::newRow("missing path") << QStringList({QStringLiteral("/nonexistent/a.tcmd")})
                                  << "cstool validate: /nonexistent/a.tcmd: no such file or directory";
    QTest::newRow("other suffix") << QStringList({QStringLiteral(CS_TEST_DATA_DIR "/validate/ghost.tcmd.expected")})
                                  << "not a .tcmd, .xcui or .map file";
    QTest::newRow("missing icon directory")
        << QStringList({QStringLiteral("--icons"), QStringLiteral("/nonexistent"), samples("valid")})
        << "cstool validate: /nonexistent: no such icon directory";
    QTest::newRow("nothing to check") << QStringList(QStringLiteral(CS_TEST_DATA_DIR))
                                      << "cstool validate: no .tcmd, .xcui or .map file found to check";
}

void tst_ValidateCommand::usageErrors()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, message);
    CsToolProcess tool;
    RUN_CSTOOL(tool, QStringList(QStringLiteral("validate")) + arguments);
    QCOMPARE(tool.exitCode, 2);
    QVERIFY2(tool.err.contains(message), qPrintable(tool.err));
    QVERIFY(tool.out.isEmpty());
}

QTEST_GUILESS_MAIN(tst_ValidateCommand)
#include "tst_validatecommand.moc"
