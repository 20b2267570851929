// libFuzzer target: the line scan of TemplateTools::buildMap, over a directory holding one
// .tcmd file.
#include "FuzzSupport.h"

#include <CommandSystem/TemplateTools.h>

using namespace Talvir::Vexa::Cs;

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    Fuzz::initialize(argc, argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QString directory = QStringLiteral("scan");
    const QString path = Fuzz::writeInput(data, size, QStringLiteral("input.tcmd"), directory);
    QHash<QString, QString> map;
    TemplateTools tools;
    if (!tools.buildMap(Fuzz::scratch().filePath(directory), map))
        __builtin_trap();   // the one file is readable
    for (const QString& value : std::as_const(map)) {
        if (value != path)
            __builtin_trap();   // every name maps to the one file
    }
    return 0;
}
