// Demonstration data: a company's users, groups and years of usage, the same for the same sizes and
// the same day.
#pragma once

#include <QString>

#include <functional>
#include <optional>

struct DemoSize
{
    int users = 250;
    int groups = 12; // beside "Everybody"
    int days = 90; // of usage, counted back from today
};

// Fills a database that has the newest schema and no users yet. `report` is told of each step. Nothing when
// it is done, else what went wrong; a database that already has users stays as it is.
[[nodiscard]] std::optional<QString> FillWithDemoData(const QString &dsn,
                                                      const DemoSize &size,
                                                      const std::function<void(QString)> &report);
