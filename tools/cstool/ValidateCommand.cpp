#include "ValidateCommand.h"

#include "Console.h"
#include "PathCollector.h"
#include "XcuiChecker.h"

#include <CommandSystem/TemplateTools.h>

#include <QCommandLineParser>
#include <QFileInfo>

using namespace Talvir::Vexa::Cs;

namespace CsTool {

QString ValidateCommand::name() const
{
    return QStringLiteral("validate");
}

QString ValidateCommand::summary() const
{
    return QStringLiteral("Check template files (.tcmd) and UI definition files (.xcui).");
}

QString ValidateCommand::details() const
{
    return QStringLiteral(
        "Template files are checked against the template vocabulary; the library prints what\n"
        "is wrong. UI definition files are checked strictly: every element and attribute,\n"
        "action names (missing or defined twice), \"Checked\" values, \"Widget\" and \"Mapper\"\n"
        "of widget actions, and icons (looked up in the --icons directories). Their problems\n"
        "are printed as FILE:LINE:COLUMN: message. A directory stands for its .tcmd and .xcui\n"
        "files.\n\n"
        "Exit status: 0 all files valid, 1 a file is invalid, 2 usage error or missing path.");
}

void ValidateCommand::configure(QCommandLineParser& parser)
{
    parser.addOption(QCommandLineOption(QStringLiteral("icons"),
                                        QStringLiteral("Look icons up in <dir> (repeatable)."),
                                        QStringLiteral("dir")));
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
    PathCollector collector({QStringLiteral("tcmd"), QStringLiteral("xcui")});
    if (!collector.collect(parser.positionalArguments()))
        return usageError(collector.error());

    TemplateTools tools;
    XcuiChecker checker(iconDirectories);
    int invalid = 0;
    const QStringList files = collector.files();
    for (const QString& file : files) {
        const bool valid = QFileInfo(file).suffix() == QLatin1String("tcmd")
                               ? tools.validateTemplate(file)
                               : validateXcui(checker, file);
        if (!valid)
            ++invalid;
    }
    Console::out(QStringLiteral("%1 file(s) checked, %2 invalid").arg(files.size()).arg(invalid));
    return invalid == 0 ? Success : Failure;
}

bool ValidateCommand::validateXcui(XcuiChecker& checker, const QString& filePath)
{
    const QStringList problems = checker.check(filePath);
    for (const QString& problem : problems)
        Console::out(problem);
    return problems.isEmpty();
}

} // namespace CsTool
