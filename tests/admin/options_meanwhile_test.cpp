// The option windows beside another console and beside settings that cannot be read or written.
#include "admin/global_options.h"
#include "admin/save_steps.h"
#include "options_fixture.h"
#include "support/core/file_size_limit.h"

#include <QFile>

using namespace Qt::StringLiterals;

class OptionsMeanwhile : public OptionsFixture
{
protected:
    void Put(ConfigKeyId key, const QByteArray &text) const
    {
        QFile file(store.FileOf(key));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(text) == text.size());
    }

    [[nodiscard]] QByteArray TextOfKey(ConfigKeyId key) const
    {
        QFile file(store.FileOf(key));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }
};
TB_ON_EVERY_ENGINE(OptionsMeanwhile);

TEST_P(OptionsMeanwhile, WhatWasNotTouchedStaysAsTheOtherLeftIt)
{
    const Options first = Load();
    Save(first, first); // every value is there
    const Options shown = Load();

    Options others = shown;
    others.updatePeriod = 30;
    others.adapter = u"Ethernet adapter eth7"_s;
    others.identMode = ident_mode::kUserName;
    others.controlMac = true;
    others.authPort = 8081;
    others.authRequiredForNew = others.allowNotLogged = others.allowNonHost = true;
    others.profile = {AccountingMode::TrafficAndTime, 100, 8, LimitPeriod::Month, true, false};
    others.ranges = {{0x0A000000U, 0xFFFFFF00U}};
    others.exclusions = {0x0A000009U};
    others.monitorMode = monitor_mode::kAllButSpecified;
    others.currency.trafficPrice = 0.5;
    AddCurrency(others.currency, {u"usd"_s, u"Dollar"_s, u"0.034"_s});
    Save(shown, others);

    Options touched = shown;
    touched.allowNonHost = true;
    Save(shown, touched);
    Options now = Load();
    EXPECT_EQ(now.updatePeriod, 30);
    EXPECT_EQ(now.adapter, others.adapter);
    EXPECT_EQ(now.identMode, others.identMode);
    EXPECT_TRUE(now.controlMac && now.authRequiredForNew && now.allowNotLogged);
    EXPECT_EQ(now.authPort, 8081);
    EXPECT_EQ(now.profile, others.profile);
    EXPECT_EQ(now.ranges, others.ranges);
    EXPECT_EQ(now.exclusions, others.exclusions);
    EXPECT_EQ(now.monitorMode, others.monitorMode);
    EXPECT_EQ(now.currency, others.currency);

    GlobalOptions sheet = LoadGlobalOptions(store).settings;
    GlobalOptions sheetTouched = sheet;
    sheetTouched.domainLogon = true;
    touched = now;
    touched.updatePeriod = 40;
    touched.identMode = ident_mode::kMacAddress;
    touched.controlMac = false;
    Save(now, touched);
    EXPECT_TRUE(SaveGlobalOptions({sheet, sheetTouched}, store, {}).IsDone());
    now = Load();
    EXPECT_EQ(now.updatePeriod, 40);
    EXPECT_EQ(now.identMode, ident_mode::kMacAddress);
    EXPECT_FALSE(now.controlMac);
    EXPECT_EQ(now.currency, others.currency);
}

TEST_P(OptionsMeanwhile, WhatWasTouchedIsWrittenWhateverTheOtherDid)
{
    const Options shown = Load();
    Options others = shown;
    others.updatePeriod = 30;
    others.exclusions = {0x0A000009U, 0x0A00000AU};
    others.ranges = {{0x0A000000U, 0xFFFFFF00U}};
    Save(shown, others);
    Options touched = shown;
    touched.updatePeriod = 60;
    touched.exclusions = {0x0A000001U};
    touched.ranges = {{0x0B000000U, 0xFF000000U}};
    Save(shown, touched);
    EXPECT_EQ(Load().updatePeriod, 60);
    EXPECT_EQ(Load().exclusions, touched.exclusions);
    EXPECT_EQ(Load().ranges, touched.ranges);
}

TEST_P(OptionsMeanwhile, ExclusionsBehindAGapDoNotComeBack)
{
    Put(ConfigKeyId::LocalIp, "exclude0=0x0A000001\nexclude2=0x0A000002\n");
    const Options shown = Load();
    EXPECT_EQ(shown.exclusions, QList<Ipv4> {0x0A000001U});
    Save(shown, shown);
    EXPECT_EQ(Load().exclusions, shown.exclusions) << "the gap is filled, and what it hid is gone";
    EXPECT_EQ(store.ReadNumber(values::kExclude, 2), 0U);
}

