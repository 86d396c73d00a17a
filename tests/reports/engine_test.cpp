#include "access/owner.h"
#include "db/failure_log.h"
#include "db/report_connection.h"
#include "db/session.h"
#include "reports/catalogue.h"
#include "reports/filter_choices.h"
#include "reports/report_fixture.h"
#include "reports/table_builder.h"
#include "support/core/engine_fixture.h"
#include "support/core/statement_hook.h"

#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryFile>

#include <chrono>
#include <ctime>
#include <pthread.h>
#include <thread>
#include <tuple>

using namespace Qt::StringLiterals;

namespace {

class MadeReport : public EngineFixture
{
protected:
    void SetUp() override
    {
        EngineFixture::SetUp();
        FillReportData();
    }

    static std::unique_ptr<ReportConnection> Open()
    {
        QString problem;
        auto connection = ReportConnection::Open(Dsn(), u"system"_s, {}, problem);
        EXPECT_TRUE(connection) << problem.toStdString();
        return connection;
    }

    // The same report with every sum made by the program.
    static std::unique_ptr<ReportTable> SummedHere(const ReportRequest &request)
    {
        LayoutError error;
        RunControl control;
        auto table = std::make_unique<ReportTable>();
        table->layout = ReadLayout(request.layoutPath, error).value();
        table->period = request.period;
        const auto connection = Open();
        ReportQuery query(table->layout, request.query, *connection, control);
        query.SumHere();
        TableBuilder builder(*table, query);
        EXPECT_TRUE(builder.Build()) << builder.Problem().text.toStdString();
        return table;
    }
};

class MadeReportOfServer : public MadeReport
{ };

TB_ON_EVERY_ENGINE(MadeReport);
TB_ON_EVERY_SERVER(MadeReportOfServer);

QString KeptText(const QString &name, const QString &now)
{
    QFile file(QStringLiteral(TB_SOURCE_DIR "/tests/reports/kept/%1.txt").arg(name));
    if (qEnvironmentVariableIsSet("TB_RENEW_KEPT") && file.open(QIODevice::WriteOnly)) {
        file.write(now.toUtf8());
        file.close();
    }
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
    return QString::fromUtf8(file.readAll());
}

// The processor's time that a thread has taken.
std::chrono::nanoseconds WorkOf(std::thread &thread)
{
    clockid_t clock {};
    timespec spent {};
    EXPECT_EQ(pthread_getcpuclockid(thread.native_handle(), &clock), 0);
    EXPECT_EQ(clock_gettime(clock, &spent), 0);
    return std::chrono::seconds(spent.tv_sec) + std::chrono::nanoseconds(spent.tv_nsec);
}

const ReportPeriod kAutumn {PeriodChoice::Custom, {2026, 11, 10}, {2026, 11, 20}};

} // namespace

// Rows of each come in the engine's own order of names; they are compared on one engine.
TEST_P(MadeReport, TablesAreThoseKept)
{
    for (int row = 0; row < kReportCount; ++row) {
        const auto table = ReportOf(RequestFor(DsnOf("reports"), row));
        if (table && (table->layout.rows == RowRule::Summed || Engine() == u"sqlite")) {
            const QString text = AsText(*table);
            EXPECT_EQ(text, KeptText(u"report-%1"_s.arg(row, 2, 10, QChar(u'0')), text)) << row;
        }
    }
}

TEST_P(MadeReport, SumsMadeByTheProgramAreThoseOfTheDatabase)
{
    for (int row = 0; row < kReportCount; ++row) {
        for (const ReportPeriod &period : {ReportPeriod {}, kAutumn}) {
            const auto request = RequestFor(DsnOf("reports"), row, period);
            const auto table = ReportOf(request);
            const auto here = SummedHere(request);
            EXPECT_EQ(here->rows.Count(), table->rows.Count()) << row;
            EXPECT_EQ(here->groups.size(), table->groups.size()) << row;
            if (table->layout.rows == RowRule::Summed) {
                EXPECT_EQ(AsText(*here).section(u"chart:"_s, 0, 0),
                          AsText(*table).section(u"chart:"_s, 0, 0))
                    << row;
            }
            for (size_t column = 0; column < table->totals.size(); ++column) {
                EXPECT_DOUBLE_EQ(NumberIn(here->totals[column]), NumberIn(table->totals[column]))
                    << row;
            }
        }
    }
}

