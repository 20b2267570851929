#ifndef SKETCHPAD_DRAWING_H
#define SKETCHPAD_DRAWING_H

#include "Entity.h"

#include <QColor>
#include <QList>
#include <QMap>
#include <QObject>
#include <QStringList>

// The document: entities by id in creation order, the layer table, and the properties that
// new entities get (current layer, line width, text height).
class Drawing : public QObject
{
    Q_OBJECT

public:
    explicit Drawing(QObject* parent = nullptr);

    // A new entity with a fresh id and the current layer and width; not yet in the drawing.
    Entity newEntity(const QString& kind);
    int allocateId();
    void insert(const Entity& entity);
    bool remove(int id);
    void clear();

    bool contains(int id) const;
    Entity entity(int id) const;
    QList<Entity> entities() const;
    QList<Entity> entities(const QList<int>& ids) const;
    int lastId() const;
    QRectF bounds() const;

    QStringList layers() const;
    QColor layerColor(const QString& layer) const;
    bool addLayer(const QString& name);

    QString currentLayer() const;
    double currentWidth() const;
    double textHeight() const;

public slots:
    bool setCurrentLayer(const QString& layer);
    void setCurrentWidth(double width);
    void setTextHeight(double height);

signals:
    void entityInserted(const Entity& entity);
    void entityRemoved(int id);
    void cleared();
    void layersChanged();
    void currentLayerChanged(const QString& layer);
    void currentWidthChanged(double width);
    void textHeightChanged(double height);

private:
    QMap<int, Entity> m_entities;
    QList<QPair<QString, QColor>> m_layers;
    int m_nextId = 1;
    QString m_currentLayer;
    double m_currentWidth = 0.25;
    double m_textHeight = 5.0;
};

#endif
