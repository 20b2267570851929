#include "ToolOperations.h"

#include "CommandLine.h"
#include "CommandRunner.h"
#include <CommandSystem/InputSession.h>
#include "Drawing.h"
#include "Operations.h"

#include <CommandSystem/CommandLineModel.h>
#include <CommandSystem/Parameter.h>
#include <CommandSystem/Template.h>
#include <CommandSystem/TemplatePool.h>

#include <QLineF>
#include <QtMath>

#include <cmath>

namespace {

using Stage = Operations::Stage;
using Parameter = Talvir::Vexa::Cs::Parameter;

const char* const kTypeWords[] = {"null", "string", "number", "distance", "angle", "point", "entity",
                                  "option", "continue", "form", "window", "command", "pin"};

// Decimals for reported values: the "cif" property of the parameter, three when absent.
int decimals(InputSession& session, int luid)
{
    for (const Parameter* parameter : session.commandTemplate()->parameters()) {
        if (parameter->luid() == luid && parameter->inteProperty("cif") > 0)
            return parameter->inteProperty("cif");
    }
    return 3;
}

void printLayers(SketchContext& context)
{
    for (const QString& layer : context.drawing->layers()) {
        context.runner->print(QStringLiteral("  %1%2  %3").arg(layer == context.drawing->currentLayer() ? QLatin1Char('*') : QLatin1Char(' '))
                                  .arg(layer, -12).arg(context.drawing->layerColor(layer).name()));
    }
}

void setLayer(SketchContext& context, const QString& name)
{
    if (!context.drawing->setCurrentLayer(name))
        context.runner->print(QStringLiteral("There is no layer \"%1\".").arg(name), CommandLine::Error);
    else
        context.runner->print(QStringLiteral("Current layer: %1").arg(name));
}

void layer(SketchContext& context, InputSession& session, Stage stage)
{
    if (stage == Operations::Form) {
        printLayers(context);
        return;
    }
    if (stage != Operations::Finish)
        return;
    if (session.lastOption() == QLatin1String("n")) {
        const QString name = session.text(2);
        if (!context.drawing->addLayer(name)) {
            context.runner->print(QStringLiteral("Layer \"%1\" exists already.").arg(name), CommandLine::Error);
            return;
        }
        setLayer(context, name);
    } else if (session.lastOption() == QLatin1String("s")) {
        setLayer(context, session.text(3));
    }
}

void clayer(SketchContext& context, InputSession& session, Stage stage)
{
    if (stage == Operations::Finish)
        setLayer(context, session.text(1));
}

void lweight(SketchContext& context, InputSession& session, Stage stage)
{
    if (stage != Operations::Finish)
        return;
    context.drawing->setCurrentWidth(session.number(1));
    context.runner->print(QStringLiteral("Line width: %1 mm").arg(Entity::formatNumber(session.number(1), 2)));
}

void textsize(SketchContext& context, InputSession& session, Stage stage)
{
    if (stage != Operations::Finish)
        return;
    context.drawing->setTextHeight(session.number(1));
    context.runner->print(QStringLiteral("Text height: %1").arg(Entity::formatNumber(session.number(1))));
}

void dist(SketchContext& context, InputSession& session, Stage stage)
{
    if (stage != Operations::Finish)
        return;
    const QPointF a = session.point(1);
    const QPointF b = session.point(2);
    const int n = decimals(session, 2);
    const double angle = qRadiansToDegrees(std::atan2(b.y() - a.y(), b.x() - a.x()));
    context.runner->print(QStringLiteral("Distance = %1, Angle = %2, Delta X = %3, Delta Y = %4")
                              .arg(Entity::formatNumber(QLineF(a, b).length(), n), Entity::formatNumber(angle, n),
                                   Entity::formatNumber(b.x() - a.x(), n), Entity::formatNumber(b.y() - a.y(), n)));
}

void id(SketchContext& context, InputSession& session, Stage stage)
{
    if (stage != Operations::Finish)
        return;
    const QPointF p = session.point(1);
    const int n = decimals(session, 1);
    context.runner->print(QStringLiteral("X = %1  Y = %2").arg(Entity::formatNumber(p.x(), n), Entity::formatNumber(p.y(), n)));
}

void list(SketchContext& context, InputSession& session, Stage stage)
{
    if (stage != Operations::Finish)
        return;
    for (const Entity& entity : context.drawing->entities(session.entities(1)))
        context.runner->print(QStringLiteral("#%1 %2").arg(entity.id).arg(entity.describe()));
}

void area(SketchContext& context, InputSession& session, Stage stage)
{
    if (stage != Operations::Finish)
        return;
    const Entity entity = context.drawing->entity(session.entities(1).value(0));
    double area = 0.0;
    double perimeter = 0.0;
    if (entity.kind == QLatin1String("circle")) {
        area = M_PI * entity.radius * entity.radius;
        perimeter = 2 * M_PI * entity.radius;
    } else if (entity.closed && entity.points.size() > 2) {
        for (int i = 0; i < entity.points.size(); ++i) {
            const QPointF& p = entity.points[i];
            const QPointF& q = entity.points[(i + 1) % entity.points.size()];
            area += p.x() * q.y() - q.x() * p.y();
            perimeter += QLineF(p, q).length();
        }
        area = std::abs(area) / 2;
    } else {
        context.runner->print(QStringLiteral("Select a closed entity."), CommandLine::Error);
        return;
    }
    const int n = decimals(session, 1);
    context.runner->print(QStringLiteral("Area = %1, Perimeter = %2")
                              .arg(Entity::formatNumber(area, n), Entity::formatNumber(perimeter, n)));
}

void help(SketchContext& context, InputSession& session, Stage stage)
{
    if (stage != Operations::Finish)
        return;
    const QString typed = session.text(1);
    const QString name = context.commandLineModel->resolve(typed);
    if (name.isNull()) {
        context.runner->print(QStringLiteral("There is no command \"%1\".").arg(typed), CommandLine::Error);
        return;
    }
    Talvir::Vexa::Cs::Template* commandTemplate = context.templates->getTemplate(name);
    if (!commandTemplate) {
        context.runner->print(QStringLiteral("%1 asks for nothing.").arg(name));
        return;
    }
    context.runner->print(QStringLiteral("%1 asks for:").arg(name));
    for (const Parameter* parameter : commandTemplate->parameters()) {
        context.runner->print(QStringLiteral("  %1 (%2): %3").arg(parameter->luid())
                                  .arg(QString::fromLatin1(kTypeWords[parameter->type()]),
                                       QString::fromLocal8Bit(parameter->description())));
    }
}

void about(SketchContext& context, InputSession&, Stage stage)
{
    if (stage == Operations::Finish)
        context.runner->print(QStringLiteral("Sketchpad, the reference host of CommandSystem %1.")
                                  .arg(QStringLiteral(SKETCHPAD_VERSION)));
}

} // namespace

void ToolOperations::registerAll(Operations& operations)
{
    operations.add(QStringLiteral("layer"), layer);
    operations.add(QStringLiteral("clayer"), clayer);
    operations.add(QStringLiteral("lweight"), lweight);
    operations.add(QStringLiteral("textsize"), textsize);
    operations.add(QStringLiteral("dist"), dist);
    operations.add(QStringLiteral("id"), id);
    operations.add(QStringLiteral("list"), list);
    operations.add(QStringLiteral("area"), area);
    operations.add(QStringLiteral("help"), help);
    operations.add(QStringLiteral("about"), about);
}
