// Servers across a network, with certificates of a private authority: what the data sources of
// docs/database.md make of a right one, a wrong one and another server's.
#include "db/direct_connection.h"
#include "db/query.h"
#include "db/report_connection.h"
#include "db/session.h"
#include "db/write.h"
#include "support/core/test_data_source.h"
#include "support/servers/own_servers.h"

#include <QFile>
#include <QRegularExpression>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

const auto *const servers = OwnServers::Add(u"encrypt"_s, u"encrypted"_s);

QString ValueIn(const QString &file, const QString &key)
{
    QFile text(file);
    EXPECT_TRUE(text.open(QIODevice::ReadOnly)) << qPrintable(file);
    return QString::fromUtf8(text.readAll()).section(key + u'=', 1).section(u'\n', 0, 0);
}

// The certificate names "localhost" alone.
struct Source
{
    QString name;
    QString host;
    QString authority;
};

const Source kRight {u"right"_s, u"localhost"_s, u"ca.pem"_s};

// As the documentation tells; the names are unique to the engine.
class Encrypted : public testing::TestWithParam<const char *>
{
protected:
    [[nodiscard]] static bool OnPostgresql() { return QByteArray(GetParam()) == "postgresql"; }

    [[nodiscard]] static QString Certificate(const QString &name)
    {
        return servers->Folder() + u"/tls/"_s + name;
    }

    [[nodiscard]] static QString Port()
    {
        return ValueIn(servers->Folder() + u"/tls/ports"_s,
                       QString::fromLatin1(GetParam()) + u"_port"_s);
    }

    static QString Define(const Source &source)
    {
        const QString dsn = QString::fromLatin1(GetParam()) + u'_' + source.name;
        QString section = u"Port=%1\nPassword=secret\n"_s.arg(Port());
        if (OnPostgresql()) {
            section +=
                u"Driver=PostgreSQL Unicode\nDatabase=postgres\nServername=%1\n"_s.arg(source.host);
            section += source.authority.isEmpty()
                ? QString()
                : u"SSLmode=verify-full\npqopt=sslrootcert=%1\n"_s.arg(
                    Certificate(source.authority));
        } else {
            section += u"Driver=MariaDB Unicode\nDatabase=mysql\nServer=%1\n"_s.arg(source.host);
            section += source.authority.isEmpty()
                ? QString()
                : u"SSLCA=%1\nSSLVERIFY=1\nFORCETLS=1\n"_s.arg(Certificate(source.authority));
        }
        test_data_source::Define(dsn, section);
        return dsn;
    }

    // As the server itself sees the connection.
    [[nodiscard]] static QString CipherQuery()
    {
        return OnPostgresql()
            ? u"SELECT COALESCE(cipher, '') FROM pg_stat_ssl WHERE pid = pg_backend_pid()"_s
            : u"SELECT variable_value FROM information_schema.session_status "
              "WHERE variable_name = 'SSL_CIPHER'"_s;
    }
};
INSTANTIATE_TEST_SUITE_P(Servers,
                         Encrypted,
                         testing::Values("postgresql", "mariadb"),
                         [](const testing::TestParamInfo<const char *> &engine) {
                             return std::string(engine.param);
                         });

TEST_P(Encrypted, EveryKindOfConnectionIsEncrypted)
{
    const QString dsn = Define(kRight);
    DirectConnection database;
    ASSERT_TRUE(database.Open(dsn)) << qPrintable(database.Error());
    const auto rows = database.Rows(CipherQuery());
    ASSERT_TRUE(rows) << qPrintable(database.Error());
    EXPECT_FALSE(rows->value(0).value(0).isEmpty());
    ASSERT_TRUE(database.Run(u"CREATE TABLE users (user_id INTEGER)"_s));

    ASSERT_EQ(ConnectDatabase(dsn.toUtf8().constData()), 1) << qPrintable(LastFailure()->text);
    const auto cipher =
        ReadOne(CipherQuery().toLatin1().constData(), [](const Row &row) { return row.Text(1); });
    ASSERT_TRUE(cipher && *cipher);
    EXPECT_FALSE((**cipher).isEmpty());
    DisconnectDatabase();

    QString problem;
    const auto report = ReportConnection::Open(dsn, u"system"_s, {}, problem);
    ASSERT_TRUE(report) << qPrintable(problem);
    ASSERT_TRUE(report->Run(CipherQuery())) << qPrintable(report->Problem());
    report->Choose({{1, ReadAs::Text}});
    ASSERT_EQ(report->FetchBlock(), 1);
    EXPECT_FALSE(report->Text(0, 0).empty());
}

// Or the test above would say nothing.
TEST_P(Encrypted, NothingIsWhereTheDataSourceDoesNotSay)
{
    DirectConnection database;
    ASSERT_TRUE(database.Open(Define({u"plain"_s, u"localhost"_s, {}})))
        << qPrintable(database.Error());
    const auto rows = database.Rows(CipherQuery());
    ASSERT_TRUE(rows);
    EXPECT_EQ(rows->value(0).value(0), QString());
}

// Newer drivers of MariaDB take any name for that of this machine by its usual address.
TEST_P(Encrypted, AnotherAuthorityOrAnotherNameIsRefused)
{
    const QString elsewhere = OnPostgresql() ? u"127.0.0.1"_s : u"127.0.0.2"_s;
    const std::tuple<Source, QString> cases[] = {
        {{u"other"_s, u"localhost"_s, u"other.pem"_s},
         OnPostgresql() ? u"certificate verify failed"_s
                        : u"unable to get local issuer certificate"_s},
        {{u"elsewhere"_s, elsewhere, u"ca.pem"_s},
         OnPostgresql()
             ? u"does not match host name \"127.0.0.1\""_s
             : u"Validation of SSL server certificate failed|Hostname verification failed"_s},
        {{u"gone"_s, u"localhost"_s, u"none.pem"_s}, OnPostgresql() ? u"none.pem"_s : u"SSL"_s},
    };
    for (const auto &[source, words] : cases) {
        const QString dsn = Define(source);
        DirectConnection database;
        EXPECT_FALSE(database.Open(dsn));
        EXPECT_TRUE(database.Error().contains(QRegularExpression(words)))
            << qPrintable(database.Error());
        EXPECT_EQ(ConnectDatabase(dsn.toUtf8().constData()), 0);
        ASSERT_TRUE(LastFailure());
        EXPECT_EQ(LastFailure()->kind, Failure::Kind::ConnectionLost);
        EXPECT_TRUE(LastFailure()->text.contains(QRegularExpression(words)))
            << qPrintable(LastFailure()->text);
    }
}

} // namespace
