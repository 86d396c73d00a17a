#include "access/user_record.h"
#include "base/day.h"
#include "db/value_codes.h"
#include "props_fixture.h"
#include "support/windows/keyboard.h"
#include "ui/common/ip_address_field.h"
#include "ui/common/sheet.h"
#include "ui/props/access_pages.h"
#include "ui/props/address_dialogs.h"
#include "ui/props/limit_dialogs.h"
#include "ui/props/limits_page.h"
#include "ui/props/protocol_page.h"
#include "ui/props/time_page.h"
#include "ui/props/time_range_dialog.h"
#include "ui/props/user_general_page.h"

#include <QComboBox>
#include <QSignalSpy>
#include <QTimeEdit>

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

// One page of user 1 in a sheet of its own.
class UserPages : public PropsFixture
{
protected:
    template <typename PageType>
    PageType &Show()
    {
        record = LoadUser(UserId {1}).value().value();
        sheet = std::make_unique<Sheet>(u"User properties"_s, nullptr);
        auto *page = MakePage<PageType>();
        sheet->Add(page);
        sheet->Start(0);
        ShowActive(*sheet);
        return *page;
    }

    // With what the page is handed: all services, the prompt alone, or nothing.
    template <typename PageType>
    [[nodiscard]] PageType *MakePage()
    {
        if constexpr (std::is_constructible_v<PageType, const AppServices &, UserRecord &>) {
            return new PageType(Services(), record);
        } else if constexpr (std::is_constructible_v<PageType, Prompt &, UserRecord &>) {
            return new PageType(prompt, record);
        } else {
            return new PageType(record);
        }
    }

    // Presses a button that opens a dialog, and acts in that.
    void InDialog(const char *button, const Act &act) const
    {
        const WhileModal dialog(act);
        Click(*sheet, button);
    }

    [[nodiscard]] QString Text(const char *name) const { return TextOf(*sheet, name); }
    [[nodiscard]] bool Enabled(const char *name) const
    {
        return Find<QWidget>(*sheet, name).isEnabled();
    }
    [[nodiscard]] bool Checked(const char *name) const
    {
        return Find<QAbstractButton>(*sheet, name).isChecked();
    }

    UserRecord record;
    std::unique_ptr<Sheet> sheet;
};

} // namespace

TEST_F(UserPages, GeneralShowsTheUserAndMarksChangedAddresses)
{
    Show<CAdministratorUserPPage>();
    const std::pair<const char *, const char *> shown[] = {
        {"fullName", "Anna Berg"},
        {"description", "reception"},
        {"userName", "anna"},
        {"ipAddress", "10.0.0.1"},
        {"macAddress", "0011AABBCCDD"},
        {"workstation", "PC-ANNA"},
        {"group", "Office"},
        {"login", "anna.berg"},
        {"kind", "Standard"},
    };
    for (const auto &[field, text] : shown) {
        EXPECT_EQ(Text(field), QString::fromLatin1(text)) << field;
    }
    const auto mark = [this](const char *name) { return Find<QLabel>(*sheet, name).text(); };
    EXPECT_EQ(mark("ipChanged"), QString());
    InDialog("changeIp", [](QDialog &dialog) {
        Type(Find(dialog, "address"), u"10.0.0.77"_s);
        Click(dialog, "ok");
    });
    EXPECT_EQ(mark("ipChanged"), u"(Changed)"_s);
    EXPECT_EQ(mark("macChanged"), QString());
    EXPECT_EQ(Text("ipAddress"), u"10.0.0.77"_s);
    InDialog("changeIp", [](QDialog &dialog) {
        Type(Find(dialog, "address"), u"10.0.0.1"_s);
        Click(dialog, "ok");
    });
    EXPECT_EQ(mark("ipChanged"), QString());
    InDialog("changeMac", [](QDialog &dialog) {
        Type(Find(dialog, "address"), u"AAAABBBBCCCC"_s);
        Click(dialog, "ok");
    });
    EXPECT_EQ(mark("macChanged"), u"(Changed)"_s);

    Execute("UPDATE users SET virtual = 1 WHERE user_id = 1");
    Execute("DELETE FROM logins");
    Show<CAdministratorUserPPage>();
    EXPECT_EQ(Text("kind"), u"Guest"_s);
    EXPECT_EQ(Text("login"), QString());
}

