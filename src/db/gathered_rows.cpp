#include "db/gathered_rows.h"

#include <sql.h>
#include <sqlext.h>

namespace {

constexpr int kPartRows = 5000; // some hundred kilobytes in the driver

// Wide enough for every value of the described type; decimal numbers keep their digits as texts.
const char *ColumnType(qint16 described)
{
    switch (described) {
    case SQL_BIT:
    case SQL_TINYINT:
    case SQL_SMALLINT:
    case SQL_INTEGER:
    case SQL_BIGINT:
        return "BIGINT";
    case SQL_REAL:
    case SQL_FLOAT:
    case SQL_DOUBLE:
        return "DOUBLE";
    default:
        return "LONGTEXT";
    }
}

std::string ColumnName(size_t place)
{
    return "c" + std::to_string(place + 1);
}

} // namespace

GatheredRows::GatheredRows(const std::vector<qint16> &types, RowOrder order)
    : columnTypes(types)
    , numbered(order == RowOrder::AsAsked)
{ }

// Aria ends at once when it is cancelled, where InnoDB first takes back what it wrote. Without the
// number it fills free places of earlier pages, and rows come back in another order.
std::string GatheredRows::MakeStatement() const
{
    std::string columns;
    for (size_t place = 0; place < columnTypes.size(); ++place) {
        columns +=
            (place == 0 ? "" : ", ") + ColumnName(place) + ' ' + ColumnType(columnTypes[place]);
    }
    if (numbered) {
        columns += ", number BIGINT NOT NULL AUTO_INCREMENT PRIMARY KEY";
    }
    return "CREATE OR REPLACE TEMPORARY TABLE tollbrook_report (" + columns
        + ") ENGINE=Aria TRANSACTIONAL=0 CHARSET=utf8mb4";
}

// A value that the table does not take is cut, as the driver would, instead of ending the report.
std::string GatheredRows::FillStatement(const std::string &query) const
{
    std::string names;
    for (size_t place = 0; place < columnTypes.size(); ++place) {
        names += (place == 0 ? "" : ", ") + ColumnName(place);
    }
    return "INSERT IGNORE INTO tollbrook_report (" + names + ") " + query;
}

std::string GatheredRows::OpenStatement()
{
    return "HANDLER tollbrook_report OPEN";
}

// HANDLER reads on where it stopped, without an index. Prepared alone it has no described columns, and
// the driver would take it for a statement without a result.
std::string GatheredRows::PartStatement(bool fromStart) const
{
    return std::string("BEGIN NOT ATOMIC EXECUTE IMMEDIATE 'HANDLER tollbrook_report READ ")
        + (numbered ? "`PRIMARY` " : "") + (fromStart ? "FIRST" : "NEXT") + " LIMIT "
        + std::to_string(kPartRows) + "'; END";
}
