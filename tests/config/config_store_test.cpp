#include "config/config_store.h"

#include "config/store_fixture.h"

#include <QDir>

#include <csignal>
#include <sys/resource.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

class ConfigStoreTest : public StoreFixture
{ };

TEST_F(ConfigStoreTest, AMissingKeyReadsAsNothingAndIsNeverMade)
{
    EXPECT_FALSE(store.HasKey(ConfigKeyId::Base));
    EXPECT_EQ(store.ReadText(values::kBillDsn), std::nullopt);
    EXPECT_EQ(store.ReadInteger(values::kTimer), 0);
    EXPECT_EQ(store.ReadNumber(values::kNet, 0), std::nullopt);
    EXPECT_FALSE(store.WriteText(values::kNic, u"eth0"_s));
    EXPECT_FALSE(store.WriteNumber(values::kNet, 0, 1));
    EXPECT_FALSE(store.Edit(ConfigKeyId::Base, [](KeyEditor &) { ADD_FAILURE(); }));
    EXPECT_FALSE(QDir(store.Folder()).exists());

    MakeBaseKey();
    EXPECT_TRUE(store.HasKey(ConfigKeyId::Base));
    EXPECT_FALSE(store.WriteNumber(values::kNet, 0, 1)) << "a subkey is a key of its own";
    EXPECT_FALSE(store.HasKey(ConfigKeyId::LocalIp));
}

TEST_F(ConfigStoreTest, EveryValueOfEveryKeyComesBack)
{
    const QStringList texts {u""_s,
                             u"0"_s,
                             u"\"quoted\\ 'text'\""_s,
                             u"tab\tline\nbell\a"_s,
                             u"# no comment"_s,
                             u"Gr\u00f6\u00dfe \u20ac \U0001F600"_s,
                             u" blanks "_s};
    for (const TextValue &value : values::kAllTexts) {
        ASSERT_TRUE(store.CreateKey(value.key)) << value.name;
        for (const QString &text : texts) {
            EXPECT_TRUE(store.WriteText(value, text)) << value.name;
            EXPECT_EQ(store.ReadText(value), text) << value.name;
        }
    }
    for (const NumberFamily &family : {values::kNet, values::kMask, values::kExclude}) {
        for (const quint32 number : {0U, 1U, 0x7FFFFFFFU, 0x80000000U, 0xC0A80100U, 0xFFFFFFFFU}) {
            EXPECT_TRUE(store.WriteNumber(family, 12, number)) << family.prefix;
            EXPECT_EQ(store.ReadNumber(family, 12), number) << family.prefix;
            EXPECT_EQ(store.ReadNumber(family, 1), std::nullopt) << family.prefix;
        }
    }
}

TEST_F(ConfigStoreTest, NamesAreMatchedInAnyCaseAndKeepTheirSpellingAndPlace)
{
    WriteByHand(
        "# chosen in spring\n\"BILL DSN\"='tb'\nidentMODE = \"1\" # by MAC\n\ncontrolmac=\"1\"");
    EXPECT_EQ(store.ReadText(values::kBillDsn), u"tb"_s);
    EXPECT_EQ(store.ReadInteger(values::kIdentMode), 1);
    EXPECT_TRUE(store.WriteInteger(values::kIdentMode, 2));
    EXPECT_TRUE(store.WriteText(values::kBillDsn, u"new"_s));
    EXPECT_TRUE(store.WriteFlag(values::kControlMac, false));
    EXPECT_TRUE(store.WriteText(values::kTimer, u"60"_s));
    EXPECT_EQ(BytesOf(path),
              "# chosen in spring\n\"BILL DSN\"=\"new\"\nidentMODE = \"2\" # by MAC\n\n"
              "controlmac=\"0\"\ntimer = \"60\"\n");
}

TEST_F(ConfigStoreTest, AFileByHandMayHoldTwoSpellingsSectionsAndAByteOrderMark)
{
    WriteByHand("\xEF\xBB\xBFport = \"700\"\r\nPort = \"701\"\r\n[notes]\r\ntimer = \"5\"\r\n");
    EXPECT_EQ(store.ReadInteger(values::kTimer), 0) << "another section's value";
    EXPECT_TRUE(store.WriteText(values::kTimer, u"60"_s));
    EXPECT_EQ(store.ReadInteger(values::kTimer), 60);
    EXPECT_TRUE(store.WriteText(values::kPort, u"702"_s));
    EXPECT_EQ(store.ReadInteger(values::kPort), 702);
}

TEST_F(ConfigStoreTest, TextsAndNumbersAreNotReadAsEachOther)
{
    ASSERT_TRUE(store.CreateKey(ConfigKeyId::LocalIp));
    WriteByHand("timer = 60\nport = 1.5\nNIC = [\"a\"]\n");
    EXPECT_EQ(store.ReadText(values::kTimer), std::nullopt);
    EXPECT_EQ(store.ReadText(values::kPort), std::nullopt);
    EXPECT_EQ(store.ReadText(values::kNic), std::nullopt);
    constexpr TextValue kNetAsText {ConfigKeyId::LocalIp, "net0"};
    EXPECT_TRUE(store.WriteText(kNetAsText, u"3232235776"_s));
    EXPECT_EQ(store.ReadNumber(values::kNet, 0), std::nullopt);
    EXPECT_TRUE(store.WriteNumber(values::kNet, 0, 0xC0A80100U)) << "a write decides the kind";
    EXPECT_EQ(store.ReadText(kNetAsText), std::nullopt);
    EXPECT_EQ(BytesOf(store.FileOf(ConfigKeyId::LocalIp)), "net0 = 0xC0A80100\n");
}

