#ifndef COMMANDSYSTEM_ACTIONPOOL_H
#define COMMANDSYSTEM_ACTIONPOOL_H

#include <CommandSystem/Global.h>

#include <QList>
#include <QObject>
#include <QStringList>

QT_BEGIN_NAMESPACE
class QAction;
QT_END_NAMESPACE

CS_BEGIN_NAMESPACE

class Action;
class ActionPoolImpl;

/**
 * The actions of the host's user interface by name, read from and written to UI definition
 * files (*.xcui). Any of its actions firing ends in commandIssued() with the command text that
 * the host is to run.
 *
 * Ownership: actions that the pool creates (insertAction(const QString&), load()) are its
 * child objects and die with it, whether or not they are still in the pool; actions and
 * QActions passed in are not owned. Removing an action never deletes it.
 *
 * Names are compared exactly and case-sensitively. The pool connects to its actions with
 * string-based signatures ("triggered(Action*)").
 *
 * Threads: GUI thread only; nothing is locked.
 */
class COMMANDSYSTEM_EXPORT ActionPool : public QObject
{
    Q_OBJECT

public:
    /** Makes an empty pool without a parent. */
    ActionPool();
    /** Destroys the pool and the actions it created. */
    ~ActionPool() override;

    /**
     * Makes a pool and loads every *.xcui file of \a folder into it, in the directory's own
     * order, ignoring failures; a later file wins a name defined twice. A missing folder gives
     * an empty pool. The caller owns the result.
     */
    static ActionPool* fromFolder(const QString& folder);

    /**
     * Reads the UI definition file \a path into this pool. False, with nothing changed, when
     * the file cannot be opened; false after malformed XML or an unexpected element, with one
     * line on Qt's debug channel and the actions read before the error kept. Unknown child
     * elements of an action are skipped. An action whose "MinWinVer" is above the system
     * version (compared as text) is disabled and not inserted, but stays a child of the pool.
     */
    bool load(const QString& path);
    /**
     * Writes the whole pool as one UI definition file \a path, atomically. Deliberately
     * inverted: returns true only when the file was opened but writing it failed, and false
     * both after a successful write and when the file cannot be opened (a target whose name
     * cannot be created included). "MenuIcon" and "MinWinVer" are not written.
     */
    bool save(const QString& path);

    /** Creates an action named \a name as a child of the pool, inserts it and returns it. */
    Action* insertAction(const QString& name);
    /**
     * Connects \a action to the pool and stores it under its name; null is ignored. An action
     * already stored under that name is replaced but stays connected and alive, so firing it
     * still issues its command.
     */
    void insertAction(Action* action);
    /** Appends the plain \a action to the list that qAction() searches; null is ignored. */
    void insertQAction(QAction* action);
    /**
     * Takes the action stored under \a name out of the pool, disconnected, and returns it (not
     * deleted); null when there is none.
     */
    Action* removeAction(const QString& name);
    /** removeAction() with the name of \a action; null is ignored. */
    void removeAction(Action* action);

    /**
     * A key that starts with "ID_" is looked up as a name; any other \a key returns the first
     * action, in name order, whose script ends with it. Case-sensitive; null when none matches.
     */
    Action* action(const QString& key) const;
    /** The first plain QAction inserted whose object name is \a name, or null. */
    QAction* qAction(const QString& name) const;
    /** The actions in name order (UTF-16 code unit order). */
    QList<Action*> actions() const;
    /** The script of every action in name order, empty ones and duplicates included. */
    QStringList scriptList();

    /** Stores \a function in filter; the library never calls it. */
    static void setActionFilter(bool (*function)(const QString&));
    /** A filter kept for the host; null initially, process-wide, never called by the library. */
    static bool (*filter)(const QString&);

signals:
    /**
     * Emitted when an action of the pool fired (a clone was triggered, or Action::trigger()),
     * with \a command: the action's script, with "On" or "Off" appended for a "toggle" action
     * after its new checked state (no separator). Nothing is filtered.
     */
    void commandIssued(const QString& command);

private slots:
    void onTriggered(Action* action);

private:
    ActionPoolImpl* d;
};

CS_END_NAMESPACE

#endif
