#include "MapCommand.h"

#include "Console.h"

#include <CommandSystem/TemplateTools.h>

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>

using namespace Talvir::Vexa::Cs;

namespace CsTool {

namespace {

// Paths written differently ("dir/./a.tcmd") name the same file.
QHash<QString, QString> cleaned(const QHash<QString, QString>& map)
{
    QHash<QString, QString> result;
    for (auto entry = map.constBegin(); entry != map.constEnd(); ++entry)
        result.insert(entry.key(), QDir::cleanPath(entry.value()));
    return result;
}

} // namespace

QString MapCommand::name() const
{
    return QStringLiteral("map");
}

QString MapCommand::summary() const
{
    return QStringLiteral("Write the template map (.map) of template directories.");
}

QString MapCommand::details() const
{
    return QStringLiteral(
        "The map names the file of every template that cannot be found from its file name.\n"
        "With --check nothing is written: a directory whose map is missing or holds other\n"
        "entries than a new one would is reported, for use in continuous integration.\n\n"
        "Exit status: 0 success (with --check: all maps current), 1 a map could not be built\n"
        "or written (with --check: a map is missing or stale), 2 usage error.");
}

void MapCommand::configure(QCommandLineParser& parser)
{
    parser.addOption(QCommandLineOption(QStringLiteral("check"),
                                        QStringLiteral("Write nothing; fail when a map is not current.")));
    parser.addPositionalArgument(QStringLiteral("dir"), QStringLiteral("Template directories."),
                                 QStringLiteral("DIR..."));
}

int MapCommand::run(const QCommandLineParser& parser)
{
    const QStringList directories = parser.positionalArguments();
    if (directories.isEmpty())
        return usageError(QStringLiteral("no DIR given"));
    for (const QString& directory : directories) {
        if (!QFileInfo(directory).isDir())
            return usageError(QStringLiteral("%1: not a directory").arg(directory));
    }
    const bool checkOnly = parser.isSet(QStringLiteral("check"));
    int result = Success;
    for (const QString& directory : directories) {
        TemplateTools tools;
        QHash<QString, QString> map;
        bool ok = tools.buildMap(directory, map);
        if (!ok)
            report(QStringLiteral("%1: the map could not be built").arg(directory));
        else
            ok = checkOnly ? check(directory, map) : write(directory, map);
        if (!ok)
            result = Failure;
    }
    return result;
}

bool MapCommand::write(const QString& directory, const QHash<QString, QString>& map) const
{
    TemplateTools tools;
    const QString file = TemplateTools::mapFile(directory);
    if (!tools.saveMap(file, map)) {
        report(QStringLiteral("%1: the map could not be written").arg(file));
        return false;
    }
    Console::out(QStringLiteral("%1: wrote %2 entries").arg(file).arg(map.size()));
    return true;
}

// Compares entries, not bytes: a map that the library reads back as the same hash is current.
bool MapCommand::check(const QString& directory, const QHash<QString, QString>& map) const
{
    const QString file = TemplateTools::mapFile(directory);
    if (!TemplateTools::isMapExist(directory)) {
        Console::out(QStringLiteral("%1: missing (%2 entries expected)").arg(file).arg(map.size()));
        return false;
    }
    TemplateTools tools;
    QHash<QString, QString> current;
    if (!tools.loadMap(file, current) || cleaned(current) != cleaned(map)) {
        Console::out(QStringLiteral("%1: stale, run 'cstool map %2'").arg(file, directory));
        return false;
    }
    Console::out(QStringLiteral("%1: current (%2 entries)").arg(file).arg(map.size()));
    return true;
}

} // namespace CsTool