TEST_F(UserPages, AddressDialogsRefuseWhatIsNotWhole)
{
    ChangeIpDialog ip(prompt, QString(), nullptr);
    ShowActive(ip);
    EXPECT_EQ(ip.windowTitle(), u"Change IP Address"_s);
    Type(Find(ip, "address"), u"10.0.0"_s);
    Click(ip, "ok");
    EXPECT_TRUE(ip.isVisible());
    EXPECT_THAT(prompt.TakeSaid(), ElementsAre(u"Please enter full IP address"_s));
    QSignalSpy entered(&ip, &ChangeIpDialog::Entered);
    Type(Find(ip, "address"), u"10.0.0.5"_s);
    Click(ip, "ok");
    EXPECT_FALSE(ip.isVisible());
    ASSERT_EQ(entered.size(), 1);
    EXPECT_EQ(entered.first().first().toUInt(), 0x0A000005U);

    for (const auto *text : {"", "00000000000", "0000000000000", "00-11-AA-BB-CC-DD"}) {
        ChangeMacDialog mac(prompt, QString(), nullptr);
        ShowActive(mac);
        EXPECT_EQ(mac.windowTitle(), u"Change MAC address"_s);
        Type(Find(mac, "address"), QString::fromLatin1(text));
        Click(mac, "ok");
        EXPECT_TRUE(mac.isVisible()) << text;
        EXPECT_THAT(prompt.TakeSaid(),
                    ElementsAre(u"MAC address can contain only 12 symbols. Please re-enter the "
                                "address"_s));
        Type(Find(mac, "address"), u"ZZZZZZZZZZZZ"_s);
        Click(mac, "ok");
        EXPECT_FALSE(mac.isVisible());
        EXPECT_EQ(mac.Address(), u"ZZZZZZZZZZZZ"_s);
    }
}

TEST_F(UserPages, AccessShowsModeAndBlock)
{
    struct Case
    {
        quint32 mode;
        bool blocked;
        quint32 reason;
        const char *radio;
        std::pair<bool, bool> options; // traffic, time
        const char *state;
        std::pair<bool, bool> box; // checked, enabled
    };
    const Case cases[] = {
        {0, false, 0, "noControl", {false, false}, "Access is allowed", {false, true}},
        {1, true, 1, "corporate", {true, false}, "Access is denied", {true, false}},
        {4, true, 2, "corporate", {false, true}, "Access is denied", {true, false}},
        {5, true, 3, "corporate", {true, true}, "Access is denied", {true, true}},
        {2, true, 4, "provider", {false, false}, "Access is allowed", {false, true}},
    };
    for (const Case &each : cases) {
        SCOPED_TRACE(each.mode);
        Execute("UPDATE users SET mode = (?), blocked = (?), blockreason = (?), authreq = (?) "
                "WHERE user_id = 1",
                each.mode,
                quint32 {each.blocked},
                each.reason,
                quint32 {each.blocked});
        Show<CAdministratorUserPAccess>();
        const bool corporate = each.mode != 0 && each.mode != 2;
        EXPECT_TRUE(Checked(each.radio));
        EXPECT_EQ(std::pair(Checked("trafficControl"), Checked("timeControl")), each.options);
        EXPECT_EQ(std::pair(Enabled("trafficControl"), Enabled("timeControl")),
                  std::pair(corporate, corporate));
        EXPECT_EQ(Find<QLabel>(*sheet, "accessState").text(), QString::fromLatin1(each.state));
        EXPECT_EQ(std::pair(Checked("block"), Enabled("block")), each.box);
        EXPECT_EQ(Checked("authentication"), each.blocked);
    }
}

