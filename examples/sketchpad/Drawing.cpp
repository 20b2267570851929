#include "Drawing.h"

namespace {

// Colours given to layers in the order they are made.
const QColor kLayerColors[] = {
    QColor(0x26, 0x32, 0x38), QColor(0xc0, 0x39, 0x2b), QColor(0x1f, 0x7a, 0x4d),
    QColor(0x2f, 0x6d, 0xb5), QColor(0x8e, 0x44, 0xad), QColor(0xd3, 0x54, 0x00),
    QColor(0x16, 0x8a, 0x8a), QColor(0x7f, 0x8c, 0x8d)};

} // namespace

Drawing::Drawing(QObject* parent)
    : QObject(parent)
{
    for (const char* name : {"0", "Outline", "Hidden", "Dimensions", "Text"})
        addLayer(QString::fromLatin1(name));
    m_currentLayer = QStringLiteral("0");
}

Entity Drawing::newEntity(const QString& kind)
{
    Entity entity;
    entity.id = m_nextId++;
    entity.kind = kind;
    entity.layer = m_currentLayer;
    entity.width = m_currentWidth;
    return entity;
}

int Drawing::allocateId()
{
    return m_nextId++;
}

void Drawing::insert(const Entity& entity)
{
    m_entities.insert(entity.id, entity);
    m_nextId = qMax(m_nextId, entity.id + 1);
    emit entityInserted(entity);
}

bool Drawing::remove(int id)
{
    if (m_entities.remove(id) == 0)
        return false;
    emit entityRemoved(id);
    return true;
}

void Drawing::clear()
{
    m_entities.clear();
    emit cleared();
}

bool Drawing::contains(int id) const
{
    return m_entities.contains(id);
}

Entity Drawing::entity(int id) const
{
    return m_entities.value(id);
}

QList<Entity> Drawing::entities() const
{
    return m_entities.values();
}

QList<Entity> Drawing::entities(const QList<int>& ids) const
{
    QList<Entity> result;
    for (int id : ids) {
        if (m_entities.contains(id))
            result.append(m_entities.value(id));
    }
    return result;
}

int Drawing::lastId() const
{
    return m_entities.isEmpty() ? 0 : m_entities.lastKey();
}

QRectF Drawing::bounds() const
{
    QRectF box;
    for (const Entity& entity : m_entities)
        box = box.isNull() ? entity.bounds() : box.united(entity.bounds());
    return box;
}

QStringList Drawing::layers() const
{
    QStringList names;
    for (const auto& layer : m_layers)
        names.append(layer.first);
    return names;
}

QColor Drawing::layerColor(const QString& layer) const
{
    for (const auto& entry : m_layers) {
        if (entry.first == layer)
            return entry.second;
    }
    return kLayerColors[0];
}

bool Drawing::addLayer(const QString& name)
{
    if (name.trimmed().isEmpty() || layers().contains(name))
        return false;
    const int count = int(sizeof(kLayerColors) / sizeof(kLayerColors[0]));
    m_layers.append(qMakePair(name, kLayerColors[m_layers.size() % count]));
    emit layersChanged();
    return true;
}

QString Drawing::currentLayer() const
{
    return m_currentLayer;
}

double Drawing::currentWidth() const
{
    return m_currentWidth;
}

double Drawing::textHeight() const
{
    return m_textHeight;
}

bool Drawing::setCurrentLayer(const QString& layer)
{
    if (!layers().contains(layer))
        return false;
    if (layer != m_currentLayer) {
        m_currentLayer = layer;
        emit currentLayerChanged(layer);
    }
    return true;
}

void Drawing::setCurrentWidth(double width)
{
    if (qFuzzyCompare(width + 1.0, m_currentWidth + 1.0))
        return;
    m_currentWidth = width;
    emit currentWidthChanged(width);
}

void Drawing::setTextHeight(double height)
{
    if (height <= 0 || qFuzzyCompare(height, m_textHeight))
        return;
    m_textHeight = height;
    emit textHeightChanged(height);
}
