#include "ModifyOperations.h"

#include "ArrayWork.h"
#include "CommandLine.h"
#include "CommandRunner.h"
#include <CommandSystem/InputSession.h>
#include "Drawing.h"
#include "Operations.h"

#include <QLineF>
#include <QTransform>
#include <QtMath>

#include <cmath>

namespace {

using Stage = Operations::Stage;

QTransform about(const QPointF& base, const QTransform& transform)
{
    return QTransform::fromTranslate(-base.x(), -base.y()) * transform
           * QTransform::fromTranslate(base.x(), base.y());
}

// Replaces the entities in place (same ids) with their transformed geometry.
void reshape(SketchContext& context, const QString& text, const QList<int>& ids,
             const QTransform& transform)
{
    const QList<Entity> before = context.drawing->entities(ids);
    QList<Entity> after;
    for (const Entity& entity : before)
        after.append(entity.transformed(transform));
    Operations::commit(context, text, before, after);
}

QList<Entity> copies(SketchContext& context, const QList<int>& ids, const QTransform& transform)
{
    QList<Entity> result;
    for (const Entity& entity : context.drawing->entities(ids)) {
        Entity copy = entity.transformed(transform);
        copy.id = context.drawing->allocateId();
        result.append(copy);
    }
    return result;
}

void move(SketchContext& context, InputSession& session, Stage stage)
{
    if (stage != Operations::Finish)
        return;
    const QPointF d = session.point(3) - session.point(2);
    reshape(context, QStringLiteral("Move"), session.entities(1), QTransform::fromTranslate(d.x(), d.y()));
}

void copy(SketchContext& context, InputSession& session, Stage stage)
{
    if (stage != Operations::Trigger)
        return;
    const QPointF d = session.point(3) - session.point(2);
    Operations::commit(context, QStringLiteral("Copy"), {},
                       copies(context, session.entities(1), QTransform::fromTranslate(d.x(), d.y())));
}

void rotate(SketchContext& context, InputSession& session, Stage stage)
{
    if (stage != Operations::Finish)
        return;
    reshape(context, QStringLiteral("Rotate"), session.entities(1),
            about(session.point(2), QTransform().rotate(session.number(3))));
}

void scale(SketchContext& context, InputSession& session, Stage stage)
{
    if (stage != Operations::Finish)
        return;
    const double factor = session.number(3);
    reshape(context, QStringLiteral("Scale"), session.entities(1),
            about(session.point(2), QTransform::fromScale(factor, factor)));
}

void mirror(SketchContext& context, InputSession& session, Stage stage)
{
    if (stage != Operations::Finish)
        return;
    const QPointF a = session.point(2);
    const QPointF d = session.point(3) - a;
    const double angle = qRadiansToDegrees(std::atan2(d.y(), d.x()));
    const QTransform transform = about(a, QTransform().rotate(-angle) * QTransform::fromScale(1, -1)
                                              * QTransform().rotate(angle));
    const QList<int> ids = session.entities(1);
    const QList<Entity> removed = session.text(4) == QLatin1String("y") ? context.drawing->entities(ids)
                                                                          : QList<Entity>();
    Operations::commit(context, QStringLiteral("Mirror"), removed, copies(context, ids, transform));
}

void eraseEntities(SketchContext& context, InputSession& session, Stage stage)
{
    if (stage != Operations::Finish)
        return;
    const QList<Entity> removed = context.drawing->entities(session.entities(1));
    Operations::commit(context, QStringLiteral("Erase"), removed, {});
    context.runner->print(QStringLiteral("%1 erased.").arg(removed.size()));
}

void offset(SketchContext& context, InputSession& session, Stage stage)
{
    if (stage != Operations::Finish)
        return;
    const double distance = session.number(1);
    const Entity source = context.drawing->entity(session.entities(2).value(0));
    const QPointF side = session.point(3);
    Entity result = source;
    result.id = context.drawing->allocateId();
    if (source.kind == QLatin1String("circle")) {
        const bool outside = QLineF(source.points[0], side).length() > source.radius;
        result.radius = source.radius + (outside ? distance : -distance);
        if (result.radius <= 0) {
            context.runner->print(QStringLiteral("The offset is larger than the radius."), CommandLine::Error);
            return;
        }
    } else if (source.kind == QLatin1String("line")) {
        const QLineF normal = QLineF(source.points[0], source.points[1]).normalVector().unitVector();
        QPointF n = normal.p2() - normal.p1();
        if (QPointF::dotProduct(side - source.points[0], n) < 0)
            n = -n;
        result.points = {source.points[0] + n * distance, source.points[1] + n * distance};
    } else {
        context.runner->print(QStringLiteral("Offset works on lines and circles."), CommandLine::Error);
        return;
    }
    Operations::commit(context, QStringLiteral("Offset"), {}, {result});
}

void explode(SketchContext& context, InputSession& session, Stage stage)
{
    if (stage != Operations::Finish)
        return;
    QList<Entity> removed;
    QList<Entity> added;
    for (const Entity& entity : context.drawing->entities(session.entities(1))) {
        if (entity.kind == QLatin1String("circle") || entity.kind == QLatin1String("text")
            || entity.kind == QLatin1String("point") || entity.points.size() < 2)
            continue;
        removed.append(entity);
        const int count = entity.closed ? entity.points.size() : entity.points.size() - 1;
        for (int i = 0; i < count; ++i) {
            Entity piece = entity;
            piece.id = context.drawing->allocateId();
            piece.kind = QStringLiteral("line");
            piece.closed = false;
            piece.points = {entity.points[i], entity.points[(i + 1) % entity.points.size()]};
            added.append(piece);
        }
    }
    Operations::commit(context, QStringLiteral("Explode"), removed, added);
    context.runner->print(QStringLiteral("%1 exploded into %2 lines.").arg(removed.size()).arg(added.size()));
}

void stretch(SketchContext& context, InputSession& session, Stage stage)
{
    if (stage != Operations::Finish)
        return;
    const QRectF window = session.window(1);
    const QPointF d = session.point(3) - session.point(2);
    QList<Entity> before;
    QList<Entity> after;
    for (const Entity& entity : context.drawing->entities()) {
        Entity moved = entity;
        bool changed = false;
        for (QPointF& point : moved.points) {
            if (window.contains(point)) {
                point += d;
                changed = true;
            }
        }
        if (changed) {
            before.append(entity);
            after.append(moved);
        }
    }
    Operations::commit(context, QStringLiteral("Stretch"), before, after);
}

void array(SketchContext& context, InputSession& session, Stage stage)
{
    if (stage != Operations::Finish)
        return;
    ArrayWork work(context, context.drawing->entities(session.entities(1)), qRound(session.number(2)),
                   qRound(session.number(3)), session.number(4), session.number(5));
    work.run();
}

} // namespace

void ModifyOperations::registerAll(Operations& operations)
{
    operations.add(QStringLiteral("move"), move);
    operations.add(QStringLiteral("copy"), copy);
    operations.add(QStringLiteral("rotate"), rotate);
    operations.add(QStringLiteral("scale"), scale);
    operations.add(QStringLiteral("mirror"), mirror);
    operations.add(QStringLiteral("erase"), eraseEntities);
    operations.add(QStringLiteral("offset"), offset);
    operations.add(QStringLiteral("explode"), explode);
    operations.add(QStringLiteral("stretch"), stretch);
    operations.add(QStringLiteral("array"), array);
}
