// What becomes of each row, decided without a database.
#include "exchange/import_plan.h"

#include "base/day.h"

#include <QElapsedTimer>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

StoredUserRow User(quint32 id, const QString &name, const QString &ip, const QString &mac)
{
    StoredUserRow user {UserId {id}, name, {}, false, true, {}};
    user.values.ipAddress = ip;
    user.values.macAddress = mac;
    user.values.groupId = kEverybodyGroup;
    user.values.groupName = u"Everybody"_s;
    user.values.limits.period = user.values.limits.timePeriod = LimitPeriod::Month;
    return user;
}

StoredUsers Stored()
{
    StoredUsers stored;
    stored.groups = {{u"Everybody"_s, kEverybodyGroup}, {u"Office"_s, GroupId {81}}};
    stored.users = {User(1, u"anna"_s, u"10.0.0.1"_s, u"0000000000AA"_s),
                    User(2, u"bert"_s, u"10.0.0.2"_s, {}),
                    User(3, u"carl"_s, {}, {}),
                    User(4, u"twin"_s, {}, {}),
                    User(5, u"Twin"_s, {}, {}),
                    User(6, u"far"_s, u"10.0.0.6"_s, {})};
    stored.users[1].values.mode = AccountingMode::Provider;
    stored.users[2].values.mode = AccountingMode::Traffic;
    stored.users[2].values.limits.traffic = WholeMegabytes {100};
    stored.users[5].isMonitored = false;
    stored.users[0].logins = {u"anna"_s};
    stored.users[0].values.login = u"anna"_s;
    stored.logins = {{u"ANNA"_s.toCaseFolded(), {u"anna"_s, UserId {1}, u"d"_s}},
                     {u"free"_s, {u"free"_s, {}, u"d"_s}}};
    return stored;
}

// "state: words" of each row.
QStringList Plan(const QString &text, const ImportContext &context = {})
{
    const auto table = ReadImportTable(text.toUtf8());
    if (!table) {
        return {table.error()};
    }
    QStringList lines;
    for (const ImportRow &row : PlanImport(*table, Stored(), context).rows) {
        lines << TextOf(row.state) + u": " + WordsFor(row);
    }
    return lines;
}

struct RowCase
{
    const char *head;
    const char *row;
    QString shown;
};

} // namespace

