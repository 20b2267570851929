#include "DrawingView.h"

#include "Drawing.h"

#include <QFontMetricsF>
#include <QGraphicsPathItem>
#include <QGraphicsScene>
#include <QGraphicsSimpleTextItem>
#include <QMouseEvent>
#include <QScrollBar>
#include <QWheelEvent>
#include <QtMath>

#include <cmath>

namespace {

const double kPickPixels = 6.0;
const double kSceneExtent = 1.0e6;

QColor paperColor(bool dark)
{
    return dark ? QColor(0x21, 0x25, 0x2b) : QColor(0xfb, 0xfa, 0xf6);
}

} // namespace

DrawingView::DrawingView(Drawing* drawing, QWidget* parent)
    : QGraphicsView(parent)
    , m_drawing(drawing)
    , m_scene(new QGraphicsScene(this))
{
    m_scene->setSceneRect(-kSceneExtent, -kSceneExtent, 2 * kSceneExtent, 2 * kSceneExtent);
    m_scene->setItemIndexMethod(QGraphicsScene::NoIndex);
    setScene(m_scene);
    setRenderHint(QPainter::Antialiasing);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTransformationAnchor(QGraphicsView::AnchorViewCenter);
    setViewportUpdateMode(QGraphicsView::FullViewportUpdate);
    setMouseTracking(true);
    setCursor(Qt::CrossCursor);
    setFrameShape(QFrame::NoFrame);
    setTransform(QTransform::fromScale(2.0, -2.0));
    centerOn(120, 80);
    connect(drawing, &Drawing::entityInserted, this, &DrawingView::addItem);
    connect(drawing, &Drawing::entityRemoved, this, &DrawingView::removeItem);
    connect(drawing, &Drawing::cleared, this, &DrawingView::removeAllItems);
    for (const Entity& entity : drawing->entities())
        addItem(entity);
}

int DrawingView::entityAt(const QPointF& point) const
{
    const double tolerance = pixelsToUnits(kPickPixels);
    int best = 0;
    double bestDistance = tolerance;
    for (const Entity& entity : m_drawing->entities()) {
        const double distance = entity.distanceTo(point);
        if (distance <= bestDistance) {
            best = entity.id;
            bestDistance = distance;
        }
    }
    return best;
}

QPointF DrawingView::pinned(const QPointF& point) const
{
    QPointF best = point;
    double bestDistance = pixelsToUnits(2 * kPickPixels);
    for (const Entity& entity : m_drawing->entities()) {
        for (const QPointF& vertex : entity.points) {
            const double distance = QLineF(vertex, point).length();
            if (distance < bestDistance) {
                best = vertex;
                bestDistance = distance;
            }
        }
    }
    return best;
}

QPoint DrawingView::viewportPointFor(const QPointF& point) const
{
    return mapFromScene(point);
}

QPointF DrawingView::drawingPointFor(const QPoint& viewportPoint) const
{
    return mapToScene(viewportPoint);
}

void DrawingView::zoomBy(double factor)
{
    rememberView();
    scale(factor, factor);
}

void DrawingView::zoomExtents()
{
    const QRectF box = m_drawing->bounds();
    if (box.isNull()) {
        rememberView();
        setTransform(QTransform::fromScale(2.0, -2.0));
        centerOn(120, 80);
        return;
    }
    const double margin = qMax(box.width(), box.height()) * 0.08 + 1.0;
    zoomWindow(box.adjusted(-margin, -margin, margin, margin));
}

void DrawingView::zoomWindow(const QRectF& window)
{
    const QRectF box = window.normalized();
    if (box.width() <= 0 && box.height() <= 0)
        return;
    rememberView();
    const double sx = viewport()->width() / qMax(box.width(), 1e-6);
    const double sy = viewport()->height() / qMax(box.height(), 1e-6);
    const double s = qMin(sx, sy);
    setTransform(QTransform::fromScale(s, -s));
    centerOn(box.center());
}

bool DrawingView::zoomPrevious()
{
    if (m_previousViews.isEmpty())
        return false;
    const auto view = m_previousViews.takeLast();
    setTransform(view.first);
    centerOn(view.second);
    return true;
}

void DrawingView::pan(const QPointF& from, const QPointF& to)
{
    rememberView();
    centerOn(mapToScene(viewport()->rect().center()) + (from - to));
}

void DrawingView::regenerate()
{
    removeAllItems();
    for (const Entity& entity : m_drawing->entities())
        addItem(entity);
}

void DrawingView::setReferencePoint(std::optional<QPointF> point)
{
    m_reference = point;
    viewport()->update();
}

