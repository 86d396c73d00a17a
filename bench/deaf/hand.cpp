#include "deaf/hand.h"

#include "support/must.h"

#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QEventLoop>
#include <QPointer>
#include <QPushButton>
#include <QTimer>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int kLookAgain = 5; // milliseconds, as those that follow
constexpr int kBeforeWork = 100; // the window is painted meanwhile
constexpr int kBeforeNextOk = 300;
constexpr int kMostPresses = 20;

bool StandsOverDialog(const QDialog &dialog)
{
    const QWidget *const parent = dialog.parentWidget();
    return parent != nullptr && qobject_cast<const QDialog *>(parent->window()) != nullptr;
}

} // namespace

void LoopUntil(const std::function<bool()> &done)
{
    QEventLoop loop;
    QTimer look;
    look.callOnTimeout([&] {
        if (done()) {
            loop.quit();
        }
    });
    look.start(kLookAgain);
    if (!done()) {
        loop.exec();
    }
}

Hand::Hand(std::function<void()> newBeforeOk) : beforeOk(std::move(newBeforeOk))
{
    qApp->installEventFilter(this);
}

void Hand::Enter(const char *className, const Entry &entry)
{
    entries.insert(className, entry);
}

bool Hand::eventFilter(QObject *watched, QEvent *event)
{
    auto *const dialog = qobject_cast<QDialog *>(watched);
    if (event->type() == QEvent::Show && dialog != nullptr && !dialog->inherits("WaitDialog")) {
        QTimer::singleShot(kBeforeWork, dialog, [this, dialog] { WorkOn(*dialog); });
    }
    return false;
}

void Hand::WorkOn(QDialog &dialog)
{
    if (const Entry entry = entries.value(dialog.metaObject()->className())) {
        entry(dialog);
    }
    if (!StandsOverDialog(dialog)) {
        beforeOk();
    }
    PressOk(dialog, 1);
}

void Hand::PressOk(QDialog &dialog, int time)
{
    auto *const ok = dialog.findChild<QPushButton *>(u"ok"_s);
    if (ok == nullptr || time > kMostPresses) {
        Fail(dialog.windowTitle() + u" cannot be closed by OK"_s);
    }
    ++presses;
    const QPointer<QDialog> open(&dialog);
    ok->click();
    if (open && open->isVisible()) {
        // With the dialog the timer goes, so that the reference holds.
        QTimer::singleShot(
            kBeforeNextOk, &dialog, [this, &dialog, time] { PressOk(dialog, time + 1); });
    }
}
