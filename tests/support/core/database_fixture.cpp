#include "support/core/database_fixture.h"

#include "support/core/test_data_source.h"

using namespace Qt::StringLiterals;

void DatabaseFixture::SetUp()
{
    test_data_source::RenewSqlite(Dsn());
    test_data_source::OpenSession(Dsn());
}

void DatabaseFixture::TearDown()
{
    test_data_source::CloseSession();
}

QString DatabaseFixture::Dsn()
{
    return u"tollbrook_test"_s;
}

QString DatabaseFixture::DatabaseFile()
{
    return test_data_source::SqliteFile(Dsn());
}
