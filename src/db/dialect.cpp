#include "db/dialect.h"

#include <sql.h>
#include <sqlext.h>

#include <algorithm>

namespace {

using Kind = Failure::Kind;

constexpr FailureCode kSqliteFailures[] = {
    {"", 5, Kind::Locked}, // SQLITE_BUSY
    {"", 6, Kind::Locked}, // SQLITE_LOCKED
    {"", 9, Kind::Cancelled}, // SQLITE_INTERRUPT
    {"", 19, Kind::NotUnique}, // SQLITE_CONSTRAINT: the schema has no other that a statement breaks
};

constexpr FailureCode kPostgresqlFailures[] = {
    {"23505", 0, Kind::NotUnique},
    {"40001", 0, Kind::Conflict},
    {"40P01", 0, Kind::Conflict},
    {"55P03", 0, Kind::Locked},
    {"57014", 0, Kind::Cancelled},
    {"25006", 0, Kind::NotWritable}, // a standby, or made read-only meanwhile
    {"57P01", 0, Kind::ConnectionLost},
    {"57P02", 0, Kind::ConnectionLost},
    {"57P03", 0, Kind::ConnectionLost},
    {"08S01", 0, Kind::ConnectionLost},
    {"08001", 0, Kind::ConnectionLost},
    {"08003", 0, Kind::ConnectionLost},
    {"08006", 0, Kind::ConnectionLost},
    {"08007", 0, Kind::ConnectionLost},
    {"", 35, Kind::ConnectionLost}, // the driver's own numbers: it found the connection dead,
    {"HY000", 8, Kind::ConnectionLost}, // or could not set the savepoint before a statement
};

constexpr FailureCode kMariadbFailures[] = {
    {"", 1062, Kind::NotUnique},
    {"", 1213, Kind::Conflict}, // deadlock, or refused by a cluster's certification
    {"", 1205, Kind::Locked},
    {"", 1317, Kind::Cancelled},
    {"", 1047, Kind::NotWritable}, // a cluster's node without the others
    {"", 1290, Kind::NotWritable}, // read-only
    // A cluster lost its other nodes on the way of what is kept, which they may have got.
    {"", 1180, Kind::ConnectionLost},
    {"", 1053, Kind::ConnectionLost}, // the server is shutting down
    {"", 1927, Kind::ConnectionLost}, // killed
    {"", 2002, Kind::ConnectionLost},
    {"", 2003, Kind::ConnectionLost},
    {"", 2006, Kind::ConnectionLost}, // has gone away
    {"", 2013, Kind::ConnectionLost}, // during the query
    {"", 2055, Kind::ConnectionLost},
    {"", 5014, Kind::ConnectionLost}, // could not be written to
    {"40001", 0, Kind::Conflict},
    {"08S01", 0, Kind::ConnectionLost},
    {"08001", 0, Kind::ConnectionLost},
    {"08003", 0, Kind::ConnectionLost},
};

constexpr FailureCode kPostgresqlRights[] = {{"42501", 0, Kind::Refused}};

constexpr FailureCode kMariadbRights[] = {
    {"", 1044, Kind::Refused}, // of the database
    {"", 1142, Kind::Refused}, // of the table
    {"", 1143, Kind::Refused}, // of the column
    {"", 1227, Kind::Refused}, // of the server
};

// A server that logs statements, and not rows, refuses changes at the isolation that is wanted.
constexpr char kMariadbSettings[] =
    "SET SESSION innodb_lock_wait_timeout = %2, lock_wait_timeout = %2, "
    "tx_isolation = IF(@@GLOBAL.log_bin AND @@binlog_format = 'STATEMENT', @@tx_isolation, "
    "'READ-COMMITTED')";

// A cluster's node that lost the others is "not ready", and answers this all the same. A server may have
// been built without what is asked of here.
constexpr char kMariadbWritable[] =
    "SELECT CASE WHEN @@GLOBAL.read_only THEN 0 "
    "WHEN NOT EXISTS (SELECT 1 FROM information_schema.global_variables "
    "WHERE variable_name = 'WSREP_ON' AND variable_value = 'ON') THEN 1 "
    "WHEN EXISTS (SELECT 1 FROM information_schema.global_status "
    "WHERE variable_name = 'WSREP_READY' AND variable_value = 'ON') THEN 2 ELSE 0 END";

// LIKE looks at no letter case of a to z. A table that is not indexed is still read by its key.
constexpr Spelling kSqliteSpellings[] = {
    {"case_folded", ""},
    {"plain_case", ""},
    {"letter_case", ""},
    {"holds", "LIKE"},
    {"octets_of", ""},
    {"exceeding_letters_of", "IS"},
    {"scanned", "NOT INDEXED"},
    {"by_key", "NOT INDEXED"},
    {"address_number",
     "CASE WHEN json_valid('[' || replace(ip_addr, '.', ',') || ']') THEN "
     "json_extract('[' || replace(ip_addr, '.', ',') || ']', '$[0]') * 16777216 + "
     "json_extract('[' || replace(ip_addr, '.', ',') || ']', '$[1]') * 65536 + "
     "json_extract('[' || replace(ip_addr, '.', ',') || ']', '$[2]') * 256 + "
     "json_extract('[' || replace(ip_addr, '.', ',') || ']', '$[3]') END"},
    {"present_tables", "(SELECT name AS table_name FROM sqlite_master WHERE type = 'table') t"},
    {"data_mark", "(SELECT data_version AS number, 1 AS rests FROM pragma_data_version) m"},
    {"staged",
     "(SELECT json_extract(value, '$[0]') AS k, json_extract(value, '$[1]') AS n1, "
     "json_extract(value, '$[2]') AS n2, json_extract(value, '$[3]') AS n3, "
     "json_extract(value, '$[4]') AS n4, json_extract(value, '$[5]') AS t, "
     "json_extract(value, '$[6]') AS u, json_extract(value, '$[7]') AS v FROM json_each("},
    {"as_rows", "))"},
};

// The names' own collation knows no patterns. The ICU library takes many times as long as the engine
// itself, whose letter case is right for a to z. ILIKE would fold the pattern again for each row.
constexpr Spelling kPostgresqlSpellings[] = {
    {"case_folded", "lower"},
    {"plain_case", "COLLATE \"C\""},
    {"letter_case", "COLLATE \"und-x-icu\""},
    {"holds", "COLLATE \"C\" LIKE"},
    {"octets_of", "octet_length"},
    {"exceeding_letters_of", "> char_length"},
    {"scanned", "TABLESAMPLE SYSTEM (100)"},
    {"by_key", ""},
    {"address_number",
     "CASE WHEN ip_addr ~ '^[0-9]{1,3}[.][0-9]{1,3}[.][0-9]{1,3}[.][0-9]{1,3}$' THEN "
     "CAST(split_part(ip_addr, '.', 1) AS bigint) * 16777216 + "
     "CAST(split_part(ip_addr, '.', 2) AS bigint) * 65536 + "
     "CAST(split_part(ip_addr, '.', 3) AS bigint) * 256 + "
     "CAST(split_part(ip_addr, '.', 4) AS bigint) END"},
    // Those that the account may not read, too.
    {"present_tables",
     "(SELECT tablename AS table_name FROM pg_tables WHERE schemaname = ANY (current_schemas(false))) t"},
    {"data_mark",
     "(SELECT txid_snapshot_xmax(s) AS number, CASE WHEN txid_snapshot_xmin(s) = "
     "txid_snapshot_xmax(s) THEN 1 ELSE 0 END AS rests FROM txid_current_snapshot() s) m"},
    {"staged",
     "(SELECT CAST(r->>0 AS integer) AS k, CAST(r->>1 AS double precision) AS n1, "
     "CAST(r->>2 AS double precision) AS n2, CAST(r->>3 AS double precision) AS n3, "
     "CAST(r->>4 AS double precision) AS n4, r->>5 AS t, r->>6 AS u, r->>7 AS v "
     "FROM jsonb_array_elements(CAST("},
    {"as_rows", "AS jsonb)) AS r)"},
};

constexpr Spelling kMariadbSpellings[] = {
    {"case_folded", ""},
    {"plain_case", ""},
    {"letter_case", ""},
    {"holds", "COLLATE utf8mb4_uca1400_nopad_as_ci LIKE"},
    {"octets_of", "length"},
    {"exceeding_letters_of", ">= length"},
    {"scanned", "USE INDEX ()"},
    {"by_key", ""},
    {"address_number", "INET_ATON(ip_addr)"},
    {"present_tables",
     "(SELECT table_name FROM information_schema.tables WHERE table_schema = DATABASE()) t"},
    // The times have whole seconds, and another one may write within the same.
    {"data_mark",
     "(SELECT COALESCE(SUM(UNIX_TIMESTAMP(update_time)), 0) AS number, "
     "COALESCE(MAX(update_time) < NOW() - INTERVAL 1 SECOND, 1) AS rests "
     "FROM information_schema.tables WHERE table_schema = DATABASE() AND "
     "table_name NOT LIKE 'service%') m"},
    {"staged", "JSON_TABLE("},
    {"as_rows",
     ", '$[*]' COLUMNS (k INT PATH '$[0]', n1 DOUBLE PATH '$[1]', n2 DOUBLE PATH '$[2]', "
     "n3 DOUBLE PATH '$[3]', n4 DOUBLE PATH '$[4]', "
     "t VARCHAR(255) COLLATE utf8mb4_nopad_bin PATH '$[5]', "
     "u VARCHAR(255) COLLATE utf8mb4_nopad_bin PATH '$[6]', "
     "v VARCHAR(255) COLLATE utf8mb4_nopad_bin PATH '$[7]'))"},
};

} // namespace

