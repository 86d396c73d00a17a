#include "ui/common/dialog.h"

#include "ui/common/heading_line.h"
#include "ui/common/keyboard_order.h"

#include <QFormLayout>
#include <QPushButton>

#include <utility>

namespace {

// Return presses the button that has the focus, so that only the default one may have it unasked.
QWidget *DefaultButton(QWidget &window)
{
    for (auto *button : window.findChildren<QPushButton *>()) {
        if (button->isDefault() && button->isEnabled()) {
            return button;
        }
    }
    return nullptr;
}

void FocusFirst(QWidget &window)
{
    for (const ReadWidget &each : InReadingOrder(window)) {
        QWidget *widget = each.widget;
        if (widget->isVisibleTo(&window) && widget->isEnabled()
            && (widget->focusPolicy() & Qt::TabFocus) != 0 && widget != &window) {
            if (qobject_cast<QPushButton *>(widget) && DefaultButton(window) != nullptr) {
                widget = DefaultButton(window);
            }
            widget->setFocus(Qt::TabFocusReason);
            return;
        }
    }
}

} // namespace

void Dialog::setVisible(bool visible)
{
    if (visible && !std::exchange(isArranged, true)) {
        TakeHeadingFromBeneath();
        SetTabOrderByReading(*this);
        GiveMnemonics(*this);
        if (focusWidget() == nullptr) {
            FocusFirst(*this);
        }
    }
    QDialog::setVisible(visible);
}

void Dialog::SetHeading(HeadingLine *heading)
{
    if (auto *form = qobject_cast<QFormLayout *>(layout())) {
        form->insertRow(0, heading);
    } else {
        static_cast<QBoxLayout *>(layout())->insertWidget(0, heading);
    }
}

void Dialog::TakeHeadingFromBeneath()
{
    if (!takesHeading || parentWidget() == nullptr || findChild<HeadingLine *>() != nullptr) {
        return;
    }
    const auto *beneath = qobject_cast<Dialog *>(parentWidget()->window());
    const auto *heading = beneath == nullptr ? nullptr : beneath->findChild<HeadingLine *>();
    if (heading != nullptr) {
        SetHeading(heading->Copy());
    }
}