TEST_F(ConfigStoreTest, NumbersBeyond32BitsAreMissing)
{
    ASSERT_TRUE(store.CreateKey(ConfigKeyId::LocalIp));
    QFile file(store.FileOf(ConfigKeyId::LocalIp));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("net0 = 4294967295\nnet1 = 4294967296\nnet2 = -1\n");
    file.close();
    EXPECT_EQ(store.ReadNumber(values::kNet, 0), 0xFFFFFFFFU);
    EXPECT_EQ(store.ReadNumber(values::kNet, 1), std::nullopt);
    EXPECT_EQ(store.ReadNumber(values::kNet, 2), std::nullopt);
}

TEST_F(ConfigStoreTest, AValueThatDoesNotFitItsBufferIsMissing)
{
    MakeBaseKey();
    const auto expectFits = [this](const QString &text, qsizetype buffer, bool fits) {
        ASSERT_TRUE(store.WriteText(values::kNic, text));
        EXPECT_EQ(store.ReadText(values::kNic, buffer).has_value(), fits)
            << text.size() << " in " << buffer;
    };
    expectFits(QString(254, u'x'), 255, true); // exactly 255 bytes with the terminator
    expectFits(QString(255, u'x'), 255, false);
    expectFits(QString(1023, u'x'), 1024, true);
    expectFits(QString(1024, u'x'), 1024, false);
    expectFits(QString(127, u'\u00e9'), 255, true);
    expectFits(QString(127, u'\u00e9') + u'x', 255, false);
    expectFits({}, 1, true);
}

TEST_F(ConfigStoreTest, ADamagedFileReadsAsMissingAndIsKeptAside)
{
    const QByteArray damaged[] = {"timer = \"6",
                                  "timer 60\n",
                                  "a = 1\na = 2\n",
                                  "\xff\xfe = 1",
                                  QByteArray(2 * 1024 * 1024, '\n')};
    int number = 0;
    for (const QByteArray &bytes : damaged) {
        WriteByHand(bytes);
        const WarningCollector warnings;
        EXPECT_FALSE(store.HasKey(ConfigKeyId::Base));
        EXPECT_EQ(store.ReadText(values::kTimer), std::nullopt);
        EXPECT_TRUE(store.Edit(ConfigKeyId::Base, [](KeyEditor &key) {
            EXPECT_FALSE(key.DeleteNumber(values::kNet, 0));
        }));
        EXPECT_EQ(BytesOf(path), bytes) << "reading and deleting change nothing";
        ASSERT_EQ(WarningCollector::Lines().size(), 1) << "one line, however often it is read";
        EXPECT_TRUE(WarningCollector::Lines()[0].contains(
            u"tollbrook.config: "_s + path + u" is damaged and counts as missing"_s));

        EXPECT_TRUE(store.WriteText(values::kTimer, u"60"_s));
        EXPECT_EQ(BytesOf(path), "timer = \"60\"\n");
        ++number;
        const QString aside =
            path + u".damaged"_s + (number == 1 ? QString() : u"-%1"_s.arg(number));
        EXPECT_EQ(BytesOf(aside), bytes);
        EXPECT_TRUE(WarningCollector::Lines().last().endsWith(u"is kept as "_s + aside));
    }
}

TEST_F(ConfigStoreTest, AFileThatCannotBeReadIsLeftAlone)
{
    MakeBaseKey();
    ASSERT_TRUE(QFile::remove(path));
    ASSERT_TRUE(QDir().mkdir(path));
    const WarningCollector warnings;
    EXPECT_FALSE(store.HasKey(ConfigKeyId::Base));
    EXPECT_FALSE(store.WriteText(values::kTimer, u"60"_s));
    EXPECT_TRUE(QFileInfo(path).isDir());
    EXPECT_EQ(WarningCollector::Lines().filter(u"cannot be read: not a file"_s).size(), 1);
}

TEST_F(ConfigStoreTest, AFileThatCannotBeReachedIsNotJustMissing)
{
    const WarningCollector warnings;
    EXPECT_FALSE(store.HasKey(ConfigKeyId::Base));
    EXPECT_EQ(WarningCollector::Lines(),
              QStringList(u"tollbrook.config: "_s + path + u" is missing"_s));
    MakeBaseKey();
    ASSERT_TRUE(QFile::remove(path));
    ASSERT_TRUE(QFile::link(path, path));
    EXPECT_FALSE(store.HasKey(ConfigKeyId::Base));
    EXPECT_EQ(WarningCollector::Lines().filter(u"cannot be read: "_s).size(), 1);
}

