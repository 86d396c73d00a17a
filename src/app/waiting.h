// Work on the database session while its window waits: the window is painted on, and nothing else can
// be done in it before the work has come to its end or was cancelled.
#pragma once

#include "startup/app_services.h"

#include <QDialog>
#include <QEventLoop>
#include <QTimer>

#include <chrono>
#include <memory>
#include <optional>
#include <type_traits>
#include <utility>

class QLabel;
class QProgressBar;

// Says what is waited for, as in "Reading the user...", with "Cancel".
class WaitDialog : public QDialog
{
    Q_OBJECT

public:
    WaitDialog(const QString &what, QWidget *parent);

    // Of a whole that is 0 while nobody knows it.
    void ShowProgress(qint64 done, qint64 whole);

    // Cancel, the key Escape and the window's own button: the wait goes on until the work has ended.
    void reject() override;

signals:
    void Cancelled();

private:
    QLabel *text;
    QProgressBar *progress;
};

// One wait, with a wait cursor from its first moment. Most are over before anybody sees more: the
// dialog is made, and shown, after a second; its "Cancel" ends the work of the session.
class SessionWait : public QObject
{
public:
    SessionWait(SessionThread &database, QString what, QWidget *parent);
    ~SessionWait() override;

    // Returns once Finish() was called.
    void Run();
    void Finish();

private:
    void ShowDialog();

    SessionThread &database;
    const QString what;
    QWidget *const parent;
    std::unique_ptr<WaitDialog> dialog; // once it shows
    QTimer delay;
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

// What `work` gives, run on the thread of `session`. The work captures by value: when its call does not
// answer, it is given up and its value is the failure NotAnswered or Cancelled.
template <typename Work>
[[nodiscard]] std::invoke_result_t<Work> AwaitOn(SessionThread &session,
                                                 QWidget *parent,
                                                 const QString &what,
                                                 Work work,
                                                 SessionThread::Patience patience)
{
    using Value = std::invoke_result_t<Work>;
    std::optional<Value> value;
    SessionWait wait(session, what, parent);
    session.Start(
        &wait,
        std::move(work),
        [&](Value given) {
            value.emplace(std::move(given));
            wait.Finish();
        },
        patience);
    wait.Run();
    return *std::move(value);
}

// On the console's session.
template <typename Work>
[[nodiscard]] std::invoke_result_t<Work>
Await(const AppServices &services,
      QWidget *parent,
      const QString &what,
      Work work,
      SessionThread::Patience patience = SessionThread::Patience::Bounded)
{
    return AwaitOn(services.database, parent, what, std::move(work), patience);
}

// The same on a session of its own, which ends with the work: nothing else waits for it. It may take
// long: only a cancel gives it up.
template <typename Work>
[[nodiscard]] std::invoke_result_t<Work>
AwaitBeside(const AppServices &services, QWidget *parent, const QString &what, Work work)
{
    SessionThread session;
    session.Open(services.database.DataSource());
    return AwaitOn(session, parent, what, std::move(work), SessionThread::Patience::Endless);
}
