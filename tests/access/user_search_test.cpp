// What a filter finds, on every engine.
#include "access/user_search.h"

#include "db/session.h"
#include "support/core/engine_fixture.h"
#include "support/core/print_text.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct Person
{
    QString name;
    QString fullName = {};
    QString station = {};
    QString description = {};
    QString address = {};
    QString hardware = {};
    quint32 group = 80;
    quint32 mode = 0;
    quint32 blocked = 0;
    quint32 reason = 0;
    quint32 monitored = 1;
};

class UserSearch : public EngineFixture
{
protected:
    void SetUp() override
    {
        EngineFixture::SetUp();
        Execute("INSERT INTO groups (group_id, name) VALUES (81, 'Night shift')");
        Execute("INSERT INTO groups (group_id, name) VALUES (82, 'Sales')");
        Add({.name = u"anna"_s,
             .fullName = u"Anna Berg"_s,
             .station = u"PC-1"_s,
             .address = u"10.1.2.5"_s,
             .hardware = u"00163EAABBCC"_s,
             .mode = 2});
        Add({.name = u"bert"_s,
             .fullName = u"Bert Anna Cole"_s,
             .description = u"Room 4_2"_s,
             .address = u"10.1.2.10"_s,
             .group = 82,
             .mode = 1,
             .blocked = 1,
             .reason = 1});
        Add({.name = u"carl"_s,
             .fullName = u"Zo\u00eb Carl"_s,
             .description = u"100% remote"_s,
             .address = u"10.1.20.5"_s,
             .group = 81,
             .mode = 5,
             .blocked = 1,
             .reason = 3});
        Add({.name = u"dora"_s,
             .station = u"PC!1"_s,
             .address = u"none"_s,
             .blocked = 1,
             .reason = 4});
        Add({.name = u"eve"_s, .address = u"fe80::1:2"_s, .hardware = u"102030405060"_s});
        Add({.name = u"nr1234"_s});
        Add({.name = u"annabel"_s, .address = u"10.1.2.7"_s, .monitored = 0});
        Add({.name = u"annagone"_s, .address = u"10.1.2.8"_s, .group = 0});
        Execute("INSERT INTO logins (login, userid) VALUES ('nightowl', 4)");
    }

    static void Add(const Person &person)
    {
        Execute("INSERT INTO users (username, fullname, stationname, descrip, ip_addr, mac_addr, "
                "group_id, mode, blocked, blockreason, monitored) VALUES ((?), (?), (?), (?), (?), "
                "(?), (?), (?), (?), (?), (?))",
                person.name,
                person.fullName,
                person.station,
                person.description,
                person.address,
                person.hardware,
                person.group,
                person.mode,
                person.blocked,
                person.reason,
                person.monitored);
    }

    static QString NamesOf(const Result<UserList> &list)
    {
        if (!list) {
            return list.error().text;
        }
        QStringList names;
        for (const UserRow &row : list->rows) {
            names << row.userName;
        }
        return names.join(u' ');
    }

    static QString Find(const QString &typed, ListOrder order = {})
    {
        return NamesOf(FindUsers(UserFilterFrom(typed).value(), order, false));
    }

    static QString FindQuickly(const QString &typed)
    {
        return NamesOf(FindUsersQuickly(UserFilterFrom(typed).value(), {}, false));
    }
};

TB_ON_EVERY_ENGINE(UserSearch);

} // namespace