const Dialect kSqlite {.engine = "SQLite",
                       .identifierQuote = '"',
                       .amountType = SQL_REAL,
                       .begin = "BEGIN IMMEDIATE",
                       .lockRows = "",
                       .settings = nullptr,
                       .triesLocksAgain = true,
                       .cancelsConnection = true,
                       .endsReading = "SELECT 1 WHERE 0",
                       .writable = nullptr,
                       .clusterSettings = nullptr,
                       .serversKey = nullptr,
                       .joinsBeforeSet = false,
                       .isFile = true,
                       .hasOneWriter = true,
                       .marksOwnWrites = false,
                       .foldsEveryLetter = false,
                       .bulkInsert = BulkInsert::ManyRows,
                       .beginSnapshot = "BEGIN",
                       .failures = kSqliteFailures,
                       .lackedRights = {},
                       .spellings = kSqliteSpellings};

const Dialect kPostgresql {.engine = "PostgreSQL",
                           .identifierQuote = '"',
                           .amountType = SQL_DOUBLE,
                           .begin = "BEGIN",
                           .lockRows = " FOR UPDATE",
                           .settings = "SET lock_timeout = %1",
                           .triesLocksAgain = false,
                           .cancelsConnection = false,
                           .endsReading = nullptr,
                           .writable = "SELECT CASE WHEN pg_is_in_recovery() THEN 0 ELSE 1 END",
                           .clusterSettings = nullptr,
                           .serversKey = nullptr,
                           .joinsBeforeSet = false,
                           .isFile = false,
                           .hasOneWriter = false,
                           .marksOwnWrites = true,
                           .foldsEveryLetter = true,
                           .bulkInsert = BulkInsert::ValueArrays,
                           .beginSnapshot = "BEGIN ISOLATION LEVEL REPEATABLE READ, READ ONLY",
                           .failures = kPostgresqlFailures,
                           .lackedRights = kPostgresqlRights,
                           .spellings = kPostgresqlSpellings};

