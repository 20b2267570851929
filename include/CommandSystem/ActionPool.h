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

// The actions of the host's user interface by name, read from and written to UI definition
// files (*.xcui). Any action firing ends in commandIssued() with the command text to run.
class COMMANDSYSTEM_EXPORT ActionPool : public QObject
{
    Q_OBJECT

public:
    ActionPool();
    ~ActionPool() override;

    static ActionPool* fromFolder(const QString& folder);

    bool load(const QString& path);
    // Inverted on purpose: true only when the file was opened and writing it failed.
    bool save(const QString& path);

    Action* insertAction(const QString& name);
    void insertAction(Action* action);
    void insertQAction(QAction* action);
    Action* removeAction(const QString& name);
    void removeAction(Action* action);

    // A key starting with "ID_" is a name; any other key matches the end of a script.
    Action* action(const QString& key) const;
    QAction* qAction(const QString& name) const;
    QList<Action*> actions() const;
    QStringList scriptList();

    static void setActionFilter(bool (*function)(const QString&));
    static bool (*filter)(const QString&);

signals:
    void commandIssued(const QString& command);

private slots:
    void onTriggered(Action* action);

private:
    ActionPoolImpl* d;
};

CS_END_NAMESPACE

#endif
