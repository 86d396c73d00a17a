#include "daemon/service_lab.h"

#include "gateway/kernel_table.h"
#include "support/core/program_accounts.h"
#include "support/core/test_data_source.h"
#include "support/servers/server_section.h"

#include <QDBusMessage>
#include <QDBusVariant>
#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QTest>

#include <cerrno>
#include <csignal>

using namespace Qt::StringLiterals;

namespace {

constexpr int kLook = 20; // milliseconds between two looks at the database

const tl::expected<std::unique_ptr<Laboratory>, QString> &Made()
{
    static const tl::expected<std::unique_ptr<Laboratory>, QString> made = Laboratory::Make();
    return made;
}

// Where the service finds a server's socket: the test takes that away and brings it back.
QString SocketFolder()
{
    static const QTemporaryDir folder;
    return folder.path();
}

QString SocketName(const QString &engine)
{
    return engine == u"postgresql"_s ? u".s.PGSQL.5432"_s : u"mariadb.sock"_s;
}

// The value of a line of a data source's section.
QString ValueIn(const QString &section, const QString &key)
{
    return section.section(key + u'=', 1).section(u'\n', 0, 0);
}

void MakeSocketReachable(const QString &engine)
{
    const QString section = ServerSection(engine).value_or(QString());
    const QString socket = engine == u"postgresql"_s
        ? ValueIn(section, u"Servername"_s) + u'/' + SocketName(engine)
        : ValueIn(section, u"Socket"_s);
    ASSERT_TRUE(QFile::link(socket, SocketFolder() + u'/' + SocketName(engine)));
}

quint16 NextPort()
{
    static quint16 port = 6000;
    return ++port;
}

} // namespace

void ServiceLab::SetUp()
{
    if (!Made()) { // before any thread is made
        GTEST_SKIP() << "NOT TESTED: " << Made().error().toStdString();
    }
    EngineFixture::SetUp();
    ASSERT_FALSE(HasFatalFailure());
    bus = std::make_unique<PrivateBus>();
    if (Engine() != u"sqlite"_s) {
        EndOutage();
    }
    for (const auto key : {ConfigKeyId::Base,
                           ConfigKeyId::Price,
                           ConfigKeyId::DefProfile,
                           ConfigKeyId::LocalIp,
                           ConfigKeyId::AdapterBind}) {
        ASSERT_TRUE(store.CreateKey(key));
    }
    Write(store.FileOf(ConfigKeyId::LocalIp),
          "rangenum = \"1\"\nnet0 = 172818432\nmask0 = 4294901760\n");
    Write(store.FileOf(ConfigKeyId::AdapterBind), "NIC = \"lan0\"\n");
    WriteSettings();
}

void ServiceLab::TearDown()
{
    if (service) {
        Kill();
    }
    if (bus) {
        writer.Close();
        QFile::remove(SocketFolder() + u'/' + SocketName(Engine()));
        auto table = KernelTable::Open();
        EXPECT_TRUE(table && (*table)->Remove());
        EngineFixture::TearDown();
    }
}

const Laboratory &ServiceLab::Lab()
{
    return **Made();
}

bool ServiceLab::IsLongRun()
{
    return qEnvironmentVariableIntValue("TB_LONG_RUN") != 0;
}

QString ServiceLab::Workstation(quint32 userId)
{
    return NetAddress::FromIpv4(kNetwork + userId).Text();
}

void ServiceLab::WriteSettings(const QByteArray &more) const
{
    Write(store.FileOf(ConfigKeyId::Base),
          "\"bill dsn\" = \"nowhere\"\nServiceDsn = \"" + ReachableDsn().toUtf8()
              + "\"\ntimer = \"1\"\n" + more);
}

void ServiceLab::Write(const QString &file, const QByteArray &text)
{
    QFile writing(file);
    ASSERT_TRUE(writing.open(QIODevice::WriteOnly) && writing.write(text) == text.size());
}

void ServiceLab::AddUser(quint32 userId, const QByteArray &columns)
{
    const QByteArray id = QByteArray::number(userId);
    Run("INSERT INTO users (user_id, username, ip_addr) VALUES (" + id + ", 'user " + id + "', '"
        + Workstation(userId).toLatin1() + "')");
    if (!columns.isEmpty()) {
        Run("UPDATE users SET " + columns + " WHERE user_id = " + id);
    }
}

