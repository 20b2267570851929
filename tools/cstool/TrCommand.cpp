#include "TrCommand.h"

#include "Console.h"
#include "PathCollector.h"
#include "TcmdTextExtractor.h"
#include "TranslationCatalog.h"
#include "TsReader.h"
#include "TsWriter.h"
#include "XcuiTextExtractor.h"

#include <QCommandLineParser>
#include <QFileInfo>

namespace CsTool {

QString TrCommand::name() const
{
    return QStringLiteral("tr");
}

QString TrCommand::summary() const
{
    return QStringLiteral("Extract translatable texts into a Qt Linguist file (.ts).");
}

QString TrCommand::details() const
{
    return QStringLiteral(
        "Texts are filed under the contexts the library translates them with: for .xcui files\n"
        "\"Hint\", \"Desc\", \"Ribbon\" and \"Menu\" under the action's name; for .tcmd files the\n"
        "parameters' \"description\", \"prompt\" and \"format\" under the template's name.\n"
        "An existing FILE keeps its translations; messages whose text is gone are kept as\n"
        "vanished. Compile the result with lrelease and install it with a QTranslator.\n\n"
        "Exit status: 0 success, 1 a file cannot be read or FILE cannot be written, 2 usage\n"
        "error.");
}

void TrCommand::configure(QCommandLineParser& parser)
{
    parser.addOption(QCommandLineOption({QStringLiteral("o"), QStringLiteral("output")},
                                        QStringLiteral("The translation file to write."),
                                        QStringLiteral("FILE.ts")));
    parser.addPositionalArgument(QStringLiteral("path"), QStringLiteral("Files or directories."),
                                 QStringLiteral("PATH..."));
}

int TrCommand::run(const QCommandLineParser& parser)
{
    const QString output = parser.value(QStringLiteral("output"));
    if (output.isEmpty())
        return usageError(QStringLiteral("-o FILE.ts is required"));
    if (parser.positionalArguments().isEmpty())
        return usageError(QStringLiteral("no PATH given"));
    PathCollector collector({QStringLiteral("tcmd"), QStringLiteral("xcui")});
    if (!collector.collect(parser.positionalArguments()))
        return usageError(collector.error());

    TranslationCatalog catalog;
    TsReader reader;
    if (QFileInfo::exists(output) && !reader.read(output, catalog)) {
        report(reader.error());
        return Failure;
    }
    if (!extract(collector.files(), catalog))
        return Failure;
    catalog.finish();
    TsWriter writer;
    if (!writer.write(output, catalog)) {
        report(writer.error());
        return Failure;
    }
    Console::out(QStringLiteral("%1: %2 message(s), %3 new, %4 vanished")
                     .arg(output).arg(catalog.messageCount()).arg(catalog.newCount())
                     .arg(catalog.vanishedCount()));
    return Success;
}

// Nothing is written when a file cannot be read: a partial extraction would mark the texts
// of that file as vanished.
bool TrCommand::extract(const QStringList& files, TranslationCatalog& catalog) const
{
    for (const QString& file : files) {
        QString problem;
        if (QFileInfo(file).suffix() == QLatin1String("tcmd")) {
            TcmdTextExtractor extractor;
            if (!extractor.extract(file, catalog))
                problem = extractor.error();
        } else {
            XcuiTextExtractor extractor;
            if (!extractor.extract(file, catalog))
                problem = extractor.error();
        }
        if (!problem.isEmpty()) {
            report(problem);
            return false;
        }
    }
    return true;
}

} // namespace CsTool
