#include "search/PaletteItemDelegate.h"

#include <CommandSystem/CommandSearchModel.h>

#include <QKeySequence>
#include <QPainter>

CS_BEGIN_NAMESPACE

void PaletteItemDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                const QModelIndex& index) const
{
    QStyledItemDelegate::paint(painter, option, index);
    const QString shortcut = index.data(CommandSearchModel::ShortcutRole).value<QKeySequence>()
                                 .toString(QKeySequence::NativeText);
    if (shortcut.isEmpty())
        return;
    const bool selected = option.state & QStyle::State_Selected;
    painter->save();
    painter->setPen(option.palette.color(QPalette::Disabled, selected ? QPalette::HighlightedText : QPalette::Text));
    painter->drawText(option.rect.adjusted(0, 0, -6, 0), Qt::AlignRight | Qt::AlignVCenter, shortcut);
    painter->restore();
}

CS_END_NAMESPACE
