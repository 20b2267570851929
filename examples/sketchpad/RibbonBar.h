#ifndef SKETCHPAD_RIBBONBAR_H
#define SKETCHPAD_RIBBONBAR_H

#include <QHash>
#include <QTabWidget>

class QAction;
class QGridLayout;
class QToolBar;

// A ribbon: one tab per group of forms, and in each tab one captioned panel per form, holding
// large buttons and labelled fields.
class RibbonBar : public QTabWidget
{
    Q_OBJECT

public:
    explicit RibbonBar(QWidget* parent = nullptr);

    void addButton(const QString& tab, const QString& panel, QAction* action);
    void addField(const QString& tab, const QString& panel, const QString& label, QAction* action);

private:
    struct Panel {
        QToolBar* buttons = nullptr;
        QGridLayout* fields = nullptr;
    };

    Panel& panel(const QString& tab, const QString& name);
    QWidget* page(const QString& tab);

    QHash<QString, QWidget*> m_pages;
    QHash<QString, Panel> m_panels;
};

#endif
