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

    // The clone whose changed() is being emitted, if it is the last one that announced a
    // change; cleared on reading. Lets Action::onChanged skip QObject::sender(), which searches
    // every connection into the action: two per clone.
    static QAction* takeChanging();

protected:
    bool event(QEvent* event) override;

private:
    static CloneAction*& changing();
};

CS_END_NAMESPACE

#endif
