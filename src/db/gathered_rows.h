// Many rows on MariaDB: its driver holds a whole result in the program's memory, so that a large one
// is gathered on the server, in a temporary table of the connection, and read from there in parts.
#pragma once

#include <QtGlobal>

#include <string>
#include <vector>

// In which order rows must come. Any is quicker where rows are gathered.
enum class RowOrder { Any, AsAsked };

// The statements for it, in the engine's spelling. The table goes with the connection.
class GatheredRows
{
public:
    // `types` of the columns, as the driver describes them.
    GatheredRows(const std::vector<qint16> &types, RowOrder order);

    // Makes the table anew. Holds nothing of the query, as it alone is run with the right to write.
    [[nodiscard]] std::string MakeStatement() const;

    // Gathers the rows of `query`.
    [[nodiscard]] std::string FillStatement(const std::string &query) const;

    // What follows MakeStatement() before the first part can be read.
    [[nodiscard]] static std::string OpenStatement();

    // The next rows, none after the last; the first with `fromStart`. Columns stand in the query's
    // order.
    [[nodiscard]] std::string PartStatement(bool fromStart) const;

private:
    std::vector<qint16> columnTypes;
    bool numbered;
};
