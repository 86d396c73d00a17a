#include "support/windows/modal.h"

#include <QApplication>
#include <QDialog>
#include <QMenu>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>
#include <utility>

namespace {

constexpr const char *kWaitClass = "WaitDialog";
constexpr int kButtonAnimation = 500; // milliseconds, twice what it takes and more

QList<WindowWatch *> &Waiting()
{
    static QList<WindowWatch *> waiting;
    return waiting;
}

} // namespace

WindowWatch::WindowWatch(const char *className, std::function<void(QWidget &)> action)
    : windowClass(className)
    , act(std::move(action))
{
    Waiting().append(this);
    qApp->installEventFilter(this);
}

WindowWatch::~WindowWatch()
{
    Waiting().removeAll(this);
    EXPECT_TRUE(done) << "no " << windowClass << " opened";
}

bool WindowWatch::eventFilter(QObject *watched, QEvent *event)
{
    // A wait may open on a busy machine when the dialog that was met is gone.
    if (event->type() != QEvent::Show || !watched->inherits(windowClass) || met
        || Waiting().isEmpty() || Waiting().last() != this) {
        return false;
    }
    if (watched->inherits(kWaitClass) && qstrcmp(windowClass, kWaitClass) != 0) {
        return false;
    }
    auto *window = static_cast<QWidget *>(watched);
    if (window->isModal() || window->windowType() == Qt::Popup) {
        met = window;
        Waiting().removeAll(this);
        QTimer::singleShot(0, this, [this] {
            if (met) {
                Meet(*met);
            }
        });
    }
    return false;
}

void WindowWatch::Meet(QWidget &window)
{
    done = true;
    const bool isMenu = window.windowType() == Qt::Popup;
    // A dialog over another counts as active for QTest while the keys still go to that one.
    const auto hasKeys = [&window] { return QApplication::activeWindow() == &window; };
    EXPECT_TRUE(isMenu || QTest::qWaitFor(hasKeys)) << qPrintable(window.windowTitle());
    act(window);
    if (IsGone()) {
        return;
    }
    // A mnemonic presses its button for a moment before it acts.
    if (!isMenu && !QTest::qWaitFor([this] { return IsGone(); }, kButtonAnimation)) {
        ADD_FAILURE() << qPrintable(met->windowTitle()) << " was left open";
    }
    if (!IsGone()) {
        met->close();
    }
}

bool WindowWatch::IsGone() const
{
    return !met || !met->isVisible();
}

WhileModal::WhileModal(std::function<void(QDialog &)> answer)
    : WindowWatch("QDialog", [chosen = std::move(answer)](QWidget &window) {
        chosen(static_cast<QDialog &>(window));
    })
{ }

WhileWaiting::WhileWaiting(std::function<void(QDialog &)> answer)
    : WindowWatch(kWaitClass, [chosen = std::move(answer)](QWidget &window) {
        chosen(static_cast<QDialog &>(window));
    })
{ }

WhileMenu::WhileMenu(std::function<void(QMenu &)> answer)
    : WindowWatch("QMenu", [chosen = std::move(answer)](QWidget &window) {
        chosen(static_cast<QMenu &>(window));
    })
{ }

ClosedDialogs::ClosedDialogs()
{
    qApp->installEventFilter(this);
}

int ClosedDialogs::Take()
{
    return std::exchange(count, 0);
}

bool ClosedDialogs::eventFilter(QObject *watched, QEvent *event)
{
    auto *dialog = qobject_cast<QDialog *>(watched);
    if (event->type() == QEvent::Show && dialog != nullptr && dialog->isModal()
        && !dialog->inherits(kWaitClass)) {
        ++count;
        QTimer::singleShot(0, dialog, &QDialog::reject);
    }
    return false;
}