TEST_P(OptionsMeanwhile, TheAddressesThatStandNowAreAskedAbout)
{
    Execute("INSERT INTO users (username, ip_addr, group_id) VALUES ('anna', '10.0.0.9', 80)");
    const Options shown = Load();
    EXPECT_TRUE(store.WriteNumber(values::kExclude, 0, 0x0A000009U));
    const SaveReport report = SaveOptions({shown, shown}, store, {});
    ASSERT_EQ(report.questions.size(), 1);
    EXPECT_TRUE(report.questions[0].text.startsWith(u"IP-Address 10.0.0.9 is"_s));
}

TEST_P(OptionsMeanwhile, AddressesThatCannotBeReadAreToldAndNotReplaced)
{
    const std::pair<QByteArray, QString> cases[] = {
        {"rangenum = \"1\"\nnet0 = \"10.0.0.0\"\nmask0 = 4294967040\n", u"net0"_s},
        {"rangenum = \"2\"\nnet0 = 1\nmask0 = 1\nnet1 = 2\n", u"mask1"_s},
        {"rangenum = \"1\"\nnet0 = 1\nmask0 = 1\nexclude0 = \"10.0.0.5\"\n", u"exclude0"_s},
        {"rangenum = 1\nnet0 = 1\nmask0 = 1\n", u"rangenum"_s},
        {"rangenum = \"one\"\nnet0 = 1\nmask0 = 1\n", u"rangenum"_s},
        {"rangenum = \"51\"\n", u"rangenum"_s},
    };
    for (const auto &[text, name] : cases) {
        Put(ConfigKeyId::LocalIp, text);
        const auto loaded = LoadOptions(store);
        ASSERT_EQ(loaded.failures.size(), 1) << text.constData();
        EXPECT_TRUE(
            TextOf(loaded.failures[0]).contains(u"localip.toml\" cannot be used: "_s + name))
            << qPrintable(TextOf(loaded.failures[0]));
        EXPECT_EQ(LoadGlobalOptions(store).failures, loaded.failures);
        EXPECT_EQ(LoadSetup(store).failures, loaded.failures);

        Options touched = loaded.settings;
        touched.updatePeriod += 60;
        touched.ranges = {{0x0B000000U, 0xFF000000U}};
        touched.exclusions = {0x0A000009U};
        NetworkSetup setup = LoadSetup(store).settings;
        setup.ranges = touched.ranges;
        EXPECT_EQ(SaveOptions({loaded.settings, touched}, store, {}).settings, loaded.failures);
        EXPECT_EQ(SaveSetup({LoadSetup(store).settings, setup}, store, {}).settings,
                  loaded.failures);
        EXPECT_EQ(TextOfKey(ConfigKeyId::LocalIp), text);
        EXPECT_EQ(LoadOptions(store).settings.updatePeriod, touched.updatePeriod);
    }
}

TEST_P(OptionsMeanwhile, ADamagedFileIsToldAndNotReplaced)
{
    const Options shown = Load();
    const QByteArray damaged = "timer = 5 sec\nNIC = 'eth0'\n";
    Put(ConfigKeyId::Base, damaged);
    const auto loaded = LoadOptions(store);
    ASSERT_EQ(loaded.failures.size(), 1);
    EXPECT_EQ(loaded.failures[0].file, store.FileOf(ConfigKeyId::Base));
    EXPECT_EQ(loaded.failures[0].line, 1);
    EXPECT_EQ(LoadGlobalOptions(store).failures, loaded.failures);
    EXPECT_EQ(LoadSetup(store).failures, loaded.failures);

    Options touched = shown;
    touched.updatePeriod = 60;
    touched.profile.blocked = true;
    touched.protocols->SetMonitored(0, false);
    const SaveReport report = SaveOptions({shown, touched}, store, {});
    EXPECT_EQ(report.settings, loaded.failures) << "once, although five groups were refused";
    EXPECT_EQ(TextOfKey(ConfigKeyId::Base), damaged);
    EXPECT_EQ(store.ReadText(values::kDefBlocked), u"1"_s) << "the other keys are written";
    EXPECT_EQ(RowsOf("SELECT proto_name FROM protocols WHERE mon = 0").size(), 1);
    EXPECT_EQ(report.InWords(),
              u"Not all settings were written. Left as they were: the update period, the network "
              "adapter, the identification of users, the authorization, the monitored protocols, "
              "the currency.\nWhat is not named here was written as it was "
              "entered.\n\n"_s
                  + TextOf(loaded.failures[0]));
}

