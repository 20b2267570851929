// libFuzzer target: ActionPool::load over one .xcui file.
#include "FuzzSupport.h"

#include <CommandSystem/Action.h>
#include <CommandSystem/ActionPool.h>

using namespace Talvir::Vexa::Cs;

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    Fuzz::initialize(argc, argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QString path = Fuzz::writeInput(data, size, QStringLiteral("input.xcui"));
    ActionPool pool;
    pool.load(path);
    for (Action* action : pool.actions())
        pool.action(action->name());
    pool.scriptList();
    return 0;
}
