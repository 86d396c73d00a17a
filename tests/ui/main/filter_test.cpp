// The find bar: what is typed narrows the users list.
#include "list_fixture.h"
#include "support/core/statement_hook.h"
#include "support/windows/modal.h"
#include "ui/main/saved_filters.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QClipboard>
#include <QCompleter>
#include <QDialog>
#include <QFile>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QMenu>
#include <QTemporaryDir>
#include <QTimer>
#include <QToolButton>

#include <atomic>
#include <semaphore>

using namespace Qt::StringLiterals;

namespace {

class Filters : public ListFixture
{
protected:
    // Four users; the frame is shown.
    void ShowFour()
    {
        sales = AddGroupNamed(u"Sales"_s);
        anna =
            AddUser({.name = "anna", .station = "pc-3", .fullName = "Anna Berg", .ip = "10.0.0.3"});
        bert = AddUser({.name = "bert",
                        .station = "pc-1",
                        .fullName = "Bert Cole",
                        .ip = "10.0.0.1",
                        .group = sales,
                        .blocked = true,
                        .reason = BlockReason::TrafficUsedUp});
        carl =
            AddUser({.name = "carl", .station = "pc-2", .fullName = "Al Carl", .ip = "10.0.1.2"});
        dora = AddUser({.name = "dora", .fullName = "Dora Berg", .group = sales});
        ShowFrame();
    }

    [[nodiscard]] QLineEdit &Field() const { return Find<QLineEdit>(*frame, "findUser"); }
    [[nodiscard]] QString Note() const { return Find<QLabel>(*frame, "findNote").text(); }

    // Opens the menu of saved filters.
    void OpenSaved(const std::function<void(QMenu &)> &act) const
    {
        const WhileMenu menu(act);
        Find<QToolButton>(*frame, "savedFilters").showMenu();
    }

    const QTemporaryDir exports;
    GroupId sales;
    UserId anna;
    UserId bert;
    UserId carl;
    UserId dora;
};

} // namespace

TEST_F(Filters, WhatIsTypedNarrowsTheList)
{
    ShowFour();
    const std::tuple<QString, QString, QString> cases[] = {
        {u"berg"_s, u"anna dora"_s, u"2 of 4"_s},
        {u"berg sales"_s, u"dora"_s, u"1 of 4"_s},
        {u"10.0.0.0/24"_s, u"anna bert"_s, u"2 of 4"_s},
        {u"over"_s, u"bert"_s, u"1 of 4"_s},
        {u"group:sal"_s, u"bert dora"_s, u"2 of 4"_s},
        {u"nobody"_s, u""_s, u"0 of 4"_s},
    };
    for (const auto &[typed, names, note] : cases) {
        TypeFilter(typed);
        EXPECT_EQ(Names().join(u' '), names) << qPrintable(typed);
        EXPECT_EQ(Note(), note) << qPrintable(typed);
        const auto *heard =
            QAccessible::queryAccessibleInterface(&Find<QLabel>(*frame, "findNote"));
        EXPECT_EQ(heard->text(QAccessible::Name), note) << qPrintable(typed);
        EXPECT_EQ(frame->focusWidget(), &Field());
    }
    EXPECT_EQ(Find<QLabel>(*frame, "usersPane").text(), u"Active users: 0 "_s);
    EXPECT_EQ(prompt.TakeSaid(), QStringList()) << "nothing is said of what is only typed";
}

// The time since the last key counts: nothing is read for each one.
TEST_F(Filters, ASearchWaitsForAPauseInTyping)
{
    ShowFour();
    auto &pause = Find<QTimer>(*frame, "findPause");
    EXPECT_EQ(pause.interval(), 150);
    EXPECT_TRUE(pause.isSingleShot());
    pause.setInterval(1'000'000);
    Type(Field(), u"ber"_s);
    EXPECT_TRUE(pause.isActive());
    EXPECT_EQ(Names().size(), 4);
    EXPECT_EQ(Note(), QString());
}

TEST_F(Filters, EscapeClearsTheFilter)
{
    ShowFour();
    TypeFilter(u"berg"_s);
    QTest::keyClick(&Field(), Qt::Key_Escape);
    EXPECT_EQ(Field().text(), QString());
    EXPECT_EQ(Names().size(), 4);
    EXPECT_EQ(Note(), QString());
    EXPECT_EQ(frame->focusWidget(), &Field());
}