void ServiceLab::AddUsers(quint32 number)
{
    DirectConnection database;
    ASSERT_TRUE(
        database.Open(Dsn()) && database.Begin()
        && database.Prepare(u"INSERT INTO users (user_id, username, ip_addr) VALUES (?, ?, ?)"_s))
        << qPrintable(database.Error());
    for (quint32 id = 1; id <= number; ++id) {
        const QByteArray address = Workstation(id).toLatin1();
        ASSERT_TRUE(database.RunPrepared({static_cast<qint32>(id), "user " + address, address}))
            << qPrintable(database.Error());
    }
    ASSERT_TRUE(database.Commit()) << qPrintable(database.Error());
}

void ServiceLab::Run(const QByteArray &statement)
{
    Execute(statement.constData());
    ASSERT_FALSE(LastFailure()) << statement.constData();
}

// A server's data source of the service's own has its own account, and leads to the socket that can be
// taken away.
QString ServiceLab::ReachableDsn()
{
    if (Engine() == u"sqlite"_s) {
        return Dsn();
    }
    static QSet<QString> defined;
    const QString dsn = u"service_"_s + Engine();
    if (!defined.contains(dsn)) {
        defined << dsn;
        const QString place = Engine() == u"postgresql"_s
            ? u"Servername=%1\n"_s.arg(SocketFolder())
            : u"Socket=%1/%2\n"_s.arg(SocketFolder(), SocketName(Engine()));
        // The later of two values of a key does not count.
        (void)AccountSource(Engine(), u"service"_s);
        test_data_source::Define(
            dsn,
            place + u"UserName=%1\nUser=%1\n"_s.arg(AccountName(u"service"_s))
                + u"Database=test_%1\n"_s.arg(QCoreApplication::applicationPid())
                + ServerSection(Engine()).value_or(QString()));
    }
    return dsn;
}

std::unique_ptr<QProcess> ServiceLab::Spawn(const QStringList &options,
                                            const Prepare &prepare) const
{
    auto process = std::make_unique<QProcess>();
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, bus->Address());
    environment.insert(u"STATE_DIRECTORY"_s, folder.path());
    process->setProcessEnvironment(environment);
    process->setProcessChannelMode(QProcess::MergedChannels);
    process->setChildProcessModifier(prepare);
    process->start(QStringLiteral(TB_SERVICE_PROGRAM),
                   QStringList {u"--config"_s, store.Folder(), u"--bus"_s, u"session"_s} + options);
    EXPECT_TRUE(process->waitForStarted(kPatience)) << qPrintable(process->errorString());
    return process;
}

void ServiceLab::Start()
{
    service = Spawn();
    AwaitLine(u"Counting."_s);
}

void ServiceLab::Kill()
{
    service->kill();
    service->waitForFinished(kPatience);
    service.reset();
}

void ServiceLab::Signal(int number) const
{
    // The number 0 would be that of all processes around this test.
    ASSERT_GT(service->processId(), 0) << "the service is gone";
    ASSERT_EQ(kill(static_cast<pid_t>(service->processId()), number), 0);
}

int ServiceLab::Stop()
{
    Signal(SIGTERM);
    EXPECT_TRUE(service->waitForFinished(2 * kPatience)) << "it does not end";
    const auto ended = std::exchange(service, nullptr);
    EXPECT_EQ(ended->exitStatus(), QProcess::NormalExit);
    if (ended->exitCode() != 0) {
        ADD_FAILURE() << ended->readAll().toStdString();
    }
    return ended->exitCode();
}

void ServiceLab::AwaitLine(QProcess &process, const QString &words)
{
    const QDeadlineTimer patience(kPatience);
    QByteArray heard;
    while (!patience.hasExpired()) {
        while (process.canReadLine()) {
            const QByteArray line = process.readLine();
            if (line.contains(words.toUtf8())) {
                return;
            }
            heard += line;
        }
        if (process.state() == QProcess::NotRunning) {
            break;
        }
        process.waitForReadyRead(kLook);
    }
    FAIL() << "never said: " << qPrintable(words) << "; but:\n"
           << heard.toStdString() << process.readAll().toStdString();
}

