#include "deaf/disturbance.h"

#include "db/direct_connection.h"
#include "db/translation.h"
#include "support/must.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <string>
#include <sys/file.h>
#include <unistd.h>
#include <vector>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto kHeldFor = 2s;

const char *const kTables[] = {"groups",
                               "users",
                               "traffic_use",
                               "time_use",
                               "billing",
                               "time_blocked",
                               "protocols",
                               "ports",
                               "port_blocked",
                               "logins"};

QByteArray ContentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// One server works in processes for each connection, which are the first one's children.
std::vector<pid_t> ProcessesOf(const QString &engine)
{
    const pid_t first =
        ContentOf(QStringLiteral(TB_SERVERS_DIR "/%1.pid").arg(engine)).trimmed().toInt();
    if (first <= 0) {
        Fail(u"The server's process is not known."_s);
    }
    std::vector<pid_t> processes {first};
    for (const QString &name : QDir(u"/proc"_s).entryList(QDir::Dirs)) {
        const QByteArray state = ContentOf(u"/proc/%1/stat"_s.arg(name));
        const auto fields = state.mid(state.lastIndexOf(')') + 2).split(' ');
        if (name.toInt() > 0 && fields.value(1).toInt() == first) {
            processes.push_back(name.toInt());
        }
    }
    return processes;
}

} // namespace

Disturbance::~Disturbance()
{
    if (thread.joinable()) {
        thread.join();
    }
}

void Disturbance::Begin()
{
    if (thread.joinable()) {
        thread.join();
    }
    over = false;
    thread = std::thread([this] {
        hold([this] {
            inTheWay = true;
            std::this_thread::sleep_for(kHeldFor);
            inTheWay = false;
        });
        over = true;
    });
}

Disturbance::Hold HeldDatabase(const QString &engine, const QString &dsn)
{
    return [engine, dsn](const std::function<void()> &wait) {
        DirectConnection connection;
        Must(connection.Open(dsn), connection);
        if (engine == u"sqlite"_s) {
            Must(connection.Run(u"BEGIN IMMEDIATE"_s), connection);
            wait();
            Must(connection.Run(u"ROLLBACK"_s), connection);
            return;
        }
        Must(connection.Begin(), connection);
        for (const char *table : kTables) {
            const std::string text = std::string("SELECT * FROM ") + table + " FOR UPDATE";
            Must(connection.Run(QString::fromStdString(Translate(connection.Engine(), text))),
                 connection);
        }
        wait();
    };
}

Disturbance::Hold FrozenServer(const QString &engine)
{
    return [engine](const std::function<void()> &wait) {
        const std::vector<pid_t> processes = ProcessesOf(engine);
        for (const pid_t process : processes) {
            ::kill(process, SIGSTOP);
        }
        wait();
        for (const pid_t process : processes) {
            ::kill(process, SIGCONT);
        }
    };
}

Disturbance::Hold HeldSettings(const ConfigStore &settings)
{
    const QString folder = QFileInfo(settings.FileOf(ConfigKeyId::Base)).path();
    return [folder](const std::function<void()> &wait) {
        const int held =
            ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        if (held < 0 || ::flock(held, LOCK_EX) != 0) {
            Fail(u"The settings cannot be held."_s);
        }
        wait();
        ::close(held);
    };
}
