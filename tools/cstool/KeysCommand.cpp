#include "KeysCommand.h"

#include "Console.h"
#include "PathCollector.h"

#include <CommandSystem/KeyConflicts.h>

#include <QCommandLineParser>

using namespace Talvir::Vexa::Cs;

namespace CsTool {

QString KeysCommand::name() const
{
    return QStringLiteral("keys");
}

QString KeysCommand::summary() const
{
    return QStringLiteral("Check shortcuts, typed commands, aliases and options for clashes.");
}

QString KeysCommand::details() const
{
    return QStringLiteral(
        "Reads UI definition files (.xcui: actions and the commands their scripts run),\n"
        "template files (.tcmd: command names and parameter options), alias files (.aliases)\n"
        "and keymap files (.keymap: shortcuts). Keymaps apply in the order given, so a user's\n"
        "keymap named after the catalogue's defaults replaces them entry by entry. A directory\n"
        "stands for its files of these kinds, in name order.\n\n"
        "Errors: two enabled actions with the same shortcut; an alias with the name of another\n"
        "command; two options with the same key in one parameter's options; a file that cannot\n"
        "be read. Warnings: a shortcut that begins with another action's whole shortcut; a\n"
        "single-key shortcut that takes the first letter of a typed command or alias; a\n"
        "shortcut for an action that the UI definition files do not define.\n\n"
        "Each finding is printed to standard error as FILE:LINE:COLUMN: error|warning: message,\n"
        "ordered by file and place; a summary line follows on standard output.\n\n"
        "Exit status: 0 no error (warnings allowed), 1 an error was found, 2 usage error or\n"
        "missing path.");
}

void KeysCommand::configure(QCommandLineParser& parser)
{
    parser.addPositionalArgument(QStringLiteral("file"), QStringLiteral("Files or directories to check."),
                                 QStringLiteral("FILE..."));
}

int KeysCommand::run(const QCommandLineParser& parser)
{
    if (parser.positionalArguments().isEmpty())
        return usageError(QStringLiteral("no FILE given"));
    PathCollector collector({QStringLiteral("xcui"), QStringLiteral("tcmd"), QStringLiteral("aliases"),
                             QStringLiteral("keymap")});
    if (!collector.collect(parser.positionalArguments()))
        return usageError(collector.error());

    KeyConflicts conflicts;
    const QStringList files = collector.files();
    for (const QString& file : files)
        conflicts.addFile(file);
    int errors = 0;
    int warnings = 0;
    const QList<KeyFinding> findings = conflicts.findings();
    for (const KeyFinding& finding : findings) {
        Console::err(finding.toString());
        ++(finding.severity == KeyFinding::Error ? errors : warnings);
    }
    Console::out(QStringLiteral("%1 file(s) checked, %2 error(s), %3 warning(s)")
                     .arg(files.size()).arg(errors).arg(warnings));
    return errors == 0 ? Success : Failure;
}

} // namespace CsTool
