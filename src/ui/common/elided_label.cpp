#include "ui/common/elided_label.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

#include <algorithm>

namespace {

constexpr int kShortLine = 40; // average characters

} // namespace

ElidedLabel::ElidedLabel(const QString &text, QWidget *parent) : QLabel(text, parent)
{
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize ElidedLabel::sizeHint() const
{
    const int most = kShortLine * fontMetrics().averageCharWidth();
    return {std::min(fontMetrics().horizontalAdvance(text()) + 1, most), fontMetrics().height()};
}

QSize ElidedLabel::minimumSizeHint() const
{
    return {0, sizeHint().height()};
}

// Asked for where it is shown: the room may have changed since the text was set.
bool ElidedLabel::event(QEvent *event)
{
    if (event->type() == QEvent::ToolTip) {
        const bool isCut = Shown() != text();
        QToolTip::showText(
            static_cast<QHelpEvent *>(event)->globalPos(), isCut ? text() : QString(), this);
        return true;
    }
    return QLabel::event(event);
}

void ElidedLabel::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    style()->drawItemText(&painter,
                          contentsRect(),
                          static_cast<int>(alignment()) | Qt::TextSingleLine,
                          palette(),
                          isEnabled(),
                          Shown(),
                          foregroundRole());
}

QString ElidedLabel::Shown() const
{
    return fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width());
}
