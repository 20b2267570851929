#include "Entity.h"

#include <QLineF>
#include <QtMath>

#include <cmath>
#include <limits>

namespace {

bool circleThrough(const QPointF& a, const QPointF& b, const QPointF& c, QPointF& centre,
                   double& radius)
{
    const double d = 2 * (a.x() * (b.y() - c.y()) + b.x() * (c.y() - a.y()) + c.x() * (a.y() - b.y()));
    if (std::abs(d) < 1e-9)
        return false;
    const double a2 = a.x() * a.x() + a.y() * a.y();
    const double b2 = b.x() * b.x() + b.y() * b.y();
    const double c2 = c.x() * c.x() + c.y() * c.y();
    centre = QPointF((a2 * (b.y() - c.y()) + b2 * (c.y() - a.y()) + c2 * (a.y() - b.y())) / d,
                     (a2 * (c.x() - b.x()) + b2 * (a.x() - c.x()) + c2 * (b.x() - a.x())) / d);
    radius = QLineF(centre, a).length();
    return true;
}

double degreesOf(const QPointF& centre, const QPointF& point)
{
    return qRadiansToDegrees(std::atan2(point.y() - centre.y(), point.x() - centre.x()));
}

// Sweep from start to end through mid, counter-clockwise positive.
double arcSweep(double start, double mid, double end)
{
    auto ccw = [](double from, double to) {
        double d = std::fmod(to - from, 360.0);
        return d < 0 ? d + 360.0 : d;
    };
    const double total = ccw(start, end);
    return ccw(start, mid) <= total ? total : total - 360.0;
}

void addArc(QPainterPath& path, const QVector<QPointF>& p)
{
    QPointF centre;
    double radius = 0;
    if (!circleThrough(p[0], p[1], p[2], centre, radius)) {
        path.moveTo(p[0]);
        path.lineTo(p[2]);
        return;
    }
    const double start = degreesOf(centre, p[0]);
    const double sweep = arcSweep(start, degreesOf(centre, p[1]), degreesOf(centre, p[2]));
    const int steps = qMax(8, int(std::abs(sweep) / 3));
    path.moveTo(p[0]);
    for (int i = 1; i <= steps; ++i) {
        const double a = qDegreesToRadians(start + sweep * i / steps);
        path.lineTo(centre + QPointF(std::cos(a), std::sin(a)) * radius);
    }
}

void addDimension(QPainterPath& path, const QVector<QPointF>& p)
{
    const QLineF measured(p[0], p[1]);
    const QLineF normal = measured.normalVector().unitVector();
    const QPointF n = normal.p2() - normal.p1();
    const double offset = QPointF::dotProduct(p[2] - p[0], n);
    const QPointF a = p[0] + n * offset;
    const QPointF b = p[1] + n * offset;
    path.moveTo(p[0]);
    path.lineTo(a + n * (offset >= 0 ? 2 : -2));
    path.moveTo(p[1]);
    path.lineTo(b + n * (offset >= 0 ? 2 : -2));
    path.moveTo(a);
    path.lineTo(b);
    const QLineF dir = QLineF(a, b).unitVector();
    const QPointF u = dir.p2() - dir.p1();
    const double tick = 2.5;
    for (const QPointF& end : {a, b}) {
        path.moveTo(end - (u + n) * tick * 0.5);
        path.lineTo(end + (u + n) * tick * 0.5);
    }
}

} // namespace

Entity Entity::transformed(const QTransform& transform) const
{
    Entity result = *this;
    for (QPointF& point : result.points)
        point = transform.map(point);
    const double scale = std::sqrt(std::abs(transform.determinant()));
    result.radius = radius * scale;
    result.height = height * scale;
    const QLineF axis = transform.map(QLineF(0, 0, 1, 0));
    const double rotation = qRadiansToDegrees(std::atan2(axis.dy(), axis.dx()));
    result.angle = transform.determinant() < 0 ? rotation - angle : angle + rotation;
    return result;
}

