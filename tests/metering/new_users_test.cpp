// Which user a workstation becomes, or is.
#include "metering/new_users.h"

#include "support/core/engine_fixture.h"

using namespace Qt::StringLiterals;

namespace {

const char kUsers[] = "SELECT user_id, username, stationname, ip_addr, mac_addr FROM users "
                      "ORDER BY user_id";

class NewUsers : public EngineFixture
{
protected:
    StationsTaken Take(const std::vector<Station> &stations) const
    {
        const auto taken = TakeStations(stations, rules);
        EXPECT_TRUE(taken) << (taken ? "" : qPrintable(taken.error().text));
        return taken.value_or(StationsTaken());
    }

    StationRules rules;
};

} // namespace

TB_ON_EVERY_ENGINE(NewUsers);

TEST_P(NewUsers, GetTheDefaultProfile)
{
    rules.profile = {AccountingMode::TrafficAndTime, 500, 40, LimitPeriod::Day, true, true};
    EXPECT_EQ(Take({{u"10.0.0.1"_s, u"0A1B2C3D4E5F"_s, u"desk"_s}}).made, QList {UserId {1}});
    EXPECT_EQ(RowsOf(kUsers), QStringList {u"1|desk|desk|10.0.0.1|0A1B2C3D4E5F"_s});
    EXPECT_EQ(RowsOf("SELECT group_id, mode, traflim, timelim, trafperiod, timeperiod, blocked, "
                     "blockreason, authreq, monitored FROM users"),
              QStringList {u"80|5|500|40|1|1|1|3|1|1"_s});
}

TEST_P(NewUsers, OfAProfileWithoutMeaningAreNotControlled)
{
    rules.profile.mode = static_cast<AccountingMode>(77);
    rules.profile.period = LimitPeriod::None;
    Take({{u"10.0.0.1"_s, {}, {}}});
    EXPECT_EQ(RowsOf("SELECT mode, trafperiod, blocked, blockreason FROM users"),
              QStringList {u"0|2|0|0"_s});
}

TEST_P(NewUsers, AreNamedAsTheStationOrElseAsTheAddress)
{
    Take({{u"10.0.0.1"_s, {}, {}},
          {u"10.0.0.2"_s, {}, u"desk"_s},
          {u"10.0.0.3"_s, {}, u"desk"_s},
          {u"10.0.0.4"_s, {}, u" O'Neil\n\"; DROP\t"_s},
          {u"10.0.0.5"_s, {}, QString(300, u'x')}});
    const QStringList names = RowsOf("SELECT username FROM users ORDER BY user_id");
    EXPECT_EQ(names.mid(0, 4),
              (QStringList {u"10.0.0.1"_s, u"desk"_s, u"10.0.0.3"_s, u"O'Neil\"; DROP"_s}));
    EXPECT_EQ(names.last().size(), 254);
}

TEST_P(NewUsers, AreMadeOnce)
{
    const std::vector<Station> stations {{u"10.0.0.1"_s, {}, {}}, {u"10.0.0.1"_s, {}, {}}, {}};
    EXPECT_EQ(Take(stations).made.size(), 1);
    EXPECT_EQ(Take(stations).made.size(), 0);
    Execute("UPDATE users SET monitored = false");
    EXPECT_EQ(Take(stations).made.size(), 0);
}

TEST_P(NewUsers, AreCompletedWhenMoreBecomesKnown)
{
    Take({{u"10.0.0.1"_s, {}, {}}});
    EXPECT_EQ(Take({{u"10.0.0.1"_s, u"0A1B2C3D4E5F"_s, u"desk"_s}}).completed, QList {UserId {1}});
    EXPECT_EQ(RowsOf(kUsers), QStringList {u"1|desk|desk|10.0.0.1|0A1B2C3D4E5F"_s});
    Execute("UPDATE users SET username = 'Anna'");
    EXPECT_TRUE(Take({{u"10.0.0.1"_s, u"0A1B2C3D4E5F"_s, u"other"_s}}).completed.isEmpty());
    EXPECT_EQ(RowsOf(kUsers), QStringList {u"1|Anna|desk|10.0.0.1|0A1B2C3D4E5F"_s});
}

