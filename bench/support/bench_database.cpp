#include "support/bench_database.h"

#include "db/demo_data.h"
#include "db/schema.h"
#include "support/must.h"
#include "support/servers/server_section.h"

#include <QFile>
#include <QSet>
#include <QTemporaryDir>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

const QTemporaryDir &Folder()
{
    static const QTemporaryDir folder;
    return folder;
}

void Define(const QString &dsn, const QString &section)
{
    QFile file(Folder().filePath(u"odbc.ini"_s));
    if (!file.open(QIODevice::Append)) {
        Fail(file.errorString());
    }
    file.write(u"[%1]\n%2\n"_s.arg(dsn, section).toUtf8());
    qputenv("ODBCINI", file.fileName().toUtf8());
}

// A database of that name on the server; one that a run before this left there is dropped.
void MakeOnServer(const QString &engine, const QString &name)
{
    const auto section = ServerSection(engine);
    if (!section) {
        Fail(ServersHint());
    }
    const QString serverDsn = engine + u"_server"_s;
    Define(serverDsn, *section);
    Define(name, u"Database=%1\n"_s.arg(name) + *section);
    DirectConnection server;
    if (!server.Open(serverDsn) || !server.Run(u"DROP DATABASE IF EXISTS "_s + name)
        || !server.Run(u"CREATE DATABASE "_s + name)) {
        Fail(server.Error());
    }
}

} // namespace

QString BenchDatabase(const QString &engine, int users)
{
    static QSet<QString> made;
    const auto name = u"%1_%2"_s.arg(engine).arg(users);
    if (made.contains(name)) {
        return name;
    }
    if (engine == u"sqlite"_s) {
        Define(name,
               u"Driver=SQLite3\nDatabase=%1\nStepAPI=1\nJournalMode=WAL\nSyncPragma=NORMAL\n"
               "Timeout=5000"_s.arg(Folder().filePath(name + u".db"_s)));
    } else {
        MakeOnServer(engine, name);
    }
    std::fprintf(stderr, "making %s ...\n", qPrintable(name));
    if (const auto problem = CreateSchema(name)) {
        Fail(*problem);
    }
    if (const auto problem = FillWithDemoData(name, {users, 50, 1}, [](const QString &) {})) {
        Fail(*problem);
    }
    made << name;
    return name;
}