QPainterPath Entity::path() const
{
    QPainterPath path;
    if (kind == QLatin1String("circle") && !points.isEmpty()) {
        path.addEllipse(points[0], radius, radius);
    } else if (kind == QLatin1String("arc") && points.size() == 3) {
        addArc(path, points);
    } else if (kind == QLatin1String("dimension") && points.size() == 3 && text == QLatin1String("radius")) {
        path.moveTo(points[0]);
        path.lineTo(points[1]);
        path.lineTo(points[2]);
    } else if (kind == QLatin1String("dimension") && points.size() == 3) {
        addDimension(path, points);
    } else if (kind == QLatin1String("point") && !points.isEmpty()) {
        path.moveTo(points[0]);
        path.lineTo(points[0]);
    } else if (kind != QLatin1String("text") && !points.isEmpty()) {
        path.moveTo(points[0]);
        for (int i = 1; i < points.size(); ++i)
            path.lineTo(points[i]);
        if (closed)
            path.closeSubpath();
    }
    return path;
}

QString Entity::label() const
{
    if (kind == QLatin1String("text"))
        return text;
    if (kind == QLatin1String("dimension") && points.size() == 3) {
        if (text == QLatin1String("radius"))
            return QStringLiteral("R") + formatNumber(QLineF(points[0], points[1]).length(), 2);
        return formatNumber(QLineF(points[0], points[1]).length(), 2);
    }
    return QString();
}

double Entity::distanceTo(const QPointF& point) const
{
    if (kind == QLatin1String("circle") && !points.isEmpty())
        return std::abs(QLineF(points[0], point).length() - radius);
    if ((kind == QLatin1String("text") || kind == QLatin1String("point")) && !points.isEmpty())
        return QLineF(points[0], point).length();
    double best = std::numeric_limits<double>::max();
    for (const QPolygonF& polygon : path().toSubpathPolygons()) {
        for (int i = 0; i + 1 < polygon.size(); ++i) {
            const QPointF a = polygon[i];
            const QPointF d = polygon[i + 1] - a;
            const double len2 = QPointF::dotProduct(d, d);
            const double t = len2 > 0 ? qBound(0.0, QPointF::dotProduct(point - a, d) / len2, 1.0) : 0.0;
            best = qMin(best, QLineF(a + d * t, point).length());
        }
    }
    return best;
}

QRectF Entity::bounds() const
{
    QRectF box = path().boundingRect();
    for (const QPointF& p : points)
        box = box.united(QRectF(p, QSizeF(0, 0)));
    if (kind == QLatin1String("text") && !points.isEmpty())
        box = box.united(QRectF(points[0], QSizeF(height * text.size() * 0.6, height)));
    return box;
}

QString Entity::describe() const
{
    QString line = QStringLiteral("%1 layer=%2 width=%3").arg(kind, layer, formatNumber(width, 2));
    for (const QPointF& p : points)
        line += QLatin1Char(' ') + formatPoint(p);
    if (kind == QLatin1String("circle"))
        line += QStringLiteral(" r=") + formatNumber(radius);
    if (kind == QLatin1String("text"))
        line += QStringLiteral(" h=%1 angle=%2 \"%3\"").arg(formatNumber(height), formatNumber(angle), text);
    if (kind == QLatin1String("dimension"))
        line += QStringLiteral(" value=") + label();
    if (closed && kind == QLatin1String("polyline"))
        line += QStringLiteral(" closed");
    return line;
}

QString Entity::formatNumber(double value, int decimals)
{
    if (std::abs(value) < 0.5 * std::pow(10.0, -decimals))
        value = 0.0;
    QString text = QString::number(value, 'f', decimals);
    if (text.contains(QLatin1Char('.'))) {
        while (text.endsWith(QLatin1Char('0')))
            text.chop(1);
        if (text.endsWith(QLatin1Char('.')))
            text.chop(1);
    }
    return text;
}

QString Entity::formatPoint(const QPointF& point, int decimals)
{
    return formatNumber(point.x(), decimals) + QLatin1Char(',') + formatNumber(point.y(), decimals);
}