TEST_P(MadeReport, AQueryThatCannotStandInParenthesesIsSummedHere)
{
    LayoutError error;
    auto table = std::make_unique<ReportTable>();
    table->layout = ParseLayout(R"(title = "T"
rows = "summed"
query = "SELECT users.username, users.user_id, traffic_use.user_id, data FROM users INNER JOIN traffic_use ON users.user_id = traffic_use.user_id WHERE period = 0 ORDER BY data"
[[column]]
name = "username"
[[column]]
name = "data"
type = "amount"
total = true
)",
                                u"t"_s,
                                error)
                        .value();
    RunControl control;
    const auto connection = Open();
    ReportQuery query(table->layout, {}, *connection, control);
    TableBuilder builder(*table, query);
    ASSERT_TRUE(builder.Build()) << builder.Problem().text.toStdString();
    EXPECT_EQ(query.IsSummedByDatabase(), Engine() != u"mariadb"); // two columns of one name
    RunQuery("SELECT SUM(data) FROM traffic_use WHERE period = 0", FetchMode::One);
    EXPECT_DOUBLE_EQ(NumberIn(table->totals[1]), queryResult.Amount(1));
    EXPECT_EQ(table->rows.Count(), OddNames().size());
}

// The chart of a report is made after its rows.
TEST_P(MadeReport, SumsAreOfTheRowsThatWereRead)
{
    LayoutError error;
    const Layout layout = ReadLayout(RequestFor(DsnOf("reports"), 10).layoutPath, error).value();
    const int user = 0;
    RunControl control;
    const auto connection = Open();
    ReportQuery query(layout, {}, *connection, control);
    qint64 rows = 0;
    ASSERT_TRUE(query.Rows([&](CellRow &&) { return ++rows > 0; }));
    Execute("DELETE FROM billing");
    qint64 summed = 0;
    ASSERT_TRUE(query.Sum({{user}, {}, {}}, [&](SummedRow &&row) { summed += row.count; }));
    EXPECT_GT(rows, 0);
    EXPECT_EQ(summed, rows);
}

// Credits of one user and one second have one order, whatever the engine finds first.
TEST_P(MadeReport, RowsThatAreAlikeInTheirOrderFollowByWhatElseTheyShow)
{
    LayoutError error;
    const Layout layout = ParseLayout(R"(title = "T"
group = ["username"]
order = ["-period"]
query = "SELECT users.username, traffic_use.period, traffic_use.data FROM users INNER JOIN traffic_use ON users.user_id = traffic_use.user_id WHERE users.user_id = 1 AND traffic_use.period = 7"
[[column]]
name = "username"
[[column]]
name = "period"
type = "integer"
[[column]]
name = "data"
type = "integer"
)",
                                      u"t"_s,
                                      error)
                              .value();
    for (const double data : {5, 2, 9, 1, 7}) {
        Execute("INSERT INTO traffic_use (period, user_id, data, senddata) VALUES (7, 1, (?), 0)",
                data);
    }
    RunControl control;
    const auto connection = Open();
    ReportQuery query(layout, {}, *connection, control);
    QList<qint64> read;
    ASSERT_TRUE(query.Rows([&](CellRow &&row) {
        read += std::get<qint64>(row.at(2));
        return true;
    })) << query.Problem().text.toStdString();
    EXPECT_EQ(read, QList<qint64>({1, 2, 5, 7, 9}));
}

