#include "support/windows/keyboard.h"

#include <QAbstractButton>
#include <QApplication>
#include <QRadioButton>
#include <QSet>
#include <QTest>
#include <QWidget>

#include <algorithm>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int kMostControls = 100;

bool HasFocus(const QWidget &window, const char *name)
{
    for (const QWidget *widget = QApplication::focusWidget();
         widget != nullptr && widget != &window;
         widget = widget->parentWidget()) {
        if (widget->objectName() == QLatin1String(name)) {
            return true;
        }
    }
    return false;
}

// Each key goes where the focus is by then: a field may move it on.
void TypeOn(const QString &text)
{
    for (const QChar c : text) {
        QTest::keyClicks(QApplication::focusWidget(), QString(c));
    }
}

QSet<const QWidget *> ReachedByTab()
{
    QSet<const QWidget *> reached;
    for (int pressed = 0; pressed < kMostControls; ++pressed) { // a date takes several
        reached.insert(QApplication::focusWidget());
        Press(Qt::Key_Tab);
    }
    return reached;
}

bool CanBeUsed(const QWidget &control)
{
    return control.isVisible() && control.isEnabled() && control.focusProxy() == nullptr
        && (control.focusPolicy() & Qt::TabFocus) != 0
        && !control.objectName().startsWith(u"qt_"_s); // a part of the toolkit's own
}

bool HasName(const QWidget &control)
{
    const auto *button = qobject_cast<const QAbstractButton *>(&control);
    return !control.accessibleName().isEmpty() || !control.accessibleDescription().isEmpty()
        || (button != nullptr && !button->text().isEmpty());
}

// The control itself, or another button of its radio buttons.
bool IsReached(const QWidget &control, const QSet<const QWidget *> &reached)
{
    if (!qobject_cast<const QRadioButton *>(&control)) {
        return reached.contains(&control);
    }
    return std::ranges::any_of(
        control.parentWidget()->findChildren<QRadioButton *>(Qt::FindDirectChildrenOnly),
        [&reached](const QWidget *each) { return reached.contains(each); });
}

} // namespace

void TabTo(QWidget &window, const char *name)
{
    for (int pressed = 0; pressed < kMostControls && !testing::Test::HasFatalFailure(); ++pressed) {
        if (HasFocus(window, name)) {
            return;
        }
        Press(Qt::Key_Tab);
    }
    FAIL() << name << " cannot be reached by Tab from "
           << (QApplication::focusWidget() ? qPrintable(QApplication::focusWidget()->objectName())
                                           : "nowhere");
}

void Press(Qt::Key key, Qt::KeyboardModifiers held)
{
    // No window manager gives the focus back here when a dialog over the window is gone.
    if (QApplication::activeWindow() == nullptr && QApplication::activeModalWidget() != nullptr) {
        QApplication::activeModalWidget()->activateWindow();
    }
    ASSERT_TRUE(QTest::qWaitFor([] { return QApplication::focusWidget() != nullptr; }));
    QTest::keyClick(QApplication::focusWidget(), key, held);
}

void PressButton(QWidget &window, const char *name)
{
    TabTo(window, name);
    Press(Qt::Key_Space);
}

void TypeInto(QWidget &window, const char *name, const QString &text)
{
    TabTo(window, name);
    Press(Qt::Key_A, Qt::ControlModifier);
    TypeOn(text);
}

void TypeTime(QWidget &window, const char *name, const QString &digits)
{
    TabTo(window, name);
    Press(Qt::Key_Home);
    Press(Qt::Key_Right, Qt::ShiftModifier);
    Press(Qt::Key_Right, Qt::ShiftModifier);
    TypeOn(digits);
}

void ExpectKeyboardReachesAll(const QWidget &part)
{
    const QSet<const QWidget *> reached = ReachedByTab();
    for (const QWidget *control : part.findChildren<QWidget *>()) {
        if (CanBeUsed(*control)) {
            EXPECT_TRUE(IsReached(*control, reached)) << qPrintable(control->objectName());
            EXPECT_TRUE(HasName(*control)) << qPrintable(control->objectName());
        }
    }
}