TEST_F(UserPages, TheBlockBoxChangesStateAndPictureAtOnce)
{
    Show<CAdministratorUserPAccess>();
    const auto picture = [this] {
        return Find<QLabel>(*sheet, "accessPicture").pixmap(Qt::ReturnByValue).toImage();
    };
    const QImage allowed = picture();
    const QStringList before = EveryRow();
    Click(*sheet, "block");
    EXPECT_EQ(Find<QLabel>(*sheet, "accessState").text(), u"Access is denied"_s);
    EXPECT_NE(picture(), allowed);
    Click(*sheet, "block");
    EXPECT_EQ(Find<QLabel>(*sheet, "accessState").text(), u"Access is allowed"_s);
    EXPECT_EQ(picture(), allowed);
    EXPECT_EQ(EveryRow(), before);
}

TEST_F(UserPages, EveryClickOnTheAccessTypeStagesItsMode)
{
    auto &page = Show<CAdministratorUserPAccess>();
    const std::pair<const char *, quint32> clicks[] = {
        {"provider", 2},
        {"corporate", 2},
        {"timeControl", 4},
        {"trafficControl", 5},
        {"timeControl", 1},
        {"noControl", 0},
        {"corporate", 1},
    };
    for (const auto &[control, staged] : clicks) {
        Click(*sheet, control);
        EXPECT_EQ(static_cast<quint32>(record.draft.mode), staged) << control;
    }
    EXPECT_TRUE(page.Leave());
    Click(*sheet, "trafficControl");
    EXPECT_FALSE(page.Leave());
    Click(*sheet, "ok");
    EXPECT_TRUE(sheet->isVisible());
    const QString refusal = u"Please choose one or both corporate type options"_s;
    EXPECT_THAT(prompt.TakeSaid(), ElementsAre(refusal, refusal));
    EXPECT_EQ(prompt.lastCaption, u"Tollbrook"_s);
    EXPECT_EQ(prompt.lastIcon, Prompt::Icon::Warning);
}

TEST_F(UserPages, AnotherAccessTypeDropsWhatWasStagedOfTheAccount)
{
    const auto stage = [this] {
        record.account.credits.push_back({BaseUnits {5.0}, false, u"2027.01.01"_s});
        record.account.closed = {BillId {3}, BillId {4}};
    };
    for (const auto &[first, second] : {std::pair("provider", "corporate"),
                                        std::pair("corporate", "provider"),
                                        std::pair("corporate", "noControl")}) {
        Show<CAdministratorUserPAccess>();
        Click(*sheet, first);
        stage();
        Click(*sheet, first);
        EXPECT_FALSE(record.account.IsEmpty()) << "no change";
        Click(*sheet, second);
        EXPECT_TRUE(record.account.IsEmpty()) << second;
    }
    stage();
    Click(*sheet, "corporate");
    stage();
    Click(*sheet, "trafficControl");
    EXPECT_FALSE(record.account.IsEmpty()) << "an option is no type";
}