TEST_P(UserSearch, FindsWhatIsTyped)
{
    const std::pair<QString, QString> cases[] = {
        {u"anna"_s, u"anna bert"_s}, // neither the unmonitored one nor the one without a group
        {u"ANNA"_s, u"anna bert"_s},
        {u"anna cole"_s, u"bert"_s},
        {u"\"anna berg\""_s, u"anna"_s},
        {u"\"berg anna\""_s, u""_s},
        {u"pc"_s, u"anna dora"_s},
        {u"room"_s, u"bert"_s},
        {u"zo\u00eb"_s, u"carl"_s},
        {u"zoe"_s, u""_s},
        {u"%"_s, u"carl"_s}, // what means something in a pattern means itself
        {u"4_2"_s, u"bert"_s},
        {u"a_n"_s, u""_s},
        {u"c!1"_s, u"dora"_s},
        {u"'"_s, u""_s},
        {u"10.1.2"_s, u"anna bert carl"_s},
        {u"2.10"_s, u"bert"_s},
        {u"00163eaa"_s, u"anna"_s},
        {u"00-16-3e"_s, u"anna"_s},
        {u"3E:aa:bb:C"_s, u"anna"_s},
        {u"0016.3eaa.bb"_s, u"anna"_s},
        {u"00163e-aabbcc"_s, u"anna"_s},
        {u"163e/aabb"_s, u"anna"_s},
        {u"00/16/3e/a"_s, u"anna"_s},
        {u"00_16_3E"_s, u"anna"_s},
        {u"00.16.3e"_s, u"anna"_s}, // no part of an IP address begins so
        {u"10.20.30"_s, u""_s}, // but this one does: eve's hardware address is not meant
        {u"10.20.30.40.50.60"_s, u"eve"_s},
        {u"00 16 3e"_s, u"anna"_s},
        {u"10 20 30 40 50 60"_s, u"eve"_s},
        {u"0016 3EAA bb"_s, u"anna"_s},
        {u"00163e aa"_s, u"anna"_s},
        {u"an 3e aa"_s, u"anna"_s}, // words beside it narrow as ever
        {u"carl 3e aa"_s, u""_s},
        {u"eve 10 20"_s, u"eve"_s},
        {u"\"16\" \"3e\""_s, u""_s},
        {u"3e bb"_s, u""_s}, // they do not follow one another
        {u"be be"_s, u"anna bert"_s}, // words that are digits, too, are words
        {u"12 34"_s, u"nr1234"_s},
        {u"fe80"_s, u"eve"_s},
        {u"FE80:"_s, u"eve"_s},
        {u"::1"_s, u"eve"_s},
        {u"fe80::1:2"_s, u"eve"_s},
        {u"80::1:2:"_s, u""_s},
        {u"night"_s, u"carl dora"_s}, // a group's name and a login
        {u"sales anna"_s, u"bert"_s},
        {u"group:sal"_s, u"bert"_s},
        {u"group:\"sal\""_s, u""_s},
        {u"group:\"night SHIFT\""_s, u"carl"_s},
        {u"group:%"_s, u""_s},
        {u"blocked"_s, u"bert carl"_s},
        {u"over"_s, u"bert"_s},
        {u"blocked anna"_s, u"bert"_s},
        {u"mode:traffic"_s, u"bert"_s},
        {u"mode:corporate"_s, u"bert carl"_s},
        {u"mode:provider blocked"_s, u""_s},
        {u"10.1.2.0/24"_s, u"anna bert"_s},
        {u"10.1.2.6-10.1.20.5"_s, u"bert carl"_s},
        {u"10.1.2.5-10.1.2.9"_s, u"anna"_s},
        {u"0.0.0.0/0"_s, u"anna bert carl"_s}, // who has an address at all
        {u"10.1.0.0/16 carl"_s, u"carl"_s},
        {u"nobody"_s, u""_s},
        {u"a b c d e f"_s, u""_s},
    };
    for (const auto &[typed, names] : cases) {
        EXPECT_EQ(Find(typed), names) << qPrintable(typed);
        const auto count = CountFoundUsers(UserFilterFrom(typed).value());
        EXPECT_EQ(count.value(), names.isEmpty() ? 0U : quint32(names.count(u' ')) + 1)
            << qPrintable(typed);
    }
}

// Of what the whole search finds, and nothing else.
TEST_P(UserSearch, FindsBeginningsQuickly)
{
    const std::pair<QString, QString> cases[] = {
        {u"an"_s, u"anna"_s},
        {u"AN"_s, u"anna"_s},
        {u"bert c"_s, u"bert"_s},
        {u"zo\u00eb"_s, u"carl"_s},
        {u"pc-"_s, u"anna"_s},
        {u"10.1.2."_s, u"anna bert"_s},
        {u"00-16-3e"_s, u"anna"_s},
        {u"nighto"_s, u"dora"_s},
        {u"00 16 3e aa"_s, u"anna"_s},
        {u"0016-3e"_s, u"anna"_s},
        {u"fe80:"_s, u"eve"_s},
        {u"berg"_s, u""_s}, // in the middle of the name
        {u"an over"_s, u""_s},
    };
    for (const auto &[typed, names] : cases) {
        EXPECT_EQ(FindQuickly(typed), names) << qPrintable(typed);
    }
    EXPECT_TRUE(HasQuickSearch(*UserFilterFrom(u"an over"_s)));
    EXPECT_FALSE(HasQuickSearch(*UserFilterFrom(u"over"_s)));
}

