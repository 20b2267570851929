#include "SketchFactory.h"

#include "Drawing.h"
#include "DrawingView.h"
#include "LayerMapper.h"
#include "SpinBoxMapper.h"

#include <QComboBox>
#include <QDoubleSpinBox>

namespace {

QDoubleSpinBox* spinBox(QWidget* parent, double minimum, double maximum, double step,
                        int decimals, const QString& suffix)
{
    auto* box = new QDoubleSpinBox(parent);
    box->setRange(minimum, maximum);
    box->setSingleStep(step);
    box->setDecimals(decimals);
    box->setSuffix(suffix);
    box->setMinimumWidth(90);
    box->setKeyboardTracking(false);
    return box;
}

} // namespace

SketchFactory::SketchFactory(Drawing* drawing, DrawingView* view)
    : m_drawing(drawing)
    , m_view(view)
{
}

QWidget* SketchFactory::createWidget(const QString& name, QWidget* parent)
{
    if (name == QLatin1String("LayerCombo")) {
        auto* box = new QComboBox(parent);
        box->setMinimumWidth(140);
        return box;
    }
    if (name == QLatin1String("LineWidthSpin"))
        return spinBox(parent, 0.0, 5.0, 0.05, 2, QStringLiteral(" mm"));
    if (name == QLatin1String("TextHeightSpin"))
        return spinBox(parent, 0.5, 100.0, 0.5, 1, QString());
    if (name == QLatin1String("GridSpacingSpin"))
        return spinBox(parent, 1.0, 1000.0, 5.0, 0, QString());
    return nullptr;
}

QObject* SketchFactory::createMapper(const QString& name, QObject* parent)
{
    Drawing* drawing = m_drawing;
    DrawingView* view = m_view;
    if (!drawing || !view)
        return nullptr;
    if (name == QLatin1String("LayerMapper"))
        return new LayerMapper(drawing, parent);
    if (name == QLatin1String("LineWidthMapper")) {
        return new SpinBoxMapper(drawing, SIGNAL(currentWidthChanged(double)), SLOT(setCurrentWidth(double)),
                                 [drawing]() { return drawing->currentWidth(); }, parent);
    }
    if (name == QLatin1String("TextHeightMapper")) {
        return new SpinBoxMapper(drawing, SIGNAL(textHeightChanged(double)), SLOT(setTextHeight(double)),
                                 [drawing]() { return drawing->textHeight(); }, parent);
    }
    if (name == QLatin1String("GridSpacingMapper")) {
        return new SpinBoxMapper(view, SIGNAL(gridSpacingChanged(double)), SLOT(setGridSpacing(double)),
                                 [view]() { return view->gridSpacing(); }, parent);
    }
    return nullptr;
}

QObject* SketchFactory::createObject(const QString&, QObject*)
{
    return nullptr;
}
