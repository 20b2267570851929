// Actions and UI binding: cloning, pushing state to clones, reading and writing UI definition
// files, and the memory an action and a clone take.
#include "generators/UiCorpus.h"
#include "support/AnchorSource.h"
#include "support/BenchSession.h"
#include "support/CloneFanOut.h"
#include "support/DataDirectory.h"
#include "support/Measure.h"

#include <CommandSystem/Action.h>
#include <CommandSystem/ActionPool.h>
#include <CommandSystem/PlatformHooks.h>

#include <QAction>
#include <QDir>
#include <QFile>
#include <QIcon>
#include <QKeySequence>
#include <QPixmap>
#include <QPixmapCache>
#include <QTemporaryDir>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <benchmark/benchmark.h>

#include <memory>
#include <vector>

using namespace Talvir::Vexa::Cs;
using CsBench::AnchorSource;

namespace {

constexpr std::uint64_t corpusStart = 7340033;
constexpr int poolActions = 5000;
constexpr int poolIcons = 500;
constexpr int iconSize = 32;
constexpr int cloneCount = 10000;

// Icons and the UI file are generated once into the build tree and kept for later runs; the
// files that the benchmarks write go to a temporary directory. Icons are looked up at 96 DPI.
struct Corpus {
    Corpus() : data(QStringLiteral("ui-v1"))
    {
        PlatformHooks hooks;
        hooks.logicalDpi = [] { return QSizeF(96.0, 96.0); };
        setPlatformHooks(hooks);
        const QString iconDirectory = data.filePath(QStringLiteral("icons"));
        uiFile = data.filePath(QStringLiteral("ribbon.xcui"));
        CsBench::UiCorpus corpus(corpusStart);
        if (!data.isComplete()) {
            QDir().mkpath(iconDirectory);
            corpus.writeIcons(iconDirectory, poolIcons, iconSize);
            corpus.writeUiFile(uiFile, poolActions, poolIcons);
            data.markComplete();
        }
        for (int index = 0; index < poolIcons; ++index)
            iconPaths.append(QDir(iconDirectory).filePath(CsBench::UiCorpus::iconName(index)
                                                          + QStringLiteral(".png")));
        Action::setIconDirList(QStringList(iconDirectory));
        savedFile = output.filePath(QStringLiteral("saved.xcui"));
        anchorFile = output.filePath(QStringLiteral("anchor.xcui"));
    }

