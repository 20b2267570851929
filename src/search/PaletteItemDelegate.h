#ifndef COMMANDSYSTEM_PALETTEITEMDELEGATE_H
#define COMMANDSYSTEM_PALETTEITEMDELEGATE_H

#include <CommandSystem/Global.h>

#include <QStyledItemDelegate>

CS_BEGIN_NAMESPACE

// A row of the command palette: the action's text as usual, and its shortcut at the right.
class PaletteItemDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

CS_END_NAMESPACE

#endif
