#ifndef SKETCHPAD_SKETCHFACTORY_H
#define SKETCHPAD_SKETCHFACTORY_H

#include <CommandSystem/Factory.h>

#include <QPointer>

class Drawing;
class DrawingView;

// Makes the widgets and widget mappers that the "widget" actions of the UI files name:
// LayerCombo/LayerMapper, LineWidthSpin/LineWidthMapper, TextHeightSpin/TextHeightMapper and
// GridSpacingSpin/GridSpacingMapper.
class SketchFactory : public Talvir::Vexa::Cs::Factory
{
    Q_OBJECT

public:
    SketchFactory(Drawing* drawing, DrawingView* view);

    QWidget* createWidget(const QString& name, QWidget* parent) override;
    QObject* createMapper(const QString& name, QObject* parent) override;
    QObject* createObject(const QString& name, QObject* parent) override;

private:
    QPointer<Drawing> m_drawing;
    QPointer<DrawingView> m_view;
};

#endif