// An engine may describe a sum as a decimal number; no digit of it is lost on the way.
TEST_P(MadeReport, LargeWholeNumbersAreReadToTheLastDigit)
{
    LayoutError error;
    const Layout layout = ParseLayout(R"(title = "T"
query = "SELECT SUM(9007199254740993) AS number, SUM(9007199254740993) AS digits FROM users WHERE user_id = 1"
[[column]]
name = "number"
type = "integer"
[[column]]
name = "digits"
)",
                                      u"t"_s,
                                      error)
                              .value();
    RunControl control;
    const auto connection = Open();
    ReportQuery query(layout, {}, *connection, control);
    std::vector<CellRow> rows;
    ASSERT_TRUE(query.Rows([&](CellRow &&row) {
        rows.push_back(std::move(row));
        return true;
    })) << query.Problem().text.toStdString();
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0], CellRow({qint64 {9007199254740993}, u"9007199254740993"_s}));
}

// Its query takes seconds, and nothing but the driver can end it before: what looks at the
// cancel between rows gets none of them until all are summed.
TEST_P(MadeReport, CancelEndsAReportThatRuns)
{
    RunControl control;
    ReportProblem problem;
    auto request = RequestFor(DsnOf("reports"), 13, kAutumn);
    request.query =
        u"SELECT a.sitename, a.site_ip FROM Sites a, SiteAccess b, SiteAccess c, SiteAccess d, "
        "SiteAccess e WHERE a.site_id = b.site_id AND a.sitename <> 'to be stopped'"_s;
    ReportTablePtr table;
    std::thread worker([&] { table = MakeReport(request, control, problem); });
    const auto isRunning = [&] {
        return Engine() == u"sqlite" ? WorkOf(worker) > std::chrono::milliseconds(200)
                                     : !OtherConnections(u"to be stopped"_s).isEmpty();
    };
    EXPECT_TRUE(IsTrueInTime(isRunning));
    QElapsedTimer watch;
    watch.start();
    control.Cancel();
    worker.join();
    EXPECT_LT(watch.elapsed(), 500);
    EXPECT_FALSE(table);
    EXPECT_EQ(problem.kind, ReportProblem::Kind::Cancelled);
}

// Also in the moment between the last look at the cancel and the statement's beginning.
TEST_P(MadeReport, CancelEndsAReportWheneverItComes)
{
    auto request = RequestFor(DsnOf("reports"), 13, kAutumn);
    request.query =
        u"SELECT a.sitename, a.site_ip FROM Sites a, SiteAccess b, SiteAccess c, SiteAccess d, "
        "SiteAccess e, traffic_use f, traffic_use g"_s;
    constexpr int kMoments = 40;
    constexpr qint64 kStepNs = 40'000; // a file is open at once, a server's connection later
    for (int moment = 0; moment < kMoments; ++moment) {
        RunControl control;
        ReportProblem problem;
        std::thread worker([&] { std::ignore = MakeReport(request, control, problem); });
        QElapsedTimer watch;
        watch.start();
        while (watch.nsecsElapsed() < kStepNs * moment * moment) { }
        control.Cancel();
        worker.join();
        EXPECT_EQ(problem.kind, ReportProblem::Kind::Cancelled) << moment;
    }
}

