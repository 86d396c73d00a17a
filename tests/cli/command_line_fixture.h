// The command line's program, run as one on each engine.
#pragma once

#include "config/config_store.h"
#include "support/core/engine_fixture.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QTemporaryDir>

class CommandLineFixture : public EngineFixture
{
protected:
    // Settings that name the engine's data source; no message bus.
    void SetUp() override;

    // Runs it with the settings' folder to its end and gives its exit status; `printed` and `said` hold
    // what it wrote. `input` is what its standard input holds, which is no terminal.
    int Run(const QStringList &arguments, const QByteArray &input = {});

    // With --json: what it printed, as the value that it is.
    QJsonArray ListOf(const QStringList &arguments);
    QJsonObject ObjectOf(const QStringList &arguments);

    // On the next runs the message bus is here.
    void UseBus(const QString &address) { busAddress = address; }

    [[nodiscard]] ConfigStore Settings() const { return ConfigStore(folder.path()); }

    QTemporaryDir folder;
    QString printed;
    QString said;

private:
    QString busAddress = QStringLiteral("unix:path=/nowhere");
};

// The values of one field.
[[nodiscard]] QStringList FieldsOf(const QJsonArray &rows, const QString &field);
