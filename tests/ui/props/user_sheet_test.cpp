#include "props_fixture.h"
#include "support/windows/keyboard.h"
#include "ui/accounts/accounts.h"
#include "ui/props/change_group_dialog.h"

#include <QComboBox>
#include <QGroupBox>
#include <QHelpEvent>
#include <QTimeEdit>
#include <QToolTip>

using namespace Qt::StringLiterals;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class UserSheetTest : public PropsFixture
{
protected:
    // Works every page with the keyboard alone, from the general page on.
    void ChangeEverything(QDialog &sheet)
    {
        ChangeGeneral(sheet);
        Press(Qt::Key_Tab, Qt::ControlModifier);
        ChangeAccess(sheet);
        Press(Qt::Key_Tab, Qt::ControlModifier);
        ChangeLimits(sheet);
        Press(Qt::Key_Tab, Qt::ControlModifier);
        ChangeTimes(sheet);
        Press(Qt::Key_Tab, Qt::ControlModifier);
        ChangeProtocols(sheet);
    }

    void ChangeGeneral(QDialog &sheet)
    {
        TypeInto(sheet, "fullName", u"Anna Holm"_s);
        TypeInto(sheet, "description", u"desk 4"_s);
        {
            const WhileModal dialog([](QDialog &ip) {
                TypeInto(ip, "address", u"10.1.2.3"_s);
                Press(Qt::Key_Return);
            });
            PressButton(sheet, "changeIp");
        }
        {
            const WhileModal dialog([](QDialog &mac) {
                TypeInto(mac, "address", u"ZZZZZZZZZZZZ"_s);
                Press(Qt::Key_Return);
            });
            PressButton(sheet, "changeMac");
        }
        const WhileModal dialog([](QDialog &groups) {
            QTest::keyClicks(groups.findChild<QListWidget *>(), u"Every"_s);
            Press(Qt::Key_Return);
        });
        PressButton(sheet, "changeGroup");
    }

    static void ChangeAccess(QDialog &sheet)
    {
        TabTo(sheet, "noControl");
        Press(Qt::Key_Down);
        PressButton(sheet, "trafficControl");
        PressButton(sheet, "timeControl");
        PressButton(sheet, "block");
        PressButton(sheet, "authentication");
    }

    static void ChangeLimits(QDialog &sheet)
    {
        {
            const WhileModal dialog([](QDialog &period) {
                TabTo(period, "periods");
                Press(Qt::Key_Up);
                Press(Qt::Key_Return);
            });
            PressButton(sheet, "changePeriod");
        }
        const std::pair<const char *, const char *> limits[] = {{"changeTraffic", "700"},
                                                                {"changeTime", "12"}};
        for (const auto &[button, number] : limits) {
            const WhileModal dialog([text = number](QDialog &limit) {
                TypeInto(limit, "limit", QString::fromLatin1(text));
                Press(Qt::Key_Return);
            });
            PressButton(sheet, button);
        }
    }

    static void ChangeTimes(QDialog &sheet)
    {
        TabTo(sheet, "deny");
        Press(Qt::Key_Up);
        const WhileModal dialog([](QDialog &range) {
            TabTo(range, "day");
            Press(Qt::Key_Down);
            Press(Qt::Key_Down);
            TypeInto(range, "since", u"9:30"_s);
            TypeInto(range, "until", u"18:30:59"_s);
            Press(Qt::Key_Return);
        });
        PressButton(sheet, "addRange");
    }

    static void ChangeProtocols(QDialog &sheet)
    {
        TabTo(sheet, "disallow");
        Press(Qt::Key_Up);
        TabTo(sheet, "available");
        Press(Qt::Key_H);
        PressButton(sheet, "select");
    }
};

} // namespace

