// Builds clones of one action, or the same objects and connections from plain Qt, and reaches
// them a few times with one state change, for a cache simulator to count what that costs per
// clone. scripts/cachesim.sh runs it under callgrind, counting only the CsBench::reach* calls.
// Usage: fanout_cachesim library|qt <clones> <rounds>
#include "support/AnchorSource.h"
#include "support/CloneFanOut.h"

#include <CommandSystem/Action.h>

#include <QApplication>
#include <QByteArray>

#include <cstdio>
#include <memory>

using Talvir::Vexa::Cs::Action;

namespace {

std::unique_ptr<Action> actionWithClones(int clones, QObject* holder)
{
    auto action = std::make_unique<Action>(nullptr);
    action->setName(QStringLiteral("ID_FILLET"));
    action->setType(QStringLiteral("command"));
    action->setRibbonText(QStringLiteral("Fillet"));
    action->setScript(QStringLiteral("fillet"));
    for (int index = 0; index < clones; ++index)
        action->clone(holder, 1);
    return action;
}

void reachLibraryClones(int clones, int rounds)
{
    QObject holder;
    const std::unique_ptr<Action> action = actionWithClones(clones, &holder);
    bool enabled = true;
    for (int round = 0; round < rounds; ++round)
        CsBench::reachClones(action.get(), enabled = !enabled);
}

void reachQtClones(int clones, int rounds)
{
    CsBench::AnchorSource source;
    QObject holder;
    for (int index = 0; index < clones; ++index)
        CsBench::addQtClone(&source, QIcon(), &holder);
    bool enabled = true;
    for (int round = 0; round < rounds; ++round)
        CsBench::reachQtClones(&source, enabled = !enabled);
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const QByteArray side = argc == 4 ? QByteArray(argv[1]) : QByteArray();
    const int clones = argc == 4 ? QByteArray(argv[2]).toInt() : 0;
    const int rounds = argc == 4 ? QByteArray(argv[3]).toInt() : 0;
    if ((side != "library" && side != "qt") || clones <= 0 || rounds <= 0) {
        std::fprintf(stderr, "Usage: fanout_cachesim library|qt <clones> <rounds>\n");
        return 2;
    }
    if (side == "library")
        reachLibraryClones(clones, rounds);
    else
        reachQtClones(clones, rounds);
    return 0;
}
