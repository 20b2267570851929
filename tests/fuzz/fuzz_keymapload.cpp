// libFuzzer target: Keymap::load over one keymap file.
#include "FuzzSupport.h"

#include <CommandSystem/Keymap.h>

using namespace Talvir::Vexa::Cs;

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    Fuzz::initialize(argc, argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QString path = Fuzz::writeInput(data, size, QStringLiteral("user.keymap"));
    Keymap keymap;
    keymap.setShortcut(QStringLiteral("ID_BEFORE"), QKeySequence(QStringLiteral("F9")));
    const Keymap before = keymap;
    if (!keymap.load(path)) {
        // A refused file changes nothing, and its message begins with where the problem is.
        if (keymap != before || !keymap.errorString().startsWith(keymap.errorLocation().toString() + QLatin1String(": ")))
            __builtin_trap();
        return 0;
    }
    // What was read is written and read back unchanged.
    const QString written = Fuzz::writeInput(nullptr, 0, QStringLiteral("written.keymap"));
    Keymap again;
    if (keymap.actionNames().contains(QString()) || !keymap.save(written) || !again.load(written) || again != keymap)
        __builtin_trap();
    return 0;
}
