// What the stand-in offers on the bus: the service manager, the accounting service, its own switches.
#pragma once

#include "demo/demo_unit.h"

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusObjectPath>

// As much of the service manager as there is one unit.
class DemoManager : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.systemd1.Manager")

public:
    explicit DemoManager(DemoUnit &managed) : unit(managed) { }

    static QString UnitPath();

public slots:
    QDBusObjectPath GetUnit(const QString &name);
    QDBusObjectPath LoadUnit(const QString &name);
    QDBusObjectPath StartUnit(const QString &name, const QString &mode);
    QDBusObjectPath StopUnit(const QString &name, const QString &mode);

private:
    bool Knows(const QString &name);
    QDBusObjectPath Job(bool accepted);

    DemoUnit &unit;
    int jobs = 0;
};

// The operations of org.tollbrook.Accounting1.xml.
class DemoAccounting : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.tollbrook.Accounting1")

public slots:
    void BlockUser(uint userId) { emit Told(QStringLiteral("BlockUser"), userId); }
    void UnblockUser(uint userId) { emit Told(QStringLiteral("UnblockUser"), userId); }

signals:
    void Told(const QString &operation, uint userId);
};

// Changes at run time what the options set at the start.
class DemoControl : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.tollbrook.Demo1")

public:
    explicit DemoControl(DemoUnit &controlled) : unit(controlled) { }

public slots:
    void OnStart(const QString &behaviour) { Set(unit.onStart, behaviour); }
    void OnStop(const QString &behaviour) { Set(unit.onStop, behaviour); }
    void Delay(int milliseconds) { unit.delay = qMax(0, milliseconds); }
    void Die() { unit.Die(); }
    void Count() { emit CountAsked(); } // now, beside the usual times

signals:
    void CountAsked();

private:
    void Set(DemoUnit::Behaviour &behaviour, const QString &text);

    DemoUnit &unit;
};

// The behaviour called "work", "refuse", "hang" or "die"; false for any other text.
[[nodiscard]] bool BehaviourFrom(const QString &text, DemoUnit::Behaviour &behaviour);

// Puts the service manager on the bus with its name. False when another program has it already.
[[nodiscard]] bool Offer(const QDBusConnection &bus, DemoUnit &unit, DemoManager &manager);

// Puts all objects on the bus with their names; the accounting service's name comes and goes with
// the unit. False when another program has a name already.
[[nodiscard]] bool Offer(const QDBusConnection &bus,
                         DemoUnit &unit,
                         DemoManager &manager,
                         DemoAccounting &accounting,
                         DemoControl &control);
