#include "ui/common/dialog.h"

#include "ui/common/keyboard_order.h"

#include <utility>

namespace {

void FocusFirst(QWidget &window)
{
    for (const ReadWidget &each : InReadingOrder(window)) {
        QWidget &widget = *each.widget;
        if (widget.isVisibleTo(&window) && widget.isEnabled()
            && (widget.focusPolicy() & Qt::TabFocus) != 0 && &widget != &window) {
            widget.setFocus(Qt::TabFocusReason);
            return;
        }
    }
}

} // namespace

void Dialog::setVisible(bool visible)
{
    if (visible && !std::exchange(isArranged, true)) {
        SetTabOrderByReading(*this);
        GiveMnemonics(*this);
        if (focusWidget() == nullptr) {
            FocusFirst(*this);
        }
    }
    QDialog::setVisible(visible);
}
