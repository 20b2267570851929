#ifndef CSBENCH_ANCHORSOURCE_H
#define CSBENCH_ANCHORSOURCE_H

#include <QKeySequence>
#include <QObject>
#include <QString>

namespace CsBench {

// The signals and slots that an Action offers its clones, without the library: the source of
// the anchors' connections. Its slots do nothing.
class AnchorSource : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

signals:
    void enabledChanged(bool enabled);
    void checkedChanged(bool checked);
    void visibleChanged(bool visible);
    void iconChanged(const QString& name);
    void ribbonTextChanged(const QString& text);
    void menuTextChanged(const QString& text);
    void shortcutChanged(const QKeySequence& shortcut);

public slots:
    void onTriggered() {}
    void onChanged() {}
};

} // namespace CsBench

#endif
