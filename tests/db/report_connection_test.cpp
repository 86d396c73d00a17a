#include "db/report_connection.h"

#include "db/failure_log.h"
#include "db/session.h"
#include "support/core/engine_fixture.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QElapsedTimer>

#include <malloc.h>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

constexpr int kVisits = 90;
constexpr const char *kVisitTime = "2026.11.10 08:30:00";

// 90^3 rows.
const QString kManyRows = u"SELECT a.access_time FROM SiteAccess a, SiteAccess b, SiteAccess c"_s;

class ReportReading : public EngineFixture
{
protected:
    void SetUp() override
    {
        EngineFixture::SetUp();
        for (int visit = 0; visit < kVisits; ++visit) {
            Execute("INSERT INTO SiteAccess (user_id, site_id, access_time) VALUES (1, (?), (?))",
                    static_cast<quint32>(visit),
                    QString::fromLatin1(kVisitTime));
        }
        FailureLog::Instance().Clear();
    }

    static bool Gathers() { return Engine() == u"mariadb"; }

    static std::unique_ptr<ReportConnection> Open(const QString &user = u"system"_s,
                                                  const QString &password = {})
    {
        QString problem;
        auto connection = ReportConnection::Open(Dsn(), user, password, problem);
        EXPECT_TRUE(connection) << problem.toStdString();
        return connection;
    }

    // Runs a statement for its many rows; a failure fails the test.
    static void
    Run(ReportConnection &connection, const QString &statement, RowOrder order = RowOrder::Any)
    {
        EXPECT_TRUE(connection.RunForRows(statement, order)) << connection.Problem().toStdString();
    }
};

class ReportReadingFromServer : public ReportReading
{ };

class ReportReadingGatheredRows : public ReportReading
{ };

TB_ON_EVERY_ENGINE(ReportReading);
TB_ON_EVERY_SERVER(ReportReadingFromServer);
INSTANTIATE_TEST_SUITE_P(Gathering,
                         ReportReadingGatheredRows,
                         testing::Values("mariadb"),
                         EngineName);

// Every row that is left, its columns as texts.
QList<QStringList> RowsLeft(ReportConnection &connection, const std::vector<ReadColumn> &columns)
{
    connection.Choose(columns);
    QList<QStringList> all;
    int rows = 0;
    while ((rows = connection.FetchBlock()) > 0) {
        for (int row = 0; row < rows; ++row) {
            QStringList &texts = all.emplace_back();
            for (int column = 0; column < static_cast<int>(columns.size()); ++column) {
                const ReadAs as = columns[static_cast<size_t>(column)].as;
                texts += connection.IsNull(row, column) ? u"NULL"_s
                    : as == ReadAs::Integer ? QString::number(connection.Integer(row, column))
                    : as == ReadAs::Amount
                    ? QString::number(connection.Amount(row, column), 'g', 17)
                    : QString::fromUtf8(connection.Text(row, column));
            }
        }
    }
    EXPECT_EQ(rows, 0) << connection.Problem().toStdString();
    return all;
}

bool RunsOnMariadb(const char *words)
{
    const QString others = u"SELECT COUNT(*) FROM information_schema.processlist "
                           "WHERE id <> connection_id() AND info LIKE '%1%'"_s;
    RunQuery(others.arg(QLatin1StringView(words)).toUtf8().constData(), FetchMode::One);
    return queryResult.Integer(1) > 0;
}

} // namespace

TEST_P(ReportReading, ItCannotWrite)
{
    const QStringList before = EveryRow();
    const auto connection = Open();
    for (int round = 0; round < 2; ++round) { // where rows are gathered, that once wrote
        for (const char *statement : {"UPDATE users SET blocked = 1",
                                      "DELETE FROM SiteAccess",
                                      "CREATE TABLE t (a INTEGER)",
                                      "INSERT INTO Sites (sitename, site_ip) VALUES ('a', 'b')"}) {
            EXPECT_FALSE(connection->Run(QString::fromLatin1(statement))) << statement;
            EXPECT_FALSE(connection->Problem().isEmpty()) << statement;
        }
        Run(*connection, u"SELECT access_time FROM SiteAccess"_s);
        EXPECT_EQ(RowsLeft(*connection, {{1, ReadAs::Text}}).size(), kVisits);
    }
    EXPECT_EQ(EveryRow(), before);
}

