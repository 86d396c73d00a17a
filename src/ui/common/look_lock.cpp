#include "ui/common/look_lock.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QShortcut>
#include <QTabBar>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr char kOnlyLooks[] = "onlyLooks";
constexpr char kForLooking[] = "forLooking";

bool IsForLooking(const QWidget &control)
{
    return control.property(kForLooking).toBool();
}

// The window's way out and its help; OK where there is nothing else.
bool StaysInBox(const QDialogButtonBox &box, QAbstractButton &button)
{
    const auto role = box.buttonRole(&button);
    if (role == QDialogButtonBox::AcceptRole) {
        return box.button(QDialogButtonBox::Cancel) == nullptr
            && box.button(QDialogButtonBox::Close) == nullptr;
    }
    return role == QDialogButtonBox::RejectRole || role == QDialogButtonBox::HelpRole;
}

// Those of a tab bar, a field or a list belong to these.
bool IsPartOfAnother(const QAbstractButton &button)
{
    const QWidget *parent = button.parentWidget();
    return qobject_cast<const QTabBar *>(parent) != nullptr
        || qobject_cast<const QLineEdit *>(parent) != nullptr
        || qobject_cast<const QAbstractItemView *>(parent) != nullptr;
}

bool IsButtonToLock(QAbstractButton &button)
{
    const auto *box = qobject_cast<QDialogButtonBox *>(button.parentWidget());
    return box != nullptr ? !StaysInBox(*box, button) : !IsPartOfAnother(button);
}

} // namespace

void LetOnlyLook(QWidget &window)
{
    window.setProperty(kOnlyLooks, true);
}

bool OnlyLooks(const QWidget &window)
{
    for (const QWidget *each = &window; each != nullptr; each = each->parentWidget()) {
        if (each->property(kOnlyLooks).toBool()) {
            return true;
        }
    }
    return false;
}

std::function<void()> Changing(const QWidget &window, std::function<void()> run)
{
    return OnlyLooks(window) ? std::function<void()>() : std::move(run);
}

void KeepForLooking(QWidget &control)
{
    control.setProperty(kForLooking, true);
}

QLabel *OnlyLooksLine()
{
    auto *line = new QLabel(LookLock::tr("You may look at everything here and change nothing."));
    line->setObjectName(u"onlyLooks"_s);
    line->setWordWrap(true);
    return line;
}

LookLock::LookLock(QDialog &window) : QObject(&window)
{
    for (auto *field : window.findChildren<QLineEdit *>()) {
        field->setReadOnly(true);
    }
    for (auto *field : window.findChildren<QPlainTextEdit *>()) {
        field->setReadOnly(true);
    }
    for (auto *field : window.findChildren<QAbstractSpinBox *>()) {
        field->setReadOnly(true);
        field->setButtonSymbols(QAbstractSpinBox::NoButtons);
    }
    for (auto *view : window.findChildren<QAbstractItemView *>()) {
        view->setEditTriggers(QAbstractItemView::NoEditTriggers);
        view->setDragDropMode(QAbstractItemView::NoDragDrop);
        for (auto *shortcut : view->findChildren<QShortcut *>(Qt::FindDirectChildrenOnly)) {
            shortcut->setEnabled(false);
        }
    }
    for (auto *choice : window.findChildren<QComboBox *>()) {
        Lock(*choice);
    }
    for (auto *button : window.findChildren<QAbstractButton *>()) {
        if (IsButtonToLock(*button)) {
            Lock(*button);
        }
    }
}

bool LookLock::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::EnabledChange) {
        static_cast<QWidget *>(watched)->setEnabled(false);
    }
    return false;
}

void LookLock::Lock(QWidget &control)
{
    if (!IsForLooking(control)) {
        control.setEnabled(false);
        control.installEventFilter(this);
    }
}
