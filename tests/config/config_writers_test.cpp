// Several writers at once, and one that dies in the middle.
#include "config/config_store.h"
#include "config/key_file.h"
#include "config/store_fixture.h"

#include <QElapsedTimer>
#include <QFileInfo>

#include <atomic>
#include <csignal>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

using namespace Qt::StringLiterals;

// Milliseconds for a writer's turn on a machine that has other things to do: nobody queues for it.
constexpr int kPatience = 30000;

class ConfigWritersTest : public StoreFixture
{
protected:
    void SetUp() override
    {
        StoreFixture::SetUp();
        ASSERT_TRUE(store.CreateKey(ConfigKeyId::LocalIp));
    }

    // True when `count` numbers of the family were all written.
    static bool WriteMany(const QString &configFolder, const NumberFamily &family, int count)
    {
        const ConfigStore own(configFolder, kPatience);
        bool written = true;
        for (int i = 0; i < count; ++i) {
            written = own.WriteNumber(family, i, static_cast<quint32>(i)) && written;
        }
        return written;
    }

    // Says a byte after each write, until it is killed or nobody listens.
    [[noreturn]] void WriteForEver(int listener) const
    {
        quint32 i = 0;
        do {
            store.WriteNumber(values::kMask, static_cast<int>(i % 50), i);
            ++i;
        } while (::write(listener, "x", 1) == 1);
        ::_exit(1);
    }

    void ExpectMany(const NumberFamily &family, int count)
    {
        for (int i = 0; i < count; ++i) {
            ASSERT_EQ(store.ReadNumber(family, i), static_cast<quint32>(i)) << family.prefix << i;
        }
    }
};

TEST_F(ConfigWritersTest, TwoThreadsLoseNothingOfEachOther)
{
    constexpr int kCount = 60;
    bool first = false;
    bool second = false;
    std::thread one([&] { first = WriteMany(store.Folder(), values::kNet, kCount); });
    std::thread two([&] { second = WriteMany(store.Folder(), values::kMask, kCount); });
    one.join();
    two.join();
    EXPECT_TRUE(first && second);
    ExpectMany(values::kNet, kCount);
    ExpectMany(values::kMask, kCount);
}

TEST_F(ConfigWritersTest, TwoProcessesLoseNothingOfEachOther)
{
    constexpr int kCount = 60;
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        ::_exit(WriteMany(store.Folder(), values::kNet, kCount) ? 0 : 1);
    }
    EXPECT_TRUE(WriteMany(store.Folder(), values::kMask, kCount));
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
    ExpectMany(values::kNet, kCount);
    ExpectMany(values::kMask, kCount);
}

TEST_F(ConfigWritersTest, AWriterThatIsKilledLeavesAWholeFile)
{
    constexpr quint32 kOld = 0x01020304U;
    ASSERT_TRUE(store.WriteNumber(values::kNet, 0, kOld));
    for (int round = 0; round < 20; ++round) {
        int pipe[2];
        ASSERT_EQ(::pipe(pipe), 0);
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            WriteForEver(pipe[1]);
        }
        char seen = 0;
        for (int i = 0; i <= round; ++i) { // another moment of its work in every round
            ASSERT_EQ(::read(pipe[0], &seen, 1), 1);
        }
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        ::close(pipe[0]);
        ::close(pipe[1]);
        ASSERT_TRUE(store.HasKey(ConfigKeyId::LocalIp)) << round;
        ASSERT_EQ(store.ReadNumber(values::kNet, 0), kOld) << round;
        ASSERT_TRUE(store.WriteNumber(values::kNet, 1, 5)) << "its lock died with it";
    }
}

TEST_F(ConfigWritersTest, AWriterThatNeverEndsIsNotWaitedForForEver)
{
    const QString localIp = store.FileOf(ConfigKeyId::LocalIp);
    ASSERT_TRUE(store.WriteNumber(values::kNet, 0, 1));
    const QByteArray before = BytesOf(localIp);
    int ready[2];
    ASSERT_EQ(::pipe(ready), 0);
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        const key_file::WriterLock lock(QFileInfo(localIp).path(), 0);
        if (lock.IsHeld() && ::write(ready[1], "x", 1) == 1) {
            ::pause();
        }
        ::_exit(1);
    }
    char seen = 0;
    ASSERT_EQ(::read(ready[0], &seen, 1), 1);

    const ConfigStore hasty(store.Folder(), 20);
    const WarningCollector warnings;
    QElapsedTimer waited;
    waited.start();
    const auto written = hasty.WriteNumber(values::kNet, 0, 2);
    EXPECT_GE(waited.elapsed(), 20);
    EXPECT_LT(waited.elapsed(), ConfigStore::kLockWait);
    ASSERT_FALSE(written);
    EXPECT_EQ(written.error(),
              (SettingsFailure {
                  localIp, 0, u"cannot be written: another program is at work in its folder"_s}));
    EXPECT_EQ(hasty.ReadNumber(values::kNet, 0), 1U) << "reading needs no lock";
    EXPECT_EQ(BytesOf(localIp), before);

    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    ::close(ready[0]);
    ::close(ready[1]);
    EXPECT_TRUE(hasty.WriteNumber(values::kNet, 0, 2));
}

TEST_F(ConfigWritersTest, OneStoreIsReadAndWrittenByManyThreads)
{
    constexpr int kCount = 60;
    WriteByHand("timer = 5 sec\n");
    const ConfigStore patient(store.Folder(), kPatience);
    const WarningCollector warnings;
    std::atomic<int> found = 0;
    std::atomic<int> failed = 0;
    const auto read = [&] {
        for (int i = 0; i < 10 * kCount; ++i) {
            found += patient.HasKey(ConfigKeyId::LocalIp) ? 1 : 0;
            failed += patient.Problem(ConfigKeyId::Base) ? 1 : 0;
        }
    };
    const auto write = [&](const NumberFamily &family) {
        for (int i = 0; i < kCount; ++i) {
            failed += patient.WriteNumber(family, i, static_cast<quint32>(i)) ? 0 : 1;
        }
    };
    std::vector<std::thread> threads;
    threads.emplace_back(read);
    threads.emplace_back(read);
    threads.emplace_back(write, values::kNet);
    threads.emplace_back(write, values::kMask);
    for (std::thread &each : threads) {
        each.join();
    }
    EXPECT_EQ(found, 2 * 10 * kCount);
    EXPECT_EQ(failed, 2 * 10 * kCount) << "the damaged key at every look, and no write";
    ExpectMany(values::kNet, kCount);
    ExpectMany(values::kMask, kCount);
    EXPECT_EQ(WarningCollector::Lines().size(), 1);
}
