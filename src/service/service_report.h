// What the accounting service tells of its own work.
#pragma once

#include <QDBusConnection>
#include <QString>
#include <QStringList>

#include <optional>

struct ServiceReport
{
    QString lastCount; // when a count was last written, as 2026-11-21T10:14:02; empty: none yet
    QStringList problems; // what is wrong at present, a sentence each
};

// Nothing when the service is not on the bus, or does not answer within a second. It is never started for it.
[[nodiscard]] std::optional<ServiceReport> AskService(const QDBusConnection &bus);
