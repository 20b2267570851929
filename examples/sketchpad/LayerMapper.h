#ifndef SKETCHPAD_LAYERMAPPER_H
#define SKETCHPAD_LAYERMAPPER_H

#include <CommandSystem/WidgetMapper.h>

#include <QPointer>

class Drawing;
class QComboBox;

// Binds every layer combo box made for the layer action to the drawing: the box lists the
// layers with their colours, choosing one makes it current, and it follows changes made by
// commands.
class LayerMapper : public Talvir::Vexa::Cs::WidgetMapper
{
    Q_OBJECT

public:
    LayerMapper(Drawing* drawing, QObject* parent);

    void map(QWidget* widget) override;

private:
    static void fill(QComboBox* box, Drawing* drawing);

    QPointer<Drawing> m_drawing;
};

#endif
