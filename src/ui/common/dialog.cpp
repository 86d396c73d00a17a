#include "ui/common/dialog.h"

#include "ui/common/choice_keys.h"
#include "ui/common/heading_line.h"
#include "ui/common/keyboard_order.h"
#include "ui/common/look_lock.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>

#include <utility>

namespace {

// The one that was made the default, else OK.
QPushButton *ButtonForReturn(QWidget &window)
{
    for (auto *button : window.findChildren<QPushButton *>()) {
        if (button->isDefault()) {
            return button;
        }
    }
    for (auto *box : window.findChildren<QDialogButtonBox *>()) {
        if (auto *ok = box->button(QDialogButtonBox::Ok)) {
            return ok;
        }
    }
    return nullptr;
}

// A button that was made the default before it stood in the window is not yet the window's: the first
// one in the order of Tab would take its place.
void SettleDefault(QWidget &window)
{
    if (QPushButton *button = ButtonForReturn(window)) {
        button->setDefault(false);
        button->setDefault(true);
    }
}

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
        LockForLooking();
        SetTabOrderByReading(*this);
        GiveMnemonics(*this);
        LetKeysChoose(*this);
        SettleDefault(*this);
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

// The line stands where a menu would: above whatever the window is laid out as.
void Dialog::LockForLooking()
{
    if (isLockable && OnlyLooks(*this)) {
        QLabel *line = OnlyLooksLine();
        const QMargins margins = layout()->contentsMargins();
        line->setContentsMargins(margins.left(), margins.top(), margins.right(), 0);
        layout()->setMenuBar(line);
        new LookLock(*this);
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