// The accounting service writes into the rows that a report reads.
TEST_P(ReportReading, RowsCanBeWrittenWhileTheyAreRead)
{
    const auto connection = Open();
    std::thread reader([&] {
        if (connection->RunForRows(
                kManyRows + u", SiteAccess d, SiteAccess e, SiteAccess f, SiteAccess g",
                RowOrder::AsAsked)) {
            connection->Choose({{1, ReadAs::Text}});
            while (connection->FetchBlock() > 0) { }
        }
    });
    if (Gathers()) {
        Execute("SET innodb_lock_wait_timeout = 1");
        const QDeadlineTimer deadline(20'000);
        while (!RunsOnMariadb("INSERT IGNORE") && !deadline.hasExpired()) { }
        EXPECT_TRUE(RunsOnMariadb("INSERT IGNORE"));
    }
    Execute("UPDATE SiteAccess SET access_time = 'later'");
    EXPECT_EQ(FailureLog::Instance().Count(), 0);
    QElapsedTimer watch;
    watch.start();
    connection->Cancel();
    reader.join();
    EXPECT_LT(watch.elapsed(), 250);
    EXPECT_TRUE(connection->IsCancelled());
    EXPECT_EQ(RowsOf("SELECT COUNT(*) FROM SiteAccess WHERE access_time = 'later'"),
              QStringList {QString::number(kVisits)});
}

// Seven hundred thousand rows take no more memory than a part of them.
TEST_P(ReportReading, AResultIsReadPartByPart)
{
    const auto used = [] {
        const auto told = mallinfo2();
        return told.uordblks + told.hblkhd;
    };
    const auto connection = Open();
    const auto before = used();
    Run(*connection, kManyRows);
    connection->Choose({{1, ReadAs::Text}});
    ASSERT_EQ(connection->FetchBlock(), ReportConnection::kBlockRows);
    EXPECT_LT(used() - before, size_t {10'000'000});
    qint64 rows = ReportConnection::kBlockRows;
    for (int block = 0; (block = connection->FetchBlock()) > 0;) {
        rows += block;
    }
    EXPECT_EQ(rows, kVisits * kVisits * kVisits);
}

// Rows of many lengths, so that a later one would fit where an earlier one did not.
TEST_P(ReportReading, RowsComeInTheOrderAskedFor)
{
    constexpr qsizetype kLengths = 20;
    for (qsizetype length = 1; length <= kLengths; ++length) {
        Execute("INSERT INTO Sites (sitename) VALUES ((?))", QString(12 * length, u'x'));
    }
    const QString texts = u", a.sitename"_s.repeated(15);
    const auto connection = Open();
    Run(*connection,
        u"SELECT b.site_id, c.site_id, a.site_id"_s + texts
            + u" FROM Sites a, Sites b, Sites c "
              "ORDER BY b.site_id DESC, c.site_id, a.site_id DESC",
        RowOrder::AsAsked);
    const auto rows =
        RowsLeft(*connection, {{1, ReadAs::Integer}, {2, ReadAs::Integer}, {3, ReadAs::Integer}});
    EXPECT_EQ(rows.size(), kLengths * kLengths * kLengths);
    const auto place = [](const QStringList &row) {
        return std::tuple(-row.at(0).toInt(), row.at(1).toInt(), -row.at(2).toInt());
    };
    EXPECT_TRUE(std::is_sorted(rows.begin(), rows.end(), [&](const auto &one, const auto &other) {
        return place(one) < place(other);
    }));
}

TEST_P(ReportReading, ValuesOfManyRowsAreThoseOfFew)
{
    Execute("INSERT INTO Sites (sitename) VALUES ((?))",
            u"Zo\u00eb \u05d3 \U0001F600 'quoted' \"twice\" \\ "_s + QString(180, u'w'));
    Execute("INSERT INTO billing (object_id, mode, data, usage) VALUES (7, 2, (?), (?))",
            123456.789,
            -0.1);
    const auto connection = Open();
    struct Case
    {
        QString statement;
        ReadAs as;
    };
    const Case cases[] = {
        {u"SELECT sitename FROM Sites"_s, ReadAs::Text},
        {u"SELECT site_ip, site_id FROM Sites"_s, ReadAs::Text},
        {u"SELECT date FROM billing"_s, ReadAs::Text},
        {u"SELECT data FROM billing"_s, ReadAs::Amount},
        {u"SELECT SUM(usage) FROM billing"_s, ReadAs::Amount},
        {u"SELECT object_id FROM billing"_s, ReadAs::Integer},
        {u"SELECT object_id FROM billing"_s, ReadAs::Text},
        {u"SELECT SUM(object_id) FROM billing"_s, ReadAs::Integer},
        {u"SELECT 4000000000000000001 - object_id FROM billing"_s, ReadAs::Integer},
        {u"SELECT MAX(data) FROM billing WHERE object_id = 1"_s, ReadAs::Amount}, // NULL
    };
    for (const auto &[statement, as] : cases) {
        ASSERT_TRUE(connection->Run(statement)) << connection->Problem().toStdString();
        const QStringList names = connection->ColumnNames();
        const auto few = RowsLeft(*connection, {{1, as}});
        ASSERT_EQ(few.size(), 1) << statement.toStdString();
        Run(*connection, statement);
        EXPECT_EQ(connection->ColumnNames(), names);
        EXPECT_EQ(RowsLeft(*connection, {{1, as}}), few) << statement.toStdString();
    }
}

TEST_P(ReportReading, StatementsSeeOneStateOfTheDatabase)
{
    const auto connection = Open();
    const auto visits = [&] {
        EXPECT_TRUE(connection->Run(u"SELECT COUNT(*) FROM SiteAccess"_s));
        return RowsLeft(*connection, {{1, ReadAs::Integer}});
    };
    const auto before = visits();
    Execute("INSERT INTO SiteAccess (user_id) VALUES (1)");
    EXPECT_EQ(visits(), before);
}

TEST_P(ReportReadingGatheredRows, TheyAreReadAgainAsTheyWere)
{
    const auto connection = Open();
    EXPECT_FALSE(connection->HasGathered());
    Run(*connection, u"SELECT user_id, access_time FROM SiteAccess"_s);
    ASSERT_TRUE(connection->HasGathered());
    const auto before = RowsLeft(*connection, {{2, ReadAs::Text}});
    EXPECT_EQ(before.size(), kVisits);
    Execute("DELETE FROM SiteAccess");
    ASSERT_TRUE(connection->ReadGathered()) << connection->Problem().toStdString();
    EXPECT_EQ(RowsLeft(*connection, {{2, ReadAs::Text}}), before);
}

TEST_P(ReportReadingGatheredRows, AValueThatIsTooLargeEndsNothing)
{
    const auto connection = Open();
    Run(*connection, u"SELECT 18446744073709551615, access_time FROM SiteAccess"_s);
    EXPECT_EQ(RowsLeft(*connection, {{2, ReadAs::Text}}).size(), kVisits);
}

TEST_P(ReportReadingGatheredRows, AnAccountThatMayOnlyReadReadsAllTheSame)
{
    const QString user = u"reader_%1"_s.arg(QCoreApplication::applicationPid());
    const auto execute = [&](const QString &statement) {
        Execute(statement.arg(user).toUtf8().constData());
        EXPECT_EQ(FailureLog::Instance().Count(), 0) << statement.toStdString();
    };
    RunQuery("SELECT DATABASE()", FetchMode::One);
    const QString database = queryResult.Text(1);
    execute(u"CREATE USER %1@localhost IDENTIFIED BY 'secret'"_s);
    execute(u"GRANT SELECT ON "_s + database + u".* TO %1@localhost");
    if (const auto connection = Open(user, u"secret"_s)) {
        for (int round = 0; round < 2; ++round) {
            Run(*connection, u"SELECT access_time FROM SiteAccess"_s);
            EXPECT_FALSE(connection->HasGathered());
            EXPECT_EQ(RowsLeft(*connection, {{1, ReadAs::Text}}).size(), kVisits);
        }
        EXPECT_FALSE(connection->Run(u"DELETE FROM SiteAccess"_s));
    }
    execute(u"DROP USER %1@localhost"_s);
}

TEST_P(ReportReadingFromServer, ALostServerIsNotTheEndOfTheRows)
{
    const auto connection = Open();
    Run(*connection, kManyRows);
    connection->Choose({{1, ReadAs::Text}});
    ASSERT_EQ(connection->FetchBlock(), ReportConnection::kBlockRows);
    ASSERT_EQ(EndOtherConnections(), 1);
    int rows = 0;
    while ((rows = connection->FetchBlock()) > 0) { }
    EXPECT_EQ(rows, -1);
    EXPECT_FALSE(connection->Problem().isEmpty());
    EXPECT_FALSE(connection->Run(u"SELECT access_time FROM SiteAccess"_s));
}
