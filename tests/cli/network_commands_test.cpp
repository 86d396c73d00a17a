// "range ...", "exclusion ..." and "currency ...": the settings that are changed as a whole.
#include "admin/options.h"
#include "cli/command_line_fixture.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::HasSubstr;

namespace {

class NetworkCommands : public CommandLineFixture
{
protected:
    void SetUp() override
    {
        CommandLineFixture::SetUp();
        ASSERT_TRUE(Settings().CreateKey(ConfigKeyId::LocalIp));
        AddOwners();
    }

    [[nodiscard]] QByteArray FileOf(ConfigKeyId key) const
    {
        QFile file(Settings().FileOf(key));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    [[nodiscard]] QByteArray AllFiles() const
    {
        return FileOf(ConfigKeyId::Base) + FileOf(ConfigKeyId::LocalIp);
    }

    void ExpectRefused(const char *line, int status, const char *words)
    {
        const QStringList before = EveryRow();
        const QByteArray files = AllFiles();
        EXPECT_EQ(Run(QString::fromUtf8(line).split(u' ')), status) << line << qPrintable(said);
        EXPECT_THAT(said.toStdString(), HasSubstr(words)) << line;
        EXPECT_EQ(printed, QString()) << line;
        EXPECT_EQ(EveryRow(), before) << line;
        EXPECT_EQ(AllFiles(), files) << line;
    }

    // Done as it is, and nothing with --dry-run.
    void ExpectDone(const char *line)
    {
        const QStringList words = QString::fromUtf8(line).split(u' ');
        const QByteArray files = AllFiles();
        EXPECT_EQ(Run(words + QStringList {u"--dry-run"_s}), 0) << line << qPrintable(said);
        EXPECT_THAT(printed.toStdString(), HasSubstr("Nothing was written"));
        EXPECT_EQ(AllFiles(), files) << line;
        EXPECT_EQ(Run(words), 0) << line << qPrintable(said);
        EXPECT_NE(AllFiles(), files) << line;
    }

    [[nodiscard]] Options Stored() const { return LoadOptions(Settings()).settings; }
};
TB_ON_EVERY_ENGINE(NetworkCommands);

QStringList Words(const char *line)
{
    return QString::fromUtf8(line).split(u' ');
}

constexpr AddressRange kTen {0x0A000000U, 0xFFFFFF00U};
constexpr AddressRange kEleven {0x0B000000U, 0xFFFF0000U};

} // namespace

TEST_P(NetworkCommands, RangesAreAddedListedAndRemoved)
{
    EXPECT_EQ(ListOf(Words("range list")), QJsonArray());
    ExpectDone("range add 10.0.0.0 255.255.255.0");
    ExpectDone("range add 11.0.0.0/16");
    EXPECT_EQ(Stored().ranges, (QList {kTen, kEleven}));
    const auto listed = ListOf(Words("range list"));
    EXPECT_EQ(FieldsOf(listed, u"network"_s), (QStringList {u"10.0.0.0"_s, u"11.0.0.0"_s}));
    EXPECT_EQ(FieldsOf(listed, u"mask"_s), (QStringList {u"255.255.255.0"_s, u"255.255.0.0"_s}));

    ExpectRefused("range add 10.0.0.0 255.255.255.0", 1, "already defined this range");
    ExpectRefused("range add 12.0.0.0 255.0.0", 1, "incorrect IP addresses");
    ExpectRefused("range add 12.0.0.0/33", 1, "incorrect IP addresses");
    ExpectRefused("range add 12.0.0/24", 1, "incorrect IP addresses");
    ExpectRefused("range add 12.0.0.0", 2, "10.1.2.0/24");
    ExpectRefused("range remove 10.0.0.0 255.255.0.0", 1, "There is no such range");
    ExpectDone("range remove 10.0.0.0/24");
    EXPECT_EQ(Stored().ranges, QList {kEleven});
}

TEST_P(NetworkCommands, NoMoreRangesThanTheServiceReads)
{
    QList<AddressRange> all;
    for (Ipv4 i = 0; i < kMaxRanges; ++i) {
        all << AddressRange {(20U + i) << 24U, 0xFFFFFF00U};
    }
    ASSERT_TRUE(
        Settings().Edit(ConfigKeyId::LocalIp, [&](KeyEditor &key) { SaveRanges(key, {}, all); }));
    ExpectRefused("range add 10.0.0.0/24", 1, "more than 50 ranges");
}

TEST_P(NetworkCommands, WhoHasAnExcludedAddressIsAskedAbout)
{
    ExpectDone("exclusion add 10.0.0.9");
    ExpectRefused("exclusion add 10.0.0.9", 1, "already excluded");
    ExpectRefused("exclusion add 0.0.0.0", 1, "Enter IP address");
    ExpectRefused("exclusion add 10.0.0", 1, "Enter IP address");
    ExpectRefused("exclusion add 10.0.0.1", 1, "10.0.0.1 is already in the active database");
    EXPECT_THAT(said.toStdString(), HasSubstr("anna"));
    const QStringList before = EveryRow();
    ASSERT_EQ(Run(Words("exclusion add 10.0.0.1 --dry-run")), 0);
    EXPECT_EQ(EveryRow(), before);

    EXPECT_EQ(RunOnTerminal(Words("exclusion add 10.0.0.1"), "n\n"), 0) << qPrintable(said);
    EXPECT_EQ(EveryRow(), before) << "the address is excluded all the same";
    EXPECT_EQ(Stored().exclusions, (QList<Ipv4> {0x0A000009U, 0x0A000001U}));
    ExpectDone("exclusion remove 10.0.0.1");
    ASSERT_EQ(Run(Words("exclusion add 10.0.0.1 --yes")), 0);
    EXPECT_EQ(RowsOf("SELECT username FROM users WHERE ip_addr = '10.0.0.1'"), QStringList());
    EXPECT_EQ(FieldsOf(ListOf(Words("exclusion list")), u"address"_s),
              (QStringList {u"10.0.0.9"_s, u"10.0.0.1"_s}));
    ExpectRefused("exclusion remove 10.0.0.7", 1, "is not excluded");
    for (int last = 11; last < 19; ++last) {
        ASSERT_EQ(Run({u"exclusion"_s, u"add"_s, u"10.0.0.%1"_s.arg(last)}), 0);
    }
    ExpectRefused("exclusion add 10.0.0.20", 1, "No more than 10");
}

TEST_P(NetworkCommands, NothingIsWrittenOverWhatCannotBeRead)
{
    const std::pair<QByteArray, const char *> cases[] = {
        {"rangenum = \"1\"\nnet0 = \"x\"\nmask0 = 4294967040\n", "net0"},
        {"rangenum = \"2\"\nnet0 = 167772160\nmask0 = 4294967040\n", "net1"},
        {"exclude0 = 167772165\nexclude1 = \"10.0.0.5\"\n", "exclude1"},
    };
    for (const auto &[text, name] : cases) {
        QFile file(Settings().FileOf(ConfigKeyId::LocalIp));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(text) == text.size());
        file.close();
        for (const char *line : {"range list",
                                 "exclusion list",
                                 "range add 10.9.0.0/24",
                                 "range remove 0.0.0.0/24",
                                 "exclusion add 10.0.77.78",
                                 "exclusion remove 10.0.0.5"}) {
            ExpectRefused(line, 3, name);
        }
    }
}

