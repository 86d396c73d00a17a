// The other side of the bus: a service manager with one unit, and the accounting service's object.
#pragma once

#include "support/core/private_bus.h"

#include <QStringList>
#include <QThread>
#include <QVariantMap>

#include <memory>

// Answers from a thread of its own, as a separate process would. At first the manager is there and
// knows the unit, the unit is inactive and the accounting service is not there.
class FakeService
{
public:
    explicit FakeService(PrivateBus &bus);
    ~FakeService();
    FakeService(const FakeService &) = delete;
    FakeService &operator=(const FakeService &) = delete;

    // The unit's ActiveState from now on. Of several, each query sees the next; the last one stays.
    void SetStates(const QStringList &activeStates);
    // What the states become with an accepted start or stop.
    void OnStart(const QStringList &activeStates);
    void OnStop(const QStringList &activeStates);

    // The manager knows another unit too, by these properties.
    void SetUnit(const QString &unit, const QVariantMap &properties);

    void RefuseCommands();
    void ForgetUnit(); // the manager answers that there is no such unit
    void LeaveManager(); // nobody answers
    void OfferAccounting();
    // What the accounting service tells of its work; unless set, it has counted and nothing is wrong.
    void SetReport(const QString &lastCount, const QStringList &problems);
    void LeaveAccounting();
    void RefuseNotices(const QString &text); // each is answered by an error with this text
    void LeaveNoticesUnanswered(); // as a service that hangs; AnswerNotices answers them all
    void AnswerNotices();

    // The commands and notifications since the last call, in order, once all that the tested code
    // has sent so far is here. As in "StartUnit tollbrooksvc.service replace, interactive" and
    // "BlockUser 7"; ", no reply" follows where the message asks for none.
    [[nodiscard]] QStringList TakeCalls();

    // How often the unit's state was asked for since the last call.
    [[nodiscard]] int TakeQueries();

    // Puts `text` among the calls, at this point of what the tested code sends.
    void Mark(const QString &text);

private:
    class Object;

    QDBusConnection console;
    QDBusConnection connection;
    QThread thread;
    std::unique_ptr<Object> object;
};