TEST_F(UserSheetTest, EveryPageIsWorkedByKeyboardAndStoredOnOk)
{
    EXPECT_TRUE(UserSheet(user_page::kGeneral, [this](QDialog &sheet) {
        EXPECT_EQ(sheet.windowTitle(), u"User properties"_s);
        ChangeEverything(sheet);
        PressButton(sheet, "ok");
    }));
    EXPECT_THAT(prompt.TakeSaid(), IsEmpty());
    EXPECT_THAT(
        RowsOf("SELECT fullname, descrip, ip_addr, mac_addr, group_id, mode, blocked, blockreason, "
               "authreq, trafperiod, timeperiod, traflim, timelim, timeaccess, portaccess "
               "FROM users WHERE user_id = 1"),
        ElementsAre(u"Anna Holm|desk 4|10.1.2.3|ZZZZZZZZZZZZ|80|5|1|3|1|1|1|700|12|1|1"_s));
    EXPECT_THAT(RowsOf("SELECT user_id, dayofweek, timestart, timestop FROM time_blocked"),
                ElementsAre(u"1|2|09:30:00|18:30:59"_s));
    EXPECT_THAT(RowsOf("SELECT user_id, port_id FROM port_blocked"), ElementsAre(u"1|80"_s));
}

TEST_F(UserSheetTest, TheTimeLimitHasAPeriodOfItsOwn)
{
    Execute("UPDATE users SET mode = 4, trafperiod = 1, timeperiod = 2, timelim = 8 "
            "WHERE user_id = 1");
    const auto periods = [] {
        return RowsOf("SELECT trafperiod, timeperiod, timelim FROM users WHERE user_id = 1");
    };
    const auto changeLimit = [](QDialog &sheet) {
        EXPECT_EQ(TextOf(sheet, "period"), u"Month"_s);
        const WhileModal dialog([](QDialog &limit) {
            TypeInto(limit, "limit", u"9"_s);
            Press(Qt::Key_Return);
        });
        PressButton(sheet, "changeTime");
        PressButton(sheet, "ok");
    };
    EXPECT_TRUE(UserSheet(user_page::kLimits, changeLimit));
    EXPECT_THAT(periods(), ElementsAre(u"1|2|9"_s));
    const auto changePeriod = [](QDialog &sheet) {
        const WhileModal dialog([](QDialog &period) {
            TabTo(period, "periods");
            Press(Qt::Key_Up);
            Press(Qt::Key_Return);
        });
        PressButton(sheet, "changePeriod");
        EXPECT_EQ(TextOf(sheet, "period"), u"Day"_s);
        PressButton(sheet, "ok");
    };
    EXPECT_TRUE(UserSheet(user_page::kLimits, changePeriod));
    EXPECT_THAT(periods(), ElementsAre(u"1|1|9"_s));
}

TEST_F(UserSheetTest, CancelLeavesEveryTableUntouched)
{
    const QStringList before = EveryRow();
    EXPECT_FALSE(UserSheet(user_page::kGeneral, [this](QDialog &sheet) {
        ChangeEverything(sheet);
        Press(Qt::Key_Escape);
    }));
    EXPECT_FALSE(UserSheet(user_page::kGeneral, [this](QDialog &sheet) {
        ChangeEverything(sheet);
        PressButton(sheet, "cancel");
    }));
    EXPECT_EQ(EveryRow(), before);
    EXPECT_THAT(prompt.TakeSaid(), IsEmpty());
}

TEST_F(UserSheetTest, OpensOnThePageAskedForWithItsTabsInOrder)
{
    (void)UserSheet(user_page::kTime, [](QDialog &sheet) {
        const auto &tabs = Find<QTabWidget>(sheet, "pages");
        QStringList titles;
        for (int tab = 0; tab < tabs.count(); ++tab) {
            titles << tabs.tabText(tab);
        }
        EXPECT_EQ(
            titles,
            (QStringList {u"General"_s, u"Access"_s, u"Limits"_s, u"Time"_s, u"Protocols"_s}));
        EXPECT_EQ(tabs.currentIndex(), user_page::kTime);
        sheet.reject();
    });
}

