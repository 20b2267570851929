#ifndef CSBENCH_ANCHORMAPPER_H
#define CSBENCH_ANCHORMAPPER_H

#include <QKeySequence>
#include <QObject>
#include <QString>

namespace CsBench {

// A clone's mapper without the library: the same four slots, doing nothing.
class AnchorMapper : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

public slots:
    void onRibbonTextChanged(const QString&) {}
    void onMenuTextChanged(const QString&) {}
    void onIconChanged(const QString&) {}
    void onShortcutChanged(const QKeySequence&) {}
};

} // namespace CsBench

#endif