void DrawingView::setRubberBand(bool enabled)
{
    m_rubberBand = enabled;
    viewport()->update();
}

void DrawingView::setHighlighted(const QList<int>& ids)
{
    const QSet<int> before = m_highlighted;
    m_highlighted = QSet<int>(ids.begin(), ids.end());
    for (int id : before + m_highlighted) {
        if (m_items.contains(id) && m_drawing->contains(id)) {
            removeItem(id);
            addItem(m_drawing->entity(id));
        }
    }
}

void DrawingView::setGridVisible(bool visible)
{
    m_grid = visible;
    viewport()->update();
}

void DrawingView::setSnap(bool on)
{
    m_snap = on;
}

void DrawingView::setOrtho(bool on)
{
    m_ortho = on;
}

void DrawingView::setAxesVisible(bool visible)
{
    m_axes = visible;
    viewport()->update();
}

void DrawingView::setLineWidthsVisible(bool visible)
{
    m_lineWidths = visible;
    regenerate();
}

void DrawingView::setDarkBackground(bool dark)
{
    m_dark = dark;
    regenerate();
    viewport()->update();
}

void DrawingView::setGridSpacing(double spacing)
{
    if (spacing <= 0 || qFuzzyCompare(spacing, m_gridSpacing))
        return;
    m_gridSpacing = spacing;
    viewport()->update();
    emit gridSpacingChanged(spacing);
}

void DrawingView::drawBackground(QPainter* painter, const QRectF& rect)
{
    painter->fillRect(rect, paperColor(m_dark));
    if (m_grid)
        drawGrid(painter, rect);
    if (m_axes) {
        painter->setPen(QPen(QColor(0xd0, 0x45, 0x3a), 0));
        painter->drawLine(QPointF(rect.left(), 0), QPointF(rect.right(), 0));
        painter->setPen(QPen(QColor(0x2e, 0x9b, 0x5f), 0));
        painter->drawLine(QPointF(0, rect.top()), QPointF(0, rect.bottom()));
    }
}

void DrawingView::drawGrid(QPainter* painter, const QRectF& rect) const
{
    double step = m_gridSpacing;
    while (step / pixelsToUnits(1.0) < 12.0)
        step *= 5.0;
    const QColor minor = m_dark ? QColor(0x2e, 0x33, 0x3b) : QColor(0xe9, 0xe6, 0xdc);
    const QColor major = m_dark ? QColor(0x3a, 0x41, 0x4b) : QColor(0xd8, 0xd4, 0xc6);
    const QRectF r = rect.normalized();
    const qint64 first = qint64(std::floor(r.left() / step));
    const qint64 last = qint64(std::ceil(r.right() / step));
    for (qint64 i = first; i <= last; ++i) {
        painter->setPen(QPen(i % 5 == 0 ? major : minor, 0));
        painter->drawLine(QPointF(i * step, r.top()), QPointF(i * step, r.bottom()));
    }
    const qint64 bottom = qint64(std::floor(r.top() / step));
    const qint64 top = qint64(std::ceil(r.bottom() / step));
    for (qint64 i = bottom; i <= top; ++i) {
        painter->setPen(QPen(i % 5 == 0 ? major : minor, 0));
        painter->drawLine(QPointF(r.left(), i * step), QPointF(r.right(), i * step));
    }
}

void DrawingView::setPreview(const QPolygonF& path)
{
    m_preview = path;
    viewport()->update();
}

void DrawingView::drawForeground(QPainter* painter, const QRectF&)
{
    if (m_preview.size() > 1) {
        painter->setPen(QPen(QColor(0x1f, 0x4e, 0x8c), 0));
        painter->drawPolyline(m_preview);
    }
    if (!m_rubberBand || !m_reference || !m_cursor)
        return;
    painter->setPen(QPen(QColor(0xe0, 0x7a, 0x1f), 0, Qt::DashLine));
    painter->drawLine(*m_reference, adjusted(*m_cursor));
}

void DrawingView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        QGraphicsView::mousePressEvent(event);
        return;
    }
    emit pointPicked(adjusted(mapToScene(event->pos())));
}

void DrawingView::mouseMoveEvent(QMouseEvent* event)
{
    m_cursor = mapToScene(event->pos());
    emit cursorMoved(adjusted(*m_cursor));
    if (m_rubberBand && m_reference)
        viewport()->update();
}

void DrawingView::wheelEvent(QWheelEvent* event)
{
    const double factor = event->angleDelta().y() > 0 ? 1.25 : 0.8;
    setTransformationAnchor(QGraphicsView::AnchorUnderMouse);
    scale(factor, factor);
    setTransformationAnchor(QGraphicsView::AnchorViewCenter);
}

