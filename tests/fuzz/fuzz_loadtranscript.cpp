// libFuzzer target: InputTranscript::load over one transcript file; whatever it reads is
// written again and must read back to the same commands.
#include "FuzzSupport.h"

#include <CommandSystem/InputTranscript.h>

using namespace Talvir::Vexa::Cs;

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    Fuzz::initialize(argc, argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QString path = Fuzz::writeInput(data, size, QStringLiteral("fuzz.transcript"));
    InputTranscript transcript;
    if (transcript.load(path) != transcript.errors().isEmpty())
        __builtin_trap();
    InputTranscript again;
    if (!again.loadText(transcript.toText(), QStringLiteral("again")) || again.count() != transcript.count())
        __builtin_trap();
    for (int i = 0; i < again.count(); ++i) {
        const InputTranscript::Entry& written = transcript.entries().at(i);
        const InputTranscript::Entry& read = again.entries().at(i);
        if (read.command != written.command || read.completed != written.completed
            || read.steps.size() != written.steps.size())
            __builtin_trap();
    }
    return 0;
}
