#include "ui/main/account_bar.h"

#include <QPainter>

#include <algorithm>

namespace {

constexpr int kHeight = 3; // pixels
constexpr int kMargin = 3;
constexpr QColor kUsedUp(0xc0, 0x39, 0x2b);

QColor ColorOf(const QStyleOptionViewItem &option, bool isUsedUp)
{
    if ((option.state & QStyle::State_Selected) != 0) {
        return option.palette.color(QPalette::HighlightedText);
    }
    return isUsedUp ? kUsedUp : option.palette.color(QPalette::Highlight);
}

} // namespace

void AccountBar::paint(QPainter *painter,
                       const QStyleOptionViewItem &option,
                       const QModelIndex &index) const
{
    QStyledItemDelegate::paint(painter, option, index);
    const QVariant used = index.data(kUsedShareRole);
    const QVariant left = index.data(kLeftShareRole);
    if (!used.isValid() && !left.isValid()) {
        return;
    }
    const double share = std::clamp((used.isValid() ? used : left).toDouble(), 0.0, 1.0);
    const QRectF whole(option.rect.left() + kMargin,
                       option.rect.bottom() - kHeight,
                       option.rect.width() - 2 * kMargin,
                       kHeight);
    const bool isUsedUp = used.isValid() ? share >= 1.0 : share <= 0.0;
    QColor ground = ColorOf(option, isUsedUp);
    ground.setAlphaF(0.25F);
    painter->fillRect(whole, ground);
    painter->fillRect(QRectF(whole.topLeft(), QSizeF(whole.width() * share, whole.height())),
                      ColorOf(option, isUsedUp));
}