TEST_P(OptionsMeanwhile, WhatWasUnreadableAtFirstIsNotWrittenOver)
{
    const QByteArray damaged = "timer = 5 sec\n";
    Put(ConfigKeyId::Base, damaged);
    Put(ConfigKeyId::LocalIp, "rangenum = many\n");
    const Options shown = LoadOptions(store).settings;
    Put(ConfigKeyId::Base, "timer = '5'\nidentmode = '2'\n"); // somebody mends them
    Put(ConfigKeyId::LocalIp, "rangenum='1'\nnet0=0x0A000000\nmask0=0xFF000000\nexclude0=7\n");
    Save(shown, shown);
    EXPECT_EQ(Load().updatePeriod, 5);
    EXPECT_EQ(Load().identMode, 2);
    EXPECT_EQ(Load().ranges.size(), 1);
    EXPECT_EQ(Load().exclusions, QList<Ipv4> {7});
}

TEST_P(OptionsMeanwhile, NoUserIsRemovedForAnExclusionThatCannotBeWritten)
{
    Execute("INSERT INTO users (username, ip_addr, group_id) VALUES ('anna', '10.0.0.1', 80)");
    const Options shown = Load();
    Options touched = shown;
    touched.exclusions = {0x0A000001U};
    const Answers yes = AllAnswered(SaveOptions({shown, touched}, store, {}), true);
    ASSERT_EQ(yes.size(), 1);
    Put(ConfigKeyId::LocalIp, "rangenum = many\n");
    const SaveReport report = SaveOptions({shown, touched}, store, yes);
    EXPECT_EQ(report.settings.size(), 1);
    EXPECT_EQ(report.leftOut.size(), 1) << qPrintable(report.InWords());
    EXPECT_EQ(RowsOf("SELECT username FROM users"), QStringList {u"anna"_s});
}

TEST_P(OptionsMeanwhile, NoUserIsRemovedForAnExclusionThatFindsNoRoom)
{
    Execute("INSERT INTO users (username, ip_addr, group_id) VALUES ('anna', '10.0.0.1', 80)");
    ASSERT_TRUE(SaveOptions({Load(), Load()}, store, {}).IsDone()); // the ranges stand in the file
    const Options shown = Load();
    Options touched = shown;
    touched.exclusions = {0x0A000001U};
    const Answers yes = AllAnswered(SaveOptions({shown, touched}, store, {}), true);
    SaveReport report;
    {
        const FileSizeLimit full(0);
        SaveSteps steps(store, yes);
        steps.AskOnExclusions(shown.exclusions, touched.exclusions);
        steps.SaveNetwork({shown.ranges, shown.ranges}, {shown.exclusions, touched.exclusions});
        report = steps.Report();
    }
    EXPECT_EQ(report.unwritten.size(), 1) << "the ranges are as they were anyway";
    EXPECT_EQ(report.leftOut.size(), 1) << qPrintable(report.InWords());
    EXPECT_EQ(report.statements.size(), 0) << "nobody was to be removed";
    EXPECT_EQ(RowsOf("SELECT username FROM users"), QStringList {u"anna"_s});
}

TEST_P(OptionsMeanwhile, AUserWhoCouldNotBeRemovedIsTold)
{
    Execute("ALTER TABLE users RENAME TO users_away");
    const Outcome outcome = RunAction(ExcludeAddressAction({1, 2}), {}, nullptr);
    Execute("ALTER TABLE users_away RENAME TO users");
    SaveReport report;
    report.Add(ActionId::ExcludeAddress, outcome);
    EXPECT_TRUE(
        report.InWords().startsWith(u"The user of an excluded address was not removed.\n"_s));
    EXPECT_EQ(report.statements.size(), 2) << "the second one was tried as well";
}

TEST_P(OptionsMeanwhile, ASaveThatWasGivenUpMayStand)
{
    const SaveReport report = GivenUp<SaveReport>::As(Failure(), false);
    EXPECT_FALSE(report.IsDone());
    EXPECT_TRUE(report.InWords().startsWith(u"It is not known whether everything was written."_s));
}
