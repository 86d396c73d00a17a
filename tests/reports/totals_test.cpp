// The totals of every report against sums that SQL makes on its own.
#include "reports/catalogue.h"
#include "reports/report_fixture.h"
#include "support/core/engine_fixture.h"

using namespace Qt::StringLiterals;

namespace {

class Totals : public EngineFixture
{
protected:
    void SetUp() override
    {
        EngineFixture::SetUp();
        FillReportData();
    }
};

TB_ON_EVERY_ENGINE(Totals);

struct Sums
{
    const char *columns; // of the database, in the order of the report's summed ones
    const char *from;
    QStringList names; // of the report's
};

const char *const kTraffic =
    "traffic_use t INNER JOIN users u ON t.user_id = u.user_id WHERE t.period = 0";
const char *const kGroupTraffic =
    "traffic_use t INNER JOIN users u ON t.user_id = u.user_id INNER JOIN groups g ON "
    "g.group_id = u.group_id WHERE 1 = 1";
const char *const kTime =
    "time_use t INNER JOIN users u ON t.user_id = u.user_id WHERE t.period = 0";
const char *const kTrafficCredits =
    "billing t INNER JOIN users u ON u.mode = t.mode WHERE t.mode = 1";
const char *const kTimeCredits = "billing t INNER JOIN users u ON u.mode = t.mode WHERE t.mode = 4";
const char *const kCredits =
    "billing t INNER JOIN users u ON u.mode = t.mode AND u.user_id = t.object_id WHERE t.mode = 2";
const char *const kVisits =
    "SiteAccess t INNER JOIN users u ON t.user_id = u.user_id INNER JOIN Sites s ON s.site_id "
    "= t.site_id WHERE 1 = 1";

Sums SumsOf(int row)
{
    const QStringList traffic {u"data"_s, u"senddata"_s};
    const QStringList usage {u"data"_s, u"usage"_s};
    switch (row) {
    case 4:
        return {"SUM(t.data), SUM(t.senddata)", kGroupTraffic, traffic};
    case 5:
        return {"SUM(t.data), SUM(t.usage)", kTrafficCredits, usage};
    case 10:
        return {"SUM(t.data), SUM(t.usage)", kTimeCredits, usage};
    case 11:
        return {"SUM(t.data), SUM(t.moneyusage)", kCredits, {u"data"_s, u"moneyusage"_s}};
    case 12:
        return {"SUM(t.moneyusage)", kCredits, {u"moneyusage"_s}};
    case 13:
    case 14:
        return {"COUNT(*)", kVisits, {u"hits"_s}};
    case 15:
        return {"COUNT(*)", kVisits, {}};
    default:
        return row < 4 ? Sums {"SUM(t.data), SUM(t.senddata)", kTraffic, traffic}
                       : Sums {"SUM(t.data)", kTime, {u"data"_s}};
    }
}

QString PeriodOf(int row, const ReportPeriod &period)
{
    if (period.choice == PeriodChoice::All) {
        return {};
    }
    const auto category = ReportCatalogue()[static_cast<size_t>(row)].category;
    const bool visits = category == ReportCategory::SiteAccess;
    const QString column = visits             ? u"t.access_time"_s
        : category == ReportCategory::Billing ? u"t.date"_s
                                              : u"t.current_time"_s;
    const QString shape = visits ? u"yyyy.MM.dd"_s : u"yyyy-MM-dd"_s;
    return u" AND %1 >= '%2' AND %1 < '%3'"_s.arg(
        column,
        ExistingDate(period.from).toString(shape),
        ExistingDate(period.to).addDays(1).toString(shape));
}

double TotalOf(const ReportTable &table, const QString &name)
{
    for (qsizetype place = 0; place < table.layout.columns.size(); ++place) {
        if (table.layout.columns.at(place).name == name) {
            return NumberIn(table.allTotals[static_cast<size_t>(place)]);
        }
    }
    ADD_FAILURE() << "no column " << name.toStdString();
    return 0;
}

void ExpectTotals(int row,
                  const ReportTable &table,
                  const ReportPeriod &period,
                  const QString &filter)
{
    const Sums sums = SumsOf(row);
    const QString sql = u"SELECT %1 FROM %2%3%4"_s.arg(QLatin1StringView(sums.columns),
                                                       QLatin1StringView(sums.from),
                                                       PeriodOf(row, period),
                                                       filter);
    RunQuery(sql.toUtf8().constData(), FetchMode::One);
    for (qsizetype name = 0; name < sums.names.size(); ++name) {
        const double wanted = queryResult.Amount(static_cast<int>(name) + 1);
        EXPECT_NEAR(TotalOf(table, sums.names.at(name)), wanted, 1e-9 * std::abs(wanted) + 1e-12)
            << row << ": " << sql.toStdString();
    }
    if (sums.names.isEmpty()) {
        EXPECT_EQ(table.rows.Count(), queryResult.Integer(1)) << sql.toStdString();
    }
}

} // namespace

TEST_P(Totals, EqualTheSumsOfTheDatabase)
{
    const QDate today(2026, 11, 21);
    const ReportPeriod periods[] = {
        {},
        PeriodUpTo(today, PeriodChoice::Today),
        PeriodUpTo(today, PeriodChoice::LastWeek),
        PeriodUpTo(today, PeriodChoice::LastMonth),
        {PeriodChoice::Custom, {2026, 11, 1}, {2026, 11, 15}},
        {PeriodChoice::Custom, {2026, 10, 5}, {2026, 10, 5}},
        {PeriodChoice::Custom, {2020, 1, 1}, {2020, 2, 1}}, // nothing
    };
    for (int row = 0; row < kReportCount; ++row) {
        for (const ReportPeriod &period : periods) {
            if (const auto table = ReportOf(RequestFor(DsnOf("reports"), row, period))) {
                ExpectTotals(row, *table, period, {});
            }
        }
    }
}

TEST_P(Totals, EqualThemForEachKindOfFilter)
{
    struct Case
    {
        FilterNumbers users;
        FilterNumbers groups;
        const char16_t *condition;
    };
    const Case cases[] = {
        {{{1, 2}, {3, 4, 5, 6, 7, 8, 9}}, {}, u" AND u.user_id IN (1, 2)"},
        {{{1, 2, 3, 4, 5}, {6, 7, 8, 9}}, {}, u" AND u.user_id NOT IN (6, 7, 8, 9)"},
        {{}, {{80}, {81}}, u" AND u.group_id <> 81"},
        {{}, {{81}, {80, 82}}, u" AND u.group_id = 81"},
        {{}, {{79}, {80, 81}}, u" AND u.group_id = 79"},
        {{}, {{78, 79}, {80, 81}}, u""}, // kept: "not one or not the other" is everybody
        {{{3}, {1, 2}}, {{81}, {80, 82}}, u" AND u.user_id = 3 AND u.group_id = 81"},
    };
    const ReportPeriod period {PeriodChoice::Custom, {2026, 10, 1}, {2026, 11, 20}};
    for (int row = 0; row < kReportCount; ++row) {
        for (const auto &[users, groups, condition] : cases) {
            const auto request = RequestFor(DsnOf("reports"),
                                            row,
                                            period,
                                            UserFilterClause(users.Filter<UserId>()),
                                            GroupFilterClause(groups.Filter<GroupId>()));
            if (const auto table = ReportOf(request)) {
                ExpectTotals(row, *table, period, QString::fromUtf16(condition));
            }
        }
    }
}
