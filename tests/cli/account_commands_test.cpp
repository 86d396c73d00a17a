// "limit ..." and "credit ...".
#include "cli/command_line_fixture.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::HasSubstr;

namespace {

class AccountCommands : public CommandLineFixture
{
protected:
    void SetUp() override
    {
        CommandLineFixture::SetUp();
        AddOwners();
    }

    void ExpectRefused(const QString &line, int status, const char *words)
    {
        const QStringList before = EveryRow();
        EXPECT_EQ(Run(line.split(u' ')), status) << line.toStdString() << said.toStdString();
        EXPECT_THAT(said.toStdString(), HasSubstr(words));
        EXPECT_EQ(EveryRow(), before);
    }

    void ExpectDone(const QString &line)
    {
        const QStringList before = EveryRow();
        EXPECT_EQ(Run(QString(line + u" --dry-run"_s).split(u' ')), 0) << said.toStdString();
        EXPECT_EQ(EveryRow(), before) << "tried only";
        EXPECT_EQ(Run(line.split(u' ')), 0) << line.toStdString() << said.toStdString();
    }
};
TB_ON_EVERY_ENGINE(AccountCommands);

const char *const kAnna =
    "SELECT mode, traflim, timelim, trafperiod, timeperiod, blocked FROM users WHERE user_id = 1";

} // namespace

TEST_P(AccountCommands, ShowsAndSetsTheLimitsOfAUser)
{
    const auto limits = ObjectOf({u"limit"_s, u"show"_s, u"anna"_s});
    EXPECT_EQ(limits[u"mode"], u"traffic"_s);
    EXPECT_EQ(limits[u"trafficLimit"], 500);
    EXPECT_EQ(limits[u"left"], 500);
    ExpectDone(u"limit set anna --traffic 2GB --period day"_s);
    EXPECT_EQ(RowsOf(kAnna), QStringList(u"1|2048|0|1|2|0"_s));
    ExpectDone(u"limit set anna --mode both --time 20h"_s);
    EXPECT_EQ(RowsOf(kAnna), QStringList(u"5|2048|20|1|2|0"_s));
    ExpectRefused(u"limit set anna --price 2"_s, 1, "Mode \"both\" has no price");
    ExpectRefused(u"limit set anna --price 0.055"_s, 2, "at most 2 decimals");
    ExpectRefused(u"limit set anna --mode none --traffic 5"_s, 1, "has no traffic limit");
    ExpectRefused(u"limit set anna --traffic 1.5"_s, 2, "whole number of megabytes");
    ExpectDone(u"limit set anna --traffic 2GB"_s);
    EXPECT_EQ(printed, u"User anna is so already. Nothing was changed.\n"_s);
    ExpectRefused(u"limit set anna"_s, 2, "Name what is to change");
    ExpectRefused(u"limit set --period day"_s, 2, "Name either a user or");
    ExpectRefused(u"limit show anna --group yard"_s, 2, "Name either a user or");
    ExpectDone(u"limit set anna --mode provider --price 1.25"_s);
    EXPECT_EQ(ObjectOf({u"limit"_s, u"show"_s, u"anna"_s})[u"price"], 1.25);
    ExpectDone(u"limit set anna --global-price"_s);
    EXPECT_EQ(ObjectOf({u"limit"_s, u"show"_s, u"anna"_s})[u"price"], QJsonValue());
}

// As the sheet does, which lifts the service's block where the limit leaves something again.
TEST_P(AccountCommands, AHigherLimitLiftsTheServicesBlock)
{
    RunBeside("UPDATE users SET blocked = 1, blockreason = 1 WHERE user_id = 1");
    ExpectDone(u"limit set anna --traffic 600"_s);
    EXPECT_EQ(RowsOf(kAnna), QStringList(u"1|600|0|2|2|0"_s));
}

TEST_P(AccountCommands, ShowsAndSetsTheLimitOfAGroup)
{
    ExpectDone(u"limit set --group yard --mode traffic --traffic 5GB"_s);
    const auto limits = ObjectOf({u"limit"_s, u"show"_s, u"--group"_s, u"yard"_s});
    EXPECT_EQ(limits[u"owner"], u"group"_s);
    EXPECT_EQ(limits[u"trafficLimit"], 5120);
    ExpectRefused(u"limit set --group yard --mode time"_s, 1, "A group has no time limit");
}