TEST_P(NewUsers, AreNotMadeOfAnAddressThatIsWrittenInAnotherWay)
{
    Execute("INSERT INTO users (username, ip_addr) VALUES ('anna', 'FD00::A')");
    for (const Identification identification : {Identification::ByIp, Identification::ByMac}) {
        Execute("UPDATE users SET mac_addr = ''");
        rules.identification = identification;
        const StationsTaken taken = Take({{u"fd00::a"_s, u"0A1B2C3D4E5F"_s, {}, UserId {1}}});
        EXPECT_TRUE(taken.made.isEmpty() && taken.moved.isEmpty());
        EXPECT_EQ(RowsOf(kUsers), QStringList {u"1|anna||FD00::A|0A1B2C3D4E5F"_s});
    }
}

// Whom the service knew under the address may have another one by now.
TEST_P(NewUsers, HaveTheAddressThatNobodyHasAnyMore)
{
    Execute("INSERT INTO users (username, ip_addr) VALUES ('anna', '10.0.0.2')");
    EXPECT_EQ(Take({{u"10.0.0.1"_s, {}, {}, UserId {1}}}).made, QList {UserId {2}});
}

// A table of what becomes of two users when a station turns up.
TEST_P(NewUsers, AnAddressFollowsTheIdentification)
{
    struct Case
    {
        const char *what;
        Identification identification;
        bool keepsAddresses;
        Station station;
        QStringList users; // ip and hardware address
    };
    const QString one = u"1|10.0.0.1|AA"_s;
    const QString two = u"2|10.0.0.2|"_s;
    using enum Identification;
    const Case cases[] = {
        {"another station at the address",
         ByIp,
         false,
         {u"10.0.0.1"_s, u"BB"_s, {}},
         {u"1|10.0.0.1|BB"_s, two}},
        {"the same, refused", ByIp, true, {u"10.0.0.1"_s, u"BB"_s, {}}, {one, two}},
        {"the station at another address",
         ByIp,
         false,
         {u"10.0.0.9"_s, u"AA"_s, {}},
         {one, two, u"3|10.0.0.9|AA"_s}},
        {"the station at a free address",
         ByMac,
         false,
         {u"10.0.0.9"_s, u"AA"_s, {}},
         {u"1|10.0.0.9|AA"_s, two}},
        {"the same, refused", ByMac, true, {u"10.0.0.9"_s, u"AA"_s, {}}, {one, two}},
        {"the station at somebody's address",
         ByMac,
         false,
         {u"10.0.0.2"_s, u"AA"_s, {}},
         {u"1|10.0.0.2|AA"_s, u"2||"_s}},
        {"an unknown station at the address",
         ByMac,
         false,
         {u"10.0.0.1"_s, u"BB"_s, {}},
         {u"1||AA"_s, two, u"3|10.0.0.1|BB"_s}},
        {"the same, refused", ByMac, true, {u"10.0.0.1"_s, u"BB"_s, {}}, {one, two}},
        {"an address whose station was not known",
         ByMac,
         true,
         {u"10.0.0.2"_s, u"BB"_s, {}},
         {one, u"2|10.0.0.2|BB"_s}},
        {"a station that is not known", ByMac, false, {u"10.0.0.1"_s, {}, {}}, {one, two}},
    };
    for (const Case &each : cases) {
        RunBeside("DELETE FROM users");
        Execute(
            "INSERT INTO users (username, ip_addr, mac_addr) VALUES ('anna', '10.0.0.1', 'AA')");
        Execute("INSERT INTO users (username, ip_addr) VALUES ('bert', '10.0.0.2')");
        rules.identification = each.identification;
        rules.keepsAddresses = each.keepsAddresses;
        Take({each.station});
        QStringList users = RowsOf("SELECT ip_addr, mac_addr FROM users ORDER BY user_id");
        for (qsizetype i = 0; i < users.size(); ++i) {
            users[i].prepend(u"%1|"_s.arg(i + 1));
        }
        EXPECT_EQ(users, each.users) << each.what;
    }
}