TEST_P(UserSearch, FindsLettersOfEveryAlphabet)
{
    Execute("INSERT INTO groups (group_id, name) VALUES (83, (?))", u"\u00c4rzte"_s);
    Add({.name = u"eva"_s,
         .fullName = u"\u0415\u0432\u0430 \u0418\u0432\u0430\u043d\u043e\u0432\u0430"_s,
         .group = 83});
    Execute("INSERT INTO logins (login, userid) VALUES ((?), 1)", u"b\u00e4r"_s);
    const std::pair<QString, QString> cases[] = {
        {u"o\u00eb c"_s, u"carl"_s}, // with words of plain letters
        {u"ZO\u00eb"_s, u"carl"_s},
        {u"zO\u00cb"_s, u"carl"_s},
        {u"\u0432\u0430"_s, u"eva"_s},
        {u"\u0435\u0412\u0410"_s, u"eva"_s},
        {u"\"\u0435\u0432\u0430 \u0418\u0412\""_s, u"eva"_s}, // two words as one text
        {u"\u00c4RZ"_s, u"eva"_s}, // a group
        {u"group:\u00e4rz"_s, u"eva"_s},
        {u"group:\"\u00c4rzte\""_s, u"eva"_s},
        {u"\u00e4R"_s, u"anna eva"_s}, // a login, and a group
        {u"\u00fc"_s, u""_s},
        {u"\u00e4\u0435\u0430 \u00e4 \u00e4\u00e4 \u0435\u0435 \u0430\u0435 \u0430"_s,
         u""_s}, // the most words
    };
    for (const auto &[typed, names] : cases) {
        EXPECT_EQ(Find(typed), names) << qPrintable(typed);
    }
    EXPECT_EQ(FindQuickly(u"ZO\u00cb"_s), u"carl"_s);
}

TEST_P(UserSearch, KeepsTheListsOrderAndColumns)
{
    const std::tuple<int, bool, QString> orders[] = {
        {user_order::kUserName, false, u"carl bert anna"_s},
        {user_order::kFullName, true, u"anna bert carl"_s},
        {user_order::kIpAddress, false, u"carl anna bert"_s}, // as texts
    };
    for (const auto &[column, ascending, names] : orders) {
        EXPECT_EQ(Find(u"10.1"_s, {column, ascending}), names);
    }
    const UserList list = FindUsers(*UserFilterFrom(u"over"_s), {}, true).value();
    ASSERT_EQ(list.rows.size(), 1);
    EXPECT_EQ(list.rowUserIds, QList {UserId {2}});
    EXPECT_EQ(list.rows.front().fullName, u"Bert Anna Cole"_s);
    EXPECT_EQ(list.rows.front().groupName, u"Sales"_s);
    EXPECT_EQ(list.rows.front().access, AccessState::Blocked);
}

TEST_P(UserSearch, GivesEveryRowBeyondTheListsCapacity)
{
    for (int row = 0; row < 1100; ++row) {
        Add({.name = u"many%1"_s.arg(row, 4, 10, QChar(u'0')), .group = 82});
    }
    const UserFilter filter = UserFilterFrom(u"many group:sales"_s).value();
    EXPECT_EQ(FindUsers(filter, {}, false)->rows.size(), kUserListCapacity);
    EXPECT_EQ(CountFoundUsers(filter), 1100U);
    const auto ids = FindUserIds(filter, {user_order::kUserName, false});
    ASSERT_EQ(ids->size(), 1100U);
    EXPECT_EQ(ids->front(), FindUsers(*UserFilterFrom(u"many1099"_s), {}, false)->rowUserIds[0]);
    EXPECT_EQ(FindUserIds({}, {})->size(), 1106U) << "neither unmonitored nor without a group";
    QStringList names;
    const auto failure = ForEachFoundUser(
        filter,
        {},
        [&names] { names.clear(); },
        [&names](const UserRow &row, UserId) {
            EXPECT_EQ(row.groupName, u"Sales"_s);
            names << row.userName;
            return true;
        });
    EXPECT_FALSE(failure);
    EXPECT_EQ(names.size(), 1100);
    EXPECT_EQ(names.back(), u"many1099"_s);
    EXPECT_TRUE(std::ranges::is_sorted(names));
}

TEST_P(UserSearch, TellsWhatCouldNotBeRead)
{
    Execute("ALTER TABLE logins RENAME TO elsewhere");
    const UserFilter filter = UserFilterFrom(u"anna"_s).value();
    EXPECT_FALSE(FindUsers(filter, {}, false).has_value());
    EXPECT_FALSE(FindUsersQuickly(filter, {}, false).has_value());
    EXPECT_FALSE(CountFoundUsers(filter).has_value());
    EXPECT_FALSE(FindUserIds(filter, {}).has_value());
    Execute("ALTER TABLE elsewhere RENAME TO logins");
}
