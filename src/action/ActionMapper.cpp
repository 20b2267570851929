#include <CommandSystem/ActionMapper.h>

#include <CommandSystem/Action.h>

#include <QDir>
#include <QFileInfo>
#include <QIcon>
#include <QPixmap>

CS_BEGIN_NAMESPACE

namespace {

// Only presence counts: Action::clone sets these properties to true or not at all.
bool hasProperty(const QObject* object, const char* name)
{
    return object->property(name).isValid();
}

// The clone this mapper keeps up to date, unless it was given its own text.
QAction* textTarget(const QObject* mapper, bool menuText)
{
    auto* clone = qobject_cast<QAction*>(mapper->parent());
    if (!clone || hasProperty(clone, "VrCsCustomizedText"))
        return nullptr;
    const QVariant type = clone->property("VrCsActionType");
    if (!type.isValid() || (type.toInt() == 0) != menuText)
        return nullptr;
    return clone;
}

// A clone with its own icon keeps its own shortcut too.
QAction* iconTarget(const QObject* mapper)
{
    auto* clone = qobject_cast<QAction*>(mapper->parent());
    if (!clone || hasProperty(clone, "VrCsCustomizedIcon"))
        return nullptr;
    return clone;
}

QPixmap clonePixmap(const QString& name)
{
    QString path;
    for (const QString& directory : Action::iconDirList()) {
        path = QDir(directory).filePath(name);
        if (QFileInfo::exists(path))
            break;
    }
    QPixmap pixmap(path);
    const QFileInfo file(name);
    if (pixmap.isNull() && file.exists())
        pixmap.load(file.absoluteFilePath());
    return pixmap;
}

} // namespace

ActionMapper::ActionMapper(QObject* parent) : QObject(parent) {}

ActionMapper::~ActionMapper() = default;

void ActionMapper::map(QAction*) {}

QList<QAction*> ActionMapper::actions() const
{
    QList<QAction*> alive;
    for (const QPointer<QAction>& action : mappedActions) {
        if (action)
            alive.append(action.data());
    }
    return alive;
}

void ActionMapper::onRibbonTextChanged(const QString& text)
{
    if (QAction* clone = textTarget(this, false))
        clone->setText(text);
}

void ActionMapper::onMenuTextChanged(const QString& text)
{
    if (QAction* clone = textTarget(this, true))
        clone->setText(text);
}

void ActionMapper::onIconChanged(const QString& name)
{
    // No scaling and no variants here: a null pixmap clears the clone's icon.
    if (QAction* clone = iconTarget(this))
        clone->setIcon(QIcon(clonePixmap(name)));
}

void ActionMapper::onShortcutChanged(const QKeySequence& shortcut)
{
    if (QAction* clone = iconTarget(this))
        clone->setShortcut(shortcut);
}

CS_END_NAMESPACE
