#include "action/CloneAction.h"

#include <QEvent>

#include <utility>

CS_BEGIN_NAMESPACE

CloneAction::CloneAction(const QIcon& icon, const QString& text, QObject* parent)
    : QAction(icon, text, parent)
{
}

CloneAction::~CloneAction()
{
    if (changing() == this)
        changing() = nullptr;
}

QAction* CloneAction::takeChanging()
{
    return std::exchange(changing(), nullptr);
}

CloneAction*& CloneAction::changing()
{
    static CloneAction* clone = nullptr;
    return clone;
}

bool CloneAction::event(QEvent* event)
{
    if (event->type() == QEvent::Shortcut) {
        if (isEnabled())
            activate(QAction::Trigger);
        return true;
    }
    // Everything else, ActionChanged above all, must reach QAction so that the tool buttons
    // and menu entries showing this clone follow its state.
    const bool handled = QAction::event(event);
    // QAction sends itself ActionChanged right before it emits changed().
    if (event->type() == QEvent::ActionChanged)
        changing() = this;
    return handled;
}

CS_END_NAMESPACE
