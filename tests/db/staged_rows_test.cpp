// Thousands of rows as one value of a statement, on every engine.
#include "db/staged_rows.h"

#include "db/query.h"
#include "support/core/engine_fixture.h"

using namespace Qt::StringLiterals;

namespace {

class StagedRowsRead : public EngineFixture
{
protected:
    static QStringList TextsOf(const StagedRows &rows)
    {
        const auto read = ReadAll(
            "SELECT k, n1, n2, n3, n4, t, u, v FROM STAGED (?) AS_ROWS s ORDER BY k",
            [](const Row &row) {
                QStringList values;
                for (int column = 1; column <= 8; ++column) {
                    values << (row.IsEmpty(column) ? u"-"_s : row.Text(column));
                    bool isNumber = false;
                    const double number = values.last().toDouble(&isNumber);
                    if (isNumber && column < 6) {
                        values.last() = QString::number(number, 'g', 15);
                    }
                }
                return values.join(u'|');
            },
            rows);
        EXPECT_TRUE(read) << (read ? "" : qPrintable(read.error().text));
        return read ? QStringList(read->begin(), read->end()) : QStringList();
    }
};

} // namespace

TB_ON_EVERY_ENGINE(StagedRowsRead);

TEST_P(StagedRowsRead, GiveNumbersAndTextsAsTheyWereHandedIn)
{
    StagedRows rows;
    rows.Add(7);
    rows.Add(8, {0.25, -3});
    rows.Add(
        9, {900719925474099.0, 1e-9, 0, 4}, {u"fd00::1"_s, u"18446744073709551615"_s, u"gate"_s});
    rows.Add(10, {}, {u"O'Neil \"\u00e9\U0001F600\\"_s});
    rows.Add(11, {1}, {{}, u"x"_s});
    EXPECT_EQ(TextsOf(rows),
              (QStringList {u"7|-|-|-|-|-|-|-"_s,
                            u"8|0.25|-3|-|-|-|-|-"_s,
                            u"9|900719925474099|1e-09|0|4|fd00::1|18446744073709551615|gate"_s,
                            u"10|-|-|-|-|O'Neil \"\u00e9\U0001F600\\|-|-"_s,
                            u"11|1|-|-|-|-|x|-"_s}));
}

TEST_P(StagedRowsRead, AreNoneAtAll)
{
    EXPECT_EQ(TextsOf({}), QStringList());
}

TEST_P(StagedRowsRead, KeysAreStoredAsIdsAre)
{
    StagedRows rows;
    rows.Add(4294967295U);
    EXPECT_EQ(TextsOf(rows), QStringList {u"-1|-|-|-|-|-|-|-"_s});
}

TEST_P(StagedRowsRead, ChangeThousandsOfRowsByOneStatement)
{
    constexpr int kMany = 3000;
    StagedRows added;
    StagedRows changed;
    for (quint32 id = 1; id <= kMany; ++id) {
        added.Add(id, {static_cast<double>(id) * 3});
        changed.Add(id, {1.0, 2.0});
    }
    Execute("INSERT INTO traffic_use (user_id, period, data) "
            "SELECT s.k, 0, s.n1 / 1048576.0 FROM STAGED (?) AS_ROWS s",
            added);
    Execute(
        "UPDATE traffic_use SET data = traffic_use.data + s.n1 / 1048576.0, senddata = s.n2 "
        "FROM STAGED (?) AS_ROWS s WHERE traffic_use.user_id = s.k and traffic_use.user_id > (?)",
        changed,
        1U);
    EXPECT_FALSE(LastFailure());
    EXPECT_EQ(RowsOf("SELECT COUNT(*) FROM traffic_use WHERE senddata = 2 AND "
                     "data * 1048576 = user_id * 3 + 1"),
              QStringList {QString::number(kMany - 1)});
    EXPECT_EQ(RowsOf("SELECT COUNT(*) FROM traffic_use WHERE senddata = 0"), QStringList {u"1"_s});
}
