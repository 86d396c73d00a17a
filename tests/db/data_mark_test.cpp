// Whether others have written, told without a look at the rows, on every engine.
#include "db/data_mark.h"

#include "support/core/engine_fixture.h"

using namespace Qt::StringLiterals;

namespace {

class DataMarks : public EngineFixture
{
protected:
    void SetUp() override
    {
        EngineFixture::SetUp();
        Execute("INSERT INTO service_gateways (gateway, generation, instance, seen) "
                "VALUES ('here', '1', 'machine', '')");
        Execute("INSERT INTO users (user_id, username) VALUES (1, 'anna')");
        ASSERT_EQ(LastFailure(), std::nullopt);
    }

    static DataMark Mark()
    {
        const auto mark = ReadDataMark();
        EXPECT_TRUE(mark) << (mark ? "" : qPrintable(mark.error().text));
        return mark.value_or(DataMark());
    }

    // An engine that tells whole seconds is sure of what it tells when those are over.
    static DataMark MarkAtRest()
    {
        DataMark mark;
        EXPECT_TRUE(IsTrueInTime([&mark] {
            mark = Mark();
            return mark.rests;
        }));
        return mark;
    }

    // The same mark after so many writes of the session's own, unless others' transactions at the
    // same server came between: then once again.
    static bool StaysThrough(int ownWrites)
    {
        return IsTrueInTime([ownWrites] {
            const DataMark before = MarkAtRest();
            for (int i = 0; i < ownWrites; ++i) {
                TellOfOneself();
            }
            return IsSameData(before, Mark(), ownWrites);
        });
    }

    static void TellOfOneself()
    {
        Execute("UPDATE service_gateways SET seen = 'now' WHERE gateway = 'here'");
        ASSERT_EQ(LastFailure(), std::nullopt);
    }
};

} // namespace

TB_ON_EVERY_ENGINE(DataMarks);

TEST_P(DataMarks, StayWithReadingAndWithWhatTheSessionTellsOfItself)
{
    for (const int ownWrites : {0, 1, 2}) {
        EXPECT_TRUE(StaysThrough(ownWrites)) << ownWrites;
    }
    EXPECT_TRUE(IsTrueInTime([] {
        const DataMark before = MarkAtRest();
        EXPECT_EQ(RowsOf("SELECT user_id FROM users"), QStringList {u"1"_s});
        return IsSameData(before, Mark(), 0);
    }));
}

TEST_P(DataMarks, ChangeWithEachWriteOfAnotherConnection)
{
    for (const char *statement : {"UPDATE users SET blocked = true WHERE user_id = 1",
                                  "INSERT INTO groups (group_id) VALUES (7)",
                                  "INSERT INTO billing (object_id, data) VALUES (1, 5)",
                                  "DELETE FROM ports"}) {
        const DataMark before = MarkAtRest();
        RunBeside(statement);
        TellOfOneself();
        EXPECT_FALSE(IsSameData(before, Mark(), 1)) << statement;
    }
}

// Begun before the mark, kept after it: the rows that were read in between do not have it.
TEST_P(DataMarks, ChangeWithWhatWasBegunEarlier)
{
    MarkAtRest();
    DirectConnection other;
    ASSERT_TRUE(other.Open(Dsn()) && other.Begin()
                && other.Run(u"UPDATE users SET blocked = 1 WHERE user_id = 1"_s));
    const DataMark before = Mark();
    EXPECT_TRUE(other.Commit()) << qPrintable(other.Error());
    EXPECT_FALSE(IsSameData(before, Mark(), 0));
}

TEST_P(DataMarks, OfAnotherConnectionAreNoneToCompareWith)
{
    const DataMark before = MarkAtRest();
    DisconnectDatabase();
    ASSERT_EQ(ConnectDatabase(Dsn().toUtf8().constData()), 1);
    EXPECT_FALSE(IsSameData(before, MarkAtRest(), 0));
    EXPECT_FALSE(IsSameData(DataMark(), Mark(), 0));
}