TEST_F(UserPages, LimitsOpenByMode)
{
    Execute("UPDATE users SET trafperiod = 1, timeperiod = 2, traflim = 500, timelim = 8, "
            "trafprice = 2.5 WHERE user_id = 1");
    struct Case
    {
        quint32 mode;
        std::array<bool, 4> open; // period, traffic, time, rates
        std::array<const char *, 3> texts;
    };
    const Case cases[] = {
        {0, {false, false, false, false}, {"", "", ""}},
        {1, {true, true, false, false}, {"Day", "500", ""}},
        {2, {false, false, false, true}, {"", "", ""}},
        {4, {true, false, true, false}, {"Month", "", "8"}},
        {5, {true, true, true, false}, {"Day", "500", "8"}},
    };
    for (const auto &[mode, open, texts] : cases) {
        SCOPED_TRACE(mode);
        Execute("UPDATE users SET mode = (?) WHERE user_id = 1", mode);
        Show<CAdministratorUserPLimits>();
        EXPECT_EQ((std::array {Enabled("changePeriod"),
                               Enabled("changeTraffic"),
                               Enabled("changeTime"),
                               Enabled("useGlobal")}),
                  open);
        EXPECT_EQ(Text("period"), QString::fromLatin1(texts[0]));
        EXPECT_EQ(Text("trafficLimit"), QString::fromLatin1(texts[1]));
        EXPECT_EQ(Text("timeLimit"), QString::fromLatin1(texts[2]));
        EXPECT_EQ(Checked("useGlobal"), mode == 2);
        EXPECT_FALSE(Enabled("price"));
        EXPECT_EQ(Text("price"), QString());
    }
}

TEST_F(UserPages, StagedLimitsSurviveTheNextActivationAndNothingElseDoes)
{
    Execute("UPDATE users SET mode = 5, trafperiod = 2, traflim = 500, timelim = 8 "
            "WHERE user_id = 1");
    auto &page = Show<CAdministratorUserPLimits>();
    InDialog("changeTraffic", [](QDialog &dialog) {
        EXPECT_EQ(TextOf(dialog, "limit"), u"500"_s);
        Type(Find(dialog, "limit"), u"600"_s);
        Click(dialog, "ok");
    });
    Execute("UPDATE users SET traflim = 1, timelim = 9 WHERE user_id = 1");
    page.Activate();
    EXPECT_EQ(Text("trafficLimit"), u"600"_s);
    EXPECT_EQ(Text("timeLimit"), u"9"_s);
    EXPECT_EQ(record.limits.stored.traffic, WholeMegabytes {500})
        << "as it was when it was changed";
    EXPECT_EQ(record.limits.stored.time, WholeHours {9});
    InDialog("changePeriod", [](QDialog &dialog) {
        ClickCell(Find<QListWidget>(dialog, "periods"), 0, 0);
        Click(dialog, "ok");
    });
    EXPECT_EQ(Text("period"), u"Day"_s);
    EXPECT_EQ(record.limits.Staged().period, LimitPeriod::Day);
}

TEST_F(UserPages, ThePriceFollowsUseGlobalSettings)
{
    Execute("UPDATE users SET mode = 2, trafprice = 2.5 WHERE user_id = 1");
    Show<CAdministratorUserPLimits>();
    Click(*sheet, "useGlobal");
    EXPECT_EQ(Text("price"), u"2.50"_s);
    EXPECT_TRUE(record.limits.Staged().ownPrice);
    InDialog("changeRate", [](QDialog &dialog) {
        Type(Find(dialog, "rate"), u"0.75"_s);
        Click(dialog, "ok");
    });
    EXPECT_EQ(Text("price"), u"0.75"_s);
    Click(*sheet, "useGlobal");
    EXPECT_EQ(Text("price"), QString());
    EXPECT_FALSE(Enabled("price"));
    EXPECT_FALSE(record.limits.Staged().ownPrice);
    Click(*sheet, "useGlobal");
    EXPECT_EQ(Text("price"), u"0.75"_s);
}

