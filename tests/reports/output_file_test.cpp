// Files that are replaced whole, in folders of one's own and in those of others.
#include "reports/output_file.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr uid_t kSomebody = 65534;
constexpr mode_t kEverybodys = 01777; // as the mode of /tmp

class Replacing : public testing::Test
{
protected:
    [[nodiscard]] QByteArray In(const char *name) const
    {
        return QFile::encodeName(folder.filePath(QLatin1StringView(name)));
    }

    void Put(const char *name, const QByteArray &text, mode_t mode) const
    {
        QFile file(folder.filePath(QLatin1StringView(name)));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(text) == text.size());
        ASSERT_EQ(::chmod(In(name).constData(), mode), 0);
    }

    [[nodiscard]] QByteArray TextOf(const char *name) const
    {
        QFile file(folder.filePath(QLatin1StringView(name)));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    [[nodiscard]] mode_t ModeOf(const char *name) const
    {
        struct stat found
        { };
        return ::lstat(In(name).constData(), &found) == 0 ? found.st_mode & 07777 : 0;
    }

    // Empty when it was written.
    [[nodiscard]] QString Write(const char *name) const
    {
        OutputFile file;
        const bool done = file.Open(folder.filePath(QLatin1StringView(name)))
            && file.Device().write("new") == 3 && file.Keep();
        EXPECT_EQ(done, file.Problem().isEmpty());
        return file.Problem();
    }

    [[nodiscard]] QStringList Files() const
    {
        return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden | QDir::System);
    }

    QTemporaryDir folder;
};

// Where others can lay traps for the superuser.
class ReplacingForTheSuperuser : public Replacing
{
protected:
    void SetUp() override
    {
        if (::geteuid() != 0) {
            GTEST_SKIP() << "only the superuser can make what belongs to somebody else";
        }
        ASSERT_EQ(::chmod(QFile::encodeName(folder.path()).constData(), kEverybodys), 0);
    }

    void LinkOfSomebody(const QByteArray &target, const char *name) const
    {
        ASSERT_EQ(::symlink(target.constData(), In(name).constData()), 0);
        ASSERT_EQ(::lchown(In(name).constData(), kSomebody, kSomebody), 0);
    }
};

} // namespace

TEST_F(Replacing, ANewFileIsItsWritersAloneAndAReplacedOneHandsItsRightsOn)
{
    Put("former", "old", 0640);
    EXPECT_EQ(Write("former"), QString());
    EXPECT_EQ(Write("fresh"), QString());
    EXPECT_EQ(TextOf("former"), "new");
    EXPECT_EQ(ModeOf("former"), 0640U);
    EXPECT_EQ(ModeOf("fresh"), 0600U);
    EXPECT_EQ(Files(), QStringList({u"former"_s, u"fresh"_s}));
}

TEST_F(Replacing, WhatIsNotKeptLeavesNoTrace)
{
    Put("former", "old", 0600);
    {
        OutputFile file;
        ASSERT_TRUE(file.Open(folder.filePath(u"former"_s)));
        EXPECT_EQ(file.Device().write("half"), 4);
        EXPECT_EQ(Files().size(), 2);
    }
    EXPECT_EQ(TextOf("former"), "old");
    EXPECT_EQ(Files(), QStringList(u"former"_s));
}

TEST_F(Replacing, OnlyPlainFilesAreReplaced)
{
    ASSERT_EQ(::mkfifo(In("pipe").constData(), 0600), 0);
    ASSERT_TRUE(QDir(folder.path()).mkdir(u"folder"_s));
    for (const char *name : {"pipe", "folder", "none/file", "folder/.."}) {
        EXPECT_FALSE(Write(name).isEmpty()) << name;
    }
    EXPECT_EQ(Files(), QStringList(u"pipe"_s));
}

TEST_F(Replacing, OnesOwnLinkIsFollowed)
{
    ASSERT_TRUE(QDir(folder.path()).mkdir(u"archive"_s));
    Put("archive/today", "old", 0644);
    ASSERT_EQ(::symlink("archive/today", In("latest").constData()), 0);
    ASSERT_EQ(::symlink(In("archive").constData(), In("there").constData()), 0);
    ASSERT_EQ(::symlink("circle", In("circle").constData()), 0);
    EXPECT_EQ(Write("latest"), QString());
    EXPECT_EQ(TextOf("archive/today"), "new");
    EXPECT_EQ(ModeOf("archive/today"), 0644U);
    EXPECT_TRUE(QFileInfo(folder.filePath(u"latest"_s)).isSymLink());
    EXPECT_EQ(Write("there/fresh"), QString());
    EXPECT_EQ(TextOf("archive/fresh"), "new");
    EXPECT_FALSE(Write("circle").isEmpty());
}

TEST_F(ReplacingForTheSuperuser, ALinkOfSomebodyElseIsNoWay)
{
    const QTemporaryDir own;
    const QString secret = own.filePath(u"secret"_s);
    QFile file(secret);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write("old") == 3);
    file.close();
    LinkOfSomebody(QFile::encodeName(secret), "report");
    LinkOfSomebody(QFile::encodeName(own.path()), "folder");
    LinkOfSomebody(QFile::encodeName(own.filePath(u"fresh"_s)), "dangling");
    for (const char *name : {"report", "folder/secret", "folder/fresh", "dangling"}) {
        EXPECT_TRUE(Write(name).contains(u"somebody else"_s)) << name;
    }
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), "old");
    EXPECT_EQ(QDir(own.path()).entryList(QDir::Files | QDir::Hidden), QStringList(u"secret"_s));
}

TEST_F(ReplacingForTheSuperuser, AFileOfSomebodyElseHandsNoRightsOn)
{
    Put("report", "old", 0666);
    ASSERT_EQ(::lchown(In("report").constData(), kSomebody, kSomebody), 0);
    Put("linked", "old", 0666);
    ASSERT_EQ(::link(In("linked").constData(), In("second").constData()), 0);
    for (const char *name : {"report", "second"}) {
        EXPECT_EQ(Write(name), QString()) << name;
        EXPECT_EQ(ModeOf(name), 0600U) << name;
    }
    EXPECT_EQ(TextOf("linked"), "old");
}