TEST(ImportPlans, SayWhatBecomesOfARow)
{
    const TodayOverride today(QDate(2026, 11, 22));
    const RowCase cases[] {
        {"Name",
         "dora",
         u"new: Group: Everybody; Access: No control; Blocked: no; Login required: no"_s},
        {"Name", "ANNA", u"unchanged: "_s},
        {"Name,Full name", "anna,Anna Berg", u"changed: Full name: none \u2192 Anna Berg"_s},
        {"Name,IP,MAC",
         "anna,,",
         u"changed: IP address: 10.0.0.1 \u2192 none; MAC address: "
         "0000000000AA \u2192 none"_s},
        {"Name,IP",
         "anna,10.0.0.01x",
         u"refused: IP address \"10.0.0.01x\": it is no IP address"_s},
        {"Name,IP", "anna,0.0.0.0", u"refused: IP address \"0.0.0.0\": it is no IP address"_s},
        {"Name,IP",
         "anna,10.0.0.2",
         u"refused: The IP address 10.0.0.2 is the one of the user \"bert\""_s},
        {"Name,IP",
         "anna,10.0.0.6",
         u"refused: The IP address 10.0.0.6 is the one of the user \"far\""_s},
        {"Name,IP", "anna,10.0.0.9", u"changed: IP address: 10.0.0.1 \u2192 10.0.0.9"_s},
        {"Name,IP",
         "anna,10.0.0.7",
         u"refused: IP address \"10.0.0.7\": the address is excluded"_s},
        {"Name,MAC", "bert,00:11:22:aa:bb:cc", u"changed: MAC address: none \u2192 001122AABBCC"_s},
        {"Name,MAC", "bert,0011.22aa.bbcc", u"changed: MAC address: none \u2192 001122AABBCC"_s},
        {"Name,MAC",
         "bert,00:11:22:aa:bb",
         u"refused: MAC address \"00:11:22:aa:bb\": a MAC address has twelve digits 0 to 9 and A to F"_s},
        {"Name,MAC",
         "bert,00-00-00-00-00-AA",
         u"refused: The MAC address 0000000000AA is the one of the user \"anna\""_s},
        {"Name,Group", "anna,OFFICE", u"changed: Group: Everybody \u2192 Office"_s},
        {"Name,Group", "anna,", u"unchanged: "_s},
        {"Name,Group",
         "anna,Sales",
         u"refused: Group \"Sales\": there is no such group. A column \"Create group\" with \"yes\" "
         "makes it"_s},
        {"Name,Group,Create group", "anna,Sales,ja", u"changed: Group: Everybody \u2192 Sales"_s},
        {"Name,Credit expires",
         "anna,2036-12-31",
         u"refused: Credit expires \"2036-12-31\": there is no credit that could expire"_s},
        {"Name,Group,Create group",
         "anna,Sales,perhaps",
         u"refused: Create group \"perhaps\": it is to be \"yes\" or \"no\""_s},
        {"Name,Access",
         "anna,Provider",
         u"changed: Access: No control \u2192 Provider; Price: none \u2192 global"_s},
        {"Name,Access", "anna,free", u"refused: Access \"free\": there is no such access type"_s},
        {"Name,Traffic limit", "carl,200", u"changed: Traffic limit: 100 \u2192 200"_s},
        {"Name,Traffic limit", "carl,100", u"unchanged: "_s},
        {"Name,Traffic limit", "carl,", u"unchanged: "_s},
        {"Name,Traffic limit",
         "carl,3000000000",
         u"refused: Traffic limit \"3000000000\": it is to be from 0 to 2147483647"_s},
        {"Name,Traffic limit",
         "carl,1.5",
         u"refused: Traffic limit \"1.5\": it is no whole number"_s},
        {"Name,Traffic limit",
         "anna,5",
         u"refused: Traffic limit \"5\": the user's access type has none"_s},
        {"Name,Period", "carl,Tag", u"changed: Accounting period: month \u2192 day"_s},
        {"Name,Period",
         "carl,week",
         u"refused: Accounting period \"week\": it is to be \"Day\" or \"Month\""_s},
        {"Name,Price", "bert,0.25", u"changed: Price: global \u2192 0.25"_s},
        {"Name;Preis", "bert;0,25", u"changed: Price: global \u2192 0.25"_s},
        {"Name,Price", "bert,0.255", u"refused: Price \"0.255\": at most 2 decimals are taken"_s},
        {"Name,Blocked", "anna,yes", u"changed: Blocked: no \u2192 yes"_s},
        {"Name,Blocked",
         "anna,maybe",
         u"refused: Blocked \"maybe\": it is to be \"yes\" or \"no\""_s},
        {"Name,Login", "bert,anna", u"refused: Login \"anna\": it is the login of another user"_s},
        {"Name,Login", "bert,free", u"changed: Login: none \u2192 free"_s},
        {"Name,Login", "bert,new", u"refused: Login \"new\": a new login needs a password"_s},
        {"Name,Login,Password",
         "bert,new,secret",
         u"changed: Login: none \u2192 new; Password: a new one"_s},
        {"Name,Login,Password",
         "anna,new,secret",
         u"refused: Login \"new\": the user has another login already"_s},
        {"Name,Login",
         "anna,free",
         u"refused: Login \"free\": the user has another login already"_s},
        {"Name,Login,Password", "anna,anna,secret", u"changed: Password: a new one"_s},
        {"Name,Password", "anna,secret", u"refused: There is a password and no login"_s},
        {"Name,Traffic credit", "bert,500", u"changed: Traffic credit: 500 megabytes"_s},
        {"Name,Traffic credit,Credit expires",
         "bert,500,2026-12-31",
         u"changed: Traffic credit: 500 megabytes; Credit expires: 2026-12-31"_s},
        {"Name,Money credit", "bert,9.5", u"changed: Money credit: 9.5 of money"_s},
        {"Name,Traffic credit", "bert,unlimited", u"changed: Traffic credit: unlimited"_s},
        {"Name,Traffic credit",
         "bert,0",
         u"refused: Please enter an amount above 0 and up to 1000000000"_s},
        {"Name,Traffic credit,Credit expires",
         "bert,5,2026-11-21",
         u"refused: Credit expires \"2026-11-21\": The expiry day has already passed. Please choose "
         "another day"_s},
        {"Name,Traffic credit",
         "anna,5",
         u"refused: Traffic credit \"5\": only users of the access type Provider have credits"_s},
        {"Name,Traffic credit,Money credit",
         "bert,5,5",
         u"refused: A credit is of traffic or of money"_s},
        {"Name", "twin", u"refused: 2 users have this name"_s},
        {"Name", "far", u"refused: This user is not monitored"_s},
        {"Name,Group", ",Office", u"refused: The row has no user name"_s},
        {"Name,Description",
         "anna,\"a\x01z\"",
         u"refused: Description \"a\x01z\": it has characters that cannot be shown"_s},
    };
    for (const RowCase &each : cases) {
        const QString text =
            QString::fromUtf8(each.head) + u'\n' + QString::fromUtf8(each.row) + u'\n';
        EXPECT_THAT(Plan(text, {{}, {0x0A000007U}, 1.0}), ElementsAre(each.shown)) << each.row;
    }
    EXPECT_THAT(
        Plan(u"Name,Description\nanna,%1\n"_s.arg(QString(300, u'x'))),
        ElementsAre(u"refused: Description \"%1\": it is too long"_s.arg(QString(60, u'x'))));
}

