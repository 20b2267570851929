#include "DrawOperations.h"

#include "CommandLine.h"
#include "CommandRunner.h"
#include <CommandSystem/InputSession.h>
#include "Drawing.h"
#include "Operations.h"

#include <QLineF>
#include <QUndoStack>
#include <QtMath>

#include <cmath>

namespace {

using Stage = Operations::Stage;

void add(SketchContext& context, const QString& text, const Entity& entity)
{
    Operations::commit(context, text, {}, {entity});
}

void line(SketchContext& context, InputSession& session, Stage stage)
{
    if (stage == Operations::Undo) {
        context.undoStack->undo();
        return;
    }
    const QList<QPointF> points = session.points();
    if (stage != Operations::Trigger || points.size() < 2)
        return;
    Entity entity = context.drawing->newEntity(QStringLiteral("line"));
    entity.points = {points[points.size() - 2], points.last()};
    add(context, QStringLiteral("Line"), entity);
}

void polyline(SketchContext& context, InputSession& session, Stage stage)
{
    const QList<QPointF> points = session.points();
    if (stage == Operations::Answered)
        context.runner->preview(points);
    if (stage != Operations::Finish || points.size() < 2)
        return;
    Entity entity = context.drawing->newEntity(QStringLiteral("polyline"));
    entity.points = QVector<QPointF>(points.begin(), points.end());
    entity.closed = session.lastOption() == QLatin1String("c") && points.size() > 2;
    add(context, QStringLiteral("Polyline"), entity);
}

void rectangle(SketchContext& context, InputSession& session, Stage stage)
{
    if (stage != Operations::Finish)
        return;
    const QRectF box = QRectF(session.point(1), session.point(2)).normalized();
    Entity entity = context.drawing->newEntity(QStringLiteral("rectangle"));
    entity.points = {box.topLeft(), box.topRight(), box.bottomRight(), box.bottomLeft()};
    entity.closed = true;
    add(context, QStringLiteral("Rectangle"), entity);
}

QVector<QPointF> ring(const QPointF& centre, const QPointF& u, const QPointF& v, int steps)
{
    QVector<QPointF> points;
    for (int i = 0; i < steps; ++i) {
        const double a = 2 * M_PI * i / steps;
        points.append(centre + u * std::cos(a) + v * std::sin(a));
    }
    return points;
}

void polygon(SketchContext& context, InputSession& session, Stage stage)
{
    if (stage != Operations::Finish)
        return;
    const int sides = qRound(session.number(1));
    const double radius = session.number(3);
    Entity entity = context.drawing->newEntity(QStringLiteral("polygon"));
    const double start = M_PI / 2;
    const QPointF u(std::cos(start) * radius, std::sin(start) * radius);
    entity.points = ring(session.point(2), u, QPointF(-u.y(), u.x()), sides);
    entity.closed = true;
    add(context, QStringLiteral("Polygon"), entity);
}

void point(SketchContext& context, InputSession& session, Stage stage)
{
    if (stage != Operations::Finish)
        return;
    Entity entity = context.drawing->newEntity(QStringLiteral("point"));
    entity.points = {session.point(1)};
    add(context, QStringLiteral("Point"), entity);
}

void circle(SketchContext& context, InputSession& session, Stage stage)
{
    if (stage != Operations::Finish)
        return;
    Entity entity = context.drawing->newEntity(QStringLiteral("circle"));
    entity.points = {session.point(1)};
    entity.radius = session.number(2);
    add(context, QStringLiteral("Circle"), entity);
}

void circle2p(SketchContext& context, InputSession& session, Stage stage)
{
    if (stage != Operations::Finish)
        return;
    const QLineF diameter(session.point(1), session.point(2));
    Entity entity = context.drawing->newEntity(QStringLiteral("circle"));
    entity.points = {diameter.center()};
    entity.radius = diameter.length() / 2;
    add(context, QStringLiteral("Circle"), entity);
}

void arc(SketchContext& context, InputSession& session, Stage stage)
{
    if (stage != Operations::Finish)
        return;
    const QPointF a = session.point(1);
    const QPointF b = session.point(2);
    const QPointF c = session.point(3);
    const double cross = (b.x() - a.x()) * (c.y() - a.y()) - (b.y() - a.y()) * (c.x() - a.x());
    if (std::abs(cross) < 1e-9) {
        context.runner->print(QStringLiteral("The three points lie on one line; no arc was drawn."),
                              CommandLine::Error);
        return;
    }
    Entity entity = context.drawing->newEntity(QStringLiteral("arc"));
    entity.points = {a, b, c};
    add(context, QStringLiteral("Arc"), entity);
}

void ellipse(SketchContext& context, InputSession& session, Stage stage)
{
    if (stage != Operations::Finish)
        return;
    const QPointF centre = session.point(1);
    const QPointF u = session.point(2) - centre;
    const double length = std::hypot(u.x(), u.y());
    const QPointF v = QPointF(-u.y(), u.x()) / length * session.number(3);
    Entity entity = context.drawing->newEntity(QStringLiteral("ellipse"));
    entity.points = ring(centre, u, v, 72);
    entity.closed = true;
    add(context, QStringLiteral("Ellipse"), entity);
}

// A Catmull-Rom curve through the fit points, kept as a fine polyline.
void spline(SketchContext& context, InputSession& session, Stage stage)
{
    const QList<QPointF> fit = session.points();
    if (stage != Operations::Finish || fit.size() < 2)
        return;
    Entity entity = context.drawing->newEntity(QStringLiteral("spline"));
    for (int i = 0; i + 1 < fit.size(); ++i) {
        const QPointF p0 = fit[qMax(0, i - 1)], p1 = fit[i], p2 = fit[i + 1];
        const QPointF p3 = fit[qMin(int(fit.size()) - 1, i + 2)];
        for (int s = 0; s < 16; ++s) {
            const double t = s / 16.0, t2 = t * t, t3 = t2 * t;
            entity.points.append(0.5 * (2 * p1 + (p2 - p0) * t + (2 * p0 - 5 * p1 + 4 * p2 - p3) * t2
                                        + (3 * p1 - p0 - 3 * p2 + p3) * t3));
        }
    }
    entity.points.append(fit.last());
    add(context, QStringLiteral("Spline"), entity);
}

void text(SketchContext& context, InputSession& session, Stage stage)
{
    if (stage != Operations::Finish)
        return;
    Entity entity = context.drawing->newEntity(QStringLiteral("text"));
    entity.points = {session.point(1)};
    entity.angle = session.number(2);
    entity.height = context.drawing->textHeight();
    entity.text = session.text(3);
    add(context, QStringLiteral("Text"), entity);
}

void dimension(SketchContext& context, InputSession& session, bool aligned)
{
    QPointF a = session.point(1);
    QPointF b = session.point(2);
    const QPointF location = session.point(3);
    if (!aligned) {
        const QPointF middle = (a + b) / 2;
        const bool horizontal = std::abs(location.y() - middle.y()) >= std::abs(location.x() - middle.x());
        b = horizontal ? QPointF(b.x(), a.y()) : QPointF(a.x(), b.y());
    }
    Entity entity = context.drawing->newEntity(QStringLiteral("dimension"));
    entity.points = {a, b, location};
    entity.height = context.drawing->textHeight() * 0.7;
    add(context, QStringLiteral("Dimension"), entity);
}

void dimradius(SketchContext& context, InputSession& session, Stage stage)
{
    if (stage != Operations::Finish)
        return;
    const Entity target = context.drawing->entity(session.entities(1).value(0));
    if (target.kind != QLatin1String("circle")) {
        context.runner->print(QStringLiteral("Select a circle."), CommandLine::Error);
        return;
    }
    const QPointF centre = target.points[0];
    const QPointF location = session.point(2);
    const QLineF toLocation(centre, location);
    Entity entity = context.drawing->newEntity(QStringLiteral("dimension"));
    entity.points = {centre, toLocation.pointAt(target.radius / qMax(toLocation.length(), 1e-9)), location};
    entity.text = QStringLiteral("radius");
    entity.height = context.drawing->textHeight() * 0.7;
    add(context, QStringLiteral("Dimension"), entity);
}

} // namespace

void DrawOperations::registerAll(Operations& operations)
{
    operations.add(QStringLiteral("line"), line);
    operations.add(QStringLiteral("polyline"), polyline);
    operations.add(QStringLiteral("rectangle"), rectangle);
    operations.add(QStringLiteral("polygon"), polygon);
    operations.add(QStringLiteral("point"), point);
    operations.add(QStringLiteral("circle"), circle);
    operations.add(QStringLiteral("circle2p"), circle2p);
    operations.add(QStringLiteral("arc"), arc);
    operations.add(QStringLiteral("ellipse"), ellipse);
    operations.add(QStringLiteral("spline"), spline);
    operations.add(QStringLiteral("text"), text);
    operations.add(QStringLiteral("dimlinear"), [](SketchContext& c, InputSession& s, Stage stage) {
        if (stage == Operations::Finish)
            dimension(c, s, false);
    });
    operations.add(QStringLiteral("dimaligned"), [](SketchContext& c, InputSession& s, Stage stage) {
        if (stage == Operations::Finish)
            dimension(c, s, true);
    });
    operations.add(QStringLiteral("dimradius"), dimradius);
}