TEST_F(UserSheetTest, CarriesTheQuotedTexts)
{
    (void)UserSheet(user_page::kGeneral, [](QDialog &sheet) {
        QStringList texts;
        for (const auto *button : sheet.findChildren<QAbstractButton *>()) {
            texts << WithoutMark(button->text());
        }
        for (const auto *label : sheet.findChildren<QLabel *>()) {
            texts << WithoutMark(label->text());
        }
        for (const auto *box : sheet.findChildren<QGroupBox *>()) {
            texts << box->title();
        }
        for (const auto *text : {"No control",
                                 "Corporate",
                                 "Traffic control",
                                 "Time control ",
                                 "Provider",
                                 "Access is allowed",
                                 "Block user imminently",
                                 "Require authentication",
                                 "Fixed limits within accounting period",
                                 "Accounting period",
                                 "Traffic limit, Mb",
                                 "Time limit, Hr",
                                 "Rates",
                                 "Traffic,",
                                 "Change",
                                 "Use global settings",
                                 "Grant access",
                                 "Deny access",
                                 "Specify time ranges please",
                                 "Add range",
                                 "Delete range",
                                 "Protocols",
                                 "Allow protocols",
                                 "Disallow protocols",
                                 "Selected",
                                 "Available",
                                 "<<",
                                 ">>"}) {
            EXPECT_THAT(texts, Contains(QString::fromLatin1(text)));
        }
        sheet.reject();
    });
}

TEST_F(UserSheetTest, EveryControlHasANameToBeReadOut)
{
    (void)UserSheet(user_page::kGeneral, [](QDialog &sheet) {
        for (const auto *widget : sheet.findChildren<QWidget *>()) {
            const bool works = widget->inherits("QLineEdit") || widget->inherits("QAbstractButton")
                || widget->inherits("QAbstractItemView");
            const bool inner = widget->objectName().startsWith(u"qt_"_s)
                || widget->inherits("QHeaderView") || widget->parent()->inherits("QTabBar");
            if (works && !inner) {
                const auto *button = qobject_cast<const QAbstractButton *>(widget);
                EXPECT_FALSE(widget->accessibleName().isEmpty()
                             && (button == nullptr || button->text().isEmpty()))
                    << qPrintable(widget->objectName());
                EXPECT_FALSE(widget->objectName().isEmpty()) << widget->metaObject()->className();
            }
        }
        sheet.reject();
    });
}

TEST_F(UserSheetTest, AUserDeletedMeanwhileIsToldAndNothingIsWritten)
{
    QStringList before;
    EXPECT_FALSE(UserSheet(user_page::kGeneral, [&](QDialog &sheet) {
        ChangeEverything(sheet);
        Execute("DELETE FROM users WHERE user_id = 1");
        before = EveryRow();
        PressButton(sheet, "ok");
        EXPECT_TRUE(sheet.isVisible());
        EXPECT_EQ(TextOf(sheet, "fullName"), u"Anna Holm"_s);
        sheet.reject();
    }));
    EXPECT_THAT(prompt.TakeSaid(),
                ElementsAre(u"This user has been deleted meanwhile. Nothing was changed."_s));
    EXPECT_EQ(EveryRow(), before);

    EXPECT_FALSE(OpenUserSheet(Services(), UserId {1}, user_page::kGeneral, nullptr));
    EXPECT_THAT(prompt.TakeSaid(), ElementsAre(u"This user has been deleted meanwhile."_s));
}

TEST_F(UserSheetTest, WhatTheAccountPageStagesIsStoredAfterTheSheet)
{
    Execute("UPDATE users SET mode = 2, blocked = 1, blockreason = 1 WHERE user_id = 1");
    EXPECT_FALSE(UserSheet(user_page::kGeneral, [](QDialog &sheet) {
        StageOnHiddenAccount<CAdministratorUserPAcc>();
        sheet.reject();
    }));
    EXPECT_TRUE(UserSheet(user_page::kAccess, [](QDialog &sheet) {
        StageOnHiddenAccount<CAdministratorUserPAcc>();
        Click(sheet, "noControl");
        Click(sheet, "provider");
        Click(sheet, "ok");
    }));
    EXPECT_THAT(RowsOf("SELECT bill_id FROM billing"), IsEmpty()) << "dropped with the access type";
    EXPECT_TRUE(UserSheet(user_page::kGeneral, [](QDialog &sheet) {
        StageOnHiddenAccount<CAdministratorUserPAcc>();
        Click(sheet, "ok");
    }));
    EXPECT_THAT(RowsOf("SELECT mode, object_id, data FROM billing"), ElementsAre(u"2|1|5.0"_s));
    EXPECT_THAT(RowsOf("SELECT blocked FROM users WHERE user_id = 1"), ElementsAre(u"0"_s));
}