TEST(ImportPlans, OneLineHasAGroupMadeForAllThatNameIt)
{
    EXPECT_THAT(Plan(u"Name,Group,Create group\ndora,Sales,\nemil,sALES,yes\nfrida,SALES,no\n"_s),
                testing::Each(testing::ResultOf(
                    [](const QString &line) { return line.contains(u"Group: sALES"_s); }, true)));
}

TEST(ImportPlans, WhatTwoRowsWantNeitherGets)
{
    EXPECT_THAT(
        Plan(u"Name\nanna\ndora\nAnna\n"_s),
        ElementsAre(u"refused: Line 4 names the same user"_s,
                    u"new: Group: Everybody; Access: No control; Blocked: no; Login required: no"_s,
                    u"refused: Line 2 names the same user"_s));
    EXPECT_THAT(Plan(u"Name,IP,MAC\ndora,10.0.0.9,\nemil,10.0.0.9,\nfrida,,0000000000BB\n"
                     "gerd,,00:00:00:00:00:bb\n"_s),
                ElementsAre(u"refused: Line 3 has the same IP address"_s,
                            u"refused: Line 2 has the same IP address"_s,
                            u"refused: Line 5 has the same MAC address"_s,
                            u"refused: Line 4 has the same MAC address"_s));
    EXPECT_THAT(Plan(u"Name,Login,Password\nbert,new,x\ncarl,NEW,x\n"_s),
                ElementsAre(u"refused: Line 3 has the same login"_s,
                            u"refused: Line 2 has the same login"_s));
}

// Two users may change places; when one of them may not, the other one may not either.
TEST(ImportPlans, AddressesThatAreGivenUpAreFree)
{
    EXPECT_THAT(Plan(u"Name,IP\nanna,10.0.0.2\nbert,10.0.0.1\n"_s),
                ElementsAre(u"changed: IP address: 10.0.0.1 \u2192 10.0.0.2"_s,
                            u"changed: IP address: 10.0.0.2 \u2192 10.0.0.1"_s));
    EXPECT_THAT(
        Plan(u"Name,IP,MAC\nanna,10.0.0.2,0000000000AA\nbert,10.0.0.1,0000000000AA\n"_s),
        ElementsAre(u"refused: The IP address 10.0.0.2 is the one of the user \"bert\""_s,
                    u"refused: The MAC address 0000000000AA is the one of the user \"anna\""_s));
}

TEST(ImportPlans, NewUsersHaveWhatTheSettingsGive)
{
    ImportContext context;
    context.profile.mode = AccountingMode::Traffic;
    context.profile.trafficLimit = 500;
    context.profile.period = LimitPeriod::Day;
    context.profile.blocked = true;
    EXPECT_THAT(
        Plan(u"Name,Traffic limit,Blocked\ndora,,\nemil,7,no\n"_s, context),
        ElementsAre(u"new: Group: Everybody; Access: Corporate, traffic control; Traffic "
                    "limit: 500; Accounting period: day; Blocked: yes; Login required: no"_s,
                    u"new: Group: Everybody; Access: Corporate, traffic control; Traffic "
                    "limit: 7; Accounting period: day; Blocked: no; Login required: no"_s));
}

TEST(ImportPlans, MoreLoginsThanTheirListHoldsAreRefused)
{
    QString text = u"Name,Login,Password\n"_s;
    for (int i = 0; i < 1000; ++i) {
        text += u"user%1,login%1,x\n"_s.arg(i);
    }
    const QStringList shown = Plan(text);
    EXPECT_TRUE(shown[997].startsWith(u"new"_s));
    EXPECT_EQ(shown[998], u"refused: There are 1000 logins, and no more are taken"_s);
}

// A chain in which each row wants what the one before it has, and the first may not have what it wants.
TEST(ImportPlans, AHundredThousandRowsThatHangTogetherArePlannedInTime)
{
    constexpr int kRows = 100'000;
    const auto address = [](int i) {
        return u"11.%1.%2.%3"_s.arg(i >> 16).arg(i >> 8 & 255).arg(i & 255);
    };
    StoredUsers stored = Stored();
    QString text = u"Name,IP\n"_s;
    for (int i = 1; i <= kRows; ++i) {
        stored.users.push_back(
            User(100U + static_cast<quint32>(i), u"u%1"_s.arg(i), address(i), {}));
        text += u"u%1,%2\n"_s.arg(i).arg(i == kRows ? u"10.0.0.1"_s : address(i + 1));
    }
    const auto table = ReadImportTable(text.toUtf8());
    ASSERT_TRUE(table);
    QElapsedTimer timer;
    timer.start();
    const ImportPlan plan = PlanImport(*table, stored, {});
    EXPECT_EQ(plan.Count(ImportState::Refused), kRows);
    EXPECT_LT(timer.elapsed(), 20'000);
}
