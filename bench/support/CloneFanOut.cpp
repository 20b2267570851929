#include "support/CloneFanOut.h"

#include "support/AnchorMapper.h"
#include "support/AnchorSource.h"

#include <QAction>

namespace CsBench {

// Kept out of line so that a cache simulation can count exactly these calls.
Q_NEVER_INLINE void reachClones(Talvir::Vexa::Cs::Action* action, bool enabled)
{
    action->setEnabled(enabled);
}

void addQtClone(AnchorSource* source, const QIcon& icon, QObject* holder)
{
    auto* action = new QAction(icon, QStringLiteral("Fillet"), holder);
    action->setProperty("VrCsActionType", 1);
    action->setObjectName(QStringLiteral("ID_FILLET"));
    action->setProperty("command", QStringLiteral("fillet"));
    action->setCheckable(false);
    action->setChecked(false);
    action->setEnabled(true);
    auto* mapper = new AnchorMapper(action);
    QObject::connect(source, SIGNAL(destroyed()), action, SLOT(deleteLater()));
    QObject::connect(source, SIGNAL(checkedChanged(bool)), action, SLOT(setChecked(bool)));
    QObject::connect(source, SIGNAL(enabledChanged(bool)), action, SLOT(setEnabled(bool)));
    QObject::connect(source, SIGNAL(visibleChanged(bool)), action, SLOT(setVisible(bool)));
    QObject::connect(action, SIGNAL(triggered()), source, SLOT(onTriggered()));
    QObject::connect(action, SIGNAL(changed()), source, SLOT(onChanged()));
    QObject::connect(source, SIGNAL(ribbonTextChanged(QString)), mapper,
                     SLOT(onRibbonTextChanged(QString)));
    QObject::connect(source, SIGNAL(menuTextChanged(QString)), mapper,
                     SLOT(onMenuTextChanged(QString)));
    QObject::connect(source, SIGNAL(iconChanged(QString)), mapper, SLOT(onIconChanged(QString)));
    QObject::connect(source, SIGNAL(shortcutChanged(QKeySequence)), mapper,
                     SLOT(onShortcutChanged(QKeySequence)));
}

Q_NEVER_INLINE void reachQtClones(AnchorSource* source, bool enabled)
{
    emit source->enabledChanged(enabled);
}

} // namespace CsBench
