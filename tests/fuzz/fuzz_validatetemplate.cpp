// libFuzzer target: TemplateTools::validateTemplate over one .tcmd file, with a strict checker
// on one option slot so that the checker path runs too.
#include "FuzzSupport.h"

#include <CommandSystem/TemplateTools.h>

#include <cstring>

using namespace Talvir::Vexa::Cs;

namespace {

bool digitsOnly(const char* text)
{
    return std::strspn(text, "0123456789") == std::strlen(text);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    Fuzz::initialize(argc, argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QString path = Fuzz::writeInput(data, size, QStringLiteral("input.tcmd"));
    TemplateTools tools;
    tools.setParseFunction(2, digitsOnly);
    tools.validateTemplate(path);
    return 0;
}
