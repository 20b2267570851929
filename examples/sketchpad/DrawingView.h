#ifndef SKETCHPAD_DRAWINGVIEW_H
#define SKETCHPAD_DRAWINGVIEW_H

#include "Entity.h"

#include <QGraphicsView>
#include <QHash>
#include <QList>
#include <QPolygonF>
#include <QSet>
#include <QTransform>

#include <optional>

class Drawing;
class QGraphicsItem;
class QGraphicsScene;

// The drawing area: shows the entities of a Drawing with y pointing up, the grid and the axes,
// turns clicks into drawing points (with snap and ortho), and offers the view operations.
class DrawingView : public QGraphicsView
{
    Q_OBJECT

public:
    explicit DrawingView(Drawing* drawing, QWidget* parent = nullptr);

    Drawing* drawing() const { return m_drawing; }

    // The entity nearest to a drawing point within a few pixels, or 0.
    int entityAt(const QPointF& point) const;
    // The entity vertex nearest to a point within a few pixels, or the point itself.
    QPointF pinned(const QPointF& point) const;
    QPoint viewportPointFor(const QPointF& point) const;
    QPointF drawingPointFor(const QPoint& viewportPoint) const;

    void zoomBy(double factor);
    void zoomExtents();
    void zoomWindow(const QRectF& window);
    bool zoomPrevious();
    void pan(const QPointF& from, const QPointF& to);
    void regenerate();

    void setReferencePoint(std::optional<QPointF> point);
    void setRubberBand(bool enabled);
    void setHighlighted(const QList<int>& ids);
    // A shape still being drawn, shown on top of the drawing; empty hides it.
    void setPreview(const QPolygonF& path);

    bool isGridVisible() const { return m_grid; }
    bool isSnapOn() const { return m_snap; }
    bool isOrthoOn() const { return m_ortho; }
    bool isAxesVisible() const { return m_axes; }
    bool isLineWidthsVisible() const { return m_lineWidths; }
    bool isDarkBackground() const { return m_dark; }
    double gridSpacing() const { return m_gridSpacing; }

public slots:
    void setGridVisible(bool visible);
    void setSnap(bool on);
    void setOrtho(bool on);
    void setAxesVisible(bool visible);
    void setLineWidthsVisible(bool visible);
    void setDarkBackground(bool dark);
    void setGridSpacing(double spacing);

signals:
    void pointPicked(const QPointF& point);
    void cursorMoved(const QPointF& point);
    void gridSpacingChanged(double spacing);

protected:
    void drawBackground(QPainter* painter, const QRectF& rect) override;
    void drawForeground(QPainter* painter, const QRectF& rect) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private slots:
    void addItem(const Entity& entity);
    void removeItem(int id);
    void removeAllItems();

private:
    QGraphicsItem* makeItem(const Entity& entity) const;
    QPen penFor(const Entity& entity) const;
    QPointF adjusted(const QPointF& raw) const;
    double pixelsToUnits(double pixels) const;
    void rememberView();
    void drawGrid(QPainter* painter, const QRectF& rect) const;

    Drawing* m_drawing;
    QGraphicsScene* m_scene;
    QHash<int, QGraphicsItem*> m_items;
    QSet<int> m_highlighted;
    QList<QPair<QTransform, QPointF>> m_previousViews;
    std::optional<QPointF> m_reference;
    std::optional<QPointF> m_cursor;
    QPolygonF m_preview;
    bool m_rubberBand = false;
    bool m_grid = true;
    bool m_snap = false;
    bool m_ortho = false;
    bool m_axes = false;
    bool m_lineWidths = false;
    bool m_dark = false;
    double m_gridSpacing = 10.0;
};

#endif
