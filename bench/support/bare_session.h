// Statements through bare calls of the driver, as a measure for the session.
#pragma once

#include "db/direct_connection.h"

#include <string>
#include <vector>

// What a marker is bound with, as SQLBindParameter wants it.
struct BareValue
{
    short hostType = 0;
    short sqlType = 0;
    unsigned long size = 0;
    std::string bytes {}; // at its beginning the number, the day, or the text and its NUL
};

[[nodiscard]] BareValue BareInteger(int value);

// In the engine's own spelling.
struct BareStatement
{
    std::string text;
    std::vector<BareValue> values {};
    int columns = -1; // of its result; less than 0 until it has run once
};

class BareSession
{
public:
    static constexpr int kColumns = 40; // as many as the widest table has, and more
    static constexpr int kColumnBytes = 255;

    // Ends the program when the data source cannot be opened.
    explicit BareSession(const QString &dsn);

    // Runs the statement and fetches its rows, every column as text. Ends the program when it fails.
    void Run(BareStatement &statement);

    // A column of the last row, counted from 0.
    [[nodiscard]] const char *Column(int column) const { return columns[column]; }

    [[nodiscard]] const Dialect &Engine() const { return connection.Engine(); }

private:
    void FetchAll(int count);

    DirectConnection connection;
    char columns[kColumns][kColumnBytes] = {};
    long indicators[kColumns] = {};
};
