#include "LayerMapper.h"

#include "Drawing.h"

#include <QComboBox>
#include <QPainter>
#include <QPixmap>
#include <QSignalBlocker>

LayerMapper::LayerMapper(Drawing* drawing, QObject* parent)
    : WidgetMapper(parent)
    , m_drawing(drawing)
{
}

void LayerMapper::map(QWidget* widget)
{
    auto* box = qobject_cast<QComboBox*>(widget);
    Drawing* drawing = m_drawing;
    if (!box || !drawing)
        return;
    fill(box, drawing);
    connect(box, &QComboBox::currentTextChanged, drawing, &Drawing::setCurrentLayer);
    connect(drawing, &Drawing::currentLayerChanged, box, &QComboBox::setCurrentText);
    connect(drawing, &Drawing::layersChanged, box, [box, drawing]() { fill(box, drawing); });
}

void LayerMapper::fill(QComboBox* box, Drawing* drawing)
{
    const QSignalBlocker blocker(box);
    box->clear();
    for (const QString& layer : drawing->layers()) {
        QPixmap swatch(12, 12);
        swatch.fill(drawing->layerColor(layer));
        box->addItem(QIcon(swatch), layer);
    }
    box->setCurrentText(drawing->currentLayer());
}
