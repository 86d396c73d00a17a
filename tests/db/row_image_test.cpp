// Whole rows, whatever their columns: more than the session's own buffer holds, longer than it, NULL.
#include "db/row_image.h"

#include "db/session.h"
#include "support/core/engine_fixture.h"
#include "support/core/faulty_driver.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

constexpr RowSet kUser {"users", "user_id", 1, "user_id"};
constexpr RowSet kMembers {"users", "group_id", 80, "user_id"};

QString ValueOf(const RowImage &image, const QString &column)
{
    EXPECT_TRUE(image.columns.contains(column)) << qPrintable(column);
    return ValuesOf(image).value(image.columns.indexOf(column));
}

class RowImages : public EngineFixture
{
protected:
    void SetUp() override
    {
        EngineFixture::SetUp();
        Execute("INSERT INTO users (user_id, username, fullname, group_id, trafprice, traflim) "
                "VALUES (2, (?), (?), 80, 0.1, 7)",
                u"\u20ac"_s.repeated(84) + u"xy"_s,
                u"O'Neil \u0141ukasz"_s);
        Execute("INSERT INTO users (user_id, username, group_id) VALUES (1, 'anna', 80)");
        Execute("INSERT INTO users (user_id, username, group_id) VALUES (3, 'ben', 81)");
    }
};
TB_ON_EVERY_ENGINE(RowImages);

TEST_P(RowImages, HoldEveryColumnOfEveryRowInTheOrderOfTheKeys)
{
    const auto images = ReadImages(kMembers, false).value();
    ASSERT_THAT(images, SizeIs(2));
    EXPECT_EQ(images[0].key, u"1"_s);
    EXPECT_EQ(images[1].key, u"2"_s);
    EXPECT_GT(images[1].columns.size(), QueryResult::kColumns);
    EXPECT_EQ(images[1].columns.size(), ValuesOf(images[1]).size());
    EXPECT_EQ(ValueOf(images[1], u"username"_s), u"\u20ac"_s.repeated(84) + u"xy"_s);
    EXPECT_EQ(ValueOf(images[1], u"fullname"_s), u"O'Neil \u0141ukasz"_s);
    EXPECT_EQ(ValueOf(images[1], u"trafprice"_s).toDouble(), 0.1);
    EXPECT_EQ(ValueOf(images[1], u"traflim"_s), u"7"_s);
    EXPECT_EQ(ValueOf(images[0], u"username"_s), u"anna"_s);
}

// A command on a million users holds two of each: one text for all its values, and the names shared.
TEST_P(RowImages, TakeLittleRoom)
{
    const auto images = ReadImages(kMembers, false).value();
    ASSERT_THAT(images, SizeIs(2));
    EXPECT_LT(images[0].packed.capacity(), 300);
    EXPECT_EQ(images[0].columns.constData(), images[1].columns.constData());
}

// The columns behind the buffer are those that a test of the first ones does not see.
TEST_P(RowImages, TellEveryColumnsChange)
{
    const auto columns = ReadImages(kUser, false).value().at(0).columns;
    for (const QString &column : columns) {
        if (column == u"user_id"_s) {
            continue;
        }
        const auto before = ReadImages(kUser, false).value();
        RunBeside(
            ("UPDATE users SET `" + column.toStdString() + "` = '9' WHERE user_id = 1").c_str());
        const auto after = ReadImages(kUser, false).value();
        ASSERT_THAT(after, SizeIs(1));
        EXPECT_NE(before, after) << qPrintable(column);
        EXPECT_NE(ValueOf(before[0], column), ValueOf(after[0], column)) << qPrintable(column);
    }
}

TEST_P(RowImages, ReadNullAsEmptyAlsoBehindAValue)
{
    Execute("INSERT INTO billing (mode, object_id, data) VALUES (2, 5, 3.5)");
    Execute("INSERT INTO billing (mode, object_id, unlimited) VALUES (2, 5, 1)");
    const auto images = ReadImages({"billing", "object_id", 5, "bill_id"}, false).value();
    ASSERT_THAT(images, SizeIs(2));
    EXPECT_EQ(ValueOf(images[0], u"data"_s).toDouble(), 3.5);
    EXPECT_EQ(ValueOf(images[1], u"data"_s), QString());
}

TEST_P(RowImages, AreNoneWhereThereIsNoRow)
{
    EXPECT_THAT(ReadImages({"users", "user_id", 99, "user_id"}, false).value(), IsEmpty());
}

TEST_P(RowImages, KeepOthersFromTheirRows)
{
    ASSERT_TRUE(BeginTransaction());
    ASSERT_THAT(ReadImages(kUser, true).value(), SizeIs(1));
    DirectConnection other;
    ASSERT_TRUE(other.Open(Dsn()));
    const QString impatient = Engine() == u"postgresql"_s ? u"SET lock_timeout = 50"_s
        : Engine() == u"mariadb"_s                        ? u"SET innodb_lock_wait_timeout = 1"_s
                                                          : u"PRAGMA busy_timeout = 1"_s;
    ASSERT_TRUE(other.Run(impatient));
    if (Engine() != u"sqlite"_s) { // its driver waits five seconds whatever it is told
        EXPECT_FALSE(other.Run(u"UPDATE users SET mode = 1 WHERE user_id = 1"_s));
        EXPECT_TRUE(other.Run(u"UPDATE users SET mode = 1 WHERE user_id = 3"_s));
    }
    RollbackTransaction();
    EXPECT_TRUE(other.Run(u"UPDATE users SET mode = 1 WHERE user_id = 1"_s));
}

TEST_P(RowImages, TellWhyTheyCouldNotBeRead)
{
    FaultyDriver driver(Dsn());
    driver.Refuse(1);
    const auto images = ReadImages(kUser, false);
    ASSERT_FALSE(images);
    EXPECT_EQ(images.error().kind, Failure::Kind::Refused);
    EXPECT_TRUE(images.error().statement.startsWith(u"SELECT * FROM users"_s));
}

} // namespace
