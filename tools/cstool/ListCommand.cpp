#include "ListCommand.h"

#include "Console.h"
#include "TemplateCatalog.h"
#include "TextTable.h"

#include <CommandSystem/TemplateTools.h>

#include <QCommandLineParser>

using namespace Talvir::Vexa::Cs;

namespace CsTool {

QString ListCommand::name() const
{
    return QStringLiteral("list");
}

QString ListCommand::summary() const
{
    return QStringLiteral("List the templates that template directories define.");
}

QString ListCommand::details() const
{
    return QStringLiteral(
        "Every template name is printed with the file that defines it, in name order. Each\n"
        "name is looked up through a template pool over the directories, as a host would, so\n"
        "a name that the pool cannot find (a stale .map) is reported.\n\n"
        "Exit status: 0 success, 1 a file or a directory's map cannot be read, or a template\n"
        "cannot be found, 2 usage error.");
}

void ListCommand::configure(QCommandLineParser& parser)
{
    parser.addPositionalArgument(QStringLiteral("dir"), QStringLiteral("Template directories."),
                                 QStringLiteral("DIR..."));
}

int ListCommand::run(const QCommandLineParser& parser)
{
    const QStringList directories = parser.positionalArguments();
    if (directories.isEmpty())
        return usageError(QStringLiteral("no DIR given"));
    TemplateCatalog catalog;
    for (const QString& directory : directories) {
        if (!catalog.addDirectory(directory))
            return usageError(QStringLiteral("%1: not a directory").arg(directory));
    }
    int result = catalog.scan() ? Success : Failure;
    const QStringList unmapped = catalog.unmappedDirectories();
    for (const QString& directory : unmapped) {
        report(TemplateTools::isMapExist(directory)
                   ? QStringLiteral("%1: the map could not be read").arg(TemplateTools::mapFile(directory))
                   : QStringLiteral("%1: the map could not be built").arg(directory));
        result = Failure;
    }
    const QStringList unreadable = catalog.unreadableFiles();
    for (const QString& file : unreadable)
        report(QStringLiteral("%1: cannot be read").arg(file));
    TextTable table;
    const QStringList names = catalog.names();
    for (const QString& name : names) {
        if (catalog.find(name)) {
            table.addRow({name, catalog.fileOf(name)});
        } else {
            report(QStringLiteral("%1 (defined in %2): not found by the template pool")
                       .arg(name, catalog.fileOf(name)));
            result = Failure;
        }
    }
    const QStringList lines = table.lines();
    for (const QString& line : lines)
        Console::out(line);
    return result;
}

} // namespace CsTool
