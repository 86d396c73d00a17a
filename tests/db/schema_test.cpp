#include "db/schema.h"

#include "support/core/engine_fixture.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

class Schema : public EngineFixture
{ };
TB_ON_EVERY_ENGINE(Schema);

TEST_P(Schema, StartsWithEverybodyAndTheKnownProtocols)
{
    EXPECT_EQ(RowsOf("SELECT group_id, name FROM groups"), QStringList {u"80|Everybody"_s});
    const QStringList ports =
        RowsOf("SELECT proto_name, port_number, mon FROM Protocols, Ports "
               "WHERE Ports.proto_id = Protocols.id ORDER BY proto_name, port_number");
    EXPECT_THAT(ports, testing::IsSupersetOf({u"HTTP|80|1"_s, u"HTTP|8080|1"_s, u"FTP|21|1"_s}));
}

TEST_P(Schema, RefusesADatabaseThatHasOne)
{
    Execute("INSERT INTO groups (name) VALUES (?)", u"Kept"_s);
    const QStringList before = EveryRow();
    const auto problem = CreateSchema(Dsn());
    ASSERT_TRUE(problem);
    EXPECT_TRUE(problem->contains(u"already has a table \"groups\""_s)) << qPrintable(*problem);
    EXPECT_EQ(EveryRow(), before);
}

TEST_P(Schema, NumbersNewGroupsBehindEverybody)
{
    Execute("INSERT INTO groups (name) VALUES (?)", u"New"_s);
    EXPECT_EQ(RowsOf("SELECT group_id FROM groups WHERE name = 'New'"), QStringList {u"81"_s});
}

TEST_P(Schema, IsFreshForEachTest)
{
    Execute("INSERT INTO users (username) VALUES (?)", u"Zo\u00eb \U0001F600"_s);
    EXPECT_EQ(RowsOf("SELECT user_id, username, group_id, monitored FROM users"),
              QStringList {u"1|Zo\u00eb \U0001F600|80|1"_s});
}

TEST_P(Schema, IsFreshForEachTestAgain)
{
    EXPECT_EQ(RowsOf("SELECT user_id FROM users"), QStringList());
}

} // namespace
