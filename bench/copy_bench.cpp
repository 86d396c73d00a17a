// Ten million usage records into an empty database, from another one and from a backup, held against the
// engine's own client, which loads the same rows from a text file.
//
// Counted is the time until all rows and indexes are there; the comparison with the source, which the
// client does not make, is printed beside it.
#include "db/schema.h"
#include "support/bench_database.h"
#include "support/engine_client.h"
#include "support/must.h"
#include "support/promise.h"
#include "support/usage_rows.h"
#include "upkeep/backup.h"
#include "upkeep/restore.h"

#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

constexpr int kRows = 10'000'000;
constexpr int kPerDay = 50'000;

const QTemporaryDir &Folder()
{
    static const QTemporaryDir folder;
    return folder;
}

// A site on the embedded engine.
QString Source()
{
    static const QString dsn = [] {
        QString site = BenchDatabase(u"sqlite"_s, 10);
        FillUsage(u"sqlite"_s, site, {kRows, {2026, 1, 1}, kPerDay});
        return site;
    }();
    return dsn;
}

QString BackupOfSource()
{
    static const QString file = [] {
        QString path = Folder().filePath(u"site.backup"_s);
        const auto made = MakeBackup({Source(), path}, [](const QString &) {});
        if (!made) {
            Fail(made.error());
        }
        return path;
    }();
    return file;
}

// A database without tables.
QString Target(const QString &engine)
{
    const QString dsn = BenchDatabase(engine, 11);
    DirectConnection database;
    Must(database.Open(dsn), database);
    for (const QString &table : SchemaTables()) {
        Must(database.Run(u"DROP TABLE IF EXISTS "_s + Quoted(database.Engine(), table)), database);
    }
    if (&database.Engine() == &kPostgresql) {
        Must(database.Run(u"DROP COLLATION IF EXISTS nocase"_s), database);
    }
    return dsn;
}

template <typename Work>
void Time(benchmark::State &state, const QString &engine, const Work &work)
{
    for ([[maybe_unused]] auto _ : state) {
        const QString target = Target(engine);
        QElapsedTimer timer;
        qint64 filled = 0;
        timer.start();
        const Told<void> done = work(target, [&](const QString &line) {
            if (line.startsWith(u"Comparing"_s)) {
                filled = timer.elapsed();
            }
        });
        if (!done) {
            Fail(done.error());
        }
        state.SetIterationTime(double(filled) / 1000);
        state.counters["comparison, s"] = double(timer.elapsed() - filled) / 1000;
    }
}

void CopyInto(benchmark::State &state, const QString &engine)
{
    const QString source = Source();
    Time(state, engine, [&](const QString &target, const Tell &tell) {
        return CopyDatabase({source, target}, tell);
    });
}

void RestoreInto(benchmark::State &state, const QString &engine)
{
    const QString file = BackupOfSource();
    Time(state, engine, [&](const QString &target, const Tell &tell) {
        return Restore({file, target}, tell);
    });
}

// The same rows as text, which every client reads.
QString TextFile()
{
    static const QString path = [] {
        QFile file(Folder().filePath(u"rows.csv"_s));
        if (!file.open(QIODevice::WriteOnly)) {
            Fail(file.errorString());
        }
        QByteArray lines;
        for (int row = 0; row < kRows; ++row) {
            const QDate day = QDate(2026, 1, 1).addDays(row / kPerDay);
            lines += QByteArray::number(row + 1) + ',' + QByteArray::number(1 + row % 500)
                + ",\\N,0," + day.toString(Qt::ISODate).toLatin1() + ','
                + QByteArray::number(1.25 * (1 + row % 97)) + ','
                + QByteArray::number(0.5 * (row % 31)) + ",0\n";
            if (lines.size() > 1'000'000) {
                file.write(lines);
                lines.clear();
            }
        }
        file.write(lines);
        return file.fileName();
    }();
    return path;
}

QString LoadStatement(const QString &engine)
{
    const QString file = TextFile();
    if (engine == u"sqlite"_s) {
        return u".mode csv\n.import %1 bulk_use\n"_s.arg(file);
    }
    return (engine == u"postgresql"_s
                ? u"\\copy bulk_use FROM '%1' CSV NULL '\\N'\n"_s
                : u"LOAD DATA LOCAL INFILE '%1' INTO TABLE bulk_use FIELDS TERMINATED BY ',';\n"_s)
        .arg(file);
}

// A table like that of the records, filled, and then its indexes.
QString Script(const QString &engine, const QString &dsn)
{
    QString tables;
    QString indexes;
    const QRegularExpression records(u"^CREATE (TABLE|INDEX)[^(]* traffic_use"_s);
    for (QString statement : SchemaStatements(DialectOf(dsn)).filter(records)) {
        // Its client has a text where a NULL should be, which such an index would hold.
        const bool holdsNone = engine == u"sqlite"_s && statement.contains(u"traffic_use_group"_s);
        statement.replace(u"traffic_use"_s, u"bulk_use"_s);
        if (statement.startsWith(u"CREATE TABLE"_s)) {
            tables += statement + u";\n"_s;
        } else if (!holdsNone) {
            indexes += statement + u";\n"_s;
        }
    }
    return u"DROP TABLE IF EXISTS bulk_use;\n"_s + tables + LoadStatement(engine) + indexes;
}

void LoadByClient(benchmark::State &state, const QString &engine)
{
    const QString dsn = BenchDatabase(engine, 12);
    const QByteArray script = Script(engine, dsn).toUtf8();
    QStringList command = ClientCommand(engine, dsn);
    const QString program = command.takeFirst();
    if (engine == u"mariadb"_s) {
        command.insert(1, u"--local-infile=1"_s);
    }
    for ([[maybe_unused]] auto _ : state) {
        QElapsedTimer timer;
        timer.start();
        QProcess client;
        client.start(program, command);
        client.write(script);
        client.closeWriteChannel();
        if (!client.waitForFinished(-1) || client.exitCode() != 0) {
            Fail(QString::fromUtf8(client.readAllStandardError()));
        }
        state.SetIterationTime(double(timer.elapsed()) / 1000);
    }
}

} // namespace

int main(int argc, char **argv)
{
    std::vector<Promise> promises;
    for (const char *engine : kBenchEngines) {
        const auto name = [engine](const char *what) { return std::string(engine) + ": " + what; };
        const auto add = [&](const char *what, auto function) {
            benchmark::RegisterBenchmark(name(what).c_str(), function, QString::fromLatin1(engine))
                ->Iterations(1)
                ->UseManualTime()
                ->Unit(benchmark::kMillisecond);
        };
        add("copy into", CopyInto);
        add("restore into", RestoreInto);
        add("client loads", LoadByClient);
        promises.push_back({name("copy into"), name("client loads"), 2});
        promises.push_back({name("restore into"), name("client loads"), 2});
    }
    return RunAndCompare(argc, argv, promises, 1);
}
