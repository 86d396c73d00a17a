// A connection beside the one session, for work on whole tables: statements in the engine's own
// spelling, results without bounds, and the driver's words when something fails.
#pragma once

#include "db/data_source.h"
#include "db/dialect.h"

#include <QList>
#include <QStringList>

#include <optional>
#include <variant>
#include <vector>

using SqlValue = std::variant<qint32, double, QByteArray>; // a text as UTF-8
using SqlValues = std::vector<SqlValue>;

class DirectConnection
{
public:
    DirectConnection() = default;
    ~DirectConnection();
    DirectConnection(const DirectConnection &) = delete;
    DirectConnection &operator=(const DirectConnection &) = delete;

    // Opens the data source with its own account (account.h) and password. Like all that
    // follow: false when it fails, with the reason in Error().
    [[nodiscard]] bool Open(const QString &dsn, AbsentFile absent = AbsentFile::IsRefused);
    void Close();

    // What the last Open() was refused for: the file that the data source names and that is not there.
    [[nodiscard]] const std::optional<QString> &MissingFile() const { return missingFile; }
    [[nodiscard]] bool IsOpen() const { return statement != nullptr; }

    [[nodiscard]] const Dialect &Engine() const { return *dialect; }

    // The driver's words on the last failure.
    [[nodiscard]] const QString &Error() const { return error; }

    // Runs a statement with `values` at its markers and drops what rows it may give.
    [[nodiscard]] bool Run(const QString &sqlText, const SqlValues &values = {});

    // Every row that a query gives, each value as text and NULL as a null text.
    [[nodiscard]] std::optional<QList<QStringList>> Rows(const QString &sqlText);

    // From Begin on nothing is kept before Commit; closing without it drops the changes.
    [[nodiscard]] bool Begin();
    [[nodiscard]] bool Commit();

    // The statement handle, for calls of the bare interface.
    [[nodiscard]] void *Handle() const { return statement; }

    // Whether such a call succeeded, or found no more rows; else keeps the driver's words.
    [[nodiscard]] bool Note(short code);

    // Runs a query and leaves its rows to be fetched by such calls.
    [[nodiscard]] bool Start(const QString &sqlText, const SqlValues &values = {});

    // Drops the rows that are left and all that such calls set up on the handle.
    void End();

    // A statement that runs many times with other values.
    [[nodiscard]] bool Prepare(const QString &sqlText);
    [[nodiscard]] bool RunPrepared(const SqlValues &values);

private:
    bool Note(short code, short handleType, void *handle);
    void Bind(const SqlValues &values);
    [[nodiscard]] bool TakeValue(int column, QStringList &row);

    void *environment = nullptr;
    void *connection = nullptr;
    void *statement = nullptr;
    const Dialect *dialect = &kSqlite;
    QString source;
    QString account;
    QString error;
    std::optional<QString> missingFile;
};
