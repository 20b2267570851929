// Command templates: parsing throughput, mapping a large directory, the pool's look-ups and its
// first read of a file, and the memory a loaded template takes.
#include "generators/TemplateCorpus.h"
#include "support/BenchSession.h"
#include "support/DataDirectory.h"
#include "support/Measure.h"

#include <CommandSystem/Template.h>
#include <CommandSystem/TemplatePool.h>
#include <CommandSystem/TemplateTools.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QXmlStreamReader>

#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <string>

using namespace Talvir::Vexa::Cs;
using CsBench::TemplateCorpus;

namespace {

constexpr std::uint64_t corpusStart = 20240611;
constexpr int directoryFiles = 10000;
constexpr int uniformTemplates = 2000;
constexpr int pooledTemplates = 1000;
constexpr int unreadRotation = 64;

// Generated once into the build tree and kept for later runs.
class Corpus
{
public:
    Corpus() : data(QStringLiteral("templates-v1"))
    {
        if (!data.isComplete())
            generate();
        QFile names(data.filePath(QStringLiteral("alone.txt")));
        names.open(QIODevice::ReadOnly | QIODevice::Text);
        alone = QString::fromUtf8(names.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        largeBytes = QFileInfo(largeFile()).size();
    }

    QString largeFile() const { return data.filePath(QStringLiteral("large.tcmd")); }
    qint64 largeSize() const { return largeBytes; }
    QString uniformFile() const { return data.filePath(QStringLiteral("uniform.tcmd")); }
    QString directory() const { return data.filePath(QStringLiteral("many")); }
    // Templates alone in a file named after them.
    const QStringList& aloneNames() const { return alone; }

private:
    void generate()
    {
        TemplateCorpus generator(corpusStart);
        generator.writeLargeFile(largeFile(), 5 * 1024 * 1024);
        generator.writeUniformFile(uniformFile(), uniformTemplates, 5);
        QDir().mkpath(directory());
        const QStringList names = generator.writeDirectory(directory(), directoryFiles);
        QFile list(data.filePath(QStringLiteral("alone.txt")));
        list.open(QIODevice::WriteOnly | QIODevice::Text);
        list.write(names.join(QLatin1Char('\n')).toUtf8());
        list.close();
        data.markComplete();
    }

    CsBench::DataDirectory data;
    QStringList alone;
    qint64 largeBytes = 0;
};

const Corpus& corpus()
{
    static const Corpus instance;
    return instance;
}

void loadTemplateLarge(benchmark::State& state)
{
    const Corpus& data = corpus();
    TemplateTools tools;
    for (auto _ : state) {
        QList<Template*> templates;
        if (!tools.loadTemplate(data.largeFile(), templates))
            state.SkipWithError("loadTemplate failed");
        state.PauseTiming();
        qDeleteAll(templates);
        state.ResumeTiming();
    }
    state.SetBytesProcessed(state.iterations() * data.largeSize());
}

void xmlWalkLarge(benchmark::State& state)
{
    const Corpus& data = corpus();
    for (auto _ : state) {
        QFile file(data.largeFile());
        file.open(QIODevice::ReadOnly | QIODevice::Text);
        QXmlStreamReader reader(&file);
        while (!reader.atEnd())
            reader.readNext();
        if (reader.hasError())
            state.SkipWithError("XML error");
    }
    state.SetBytesProcessed(state.iterations() * data.largeSize());
}

void buildMapDirectory(benchmark::State& state)
{
    const Corpus& data = corpus();
    for (auto _ : state) {
        TemplateTools tools;
        QHash<QString, QString> map;
        if (!tools.buildMap(data.directory(), map))
            state.SkipWithError("buildMap failed");
        benchmark::DoNotOptimize(map.size());
    }
}

void scanDirectory(benchmark::State& state)
{
    const std::filesystem::path directory = corpus().directory().toStdString();
    for (auto _ : state) {
        long declarations = 0;
        for (const auto& entry : std::filesystem::directory_iterator(directory)) {
            if (entry.path().extension() != ".tcmd")
                continue;
            std::ifstream in(entry.path());
            std::string line;
            while (std::getline(in, line))
                declarations += line.find("<template ") != std::string::npos;
        }
        benchmark::DoNotOptimize(declarations);
    }
}

// The anchor's keys get text of their own, as the pool's keys have: a key that shares the
// requested name's text would be found equal without its characters being read.
QString ownCopy(const QString& text)
{
    return QString(text.constData(), text.size());
}

// A pool over the large directory that has already served pooledTemplates requests.
struct WarmPool {
    WarmPool()
    {
        const Corpus& data = corpus();
        pool.appendDirectory(data.directory());
        pool.load();
        for (int index = 0; index < pooledTemplates; ++index) {
            const QString& name = data.aloneNames().at(unreadRotation + index);
            Template* found = pool.getTemplate(name);
            if (!found)
                qFatal("No template %s", qPrintable(name));
            held.insert(ownCopy(name), found);
        }
        lastName = data.aloneNames().at(unreadRotation + pooledTemplates - 1);
        heldNames = data.aloneNames().mid(unreadRotation, pooledTemplates - 1);
    }

    // Other benchmarks read files too: read this template's file again so that it is the
    // template most recently read.
    void makeLast(const QString& name)
    {
        Template* old = pool.getTemplate(name);
        pool.removeTemplate(old);
        delete old;
        held.insert(ownCopy(name), pool.getTemplate(name));
    }

