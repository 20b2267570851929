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

/**
 * The master copy of one user-interface command: a named QAction with texts, an icon, help
 * strings and the command script that firing it issues.
 *
 * An Action is never put on screen itself. clone() makes the menu, ribbon and widget entries;
 * they follow the Action's checked, enabled and visible state, texts, icon and shortcut, and a
 * clone that fires makes the Action emit triggered(Action*), which ActionPool turns into
 * ActionPool::commandIssued(). Deliberate irregularity: triggering the master as a QAction
 * (QAction::trigger(), a shortcut on it, or placing it in a menu) issues nothing, since only
 * triggered(Action*) reaches the pool.
 *
 * The name is the object name and the translation context of the texts read from UI
 * definition files. The connections to clones are made with string-based signatures, so the
 * meta-object class name is the bare "Action".
 *
 * Ownership: clones are children of the parent given to clone() (or of the Action) and are
 * deleted later when the Action is destroyed. Actions are allocated from a process-wide pool
 * of fixed-size blocks (see operator new()).
 *
 * Threads: GUI thread only; nothing is locked, and the icon directory list is process-wide.
 */
class COMMANDSYSTEM_EXPORT Action : public QAction
{
    Q_OBJECT

public:
    /** Makes an action with the Qt \a parent; every text is empty. */
    explicit Action(QObject* parent);
    /** Destroys the action; its clones are deleted later through their connection to it. */
    ~Action() override;

    /** The name (the object name). */
    QString name() const;
    /** The kind: "widget", "toggle", "check_box", or any other word for a plain command. */
    QString type() const;
    /** The form the action belongs to; stored for the host only. */
    QString form() const;
    /** The text of ribbon clones. */
    QString ribbonText() const;
    /** The text of menu clones, also the tool-tip of widget clones. */
    QString menuText() const;
    /** The icon name last given to setIcon() that resolved to a file; "" otherwise. */
    QString iconName() const;
    /** The icon name for menus; stored for the host only. */
    QString menuIcon() const;
    /** The short hint. */
    QString hint() const;
    /** The help text. */
    QString help() const;
    /** The long description. */
    QString desc() const;
    /** The command script that firing the action issues. */
    QString script() const;
    /** For type "widget": the Builder name of the widget that clone() makes. */
    QString widget() const;
    /** For type "widget": the Builder name of the widget mapper. */
    QString mapper() const;
    /** For type "toggle": free option text; stored for the host only. */
    QString options() const;
    /** Always null: no part of the library sets it; kept for hosts. */
    ActionMapper* actionMapper() const;
    /**
     * The widget mapper made by the first clone() of a "widget" action, or null. Not owned by
     * the action: the Factory that made it decides its parent and lifetime.
     */
    WidgetMapper* widgetMapper() const;

    /** Sets the name (the object name) to \a name; emits nothing. */
    void setName(const QString& name);
    /** Sets the kind to \a type; emits nothing. Takes effect at the next clone(). */
    void setType(const QString& type);
    /** Sets the form to \a form; emits nothing. */
    void setForm(const QString& form);
    /** Sets the hint to \a hint; emits nothing. */
    void setHint(const QString& hint);
    /** Sets the help text to \a help; emits nothing. */
    void setHelp(const QString& help);
    /** Sets the description to \a desc; emits nothing. */
    void setDesc(const QString& desc);
    /** Sets the command script to \a script; emits nothing. Clones made later carry it. */
    void setScript(const QString& script);
    /** Sets the widget's Builder name to \a widget; emits nothing. */
    void setWidget(const QString& widget);
    /** Sets the mapper's Builder name to \a mapper; emits nothing. */
    void setMapper(const QString& mapper);
    /** Sets the option text to \a options; emits nothing. */
    void setOptions(const QString& options);
    /** Sets the stored icon name to \a iconName without loading anything; emits nothing. */
    void setIconName(const QString& iconName);
    /** Sets the menu icon name to \a menuIcon; emits nothing. The lower-case m is historical. */
    void setmenuIcon(const QString& menuIcon);
    /** Sets the ribbon text to \a text; emits ribbonTextChanged() only when it changed. */
    void setRibbonText(const QString& text);
    /** Sets the menu text to \a text; emits menuTextChanged() only when it changed. */
    void setMenuText(const QString& text);
    /**
     * Sets the shortcut to \a shortcut and emits shortcutChanged() when it changed; an empty
     * sequence always emits, even when the shortcut was empty already. Hides
     * QAction::setShortcut().
     */
    void setShortcut(const QKeySequence& shortcut);

