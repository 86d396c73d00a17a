#include "support/core/database_fixture.h"

#include "db/schema.h"
#include "support/core/test_data_source.h"

#include <QFile>

using namespace Qt::StringLiterals;
using namespace test_data_source;

namespace {

// Quick rather than safe: the file goes with the test.
void DefineSqlite(const QString &dsn, const QString &file)
{
    Define(dsn,
           u"Driver=SQLite3\nDatabase=%1\nStepAPI=1\nJournalMode=WAL\nSyncPragma=OFF\n"
           "Timeout=5000"_s.arg(file));
}

// A database with the schema, made once for the program; each test starts from a copy.
const QString &Template()
{
    static const QString file = [] {
        const QString path = Folder() + u"/template.db"_s;
        DefineSqlite(u"template"_s, path);
        const auto problem = CreateSchema(u"template"_s);
        EXPECT_FALSE(problem) << qPrintable(problem.value_or(QString()));
        return path;
    }();
    return file;
}

void RemoveDatabase(const QString &file)
{
    for (const QString &ending : {u""_s, u"-wal"_s, u"-shm"_s}) {
        QFile::remove(file + ending);
    }
}

} // namespace

void DatabaseFixture::SetUp()
{
    static const bool defined = [] {
        DefineSqlite(Dsn(), DatabaseFile());
        return true;
    }();
    ASSERT_TRUE(defined);
    RemoveDatabase(DatabaseFile());
    ASSERT_TRUE(QFile::copy(Template(), DatabaseFile()));
    OpenSession(Dsn());
}

void DatabaseFixture::TearDown()
{
    CloseSession();
    RemoveDatabase(DatabaseFile());
}

QString DatabaseFixture::Dsn()
{
    return u"tollbrook_test"_s;
}

QString DatabaseFixture::DatabaseFile()
{
    return Folder() + u"/test.db"_s;
}
