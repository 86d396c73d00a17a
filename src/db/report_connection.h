// A report's own connection: it cannot write, reads in blocks, and can be stopped from another
// thread.
#pragma once

#include "db/gathered_rows.h"

#include <QString>
#include <QStringList>

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

// How a column is read, whatever type the driver says it has: some describe a sum too small.
enum class ReadAs { Text, Integer, Amount };

struct ReadColumn
{
    int position = 1; // in the result, counted from 1
    ReadAs as = ReadAs::Text;
};

class ExtensionBan;

// Belongs to the thread that reads, save Cancel(). All statements of one connection see the
// database as it was when the first of them began; gathered rows as it was when they were gathered.
class ReportConnection
{
public:
    static constexpr int kBlockRows = 1000;
    static constexpr int kTextBytes =
        1024; // of one value, its terminator included; the rest is cut

    // An empty password stands for the data source's own. Null, and `problem` filled, when it
    // cannot be opened, cannot be made unable to write and to load extensions, or has a newer schema
    // than the program.
    [[nodiscard]] static std::unique_ptr<ReportConnection>
    Open(const QString &dsn, const QString &user, const QString &password, QString &problem);
    ~ReportConnection();
    ReportConnection(const ReportConnection &) = delete;
    ReportConnection &operator=(const ReportConnection &) = delete;

    // The version of the database's schema (schema_version.h).
    [[nodiscard]] int SchemaVersion() const { return schemaVersion; }

    // Runs one query, in the spelling of the code: a dialect writes it for the engine. False, with
    // Problem() filled, when it fails or is anything else; the connection can then run another.
    [[nodiscard]] bool Run(const QString &statement);

    // The same for a statement of which many rows may come: never are all of them in memory, unless
    // the account may not make temporary tables on MariaDB. There they are gathered on the server.
    [[nodiscard]] bool RunForRows(const QString &statement, RowOrder order);

    // Whether the rows of RunForRows() were gathered. They can then be read again from the start.
    [[nodiscard]] bool HasGathered() const { return gathered.has_value(); }
    [[nodiscard]] bool ReadGathered();

    // Of the statement just run, or of the one whose rows were gathered.
    [[nodiscard]] QStringList ColumnNames() const;

    // Chooses the columns to read, in the order of the accessors below; before the first fetch.
    void Choose(const std::vector<ReadColumn> &columns);

    // Fetches the next block. Its rows, 0 after the last; -1, with Problem() filled, when fetching
    // fails or was cancelled: a cancelled one may end as if there were no more rows.
    [[nodiscard]] int FetchBlock();

    // Values of the block: row from 0, column as chosen.
    [[nodiscard]] bool IsNull(int row, int column) const;
    [[nodiscard]] qint64 Integer(int row, int column) const;
    [[nodiscard]] double Amount(int row, int column) const;
    [[nodiscard]] std::string_view Text(int row, int column) const; // UTF-8

    // Ends the statement that runs, from any thread; every later one fails at once. The driver is asked
    // on a thread of its own, whose function may hang as long as the server does.
    void Cancel();
    [[nodiscard]] bool IsCancelled() const { return cancelled; }

    // The driver's own words.
    [[nodiscard]] const QString &Problem() const { return problem; }

private:
    struct ColumnDescription
    {
        QString name;
        qint16 type; // as the driver says
    };

    ReportConnection();
    [[nodiscard]] bool Connect(const QString &dsn, const QString &user, const QString &password);
    [[nodiscard]] qint16 ConnectByText(); // an SQLRETURN
    [[nodiscard]] qint16 ConnectBy(const QString &password);
    [[nodiscard]] bool KnowsSchema();
    [[nodiscard]] std::optional<int> AskForNumber(const std::string &query);
    [[nodiscard]] bool ForbidWriting();
    [[nodiscard]] bool ForbidExtensions(const ExtensionBan &ban);
    [[nodiscard]] bool BeginReading();
    // Runs what `run` makes of the statement in the engine's spelling.
    [[nodiscard]] bool Try(const QString &statement,
                           const std::function<bool(const std::string &)> &run);
    [[nodiscard]] bool Execute(const std::string &statement);
    [[nodiscard]] bool Gather(const std::string &query, RowOrder order);
    [[nodiscard]] bool MakeTable(const GatheredRows &rows);
    [[nodiscard]] std::vector<ColumnDescription> Columns() const;
    [[nodiscard]] bool Fail(qint16 handleType, void *handle);
    void EndTransaction();
    void CloseCursor();
    void AskToStop(const std::stop_token &end);

    struct Handles; // what the driver manager knows the connection by
    struct Column; // the block's buffer of one column

    std::unique_ptr<Handles> handles;
    std::vector<Column> block;
    int schemaVersion = 0;
    bool gathers = false; // as the driver would hold a whole result
    std::optional<GatheredRows> gathered;
    QStringList gatheredNames; // of the query's columns
    QString source; // and the account, as they were handed in
    QString account;
    QString problem;
    bool lost = false; // the server ended the connection: nothing more is asked of it
    std::atomic<bool> cancelled = false;
    std::mutex guard; // of `asking`
    std::jthread asking; // the driver to stop; ends before the handles go
};