const Dialect kMariadb {.engine = "MariaDB",
                        .identifierQuote = '`',
                        .amountType = SQL_REAL,
                        .begin = "START TRANSACTION",
                        .lockRows = " FOR UPDATE",
                        .settings = kMariadbSettings,
                        .triesLocksAgain = false,
                        .cancelsConnection = true,
                        .endsReading = nullptr,
                        .writable = kMariadbWritable,
                        .clusterSettings = "SET SESSION wsrep_sync_wait = 1",
                        .serversKey = "Server",
                        .joinsBeforeSet = true,
                        .isFile = false,
                        .hasOneWriter = false,
                        .marksOwnWrites = false,
                        .foldsEveryLetter = true,
                        .bulkInsert = BulkInsert::ParameterArrays,
                        .beginSnapshot = "START TRANSACTION WITH CONSISTENT SNAPSHOT, READ ONLY",
                        .failures = kMariadbFailures,
                        .lackedRights = kMariadbRights,
                        .spellings = kMariadbSpellings};

const Dialect *DialectFor(std::string_view serverName)
{
    for (const Dialect *dialect : {&kSqlite, &kPostgresql, &kMariadb}) {
        if (serverName.find(dialect->engine) != std::string_view::npos) {
            return dialect;
        }
    }
    // So the driver calls a cluster's proxy.
    return serverName.find("MySQL") != std::string_view::npos ? &kMariadb : nullptr;
}

QString Quoted(const Dialect &dialect, const QString &name)
{
    const QChar quote = QLatin1Char(dialect.identifierQuote);
    return quote + name + quote;
}

static auto FirstThatFits(std::span<const FailureCode> codes, std::string_view sqlState, int native)
{
    return std::ranges::find_if(codes, [&](const FailureCode &code) {
        return (*code.sqlState == '\0' || sqlState == code.sqlState)
            && (code.native == 0 || code.native == native);
    });
}

Failure::Kind KindOf(const Dialect &dialect, std::string_view sqlState, int native)
{
    const auto found = FirstThatFits(dialect.failures, sqlState, native);
    return found == dialect.failures.end() ? Failure::Kind::Refused : found->kind;
}

bool LacksRight(const Dialect &dialect, std::string_view sqlState, int native)
{
    return FirstThatFits(dialect.lackedRights, sqlState, native) != dialect.lackedRights.end();
}
