#ifndef COMMANDSYSTEM_ACTIONMAPPER_H
#define COMMANDSYSTEM_ACTIONMAPPER_H

#include <CommandSystem/Global.h>

#include <QAction>
#include <QKeySequence>
#include <QList>
#include <QObject>
#include <QPointer>

CS_BEGIN_NAMESPACE

// Keeps one clone (its parent object) in step with the Action it was cloned from.
class COMMANDSYSTEM_EXPORT ActionMapper : public QObject
{
    Q_OBJECT

public:
    explicit ActionMapper(QObject* parent);
    ~ActionMapper() override;

    virtual void map(QAction* action);
    // The mapped actions that are still alive, in mapping order.
    QList<QAction*> actions() const;

public slots:
    void onRibbonTextChanged(const QString& text);
    void onMenuTextChanged(const QString& text);
    void onIconChanged(const QString& name);
    void onShortcutChanged(const QKeySequence& shortcut);

protected:
    QList<QPointer<QAction>> mappedActions;
};

CS_END_NAMESPACE

#endif
