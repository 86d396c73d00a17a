#include "config/config_store.h"

#include "config/store_fixture.h"
#include "support/core/file_size_limit.h"

#include <QDir>

#include <unistd.h>

using namespace Qt::StringLiterals;

class ConfigStoreTest : public StoreFixture
{
protected:
    [[nodiscard]] QStringList FilesBesidePath() const
    {
        return QDir(QFileInfo(path).path()).entryList(QDir::Files | QDir::Hidden);
    }
};

TEST_F(ConfigStoreTest, AMissingKeyReadsAsNothingAndIsNeverMade)
{
    EXPECT_FALSE(store.HasKey(ConfigKeyId::Base));
    EXPECT_EQ(store.ReadText(values::kBillDsn), std::nullopt);
    EXPECT_EQ(store.ReadInteger(values::kTimer), 0);
    EXPECT_EQ(store.ReadNumber(values::kNet, 0), std::nullopt);
    EXPECT_EQ(store.Problem(ConfigKeyId::Base), std::nullopt) << "missing is no failure";
    const auto opened = store.ReadKey(ConfigKeyId::Base);
    ASSERT_TRUE(opened);
    EXPECT_EQ(opened->ReadText(values::kBillDsn), std::nullopt);
    EXPECT_EQ(opened->ReadInteger(values::kTimer), 0);
    EXPECT_TRUE(store.WriteText(values::kNic, u"eth0"_s)) << "a success that writes nothing";
    EXPECT_TRUE(store.WriteNumber(values::kNet, 0, 1));
    EXPECT_TRUE(store.Edit(ConfigKeyId::Base, [](KeyEditor &) { ADD_FAILURE(); }));
    EXPECT_FALSE(QDir(store.Folder()).exists());

    MakeBaseKey();
    EXPECT_TRUE(store.HasKey(ConfigKeyId::Base));
    EXPECT_TRUE(store.WriteNumber(values::kNet, 0, 1)) << "a subkey is a key of its own";
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

TEST_F(ConfigStoreTest, AKeyIsReadAtOneMoment)
{
    WriteByHand("timer = \"60\"\ncurrencyrate = \"1.5\"\nNIC = \"eth0\"\n");
    const auto opened = store.ReadKey(ConfigKeyId::Base);
    ASSERT_TRUE(store.WriteText(values::kNic, u"eth1"_s));
    ASSERT_TRUE(opened);
    EXPECT_EQ(opened->ReadInteger(values::kTimer), 60);
    EXPECT_EQ(opened->ReadAmount(values::kCurrencyRate), 1.5);
    EXPECT_EQ(opened->ReadText(values::kNic), u"eth0"_s);
    EXPECT_EQ(opened->ReadText(values::kNic, 4), std::nullopt) << "does not fit its buffer";
}

struct DamagedFile
{
    QByteArray bytes;
    int line;
    QString reason; // after "is damaged and must be mended: "
};

const DamagedFile kDamagedFiles[] = {
    {"port = \"700\"\ntimer = 5 sec\n",
     2,
     u"Error while parsing key-value pair: expected a comment or whitespace"_s},
    {"timer = \"6", 1, u"Error while parsing string: encountered end-of-file"_s},
    {"\xEF\xBB\xBFport = \"7\"\r\n\r\ntimer 60\r\n",
     3,
     u"Error while parsing key-value pair: expected '='"_s},
    {"a = 1\na = 2\n",
     2,
     u"Error while parsing key-value pair: cannot redefine existing integer 'a'"_s},
    {"\xff\xfe = 1", 1, u"Encountered invalid utf-8 sequence"_s},
    {"clientpwd = topsecret\n", 1, u"Error while parsing boolean: expected 'true'"_s},
    {"clientpwd = 74108520963074108520\n",
     1,
     u"Error while parsing decimal integer: is not representable in 64 bits"_s},
    {QByteArray(qsizetype(2) * 1024 * 1024, '\n'), 0, u"it is larger than 1048576 bytes"_s},
};

TEST_F(ConfigStoreTest, ADamagedFileReadsAsMissingAndIsNeverWritten)
{
    for (const auto &[bytes, line, reason] : kDamagedFiles) {
        WriteByHand(bytes);
        const SettingsFailure failure {path, line, u"is damaged and must be mended: "_s + reason};
        const WarningCollector warnings;
        EXPECT_FALSE(store.HasKey(ConfigKeyId::Base));
        EXPECT_EQ(store.ReadText(values::kTimer), std::nullopt);
        EXPECT_EQ(store.ReadInteger(values::kPort), 0);
        EXPECT_EQ(store.Problem(ConfigKeyId::Base), failure);
        const auto opened = store.ReadKey(ConfigKeyId::Base);
        ASSERT_FALSE(opened) << qPrintable(reason);
        EXPECT_EQ(opened.error(), failure);
        EXPECT_EQ(WarningCollector::Lines(),
                  QStringList(u"tollbrook.config: "_s + TextOf(failure)
                              + u" Its values count as missing."_s))
            << "one line, however often it is read";

        const auto edited = store.Edit(ConfigKeyId::Base, [](KeyEditor &) { ADD_FAILURE(); });
        ASSERT_FALSE(edited);
        EXPECT_EQ(edited.error(), failure);
        EXPECT_FALSE(store.WriteText(values::kTimer, u"60"_s));
        EXPECT_EQ(BytesOf(path), bytes);
        EXPECT_EQ(FilesBesidePath(), QStringList(u"Network.toml"_s)) << "nor any copy of it";
        EXPECT_EQ(WarningCollector::Lines().last(),
                  u"tollbrook.config: "_s + TextOf(failure) + u" Nothing was written."_s);
    }
    WriteByHand("port = \"700\"\ntimer = \"5\" # sec\n");
    EXPECT_EQ(store.Problem(ConfigKeyId::Base), std::nullopt);
    EXPECT_TRUE(store.WriteText(values::kTimer, u"60"_s));
    EXPECT_EQ(BytesOf(path), "port = \"700\"\ntimer = \"60\" # sec\n");
}

TEST_F(ConfigStoreTest, AFailureIsToldInOneSentence)
{
    EXPECT_EQ(TextOf({u"/etc/x.toml"_s, 3, u"is damaged"_s}),
              u"Line 3 of the settings file \"/etc/x.toml\" is damaged."_s);
    EXPECT_EQ(TextOf({u"/etc/%1.toml"_s, 0, u"cannot be written: %2"_s}),
              u"The settings file \"/etc/%1.toml\" cannot be written: %2."_s);
}

TEST_F(ConfigStoreTest, AFileThatCannotBeReadIsLeftAlone)
{
    MakeBaseKey();
    ASSERT_TRUE(QFile::remove(path));
    ASSERT_TRUE(QDir().mkdir(path));
    const WarningCollector warnings;
    const SettingsFailure failure {path, 0, u"cannot be read: it is not a file"_s};
    EXPECT_FALSE(store.HasKey(ConfigKeyId::Base));
    EXPECT_EQ(store.Problem(ConfigKeyId::Base), failure);
    const auto written = store.WriteText(values::kTimer, u"60"_s);
    ASSERT_FALSE(written);
    EXPECT_EQ(written.error(), failure);
    EXPECT_TRUE(QFileInfo(path).isDir());
    EXPECT_EQ(WarningCollector::Lines().filter(u"Its values count as missing."_s).size(), 1);
}

TEST_F(ConfigStoreTest, AValueThatTheFileCannotTakeIsNotLostSilently)
{
    const auto expectRefused = [this](const QByteArray &bytes,
                                      const TextValue &value,
                                      const QString &text) {
        WriteByHand(bytes);
        const auto edited = store.Edit(ConfigKeyId::Base, [&](KeyEditor &key) {
            key.WriteText(values::kPort, u"700"_s);
            key.WriteText(value, text);
            key.WriteText(values::kPath, u"/srv/"_s);
        });
        ASSERT_FALSE(edited);
        EXPECT_EQ(edited.error(),
                  (SettingsFailure {path,
                                    0,
                                    u"cannot be written: it does not take the value \"%1\""_s.arg(
                                        QLatin1StringView(value.name))}));
        EXPECT_EQ(BytesOf(path), bytes) << "nor is anything else written";
    };
    expectRefused("[timer]\nsec = 5\n", values::kTimer, u"60"_s);
    expectRefused("timer = { sec = 5 }\n", values::kTimer, u"60"_s);
    expectRefused("NIC = \"eth0\"\n", values::kNic, QString(QChar(0xD800))); // half a character
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
    EXPECT_TRUE(store.Problem(ConfigKeyId::Base));
    EXPECT_FALSE(store.WriteText(values::kTimer, u"60"_s));
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
    constexpr QFile::Permissions kNone;
    constexpr QFile::Permissions kMayEnter(0x5555);
    const QString parent = QFileInfo(path).path();
    const auto expectRefused = [this](const QString &reason, bool isProblem) {
        const AsNobody nobody;
        const auto written = store.WriteText(values::kTimer, u"5"_s);
        ASSERT_FALSE(written) << qPrintable(reason);
        EXPECT_EQ(written.error(), (SettingsFailure {path, 0, reason}))
            << qPrintable(TextOf(written.error()));
        EXPECT_EQ(store.Problem(ConfigKeyId::Base).has_value(), isProblem) << qPrintable(reason);
    };
    const WarningCollector warnings;
    QFile::setPermissions(folder.path(), kMayEnter);
    QFile::setPermissions(parent, kNone); // so that it cannot be known whether there is a file
    expectRefused(u"cannot be written: its folder: Permission denied"_s, true);
    QFile::setPermissions(parent, kMayEnter);
    for (const auto &above : {u"etc"_s, u"etc/Software"_s, u"etc/Software/Tollbrook"_s}) {
        QFile::setPermissions(folder.filePath(above), kMayEnter);
    }
    QFile::setPermissions(path, kNone);
    expectRefused(u"cannot be read: Permission denied"_s, true);
    QFile::setPermissions(path, QFile::Permissions(0x6666));
    expectRefused(u"cannot be written: Permission denied"_s, false);
    EXPECT_EQ(BytesOf(path), "timer = \"60\"\n");
    EXPECT_EQ(FilesBesidePath(), QStringList(u"Network.toml"_s));
    QFile::setPermissions(parent, QFile::Permissions(0x7755)); // so that it can be removed
}

TEST_F(ConfigStoreTest, AFullDiskLeavesTheOldFile)
{
    MakeBaseKey();
    ASSERT_TRUE(store.WriteText(values::kTimer, u"60"_s));
    const QByteArray before = BytesOf(path);
    const WarningCollector warnings;
    {
        const FileSizeLimit tiny(100);
        const auto written = store.WriteText(values::kNic, QString(500, u'x'));
        ASSERT_FALSE(written);
        EXPECT_EQ(written.error(),
                  (SettingsFailure {path, 0, u"cannot be written: File too large"_s}))
            << qPrintable(TextOf(written.error()));
    }
    EXPECT_EQ(BytesOf(path), before);
    EXPECT_EQ(FilesBesidePath(), QStringList(u"Network.toml"_s)) << "no temporary file is left";
    ASSERT_EQ(WarningCollector::Lines().size(), 1);
    EXPECT_TRUE(WarningCollector::Lines()[0].endsWith(u"Nothing was written."_s));
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
    EXPECT_EQ(store.OpenToEverybody(), QStringList());
    EXPECT_TRUE(store.WriteText(values::kTimer, u"60"_s));
    EXPECT_EQ(QFile::permissions(path) & ~named, closed);
    EXPECT_TRUE(WarningCollector::Lines().isEmpty());

    QFile::setPermissions(path, closed | QFile::ReadOther);
    EXPECT_EQ(store.OpenToEverybody(), QStringList(path));
    for (int i = 0; i < 3; ++i) {
        EXPECT_TRUE(store.WriteText(values::kTimer, u"61"_s));
    }
    EXPECT_EQ(QFile::permissions(path) & ~named, closed | QFile::ReadOther);
    EXPECT_EQ(WarningCollector::Lines(),
              QStringList(u"tollbrook.config.rights: "_s + path
                          + u" is open to everybody on this machine"_s));
}
