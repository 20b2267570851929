#ifndef COMMANDSYSTEM_SHORTCUTSCHEME_H
#define COMMANDSYSTEM_SHORTCUTSCHEME_H

#include <CommandSystem/Global.h>
#include <CommandSystem/Keymap.h>

#include <QKeySequence>
#include <QObject>
#include <QStringList>

CS_BEGIN_NAMESPACE

class ActionPool;
class ShortcutSchemeImpl;

/**
 * \brief The shortcuts of an action pool: the catalogue's defaults, and the user's changes on
 *        top of them, kept as a small keymap that survives a new catalogue.
 *
 * The scheme takes the shortcuts that the pool's actions have when it is made as their
 * defaults, so a host first gives its actions the catalogue's shortcuts (for instance with
 * Keymap::applyTo and a keymap shipped with the catalogue) and then makes the scheme. The
 * user's keymap file holds only what differs from those defaults; load() applies it and
 * save() writes the difference back. Entries of the user's keymap whose action the pool no
 * longer holds are kept, written back on save() and listed by orphans(); they are never
 * dropped. Without a user's keymap the actions keep their defaults.
 *
 * All shortcuts are set with Action::setShortcut, so clones follow their action (a clone made
 * with its own icon keeps its own shortcut).
 *
 * GUI thread only, like the actions it changes. The scheme does not own the pool; it must not
 * be used after the pool is destroyed.
 */
class COMMANDSYSTEM_EXPORT ShortcutScheme : public QObject
{
    Q_OBJECT

public:
    /**
     * \brief A scheme over the pool, with the actions' current shortcuts as their defaults.
     * \param pool the actions; not owned, must outlive the scheme.
     * \param parent the scheme's parent object.
     */
    explicit ShortcutScheme(ActionPool* pool, QObject* parent = nullptr);
    ~ShortcutScheme() override;

    /** The pool the scheme works on. */
    ActionPool* pool() const;

    /**
     * \brief The action's shortcut before any user change; empty for an action that had none
     *        or that the pool did not hold when the scheme was made.
     * \param action the action's name.
     */
    QKeySequence defaultShortcut(const QString& action) const;

    /**
     * \brief Reads the user's keymap file and applies it, replacing all earlier user changes.
     *
     * Every action goes back to its default, then each entry of the file is applied. A file
     * that cannot be read whole changes nothing at all (see Keymap::load) and returns false;
     * errorString() then says what and where. A file that does not exist is no error: the user
     * has changed nothing yet, and every action gets its default.
     * \param path the user's keymap file.
     * \return true when the file was applied or does not exist.
     */
    bool load(const QString& path);

    /**
     * \brief Applies a keymap as the user's changes, replacing all earlier user changes.
     *
     * Every action goes back to its default, then each entry is applied; entries without an
     * action in the pool become the orphans.
     * \param keymap the user's changes.
     */
    void apply(const Keymap& keymap);

    /**
     * \brief The user's changes: each action of the pool whose shortcut differs from its
     *        default (an explicit "none" for a default that was taken away), and the orphans.
     */
    Keymap changes() const;

    /**
     * \brief Writes changes() to the user's keymap file, atomically.
     * \param path the user's keymap file.
     * \return true when the file was written; on false see errorString().
     */
    bool save(const QString& path);

    /**
     * \brief Gives every action its default again and forgets the orphans, as if the user's
     *        keymap file had been removed.
     */
    void resetToDefaults();

    /**
     * \brief The actions of the applied keymap that the pool does not hold, in name order.
     *
     * Their entries stay part of changes() and are written by save(); changes().location()
     * tells where each was read.
     */
    QStringList orphans() const;

    /** What went wrong in the last load() or save() that failed; empty after a success. */
    QString errorString() const;

private:
    ShortcutSchemeImpl* d;
};

CS_END_NAMESPACE

#endif
