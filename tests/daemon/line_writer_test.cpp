// Lines that nobody takes are lost and counted, and nobody waits for them.
#include "daemon/line_writer.h"

#include <QList>
#include <QStringBuilder>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

enum class Way { Pipe, Socket };

// Both ends of a way for bytes; the near end is one that would wait.
class LinesWritten : public testing::TestWithParam<Way>
{
protected:
    void SetUp() override
    {
        const int made =
            GetParam() == Way::Pipe ? pipe(ends) : socketpair(AF_UNIX, SOCK_STREAM, 0, ends);
        ASSERT_EQ(made, 0);
        if (GetParam() == Way::Socket) {
            std::swap(ends[0], ends[1]);
        }
        ASSERT_EQ(fcntl(ends[0], F_SETFL, O_NONBLOCK), 0);
    }

    void TearDown() override
    {
        close(ends[0]);
        close(ends[1]);
    }

    // What has come by now.
    [[nodiscard]] QByteArray Read() const
    {
        QByteArray all;
        char some[4096];
        for (ssize_t count = 0; (count = read(ends[0], some, sizeof some)) > 0;) {
            all.append(some, count);
        }
        return all;
    }

    int ends[2] {};
};

} // namespace

INSTANTIATE_TEST_SUITE_P(Ways, LinesWritten, testing::Values(Way::Pipe, Way::Socket));

TEST_P(LinesWritten, ComeAsTheyAre)
{
    LineWriter writer(ends[1]);
    writer.Write("one\n");
    writer.Write(QByteArray(20'000, 'x') + '\n');
    EXPECT_EQ(Read(), "one\n" + QByteArray(20'000, 'x') + '\n');
}

// Lines stay whole, be they shorter or longer than what is taken at once.
TEST_P(LinesWritten, AreLostAndCountedWhileNobodyReads)
{
    for (const qsizetype length : {100, 3000, 50'000}) {
        LineWriter writer(ends[1]);
        constexpr int kLines = 2000;
        for (int line = 0; line < kLines; ++line) {
            writer.Write(QByteArray(length, 'x') + '\n');
        }
        QByteArray come = Read();
        writer.Write("behind\n");
        come += Read();
        const QList<QByteArray> lines = come.split('\n');
        ASSERT_GE(lines.size(), 4);
        EXPECT_EQ(lines[lines.size() - 2], "behind");
        const QByteArray &told = lines[lines.size() - 3];
        EXPECT_TRUE(told.startsWith("Lines that were lost here")) << told.constData();
        const auto whole = lines.count(QByteArray(length, 'x'));
        EXPECT_EQ(whole, lines.size() - 3);
        EXPECT_EQ(whole + told.mid(told.indexOf(": ") + 2).toInt(), kLines);
    }
}

// Of a pipe, the end of its reader ends a program, as it should.
TEST(LinesToASocket, AreLostWithoutAReader)
{
    int ends[2] {};
    ASSERT_EQ(socketpair(AF_UNIX, SOCK_STREAM, 0, ends), 0);
    LineWriter writer(ends[1]);
    close(ends[0]);
    writer.Write("one\n");
    writer.Write("two\n");
    close(ends[1]);
}
