#include <CommandSystem/Action.h>

#include "action/ActionImpl.h"
#include "action/CloneAction.h"
#include "platform/LogInfo.h"

#include <boost/pool/singleton_pool.hpp>

#include <new>

CS_BEGIN_NAMESPACE

namespace {

// Actions are made by the hundred when UI definition files load: fixed-size blocks from a
// process-wide pool whose chunks start at 32 blocks and double. Nothing here is locked; actions
// live on the GUI thread.
struct ActionBlockTag {};
using ActionBlocks = boost::singleton_pool<ActionBlockTag, sizeof(Action),
                                           boost::default_user_allocator_new_delete,
                                           boost::details::pool::null_mutex, 32, 0>;

QStringList& iconDirectories()
{
    static QStringList directories;
    return directories;
}

} // namespace

Action::Action(QObject* parent) : QAction(parent), d(new ActionImpl(this)) {}

Action::~Action()
{
    d->syncing = false;
    delete d;
}

QString Action::name() const { return objectName(); }
QString Action::type() const { return d->type; }
QString Action::form() const { return d->form; }
QString Action::ribbonText() const { return d->ribbonText; }
QString Action::menuText() const { return d->menuText; }
QString Action::iconName() const { return d->iconName; }
QString Action::menuIcon() const { return d->menuIcon; }
QString Action::hint() const { return d->hint; }
QString Action::help() const { return d->help; }
QString Action::desc() const { return d->desc; }
QString Action::script() const { return d->script; }
QString Action::widget() const { return d->widget; }
QString Action::mapper() const { return d->mapper; }
QString Action::options() const { return d->options; }
ActionMapper* Action::actionMapper() const { return d->actionMapper; }
WidgetMapper* Action::widgetMapper() const { return d->widgetMapper; }

void Action::setName(const QString& name) { setObjectName(name); }
void Action::setType(const QString& type) { d->type = type; }
void Action::setForm(const QString& form) { d->form = form; }
void Action::setHint(const QString& hint) { d->hint = hint; }
void Action::setHelp(const QString& help) { d->help = help; }
void Action::setDesc(const QString& desc) { d->desc = desc; }
void Action::setScript(const QString& script) { d->script = script; }
void Action::setWidget(const QString& widget) { d->widget = widget; }
void Action::setMapper(const QString& mapper) { d->mapper = mapper; }
void Action::setOptions(const QString& options) { d->options = options; }
void Action::setIconName(const QString& iconName) { d->iconName = iconName; }
void Action::setmenuIcon(const QString& menuIcon) { d->menuIcon = menuIcon; }

void Action::setRibbonText(const QString& text)
{
    if (text == d->ribbonText)
        return;
    d->ribbonText = text;
    emit ribbonTextChanged(text);
}

void Action::setMenuText(const QString& text)
{
    if (text == d->menuText)
        return;
    d->menuText = text;
    emit menuTextChanged(text);
}

void Action::setShortcut(const QKeySequence& shortcut)
{
    // Clearing is always passed on, so clones that took a shortcut of their own lose it too.
    if (shortcut == QAction::shortcut() && !shortcut.isEmpty())
        return;
    QAction::setShortcut(shortcut);
    emit shortcutChanged(shortcut);
}

void Action::setIconDirList(const QStringList& directories)
{
    iconDirectories() = directories;
}

QStringList Action::iconDirList()
{
    return iconDirectories();
}

void Action::trigger()
{
    emit triggered(this);
}

QAction* Action::clone(QObject* parent, int type)
{
    return clone(parent, QIcon(), QString(), type);
}

QAction* Action::clone(QObject* parent, const QIcon& icon, const QString& text, int type)
{
    if (d->type == QLatin1String("widget"))
        return d->cloneWidget(parent);
    return d->clonePlain(parent, icon, text, type);
}

void* Action::operator new(std::size_t size)
{
    // A host subclass is bigger than a block.
    if (size != sizeof(Action))
        return ::operator new(size);
    if (void* block = ActionBlocks::malloc())
        return block;
    throw std::bad_alloc();
}

void Action::operator delete(void* pointer, std::size_t size)
{
    if (!pointer)
        return;
    if (size != sizeof(Action))
        ::operator delete(pointer);
    else
        ActionBlocks::free(pointer);
}

void Action::setChecked(bool checked)
{
    QAction::setChecked(checked);
    emit checkedChanged(checked);
}

void Action::setEnabled(bool enabled)
{
    QAction::setEnabled(enabled);
    emit enabledChanged(enabled);
}

void Action::setVisible(bool visible)
{
    QAction::setVisible(visible);
    emit visibleChanged(visible);
}

void Action::setIcon(const QString& name)
{
    if (name.isEmpty())
        return;
    const QString path = ActionImpl::resolveIcon(name);
    if (path.isEmpty())
        return;
    const QIcon icon = ActionImpl::loadIcon(path);
    if (icon.cacheKey() == QAction::icon().cacheKey())
        return;
    d->iconName = name;
    QAction::setIcon(icon);
    emit iconChanged(path);
}

void Action::onChanged()
{
    const QAction* clone = CloneAction::takeChanging();
    // Anything but one of our clones announcing a change is looked up the slow way.
    if (!clone || clone->objectName() != objectName())
        clone = qobject_cast<const QAction*>(sender());
    if (!clone)
        return;
    // The echo of our own signals comes back here through every clone: ignore it.
    const bool checked = clone->isChecked();
    if (checked != isChecked() && !d->syncing) {
        d->syncing = true;
        QAction::setChecked(checked);
        emit checkedChanged(checked);
        d->syncing = false;
    }
    const bool enabled = clone->isEnabled();
    if (enabled != isEnabled() && !d->syncing) {
        d->syncing = true;
        QAction::setEnabled(enabled);
        emit enabledChanged(enabled);
        d->syncing = false;
    }
}

void Action::onTriggered()
{
    if (const QObject* clone = sender()) {
        const QVariant dynamic = clone->property("Dynamic");
        if (dynamic.isValid() && dynamic.toBool())
            d->script = clone->property("command").toString();
    }
    emit triggered(this);
    VrCu::LogInfo::LogAction(name().toLatin1().constData());
}

QString Action::text() const
{
    return QAction::text();
}

void Action::setText(const QString& text)
{
    QAction::setText(text);
}

CS_END_NAMESPACE
