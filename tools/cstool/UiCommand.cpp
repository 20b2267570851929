#include "UiCommand.h"

#include "Console.h"
#include "DeclaredIcons.h"
#include "PathCollector.h"
#include "TextTable.h"

#include <CommandSystem/Action.h>
#include <CommandSystem/ActionPool.h>

#include <QCommandLineParser>
#include <QDir>
#include <QFile>
#include <QFileInfo>

using namespace Talvir::Vexa::Cs;

namespace CsTool {

QString UiCommand::name() const
{
    return QStringLiteral("ui");
}

QString UiCommand::summary() const
{
    return QStringLiteral("Load UI definition files (.xcui) and list their actions.");
}

QString UiCommand::details() const
{
    return QStringLiteral(
        "The files (a directory stands for its .xcui files) are loaded into one action pool\n"
        "with the --icons directories as icon directories (by default the \"icons\" folders\n"
        "beside the files). Each action is printed with its type, script and whether its icon\n"
        "resolved; actions dropped by \"MinWinVer\" are reported. --save writes the whole pool\n"
        "back as one UI definition file.\n\n"
        "Exit status: 0 success, 1 a file failed to load or FILE could not be written,\n"
        "2 usage error.");
}

void UiCommand::configure(QCommandLineParser& parser)
{
    parser.addOption(QCommandLineOption(QStringLiteral("icons"),
                                        QStringLiteral("Look icons up in <dir> (repeatable)."),
                                        QStringLiteral("dir")));
    parser.addOption(QCommandLineOption(QStringLiteral("save"),
                                        QStringLiteral("Write the loaded actions to <file>."),
                                        QStringLiteral("file")));
    parser.addPositionalArgument(QStringLiteral("path"), QStringLiteral("Files or directories."),
                                 QStringLiteral("PATH..."));
}

int UiCommand::run(const QCommandLineParser& parser)
{
    if (parser.positionalArguments().isEmpty())
        return usageError(QStringLiteral("no PATH given"));
    const QStringList iconDirectories = parser.values(QStringLiteral("icons"));
    for (const QString& directory : iconDirectories) {
        if (!QFileInfo(directory).isDir())
            return usageError(QStringLiteral("%1: no such icon directory").arg(directory));
    }
    PathCollector collector(QStringList(QStringLiteral("xcui")));
    if (!collector.collect(parser.positionalArguments()))
        return usageError(collector.error());

    const QStringList files = collector.files();
    Action::setIconDirList(iconDirectories.isEmpty() ? iconFoldersBeside(files) : iconDirectories);
    ActionPool pool;
    int result = Success;
    for (const QString& file : files) {
        if (!load(pool, file))
            result = Failure;
    }
    print(pool);
    if (parser.isSet(QStringLiteral("save")) && !save(pool, parser.value(QStringLiteral("save"))))
        result = Failure;
    return result;
}

// The "icons" folders beside the files, where the catalogue keeps them by default.
QStringList UiCommand::iconFoldersBeside(const QStringList& files)
{
    QStringList folders;
    for (const QString& file : files) {
        const QString folder = QFileInfo(file).dir().filePath(QStringLiteral("icons"));
        if (!folders.contains(folder) && QFileInfo(folder).isDir())
            folders.append(folder);
    }
    return folders;
}

bool UiCommand::load(ActionPool& pool, const QString& filePath)
{
    const bool loaded = pool.load(filePath);
    if (!loaded)
        report(QStringLiteral("%1: failed to load").arg(filePath));
    declaredIcons.insert(DeclaredIcons::read(filePath));
    reportDropped(pool, filePath);
    return loaded;
}

// The pool keeps an action that "MinWinVer" disabled as its child, but not under its name.
void UiCommand::reportDropped(const ActionPool& pool, const QString& filePath)
{
    const QList<Action*> children = pool.findChildren<Action*>(QString(), Qt::FindDirectChildrenOnly);
    for (const Action* action : children) {
        if (seen.contains(action))
            continue;
        seen.insert(action);
        if (!action->isEnabled()) {
            Console::out(QStringLiteral("%1: %2 dropped by MinWinVer").arg(filePath, action->name()));
            ++dropped;
        }
    }
}

void UiCommand::print(const ActionPool& pool) const
{
    TextTable table({QStringLiteral("name"), QStringLiteral("type"), QStringLiteral("script"),
                     QStringLiteral("icon")});
    const QList<Action*> actions = pool.actions();
    int missing = 0;
    for (const Action* action : actions) {
        const QString icon = iconState(*action);
        if (icon.startsWith(QLatin1String("missing")))
            ++missing;
        table.addRow({action->name(), action->type(), action->script(), icon});
    }
    for (const QString& line : table.lines())
        Console::out(line);
    Console::out(QStringLiteral("%1 action(s), %2 icon(s) missing, %3 dropped by MinWinVer")
                     .arg(actions.size()).arg(missing).arg(dropped));
}

QString UiCommand::iconState(const Action& action) const
{
    if (!action.iconName().isEmpty())
        return QStringLiteral("resolved (%1)").arg(action.iconName());
    const QString declared = declaredIcons.value(action.name());
    return declared.isEmpty() ? QStringLiteral("-") : QStringLiteral("missing (%1)").arg(declared);
}

// ActionPool::save reports a write error as true and a file it could not open as false, just
// like success; so the file is opened once beforehand (without truncating it) to tell them
// apart. A write error that only shows when the file is flushed goes unreported by the writer,
// so the file is read back as well.
bool UiCommand::save(ActionPool& pool, const QString& filePath) const
{
    QFile probe(filePath);
    if (!probe.open(QIODevice::WriteOnly | QIODevice::Append)) {
        report(QStringLiteral("%1: cannot write: %2").arg(filePath, probe.errorString()));
        return false;
    }
    probe.close();
    if (pool.save(filePath) || !readsBack(pool, filePath)) {
        report(QStringLiteral("%1: writing failed").arg(filePath));
        return false;
    }
    Console::out(QStringLiteral("%1: saved %2 action(s)").arg(filePath).arg(pool.actions().size()));
    return true;
}

bool UiCommand::readsBack(const ActionPool& pool, const QString& filePath)
{
    ActionPool written;
    return written.load(filePath) && written.actions().size() == pool.actions().size();
}

} // namespace CsTool
