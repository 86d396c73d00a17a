// The console at work on a large group: what a person does in its windows.
#pragma once

#include "ui/main/splitter_frame.h"
#include "windows/bench_services.h"

#include <QStringList>

#include <span>

class Hand;

// The data source on the engine: 1100 users, of whom 900 are members of one group.
[[nodiscard]] QString DeafData(const QString &engine);

// The main window, filled, with no question at its start.
class Console
{
public:
    explicit Console(const QString &dsn);
    ~Console() = default;
    Console(const Console &) = delete;
    Console &operator=(const Console &) = delete;

    [[nodiscard]] const QString &Dsn() const { return dsn; }
    [[nodiscard]] const AppServices &Services() const { return bench.Services(); }
    [[nodiscard]] CSplitterFrame &Frame() { return frame; }
    [[nodiscard]] const QStringList &Told() const { return bench.Told(); }

    // Until the session has nothing to do, and what it gave is painted.
    void Settle();

private:
    const QString dsn;
    const BenchServices bench;
    CSplitterFrame frame;
};

struct Act
{
    // When it changes the database.
    enum class Stores { Never, AtOnce, OnOk };

    const char *name;
    Stores stores;
    void (*prepare)(Console &console); // null: nothing
    void (*run)(Console &console); // until its windows are closed
};

// All but the options, which write settings more than rows.
[[nodiscard]] std::span<const Act> ActsOnRows();

extern const Act kOptions;
extern const Act kFirstStart;

// What the acts' windows need to be told.
void TellEntries(Hand &hand);
