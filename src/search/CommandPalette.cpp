#include <CommandSystem/CommandPalette.h>

#include "search/PaletteItemDelegate.h"

#include <CommandSystem/Action.h>
#include <CommandSystem/CommandSearchModel.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QPointer>
#include <QVBoxLayout>

#include <memory>

CS_BEGIN_NAMESPACE

namespace {

const int kPreferredWidth = 560;
const int kPreferredHeight = 360;
const int kTopMargin = 48;

bool movesInList(int key)
{
    return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown;
}

bool isPaletteKey(int key)
{
    return movesInList(key) || key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Escape;
}

} // namespace

class CommandPaletteImpl
{
public:
    CommandSearchModel* model = nullptr;
    QLineEdit* lineEdit = nullptr;
    QListView* list = nullptr;
    QPointer<QWidget> focusBefore;
};

CommandPalette::CommandPalette(CommandSearchModel* model, QWidget* parent)
    : QFrame(parent), d(new CommandPaletteImpl)
{
    d->model = model;
    d->lineEdit = new QLineEdit(this);
    d->lineEdit->setPlaceholderText(tr("Type a command"));
    d->lineEdit->installEventFilter(this);
    d->list = new QListView(this);
    d->list->setModel(model);
    d->list->setModelColumn(CommandSearchModel::TextColumn);
    d->list->setItemDelegate(new PaletteItemDelegate(d->list));
    d->list->setFocusPolicy(Qt::NoFocus);
    d->list->setUniformItemSizes(true);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->addWidget(d->lineEdit);
    layout->addWidget(d->list);
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    hide();

    connect(d->lineEdit, &QLineEdit::textChanged, model, &CommandSearchModel::setQuery);
    connect(model, &QAbstractItemModel::modelReset, this, &CommandPalette::selectFirstEnabled);
    connect(d->list, &QListView::clicked, this, [this](const QModelIndex& index) {
        d->list->setCurrentIndex(index);
        activateCurrent();
    });
    connect(qApp, &QApplication::focusChanged, this, &CommandPalette::onFocusChanged);
}

CommandPalette::~CommandPalette()
{
    delete d;
}

CommandSearchModel* CommandPalette::model() const
{
    return d->model;
}

QLineEdit* CommandPalette::lineEdit() const
{
    return d->lineEdit;
}

QListView* CommandPalette::listView() const
{
    return d->list;
}

Action* CommandPalette::currentAction() const
{
    const QModelIndex current = d->list->currentIndex();
    return current.isValid() ? d->model->action(current.row()) : nullptr;
}

void CommandPalette::open()
{
    if (QWidget* host = parentWidget()) {
        const int width = qMin(kPreferredWidth, host->width() - 2 * kTopMargin);
        const int height = qMin(kPreferredHeight, host->height() - 2 * kTopMargin);
        setGeometry((host->width() - width) / 2, kTopMargin, qMax(width, 200), qMax(height, 120));
    }
    if (!isVisible())
        d->focusBefore = QApplication::focusWidget();
    d->lineEdit->clear();
    d->model->setQuery(QString());
    selectFirstEnabled();
    show();
    raise();
    activateWindow();
    d->lineEdit->setFocus(Qt::PopupFocusReason);
}

bool CommandPalette::activateCurrent()
{
    Action* action = currentAction();
    if (!action || !action->isEnabled())
        return false;
    hide();
    // A clone fires as a menu entry would, so the action's script, toggling and the pool's
    // commandIssued all take their usual path.
    if (action->type() != QLatin1String("widget")) {
        const std::unique_ptr<QAction> clone(action->clone(nullptr, 0));
        clone->trigger();
    }
    emit actionActivated(action);
    return true;
}

bool CommandPalette::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != d->lineEdit || (event->type() != QEvent::KeyPress && event->type() != QEvent::ShortcutOverride))
        return QFrame::eventFilter(watched, event);
    auto* key = static_cast<QKeyEvent*>(event);
    if (!isPaletteKey(key->key()))
        return false;
    if (event->type() == QEvent::ShortcutOverride) {
        // Ours before the host's shortcuts: the key comes back as a key press.
        event->accept();
        return true;
    }
    if (movesInList(key->key()))
        QApplication::sendEvent(d->list, event);
    else if (key->key() == Qt::Key_Escape)
        hide();
    else
        activateCurrent();
    return true;
}

void CommandPalette::hideEvent(QHideEvent* event)
{
    QFrame::hideEvent(event);
    if (d->focusBefore && isAncestorOf(QApplication::focusWidget()))
        d->focusBefore->setFocus(Qt::PopupFocusReason);
}

void CommandPalette::selectFirstEnabled()
{
    for (int row = 0; row < d->model->rowCount(); ++row) {
        const QModelIndex index = d->model->index(row, CommandSearchModel::TextColumn);
        if (index.data(CommandSearchModel::EnabledRole).toBool()) {
            d->list->setCurrentIndex(index);
            return;
        }
    }
    d->list->setCurrentIndex(QModelIndex());
}

void CommandPalette::onFocusChanged(QWidget*, QWidget* now)
{
    if (isVisible() && now && now != this && !isAncestorOf(now))
        hide();
}

CS_END_NAMESPACE
