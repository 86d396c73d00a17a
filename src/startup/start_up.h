// How every program finds its settings, opens the database and reaches the service. It needs no
// application object, so that a program without windows starts the same way as the console.
#pragma once

#include "config/config_store.h"
#include "service/service_connection.h"
#include "service/service_control.h"

#include <functional>
#include <optional>

// What the command line names; the rest is found.
struct StartUpOptions
{
    QString configFolder {}; // empty: $TOLLBROOK_CONFIG names it, or it is /etc/tollbrook
    std::optional<QString> dataSource {}; // nothing: the settings name it, as "bill dsn"
    bool opensDatabase = true; // on the thread of the start
    // Carries both the service manager and the accounting service; unless given, nobody answers on it.
    QDBusConnection bus {QString()};
};

enum class StartUpProblem {
    NoDataSource, // neither the command line nor the settings name one
    DatabaseNotOpen, // the failure log says why
};

// What a program has once it has started.
struct StartedProgram
{
    static constexpr int kDefaultPort = 700;

    // Reads the start-up settings and, unless the options say otherwise, opens the database session on
    // this thread. A problem is handed to `tell`, if there is such a function, before the next step is
    // taken, and stops nothing.
    explicit StartedProgram(const StartUpOptions &options,
                            const std::function<void(StartUpProblem)> &tell = {});

    ConfigStore settings;
    ServiceControl control;
    ServiceConnection connection; // not connected yet
    QString dataSource {}; // an ODBC data source's name; empty when nothing names one
    int port = kDefaultPort; // the settings' "port"; 0 when there are settings without it
    bool databaseOpen = false;
};

// What an administrator is told when the database that was opened on this thread has not the schema that
// the program is made for, with the command that helps, or when it could not be opened. Nothing when the
// program can work with all of its tables. `dataSource` is the database's.
[[nodiscard]] std::optional<QString> SchemaProblem(const QString &dataSource);

// The message bus called "system" or "session"; nothing for any other name.
[[nodiscard]] std::optional<QDBusConnection> BusNamed(const QString &name);
