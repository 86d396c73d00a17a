#include "support/core/program_accounts.h"

#include "db/roles.h"
#include "support/core/engine_fixture.h"
#include "support/core/test_data_source.h"

#include <QCoreApplication>
#include <QProcess>
#include <QSet>

#include <odbcinst.h>

using namespace Qt::StringLiterals;

namespace {

const QStringList kRoles {u"console"_s, u"service"_s, u"reports"_s, u"viewer"_s, u"backup"_s};
const QStringList kKeys {
    u"Driver"_s, u"Servername"_s, u"Port"_s, u"Socket"_s, u"Database"_s, u"Charset"_s};

QSet<QString> made; // engines

QString Prefix()
{
    return u"t%1"_s.arg(QCoreApplication::applicationPid());
}

QString ValueOf(const QString &dsn, const QString &key)
{
    std::array<char, 512> text {};
    SQLGetPrivateProfileString(dsn.toUtf8().constData(),
                               key.toUtf8().constData(),
                               "",
                               text.data(),
                               static_cast<int>(text.size()),
                               "odbc.ini");
    return QString::fromUtf8(text.data());
}

// The engine's own data source with another account; all passwords of the tests are the same.
void DefineFor(const QString &engine, const QString &role)
{
    QString section = u"%1=%2\nPassword=secret\nUseDeclareFetch=1\nFetch=1000\n"_s.arg(
        engine == u"postgresql"_s ? u"UserName"_s : u"User"_s, AccountName(role));
    for (const QString &key : kKeys) {
        if (const QString value = ValueOf(engine, key); !value.isEmpty()) {
            section += u"%1=%2\n"_s.arg(key, value);
        }
    }
    test_data_source::Define(engine + u'_' + role, section);
}

void Make(const QString &engine)
{
    DirectConnection database;
    const auto place = database.Open(engine) ? RolesPlaceOf(database, Prefix()) : std::nullopt;
    ASSERT_TRUE(place) << qPrintable(database.Error());
    const QString script = RolesScript(*place).replace(u"CHANGE-ME"_s, u"secret"_s);
    for (int time = 0; time < 2; ++time) { // it may run again
        EXPECT_EQ(RunByClient(engine, script), QString());
    }
    for (const QString &role : kRoles) {
        DefineFor(engine, role);
    }
}

} // namespace

QString AccountSource(const QString &engine, const QString &role)
{
    if (engine == u"sqlite"_s) {
        return engine;
    }
    if (!made.contains(engine)) {
        made << engine;
        Make(engine);
    }
    return engine + u'_' + role;
}

QString AccountName(const QString &role)
{
    return Prefix() + u'_' + role;
}

QString RunByClient(const QString &dsn, const QString &script)
{
    QProcess client;
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"PGPASSWORD"_s, u"secret"_s);
    environment.insert(u"MYSQL_PWD"_s, u"secret"_s);
    client.setProcessEnvironment(environment);
    const QString database = ValueOf(dsn, u"Database"_s);
    if (const QString socket = ValueOf(dsn, u"Socket"_s); !socket.isEmpty()) {
        client.start(u"mariadb"_s,
                     {u"--no-defaults"_s, u"--socket="_s + socket, u"--user=system"_s, database});
    } else {
        client.start(u"psql"_s,
                     {u"--no-psqlrc"_s,
                      u"--quiet"_s,
                      u"--set=ON_ERROR_STOP=1"_s,
                      u"--host="_s + ValueOf(dsn, u"Servername"_s),
                      u"--port="_s + ValueOf(dsn, u"Port"_s),
                      u"--username=system"_s,
                      u"--dbname="_s + database});
    }
    client.write(script.toUtf8());
    client.closeWriteChannel();
    const bool ended = client.waitForFinished(60000);
    const QString said = QString::fromUtf8(client.readAllStandardError());
    const bool failed =
        !ended || client.exitStatus() != QProcess::NormalExit || client.exitCode() != 0;
    return failed && said.isEmpty() ? client.errorString() : said;
}

void DropAccounts(const QString &engine)
{
    if (!made.remove(engine)) {
        return;
    }
    const bool onPostgresql = engine == u"postgresql"_s;
    QString script;
    for (const QString &role : kRoles) {
        const QString account = AccountName(role);
        script += onPostgresql ? u"DROP OWNED BY %1; DROP ROLE %1;\n"_s.arg(account)
                               : u"DROP USER %1;\n"_s.arg(account);
    }
    EXPECT_EQ(RunByClient(engine, script), QString());
}
