// The command line: what completion and "did you mean" cost per keystroke over 5,000 command
// names and aliases, next to a plain QStringList::filter over the same names and against the
// budget of 1 ms per keystroke.
#include "generators/Sequence.h"
#include "support/BenchSession.h"

#include <CommandSystem/AliasTable.h>
#include <CommandSystem/CommandLineModel.h>

#include <QSet>
#include <QStringList>

#include <benchmark/benchmark.h>

using namespace Talvir::Vexa::Cs;

namespace {

constexpr std::uint64_t namesStart = 20240611;
constexpr int commandCount = 4000;
constexpr int aliasCount = 1000;
constexpr int typedNames = 300;
constexpr double budgetNs = 1e6;

// Command names made of CAD-like syllables ("dimlinearedit", "polyoffset2"), aliases of one to
// four letters and a digit or two, and the keystrokes of typing some of the names: each prefix
// of each typed name, as a user's text grows.
class Names
{
public:
    Names()
    {
        static const char* const syllables[] = {"line", "poly", "arc", "circle", "dim", "text", "zoom",
                                                "pan", "move", "copy", "rotate", "scale", "mirror",
                                                "offset", "trim", "extend", "fillet", "layer", "block",
                                                "hatch", "point", "spline", "edit", "list", "area",
                                                "snap", "grid", "view", "style", "linear", "radius"};
        CsBench::Sequence sequence(namesStart);
        QSet<QString> used;
        while (commands.size() < commandCount) {
            QString name;
            const int parts = 1 + sequence.below(3);
            for (int i = 0; i < parts; ++i)
                name += QLatin1String(sequence.pick(syllables));
            if (sequence.chance(30))
                name += QString::number(sequence.below(10));
            if (!used.contains(name)) {
                used.insert(name);
                commands.append(name);
            }
        }
        while (aliases.count() < aliasCount) {
            QString alias;
            const int letters = 1 + sequence.below(4);
            for (int i = 0; i < letters; ++i)
                alias += QChar(QLatin1Char(char('a' + sequence.below(26))));
            if (sequence.chance(50))
                alias += QString::number(sequence.below(100));
            if (!used.contains(alias)) {
                used.insert(alias);
                aliases.insert(alias, commands.at(sequence.below(commandCount)));
            }
        }
        all = commands + aliases.aliases();
        for (int i = 0; i < typedNames; ++i) {
            const QString& name = all.at(sequence.below(int(all.size())));
            for (int length = 1; length <= name.size(); ++length)
                keystrokes.append(name.left(length).toUpper());
        }
    }

    QStringList commands;
    AliasTable aliases;
    QStringList all;          // commands and aliases, for the anchor
    QStringList keystrokes;   // the texts typed, in capitals, as users do not care for case
};

const Names& names()
{
    static const Names instance;
    return instance;
}

struct Line {
    Line()
    {
        model.setCommands(names().commands);
        model.setAliases(names().aliases);
    }
    CommandLineModel model;
};

CommandLineModel& model()
{
    static Line instance;
    return instance.model;
}

// Each iteration is one keystroke; the typed texts come round in order.
template <typename Keystroke>
void typeNames(benchmark::State& state, Keystroke keystroke)
{
    const QStringList& keystrokes = names().keystrokes;
    int next = 0;
    for (auto _ : state) {
        keystroke(keystrokes.at(next));
        next = (next + 1) % int(keystrokes.size());
    }
    state.counters["names"] = double(names().all.size());
}

void completion(benchmark::State& state)
{
    CommandLineModel& line = model();
    typeNames(state, [&line](const QString& text) {
        line.setText(text);
        line.complete();
        benchmark::DoNotOptimize(line.text());
    });
}

void suggestion(benchmark::State& state)
{
    CommandLineModel& line = model();
    typeNames(state, [&line](const QString& text) { benchmark::DoNotOptimize(line.suggestions(text)); });
}

void completionAndSuggestion(benchmark::State& state)
{
    CommandLineModel& line = model();
    typeNames(state, [&line](const QString& text) {
        line.setText(text);
        line.complete();
        benchmark::DoNotOptimize(line.suggestions(text));
    });
}

void filter(benchmark::State& state)
{
    const QStringList& all = names().all;
    typeNames(state, [&all](const QString& text) { benchmark::DoNotOptimize(all.filter(text, Qt::CaseInsensitive)); });
}

// Not a measurement: the budget as a counter, so that the table can hold figures against it.
void budget(benchmark::State& state)
{
    for (auto _ : state) {
    }
    state.counters["budget_ns"] = budgetNs;
}

void registerBenchmarks()
{
    using benchmark::RegisterBenchmark;
    RegisterBenchmark("completion_per_keystroke", completion)->Unit(benchmark::kMicrosecond);
    RegisterBenchmark("suggestion_per_keystroke", suggestion)->Unit(benchmark::kMicrosecond);
    RegisterBenchmark("completion_and_suggestion_per_keystroke", completionAndSuggestion)
        ->Unit(benchmark::kMicrosecond);
    RegisterBenchmark("anchor/qstringlist_filter_per_keystroke", filter)->Unit(benchmark::kMicrosecond);
    RegisterBenchmark("budget/one_millisecond", budget)->Iterations(1);
}

std::vector<CsBench::Comparison> comparisons()
{
    using namespace CsBench;
    return {
        {"Tab completion per keystroke, 5,000 names and aliases, against QStringList::filter",
         {"completion_per_keystroke"}, {"anchor/qstringlist_filter_per_keystroke"}, Unit::Time,
         Goal::AtMost, 1.0},
        {"did-you-mean suggestions per keystroke, 5,000 names and aliases, against QStringList::filter",
         {"suggestion_per_keystroke"}, {"anchor/qstringlist_filter_per_keystroke"}, Unit::Time,
         Goal::Report, 0},
        {"completion and suggestion per keystroke, against the budget of 1 ms",
         {"completion_and_suggestion_per_keystroke"}, {"budget/one_millisecond", "budget_ns"},
         Unit::Time, Goal::AtMost, 1.0},
    };
}

} // namespace

int main(int argc, char** argv)
{
    CsBench::BenchSession session(argc, argv);
    registerBenchmarks();
    return session.run("Command line (bench_input)", comparisons());
}