TEST_F(UserPages, LimitDialogsRefuseWhatIsNoValue)
{
    PeriodDialog period(prompt, LimitPeriod::None);
    ShowActive(period);
    EXPECT_EQ(RowTexts(Find<QListWidget>(period, "periods")), (QStringList {u"Day"_s, u"Month"_s}));
    Click(period, "ok");
    EXPECT_TRUE(period.isVisible());
    EXPECT_THAT(prompt.TakeSaid(), ElementsAre(u"Please choose an accounting period"_s));

    LimitDialog limit(prompt, u"Traffic limit, Mb"_s, 5);
    ShowActive(limit);
    const QString whole = u"Please enter the limit as a whole number"_s;
    const QString bounds = u"Please enter an integer between 0 and 2147483647."_s;
    const std::pair<QString, QString> refusals[] = {
        {u""_s, whole},
        {u"-1"_s, whole},
        {u"1e3"_s, whole},
        {u"12.5"_s, whole},
        {u"2,5"_s, whole},
        {u"2147483648"_s, bounds},
        {u"x"_s, whole},
    };
    for (const auto &[typed, said] : refusals) {
        Type(Find(limit, "limit"), typed);
        Find(limit, "ok").setFocus();
        Click(limit, "ok");
        EXPECT_TRUE(limit.isVisible());
        EXPECT_EQ(prompt.TakeSaid(), QStringList(said)) << qPrintable(typed);
        EXPECT_EQ(TextOf(limit, "limit"), typed) << "all stays as it was typed";
        EXPECT_TRUE(Find(limit, "limit").hasFocus());
    }
    Type(Find(limit, "limit"), u"2147483647"_s);
    Click(limit, "ok");
    EXPECT_EQ(limit.Limit(), 2147483647U);

    RateDialog rate(prompt, 1.5);
    ShowActive(rate);
    EXPECT_EQ(rate.windowTitle(), u"Rate"_s);
    EXPECT_EQ(TextOf(rate, "rate"), u"1.50"_s);
    for (const auto *refused : {"", "1000000000.01", "2,5", "1e3", "-5"}) {
        Type(Find(rate, "rate"), QString::fromLatin1(refused));
        Click(rate, "ok");
        EXPECT_TRUE(rate.isVisible()) << refused;
        EXPECT_EQ(prompt.TakeSaid().size(), 1);
    }
    Type(Find(rate, "rate"), u"1000000000"_s);
    Click(rate, "ok");
    EXPECT_FALSE(rate.isVisible());
    EXPECT_DOUBLE_EQ(rate.Rate(), kPriceBounds.most);
}

TEST_F(UserPages, ATimeRangeNeedsADayAndAnEndAfterItsStart)
{
    TimeRangeDialog dialog(prompt);
    ShowActive(dialog);
    EXPECT_EQ(dialog.windowTitle(), u"Add time range"_s);
    const auto &day = Find<QComboBox>(dialog, "day");
    EXPECT_EQ(day.count(), 7);
    EXPECT_EQ(day.currentIndex(), -1);
    const std::tuple<const char *, const char *, const char *> refused[] = {
        {"25:00", "26:00", "Please enter a time, as in 17:45."},
        {"17:45", "18:4", "Please enter a time, as in 17:45."},
        {"22:00", "02:00", "Wrong time specification. Please re-enter"},
        {"10:00:00", "10.00", "Wrong time specification. Please re-enter"},
        {"10:00:00", "10:00:01", "Please select day"},
    };
    for (const auto &[since, until, message] : refused) {
        TypeInto(dialog, "since", QString::fromLatin1(since));
        TypeInto(dialog, "until", QString::fromLatin1(until));
        Click(dialog, "ok");
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_THAT(prompt.TakeSaid(), ElementsAre(QString::fromLatin1(message)));
    }
    Choose(Find<QComboBox>(dialog, "day"), u"Sunday"_s);
    TypeInto(dialog, "since", u"17:45"_s);
    TypeInto(dialog, "until", u"18.05"_s);
    Click(dialog, "ok");
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.Day(), 7U);
    EXPECT_EQ(dialog.Since(), QTime(17, 45));
    EXPECT_EQ(dialog.Until(), QTime(18, 5));
}

