#include "action/ActionImpl.h"

#include "action/CloneAction.h"
#include "action/IconCache.h"
#include "action/MetaConnection.h"

#include <CommandSystem/ActionMapper.h>
#include <CommandSystem/Builder.h>
#include <CommandSystem/PlatformHooks.h>
#include <CommandSystem/WidgetMapper.h>

#include <QDir>
#include <QFileInfo>
#include <QWidgetAction>

CS_BEGIN_NAMESPACE

namespace {

// The connections of every plain clone, looked up once. The two that every enabling and
// disabling of an action runs through, once per clone, are made by signature (see
// MetaConnection); made by signature, the other eight would add more to cloning than they save.
struct CloneConnections {
    const QMetaObject& object = QObject::staticMetaObject;
    const QMetaObject& action = Action::staticMetaObject;
    const QMetaObject& qAction = QAction::staticMetaObject;
    const QMetaObject& mapper = ActionMapper::staticMetaObject;

    MetaConnection destroyed{object, SIGNAL(destroyed()), object, SLOT(deleteLater())};
    MetaConnection checked{action, SIGNAL(checkedChanged(bool)), qAction, SLOT(setChecked(bool))};
    MetaConnection enabled{action, SIGNAL(enabledChanged(bool)), qAction, SLOT(setEnabled(bool)),
                           MetaConnection::BySignature};
    MetaConnection visible{action, SIGNAL(visibleChanged(bool)), qAction, SLOT(setVisible(bool))};
    MetaConnection triggered{qAction, SIGNAL(triggered()), action, SLOT(onTriggered())};
    MetaConnection changed{qAction, SIGNAL(changed()), action, SLOT(onChanged()),
                           MetaConnection::BySignature};
    MetaConnection ribbonText{action, SIGNAL(ribbonTextChanged(QString)),
                              mapper, SLOT(onRibbonTextChanged(QString))};
    MetaConnection menuText{action, SIGNAL(menuTextChanged(QString)),
                            mapper, SLOT(onMenuTextChanged(QString))};
    MetaConnection icon{action, SIGNAL(iconChanged(QString)), mapper, SLOT(onIconChanged(QString))};
    MetaConnection shortcut{action, SIGNAL(shortcutChanged(QKeySequence)),
                            mapper, SLOT(onShortcutChanged(QKeySequence))};

    void connect(Action* source, QAction* clone, ActionMapper* cloneMapper) const
    {
        destroyed.connect(source, clone);
        checked.connect(source, clone);
        enabled.connect(source, clone);
        visible.connect(source, clone);
        triggered.connect(clone, source);
        changed.connect(clone, source);
        ribbonText.connect(source, cloneMapper);
        menuText.connect(source, cloneMapper);
        icon.connect(source, cloneMapper);
        shortcut.connect(source, cloneMapper);
    }
};

const CloneConnections& cloneConnections()
{
    static const CloneConnections connections;
    return connections;
}

bool isExistingFile(const QString& path)
{
    return IconCache::isFile(path);
}

// Icons are drawn for 96 DPI; only a clearly larger desktop (150 % and up) scales them.
QSizeF desktopFactors()
{
    const QSizeF dpi = platformHooks().logicalDpi();
    const auto factor = [](qreal value) { return value < 1.4 ? 1.0 : value; };
    return QSizeF(factor(dpi.width() / 96.0), factor(dpi.height() / 96.0));
}

// "open.png" gives "open_disabled.png" for the tag "_disabled".
QString variantPath(const QString& path, const QString& tag)
{
    const QString suffix = QLatin1Char('.') + QFileInfo(path).suffix();
    return QString(path).replace(suffix, tag + suffix, Qt::CaseSensitive);
}

void addVariant(QIcon& icon, const QString& path, const QString& tag, QIcon::Mode mode,
                const QSizeF& factors)
{
    const QString variant = variantPath(path, tag);
    if (!isExistingFile(variant))
        return;
    const QPixmap pixmap = IconCache::scaledPixmap(variant, factors);
    if (!pixmap.isNull())
        icon.addPixmap(pixmap, mode, QIcon::Off);
}

} // namespace

QAction* ActionImpl::cloneWidget(QObject* parent)
{
    if (!ensureWidgetMapper())
        return nullptr;
    QWidget* widgetParent = parent && parent->isWidgetType() ? static_cast<QWidget*>(parent)
                                                             : nullptr;
    QWidget* made = Builder::createWidget(widget, widgetParent);
    if (!made)
        return nullptr;
    made->setProperty("action", owner->name());
    made->setToolTip(menuText);
    widgetMapper->map(made);
    widgetMapper->mappedWidgets.append(made);

    auto* clone = new QWidgetAction(parent);
    clone->setObjectName(owner->name());
    clone->setText(menuText);
    clone->setDefaultWidget(made);
    return clone;
}

bool ActionImpl::ensureWidgetMapper()
{
    if (!widgetMapper)
        widgetMapper = qobject_cast<WidgetMapper*>(Builder::createMapper(mapper, owner));
    return widgetMapper != nullptr;
}

QAction* ActionImpl::clonePlain(QObject* parent, const QIcon& icon, const QString& text,
                                int type)
{
    const QString shownText = !text.isEmpty() ? text : type != 0 ? ribbonText : menuText;
    auto* clone = new CloneAction(icon.isNull() ? owner->icon() : icon, shownText,
                                  parent ? parent : owner);
    if (!icon.isNull())
        clone->setProperty("VrCsCustomizedIcon", true);
    if (!text.isEmpty())
        clone->setProperty("VrCsCustomizedText", true);
    clone->setProperty("VrCsActionType", type);
    clone->setObjectName(owner->name());
    clone->setProperty("command", script);
    clone->setCheckable(owner->isCheckable());
    clone->setChecked(owner->isChecked());
    clone->setEnabled(owner->isEnabled());
    cloneConnections().connect(owner, clone, new ActionMapper(clone));
    return clone;
}

QString ActionImpl::resolveIcon(const QString& name)
{
    if (isExistingFile(name))
        return name;
    // Any "." counts, even one in a directory name: "icons.old/open" stays as it is.
    const QString file = name.contains(QLatin1Char('.')) ? name : name + QLatin1String(".png");
    if (isExistingFile(file))
        return file;
    for (const QString& directory : Action::iconDirList()) {
        const QString path = QDir(directory).filePath(file);
        if (isExistingFile(path))
            return path;
    }
    return QString();
}

QIcon ActionImpl::loadIcon(const QString& path)
{
    const QSizeF factors = desktopFactors();
    QIcon icon(IconCache::scaledPixmap(path, factors));
    addVariant(icon, path, QStringLiteral("_disabled"), QIcon::Disabled, factors);
    addVariant(icon, path, QStringLiteral("_active"), QIcon::Active, factors);
    return icon;
}

CS_END_NAMESPACE
