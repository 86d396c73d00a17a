// A message bus of the test's own, with nothing on it and nothing that could be activated.
#pragma once

#include <QDBusConnection>
#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>

class PrivateBus
{
public:
    // Starts the daemon and waits until it listens; the test fails when there is none.
    PrivateBus();
    // Every connection made here is closed; the daemon ends.
    ~PrivateBus();
    PrivateBus(const PrivateBus &) = delete;
    PrivateBus &operator=(const PrivateBus &) = delete;

    [[nodiscard]] QString Address() const { return address; }

    // The connection that the tested code uses.
    [[nodiscard]] QDBusConnection Connection() const { return console; }

    // A further connection, for whatever plays the other side.
    [[nodiscard]] QDBusConnection Connect();

    // The bus goes away under its users.
    void Stop();

private:
    QTemporaryDir folder;
    QProcess daemon;
    QString address;
    QStringList connections;
    QDBusConnection console;
};
