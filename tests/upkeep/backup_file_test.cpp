// The file of a backup: whole or refused, and never in the place of another by accident.
#include "db/direct_connection.h"
#include "db/schema.h"
#include "db/schema_scripts.h"
#include "db/schema_version.h"
#include "support/core/database_fixture.h"
#include "support/core/test_data_source.h"
#include "upkeep/backup.h"
#include "upkeep/backup_header.h"
#include "upkeep/backup_rows.h"
#include "upkeep/restore.h"
#include "upkeep/spare_database.h"

#include <QCryptographicHash>
#include <QDir>
#include <QDirIterator>
#include <QProcess>
#include <QRandomGenerator>

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

const auto kQuiet = [](const QString &) {};

class BackupFiles : public DatabaseFixture
{
protected:
    void SetUp() override
    {
        DatabaseFixture::SetUp();
        file = folder.filePath(u"site.backup"_s);
        settings = folder.filePath(u"settings"_s);
        Put(settings + u"/Software/Tollbrook/Network.toml"_s, "\"bill dsn\" = \"bill\"\n");
        Put(settings + u"/Software/Tollbrook/Network/localip.toml"_s, "Count = 0\n");
        const auto made = MakeBackup({Dsn(), file, settings}, kQuiet);
        ASSERT_TRUE(made) << qPrintable(made.error());
    }

    static void Put(const QString &path, const QByteArray &bytes)
    {
        QDir().mkpath(QFileInfo(path).path());
        QFile out(path);
        ASSERT_TRUE(out.open(QIODevice::WriteOnly));
        out.write(bytes);
    }

    static QByteArray BytesIn(const QString &path)
    {
        QFile in(path);
        EXPECT_TRUE(in.open(QIODevice::ReadOnly)) << qPrintable(path);
        return in.readAll();
    }

    // Nothing was written: not even a table.
    static void ExpectEmpty(const QString &dsn)
    {
        DirectConnection database;
        ASSERT_TRUE(database.Open(dsn, AbsentFile::IsMade));
        EXPECT_EQ(ExistingTable(database), std::nullopt);
    }

    QString file;
    QString settings;
};

TEST_F(BackupFiles, AreRefusedWhenCutOffOrChangedInAnyPlace)
{
    const QByteArray whole = BytesIn(file);
    const QString there = SpareDatabase(u"sqlite"_s, u"spare"_s);
    QRandomGenerator chance(14);
    std::vector<QByteArray> damaged {QByteArray(), whole + '\0', whole + whole};
    for (int run = 0; run < 60; ++run) {
        damaged.push_back(whole.first(chance.bounded(whole.size())));
        QByteArray flipped = whole;
        char &byte = flipped[chance.bounded(whole.size())];
        byte = static_cast<char>(byte ^ (1 << chance.bounded(8)));
        damaged.push_back(flipped);
    }
    for (const QByteArray &bytes : damaged) {
        Put(file, bytes);
        const auto restored = Restore({file, there}, kQuiet);
        ASSERT_FALSE(restored);
        EXPECT_TRUE(restored.error().contains(u"is damaged or cut off"_s)
                    || restored.error().contains(u"is no backup"_s))
            << qPrintable(restored.error());
        EXPECT_TRUE(restored.error().contains(file));
    }
    ExpectEmpty(there);
    Put(file, whole);
    EXPECT_TRUE(Restore({file, there}, kQuiet));
}

// Somebody who writes the checksum anew has not made a whole backup of it.
TEST_F(BackupFiles, AreRefusedWhenTheyHoldMoreOrLessThanTheyTell)
{
    const QByteArray whole = BytesIn(file).chopped(kBackupSumBytes);
    const auto signedBy = [](const QByteArray &bytes) -> QByteArray {
        return bytes + QCryptographicHash::hash(bytes, QCryptographicHash::Sha256);
    };
    const QByteArray longer = whole + QByteArray("\0\0\0\1x", 5);
    QByteArray miscounted = whole;
    ASSERT_TRUE(miscounted.contains("\"rows\":1"));
    miscounted.replace(miscounted.indexOf("\"rows\":1"), 8, "\"rows\":2");
    for (const auto &[bytes, problem] : {std::pair {longer, "is damaged or cut off"},
                                         std::pair {miscounted, "Of the 2 rows of"}}) {
        Put(file, signedBy(bytes));
        const QString there = SpareDatabase(u"sqlite"_s, u"spare"_s);
        const auto restored = Restore({file, there}, kQuiet);
        ASSERT_FALSE(restored);
        EXPECT_THAT(restored.error().toStdString(), testing::HasSubstr(problem));
        EXPECT_THAT(restored.error().toStdString(), testing::HasSubstr("is not whole"));
    }
}