TEST_F(Filters, WhatIsNotUnderstoodIsSaidAndChangesNothing)
{
    ShowFour();
    TypeFilter(u"berg"_s);
    QTest::keyClicks(&Field(), u" mode:"_s);
    EXPECT_TRUE(QTest::qWaitFor([this] { return Note().startsWith(u'A'); }));
    EXPECT_EQ(Note(), u"A name is missing behind \"mode:\"."_s);
    EXPECT_EQ(Names().join(u' '), u"anna dora"_s);
    QTest::keyClicks(&Field(), u"time 10.0.0.0/40"_s);
    QTest::keyClick(&Field(), Qt::Key_Return);
    EXPECT_EQ(prompt.TakeSaid(),
              QStringList(u"\"10.0.0.0/40\" is no range of addresses such as 10.1.2.0/24 or "
                          "10.1.2.5-10.1.2.9."_s));
    EXPECT_EQ(Names().join(u' '), u"anna dora"_s);
    EXPECT_EQ(frame->focusWidget(), &Field());
}

TEST_F(Filters, ReturnGoesToWhomTheFilterFinds)
{
    ShowFour();
    const std::pair<QString, UserId> cases[] = {
        {u"do"_s, dora}, // by the first column
        {u"Al Carl"_s, carl}, // by another, before the list is narrowed
        {u"berg"_s, anna}, // the first of two
        {u"over"_s, bert},
    };
    for (const auto &[typed, user] : cases) {
        Type(Field(), typed);
        QTest::keyClick(&Field(), Qt::Key_Return);
        EXPECT_EQ(Users().SelectedIds(), QList<UserId>({user})) << qPrintable(typed);
        EXPECT_EQ(frame->focusWidget(), &Users()) << qPrintable(typed);
    }
    EXPECT_EQ(prompt.TakeSaid(), QStringList());
    TypeFilter(u"nobody"_s);
    QTest::keyClick(&Field(), Qt::Key_Return);
    EXPECT_EQ(prompt.TakeSaid(), QStringList(u"No user found"_s));
    EXPECT_EQ(frame->focusWidget(), &Field());
}

TEST_F(Filters, ARefillKeepsTheFilter)
{
    ShowFour();
    TypeFilter(u"berg"_s);
    ClickCell(Users(), 1, 0);
    AddUser({.name = "bergmann"});
    AddUser({.name = "eric"});
    QTest::keyClick(&Users(), Qt::Key_F5);
    EXPECT_EQ(Names().join(u' '), u"anna bergmann dora"_s);
    EXPECT_EQ(Users().SelectedIds(), QList<UserId>({dora}));
    EXPECT_EQ(Note(), u"3 of 6"_s);
    Command("refresh").trigger();
    EXPECT_EQ(Names().join(u' '), u"anna bergmann dora"_s);
    frame->SortBy(user_order::kFullName);
    EXPECT_EQ(Names().join(u' '), u"bergmann anna dora"_s);
    TypeFilter(u"a"_s);
    EXPECT_EQ(Names().join(u' '), u"bergmann carl anna bert dora"_s)
        << "in the order that is shown";
}

// A user beyond the list's capacity.
TEST_F(Filters, FindsWhomTheListDoesNotHold)
{
    Execute(
        "INSERT INTO users (username, group_id) WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT "
        "i + 1 FROM n WHERE i < 1100) SELECT 'user' || i, 80 FROM n");
    const UserId zoe = AddUser({.name = "zoe"});
    ShowFrame();
    Type(Field(), u"zo"_s);
    QTest::keyClick(&Field(), Qt::Key_Return);
    EXPECT_EQ(Users().SelectedIds(), QList<UserId>({zoe}));
    EXPECT_EQ(prompt.TakeSaid(), QStringList());
    const QLocale locale;
    EXPECT_EQ(Note(), u"1 of %1"_s.arg(locale.toString(1101)));
    TypeFilter(u"user"_s);
    EXPECT_EQ(Names().size(), 1000);
    EXPECT_EQ(Note(), u"%1 of %2"_s.arg(locale.toString(1100), locale.toString(1101)));
    EXPECT_EQ(Find<QLabel>(*frame, "usersPane").text(), u"Active users: 1000 "_s);
}