TEST_P(AccountCommands, GivesListsAndClosesCredits)
{
    ExpectDone(u"credit add anna --traffic 1.5GB"_s);
    const auto credits = ListOf({u"credit"_s, u"list"_s, u"anna"_s});
    ASSERT_EQ(credits.size(), 1);
    EXPECT_EQ(credits[0][u"kind"], u"traffic"_s);
    EXPECT_EQ(credits[0][u"amount"], 1536);
    EXPECT_EQ(credits[0][u"balance"], 1536);
    EXPECT_EQ(credits[0][u"status"], u"active"_s);
    const QString number = QString::number(credits[0][u"id"].toInt());
    ExpectRefused(u"credit close anna"_s, 2, "--credit");
    ExpectRefused(u"credit close anna --credit 99"_s, 1, "has no credit 99");
    ExpectDone(u"credit close anna --credit "_s + number);
    ExpectRefused(u"credit close anna --credit "_s + number, 1, "is closed already");
    EXPECT_EQ(ListOf({u"credit"_s, u"list"_s, u"anna"_s, u"--open"_s}), QJsonArray());
    EXPECT_EQ(FieldsOf(ListOf({u"credit"_s, u"list"_s, u"anna"_s}), u"status"_s),
              QStringList(u"closed"_s));
}

TEST_P(AccountCommands, TakesTheCreditsThatTheModeTakes)
{
    ExpectRefused(u"credit add bert --traffic 5"_s, 1, "User bert has no account");
    ExpectRefused(u"credit list --group yard"_s, 1, "Group Yard has no account");
    ExpectRefused(u"credit add anna --money 5"_s, 1, "takes these credits: traffic");
    ExpectRefused(u"credit add anna --traffic 5 --time 2"_s, 2, "Name one of --traffic");
    ExpectRefused(u"credit add anna"_s, 2, "Name one of --traffic");
    ExpectRefused(u"credit add anna --traffic 0"_s, 1, "Please enter an amount above 0");
    ExpectRefused(u"credit add anna --traffic 5 --until 2999-01-01"_s, 1, "it has no --until");
    RunBeside("UPDATE users SET mode = 2 WHERE user_id = 1");
    ExpectRefused(u"credit add anna --money 5 --until 2020-01-01"_s, 1, "already passed");
    ExpectRefused(u"credit add anna --money 5 --until soon"_s, 2, "is no day");
    ExpectRefused(u"credit add anna --time 5"_s, 1, "unlimited, traffic, money");
    const ConfigStore settings = Settings();
    ASSERT_TRUE(settings.WriteText(values::kCurUse, u"2"_s));
    ASSERT_TRUE(settings.WriteText(values::kCurrencyName, u"Euro"_s));
    ASSERT_TRUE(settings.WriteText(values::kCurrencyRate, u"0.5"_s));
    ExpectDone(u"credit add anna --money 12.50 --until 2999-12-31"_s);
    ExpectDone(u"credit add anna --unlimited"_s);
    EXPECT_EQ(RowsOf("SELECT moneydata, unlimited, expiredday FROM billing ORDER BY bill_id")
                  .first()
                  .section(u'|', 1),
              u"0|2999.12.31"_s);
    const auto credits = ListOf({u"credit"_s, u"list"_s, u"anna"_s});
    ASSERT_EQ(credits.size(), 2);
    EXPECT_EQ(credits[0][u"amount"], 12.5); // of the currency
    EXPECT_EQ(credits[0][u"unit"], u"Euro"_s);
    EXPECT_EQ(credits[0][u"expires"], u"2999-12-31"_s);
    EXPECT_EQ(credits[1][u"kind"], u"unlimited"_s);
    EXPECT_EQ(credits[1][u"amount"], QJsonValue());
}

TEST_P(AccountCommands, NoMoneyIsShownOrStoredByARateThatCannotBeRead)
{
    QFile file(Settings().FileOf(ConfigKeyId::Base));
    ASSERT_TRUE(file.open(QIODevice::Append));
    file.write("broken [\n");
    file.close();
    for (const char *line :
         {"credit list anna", "credit add anna --traffic 5", "limit show anna"}) {
        ExpectRefused(QString::fromLatin1(line) + u" --dsn "_s + Dsn(), 3, "Network.toml");
    }
}