TEST_F(UserSheetTest, AnAddressOfAnotherUserIsAskedAboutOnOk)
{
    const auto takeAddress = [](QDialog &sheet) {
        const WhileModal dialog([](QDialog &ip) {
            TypeInto(ip, "address", u"10.0.0.2"_s);
            Press(Qt::Key_Return);
        });
        PressButton(sheet, "changeIp");
        PressButton(sheet, "ok");
    };
    EXPECT_TRUE(UserSheet(user_page::kGeneral, takeAddress));
    EXPECT_EQ(prompt.TakeSaid().size(), 1);
    EXPECT_THAT(RowsOf("SELECT ip_addr FROM users WHERE user_id < 3 ORDER BY user_id"),
                ElementsAre(u"10.0.0.1"_s, u"10.0.0.2"_s));
    prompt.AnswerWith({true});
    EXPECT_TRUE(UserSheet(user_page::kGeneral, takeAddress));
    EXPECT_THAT(RowsOf("SELECT user_id, ip_addr FROM users WHERE user_id < 3"),
                ElementsAre(u"1|10.0.0.2"_s));
}

TEST_F(UserSheetTest, AnAddressIsTypedOverTheOldOneByPlainKeys)
{
    Execute("UPDATE users SET ip_addr = '10.0.0.11' WHERE user_id = 1");
    EXPECT_TRUE(UserSheet(user_page::kGeneral, [this](QDialog &sheet) {
        const WhileModal dialog([this](QDialog &ip) {
            ASSERT_TRUE(QTest::qWaitFor([] { return QApplication::focusWidget() != nullptr; }));
            for (const QChar key : u"172.300.5.9"_s) {
                QTest::keyClicks(QApplication::focusWidget(), QString(key));
            }
            Press(Qt::Key_Return);
            EXPECT_EQ(prompt.TakeSaid(), QStringList(u"Please enter full IP address"_s));
            Grab(ip, u"change-ip-refused"_s);
            EXPECT_TRUE(Find(ip, "octet1").hasFocus()) << "where it is wrong";
            for (const QChar key : u"16."_s) {
                QTest::keyClicks(QApplication::focusWidget(), QString(key));
            }
            Press(Qt::Key_Return);
        });
        PressButton(sheet, "changeIp");
        PressButton(sheet, "ok");
    }));
    EXPECT_THAT(RowsOf("SELECT ip_addr FROM users WHERE user_id = 1"),
                ElementsAre(u"172.16.5.9"_s));
}

TEST_F(UserSheetTest, TheGroupIsChosenFromTheUsersOwn)
{
    Execute("INSERT INTO groups (group_id, name) VALUES (82, 'Zebra')");
    EXPECT_TRUE(UserSheet(user_page::kGeneral, [](QDialog &sheet) {
        const WhileModal dialog([](QDialog &groups) {
            EXPECT_FALSE(IsShown(groups, "addGroup"))
                << "Cancel of the sheet could not take it back";
            EXPECT_FALSE(IsShown(groups, "deleteGroup"));
            auto &list = Find<QListWidget>(groups, "groups");
            EXPECT_TRUE(list.hasFocus());
            EXPECT_EQ(list.currentItem()->text(), u"Office"_s);
            EXPECT_TRUE(list.selectedItems().isEmpty());
            EXPECT_FALSE(Find(groups, "ok").isEnabled());
            Press(Qt::Key_Down);
            EXPECT_EQ(list.currentItem()->text(), u"Zebra"_s);
            EXPECT_TRUE(Find(groups, "ok").isEnabled());
            Press(Qt::Key_Return);
        });
        PressButton(sheet, "changeGroup");
        PressButton(sheet, "ok");
    }));
    EXPECT_THAT(RowsOf("SELECT group_id FROM users WHERE user_id = 1"), ElementsAre(u"82"_s));
}

TEST_F(UserSheetTest, TheCommandStartsAtTheGroupOfTheFirstUser)
{
    const WhileModal dialog([](QDialog &groups) {
        EXPECT_TRUE(IsShown(groups, "addGroup"));
        EXPECT_TRUE(IsShown(groups, "deleteGroup"));
        const auto &list = Find<QListWidget>(groups, "groups");
        EXPECT_EQ(list.currentItem()->text(), u"Office"_s);
        EXPECT_TRUE(list.selectedItems().isEmpty());
        groups.reject();
    });
    EXPECT_FALSE(ChooseGroupFor(Services(), {UserId {2}, UserId {9}}, nullptr));
}

