#ifndef COMMANDSYSTEM_CLONEACTION_H
#define COMMANDSYSTEM_CLONEACTION_H

#include <CommandSystem/Global.h>

#include <QAction>

CS_BEGIN_NAMESPACE

// A menu or ribbon entry made by Action::clone. It handles its own shortcut: an enabled clone
// fires, a disabled one swallows the key without firing.
class CloneAction : public QAction
{
    Q_OBJECT

public:
    CloneAction(const QIcon& icon, const QString& text, QObject* parent);
    ~CloneAction() override;

protected:
    bool event(QEvent* event) override;
};

CS_END_NAMESPACE

#endif
