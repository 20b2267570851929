// Draws the icons of the example UI files (examples/ui/icons) with QPainter, so that every
// picture the examples show is the project's own. Run: icongen OUTPUT_DIRECTORY
//
// Each icon is drawn on a 64 x 64 canvas. Icons of the drawing and modifying commands also get
// a "_disabled" variant (grey, faded) and an "_active" variant (on a highlight), which
// Action::setIcon picks up beside the normal file.

#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QtMath>

#include <cstdio>
#include <functional>
#include <map>
#include <string>

namespace {

const QColor kInk(0x2b, 0x3a, 0x55);       // entities
const QColor kAccent(0xe0, 0x7a, 0x1f);    // picked points and handles
const QColor kMotion(0x2e, 0x8b, 0x57);    // arrows of transforms
const QColor kDanger(0xc0, 0x39, 0x2b);    // erase, cancel
const QColor kPaper(0xf4, 0xf1, 0xe8);     // sheets and windows
const QColor kGhost(0x9a, 0xa5, 0xb8);     // the "before" state of a transform

using Painter = std::function<void(QPainter&)>;

QPen pen(const QColor& color, qreal width = 4.0, Qt::PenStyle style = Qt::SolidLine)
{
    return QPen(color, width, style, Qt::RoundCap, Qt::RoundJoin);
}

void handle(QPainter& p, QPointF at)
{
    p.save();
    p.setPen(pen(kAccent.darker(130), 1.5));
    p.setBrush(kAccent);
    p.drawRect(QRectF(at - QPointF(4, 4), QSizeF(8, 8)));
    p.restore();
}

void arrow(QPainter& p, QPointF from, QPointF to, const QColor& color = kMotion)
{
    p.save();
    p.setPen(pen(color, 4));
    p.drawLine(from, to);
    const qreal angle = qAtan2(to.y() - from.y(), to.x() - from.x());
    QPolygonF head;
    head << to << to - QPointF(qCos(angle - 0.5) * 12, qSin(angle - 0.5) * 12)
         << to - QPointF(qCos(angle + 0.5) * 12, qSin(angle + 0.5) * 12);
    p.setBrush(color);
    p.drawPolygon(head);
    p.restore();
}

void curvedArrow(QPainter& p, QRectF box, qreal start, qreal sweep)
{
    p.save();
    p.setPen(pen(kMotion, 4));
    QPainterPath path;
    path.arcMoveTo(box, start);
    path.arcTo(box, start, sweep);
    p.drawPath(path);
    const QPointF end = path.currentPosition();
    const qreal tangent = qDegreesToRadians(start + sweep + (sweep > 0 ? 90 : -90));
    const QPointF dir(qCos(tangent), -qSin(tangent));
    QPolygonF head;
    const QPointF normal(-dir.y(), dir.x());
    head << end + dir * 9 << end + normal * 7 << end - normal * 7;
    p.setBrush(kMotion);
    p.drawPolygon(head);
    p.restore();
}

void sheet(QPainter& p, QRectF r = QRectF(14, 6, 36, 50))
{
    p.setPen(pen(kInk, 3));
    p.setBrush(kPaper);
    QPainterPath path;
    path.moveTo(r.topLeft());
    path.lineTo(r.right() - 10, r.top());
    path.lineTo(r.right(), r.top() + 10);
    path.lineTo(r.bottomRight());
    path.lineTo(r.bottomLeft());
    path.closeSubpath();
    p.drawPath(path);
}

void magnifier(QPainter& p, const QString& sign)
{
    p.setPen(pen(kInk, 5));
    p.setBrush(kPaper);
    p.drawEllipse(QPointF(26, 26), 16, 16);
    p.drawLine(QPointF(38, 38), QPointF(56, 56));
    p.setPen(pen(kMotion, 4));
    if (sign.contains(QLatin1Char('-')) || sign.contains(QLatin1Char('+')))
        p.drawLine(QPointF(18, 26), QPointF(34, 26));
    if (sign.contains(QLatin1Char('+')))
        p.drawLine(QPointF(26, 18), QPointF(26, 34));
}

void letterA(QPainter& p, QRectF box)
{
    QPainterPath a;
    a.moveTo(box.left(), box.bottom());
    a.lineTo(box.center().x(), box.top());
    a.lineTo(box.right(), box.bottom());
    a.moveTo(box.left() + box.width() * 0.25, box.top() + box.height() * 0.62);
    a.lineTo(box.right() - box.width() * 0.25, box.top() + box.height() * 0.62);
    p.drawPath(a);
}

void dimension(QPainter& p, QPointF a, QPointF b, qreal offset)
{
    const QPointF d = b - a;
    const qreal len = qSqrt(d.x() * d.x() + d.y() * d.y());
    const QPointF n(-d.y() / len * offset, d.x() / len * offset);
    p.setPen(pen(kInk, 2.5));
    p.drawLine(a, a + n * 1.15);
    p.drawLine(b, b + n * 1.15);
    arrow(p, (a + b) / 2 + n, a + n, kInk);
    arrow(p, (a + b) / 2 + n, b + n, kInk);
    handle(p, a);
    handle(p, b);
}

std::map<std::string, Painter> drawingIcons()
{
    std::map<std::string, Painter> icons;
    icons["line"] = [](QPainter& p) {
        p.setPen(pen(kInk, 5)); p.drawLine(QPointF(12, 52), QPointF(52, 12));
        handle(p, QPointF(12, 52)); handle(p, QPointF(52, 12));
    };
    icons["polyline"] = [](QPainter& p) {
        QPolygonF pl; pl << QPointF(8, 50) << QPointF(22, 18) << QPointF(40, 42) << QPointF(56, 12);
        p.setPen(pen(kInk, 5)); p.drawPolyline(pl);
        for (const QPointF& v : pl) handle(p, v);
    };
    icons["rectangle"] = [](QPainter& p) {
        p.setPen(pen(kInk, 5)); p.drawRect(QRectF(10, 16, 44, 32));
        handle(p, QPointF(10, 48)); handle(p, QPointF(54, 16));
    };
    icons["polygon"] = [](QPainter& p) {
        QPolygonF hex;
        for (int i = 0; i < 6; ++i)
            hex << QPointF(32 + 23 * qCos(M_PI / 3 * i), 32 + 23 * qSin(M_PI / 3 * i));
        p.setPen(pen(kInk, 5)); p.drawPolygon(hex);
        handle(p, QPointF(32, 32));
    };
    icons["point"] = [](QPainter& p) {
        p.setPen(pen(kInk, 4));
        p.drawLine(QPointF(20, 32), QPointF(44, 32)); p.drawLine(QPointF(32, 20), QPointF(32, 44));
        p.drawEllipse(QPointF(32, 32), 8, 8);
        handle(p, QPointF(32, 32));
    };
    icons["circle"] = [](QPainter& p) {
        p.setPen(pen(kInk, 5)); p.drawEllipse(QPointF(32, 32), 23, 23);
        p.setPen(pen(kAccent, 2.5, Qt::DashLine)); p.drawLine(QPointF(32, 32), QPointF(48, 16));
        handle(p, QPointF(32, 32));
    };
    icons["circle2p"] = [](QPainter& p) {
        p.setPen(pen(kInk, 5)); p.drawEllipse(QPointF(32, 32), 23, 23);
        p.setPen(pen(kAccent, 2.5, Qt::DashLine)); p.drawLine(QPointF(9, 32), QPointF(55, 32));
        handle(p, QPointF(9, 32)); handle(p, QPointF(55, 32));
    };
    icons["arc"] = [](QPainter& p) {
        QPainterPath path; path.arcMoveTo(QRectF(8, 14, 48, 48), 180); path.arcTo(QRectF(8, 14, 48, 48), 180, -180);
        p.setPen(pen(kInk, 5)); p.drawPath(path);
        handle(p, QPointF(8, 38)); handle(p, QPointF(32, 14)); handle(p, QPointF(56, 38));
    };
    icons["ellipse"] = [](QPainter& p) {
        p.setPen(pen(kInk, 5)); p.drawEllipse(QPointF(32, 32), 26, 15);
        p.setPen(pen(kAccent, 2.5, Qt::DashLine)); p.drawLine(QPointF(32, 32), QPointF(58, 32));
        handle(p, QPointF(32, 32)); handle(p, QPointF(58, 32));
    };
    icons["spline"] = [](QPainter& p) {
        QPainterPath path; path.moveTo(6, 46); path.cubicTo(18, 0, 36, 70, 58, 18);
        p.setPen(pen(kInk, 5)); p.drawPath(path);
        handle(p, QPointF(6, 46)); handle(p, QPointF(32, 34)); handle(p, QPointF(58, 18));
    };
    icons["move"] = [](QPainter& p) {
        p.setPen(pen(kGhost, 4, Qt::DashLine)); p.drawRect(QRectF(6, 30, 22, 22));
        p.setPen(pen(kInk, 5)); p.drawRect(QRectF(36, 8, 22, 22));
        arrow(p, QPointF(20, 40), QPointF(42, 22));
    };
    icons["copy"] = [](QPainter& p) {
        p.setPen(pen(kInk, 5)); p.drawRect(QRectF(6, 30, 22, 22)); p.drawRect(QRectF(36, 8, 22, 22));
        arrow(p, QPointF(22, 36), QPointF(40, 24));
    };
    icons["rotate"] = [](QPainter& p) {
        p.setPen(pen(kGhost, 4, Qt::DashLine)); p.drawLine(QPointF(14, 50), QPointF(56, 50));
        p.setPen(pen(kInk, 5)); p.drawLine(QPointF(14, 50), QPointF(44, 14));
        curvedArrow(p, QRectF(-14, 22, 56, 56), 0, 42);
        handle(p, QPointF(14, 50));
    };
    icons["scale"] = [](QPainter& p) {
        p.setPen(pen(kGhost, 4, Qt::DashLine)); p.drawRect(QRectF(8, 34, 20, 20));
        p.setPen(pen(kInk, 5)); p.drawRect(QRectF(8, 10, 44, 44));
        arrow(p, QPointF(24, 38), QPointF(44, 18));
        handle(p, QPointF(8, 54));
    };
    icons["mirror"] = [](QPainter& p) {
        p.setPen(pen(kAccent, 3, Qt::DashDotLine)); p.drawLine(QPointF(32, 4), QPointF(32, 60));
        QPolygonF left; left << QPointF(26, 14) << QPointF(26, 50) << QPointF(6, 50);
        QPolygonF right; right << QPointF(38, 14) << QPointF(38, 50) << QPointF(58, 50);
        p.setPen(pen(kGhost, 4)); p.drawPolygon(left);
        p.setPen(pen(kInk, 5)); p.drawPolygon(right);
    };
    icons["array"] = [](QPainter& p) {
        p.setPen(pen(kInk, 4));
        for (int r = 0; r < 3; ++r)
            for (int c = 0; c < 3; ++c)
                p.drawRect(QRectF(6 + c * 19, 6 + r * 19, 13, 13));
        handle(p, QPointF(12.5, 50.5));
    };
    icons["erase"] = [](QPainter& p) {
        p.setPen(pen(kInk, 5)); p.drawLine(QPointF(8, 52), QPointF(40, 20));
        p.setPen(pen(kDanger, 6)); p.drawLine(QPointF(34, 34), QPointF(56, 56)); p.drawLine(QPointF(56, 34), QPointF(34, 56));
    };
    icons["offset"] = [](QPainter& p) {
        p.setPen(pen(kInk, 5)); p.drawLine(QPointF(8, 44), QPointF(40, 12));
        p.setPen(pen(kInk, 5)); p.drawLine(QPointF(24, 56), QPointF(56, 24));
        arrow(p, QPointF(24, 28), QPointF(36, 40));
    };
    icons["trim"] = [](QPainter& p) {
        p.setPen(pen(kAccent, 4)); p.drawLine(QPointF(32, 6), QPointF(32, 58));
        p.setPen(pen(kInk, 5)); p.drawLine(QPointF(6, 32), QPointF(32, 32));
        p.setPen(pen(kDanger, 4, Qt::DotLine)); p.drawLine(QPointF(32, 32), QPointF(58, 32));
    };
    icons["extend"] = [](QPainter& p) {
        p.setPen(pen(kAccent, 4)); p.drawLine(QPointF(54, 6), QPointF(54, 58));
        p.setPen(pen(kInk, 5)); p.drawLine(QPointF(6, 32), QPointF(28, 32));
        arrow(p, QPointF(30, 32), QPointF(50, 32));
    };
    icons["fillet"] = [](QPainter& p) {
        QPainterPath path; path.moveTo(10, 56); path.lineTo(10, 30); path.arcTo(QRectF(10, 10, 40, 40), 180, -90); path.lineTo(56, 10);
        p.setPen(pen(kInk, 5)); p.drawPath(path);
        p.setPen(pen(kGhost, 3, Qt::DashLine)); p.drawLine(QPointF(10, 30), QPointF(10, 10)); p.drawLine(QPointF(10, 10), QPointF(30, 10));
    };
    icons["chamfer"] = [](QPainter& p) {
        QPolygonF pl; pl << QPointF(10, 56) << QPointF(10, 30) << QPointF(30, 10) << QPointF(56, 10);
        p.setPen(pen(kInk, 5)); p.drawPolyline(pl);
        p.setPen(pen(kGhost, 3, Qt::DashLine)); p.drawLine(QPointF(10, 30), QPointF(10, 10)); p.drawLine(QPointF(10, 10), QPointF(30, 10));
    };
    icons["explode"] = [](QPainter& p) {
        p.setPen(pen(kInk, 5));
        p.drawLine(QPointF(12, 18), QPointF(30, 18)); p.drawLine(QPointF(40, 14), QPointF(40, 32));
        p.drawLine(QPointF(12, 46), QPointF(30, 46)); p.drawLine(QPointF(50, 34), QPointF(50, 52));
        arrow(p, QPointF(30, 30), QPointF(22, 28)); arrow(p, QPointF(34, 34), QPointF(42, 40));
    };
    icons["stretch"] = [](QPainter& p) {
        p.setPen(pen(kAccent, 2.5, Qt::DashLine)); p.drawRect(QRectF(34, 6, 26, 52));
        QPolygonF pl; pl << QPointF(6, 50) << QPointF(6, 14) << QPointF(52, 14) << QPointF(52, 50);
        p.setPen(pen(kInk, 5)); p.drawPolyline(pl);
        arrow(p, QPointF(40, 32), QPointF(58, 32));
    };
    return icons;
}

std::map<std::string, Painter> otherIcons()
{
    std::map<std::string, Painter> icons;
    icons["new"] = [](QPainter& p) { sheet(p); p.setPen(pen(kMotion, 4)); p.drawLine(QPointF(32, 22), QPointF(32, 42)); p.drawLine(QPointF(22, 32), QPointF(42, 32)); };
    icons["save"] = [](QPainter& p) {
        p.setPen(pen(kInk, 3)); p.setBrush(QColor(0x4a, 0x6f, 0xa5)); p.drawRoundedRect(QRectF(8, 8, 48, 48), 4, 4);
        p.setBrush(kPaper); p.drawRect(QRectF(18, 8, 28, 18)); p.drawRect(QRectF(16, 36, 32, 20));
    };
    icons["export"] = [](QPainter& p) {
        p.setPen(pen(kInk, 3)); p.setBrush(kPaper); p.drawRect(QRectF(6, 12, 40, 40));
        QPolygonF hill; hill << QPointF(8, 50) << QPointF(20, 30) << QPointF(30, 42) << QPointF(36, 36) << QPointF(44, 50);
        p.setBrush(kMotion.lighter(140)); p.drawPolygon(hill);
        arrow(p, QPointF(36, 28), QPointF(58, 8));
    };
    icons["quit"] = [](QPainter& p) {
        p.setPen(pen(kInk, 3)); p.setBrush(kPaper); p.drawRect(QRectF(8, 8, 28, 48));
        arrow(p, QPointF(24, 32), QPointF(58, 32), kDanger);
    };
    icons["undo"] = [](QPainter& p) { curvedArrow(p, QRectF(10, 14, 40, 40), 0, 180); };
    icons["redo"] = [](QPainter& p) { curvedArrow(p, QRectF(14, 14, 40, 40), 180, -180); };
    icons["repeat"] = [](QPainter& p) { curvedArrow(p, QRectF(10, 10, 44, 44), 90, 300); };
    icons["cancel"] = [](QPainter& p) {
        p.setPen(pen(kDanger, 5)); p.setBrush(Qt::NoBrush); p.drawEllipse(QPointF(32, 32), 24, 24);
        p.drawLine(QPointF(20, 20), QPointF(44, 44)); p.drawLine(QPointF(44, 20), QPointF(20, 44));
    };
    icons["layercombo"] = icons["layers"] = [](QPainter& p) {
        const QColor colors[] = {QColor(0xc0, 0x39, 0x2b), QColor(0x2e, 0x8b, 0x57), QColor(0x2f, 0x6d, 0xb5)};
        for (int i = 0; i < 3; ++i) {
            QPolygonF sheetShape; const qreal y = 40 - i * 12;
            sheetShape << QPointF(6, y) << QPointF(32, y - 10) << QPointF(58, y) << QPointF(32, y + 10);
            p.setPen(pen(kInk, 2.5)); p.setBrush(colors[i]); p.drawPolygon(sheetShape);
        }
    };
    icons["linewidth"] = [](QPainter& p) {
        for (int i = 0; i < 4; ++i) { p.setPen(pen(kInk, 2 + i * 3, Qt::SolidLine)); p.drawLine(QPointF(10, 12 + i * 13), QPointF(54, 12 + i * 13)); }
    };
    icons["textsize"] = [](QPainter& p) {
        p.setPen(pen(kInk, 5)); letterA(p, QRectF(6, 14, 30, 40));
        p.setPen(pen(kInk, 3.5)); letterA(p, QRectF(40, 34, 16, 20));
        arrow(p, QPointF(54, 24), QPointF(54, 6), kAccent);
    };
    icons["text"] = [](QPainter& p) {
        p.setPen(pen(kInk, 6)); letterA(p, QRectF(12, 8, 40, 44));
        p.setPen(pen(kAccent, 3)); p.drawLine(QPointF(6, 58), QPointF(58, 58));
    };
    icons["dimlinear"] = [](QPainter& p) { dimension(p, QPointF(10, 50), QPointF(54, 50), -26); };
    icons["dimaligned"] = [](QPainter& p) { dimension(p, QPointF(14, 54), QPointF(54, 22), -18); };
    icons["dimradius"] = [](QPainter& p) {
        p.setPen(pen(kInk, 4)); p.drawEllipse(QPointF(28, 36), 22, 22);
        arrow(p, QPointF(28, 36), QPointF(44, 20), kInk);
        p.setPen(pen(kAccent, 3.5)); letterA(p, QRectF(46, 4, 14, 16));
    };
    icons["dimangular"] = [](QPainter& p) {
        p.setPen(pen(kInk, 5)); p.drawLine(QPointF(8, 54), QPointF(58, 54)); p.drawLine(QPointF(8, 54), QPointF(44, 10));
        curvedArrow(p, QRectF(-24, 22, 64, 64), 0, 50);
    };
    icons["zoomin"] = [](QPainter& p) { magnifier(p, QStringLiteral("+")); };
    icons["zoomout"] = [](QPainter& p) { magnifier(p, QStringLiteral("-")); };
    icons["zoomwindow"] = [](QPainter& p) {
        p.setPen(pen(kAccent, 3, Qt::DashLine)); p.drawRect(QRectF(4, 4, 34, 30)); magnifier(p, QString());
    };
    icons["zoomextents"] = [](QPainter& p) {
        magnifier(p, QString());
        p.setPen(pen(kMotion, 3)); p.drawRect(QRectF(18, 18, 16, 16));
    };
    icons["zoomprev"] = [](QPainter& p) { magnifier(p, QString()); curvedArrow(p, QRectF(16, 16, 20, 20), 0, 200); };
    icons["pan"] = [](QPainter& p) {
        arrow(p, QPointF(32, 32), QPointF(32, 6)); arrow(p, QPointF(32, 32), QPointF(32, 58));
        arrow(p, QPointF(32, 32), QPointF(6, 32)); arrow(p, QPointF(32, 32), QPointF(58, 32));
    };
    icons["regen"] = [](QPainter& p) {
        p.setPen(pen(kInk, 4)); p.drawRect(QRectF(20, 20, 24, 24));
        curvedArrow(p, QRectF(6, 6, 52, 52), 100, 150); curvedArrow(p, QRectF(6, 6, 52, 52), 280, 150);
    };
    icons["grid"] = [](QPainter& p) {
        p.setPen(pen(kInk, 2.5));
        for (int i = 0; i < 4; ++i) { p.drawLine(QPointF(8 + i * 16, 8), QPointF(8 + i * 16, 56)); p.drawLine(QPointF(8, 8 + i * 16), QPointF(56, 8 + i * 16)); }
    };
    icons["gridspacing"] = [](QPainter& p) {
        p.setPen(pen(kInk, 2.5));
        for (int i = 0; i < 3; ++i) p.drawLine(QPointF(12 + i * 20, 26), QPointF(12 + i * 20, 58));
        arrow(p, QPointF(22, 14), QPointF(12, 14), kAccent); arrow(p, QPointF(22, 14), QPointF(32, 14), kAccent);
    };
    icons["snap"] = [](QPainter& p) {
        p.setBrush(kInk); p.setPen(Qt::NoPen);
        for (int r = 0; r < 4; ++r) for (int c = 0; c < 4; ++c) p.drawEllipse(QPointF(8 + c * 16, 8 + r * 16), 2.5, 2.5);
        p.setPen(pen(kAccent, 4)); p.setBrush(Qt::NoBrush); p.drawEllipse(QPointF(40, 24), 8, 8);
        arrow(p, QPointF(18, 50), QPointF(34, 32));
    };
    icons["ortho"] = [](QPainter& p) {
        p.setPen(pen(kInk, 5)); p.drawLine(QPointF(12, 52), QPointF(12, 12)); p.drawLine(QPointF(12, 52), QPointF(52, 52));
        p.setPen(pen(kAccent, 3)); p.setBrush(Qt::NoBrush); p.drawRect(QRectF(12, 40, 12, 12));
    };
    icons["axes"] = [](QPainter& p) {
        arrow(p, QPointF(10, 54), QPointF(58, 54), kDanger); arrow(p, QPointF(10, 54), QPointF(10, 6), kMotion);
    };
    icons["lwdisplay"] = [](QPainter& p) {
        p.setPen(pen(kInk, 10)); p.drawLine(QPointF(10, 46), QPointF(54, 18));
        p.setPen(pen(kPaper, 2)); p.drawLine(QPointF(10, 46), QPointF(54, 18));
    };
    icons["background"] = [](QPainter& p) {
        p.setPen(pen(kInk, 3)); p.setBrush(QColor(0x22, 0x27, 0x33)); p.drawRoundedRect(QRectF(6, 10, 52, 44), 5, 5);
        p.setPen(pen(QColor(0xf1, 0xc4, 0x0f), 4)); p.drawLine(QPointF(14, 44), QPointF(50, 20));
    };
    icons["dist"] = [](QPainter& p) { dimension(p, QPointF(10, 40), QPointF(54, 40), 0.001); arrow(p, QPointF(32, 40), QPointF(10, 40), kInk); arrow(p, QPointF(32, 40), QPointF(54, 40), kInk); handle(p, QPointF(10, 40)); handle(p, QPointF(54, 40)); };
    icons["id"] = [](QPainter& p) {
        p.setPen(pen(kInk, 2.5, Qt::DashLine)); p.drawLine(QPointF(8, 24), QPointF(40, 24)); p.drawLine(QPointF(40, 24), QPointF(40, 56));
        handle(p, QPointF(40, 24));
    };
    icons["list"] = [](QPainter& p) {
        sheet(p);
        p.setPen(pen(kInk, 3)); for (int i = 0; i < 4; ++i) p.drawLine(QPointF(20, 20 + i * 9), QPointF(42, 20 + i * 9));
    };
    icons["area"] = [](QPainter& p) {
        QPolygonF shape; shape << QPointF(8, 52) << QPointF(14, 14) << QPointF(44, 8) << QPointF(56, 40) << QPointF(30, 56);
        p.setPen(pen(kInk, 4)); p.setBrush(QColor(0x2f, 0x6d, 0xb5, 90)); p.drawPolygon(shape);
    };
    icons["help"] = [](QPainter& p) {
        p.setPen(pen(QColor(0x2f, 0x6d, 0xb5), 5)); p.setBrush(Qt::NoBrush); p.drawEllipse(QPointF(32, 32), 25, 25);
        QPainterPath q; q.moveTo(22, 24); q.cubicTo(22, 10, 44, 10, 42, 24); q.cubicTo(41, 32, 32, 32, 32, 40);
        p.drawPath(q); p.setBrush(QColor(0x2f, 0x6d, 0xb5)); p.drawEllipse(QPointF(32, 49), 2, 2);
    };
    icons["about"] = [](QPainter& p) {
        p.setPen(pen(QColor(0x2f, 0x6d, 0xb5), 5)); p.setBrush(Qt::NoBrush); p.drawEllipse(QPointF(32, 32), 25, 25);
        p.drawLine(QPointF(32, 28), QPointF(32, 46)); p.setBrush(QColor(0x2f, 0x6d, 0xb5)); p.drawEllipse(QPointF(32, 18), 2, 2);
    };
    return icons;
}

QImage render(const Painter& paint)
{
    QImage image(64, 64, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    paint(painter);
    return image;
}

QImage disabledVariant(const QImage& normal)
{
    QImage grey = normal.convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < grey.height(); ++y) {
        QRgb* line = reinterpret_cast<QRgb*>(grey.scanLine(y));
        for (int x = 0; x < grey.width(); ++x) {
            const int g = 120 + qGray(line[x]) / 3;
            line[x] = qRgba(g, g, g, qAlpha(line[x]) * 45 / 100);
        }
    }
    return grey;
}

QImage activeVariant(const Painter& paint)
{
    return render([&paint](QPainter& p) {
        p.setPen(QPen(QColor(0x2f, 0x6d, 0xb5), 2));
        p.setBrush(QColor(0xd6, 0xe6, 0xf8));
        p.drawRoundedRect(QRectF(1, 1, 62, 62), 8, 8);
        paint(p);
    });
}

bool save(const QImage& image, const QDir& dir, const std::string& fileName)
{
    const QString path = dir.filePath(QString::fromStdString(fileName));
    if (image.save(path, "PNG"))
        return true;
    std::fprintf(stderr, "icongen: cannot write %s\n", qPrintable(path));
    return false;
}

} // namespace

int main(int argc, char* argv[])
{
    QGuiApplication app(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: icongen OUTPUT_DIRECTORY\n");
        return 2;
    }
    QDir dir(QString::fromLocal8Bit(argv[1]));
    if (!dir.mkpath(QStringLiteral("."))) {
        std::fprintf(stderr, "icongen: cannot create %s\n", argv[1]);
        return 1;
    }
    int written = 0;
    bool ok = true;
    for (const auto& [name, paint] : drawingIcons()) {
        const QImage normal = render(paint);
        ok = save(normal, dir, name + ".png") && ok;
        ok = save(disabledVariant(normal), dir, name + "_disabled.png") && ok;
        ok = save(activeVariant(paint), dir, name + "_active.png") && ok;
        written += 3;
    }
    for (const auto& [name, paint] : otherIcons()) {
        ok = save(render(paint), dir, name + ".png") && ok;
        ++written;
    }
    std::printf("icongen: %d icons written to %s\n", written, qPrintable(dir.absolutePath()));
    return ok ? 0 : 1;
}