    /**
     * Replaces the process-wide list of directories in which setIcon() looks icon names up
     * with \a directories. Set it before the actions are loaded.
     */
    static void setIconDirList(const QStringList& directories);
    /** The directories in which icon names are looked up. */
    static QStringList iconDirList();

    /**
     * Emits triggered(this) and nothing else: no firing log and no "Dynamic" script. Hides
     * QAction::trigger(), which, called on the master, issues nothing.
     */
    void trigger();

    /**
     * The same as clone(parent, QIcon(), QString(), type).
     * \param parent the Qt parent of the clone
     * \param type 0 for a menu entry, any other value for a ribbon entry
     */
    QAction* clone(QObject* parent, int type);
    /**
     * Makes an entry for the host's menus, tool bars or ribbons that follows this action.
     *
     * For type() "widget" the result is a QWidgetAction whose widget and (once per action)
     * WidgetMapper come from Builder under the names widget() and mapper(); it follows nothing
     * and ignores \p icon, \p text and \p type; null when the builder knows either name not.
     * For any other type the result is a QAction that follows the action's state, texts, icon
     * and shortcut, carries the dynamic properties "VrCsActionType" and "command", and fires
     * the action when triggered. A clone given its own icon keeps it and its own shortcut; one
     * given its own text keeps it.
     *
     * \param parent the Qt parent of the clone, which owns it; null makes the action its parent
     * \param icon the clone's own icon, or a null icon to follow the action's
     * \param text the clone's own text, or "" to follow the action's menu or ribbon text
     * \param type 0 for a menu entry (menu text), any other value for a ribbon entry
     * \return the clone, owned by its parent; null for an unknown widget or mapper
     */
    QAction* clone(QObject* parent, const QIcon& icon, const QString& text, int type);

    /**
     * Allocates an Action from a process-wide pool of fixed-size blocks, which grows in chunks
     * and gives memory back only when the process ends. \a size is the object's size.
     */
    static void* operator new(std::size_t size);
    /** Returns the block at \a pointer, of \a size bytes, to the pool. */
    static void operator delete(void* pointer, std::size_t size);

signals:
    /** Emitted by setEnabled() every time, and when a clone's enabled state changed, with \a enabled. */
    void enabledChanged(bool enabled);
    /** Emitted by setChecked() every time, and when a clone was checked or unchecked, with \a checked. */
    void checkedChanged(bool checked);
    /** Emitted by setVisible() every time, with \a visible. */
    void visibleChanged(bool visible);
    /** Emitted by setIcon() when the icon changed, with the resolved file path \a name. */
    void iconChanged(const QString& name);
    /** Emitted by setRibbonText() when the text changed, with the new \a text. */
    void ribbonTextChanged(const QString& text);
    /** Emitted by setMenuText() when the text changed, with the new \a text. */
    void menuTextChanged(const QString& text);
    /** Emitted by setShortcut(), with the new \a shortcut. */
    void shortcutChanged(const QKeySequence& shortcut);
    /**
     * Emitted with \a action (this action) when a clone fired, after a clone whose "Dynamic"
     * property is true has replaced the script with its "command" property, and by trigger().
     */
    void triggered(Action* action);

public slots:
    /** Sets the checked state to \a checked and always emits checkedChanged(), which clones follow. */
    void setChecked(bool checked);
    /** Sets the enabled state to \a enabled and always emits enabledChanged(), which clones follow. */
    void setEnabled(bool enabled);
    /** Sets the visibility to \a visible and always emits visibleChanged(), which clones follow. */
    void setVisible(bool visible);
    /**
     * Loads the icon \a name: the name as a path, with ".png" added when it holds no "." at
     * all, then in each directory of iconDirList(). A "_disabled" and an "_active" file beside
     * it give the disabled and active variants; at a logical DPI of 1.4 times 96 or more the
     * pixmaps are scaled from 64 pixels. A name that resolves to no file changes nothing. Emits
     * iconChanged() with the resolved path when the icon changed. Hides QAction::setIcon().
     */
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
