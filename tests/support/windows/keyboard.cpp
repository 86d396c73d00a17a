#include "keyboard.h"

#include <QApplication>
#include <QTest>
#include <QWidget>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

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

} // namespace

void TabTo(QWidget &window, const char *name)
{
    constexpr int kMostControls = 100;
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
