// Who is meant by a name, a number or an address, and all groups with how many they hold.
#include "access/named_owners.h"

#include "access/group_list.h"
#include "support/core/engine_fixture.h"

using namespace Qt::StringLiterals;

namespace {

class NamedOwners : public EngineFixture
{
protected:
    void SetUp() override
    {
        EngineFixture::SetUp();
        Execute("INSERT INTO groups (name, descrip) VALUES ('Sales', 'ground floor')");
        Execute("INSERT INTO users (username, ip_addr, mac_addr, group_id) SELECT 'anna', "
                "'10.0.0.1', '001122334455', MAX(group_id) FROM groups");
        Execute("INSERT INTO users (username, ip_addr, monitored) VALUES ('anna', '10.0.0.2', "
                "false)");
        Execute("INSERT INTO users (username) VALUES ('10.0.0.1')");
    }

    static QString Shown(const Result<std::vector<FoundOwner>> &found)
    {
        QStringList owners;
        for (const FoundOwner &each : found.value_or(std::vector<FoundOwner>())) {
            owners << u"%1 %2 %3"_s.arg(each.number).arg(each.name, each.detail);
        }
        return owners.join(u", "_s);
    }
};
TB_ON_EVERY_ENGINE(NamedOwners);

} // namespace

TEST_P(NamedOwners, AreFoundByNameNumberAndAddress)
{
    const struct
    {
        QString text;
        QString found;
    } kCases[] = {
        {u"anna"_s, u"1 anna 10.0.0.1, 2 anna 10.0.0.2"_s},
        {u"#2"_s, u"2 anna 10.0.0.2"_s},
        {u"id:1"_s, u"1 anna 10.0.0.1"_s},
        {u"#77"_s, {}},
        {u"10.0.0.1"_s, u"1 anna 10.0.0.1, 3 10.0.0.1 "_s}, // an address and a name
        {u"00-11-22-33-44-55"_s, u"1 anna 10.0.0.1"_s},
        {u"nobody"_s, {}},
    };
    for (const auto &[text, found] : kCases) {
        EXPECT_EQ(Shown(UsersCalled(text)), found) << qPrintable(text);
    }
    EXPECT_TRUE(Shown(GroupsCalled(u" SALES"_s)).endsWith(u" Sales ground floor"_s));
}

TEST_P(NamedOwners, MayBeCalledAsANumberIsWritten)
{
    Execute("INSERT INTO users (username) VALUES ('#2')");
    Execute("INSERT INTO users (username) VALUES ('id:1')");
    Execute("INSERT INTO groups (name) VALUES ('#80')");
    EXPECT_EQ(Shown(UsersCalled(u"#2"_s)), u"2 anna 10.0.0.2, 4 #2 "_s);
    EXPECT_EQ(Shown(UsersCalled(u"id:1"_s)), u"1 anna 10.0.0.1, 5 id:1 "_s);
    EXPECT_EQ(Shown(UsersCalled(u"#4"_s)), u"4 #2 "_s);
    EXPECT_EQ(GroupsCalled(u"#80"_s).value().size(), 2U);
    EXPECT_EQ(GroupsCalled(u"#81"_s).value().size(), 1U);
}

TEST_P(NamedOwners, AreFoundInAnyLetterCase)
{
    for (const QString &name :
         {u"\u00c9t\u00e9_1"_s, u"\u00e4bcX1"_s, u"100%\u00df"_s, u"100!\u00df"_s}) {
        Execute("INSERT INTO users (username) VALUES ((?))", name);
    }
    EXPECT_EQ(Shown(UsersCalled(u"\u00e9T\u00c9_1"_s)), u"4 \u00c9t\u00e9_1 "_s);
    EXPECT_EQ(Shown(UsersCalled(u"\u00c4BCx1"_s)), u"5 \u00e4bcX1 "_s);
    EXPECT_EQ(Shown(UsersCalled(u"100%\u00df"_s)), u"6 100%\u00df "_s);
    EXPECT_EQ(Shown(UsersCalled(u"100!\u00df"_s)), u"7 100!\u00df "_s);
    EXPECT_EQ(Shown(UsersCalled(u"\u00e4%"_s)), QString());
    EXPECT_EQ(Shown(UsersCalled(u"\u00e4bc_1"_s)), QString());
}

TEST_P(NamedOwners, OfAGroupAreCounted)
{
    const auto groups = ReadAllGroups();
    ASSERT_TRUE(groups);
    QStringList counted;
    for (const CountedGroup &each : *groups) {
        counted << u"%1 %2"_s.arg(each.row.name).arg(each.members);
    }
    EXPECT_EQ(counted, QStringList({u"Everybody 2"_s, u"Sales 1"_s}));
}