// While one search waits for the database, the next one is typed; the console's own session is free.
TEST_F(Filters, ANewerTextEndsTheSearchBefore)
{
    ShowFour();
    std::binary_semaphore goOn {0};
    std::atomic<int> held = 0;
    const StatementHook hook([&](const QString &statement) {
        if (statement.contains(u"HOLDS"_s) && held++ == 0) {
            goOn.acquire();
        }
    });
    auto &pause = Find<QTimer>(*frame, "findPause");
    pause.setInterval(0);
    Type(Field(), u"c"_s);
    EXPECT_TRUE(QTest::qWaitFor([&held] { return held > 0; }));
    EXPECT_FALSE(Services().database.IsBusy());
    EXPECT_EQ(Note(), u"Searching..."_s);
    Type(Field(), u"dora"_s);
    EXPECT_TRUE(QTest::qWaitFor([&pause] { return !pause.isActive(); }));
    goOn.release();
    EXPECT_EQ(Names().join(u' '), u"dora"_s);
    EXPECT_EQ(Note(), u"1 of 4"_s);
    EXPECT_FALSE(IsShown(*frame, "failuresPane")) << "what was ended is no failure";
}

TEST_F(Filters, ASearchThatFailsKeepsWhatWasShown)
{
    ShowFour();
    TypeFilter(u"berg"_s);
    Execute("ALTER TABLE logins RENAME TO logins_away");
    QTest::keyClicks(&Field(), u" dora"_s);
    EXPECT_TRUE(QTest::qWaitFor([this] { return Note().startsWith(u'T'); }));
    QTest::keyClick(&Field(), Qt::Key_Return); // neither "found" nor "not found"
    EXPECT_EQ(Names().join(u' '), u"anna dora"_s);
    EXPECT_EQ(Note(), u"The users could not be searched."_s);
    EXPECT_EQ(Find<QLabel>(*frame, "messagePane").text(),
              u"The lists could not be read; the failed statements tell why."_s);
    EXPECT_EQ(prompt.TakeSaid(), QStringList());
    Execute("ALTER TABLE logins_away RENAME TO logins");
    QTest::keyClick(&Users(), Qt::Key_F5);
    EXPECT_EQ(Names().join(u' '), u"dora"_s);
}

TEST_F(Filters, WordsAreCompleted)
{
    ShowFour();
    auto &words = *Field().findChild<QCompleter *>()->popup();
    Type(Field(), u"gr"_s);
    ASSERT_TRUE(words.isVisible());
    QTest::keyClick(&words, Qt::Key_Down);
    QTest::keyClick(&words, Qt::Key_Return);
    EXPECT_EQ(Field().text(), u"group:"_s);
    ASSERT_TRUE(QTest::qWaitFor([&words] { return words.isVisible(); })) << "the groups";
    QTest::keyClick(&words, Qt::Key_Down);
    QTest::keyClick(&words, Qt::Key_Down);
    QTest::keyClick(&words, Qt::Key_Return);
    EXPECT_EQ(Field().text(), u"group:\"Sales\" "_s);
    EXPECT_EQ(prompt.TakeSaid(), QStringList()) << "the key was for the words";
    QTest::keyClicks(&Field(), u"o"_s);
    ASSERT_TRUE(words.isVisible());
    QTest::keyClick(&words, Qt::Key_Escape);
    EXPECT_FALSE(words.isVisible());
    EXPECT_EQ(Field().text(), u"group:\"Sales\" o"_s) << "the first one closes the words only";
}

// An open list of words has the keys of the window system.
TEST_F(Filters, ReturnIsForTheFieldUntilAWordIsChosen)
{
    ShowFour();
    auto &words = *Field().findChild<QCompleter *>()->popup();
    Type(Field(), u"b"_s);
    ASSERT_TRUE(words.isVisible());
    QTest::keyClick(&words, Qt::Key_Return);
    EXPECT_FALSE(words.isVisible());
    EXPECT_EQ(Field().text(), u"b"_s);
    EXPECT_EQ(Users().SelectedIds(), QList<UserId>({bert}));
}

