// The command line's program, run as one on each engine.
#pragma once

#include "config/config_store.h"
#include "support/core/engine_fixture.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>

#include <functional>

class CommandLineFixture : public EngineFixture
{
protected:
    // Settings that name the data source of the console's account; no message bus.
    void SetUp() override;

    // Group Yard (90) with anna (1; 10.0.0.1, 0011223344AA, 500 MB a month) and bert (2), whom the
    // administrator has blocked and who has the login "bertie".
    static void AddOwners();

    // Runs it with the settings' folder to its end and gives its exit status; `printed` and `said` hold
    // what it wrote. `input` is what its standard input holds, which is no terminal.
    int Run(const QStringList &arguments, const QByteArray &input = {});

    // The same with a terminal as its standard input, on which `typed` is typed. What that showed is in
    // `seenOnTerminal`.
    int RunOnTerminal(const QStringList &arguments, const QByteArray &typed);

    // With --json: what it printed, as the value that it is.
    QJsonArray ListOf(const QStringList &arguments);
    QJsonObject ObjectOf(const QStringList &arguments);

    // Runs the words of the line: nothing is printed and no row changes, and what is said holds `words`.
    void ExpectRefused(const char *line, int status, const char *words);

    // On the next runs the message bus is here.
    void UseBus(const QString &address) { busAddress = address; }

    // Starts it by `process`, has `attend` do what is to be done meanwhile, and reads what it wrote.
    int
    RunWith(QProcess &process, const QStringList &arguments, const std::function<void()> &attend);

    [[nodiscard]] ConfigStore Settings() const { return ConfigStore(folder.path()); }

    QTemporaryDir folder;
    QString printed;
    QString said;
    QByteArray seenOnTerminal;
    QString outputFile; // where what is printed goes, in place of `printed`; empty: not there

private:
    QString busAddress = QStringLiteral("unix:path=/nowhere");
};

// The values of one field.
[[nodiscard]] QStringList FieldsOf(const QJsonArray &rows, const QString &field);