namespace {

// Empty for a window without one.
QString HeadingOf(const QDialog &window)
{
    const auto *heading = window.findChild<QLabel *>(u"owner"_s);
    return heading == nullptr ? QString() : heading->text();
}

} // namespace

TEST_F(UserSheetTest, WindowsOverTheSheetSayWhomTheyAreFor)
{
    const QString name(250, u'W');
    Execute("UPDATE users SET username = (?) WHERE user_id = 1", name);
    EXPECT_FALSE(UserSheet(user_page::kGeneral, [heading = u"User: "_s + name](QDialog &sheet) {
        EXPECT_EQ(HeadingOf(sheet), heading);
        for (const auto *command : {"changeIp", "changeMac", "changeGroup"}) {
            const WhileModal over([command, heading](QDialog &window) {
                EXPECT_EQ(HeadingOf(window), heading) << command;
                EXPECT_LE(window.width(), 600) << command;
                Grab(window, u"long-%1"_s.arg(QLatin1StringView(command)));
                window.reject();
            });
            PressButton(sheet, command);
        }
        sheet.reject();
    }));
}

TEST_F(UserSheetTest, TheCommandSaysWhoseGroupItChanges)
{
    const UserId anna {1};
    const UserId bert {2};
    const UserId zoe {9};
    const std::pair<QList<UserId>, QString> cases[] = {
        {{anna}, u"User: anna"_s},
        {{bert, anna}, u"Users: bert, anna"_s},
        {{anna, bert, zoe, anna, bert, zoe, anna},
         u"Users: anna, bert, zoe, anna, bert and 2 more"_s},
    };
    for (const auto &[users, heading] : cases) {
        const WhileModal choosing([expected = heading](QDialog &groups) {
            EXPECT_EQ(HeadingOf(groups), expected);
            const WhileModal adding([](QDialog &window) {
                EXPECT_EQ(HeadingOf(window), QString()) << "a new group is not for them";
                window.reject();
            });
            Click(groups, "addGroup");
            groups.reject();
        });
        EXPECT_FALSE(ChooseGroupFor(Services(), users, nullptr));
    }
}

// The window keeps to a small screen, and the whole name is in the tooltip.
TEST_F(UserSheetTest, ALongNameWidensNoWindow)
{
    const QString name(250, u'W');
    Execute("UPDATE users SET username = (?), mode = 2 WHERE user_id = 1", name);
    Execute("UPDATE groups SET name = (?), mode = 2 WHERE group_id = 81", name);
    const std::function<void()> windows[] = {
        [&] { (void)OpenUserSheet(Services(), UserId {1}, 0, nullptr); },
        [&] { (void)OpenUserSheet(Services(), UserId {1}, user_page::kProtocols, nullptr); },
        [&] { (void)OpenGroupSheet(Services(), GroupId {81}, 0, nullptr); },
        [&] { OpenAccount(Services(), Owner(UserId {1}), nullptr); },
        [&] { OpenAccount(Services(), Owner(GroupId {81}), nullptr); },
        [&] { OpenStatistics(Services(), Owner(UserId {1}), nullptr); },
        [&] { OpenStatistics(Services(), Owner(GroupId {81}), nullptr); },
        [&] { (void)ChooseGroupFor(Services(), {UserId {1}}, nullptr); },
    };
    int number = 0;
    for (const auto &open : windows) {
        const WhileModal opened([&](QDialog &window) {
            EXPECT_LE(window.width(), 1024) << qPrintable(window.windowTitle());
            EXPECT_LE(window.height(), 600) << qPrintable(window.windowTitle());
            if (auto *owner = window.findChild<QLabel *>(u"owner"_s)) {
                EXPECT_TRUE(owner->text().endsWith(name));
                QHelpEvent asked(QEvent::ToolTip, {5, 5}, owner->mapToGlobal(QPoint(5, 5)));
                QApplication::sendEvent(owner, &asked);
                EXPECT_EQ(QToolTip::text(), owner->text());
            }
            Grab(window, u"long-name-%1"_s.arg(number++));
            window.reject();
        });
        open();
    }
}
