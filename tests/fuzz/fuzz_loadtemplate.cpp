// libFuzzer target: TemplateTools::loadTemplate over one .tcmd file.
#include "FuzzSupport.h"

#include <CommandSystem/Template.h>
#include <CommandSystem/TemplateTools.h>

using namespace Talvir::Vexa::Cs;

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    Fuzz::initialize(argc, argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QString path = Fuzz::writeInput(data, size, QStringLiteral("input.tcmd"));
    QList<Template*> templates;
    TemplateTools tools;
    tools.loadTemplate(path, templates);
    for (Template* loaded : std::as_const(templates))
        loaded->name();   // every template handed out is a live object
    qDeleteAll(templates);
    return 0;
}
