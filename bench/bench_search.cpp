// Command search: ranking a query over the actions of a large pool, next to a plain
// case-insensitive QString::contains scan of the same texts.
#include "generators/UiCorpus.h"
#include "support/BenchSession.h"
#include "support/DataDirectory.h"

#include <CommandSystem/Action.h>
#include <CommandSystem/ActionPool.h>
#include <CommandSystem/CommandSearchModel.h>

#include <QKeySequence>

#include <benchmark/benchmark.h>

#include <memory>
#include <vector>

using namespace Talvir::Vexa::Cs;

namespace {

constexpr std::uint64_t corpusStart = 7340033;
constexpr int poolActions = 5000;

// The pool of a generated UI definition file, every tenth action with a shortcut and every
// action's command with an alias, as a catalogue of that size would have.
struct Corpus {
    Corpus() : data(QStringLiteral("search-v1"))
    {
        const QString uiFile = data.filePath(QStringLiteral("ribbon.xcui"));
        if (!data.isComplete()) {
            CsBench::UiCorpus(corpusStart).writeUiFile(uiFile, poolActions, 1);
            data.markComplete();
        }
        pool.load(uiFile);
        const QList<Action*> actions = pool.actions();
        for (int index = 0; index < actions.size(); ++index) {
            Action* action = actions.at(index);
            if (index % 10 == 0)
                action->setShortcut(QKeySequence(Qt::CTRL | Qt::ALT | Qt::Key(Qt::Key_A + index / 10 % 26)));
            aliases.insert(action->script().left(2) + QString::number(index), action->script());
        }
    }

    CsBench::DataDirectory data;
    ActionPool pool;
    QMap<QString, QString> aliases;
};

Corpus& corpus()
{
    static Corpus instance;
    return instance;
}

struct Query {
    std::string name;
    QString text;
};

// Typical queries; the exact one is the name of the pool's last action.
const std::vector<Query>& queries()
{
    static const std::vector<Query> list = {
        {"one_letter", QStringLiteral("f")},
        {"word_prefix", QStringLiteral("fill")},
        {"initials", QStringLiteral("dts")},
        {"subsequence", QStringLiteral("chmfr")},
        {"exact_name", corpus().pool.actions().last()->name()},
        {"no_match", QStringLiteral("xyzzy")},
    };
    return list;
}

// The model is asked for the query, then set back to showing everything outside the timing,
// so that every round ranks the whole pool.
void searchQuery(benchmark::State& state, const QString& query)
{
    Corpus& data = corpus();
    CommandSearchModel model(&data.pool);
    model.setAliases(data.aliases);
    for (auto _ : state) {
        model.setQuery(query);
        benchmark::DoNotOptimize(model.rowCount());
        state.PauseTiming();
        model.setQuery(QString());
        state.ResumeTiming();
    }
    model.setQuery(query);
    state.counters["rows"] = model.rowCount();
}

// The same texts that the model searches, each tested with a case-insensitive contains.
void containsScan(benchmark::State& state, const QString& query)
{
    Corpus& data = corpus();
    std::vector<QStringList> texts;
    CommandSearchModel model(&data.pool);
    model.setAliases(data.aliases);
    for (int row = 0; row < model.rowCount(); ++row) {
        QStringList rowTexts;
        for (int column = 0; column < CommandSearchModel::ColumnCount; ++column) {
            if (column != CommandSearchModel::EnabledColumn && column != CommandSearchModel::TextColumn)
                rowTexts.append(model.index(row, column).data().toString());
        }
        texts.push_back(rowTexts);
    }
    std::vector<int> found;
    for (auto _ : state) {
        found.clear();
        for (int row = 0; row < int(texts.size()); ++row) {
            for (const QString& text : texts[size_t(row)]) {
                if (text.contains(query, Qt::CaseInsensitive)) {
                    found.push_back(row);
                    break;
                }
            }
        }
        benchmark::DoNotOptimize(found.data());
    }
    state.counters["rows"] = double(found.size());
}

void registerBenchmarks()
{
    for (const Query& query : queries()) {
        const std::string& name = query.name;
        const QString text = query.text;
        benchmark::RegisterBenchmark(("query_5000_" + name).c_str(),
                                     [text](benchmark::State& state) { searchQuery(state, text); })
            ->Unit(benchmark::kMicrosecond);
        benchmark::RegisterBenchmark(("anchor/contains_scan_5000_" + name).c_str(),
                                     [text](benchmark::State& state) { containsScan(state, text); })
            ->Unit(benchmark::kMicrosecond);
    }
}

std::vector<CsBench::Comparison> comparisons()
{
    using namespace CsBench;
    std::vector<Comparison> rows;
    for (const Query& query : queries()) {
        rows.push_back({"setQuery(\"" + query.text.toStdString() + "\") over 5,000 actions, target < 2 ms",
                        {"query_5000_" + query.name}, {"anchor/contains_scan_5000_" + query.name},
                        Unit::Time, Goal::Report, 0});
    }
    return rows;
}

} // namespace

int main(int argc, char** argv)
{
    CsBench::BenchSession session(argc, argv);
    registerBenchmarks();
    return session.run("Command search (bench_search)", comparisons());
}