TEST_P(NetworkCommands, AStatementThatFailsIsTold)
{
    RunBeside("ALTER TABLE users RENAME TO users_away");
    EXPECT_EQ(Run(Words("exclusion add 10.0.0.1")), 4);
    EXPECT_THAT(said.toStdString(),
                HasSubstr("Whether a user has the excluded address 10.0.0.1 is not known."));
    RunBeside("ALTER TABLE users_away RENAME TO users");
    EXPECT_EQ(Stored().exclusions, QList<Ipv4> {0x0A000001U});
}

TEST_P(NetworkCommands, ACurrencyIsDefinedUsedAndRemoved)
{
    ExpectRefused("currency set USD --rate 2", 1, "There is no currency \"USD\"");
    ExpectRefused("currency add USD --rate 0", 1, "Enter the currency rate");
    ExpectRefused("currency add USD --rate 1,5", 1, "as a number above 0");
    ExpectDone("currency add usd --title Dollar --rate 1.25");
    const auto defined = Stored().currency;
    EXPECT_EQ(defined.use, int {CurrencySettings::Defined});
    EXPECT_EQ(defined.symbol, u"USD"_s);
    EXPECT_EQ(defined.name, u"Dollar"_s);
    EXPECT_EQ(defined.rate, 1.25);
    ExpectRefused("currency add EUR", 1, "There is a currency already, \"USD\"");

    ExpectDone("currency use usd");
    EXPECT_EQ(Stored().currency.use, int {CurrencySettings::InUse});
    EXPECT_EQ(Run(Words("currency use usd")), 0);
    EXPECT_EQ(printed, u"The currency is so already. Nothing was changed.\n"_s);
    ExpectDone("currency set USD --symbol eur --rate 0.5");
    EXPECT_EQ(Stored().currency.name, u"Dollar"_s);
    const auto listed = ListOf(Words("currency list"));
    EXPECT_EQ(FieldsOf(listed, u"symbol"_s), (QStringList {u"UN"_s, u"EUR"_s}));
    EXPECT_EQ(FieldsOf(listed, u"rate"_s), (QStringList {u"1"_s, u"0.5"_s}));
    EXPECT_EQ(FieldsOf(listed, u"inUse"_s), (QStringList {u"false"_s, u"true"_s}));
    ExpectDone("currency use UN");
    EXPECT_EQ(Stored().currency.use, int {CurrencySettings::Defined});

    ExpectRefused("currency remove UN", 1, "can not delete base currency");
    ExpectRefused("currency set UN --rate 2", 1, "can not edit base currency");
    ExpectDone("currency remove EUR");
    EXPECT_EQ(Stored().currency.use, int {CurrencySettings::None});
}

TEST_P(NetworkCommands, WhatCannotBeReadIsNotReplaced)
{
    for (const ConfigKeyId key : {ConfigKeyId::Base, ConfigKeyId::LocalIp}) {
        QFile file(Settings().FileOf(key));
        ASSERT_TRUE(file.open(QIODevice::Append));
        file.write("broken [\n");
    }
    const QStringList dsn {u"--dsn"_s, Dsn()};
    const QByteArray files = AllFiles();
    for (const char *line : {"range add 10.0.0.0/24",
                             "exclusion add 10.0.0.9",
                             "range list",
                             "exclusion list",
                             "currency list",
                             "currency add USD"}) {
        EXPECT_EQ(Run(Words(line) + dsn), 3) << line << qPrintable(said);
        EXPECT_EQ(printed, QString()) << line;
    }
    EXPECT_EQ(AllFiles(), files);
}