TEST_F(UserPages, TimeRangesAreListedAddedAndDeleted)
{
    Execute("INSERT INTO time_blocked (tb_id, user_id, dayofweek, timestart, timestop) VALUES "
            "(1, 1, 3, '09:00:00', '10:00:00'), (2, 1, 1, '09:00:00', '10:00:00')");
    Execute("UPDATE users SET timeaccess = 1 WHERE user_id = 1");
    auto &page = Show<CAdministratorUserPTime>();
    const auto &list = Find<QTreeWidget>(*sheet, "ranges");
    EXPECT_EQ(list.headerItem()->text(1), u"Since time"_s);
    for (int column = 0; column < 3; ++column) {
        EXPECT_EQ(list.columnWidth(column), 85);
    }
    EXPECT_TRUE(Checked("grant"));
    Click(*sheet, "deny");
    EXPECT_FALSE(record.times.grant);
    Click(*sheet, "deleteRange");
    EXPECT_THAT(prompt.TakeSaid(), ElementsAre(u"Select the item to delete"_s));
    InDialog("addRange", [](QDialog &dialog) {
        Choose(Find<QComboBox>(dialog, "day"), u"Tuesday"_s);
        Click(dialog, "ok");
    });
    EXPECT_THAT(RowTexts(list),
                ElementsAre(u"Monday|09:00:00|10:00:00"_s,
                            u"Wednesday|09:00:00|10:00:00"_s,
                            u"Tuesday|08:00:00|17:00:00"_s));
    ClickCell(Find<QTreeWidget>(*sheet, "ranges"), 0, 0);
    Click(*sheet, "deleteRange");
    page.Activate();
    EXPECT_THAT(RowTexts(list),
                ElementsAre(u"Wednesday|09:00:00|10:00:00"_s, u"Tuesday|08:00:00|17:00:00"_s));
    EXPECT_THAT(record.times.Deleted(), ElementsAre(RangeId {2}));
}

TEST_F(UserPages, ProtocolsMoveBetweenTheLists)
{
    Execute("INSERT INTO port_blocked (user_id, port_id) VALUES (1, 21)");
    Show<CAdministratorUserPProtocol>();
    auto &selected = Find<QListWidget>(*sheet, "selected");
    auto &available = Find<QListWidget>(*sheet, "available");
    EXPECT_TRUE(Checked("disallow"));
    EXPECT_THAT(RowTexts(selected), ElementsAre(u"FTP"_s));
    EXPECT_THAT(RowTexts(available), ElementsAre(u"HTTP"_s, u"SSH"_s));
    Click(*sheet, "select");
    Click(*sheet, "release");
    EXPECT_THAT(RowTexts(selected), ElementsAre(u"FTP"_s)) << "nothing was chosen";
    ClickCell(available, 1, 0);
    Click(*sheet, "select");
    ClickCell(selected, 0, 0);
    Click(*sheet, "release");
    EXPECT_THAT(RowTexts(selected), ElementsAre(u"SSH"_s));
    EXPECT_THAT(record.protocols.Names(true), ElementsAre(u"SSH"_s));
    Click(*sheet, "allow");
    EXPECT_TRUE(record.protocols.allow);
}

TEST_F(UserPages, AccessSaysWhyAndUntilWhen)
{
    const TodayOverride today({2026, 11, 22});
    Execute("UPDATE users SET mode = 1, traflim = 0, trafperiod = 2 WHERE user_id = 1");
    Show<CAdministratorUserPAccess>();
    LetSessionFinish();
    QStringList lines;
    for (const QLabel *line : sheet->findChildren<QLabel *>(u"whyLine"_s)) {
        EXPECT_TRUE(QTest::qWaitFor([line] { return line->isVisible(); }));
        lines << line->text();
    }
    EXPECT_THAT(
        lines,
        ElementsAre(u"The traffic limit of 0 Mb is used up (0 Mb since 1 November). The period "
                    u"ends on 30 November."_s,
                    u"The words above go by the user's block alone. With all that counts: "
                    u"Access is denied."_s));
    EXPECT_EQ(Find<QLabel>(*sheet, "accessState").text(), u"Access is allowed"_s);
}
