// Does something just before a statement goes to the driver.
#pragma once

#include <QStringList>

#include <functional>

// While this lives, `hook` hears of every statement as the code writes it. Not beside a
// StatementRecorder that is older than it.
class StatementHook
{
public:
    using Hook = std::function<void(const QString &statement)>;

    explicit StatementHook(Hook hook);
    ~StatementHook();
    StatementHook(const StatementHook &) = delete;
    StatementHook &operator=(const StatementHook &) = delete;
};

// Runs `read`, which tells whether all of it could be read, once for each statement that it sends, that
// one failing since its table is away. The statements whose failure it did not tell; all of them when it
// fails by itself. `dsn` is the session's.
[[nodiscard]] QStringList UntoldFailures(const QString &dsn, const std::function<bool()> &read);