// What counts as one name is one filter.
TEST_F(Filters, AreReplacedByTheirNameOnlyWhenAsked)
{
    ShowFour();
    const auto save = [this](const QString &text, const QString &name, std::optional<bool> answer) {
        TypeFilter(text);
        const WhileModal dialog([&](QDialog &saving) {
            Type(Find<QWidget>(saving, "name"), name);
            if (answer) {
                prompt.AnswerWith({*answer});
            }
            Click(saving, "ok");
            EXPECT_EQ(saving.isVisible(), answer == false) << "No leaves the name to be changed";
            saving.close();
        });
        OpenSaved([](QMenu &menu) { Choose(menu, u"Save filter..."_s); });
    };
    save(u"anna"_s, u" B\u00fcro "_s, std::nullopt);
    EXPECT_EQ(prompt.TakeSaid(), QStringList());
    save(u"bert"_s, u"BU\u0308RO"_s, false);
    EXPECT_EQ(prompt.TakeSaid(), QStringList(u"There is a filter with this name. Replace it?"_s));
    EXPECT_EQ(prompt.TakeGoing(), QStringList(u"B\u00fcro"_s)) << "No is the default";
    EXPECT_EQ(saved_filters::TextOf(u"B\u00fcro"_s), u"anna"_s);
    save(u"bert"_s, u"b\u00fcro"_s, true);
    EXPECT_EQ(saved_filters::Names(), QStringList(u"b\u00fcro"_s));
    EXPECT_EQ(saved_filters::TextOf(u"b\u00fcro"_s), u"bert"_s);
}

TEST_F(Filters, AreSavedUnderAName)
{
    ShowFour();
    OpenSaved([](QMenu &menu) {
        EXPECT_EQ(MenuTexts(menu), QStringList({u"~Save filter..."_s, u"~Remove"_s}));
    });
    TypeFilter(u"group:sales berg"_s);
    {
        const WhileModal dialog([this](QDialog &save) {
            EXPECT_EQ(save.windowTitle(), u"Save filter"_s);
            Type(Find<QWidget>(save, "name"), u" "_s);
            Click(save, "ok");
            EXPECT_EQ(prompt.TakeSaid(), QStringList(u"Enter a name for the filter."_s));
            Type(Find<QWidget>(save, "name"), u"Sales & Co/1"_s);
            Click(save, "ok");
        });
        OpenSaved([](QMenu &menu) { Choose(menu, u"Save filter..."_s); });
    }
    CloseFrame();
    ShowFrame();
    OpenSaved([](QMenu &menu) { Choose(menu, u"Sales & Co/1"_s); });
    EXPECT_EQ(Names().join(u' '), u"dora"_s);
    EXPECT_EQ(Field().text(), u"group:sales berg"_s);
    EXPECT_EQ(frame->focusWidget(), &Field());
    for (const bool answer : {false, true}) {
        EXPECT_EQ(saved_filters::Names(), QStringList(u"Sales & Co/1"_s));
        prompt.AnswerWith({answer});
        OpenSaved([](QMenu &menu) {
            auto *removals = menu.actions().constLast()->menu();
            ASSERT_NE(removals, nullptr);
            removals->actions().constFirst()->trigger();
            menu.close();
        });
        EXPECT_EQ(prompt.TakeSaid(), QStringList(u"Remove this filter?"_s));
        EXPECT_EQ(prompt.TakeGoing(), QStringList(u"Sales & Co/1"_s));
    }
    OpenSaved([](QMenu &menu) {
        EXPECT_EQ(MenuTexts(menu), QStringList({u"Save filter..."_s, u"~Remove"_s}));
        menu.close();
    });
}

