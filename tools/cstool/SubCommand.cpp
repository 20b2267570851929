#include "SubCommand.h"

#include "Console.h"

#include <QCommandLineParser>
#include <QCoreApplication>

namespace CsTool {

SubCommand::~SubCommand() = default;

int SubCommand::execute(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(summary() + QLatin1String("\n\n") + details());
    const QCommandLineOption helpOption = parser.addHelpOption();
    configure(parser);
    if (!parser.parse(QStringList(QCoreApplication::applicationName()) + arguments))
        return usageError(parser.errorText());
    if (parser.isSet(helpOption)) {
        Console::out(helpText(parser));
        return Success;
    }
    return run(parser);
}

int SubCommand::usageError(const QString& message) const
{
    report(message);
    Console::err(QStringLiteral("Try 'cstool %1 --help' for more information.").arg(name()));
    return UsageError;
}

void SubCommand::report(const QString& message) const
{
    Console::err(QStringLiteral("cstool %1: %2").arg(name(), message));
}

// The parser's usage line names the program by the path it was started with and leaves the
// sub-command out; authors should read the line they are to type.
QString SubCommand::helpText(const QCommandLineParser& parser) const
{
    QString text = parser.helpText();
    const int options = text.indexOf(QLatin1String(" [options]"));
    if (text.startsWith(QLatin1String("Usage: ")) && options > 0)
        text.replace(0, options, QStringLiteral("Usage: cstool ") + name());
    return text.trimmed();
}

} // namespace CsTool
