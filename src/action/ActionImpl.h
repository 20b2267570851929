#ifndef COMMANDSYSTEM_ACTIONIMPL_H
#define COMMANDSYSTEM_ACTIONIMPL_H

#include <CommandSystem/Action.h>
#include <CommandSystem/Impl.h>

#include <QString>

CS_BEGIN_NAMESPACE

class ActionMapper;
class WidgetMapper;

class ActionImpl : public Impl<Action>
{
public:
    using Impl::Impl;

    QAction* cloneWidget(QObject* parent);
    QAction* clonePlain(QObject* parent, const QIcon& icon, const QString& text, int type);
    // The icon file that an icon name stands for, or an empty string.
    static QString resolveIcon(const QString& name);
    // The icon of a file with its "_disabled" and "_active" variants, scaled for the desktop.
    static QIcon loadIcon(const QString& path);

    bool syncing = false;
    QString type;
    QString help;
    QString menuIcon;
    QString desc;
    QString hint;
    QString form;
    QString script;
    QString widget;
    QString mapper;
    QString options;
    QString iconName;
    QString ribbonText;
    QString menuText;
    ActionMapper* actionMapper = nullptr;
    WidgetMapper* widgetMapper = nullptr;

private:
    bool ensureWidgetMapper();
};

CS_END_NAMESPACE

#endif
