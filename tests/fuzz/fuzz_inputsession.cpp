// libFuzzer target: input sessions fed arbitrary lines and picks. A line is typed; a line
// starting with "!" is a pick at the two numbers after it. Whatever happens, a session that has
// not finished asks for a parameter, and its steps replayed into a new session give the same
// answers.
#include "FuzzSupport.h"

#include <CommandSystem/InputPicker.h>
#include <CommandSystem/InputSession.h>
#include <CommandSystem/Template.h>
#include <CommandSystem/TemplateTools.h>

#include <QDirIterator>

#include <memory>
#include <vector>

using namespace Talvir::Vexa::Cs;

namespace {

class GridPicker : public InputPicker
{
public:
    int entityAt(const QPointF& point) override { return point.x() >= 0 && point.x() < 10 ? int(point.x()) + 1 : 0; }
    QPointF pinnedPoint(const QPointF& point) override { return QPointF(qRound(point.x()), qRound(point.y())); }
    QList<int> optionEntities(const QString& key) override { return key.size() == 1 ? QList<int>{1, 2} : QList<int>{}; }
};

// Every template of the example catalogue and of the input tests.
std::vector<std::unique_ptr<Template>>& templates()
{
    static std::vector<std::unique_ptr<Template>> loaded;
    return loaded;
}

void loadTemplates()
{
    TemplateTools tools;
    for (const char* directory : {CS_FUZZ_CATALOGUE_DIR, CS_FUZZ_INPUT_DATA_DIR}) {
        QDirIterator files(QString::fromUtf8(directory), {QStringLiteral("*.tcmd")}, QDir::Files,
                           QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QList<Template*> list;
            tools.loadTemplate(files.next(), list);
            for (Template* commandTemplate : list)
                templates().emplace_back(commandTemplate);
        }
    }
    if (templates().empty())
        std::abort();
}

void feed(InputSession& session, const QString& line)
{
    if (!line.startsWith(QLatin1Char('!'))) {
        session.feed(line);
        return;
    }
    const QStringList numbers = line.mid(1).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    session.pick(QPointF(numbers.value(0).toDouble(), numbers.value(1).toDouble()));
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    Fuzz::initialize(argc, argv);
    loadTemplates();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size == 0)
        return 0;
    const Template* commandTemplate = templates().at(data[0] % templates().size()).get();
    const QStringList lines = QString::fromUtf8(reinterpret_cast<const char*>(data + 1), int(size - 1))
                                  .split(QLatin1Char('\n'));
    GridPicker picker;
    InputSession session(commandTemplate, &picker);
    session.start();
    for (const QString& line : lines) {
        feed(session, line);
        if (!session.isFinished() && !session.current())
            __builtin_trap();
    }
    InputSession replay(commandTemplate);
    replay.start();
    for (const InputAnswer& step : session.steps()) {
        if (!replay.apply(step))
            __builtin_trap();
    }
    if (replay.answers() != session.answers() || replay.isFinished() != session.isFinished()
        || replay.isCompleted() != session.isCompleted())
        __builtin_trap();
    return 0;
}
