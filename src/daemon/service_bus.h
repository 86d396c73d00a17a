// The accounting service on the message bus: what it is told, and what it tells.
#pragma once

#include "db/ids.h"

#include <QDBusAbstractAdaptor>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QList>
#include <QObject>
#include <QStringList>

#include <optional>

struct RefusedUser
{
    uint userId = 0;
    QString reason;
};
Q_DECLARE_METATYPE(RefusedUser)

struct UserRate
{
    uint userId = 0;
    qulonglong received = 0; // bytes a second
    qulonglong sent = 0;
};
Q_DECLARE_METATYPE(UserRate)

QDBusArgument &operator<<(QDBusArgument &argument, const RefusedUser &user);
const QDBusArgument &operator>>(const QDBusArgument &argument, RefusedUser &user);
QDBusArgument &operator<<(QDBusArgument &argument, const UserRate &rate);
const QDBusArgument &operator>>(const QDBusArgument &argument, UserRate &rate);

// What the bus may ask the service for and have it do; each returns at once.
class BusWork
{
public:
    BusWork() = default;
    BusWork(const BusWork &) = delete;
    BusWork &operator=(const BusWork &) = delete;
    virtual ~BusWork() = default;

    virtual void NoticeBlocked(UserId userId, bool blocked) = 0;
    virtual void NoticeLogin(UserId userId, bool loggedIn) = 0;
    [[nodiscard]] virtual QString LastCount() const = 0;
    [[nodiscard]] virtual QStringList Problems() const = 0;
    [[nodiscard]] virtual QList<RefusedUser> Refused() const = 0;
    [[nodiscard]] virtual QList<UserRate> Rates() const = 0;
    [[nodiscard]] virtual QList<uint> LoggedIn() const = 0;
};

// The operations of org.tollbrook.Accounting1.xml.
class AccountingAdaptor : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.tollbrook.Accounting1")

public:
    AccountingAdaptor(QObject *object, BusWork &busWork)
        : QDBusAbstractAdaptor(object)
        , work(busWork)
    { }

public slots:
    void BlockUser(uint userId) { work.NoticeBlocked(UserId(userId), true); }
    void UnblockUser(uint userId) { work.NoticeBlocked(UserId(userId), false); }

private:
    BusWork &work;
};

// The interface of org.tollbrook.Status1.xml.
class StatusAdaptor : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.tollbrook.Status1")
    Q_PROPERTY(QString LastCount READ LastCount)
    Q_PROPERTY(QStringList Problems READ Problems)

public:
    StatusAdaptor(QObject *object, BusWork &busWork) : QDBusAbstractAdaptor(object), work(busWork)
    { }

    [[nodiscard]] QString LastCount() const { return work.LastCount(); }
    [[nodiscard]] QStringList Problems() const { return work.Problems(); }

public slots:
    [[nodiscard]] QList<RefusedUser> Refused() const { return work.Refused(); }
    [[nodiscard]] QList<UserRate> Rates() const { return work.Rates(); }
    [[nodiscard]] QList<uint> LoggedIn() const { return work.LoggedIn(); }
    void LogIn(uint userId) { work.NoticeLogin(UserId(userId), true); }
    void LogOut(uint userId) { work.NoticeLogin(UserId(userId), false); }

signals:
    void Counted();
    void RefusedChanged();
    void ProblemsChanged();

private:
    BusWork &work;
};

// Owns the name on the bus for as long as it lives.
class ServiceBus : public QObject
{
    Q_OBJECT

public:
    // `work` outlives this.
    ServiceBus(const QDBusConnection &connection, BusWork &work);
    ~ServiceBus() override;
    ServiceBus(const ServiceBus &) = delete;
    ServiceBus &operator=(const ServiceBus &) = delete;

    // Nothing when the service stands on the bus under its name, else why not.
    [[nodiscard]] std::optional<QString> Appear();

    [[nodiscard]] StatusAdaptor &Status() { return status; }

private:
    QDBusConnection bus;
    AccountingAdaptor &accounting;
    StatusAdaptor &status;
};
