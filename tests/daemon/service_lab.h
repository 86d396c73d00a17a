// The accounting service as a program on the gateway of a laboratory, with a message bus and a
// database of its own; its users' workstations send and receive real packets.
#pragma once

#include "config/config_store.h"
#include "db/write.h"
#include "support/core/engine_fixture.h"
#include "support/core/private_bus.h"
#include "support/lab/flow.h"

#include <QProcess>
#include <QTemporaryDir>

#include <map>
#include <memory>

// Received and sent bytes by the user's id.
using BytesByUser = std::map<quint32, std::pair<quint64, quint64>>;

class ServiceLab : public EngineFixture
{
protected:
    static constexpr int kPatience = 10000; // milliseconds for what has to come
    static inline const QString kThere = QStringLiteral("10.79.0.1"); // a host of the Internet
    static constexpr quint32 kNetwork =
        0x0A4D0000; // 10.77.0.0; a user's address is its id behind that

    // Skips loudly where the kernel allows no laboratory.
    void SetUp() override;
    // Ends the service that runs and removes what it left in the kernel.
    void TearDown() override;

    // One laboratory for all tests of the program.
    [[nodiscard]] static const Laboratory &Lab();

    // The workstation of the user with this id.
    [[nodiscard]] static QString Workstation(quint32 userId);

    // Whether the tests run in their long form: TB_LONG_RUN=1 in the environment.
    [[nodiscard]] static bool IsLongRun();

    // The settings: a count each second, and lines of the base key.
    void WriteSettings(const QByteArray &more = {}) const;
    static void Write(const QString &file, const QByteArray &text);

    // `columns`: as of a SET, for what is not as usual.
    static void AddUser(quint32 userId, const QByteArray &columns = {});
    // Users with the ids from 1 on.
    static void AddUsers(quint32 number);
    static void Run(const QByteArray &statement);

    // What the service tells is on the same output, line by line.
    using Prepare = std::function<void()>; // in the new process, before the program is there
    [[nodiscard]] std::unique_ptr<QProcess> Spawn(const QStringList &options = {},
                                                  const Prepare &prepare = {}) const;
    // Returns once it counts.
    void Start();
    void Kill(); // as kill -9
    void Signal(int number) const;
    // By SIGTERM; what the program ended with.
    [[nodiscard]] int Stop();
    // Reads until a line has these words.
    static void AwaitLine(QProcess &process, const QString &words);
    void AwaitLine(const QString &words) const { AwaitLine(*service, words); }

    // The day's records of all users.
    [[nodiscard]] static BytesByUser Accounted();
    // The same, when they have come to be so or the patience is over.
    [[nodiscard]] static BytesByUser AwaitAccounted(const BytesByUser &expected);
    [[nodiscard]] static QStringList AwaitRows(const char *query, const QStringList &expected);

    // The database cannot be reached by the service, or changed by anybody, between the two.
    void BeginOutage();
    void EndOutage();

    // What is wrong, as the service tells it on the bus.
    [[nodiscard]] QStringList Problems() const;

    // Sends a download from the Internet until it ends or comes to a stop; what came of it, bytes.
    [[nodiscard]] static qint64 Download(quint32 userId, qint64 bytes);

    [[nodiscard]] static bool IsTableStanding();

    QTemporaryDir folder;
    ConfigStore store {folder.filePath(QStringLiteral("config"))};
    std::unique_ptr<PrivateBus> bus;
    std::unique_ptr<QProcess> service;

    // The service's data source.
    [[nodiscard]] static QString ReachableDsn();

private:
    DirectConnection writer; // holds an SQLite database during an outage
};

// Asks by single datagrams whether a workstation may send.
class Probe
{
public:
    static constexpr int kPayload = 10; // bytes

    Probe(const Laboratory &laboratory, const QString &here, QString there);

    [[nodiscard]] bool Passes();

    // Until `passes` is the answer: the milliseconds to the sending of the datagram that shows it, or
    // nothing when `patience` milliseconds are over.
    [[nodiscard]] std::optional<qint64> Await(bool passes, int patience);

    [[nodiscard]] quint64 PassedBytes() const { return Ipv4Bytes(kPayload, passed); }

private:
    const quint16 port; // of its own
    OpenFile source;
    OpenFile target;
    QString to;
    int passed = 0;
};
