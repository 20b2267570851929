#ifndef COMMANDSYSTEM_ACTION_H
#define COMMANDSYSTEM_ACTION_H

#include <CommandSystem/Global.h>

#include <QAction>
#include <QIcon>
#include <QKeySequence>
#include <QStringList>

#include <cstddef>

CS_BEGIN_NAMESPACE

class ActionImpl;
class ActionMapper;
class WidgetMapper;

// The master copy of one user-interface command. It is never shown itself: clone() makes the
// menu, ribbon and widget entries, which follow it, and any clone firing makes it emit
// triggered(Action*).
class COMMANDSYSTEM_EXPORT Action : public QAction
{
    Q_OBJECT

public:
    explicit Action(QObject* parent);
    ~Action() override;

    QString name() const;
    QString type() const;
    QString form() const;
    QString ribbonText() const;
    QString menuText() const;
    QString iconName() const;
    QString menuIcon() const;
    QString hint() const;
    QString help() const;
    QString desc() const;
    QString script() const;
    QString widget() const;
    QString mapper() const;
    QString options() const;
    ActionMapper* actionMapper() const;
    WidgetMapper* widgetMapper() const;

    void setName(const QString& name);
    void setType(const QString& type);
    void setForm(const QString& form);
    void setHint(const QString& hint);
    void setHelp(const QString& help);
    void setDesc(const QString& desc);
    void setScript(const QString& script);
    void setWidget(const QString& widget);
    void setMapper(const QString& mapper);
    void setOptions(const QString& options);
    void setIconName(const QString& iconName);
    void setmenuIcon(const QString& menuIcon);
    void setRibbonText(const QString& text);
    void setMenuText(const QString& text);
    void setShortcut(const QKeySequence& shortcut);

    static void setIconDirList(const QStringList& directories);
    static QStringList iconDirList();

    // Emits triggered(this) and nothing else.
    void trigger();

    // type 0 makes a menu entry, any other value a ribbon entry.
    QAction* clone(QObject* parent, int type);
    QAction* clone(QObject* parent, const QIcon& icon, const QString& text, int type);

    static void* operator new(std::size_t size);
    static void operator delete(void* pointer, std::size_t size);

signals:
    void enabledChanged(bool enabled);
    void checkedChanged(bool checked);
    void visibleChanged(bool visible);
    void iconChanged(const QString& name);
    void ribbonTextChanged(const QString& text);
    void menuTextChanged(const QString& text);
    void shortcutChanged(const QKeySequence& shortcut);
    void triggered(Action* action);

public slots:
    void setChecked(bool checked);
    void setEnabled(bool enabled);
    void setVisible(bool visible);
    void setIcon(const QString& name);

private slots:
    void onChanged();
    void onTriggered();

private:
    QString text() const;
    void setText(const QString& text);

    ActionImpl* d;
};

CS_END_NAMESPACE

#endif
