#include "Program.h"

#include "Console.h"
#include "KeysCommand.h"
#include "ListCommand.h"
#include "MapCommand.h"
#include "ShowCommand.h"
#include "SubCommand.h"
#include "TrCommand.h"
#include "UiCommand.h"
#include "ValidateCommand.h"

#include <QCommandLineParser>
#include <QCoreApplication>

namespace CsTool {

Program::Program()
{
    commands.emplace_back(new ValidateCommand);
    commands.emplace_back(new MapCommand);
    commands.emplace_back(new ListCommand);
    commands.emplace_back(new ShowCommand);
    commands.emplace_back(new UiCommand);
    commands.emplace_back(new TrCommand);
    commands.emplace_back(new KeysCommand);
}

Program::~Program() = default;

// Options before the sub-command belong to cstool; everything after it to the sub-command.
int Program::run(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setOptionsAfterPositionalArgumentsMode(QCommandLineParser::ParseAsPositionalArguments);
    const QCommandLineOption helpOption = parser.addHelpOption();
    const QCommandLineOption versionOption = parser.addVersionOption();
    parser.addPositionalArgument(QStringLiteral("command"), QStringLiteral("The sub-command to run."),
                                 QStringLiteral("<command> [arguments]"));
    if (!parser.parse(arguments)) {
        Console::err(QStringLiteral("cstool: ") + parser.errorText());
        return SubCommand::UsageError;
    }
    if (parser.isSet(versionOption)) {
        Console::out(QCoreApplication::applicationName() + QLatin1Char(' ')
                     + QCoreApplication::applicationVersion());
        return SubCommand::Success;
    }
    QStringList positional = parser.positionalArguments();
    if (parser.isSet(helpOption))
        return help(QStringList());
    if (positional.isEmpty()) {
        Console::err(QStringLiteral("cstool: no command given\n") + overview());
        return SubCommand::UsageError;
    }
    const QString name = positional.takeFirst();
    if (name == QLatin1String("help"))
        return help(positional);
    SubCommand* command = find(name);
    if (!command) {
        Console::err(QStringLiteral("cstool: unknown command '%1'\n").arg(name) + overview());
        return SubCommand::UsageError;
    }
    return command->execute(positional);
}

SubCommand* Program::find(const QString& name) const
{
    for (const auto& command : commands) {
        if (command->name() == name)
            return command.get();
    }
    return nullptr;
}

int Program::help(const QStringList& topics) const
{
    if (topics.isEmpty()) {
        Console::out(overview());
        return SubCommand::Success;
    }
    if (topics.first() == QLatin1String("help")) {
        Console::out(QStringLiteral("Usage: cstool help [<command>]\n\n"
                                    "Without a command, lists the commands; with one, shows its "
                                    "options (as 'cstool <command> --help' does)."));
        return SubCommand::Success;
    }
    SubCommand* command = find(topics.first());
    if (!command) {
        Console::err(QStringLiteral("cstool: unknown command '%1'\n").arg(topics.first()) + overview());
        return SubCommand::UsageError;
    }
    return command->execute(QStringList(QStringLiteral("--help")));
}

QString Program::overview() const
{
    QString text = QStringLiteral(
        "Usage: cstool [--help] [--version] <command> [arguments]\n\n"
        "Checks and prepares command template files (*.tcmd), template directories and UI\n"
        "definition files (*.xcui).\n\nCommands:\n");
    for (const auto& command : commands)
        text += QStringLiteral("  %1  %2\n").arg(command->name(), -9).arg(command->summary());
    text += QStringLiteral("\nRun 'cstool help <command>' or 'cstool <command> --help' for the "
                           "options of a command.");
    return text;
}

} // namespace CsTool