BytesByUser ServiceLab::Accounted()
{
    BytesByUser bytes;
    for (const QString &row :
         RowsOf("SELECT user_id, SUM(data) * 1048576, SUM(senddata) * 1048576 FROM traffic_use "
                "WHERE period = 0 AND group_id IS NULL GROUP BY user_id")) {
        const QStringList columns = row.split(u'|');
        // Text of a fraction of a byte, or of a rounded number, would be another number.
        bytes[columns[0].toUInt()] = {static_cast<quint64>(columns[1].toDouble()),
                                      static_cast<quint64>(columns[2].toDouble())};
    }
    return bytes;
}

BytesByUser ServiceLab::AwaitAccounted(const BytesByUser &expected)
{
    const QDeadlineTimer patience(kPatience);
    BytesByUser accounted = Accounted();
    while (accounted != expected && !patience.hasExpired()) {
        QTest::qWait(kLook);
        accounted = Accounted();
    }
    return accounted;
}

QStringList ServiceLab::AwaitRows(const char *query, const QStringList &expected)
{
    const QDeadlineTimer patience(kPatience);
    QStringList rows = RowsOf(query);
    while (rows != expected && !patience.hasExpired()) {
        QTest::qWait(kLook);
        rows = RowsOf(query);
    }
    return rows;
}

void ServiceLab::BeginOutage()
{
    if (Engine() == u"sqlite"_s) {
        ASSERT_TRUE(writer.Open(Dsn()) && writer.Begin()
                    && writer.Run(u"UPDATE users SET descrip = 'held'"_s))
            << qPrintable(writer.Error());
    } else {
        ASSERT_TRUE(QFile::remove(SocketFolder() + u'/' + SocketName(Engine())));
        ASSERT_GT(EndOtherConnections(), 0);
    }
}

void ServiceLab::EndOutage()
{
    if (Engine() == u"sqlite"_s) {
        writer.Close();
    } else {
        MakeSocketReachable(Engine());
    }
}

QStringList ServiceLab::Problems() const
{
    auto call = QDBusMessage::createMethodCall(u"org.tollbrook.Accounting"_s,
                                               u"/org/tollbrook/Accounting"_s,
                                               u"org.freedesktop.DBus.Properties"_s,
                                               u"Get"_s);
    call.setArguments({u"org.tollbrook.Status1"_s, u"Problems"_s});
    const QDBusMessage answer = bus->Connection().call(call);
    EXPECT_EQ(answer.type(), QDBusMessage::ReplyMessage) << qPrintable(answer.errorMessage());
    return answer.arguments().value(0).value<QDBusVariant>().variant().toStringList();
}

qint64 ServiceLab::Download(quint32 userId, qint64 bytes)
{
    const quint16 port = NextPort();
    const auto listener = Listen(Lab(), Place::Internet, {kThere, port});
    const auto connect = [&] {
        return Connect(Lab(), Place::Workstations, {Workstation(userId), 0}, {kThere, port});
    };
    Connected client = connect();
    if (client.error == ETIMEDOUT) { // the kernel drops packets while it makes a quota
        client = connect();
    }
    EXPECT_EQ(client.error, 0);
    const OpenFile server = Accept(listener);
    return Transfer(server, client.socket, bytes);
}

bool ServiceLab::IsTableStanding()
{
    const auto table = KernelTable::Open();
    const auto generation = table ? (*table)->StandingGeneration()
                                  : GatewayResult<std::optional<quint64>>(std::nullopt);
    EXPECT_TRUE(table && generation);
    return generation && *generation;
}

Probe::Probe(const Laboratory &laboratory, const QString &here, QString there)
    : port(NextPort())
    , source(MakeSocket(laboratory, Place::Workstations, Transport::Udp, {here, port}))
    , target(MakeSocket(laboratory, Place::Internet, Transport::Udp, {there, port}))
    , to(std::move(there))
{ }

bool Probe::Passes()
{
    SendDatagrams(source, {to, port}, kPayload, 1);
    const int came = TakeDatagrams(target, 1);
    passed += came;
    return came > 0;
}

std::optional<qint64> Probe::Await(bool passes, int patience)
{
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() <= patience) {
        const qint64 sentAt = clock.elapsed();
        if (Passes() == passes) {
            return sentAt;
        }
    }
    return std::nullopt;
}
