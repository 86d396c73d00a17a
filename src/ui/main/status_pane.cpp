#include "ui/main/status_pane.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyleOptionFocusRect>

using namespace Qt::StringLiterals;

namespace {

constexpr int kPictureSize = 16;

}

StatusPane::StatusPane(const QString &objectName, const QString &newHint, QWidget *parent)
    : QLabel(parent)
    , hint(newHint)
{
    setObjectName(objectName);
    setFocusPolicy(Qt::TabFocus);
    setMargin(2);
}

void StatusPane::ShowPicture(const QString &name, Picture picture, const QString &words)
{
    pictureName = name;
    setPixmap(IconOf(picture).pixmap(QSize(kPictureSize, kPictureSize), devicePixelRatioF()));
    setAccessibleName(words);
    setAccessibleDescription(hint);
    setToolTip(u"%1. %2"_s.arg(words, hint));
}

void StatusPane::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton) {
        emit Opened();
    }
}

void StatusPane::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        emit Opened();
        return;
    default:
        QLabel::keyPressEvent(event);
    }
}

void StatusPane::paintEvent(QPaintEvent *event)
{
    QLabel::paintEvent(event);
    if (hasFocus()) {
        QPainter painter(this);
        QStyleOptionFocusRect option;
        option.initFrom(this);
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
    }
}

void StatusPane::focusInEvent(QFocusEvent *event)
{
    QLabel::focusInEvent(event);
    update();
}

void StatusPane::focusOutEvent(QFocusEvent *event)
{
    QLabel::focusOutEvent(event);
    update();
}
