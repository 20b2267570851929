#include <CommandSystem/ActionPool.h>

#include "action/ActionPoolImpl.h"
#include "action/IconCache.h"
#include "action/MetaConnection.h"
#include "platform/OutputFile.h"

#include <CommandSystem/Action.h>

#include <QDebug>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

CS_BEGIN_NAMESPACE

namespace {

const MetaConnection& triggeredConnection()
{
    static const MetaConnection connection(Action::staticMetaObject, SIGNAL(triggered(Action*)),
                                           ActionPool::staticMetaObject,
                                           SLOT(onTriggered(Action*)));
    return connection;
}

void reportError(const QString& path, const QXmlStreamReader& reader)
{
    qDebug() << "An error has occurred while loading " << QFileInfo(path).fileName()
             << " at line " << reader.lineNumber() << ", column " << reader.columnNumber()
             << ": " << reader.errorString();
}

} // namespace

bool (*ActionPool::filter)(const QString&) = nullptr;

ActionPool::ActionPool() : d(new ActionPoolImpl(this)) {}

ActionPool::~ActionPool()
{
    delete d;
}

ActionPool* ActionPool::fromFolder(const QString& folder)
{
    auto* pool = new ActionPool();
    const QFileInfoList files = QDir(folder).entryInfoList(
        QStringList(QStringLiteral("*.xcui")), QDir::Files, QDir::NoSort);
    for (const QFileInfo& file : files)
        pool->load(file.absoluteFilePath());
    return pool;
}

bool ActionPool::load(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return false;
    // Many actions of a file share icon files: decode each once for this file.
    const IconCache iconCache;
    QXmlStreamReader reader(&file);
    while (!reader.atEnd()) {
        reader.readNext();
        if (!reader.isStartElement())
            continue;
        if (reader.name() == QLatin1String("Actions"))
            d->readActions(reader);
        else
            reader.raiseError(QLatin1String("Unexpected element: ") + reader.name().toString());
    }
    if (!reader.hasError())
        return true;
    reportError(path, reader);
    return false;
}

bool ActionPool::save(const QString& path)
{
    // A failed write leaves the earlier file as it was.
    OutputFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text))
        return false;
    QXmlStreamWriter writer(file.device());
    writer.setAutoFormatting(true);
    writer.writeStartDocument(QStringLiteral("1.0"));
    writer.writeStartElement(QStringLiteral("Actions"));
    writer.writeAttribute(QStringLiteral("name"), QStringLiteral("Vexa"));
    writer.writeAttribute(QStringLiteral("version"), QStringLiteral("1700"));
    for (const auto& entry : d->actions)
        ActionPoolImpl::writeAction(writer, *entry.second);
    writer.writeEndElement();
    writer.writeEndDocument();
    // Inverted on purpose: true means the file was opened and writing it failed. A target that
    // cannot be created shows only when the temporary takes its name; that is a file that
    // could not be opened.
    if (writer.hasError())
        return true;
    return !file.commit() && !file.targetRefused();
}

Action* ActionPool::insertAction(const QString& name)
{
    auto* action = new Action(this);
    action->setName(name);
    insertAction(action);
    return action;
}

void ActionPool::insertAction(Action* action)
{
    if (!action)
        return;
    triggeredConnection().connect(action, this);
    // A replaced action stays connected and alive.
    d->actions[action->name()] = action;
}

void ActionPool::insertQAction(QAction* action)
{
    if (action)
        d->qActions.append(action);
}

Action* ActionPool::removeAction(const QString& name)
{
    const auto entry = d->actions.find(name);
    if (entry == d->actions.end())
        return nullptr;
    Action* action = entry->second;
    disconnect(action, nullptr, this, nullptr);
    d->actions.erase(entry);
    return action;
}

void ActionPool::removeAction(Action* action)
{
    if (action)
        removeAction(action->name());
}

Action* ActionPool::action(const QString& key) const
{
    if (key.startsWith(QLatin1String("ID_"))) {
        const auto entry = d->actions.find(key);
        return entry != d->actions.end() ? entry->second : nullptr;
    }
    for (const auto& entry : d->actions) {
        if (entry.second->script().endsWith(key))
            return entry.second;
    }
    return nullptr;
}

QAction* ActionPool::qAction(const QString& name) const
{
    for (QAction* action : qAsConst(d->qActions)) {
        if (action->objectName() == name)
            return action;
    }
    return nullptr;
}

QList<Action*> ActionPool::actions() const
{
    QList<Action*> all;
    all.reserve(int(d->actions.size()));
    for (const auto& entry : d->actions)
        all.append(entry.second);
    return all;
}

QStringList ActionPool::scriptList()
{
    QStringList scripts;
    scripts.reserve(int(d->actions.size()));
    for (const auto& entry : d->actions)
        scripts.append(entry.second->script());
    return scripts;
}

void ActionPool::setActionFilter(bool (*function)(const QString&))
{
    filter = function;
}

void ActionPool::onTriggered(Action* action)
{
    QString command = action->script();
    if (action->type() == QLatin1String("toggle"))
        command += action->isChecked() ? QLatin1String("On") : QLatin1String("Off");
    emit commandIssued(command);
}

CS_END_NAMESPACE