TEST_F(ConfigStoreTest, AGroupIsWrittenAndDeletedAtOnce)
{
    ASSERT_TRUE(store.CreateKey(ConfigKeyId::LocalIp));
    EXPECT_TRUE(store.Edit(ConfigKeyId::LocalIp, [](KeyEditor &key) {
        for (int i = 0; i < 3; ++i) {
            key.WriteNumber(values::kNet, i, static_cast<quint32>(i));
        }
        key.WriteInteger(values::kRangeNum, 3);
    }));
    EXPECT_EQ(store.ReadInteger(values::kRangeNum), 3);
    EXPECT_TRUE(store.Edit(ConfigKeyId::LocalIp, [](KeyEditor &key) {
        EXPECT_TRUE(key.DeleteNumber(values::kNet, 1));
        EXPECT_FALSE(key.DeleteNumber(values::kNet, 1));
        EXPECT_FALSE(key.DeleteNumber(values::kMask, 0));
        key.WriteFlag(values::kRangeNum, true);
    }));
    EXPECT_EQ(BytesOf(store.FileOf(ConfigKeyId::LocalIp)),
              "net0 = 0x00000000\nnet2 = 0x00000002\nrangenum = \"1\"\n");
}

// Acts as an ordinary account, which root is not held back by permissions from.
class AsNobody
{
public:
    AsNobody() : wasRoot(::geteuid() == 0 && ::seteuid(65534) == 0) { }
    ~AsNobody()
    {
        if (wasRoot && ::seteuid(0) != 0) {
            std::abort();
        }
    }
    AsNobody(const AsNobody &) = delete;
    AsNobody &operator=(const AsNobody &) = delete;

private:
    bool wasRoot;
};

TEST_F(ConfigStoreTest, WithoutPermissionReadsFindNothingAndWritesSayWhy)
{
    WriteByHand("timer = \"60\"\n");
    QFile::setPermissions(path, QFile::Permissions());
    const WarningCollector warnings;
    {
        const AsNobody nobody;
        EXPECT_FALSE(store.HasKey(ConfigKeyId::Base));
        EXPECT_FALSE(store.WriteText(values::kTimer, u"5"_s));
    }
    QFile::setPermissions(path, QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther);
    EXPECT_EQ(BytesOf(path), "timer = \"60\"\n");

    const QString parent = QFileInfo(path).path();
    QFile::setPermissions(parent, QFile::ReadOwner | QFile::ExeOwner);
    QFile::setPermissions(folder.path(), QFile::Permissions(0x7555));
    {
        const AsNobody nobody;
        EXPECT_FALSE(store.WriteText(values::kTimer, u"5"_s));
    }
    QFile::setPermissions(parent, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    EXPECT_EQ(BytesOf(path), "timer = \"60\"\n");
}

TEST_F(ConfigStoreTest, AFullDiskLeavesTheOldFile)
{
    MakeBaseKey();
    ASSERT_TRUE(store.WriteText(values::kTimer, u"60"_s));
    const QByteArray before = BytesOf(path);
    const auto previous = std::signal(SIGXFSZ, SIG_IGN);
    rlimit old {};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &old), 0);
    const rlimit tiny {100, old.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &tiny), 0);
    const WarningCollector warnings;
    EXPECT_FALSE(store.WriteText(values::kNic, QString(500, u'x')));
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &old), 0);
    std::signal(SIGXFSZ, previous);
    EXPECT_EQ(BytesOf(path), before);
    EXPECT_EQ(QDir(QFileInfo(path).path()).entryList(QDir::Files | QDir::Hidden).size(), 1)
        << "no temporary file is left";
    ASSERT_EQ(WarningCollector::Lines().size(), 1);
    EXPECT_TRUE(WarningCollector::Lines()[0].contains(u"was not changed"_s));
    EXPECT_FALSE(WarningCollector::Lines()[0].contains(u"xxx"_s)) << "never a value";
}

TEST_F(ConfigStoreTest, PermissionsAreKeptAndOpenOnesAreToldOnce)
{
    MakeBaseKey();
    const auto closed = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup;
    const auto named = QFile::ReadUser | QFile::WriteUser;
    EXPECT_EQ(QFile::permissions(path) & ~named, closed);
    EXPECT_EQ(QFile::permissions(QFileInfo(path).path()) & ~(named | QFile::ExeUser),
              closed | QFile::ExeOwner | QFile::ExeGroup);
    const WarningCollector warnings;
    EXPECT_TRUE(store.WriteText(values::kTimer, u"60"_s));
    EXPECT_EQ(QFile::permissions(path) & ~named, closed);
    EXPECT_TRUE(WarningCollector::Lines().isEmpty());

    QFile::setPermissions(path, closed | QFile::ReadOther);
    for (int i = 0; i < 3; ++i) {
        EXPECT_TRUE(store.WriteText(values::kTimer, u"61"_s));
    }
    EXPECT_EQ(QFile::permissions(path) & ~named, closed | QFile::ReadOther);
    EXPECT_EQ(
        WarningCollector::Lines(),
        QStringList(u"tollbrook.config: "_s + path + u" is open to everybody on this machine"_s));
}
