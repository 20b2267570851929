// libFuzzer target: TemplateTools::loadMap over one .map file.
#include "FuzzSupport.h"

#include <CommandSystem/TemplateTools.h>

#include <QFileInfo>

using namespace Talvir::Vexa::Cs;

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    Fuzz::initialize(argc, argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QString path = Fuzz::writeInput(data, size, QStringLiteral(".map"));
    QHash<QString, QString> map;
    TemplateTools tools;
    tools.loadMap(path, map);
    for (auto entry = map.cbegin(); entry != map.cend(); ++entry) {
        if (entry.key().isEmpty() || !QFileInfo(entry.value()).isAbsolute())
            __builtin_trap();   // entries are never empty and always absolute paths
    }
    return 0;
}