    TemplatePool pool;
    QHash<QString, Template*> held;
    QString lastName;
    // Every held template but the last: how long a single key's probe sequence is depends on
    // the process's random hashing, so the held requests go round all of them.
    QStringList heldNames;
};

WarmPool& warmPool()
{
    static WarmPool instance;
    return instance;
}

void getTemplateLast(benchmark::State& state)
{
    WarmPool& warm = warmPool();
    const QString name = warm.lastName;
    warm.makeLast(name);
    for (auto _ : state)
        benchmark::DoNotOptimize(warm.pool.getTemplate(name));
}

// Looks each held name up in turn, round and round.
template <typename LookUp>
void lookUpHeldNames(benchmark::State& state, LookUp lookUp)
{
    const QStringList& names = warmPool().heldNames;
    qsizetype index = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(lookUp(names.at(index)));
        index = index + 1 == names.size() ? 0 : index + 1;
    }
}

void getTemplateHeld(benchmark::State& state)
{
    TemplatePool& pool = warmPool().pool;
    lookUpHeldNames(state, [&pool](const QString& name) { return pool.getTemplate(name); });
}

void hashValueLast(benchmark::State& state)
{
    const WarmPool& warm = warmPool();
    const QString name = warm.lastName;
    for (auto _ : state)
        benchmark::DoNotOptimize(warm.held.value(name));
}

void hashValueHeld(benchmark::State& state)
{
    const QHash<QString, Template*>& held = warmPool().held;
    lookUpHeldNames(state, [&held](const QString& name) { return held.value(name); });
}

// The pool's first request of a template whose file it has not read; the template is taken
// out again (untimed) so that the next request reads the file anew.
void getTemplateUnread(benchmark::State& state)
{
    WarmPool& warm = warmPool();
    const QStringList& names = corpus().aloneNames();
    int index = 0;
    for (auto _ : state) {
        Template* found = warm.pool.getTemplate(names.at(index++ % unreadRotation));
        state.PauseTiming();
        if (!found || !warm.pool.removeTemplate(found))
            state.SkipWithError("getTemplate failed");
        delete found;
        state.ResumeTiming();
    }
}

void loadTemplateAlone(benchmark::State& state)
{
    const QStringList& names = corpus().aloneNames();
    const QDir directory(corpus().directory());
    TemplateTools tools;
    int index = 0;
    for (auto _ : state) {
        QList<Template*> templates;
        const QString fileName = names.at(index++ % unreadRotation) + QStringLiteral(".tcmd");
        if (!tools.loadTemplate(directory.filePath(fileName), templates))
            state.SkipWithError("loadTemplate failed");
        state.PauseTiming();
        qDeleteAll(templates);
        state.ResumeTiming();
    }
}

void templateMemory(benchmark::State& state)
{
    const Corpus& data = corpus();
    TemplateTools tools;
    double bytes = 0.0;
    for (auto _ : state) {
        QList<Template*> templates;
        templates.reserve(uniformTemplates);
        const std::int64_t before = CsBench::heapInUse();
        tools.loadTemplate(data.uniformFile(), templates);
        bytes = double(CsBench::heapInUse() - before) / templates.size();
        qDeleteAll(templates);
    }
    state.counters["bytes_per_template"] = bytes;
}

void registerBenchmarks()
{
    using benchmark::RegisterBenchmark;
    RegisterBenchmark("loadTemplate_5MB", loadTemplateLarge)->Unit(benchmark::kMillisecond);
    RegisterBenchmark("anchor/xml_stream_walk_5MB", xmlWalkLarge)->Unit(benchmark::kMillisecond);
    RegisterBenchmark("buildMap_10000_files", buildMapDirectory)->Unit(benchmark::kMillisecond);
    RegisterBenchmark("anchor/ifstream_getline_scan_10000_files", scanDirectory)
        ->Unit(benchmark::kMillisecond);
    RegisterBenchmark("getTemplate_last", getTemplateLast);
    RegisterBenchmark("anchor/qhash_value_last", hashValueLast);
    RegisterBenchmark("getTemplate_held", getTemplateHeld);
    RegisterBenchmark("anchor/qhash_value_held", hashValueHeld);
    RegisterBenchmark("getTemplate_unread_file", getTemplateUnread)->Unit(benchmark::kMicrosecond);
    RegisterBenchmark("anchor/loadTemplate_that_file", loadTemplateAlone)
        ->Unit(benchmark::kMicrosecond);
    RegisterBenchmark("memory/template_5_parameters", templateMemory)->Iterations(1);
}

std::vector<CsBench::Comparison> comparisons()
{
    using namespace CsBench;
    return {
        {"TemplateTools::loadTemplate throughput, 5 MB of templates",
         {"loadTemplate_5MB", "bytes_per_second"},
         {"anchor/xml_stream_walk_5MB", "bytes_per_second"}, Unit::Throughput, Goal::AtLeast,
         0.5},
        {"buildMap over 10,000 template files", {"buildMap_10000_files"},
         {"anchor/ifstream_getline_scan_10000_files"}, Unit::Time, Goal::AtMost, 1.5},
        {"TemplatePool::getTemplate, repeated request of the last template",
         {"getTemplate_last"}, {"anchor/qhash_value_last"}, Unit::Time, Goal::AtMost, 1.0},
        {"TemplatePool::getTemplate of a held template", {"getTemplate_held"},
         {"anchor/qhash_value_held"}, Unit::Time, Goal::AtMost, 1.5},
        {"first getTemplate of a template in an unread file", {"getTemplate_unread_file"},
         {"anchor/loadTemplate_that_file"}, Unit::Time, Goal::AtMost, 1.1},
        {"memory: bytes per loaded template with 5 parameters",
         {"memory/template_5_parameters", "bytes_per_template"}, {}, Unit::Bytes, Goal::Report,
         0},
    };
}

} // namespace

int main(int argc, char** argv)
{
    CsBench::BenchSession session(argc, argv);
    registerBenchmarks();
    return session.run("Command templates (bench_template)", comparisons());
}