// A device would become a file, and whatever wrote to it would then fill the disk.
TEST_F(BackupFiles, TakeThePlaceOfFilesAlone)
{
    const QString pipe = folder.filePath(u"pipe"_s);
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    for (const QString &there : {pipe, folder.path()}) {
        BackupWish wish {Dsn(), there, settings, true};
        EXPECT_EQ(MakeBackup(wish, kQuiet).error(), u"%1 is no file."_s.arg(there));
    }
    EXPECT_TRUE(QFileInfo::exists(pipe) && !QFileInfo(pipe).isFile());
}

TEST_F(BackupFiles, AreNotReplacedUnlessAsked)
{
    const QByteArray before = BytesIn(file);
    BackupWish wish {Dsn(), file, settings};
    EXPECT_THAT(MakeBackup(wish, kQuiet).error().toStdString(),
                testing::HasSubstr("is there already"));
    EXPECT_EQ(BytesIn(file), before);
    wish.replaces = true;
    Execute("INSERT INTO users (username) VALUES ('later')");
    EXPECT_TRUE(MakeBackup(wish, kQuiet));
    EXPECT_NE(BytesIn(file), before);
}

TEST_F(BackupFiles, BringTheSettingsWhereTheyAreAskedFor)
{
    const QString there = folder.filePath(u"elsewhere"_s);
    const QString key = there + u"/Software/Tollbrook/Network.toml"_s;
    Put(key, "other = 1\n");
    const QString spare = SpareDatabase(u"sqlite"_s, u"spare"_s);
    EXPECT_THAT(Restore({file, spare, there}, kQuiet).error().toStdString(),
                testing::HasSubstr("Network.toml is there already and says something else"));
    ExpectEmpty(spare);
    ASSERT_TRUE(QFile::remove(key));
    const auto restored = Restore({file, spare, there}, kQuiet);
    ASSERT_TRUE(restored) << qPrintable(restored.error());
    for (const QString &path :
         {u"/Software/Tollbrook/Network.toml"_s, u"/Software/Tollbrook/Network/localip.toml"_s}) {
        EXPECT_EQ(BytesIn(there + path), BytesIn(settings + path));
        EXPECT_FALSE(QFile::permissions(there + path) & QFile::ReadOther);
    }
}

TEST_F(BackupFiles, ANeedlessFailureIsNotMadeOfSettings)
{
    BackupWish wish {Dsn(), folder.filePath(u"second"_s), folder.filePath(u"nowhere"_s)};
    EXPECT_THAT(MakeBackup(wish, kQuiet).error().toStdString(),
                testing::HasSubstr("There are no settings in"));
    EXPECT_FALSE(QFile::exists(wish.file));
    wish.configFolder.reset();
    ASSERT_TRUE(MakeBackup(wish, kQuiet));
    EXPECT_TRUE(BackupRows::Open(wish.file).value()->Settings().isEmpty());
}

// The administrators of an installed console change the settings as members of their group.
TEST_F(BackupFiles, BringTheSettingsWithTheRightsOfTheirFolder)
{
    constexpr QFile::Permissions kGroup =
        QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    for (const bool groupWrites : {false, true}) {
        const QString there = folder.filePath(groupWrites ? u"shared"_s : u"own"_s);
        ASSERT_TRUE(QDir().mkdir(there));
        QFile::setPermissions(there,
                              QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner
                                  | (groupWrites ? QFile::WriteGroup : QFile::ReadOther));
        RestoreWish wish {file, {}, there};
        wish.onlySettings = true;
        ASSERT_TRUE(Restore(wish, kQuiet));
        const QFile::Permissions wanted = groupWrites ? QFile::ReadGroup | QFile::WriteGroup
                                                      : QFile::Permissions(QFile::ReadGroup);
        for (const QString &path :
             {u"/Software"_s, u"/Software/Tollbrook/Network/localip.toml"_s}) {
            EXPECT_EQ(QFile::permissions(there + path) & kGroup, wanted) << qPrintable(path);
        }
    }
}

struct Ended
{
    int status;
    QString error;
};

