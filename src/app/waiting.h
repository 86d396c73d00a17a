// Work on the database session while its window waits: the window is painted on, and nothing else can
// be done in it before the work has come to its end or was cancelled.
#pragma once

#include "startup/app_services.h"

#include <QDialog>
#include <QEventLoop>
#include <QPointer>
#include <QTimer>

#include <chrono>
#include <optional>
#include <type_traits>
#include <utility>

class QLabel;

// Modal from its first moment, with a wait cursor. After a second it shows itself, with what is waited
// for and "Cancel", which ends the work of the session.
class WaitDialog : public QDialog
{
    Q_OBJECT

public:
    // `what` says what is done, as in "Reading the user...".
    WaitDialog(SessionThread &database, const QString &what, QWidget *parent);
    ~WaitDialog() override;

    // Returns once Finish() was called.
    void Wait();
    void Finish();

    // Cancel, the key Escape and the window's own button.
    void reject() override;

private:
    void ShowItself();

    SessionThread &database;
    QLabel *text;
    QTimer delay {this};
    QEventLoop hidden; // nothing is typed into a window that waits
    QEventLoop shown;
    bool finished = false;
};

// Replaces the second after which a wait shows itself, for as long as this lives.
class WaitDelayOverride
{
public:
    explicit WaitDelayOverride(std::chrono::milliseconds delay);
    ~WaitDelayOverride();
    WaitDelayOverride(const WaitDelayOverride &) = delete;
    WaitDelayOverride &operator=(const WaitDelayOverride &) = delete;

private:
    std::chrono::milliseconds previous;
};

// What `work` gives, run on the session's thread. The work captures by value: when its call does not
// answer, it is given up and its value is the failure NotAnswered or Cancelled.
template <typename Work>
[[nodiscard]] std::invoke_result_t<Work>
Await(const AppServices &services,
      QWidget *parent,
      const QString &what,
      Work work,
      SessionThread::Patience patience = SessionThread::Patience::Bounded)
{
    using Value = std::invoke_result_t<Work>;
    std::optional<Value> value;
    WaitDialog dialog(services.database, what, parent);
    services.database.Start(
        &dialog,
        std::move(work),
        [&](Value given) {
            value.emplace(std::move(given));
            dialog.Finish();
        },
        patience);
    dialog.Wait();
    return *std::move(value);
}
