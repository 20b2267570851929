#ifndef SKETCHPAD_ENTITY_H
#define SKETCHPAD_ENTITY_H

#include <QPainterPath>
#include <QPointF>
#include <QString>
#include <QTransform>
#include <QVector>

// One drawing entity in drawing units (y up). Arcs are kept as their three defining points and
// circles as centre and radius, so that every transform maps points and nothing else.
struct Entity {
    int id = 0;
    QString kind;             // line, polyline, rectangle, polygon, point, circle, arc, ellipse,
                              // spline, text, dimension
    QVector<QPointF> points;
    double radius = 0.0;      // circle
    double height = 0.0;      // text
    double angle = 0.0;       // text direction, degrees counter-clockwise
    bool closed = false;
    QString text;
    QString layer;
    double width = 0.0;       // millimetres

    Entity transformed(const QTransform& transform) const;
    // The outline in drawing units (text and dimension texts excluded).
    QPainterPath path() const;
    // The text shown with the entity: the text itself, or a dimension's measured value.
    QString label() const;
    double distanceTo(const QPointF& point) const;
    QRectF bounds() const;
    // "line layer=0 width=0.25 (0,0) (100,0)".
    QString describe() const;

    static QString formatNumber(double value, int decimals = 3);
    static QString formatPoint(const QPointF& point, int decimals = 3);
};

#endif