Ended RunShell(const QString &command)
{
    QProcess shell;
    shell.start(u"bash"_s, {u"-c"_s, command});
    EXPECT_TRUE(shell.waitForFinished(60'000));
    EXPECT_EQ(shell.exitStatus(), QProcess::NormalExit);
    return {shell.exitCode(), QString::fromUtf8(shell.readAllStandardError())};
}

// As a disk that is full ends a file.
TEST_F(BackupFiles, ThatDoNotFitAreNotThere)
{
    Execute("INSERT INTO users (username) VALUES ('someone')");
    const QStringList before = EveryRow();
    const QString big = folder.filePath(u"big"_s);
    const QString tool = QStringLiteral(TB_DATABASE_TOOL);
    const Ended full = RunShell(
        u"ulimit -f 1; exec %1 backup %2 --dsn %3 --config %4"_s.arg(tool, big, Dsn(), settings));
    EXPECT_EQ(full.status, 3);
    EXPECT_TRUE(full.error.contains(u"cannot be written: File too large"_s))
        << qPrintable(full.error);
    EXPECT_EQ(QDir(folder.path()).entryList({u"big*"_s}), QStringList());
    EXPECT_EQ(EveryRow(), before);

    // The same for what is filled.
    const QString there = SpareDatabase(u"sqlite"_s, u"spare"_s);
    const Ended unfilled =
        RunShell(u"ulimit -f 60; exec %1 restore %2 --dsn %3"_s.arg(tool, file, there));
    EXPECT_EQ(unfilled.status, 3) << qPrintable(unfilled.error);
    DirectConnection database;
    ASSERT_TRUE(database.Open(there));
    const auto version = SchemaVersionOf(database);
    EXPECT_TRUE(version == kIncompleteSchema || !ExistingTable(database)) << version.value_or(-1);
    database.Close();
    EXPECT_TRUE(Restore({file, there}, kQuiet));
}

// As whoever may read some of the settings' folders only.
TEST_F(BackupFiles, LeaveNoSettingsOutUnsaid)
{
    if (::geteuid() != 0) {
        GTEST_SKIP() << "Only root can become somebody else.";
    }
    const QString hidden = settings + u"/Software/Tollbrook/Network"_s;
    QDirIterator all(
        folder.path(), QDir::AllEntries | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    QFile::setPermissions(folder.path(), QFile::Permissions(0x7755));
    while (all.hasNext()) {
        QFile::setPermissions(all.next(), QFile::Permissions(0x7755));
    }
    QFile::setPermissions(hidden, QFile::Permissions(0x7700));
    const Ended ended = RunShell(
        u"setpriv --reuid=65534 --regid=65534 --clear-groups %1 backup %2 --dsn %3 --config %4"_s
            .arg(QStringLiteral(TB_DATABASE_TOOL), folder.filePath(u"new"_s), Dsn(), settings));
    EXPECT_EQ(ended.status, 3);
    EXPECT_TRUE(ended.error.contains(u"The folder %1 of settings cannot be read"_s.arg(hidden)))
        << qPrintable(ended.error);
}

TEST_F(BackupFiles, TheToolTellsWhatIsMissing)
{
    const QString tool = QStringLiteral(TB_DATABASE_TOOL);
    const std::pair<QString, QString> cases[] = {
        {u"backup --dsn x"_s, u"Name one file"_s},
        {u"restore a b --dsn x"_s, u"Name one file"_s},
        {u"backup '' --dsn x"_s, u"Name one file"_s},
        {u"backup a"_s, u"Name one command and the data source"_s},
        {u"copy --from x"_s, u"Name both data sources"_s},
        {u"restore a --only-settings"_s, u"Name the folder of the settings"_s},
        {u"check --dsn x --backup y"_s, u"\"check\" takes --backup only with --repair"_s},
        {u"check --repair --dsn x"_s, u"Name a file for the backup"_s},
        {u"copy --from x --to y --force"_s, u"\"copy\" does not take --force"_s},
        {u"check a --dsn x"_s, u"takes options only"_s}};
    for (const auto &[arguments, problem] : cases) {
        const Ended ended = RunShell(tool + u' ' + arguments);
        EXPECT_EQ(ended.status, 2) << qPrintable(arguments);
        EXPECT_TRUE(ended.error.contains(problem)) << qPrintable(ended.error);
    }
}

TEST_F(BackupFiles, WithoutSettingsBringNone)
{
    const QString tool = QStringLiteral(TB_DATABASE_TOOL);
    const QString bare = folder.filePath(u"bare"_s);
    ASSERT_EQ(RunShell(u"%1 backup %2 --dsn %3 --no-settings"_s.arg(tool, bare, Dsn())).status, 0);
    const QString there = folder.filePath(u"there"_s);
    const Ended ended =
        RunShell(u"%1 restore %2 --only-settings --config %3"_s.arg(tool, bare, there));
    EXPECT_EQ(ended.status, 3);
    EXPECT_TRUE(ended.error.contains(u"holds no settings"_s)) << qPrintable(ended.error);
    EXPECT_FALSE(QFile::exists(there));
}

// What was begun goes on to its end, whoever reads.
TEST_F(BackupFiles, TheToolTellsThatItCouldNotTell)
{
    const QString restore = u"%1 restore %2 --dsn %3"_s.arg(
        QStringLiteral(TB_DATABASE_TOOL), file, SpareDatabase(u"sqlite"_s, u"spare"_s));
    const Ended full = RunShell(u"exec %1 > /dev/full"_s.arg(restore));
    EXPECT_EQ(full.status, 3);
    EXPECT_EQ(full.error, u"tollbrook-db: The output could not be written.\n"_s);
    const QString other = SpareDatabase(u"sqlite"_s, u"other"_s);
    EXPECT_EQ(RunShell(u"set -o pipefail; %1 restore %2 --dsn %3 | true"_s.arg(
                           QStringLiteral(TB_DATABASE_TOOL), file, other))
                  .status,
              3);
    DirectConnection database;
    ASSERT_TRUE(database.Open(other));
    EXPECT_EQ(SchemaVersionOf(database), NewestSchema());
}

} // namespace
