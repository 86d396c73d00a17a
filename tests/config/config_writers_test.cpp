// Several writers at once, and one that dies in the middle.
#include "config/config_store.h"
#include "config/key_file.h"
#include "config/store_fixture.h"

#include <csignal>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

using namespace Qt::StringLiterals;

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
        const ConfigStore own(configFolder);
        bool written = true;
        for (int i = 0; i < count; ++i) {
            written = own.WriteNumber(family, i, static_cast<quint32>(i)) && written;
        }
        return written;
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
            for (quint32 i = 0;; ++i) {
                store.WriteNumber(values::kMask, static_cast<int>(i % 50), i);
                if (::write(pipe[1], "x", 1) != 1) {
                    ::_exit(1);
                }
            }
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
    const QString parent = QFileInfo(store.FileOf(ConfigKeyId::LocalIp)).path();
    const key_file::WriterLock first(parent);
    EXPECT_TRUE(first.IsHeld());
    EXPECT_FALSE(key_file::WriterLock(parent, 20).IsHeld());
    EXPECT_TRUE(store.HasKey(ConfigKeyId::LocalIp)) << "reading needs no lock";
    EXPECT_FALSE(key_file::WriterLock(folder.filePath(u"none"_s)).IsHeld());
}
