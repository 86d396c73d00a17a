// What the program takes the tables for is what each engine has.
#include "db/table_shape.h"

#include "db/row_block.h"
#include "db/schema.h"
#include "db/schema_scripts.h"
#include "support/core/engine_fixture.h"

#include <map>

using namespace Qt::StringLiterals;

namespace {

class TableShapesOf : public EngineFixture
{ };
TB_ON_EVERY_ENGINE(TableShapesOf);

// Column by column, with the kinds in the engine's words.
const std::map<QString, std::pair<const char *, QStringList>> kCatalogue {
    {u"sqlite"_s,
     {"SELECT p.name, p.type FROM pragma_table_info('%1') p ORDER BY p.cid",
      {u"INTEGER SMALLINT"_s, u"DOUBLE"_s, u"VARCHAR"_s, u"DATE"_s, u"DATETIME"_s}}},
    {u"postgresql"_s,
     {"SELECT column_name, data_type FROM information_schema.columns WHERE table_schema = 'public' "
      "AND table_name = '%1' ORDER BY ordinal_position",
      {u"integer smallint"_s,
       u"double precision"_s,
       u"character varying"_s,
       u"date"_s,
       u"timestamp without time zone"_s}}},
    {u"mariadb"_s,
     {"SELECT column_name, data_type FROM information_schema.columns "
      "WHERE table_schema = DATABASE() AND table_name = '%1' ORDER BY ordinal_position",
      {u"int smallint"_s, u"double"_s, u"varchar"_s, u"date"_s, u"datetime"_s}}}};

TEST_P(TableShapesOf, AreThoseOfTheEngine)
{
    QStringList tables;
    DirectConnection database;
    ASSERT_TRUE(database.Open(Dsn()));
    const auto &[query, types] = kCatalogue.at(Engine());
    for (const TableShape &shape : TableShapes(NewestSchema())) {
        tables << shape.name;
        const auto columns = database.Rows(QString::fromLatin1(query).arg(shape.name));
        ASSERT_TRUE(columns) << qPrintable(database.Error());
        ASSERT_EQ(static_cast<size_t>(columns->size()), shape.columns.size())
            << qPrintable(shape.name);
        for (size_t index = 0; index < shape.columns.size(); ++index) {
            const QStringList &column = columns->at(qsizetype(index));
            EXPECT_EQ(column.at(0), shape.columns[index].name);
            const QString type = column.at(1).section(u'(', 0, 0);
            EXPECT_TRUE(types.at(qsizetype(shape.columns[index].kind)).contains(type))
                << qPrintable(shape.name + u'.' + column.at(0));
        }
        EXPECT_FALSE(shape.key.isEmpty()) << qPrintable(shape.name);
    }
    tables << u"schema_version"_s;
    EXPECT_EQ(tables, SchemaTables());
}

TEST(RowBlocks, AreReadBackAsTheyWere)
{
    const TableShape shape {
        u"t"_s,
        {{u"i"_s, ColumnKind::Integer}, {u"a"_s, ColumnKind::Amount}, {u"t"_s, ColumnKind::Text}},
        {u"i"_s}};
    RowBlock block(shape);
    block.rows = 2;
    ASSERT_TRUE(block.columns[0].AddNumber("-2147483648"));
    ASSERT_TRUE(block.columns[1].AddNumber("4.9406564584124654e-324"));
    block.columns[2].AddText("");
    for (ColumnValues &column : block.columns) {
        column.AddNull();
    }
    const QByteArray bytes = BytesOf(block);
    EXPECT_EQ(BlockFrom(bytes, shape), block);
    for (qsizetype length = 0; length < bytes.size(); ++length) {
        EXPECT_EQ(BlockFrom(bytes.first(length), shape), std::nullopt) << length;
    }
    EXPECT_EQ(BlockFrom(QByteArray(bytes).append('x'), shape), std::nullopt);
    EXPECT_FALSE(block.columns[0].AddNumber("12a"));
    EXPECT_FALSE(block.columns[0].AddNumber("'12'"));
    EXPECT_FALSE(block.columns[1].AddNumber(""));
}

} // namespace
