#ifndef COMMANDSYSTEM_ACTIONMAPPER_H
#define COMMANDSYSTEM_ACTIONMAPPER_H

#include <CommandSystem/Global.h>

#include <QAction>
#include <QKeySequence>
#include <QList>
#include <QObject>
#include <QPointer>

CS_BEGIN_NAMESPACE

/**
 * Keeps one clone, its parent object, in step with the Action it was cloned from.
 *
 * Action::clone() makes one per plain clone, as the clone's child, and connects the action's
 * change signals to the slots below. Each slot changes the mapper's parent, reading the
 * dynamic properties that clone() put on it. Hosts may subclass it and override map().
 *
 * Threads: GUI thread only.
 */
class COMMANDSYSTEM_EXPORT ActionMapper : public QObject
{
    Q_OBJECT

public:
    /** Makes a mapper whose parent (usually a clone) is \a parent. */
    explicit ActionMapper(QObject* parent);
    /** Destroys the mapper; the mapped actions are not touched. */
    ~ActionMapper() override;

    /** Hook for subclasses to wire \a action to the host; does nothing here. */
    virtual void map(QAction* action);
    /**
     * The mapped actions that are still alive, in mapping order. Empty for the mappers that
     * clone() makes; subclasses and hosts fill mappedActions.
     */
    QList<QAction*> actions() const;

public slots:
    /** Sets \a text on a ribbon clone (type not 0) without its own text. */
    void onRibbonTextChanged(const QString& text);
    /** Sets \a text on a menu clone (type 0) without its own text. */
    void onMenuTextChanged(const QString& text);
    /**
     * Sets the icon file \a name (looked up in Action::iconDirList(), then as a path) on a
     * clone without its own icon, unscaled and without variants; a file that is gone clears
     * the clone's icon.
     */
    void onIconChanged(const QString& name);
    /**
     * Sets \a shortcut on a clone without its own icon. Deliberate irregularity: a clone with
     * its own icon also keeps its own shortcut.
     */
    void onShortcutChanged(const QKeySequence& shortcut);

protected:
    /** Weak references to the mapped actions; deleted ones drop out of actions(). */
    QList<QPointer<QAction>> mappedActions;
};

CS_END_NAMESPACE

#endif
