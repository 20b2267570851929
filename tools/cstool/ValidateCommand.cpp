#include "ValidateCommand.h"

#include "Console.h"
#include "Findings.h"
#include "MapChecker.h"
#include "PathCollector.h"
#include "TcmdChecker.h"
#include "XcuiChecker.h"
#include "XmlSource.h"

#include <QCommandLineParser>
#include <QFileInfo>

namespace CsTool {

QString ValidateCommand::name() const
{
    return QStringLiteral("validate");
}

QString ValidateCommand::summary() const
{
    return QStringLiteral("Check template (.tcmd), UI definition (.xcui) and map (.map) files.");
}

QString ValidateCommand::details() const
{
    return QStringLiteral(
        "Every problem of every file is reported on standard error as\n"
        "FILE:LINE:COLUMN: error: message (or warning:), at the element or attribute concerned;\n"
        "a summary line follows on standard output. A directory stands for its .tcmd, .xcui and\n"
        ".map files, with --recursive also for those of its subdirectories.\n\n"
        "Template files: errors for everything TemplateTools::validateTemplate refuses, and for\n"
        "templates the template pool would not find because the map scanner does not read their\n"
        "line (each <template name=\"...\"> tag must begin a line, the name its first quoted\n"
        "value) unless the file's name finds them; warnings for a luid used twice in one\n"
        "template, a \"next\" naming no luid of its template, and what the readers ignore.\n"
        "UI definition files: every element and attribute, action names (missing or defined\n"
        "twice across the files), \"Checked\", \"MinWinVer\", \"Widget\" and \"Mapper\" of widget\n"
        "actions, and icons, looked up in the --icons directories or else in the \"icons\" folder\n"
        "beside each file; a \"type\" that is none of plain, widget, toggle, check_box is a\n"
        "warning. Map files: what TemplateTools::loadMap refuses or stops at, and a map that\n"
        "differs from the one 'cstool map' would write now (stale).\n\n"
        "Exit status: 0 no errors (warnings allowed), 1 errors (or warnings with --werror),\n"
        "2 usage error, a missing path or no file to check.");
}

void ValidateCommand::configure(QCommandLineParser& parser)
{
    parser.addOption(QCommandLineOption(QStringLiteral("icons"),
                                        QStringLiteral("Look icons up in <dir> (repeatable)."),
                                        QStringLiteral("dir")));
    parser.addOption(QCommandLineOption({QStringLiteral("r"), QStringLiteral("recursive")},
                                        QStringLiteral("Check the subdirectories of directories too.")));
    parser.addOption(QCommandLineOption(QStringLiteral("werror"),
                                        QStringLiteral("Treat warnings as errors.")));
    parser.addPositionalArgument(QStringLiteral("path"),
                                 QStringLiteral("Files or directories to check."),
                                 QStringLiteral("PATH..."));
}

int ValidateCommand::run(const QCommandLineParser& parser)
{
    if (parser.positionalArguments().isEmpty())
        return usageError(QStringLiteral("no PATH given"));
    const QStringList iconDirectories = parser.values(QStringLiteral("icons"));
    for (const QString& directory : iconDirectories) {
        if (!QFileInfo(directory).isDir())
            return usageError(QStringLiteral("%1: no such icon directory").arg(directory));
    }
    PathCollector collector({QStringLiteral("tcmd"), QStringLiteral("xcui"), QStringLiteral("map")});
    collector.setRecursive(parser.isSet(QStringLiteral("recursive")));
    if (!collector.collect(parser.positionalArguments()))
        return usageError(collector.error());
    const QStringList files = collector.files();
    if (files.isEmpty())
        return usageError(QStringLiteral("no .tcmd, .xcui or .map file found to check"));

    XcuiChecker xcuiChecker(iconDirectories);
    int errors = 0;
    int warnings = 0;
    for (const QString& file : files) {
        Findings findings(file);
        checkFile(file, xcuiChecker, findings);
        for (const QString& line : findings.lines())
            Console::err(line);
        errors += findings.errorCount();
        warnings += findings.warningCount();
    }
    Console::out(QStringLiteral("%1 file(s) checked: %2 error(s), %3 warning(s)")
                     .arg(files.size()).arg(errors).arg(warnings));
    const bool failed = errors > 0 || (warnings > 0 && parser.isSet(QStringLiteral("werror")));
    return failed ? Failure : Success;
}

void ValidateCommand::checkFile(const QString& filePath, XcuiChecker& xcuiChecker, Findings& findings)
{
    XmlSource source;
    if (!source.open(filePath)) {
        findings.error(SourcePosition(), QStringLiteral("cannot read the file: ") + source.errorString());
        return;
    }
    const QString suffix = QFileInfo(filePath).suffix();
    if (suffix == QLatin1String("tcmd"))
        TcmdChecker(source, findings, filePath).check();
    else if (suffix == QLatin1String("map"))
        MapChecker(source, findings, filePath).check();
    else
        xcuiChecker.check(source, findings);
}

} // namespace CsTool