TEST_F(Filters, SelectedRowsAreCopied)
{
    ShowFour();
    ClickCell(Users(), 0, 0);
    ClickCell(Users(), 1, 0, Qt::ControlModifier);
    QTest::keyClick(&Users(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(),
              u"anna\tpc-3\tAnna Berg\t10.0.0.3\t\tEverybody\tAccess is allowed\n"
              "bert\tpc-1\tBert Cole\t10.0.0.1\t\tSales\tAccess is blocked"_s);
    Users().header()->moveSection(5, 1); // as it is shown
    QTest::keyClick(&Users(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text().section(u'\n', 0, 0),
              u"anna\tEverybody\tpc-3\tAnna Berg\t10.0.0.3\t\tAccess is allowed"_s);
    ClickCell(Groups(), 1, 0);
    QTest::keyClick(&Groups(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text().section(u'\t', 0, 0), u"Sales"_s);
}

// All users that match, whatever the list holds of them.
TEST_F(Filters, TheListIsExported)
{
    Execute(
        "INSERT INTO users (username, group_id) WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT "
        "i + 1 FROM n WHERE i < 1100) SELECT 'user' || (10000 + i), 80 FROM n");
    AddUser({.name = "=zoe", .fullName = "Zoe, the first"});
    ShowFrame();
    const auto exportTo = [this](const QString &name) {
        const WhileModal dialog([&](QDialog &file) {
            Type(Find<QLineEdit>(file, "fileNameEdit"), name);
            file.accept();
        });
        Command("exportList").trigger();
    };
    const auto linesOf = [](const QString &name) {
        QFile file(name);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return QString::fromUtf8(file.readAll()).split(u"\r\n"_s, Qt::SkipEmptyParts);
    };
    const QString all = exports.filePath(u"all.csv"_s);
    exportTo(all);
    EXPECT_EQ(prompt.TakeSaid(),
              QStringList(u"%1 users were saved as %2."_s.arg(QLocale().toString(1101), all)));
    EXPECT_EQ(linesOf(all).size(), 1102);
    EXPECT_EQ(linesOf(all)[1], u"'=zoe,,\"Zoe, the first\",,,Everybody,Access is allowed"_s);

    TypeFilter(u"user1110"_s);
    const QString few = exports.filePath(u"few.csv"_s);
    exportTo(few);
    EXPECT_EQ(linesOf(few),
              QStringList({u"Username,Workstation,Full name,IP Address,MAC Address,Group,Access"_s,
                           u"user11100,,,,,Everybody,Access is allowed"_s}));
    exportTo(exports.filePath(u"few.xlsx"_s));
    QFile sheet(exports.filePath(u"few.xlsx"_s));
    EXPECT_TRUE(sheet.open(QIODevice::ReadOnly));
    EXPECT_TRUE(sheet.readAll().startsWith("PK"));
    (void)prompt.TakeSaid();

    Execute("ALTER TABLE logins RENAME TO logins_away");
    exportTo(exports.filePath(u"none.csv"_s));
    EXPECT_TRUE(prompt.TakeSaid().constFirst().startsWith(u"The list was not exported."_s));
    EXPECT_FALSE(QFile::exists(exports.filePath(u"none.csv"_s)));
    Execute("ALTER TABLE logins_away RENAME TO logins");
}

// Off at first; then kept for this person, and read and sorted by on the connection of the filter.
TEST_F(Filters, ColumnsOfTheAccountShowWhatWasUsedAndIsLeft)
{
    const TodayOverride today({2026, 11, 22});
    ShowFour();
    Execute("UPDATE users SET mode = 1, traflim = 100, trafperiod = 2 WHERE username <> 'dora'");
    Execute(
        "INSERT INTO traffic_use (user_id, period, current_time, data) VALUES ((?), 2, (?), 25)",
        anna,
        DayOf({2026, 11, 1}));
    Execute(
        "INSERT INTO traffic_use (user_id, period, current_time, data) VALUES ((?), 2, (?), 130)",
        carl,
        DayOf({2026, 11, 1}));
    const auto figures = [this](UserColumn column) {
        QStringList texts;
        const QAbstractItemModel &model = *Users().model();
        for (int section = 0; section < model.columnCount(); ++section) {
            if (model.headerData(section, Qt::Horizontal).toString() == HeaderText(column)) {
                for (int row = 0; row < model.rowCount(); ++row) {
                    texts << model.index(row, section).data().toString();
                }
            }
        }
        return texts.join(u'|');
    };
    EXPECT_EQ(figures(UserColumn::Used), QString());
    Users().ToggleColumn(UserColumn::Used);
    Users().ToggleColumn(UserColumn::Left);
    EXPECT_EQ(figures(UserColumn::Used), u"25 Mb|0 Mb|130 Mb|"_s);
    EXPECT_EQ(figures(UserColumn::Left), u"75 Mb|100 Mb|0 Mb|"_s);
    CloseFrame();
    ShowFrame();
    EXPECT_EQ(figures(UserColumn::Left), u"75 Mb|100 Mb|0 Mb|"_s);

    Users().FillList(user_order::kUsed, false);
    EXPECT_EQ(Names().join(u' '), u"carl anna bert dora"_s);
    EXPECT_EQ(Note(), QString()) << "nothing was filtered";
    TypeFilter(u"berg"_s);
    EXPECT_EQ(Names().join(u' '), u"anna dora"_s);
    EXPECT_EQ(figures(UserColumn::Used), u"25 Mb|"_s);
    Execute("ALTER TABLE traffic_use RENAME TO elsewhere");
    QTest::keyClick(&Users(), Qt::Key_F5);
    EXPECT_EQ(figures(UserColumn::Used), u"25 Mb|"_s) << "unread is not nothing";
    EXPECT_EQ(Note(), u"The users could not be searched."_s);
}