    CsBench::DataDirectory data;
    QTemporaryDir output;
    QStringList iconPaths;
    QString uiFile;
    QString savedFile;
    QString anchorFile;
};

const Corpus& corpus()
{
    static const Corpus instance;
    return instance;
}

std::unique_ptr<Action> ribbonAction()
{
    const Corpus& data = corpus();
    auto action = std::make_unique<Action>(nullptr);
    action->setName(QStringLiteral("ID_FILLET"));
    action->setType(QStringLiteral("command"));
    static_cast<QAction*>(action.get())->setText(QStringLiteral("Fillet"));
    action->setRibbonText(QStringLiteral("Fillet"));
    action->setMenuText(QStringLiteral("&Fillet"));
    action->setScript(QStringLiteral("fillet"));
    action->setIcon(data.iconPaths.first());
    return action;
}

void cloneRibbon(benchmark::State& state)
{
    std::unique_ptr<Action> action = ribbonAction();
    auto holder = std::make_unique<QObject>();
    for (auto _ : state) {
        for (int index = 0; index < cloneCount; ++index)
            benchmark::DoNotOptimize(action->clone(holder.get(), 1));
        state.PauseTiming();
        holder = std::make_unique<QObject>();
        state.ResumeTiming();
    }
}

void connectLikeAClone(AnchorSource* source, QAction* action)
{
    QObject::connect(source, &QObject::destroyed, action, &QObject::deleteLater);
    QObject::connect(source, &AnchorSource::checkedChanged, action, &QAction::setChecked);
    QObject::connect(source, &AnchorSource::enabledChanged, action, &QAction::setEnabled);
    QObject::connect(source, &AnchorSource::visibleChanged, action, &QAction::setVisible);
    QObject::connect(action, &QAction::triggered, source, &AnchorSource::onTriggered);
    QObject::connect(action, &QAction::changed, source, &AnchorSource::onChanged);
    QObject::connect(source, &AnchorSource::ribbonTextChanged, action, &QAction::setText);
    QObject::connect(source, &AnchorSource::menuTextChanged, action, &QAction::setIconText);
    QObject::connect(source, &AnchorSource::iconChanged, action, &QAction::setToolTip);
    QObject::connect(source, &AnchorSource::shortcutChanged, action,
                     qOverload<const QKeySequence&>(&QAction::setShortcut));
}

void newQActionConnected(benchmark::State& state)
{
    const QIcon icon(corpus().iconPaths.first());
    const QString text = QStringLiteral("Fillet");
    AnchorSource source;
    auto holder = std::make_unique<QObject>();
    for (auto _ : state) {
        for (int index = 0; index < cloneCount; ++index)
            connectLikeAClone(&source, new QAction(icon, text, holder.get()));
        state.PauseTiming();
        holder = std::make_unique<QObject>();
        state.ResumeTiming();
    }
}

void setEnabledClones(benchmark::State& state, int clones)
{
    std::unique_ptr<Action> action = ribbonAction();
    QObject holder;
    for (int index = 0; index < clones; ++index)
        action->clone(&holder, 1);
    bool enabled = true;
    for (auto _ : state)
        CsBench::reachClones(action.get(), enabled = !enabled);
}

void setEnabledDirect(benchmark::State& state, int count)
{
    QObject holder;
    std::vector<QAction*> actions;
    for (int index = 0; index < count; ++index)
        actions.push_back(new QAction(QStringLiteral("Fillet"), &holder));
    bool enabled = true;
    for (auto _ : state) {
        enabled = !enabled;
        for (QAction* action : actions)
            action->setEnabled(enabled);
    }
}

// Not an anchor of the targets but their diagnosis: Qt alone with the objects and connections
// that clones must have.
void setEnabledCloneGraph(benchmark::State& state, int count)
{
    AnchorSource source;
    QObject holder;
    const QIcon icon(corpus().iconPaths.first());
    for (int index = 0; index < count; ++index)
        CsBench::addQtClone(&source, icon, &holder);
    bool enabled = true;
    for (auto _ : state)
        CsBench::reachQtClones(&source, enabled = !enabled);
}

void poolLoad(benchmark::State& state)
{
    const Corpus& data = corpus();
    for (auto _ : state) {
        auto pool = std::make_unique<ActionPool>();
        if (!pool->load(data.uiFile) || pool->actions().size() != poolActions)
            state.SkipWithError("load failed");
        state.PauseTiming();
        pool.reset();
        QPixmapCache::clear();   // every run decodes its icons afresh, as the anchor does
        state.ResumeTiming();
    }
}

// What loading cannot avoid: reading the XML, decoding each icon once, making the actions.
void unavoidableLoadWork(benchmark::State& state)
{
    const Corpus& data = corpus();
    QStringList texts;
    for (int index = 0; index < poolActions; ++index)
        texts.append(QStringLiteral("Fillet %1").arg(index));
    for (auto _ : state) {
        QFile file(data.uiFile);
        file.open(QIODevice::ReadOnly | QIODevice::Text);
        QXmlStreamReader reader(&file);
        while (!reader.atEnd())
            reader.readNext();
        std::vector<QIcon> icons;
        icons.reserve(poolIcons);
        for (const QString& path : data.iconPaths)
            icons.emplace_back(QPixmap(path));
        auto holder = std::make_unique<QObject>();
        for (int index = 0; index < poolActions; ++index)
            new QAction(icons[size_t(index % poolIcons)], texts.at(index), holder.get());
        state.PauseTiming();
        holder.reset();
        QPixmapCache::clear();
        state.ResumeTiming();
    }
}

struct LoadedPool {
    LoadedPool() { pool.load(corpus().uiFile); }
    ActionPool pool;
};

LoadedPool& loadedPool()
{
    static LoadedPool instance;
    return instance;
}

void poolSave(benchmark::State& state)
{
    ActionPool& pool = loadedPool().pool;
    for (auto _ : state) {
        if (pool.save(corpus().savedFile))
            state.SkipWithError("save failed");
    }
}

struct ActionRecord {
    QString name, type, form, ribbon, menu, icon, hint, help, desc, script, widget, mapper,
        options;
    bool checked;
};

void writeRecord(QXmlStreamWriter& writer, const ActionRecord& record)
{
    writer.writeStartElement(QStringLiteral("Action"));
    writer.writeAttribute(QStringLiteral("name"), record.name);
    writer.writeAttribute(QStringLiteral("type"), record.type);
    writer.writeTextElement(QStringLiteral("Form"), record.form);
    writer.writeStartElement(QStringLiteral("Text"));
    writer.writeTextElement(QStringLiteral("Ribbon"), record.ribbon);
    writer.writeTextElement(QStringLiteral("Menu"), record.menu);
    writer.writeEndElement();
    writer.writeTextElement(QStringLiteral("Icon"), record.icon);
    writer.writeTextElement(QStringLiteral("Hint"), record.hint);
    writer.writeTextElement(QStringLiteral("Help"), record.help);
    writer.writeTextElement(QStringLiteral("Desc"), record.desc);
    writer.writeTextElement(QStringLiteral("Script"), record.script);
    if (record.type == QLatin1String("widget")) {
        writer.writeTextElement(QStringLiteral("Widget"), record.widget);
        writer.writeTextElement(QStringLiteral("Mapper"), record.mapper);
    } else if (record.type == QLatin1String("toggle")) {
        writer.writeTextElement(QStringLiteral("Checked"),
                                record.checked ? QStringLiteral("true") : QStringLiteral("false"));
        writer.writeTextElement(QStringLiteral("Options"), record.options);
    }
    writer.writeEndElement();
}

void bareWriter(benchmark::State& state)
{
    std::vector<ActionRecord> records;
    for (const Action* action : loadedPool().pool.actions())
        records.push_back({action->name(), action->type(), action->form(), action->ribbonText(),
                           action->menuText(), action->iconName(), action->hint(),
                           action->help(), action->desc(), action->script(), action->widget(),
                           action->mapper(), action->options(), action->isChecked()});
    for (auto _ : state) {
        QFile file(corpus().anchorFile);
        file.open(QIODevice::WriteOnly | QIODevice::Text | QIODevice::Truncate);
        QXmlStreamWriter writer(&file);
        writer.setAutoFormatting(true);
        writer.writeStartDocument();
        writer.writeStartElement(QStringLiteral("Actions"));
        writer.writeAttribute(QStringLiteral("name"), QStringLiteral("Vexa"));
        writer.writeAttribute(QStringLiteral("version"), QStringLiteral("1700"));
        for (const ActionRecord& record : records)
            writeRecord(writer, record);
        writer.writeEndElement();
        writer.writeEndDocument();
        if (writer.hasError())
            state.SkipWithError("write failed");
    }
}

// Bytes per Action as a pool makes one: the object, its private part and its texts (icons
// are shared and not counted).
void actionMemory(benchmark::State& state)
{
    double bytes = 0.0;
    for (auto _ : state) {
        QObject holder;
        const std::int64_t before = CsBench::heapInUse();
        for (int index = 0; index < poolActions; ++index) {
            Action* action = new Action(&holder);
            const QString number = QString::number(index);
            action->setName(QStringLiteral("ID_FILLET_") + number);
            action->setType(QStringLiteral("command"));
            action->setRibbonText(QStringLiteral("Fillet ") + number);
            action->setMenuText(QStringLiteral("&Fillet ") + number + QStringLiteral("..."));
            action->setHint(QStringLiteral("Rounds the corner between two entities"));
            action->setHelp(QStringLiteral("help/fillet.html"));
            action->setDesc(QStringLiteral("Fillet: rounds the corner between two entities"));
            action->setForm(QStringLiteral("Modify"));
            action->setScript(QStringLiteral("fillet_") + number);
        }
        bytes = double(CsBench::heapInUse() - before) / poolActions;
    }
    state.counters["bytes_per_action"] = bytes;
}

void cloneMemory(benchmark::State& state)
{
    std::unique_ptr<Action> action = ribbonAction();
    double bytes = 0.0;
    for (auto _ : state) {
        QObject holder;
        const std::int64_t before = CsBench::heapInUse();
        for (int index = 0; index < cloneCount; ++index)
            action->clone(&holder, 1);
        bytes = double(CsBench::heapInUse() - before) / cloneCount;
    }
    state.counters["bytes_per_clone"] = bytes;
}

void registerBenchmarks()
{
    using benchmark::RegisterBenchmark;
    // Memory first, before other benchmarks leave free blocks in Action's allocator.
    RegisterBenchmark("memory/action", actionMemory)->Iterations(1);
    RegisterBenchmark("memory/clone", cloneMemory)->Iterations(1);
    RegisterBenchmark("clone_ribbon_10000", cloneRibbon)->Unit(benchmark::kMillisecond);
    RegisterBenchmark("anchor/new_QAction_10_connections_10000", newQActionConnected)
        ->Unit(benchmark::kMillisecond);
    for (int clones : {1000, 10000, 30000}) {
        const std::string count = std::to_string(clones);
        RegisterBenchmark(("setEnabled_" + count + "_clones").c_str(),
                          [clones](benchmark::State& state) { setEnabledClones(state, clones); })
            ->Unit(benchmark::kMicrosecond);
        RegisterBenchmark(("anchor/QAction_setEnabled_x" + count).c_str(),
                          [clones](benchmark::State& state) { setEnabledDirect(state, clones); })
            ->Unit(benchmark::kMicrosecond);
        RegisterBenchmark(("diagnosis/qt_clone_graph_setEnabled_x" + count).c_str(),
                          [clones](benchmark::State& state) {
                              setEnabledCloneGraph(state, clones);
                          })
            ->Unit(benchmark::kMicrosecond);
    }
    RegisterBenchmark("ActionPool_load_5000", poolLoad)->Unit(benchmark::kMillisecond);
    RegisterBenchmark("anchor/xml_walk_500_png_5000_QAction", unavoidableLoadWork)
        ->Unit(benchmark::kMillisecond);
    RegisterBenchmark("ActionPool_save_5000", poolSave)->Unit(benchmark::kMillisecond);
    RegisterBenchmark("anchor/xml_stream_writer_5000", bareWriter)->Unit(benchmark::kMillisecond);
}

std::vector<CsBench::Comparison> comparisons()
{
    using namespace CsBench;
    return {
        {"Action::clone (plain, ribbon type), per clone, 10,000 clones",
         {"clone_ribbon_10000", "", cloneCount},
         {"anchor/new_QAction_10_connections_10000", "", cloneCount}, Unit::Time, Goal::AtMost,
         3.0},
        {"Action::setEnabled reaching 1,000 clones", {"setEnabled_1000_clones"},
         {"anchor/QAction_setEnabled_x1000"}, Unit::Time, Goal::AtMost, 2.0},
        {"Action::setEnabled reaching 10,000 clones", {"setEnabled_10000_clones"},
         {"anchor/QAction_setEnabled_x10000"}, Unit::Time, Goal::AtMost, 2.0},
        {"(diagnosis) Qt alone: 1,000 plain QActions with a clone's objects and string "
         "connections, reached by one signal, against the anchor",
         {"diagnosis/qt_clone_graph_setEnabled_x1000"}, {"anchor/QAction_setEnabled_x1000"},
         Unit::Time, Goal::Report, 0},
        {"(diagnosis) setEnabled reaching 1,000 clones, against Qt alone",
         {"setEnabled_1000_clones"}, {"diagnosis/qt_clone_graph_setEnabled_x1000"}, Unit::Time,
         Goal::Report, 0},
        {"(diagnosis) setEnabled reaching 10,000 clones, against Qt alone",
         {"setEnabled_10000_clones"}, {"diagnosis/qt_clone_graph_setEnabled_x10000"},
         Unit::Time, Goal::Report, 0},
        {"setEnabled cost per clone, 10,000 clones against 1,000 clones",
         {"setEnabled_10000_clones", "", 10000}, {"setEnabled_1000_clones", "", 1000},
         Unit::Time, Goal::AtMost, 1.25},
        {"setEnabled cost per clone, 30,000 clones against 10,000 clones",
         {"setEnabled_30000_clones", "", 30000}, {"setEnabled_10000_clones", "", 10000},
         Unit::Time, Goal::AtMost, 1.25},
        {"(diagnosis) Qt alone: cost per QAction, 10,000 against 1,000",
         {"diagnosis/qt_clone_graph_setEnabled_x10000", "", 10000},
         {"diagnosis/qt_clone_graph_setEnabled_x1000", "", 1000}, Unit::Time, Goal::Report, 0},
        {"(diagnosis) Qt alone: cost per QAction, 30,000 against 10,000",
         {"diagnosis/qt_clone_graph_setEnabled_x30000", "", 30000},
         {"diagnosis/qt_clone_graph_setEnabled_x10000", "", 10000}, Unit::Time, Goal::Report, 0},
        {"ActionPool::load, 5,000 actions, 500 distinct 32 px icons, 96 DPI",
         {"ActionPool_load_5000"}, {"anchor/xml_walk_500_png_5000_QAction"}, Unit::Time,
         Goal::AtMost, 2.0},
        {"ActionPool::save of the same pool", {"ActionPool_save_5000"},
         {"anchor/xml_stream_writer_5000"}, Unit::Time, Goal::AtMost, 1.5},
        {"memory: bytes per Action", {"memory/action", "bytes_per_action"}, {}, Unit::Bytes,
         Goal::Report, 0},
        {"memory: bytes per clone", {"memory/clone", "bytes_per_clone"}, {}, Unit::Bytes,
         Goal::Report, 0},
    };
}

} // namespace

int main(int argc, char** argv)
{
    CsBench::BenchSession session(argc, argv);
    registerBenchmarks();
    return session.run("Actions and UI binding (bench_action)", comparisons());
}
