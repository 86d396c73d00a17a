// Draws, below the text of a cell, how much of an account was used or is left.
#pragma once

#include <QStyledItemDelegate>

// A share from 0 to 1, not valid for none; full of what is used, or empty of what is left, is a limit
// that is used up.
constexpr int kUsedShareRole = Qt::UserRole + 1;
constexpr int kLeftShareRole = Qt::UserRole + 2;

class AccountBar : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *painter,
               const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
};