void DrawingView::addItem(const Entity& entity)
{
    QGraphicsItem* item = makeItem(entity);
    m_scene->addItem(item);
    m_items.insert(entity.id, item);
}

void DrawingView::removeItem(int id)
{
    delete m_items.take(id);
}

void DrawingView::removeAllItems()
{
    qDeleteAll(m_items);
    m_items.clear();
}

QGraphicsItem* DrawingView::makeItem(const Entity& entity) const
{
    auto* item = new QGraphicsPathItem(entity.path());
    const QPen pen = penFor(entity);
    item->setPen(pen);
    if (entity.kind == QLatin1String("point") && !entity.points.isEmpty()) {
        QPainterPath cross;
        cross.moveTo(-4, 0); cross.lineTo(4, 0); cross.moveTo(0, -4); cross.lineTo(0, 4);
        cross.addEllipse(QPointF(0, 0), 2.5, 2.5);
        auto* marker = new QGraphicsPathItem(cross, item);
        marker->setPen(QPen(pen.color(), 1.2));
        marker->setPos(entity.points[0]);
        marker->setFlag(QGraphicsItem::ItemIgnoresTransformations);
    }
    const QString label = entity.label();
    if (!label.isEmpty() && !entity.points.isEmpty()) {
        auto* text = new QGraphicsSimpleTextItem(label, item);
        QFont font(QStringLiteral("Sans Serif"));
        font.setPixelSize(100);
        text->setFont(font);
        text->setBrush(pen.color());
        const QFontMetricsF metrics(font);
        const double height = entity.height > 0 ? entity.height : 3.5;
        const double s = height / metrics.capHeight();
        QPointF at = entity.points[0];
        double angle = entity.angle;
        if (entity.kind == QLatin1String("dimension")) {
            const QPainterPath path = entity.path();
            const QList<QPolygonF> parts = path.toSubpathPolygons();
            const QPolygonF dimLine = parts.size() > 2 ? parts[2] : QPolygonF(parts.value(0).mid(1));
            const QLineF line(dimLine.value(0), dimLine.value(1));
            // Drawing units point up, so the text reads along the line from left or from below.
            angle = qRadiansToDegrees(std::atan2(line.dy(), line.dx()));
            if (angle > 90.0)
                angle -= 180.0;
            else if (angle <= -90.0)
                angle += 180.0;
            const double width = metrics.horizontalAdvance(label) * s;
            const QLineF unit = QLineF(QPointF(0, 0), QPointF(std::cos(qDegreesToRadians(angle)),
                                                              std::sin(qDegreesToRadians(angle))));
            at = line.center() - unit.p2() * (width / 2) + QPointF(-unit.p2().y(), unit.p2().x()) * height * 0.4;
        }
        QTransform transform;
        transform.rotate(angle);
        transform.scale(s, -s);
        transform.translate(0, -metrics.ascent());
        text->setTransform(transform);
        text->setPos(at);
    }
    return item;
}

QPen DrawingView::penFor(const Entity& entity) const
{
    QColor color = m_drawing->layerColor(entity.layer);
    if (m_dark && color.lightness() < 80)
        color = QColor(0xe8, 0xe8, 0xe8);
    const double pixels = m_lineWidths ? qMax(1.0, entity.width * 96.0 / 25.4) : 1.2;
    QPen pen(color, pixels, m_highlighted.contains(entity.id) ? Qt::DashLine : Qt::SolidLine,
             Qt::RoundCap, Qt::RoundJoin);
    pen.setCosmetic(true);
    return pen;
}

QPointF DrawingView::adjusted(const QPointF& raw) const
{
    QPointF point = raw;
    if (m_snap) {
        point = QPointF(std::round(point.x() / m_gridSpacing) * m_gridSpacing,
                        std::round(point.y() / m_gridSpacing) * m_gridSpacing);
    }
    if (m_ortho && m_reference) {
        const QPointF d = point - *m_reference;
        point = std::abs(d.x()) >= std::abs(d.y()) ? QPointF(point.x(), m_reference->y())
                                                   : QPointF(m_reference->x(), point.y());
    }
    return point;
}

double DrawingView::pixelsToUnits(double pixels) const
{
    const double scale = std::sqrt(std::abs(transform().determinant()));
    return scale > 0 ? pixels / scale : pixels;
}

void DrawingView::rememberView()
{
    m_previousViews.append(qMakePair(transform(), mapToScene(viewport()->rect().center())));
    if (m_previousViews.size() > 20)
        m_previousViews.removeFirst();
}
