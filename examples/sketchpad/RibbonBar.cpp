#include "RibbonBar.h"

#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QToolBar>
#include <QVBoxLayout>

RibbonBar::RibbonBar(QWidget* parent)
    : QTabWidget(parent)
{
    setDocumentMode(true);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setStyleSheet(QStringLiteral(
        "QTabWidget::pane { border-top: 1px solid #c9cdd4; background: #f6f7f9; }"
        "QTabBar::tab { padding: 5px 16px; }"
        "QLabel#ribbonCaption { color: #6b7280; font-size: 11px; }"
        "QToolBar { border: none; background: transparent; }"));
}

void RibbonBar::addButton(const QString& tab, const QString& panelName, QAction* action)
{
    panel(tab, panelName).buttons->addAction(action);
}

void RibbonBar::addField(const QString& tab, const QString& panelName, const QString& label, QAction* action)
{
    QGridLayout* fields = panel(tab, panelName).fields;
    const int row = fields->rowCount();
    auto* holder = new QToolBar;
    holder->setIconSize(QSize(16, 16));
    holder->addAction(action);
    fields->addWidget(new QLabel(label), row, 0);
    fields->addWidget(holder, row, 1);
}

RibbonBar::Panel& RibbonBar::panel(const QString& tab, const QString& name)
{
    const QString key = tab + QLatin1Char('/') + name;
    auto found = m_panels.find(key);
    if (found != m_panels.end())
        return *found;

    QWidget* tabPage = page(tab);
    auto* box = new QWidget(tabPage);
    auto* content = new QHBoxLayout;
    content->setContentsMargins(0, 0, 0, 0);
    Panel created;
    created.buttons = new QToolBar(box);
    created.buttons->setIconSize(QSize(32, 32));
    created.buttons->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    created.fields = new QGridLayout;
    created.fields->setVerticalSpacing(2);
    content->addWidget(created.buttons);
    content->addLayout(created.fields);
    auto* caption = new QLabel(name, box);
    caption->setObjectName(QStringLiteral("ribbonCaption"));
    caption->setAlignment(Qt::AlignCenter);
    auto* column = new QVBoxLayout(box);
    column->setContentsMargins(4, 2, 4, 0);
    column->setSpacing(0);
    column->addLayout(content, 1);
    column->addWidget(caption);

    auto* row = static_cast<QHBoxLayout*>(tabPage->layout());
    if (row->count() > 1) {
        auto* line = new QFrame(tabPage);
        line->setFrameShape(QFrame::VLine);
        line->setStyleSheet(QStringLiteral("color: #d5d8de;"));
        row->insertWidget(row->count() - 1, line);
    }
    row->insertWidget(row->count() - 1, box);
    return *m_panels.insert(key, created);
}

QWidget* RibbonBar::page(const QString& tab)
{
    auto found = m_pages.constFind(tab);
    if (found != m_pages.constEnd())
        return *found;
    auto* tabPage = new QWidget(this);
    auto* row = new QHBoxLayout(tabPage);
    row->setContentsMargins(4, 2, 4, 2);
    row->addStretch(1);
    addTab(tabPage, tab);
    m_pages.insert(tab, tabPage);
    return tabPage;
}
