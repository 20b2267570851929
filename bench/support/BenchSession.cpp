#include "support/BenchSession.h"

#include "support/ComparisonReporter.h"

#include <benchmark/benchmark.h>

#include <cstring>
#include <unistd.h>

namespace CsBench {

namespace {

// Removes --cs_markdown=<file> from the arguments and returns <file>.
std::string takeMarkdownOption(int& argc, char** argv)
{
    static const char option[] = "--cs_markdown=";
    std::string path;
    int kept = 1;
    for (int index = 1; index < argc; ++index) {
        if (std::strncmp(argv[index], option, sizeof option - 1) == 0)
            path = argv[index] + sizeof option - 1;
        else
            argv[kept++] = argv[index];
    }
    argc = kept;
    argv[argc] = nullptr;
    return path;
}

} // namespace

BenchSession::BenchSession(int& argc, char** argv) : markdownPath(takeMarkdownOption(argc, argv))
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    application = std::make_unique<QApplication>(argc, argv);
    benchmark::Initialize(&argc, argv);
}

BenchSession::~BenchSession() = default;

int BenchSession::run(const std::string& title, const std::vector<Comparison>& comparisons)
{
    ComparisonReporter reporter(isatty(STDOUT_FILENO) ? benchmark::ConsoleReporter::OO_Defaults
                                                      : benchmark::ConsoleReporter::OO_Tabular);
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.summarise(title, comparisons, markdownPath);
    benchmark::Shutdown();
    return 0;
}

} // namespace CsBench
