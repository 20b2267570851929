// libFuzzer target: AliasTable::load over one alias file.
#include "FuzzSupport.h"

#include <CommandSystem/AliasTable.h>

#include <QRegularExpression>

using namespace Talvir::Vexa::Cs;

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    Fuzz::initialize(argc, argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QString path = Fuzz::writeInput(data, size, QStringLiteral("fuzz.aliases"));
    AliasTable table;
    const bool good = table.load(path);
    if (good != table.errors().isEmpty())
        __builtin_trap();
    static const QRegularExpression located(QStringLiteral("^.+:\\d+: \\S"));
    for (const QString& error : table.errors()) {
        if (!located.match(error).hasMatch())
            __builtin_trap();   // every bad line is reported as FILE:LINE: message
    }
    for (const QString& alias : table.aliases()) {
        const QString command = table.command(alias.toUpper());
        if (command.isEmpty() || command.contains(QLatin1Char(' ')) || alias.contains(QLatin1Char(' ')))
            __builtin_trap();   // aliases and commands are single words, found in any case
    }
    return 0;
}
