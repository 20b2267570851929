#ifndef CSBENCH_CLONEFANOUT_H
#define CSBENCH_CLONEFANOUT_H

#include <CommandSystem/Action.h>

#include <QIcon>
#include <QObject>

namespace CsBench {

class AnchorSource;

// One state change reaching every clone of an action: what the setEnabled benchmarks time.
void reachClones(Talvir::Vexa::Cs::Action* action, bool enabled);

// What Qt alone costs for the objects and connections that clones must have: a plain QAction
// under holder with a clone's properties and object name, a mapper child, and the same ten
// connections made from signature strings (the form that Qt calls fastest) to slots that do
// nothing.
void addQtClone(AnchorSource* source, const QIcon& icon, QObject* holder);
// One signal of source reaching every such QAction.
void reachQtClones(AnchorSource* source, bool enabled);

} // namespace CsBench

#endif
