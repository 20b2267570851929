#include "action/CloneAction.h"

#include <QEvent>

CS_BEGIN_NAMESPACE

CloneAction::CloneAction(const QIcon& icon, const QString& text, QObject* parent)
    : QAction(icon, text, parent)
{
}

CloneAction::~CloneAction() = default;

bool CloneAction::event(QEvent* event)
{
    if (event->type() == QEvent::Shortcut) {
        if (isEnabled())
            activate(QAction::Trigger);
        return true;
    }
    // Everything else, ActionChanged above all, must reach QAction so that the tool buttons
    // and menu entries showing this clone follow its state.
    return QAction::event(event);
}

CS_END_NAMESPACE