TEST_P(MadeReportOfServer, AServerLostWhileAReportRunsIsTold)
{
    auto request = RequestFor(DsnOf("reports"), 13, kAutumn);
    request.query =
        u"SELECT a.sitename, a.site_ip FROM Sites a, SiteAccess b, SiteAccess c, SiteAccess d, "
        "SiteAccess e, traffic_use f, traffic_use g WHERE a.sitename <> 'server to lose'"_s;
    RunControl control;
    ReportProblem problem;
    ReportTablePtr table;
    std::atomic<bool> ended = false;
    std::thread worker([&] {
        table = MakeReport(request, control, problem);
        ended = true;
    });
    const QDeadlineTimer deadline(20'000);
    while (!ended && !deadline.hasExpired()) {
        EndOtherConnections(u"server to lose"_s);
    }
    EXPECT_TRUE(ended);
    control.Cancel();
    worker.join();
    EXPECT_FALSE(table);
    EXPECT_EQ(problem.kind, ReportProblem::Kind::Database);
    EXPECT_FALSE(problem.text.isEmpty());
}

TEST_P(MadeReport, FailuresSayWhatFailed)
{
    using Kind = ReportProblem::Kind;
    struct Case
    {
        std::function<void(ReportRequest &)> spoil;
        Kind kind;
        const char *words;
    };
    const Case cases[] = {
        {[](auto &request) { request.connectionText = ReportConnectionText(u"nowhere"_s); },
         Kind::Database,
         "data source \"nowhere\": "},
        {[](auto &request) { request.layoutPath = u"none\\x.rpt"_s; },
         Kind::Layout,
         "no such layout file"},
        {[](auto &request) { request.layoutPath.clear(); }, Kind::Layout, "no such layout file"},
        {[](auto &request) { request.query = u"SELECT nothing FROM nobody"_s; },
         Kind::Arguments,
         "there is no table \"nobody\" that a report may read"},
        {[](auto &request) { request.query = u"SELECT SUM(username, mode) AS data FROM users"_s; },
         Kind::Database,
         ""},
        {[](auto &request) { request.query = u"SELECT username FROM users"_s; },
         Kind::Layout,
         "the query gives no column \"ip_addr\""},
        {[](auto &request) { request.query = u"DROP TABLE users"_s; },
         Kind::Arguments,
         "begins with SELECT"},
    };
    for (const auto &[spoil, kind, words] : cases) {
        auto request = RequestFor(DsnOf("reports"), 0);
        spoil(request);
        RunControl control;
        ReportProblem problem;
        EXPECT_FALSE(MakeReport(request, control, problem));
        EXPECT_EQ(problem.kind, kind) << problem.text.toStdString();
        EXPECT_TRUE(problem.text.contains(QLatin1StringView(words))) << problem.text.toStdString();
        EXPECT_FALSE(problem.text.isEmpty());
    }
}

// Each of them gave what it asks for, or ran what it names, on one of the engines.
TEST_P(MadeReport, AQueryRunsNothingAndReadsNoFile)
{
    QTemporaryFile secret; // that the servers can read
    ASSERT_TRUE(secret.open() && secret.write("a secret") > 0 && secret.flush()
                && secret.setPermissions(QFile::ReadOwner | QFile::ReadOther));
    const QString file = secret.fileName();
    const QStringList expressions {u"\"load_extension\"('%1')"_s.arg(QStringLiteral(TB_EXTENSION)),
                                   u"`load_extension`('%1')"_s.arg(QStringLiteral(TB_EXTENSION)),
                                   u"\"pg_read_file\"('%1')"_s.arg(file),
                                   u"`load_file`('%1')"_s.arg(file)};
    for (const QString &expression : expressions) {
        auto request = RequestFor(DsnOf("reports"), 0);
        request.query =
            u"SELECT %1 AS username, '' AS ip_addr, 0 AS data, 0 AS senddata"_s.arg(expression);
        RunControl control;
        ReportProblem problem;
        EXPECT_FALSE(MakeReport(request, control, problem)) << expression.toStdString();
        EXPECT_EQ(problem.kind, ReportProblem::Kind::Arguments) << expression.toStdString();
    }
    EXPECT_FALSE(qEnvironmentVariableIsSet("TB_EXTENSION_HAS_RUN"));
}

// Also a statement that no check has seen.
TEST_P(MadeReport, TheConnectionTakesReadingStatementsOneAtATime)
{
    const QString refused[] = {
        u"UPDATE users SET blocked = 1"_s,
        u"DELETE FROM users"_s,
        u"CREATE TABLE extra (number integer)"_s,
        u"PRAGMA query_only=0"_s,
        u"ATTACH DATABASE ':memory:' AS extra"_s,
        u"SET SESSION TRANSACTION READ WRITE"_s,
        u"SET default_transaction_read_only=off"_s,
        u"COMMIT"_s,
        u"WITH gone AS (DELETE FROM users RETURNING user_id) SELECT user_id FROM gone"_s,
        u"SELECT 1; UPDATE users SET blocked = 1"_s,
        u"SELECT load_extension('%1')"_s.arg(QStringLiteral(TB_EXTENSION)),
    };
    const auto connection = Open();
    for (const QString &statement : refused) {
        EXPECT_FALSE(connection->Run(statement) && connection->FetchBlock() >= 0)
            << statement.toStdString();
        EXPECT_FALSE(connection->Problem().isEmpty()) << statement.toStdString();
    }
    EXPECT_FALSE(qEnvironmentVariableIsSet("TB_EXTENSION_HAS_RUN"));
    EXPECT_TRUE(connection->Run(u"SELECT ';' AS word FROM users WHERE username <> \';\'"_s));
    RunQuery("SELECT SUM(blocked) FROM users", FetchMode::One);
    EXPECT_EQ(queryResult.Integer(1), 0U);
}

// An engine bears a thousand terms of a clause as it is written.
TEST_P(MadeReport, AFilterMayNameAHundredThousand)
{
    constexpr quint32 kMany = 100'000;
    constexpr quint32 kFirst = 3; // of the nine users, whose groups are 80 and 81
    FilterNumbers few; // takes them
    for (quint32 number = kFirst; number < kFirst + kMany; ++number) {
        few.taken += number;
    }
    few.left.fill(7'000'000, kMany + 1);
    const FilterNumbers many {few.taken, few.taken}; // leaves them out
    const auto rows = [&](const QString &userClause, const QString &groupClause) {
        const auto table =
            ReportOf(RequestFor(DsnOf("reports"), 0, kAutumn, userClause, groupClause));
        return table ? table->rows.Count() : -1;
    };
    const qint64 all = rows({}, {});
    EXPECT_EQ(rows(UserFilterClause(few.Filter<UserId>()), {}), all - (kFirst - 1));
    EXPECT_EQ(
        rows(UserFilterClause(many.Filter<UserId>()), GroupFilterClause(few.Filter<GroupId>())),
        kFirst - 1);
    // Kept: leaving out several groups leaves out none.
    EXPECT_EQ(rows({}, GroupFilterClause(many.Filter<GroupId>())), all);
}

TEST_P(MadeReport, FiltersOfferTheMonitoredUsersAndTheGroups)
{
    Execute("UPDATE users SET monitored = false WHERE username = 'anna'");
    const auto users = OfferedUsers();
    ASSERT_TRUE(users);
    EXPECT_EQ(static_cast<qsizetype>(users->size()), OddNames().size() - 1);
    for (const auto &[id, name] : *users) {
        EXPECT_EQ(NameOf(id).value_or(std::nullopt), std::optional(name));
    }
    const auto all = AllUsers();
    ASSERT_TRUE(all);
    EXPECT_EQ(static_cast<qsizetype>(all->size()), OddNames().size());
    const auto groups = OfferedGroups();
    ASSERT_TRUE(groups);
    ASSERT_EQ(groups->size(), 2U);
    EXPECT_EQ(groups->back().name, u"Workshop"_s);
    EXPECT_EQ(groups->back().id, GroupId {81});
}

TEST_P(MadeReport, FiltersThatCannotBeReadOfferNotNobody)
{
    EXPECT_EQ(UntoldFailures(Dsn(), [] { return OfferedUsers().has_value(); }), QStringList());
    EXPECT_EQ(UntoldFailures(Dsn(), [] { return AllUsers().has_value(); }), QStringList());
    EXPECT_EQ(UntoldFailures(Dsn(), [] { return OfferedGroups().has_value(); }), QStringList());
}
