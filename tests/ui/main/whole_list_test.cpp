// What works on all users that match, whatever the list holds of them: printing and choosing them all.
#include "list_fixture.h"
#include "support/windows/modal.h"
#include "ui/main/dragged_users.h"
#include "ui/main/list_print.h"

#include <QAbstractItemView>
#include <QAction>
#include <QDialog>
#include <QDrag>
#include <QFile>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QMenu>
#include <QMenuBar>
#include <QPrinter>
#include <QProcess>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <string_view>

using namespace Qt::StringLiterals;
using namespace std::string_view_literals;

namespace {

class WholeList : public ListFixture
{
protected:
    // user10001 to user11100 in "Everybody", and the group "Sales"; the frame is shown.
    void ShowMany()
    {
        sales = AddGroupNamed(u"Sales"_s);
        Execute("INSERT INTO users (username, group_id) WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL "
                "SELECT i + 1 FROM n WHERE i < 1100) SELECT 'user' || (10000 + i), 80 FROM n");
        ShowFrame();
        opened.clear();
    }

    [[nodiscard]] QString Note() const { return Find<QLabel>(*frame, "findNote").text(); }
    [[nodiscard]] static QString CountOf(const QString &where)
    {
        return RowsOf((u"SELECT COUNT(*) FROM users WHERE "_s + where).toUtf8().constData())
            .constFirst();
    }

    void ChooseAll() const { Command("selectMatching").trigger(); }

    // Chooses the second group in the dialog.
    static void ChooseSales(QDialog &dialog)
    {
        auto &groups = Find<QAbstractItemView>(dialog, "groups");
        ClickCell(groups, 1, 0);
        Click(dialog, "ok");
    }

    GroupId sales;
    const QTemporaryDir folder;
    const QString manyChosen = u"%1 users chosen"_s.arg(QLocale().toString(1100));
};

struct PrintedPaper
{
    QPageSize::PageSizeId paper;
    QPageLayout::Orientation orientation;
    QString size; // as the file says it, in points
};

QString OutputOf(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished() && process.exitCode() == 0) << qPrintable(program);
    return QString::fromUtf8(process.readAllStandardOutput());
}

} // namespace

TEST_F(WholeList, IsPrintedOnThePaperThatWasChosen)
{
    AddUser({.name = "zoe", .fullName = "Zo\xc3\xab Carl", .ip = "10.0.0.3"});
    ShowMany();
    const PrintedPaper papers[] = {
        {QPageSize::A4, QPageLayout::Landscape, u"842 x 595"_s},
        {QPageSize::Letter, QPageLayout::Portrait, u"612 x 792"_s},
        {QPageSize::A6, QPageLayout::Landscape, u"420 x 297"_s},
    };
    for (const PrintedPaper &each : papers) {
        const QString name = folder.filePath(u"list.pdf"_s);
        const auto printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
        printer->setOutputFormat(QPrinter::PdfFormat);
        printer->setOutputFileName(name);
        printer->setPageSize(QPageSize(each.paper));
        printer->setPageOrientation(each.orientation);
        PrintListOn(Services(),
                    *frame,
                    {.filter = {},
                     .order = {user_order::kUserName, true},
                     .columns = {UserColumn::UserName, UserColumn::FullName, UserColumn::Access},
                     .widths = {150, 150, 75}},
                    printer);
        EXPECT_TRUE(prompt.TakeSaid().value(0).startsWith(
            u"Users printed to the file %1: %2, on pages: "_s.arg(name, QLocale().toString(1101))))
            << "nothing went to a printer";
        EXPECT_TRUE(OutputOf(u"pdfinfo"_s, {name}).contains(each.size)) << qPrintable(each.size);
        const QString text = OutputOf(u"pdftotext"_s, {u"-layout"_s, name, u"-"_s});
        for (int user = 10001; user <= 11100; ++user) {
            ASSERT_TRUE(text.contains(u"user%1"_s.arg(user))) << user;
        }
        EXPECT_TRUE(text.contains(u"Zo\u00eb Carl"_s));
        EXPECT_TRUE(text.contains(u"Filter: all users"_s));
        EXPECT_TRUE(text.contains(u"Total, 1,101 users"_s)) << qPrintable(text.right(400));
        EXPECT_FALSE(text.contains(u"Period"_s));
    }
}

TEST_F(WholeList, WhatCannotBePrintedIsTold)
{
    ShowMany();
    Command("printList").trigger(); // the tests have no printer
    EXPECT_EQ(prompt.TakeSaid(),
              QStringList(u"No printer is installed. The list can be exported as a file."_s));
    const auto print = [this](const UserFilter &filter, const QString &name) {
        const auto printer = std::make_shared<QPrinter>();
        printer->setOutputFormat(QPrinter::PdfFormat);
        printer->setOutputFileName(name);
        PrintListOn(Services(),
                    *frame,
                    {.filter = filter, .order = {}, .columns = {UserColumn::UserName}},
                    printer);
        return prompt.TakeSaid().value(0);
    };
    const QString file = folder.filePath(u"list.pdf"_s);
    EXPECT_EQ(print({.texts = {u"nobody"_s}}, file), u"There is no user to print."_s);
    EXPECT_EQ(print({}, folder.filePath(u"none/list.pdf"_s)), u"The list was not printed."_s);
    Execute("ALTER TABLE logins RENAME TO logins_away");
    EXPECT_TRUE(print({.texts = {u"user"_s}}, file).startsWith(u"The list was not printed."_s));
    EXPECT_FALSE(QFile::exists(file));
    Execute("ALTER TABLE logins_away RENAME TO logins");
}

TEST_F(WholeList, AllThatMatchAreChosenAndSaidToBe)
{
    ShowMany();
    Execute("UPDATE users SET mode = 2"); // all of them have accounts
    Users().selectAll();
    EXPECT_TRUE(Command("account").isEnabled());
    EXPECT_EQ(Users().ChosenIds().size(), 1000) << "Ctrl+A is for the rows that are listed";
    ChooseAll();
    EXPECT_EQ(Note(), manyChosen);
    EXPECT_EQ(Users().ChosenIds().size(), 1100);
    EXPECT_EQ(Users().SelectedRows().size(), 1000);
    Grab(*frame, u"all-matching"_s);
    for (const char *name : {"properties", "account", "doNotMonitor", "delete"}) {
        EXPECT_FALSE(Command(name).isEnabled()) << name;
    }
    EXPECT_TRUE(Command("changeGroup").isEnabled());
    QTest::keyClick(&Users(), Qt::Key_Delete);
    EXPECT_EQ(
        prompt.TakeSaid(),
        QStringList(u"This does not work on all users that match. Select rows of the list."_s));
    EXPECT_EQ(CountOf(u"monitored = true"_s), u"1100"_s);
    OpenPopUp(Users(), 2, [](QMenu &menu) {
        EXPECT_EQ(MenuTexts(menu), QStringList({u"Change group..."_s, u"Set mode/limits..."_s}));
    });
    EXPECT_EQ(Note(), manyChosen);
}

// What is chosen is what is seen to be: whatever a person selects anew ends it.
TEST_F(WholeList, AnotherChoiceEndsIt)
{
    ShowMany();
    TypeFilter(u"user"_s);
    const QString found = Note();
    const std::pair<const char *, std::function<void()>> ends[] = {
        {"a click", [this] { ClickCell(Users(), 3, 0); }},
        {"Ctrl and a click", [this] { ClickCell(Users(), 3, 0, Qt::ControlModifier); }},
        {"Escape", [this] { QTest::keyClick(&Users(), Qt::Key_Escape); }},
        {"Down", [this] { QTest::keyClick(&Users(), Qt::Key_Down); }},
        {"Ctrl+A", [this] { QTest::keyClick(&Users(), Qt::Key_A, Qt::ControlModifier); }},
        {"another filter", [this] { TypeFilter(u"user11"_s); }},
        {"Escape in the find bar",
         [this] { QTest::keyClick(&Find<QLineEdit>(*frame, "findUser"), Qt::Key_Escape); }},
    };
    for (const auto &[what, end] : ends) {
        TypeFilter(u"user"_s);
        ChooseAll();
        ASSERT_EQ(Note(), manyChosen) << what;
        end();
        EXPECT_FALSE(Users().Matching().AreChosen()) << what;
        EXPECT_LE(Users().ChosenIds().size(), what == "Ctrl+A"sv ? 1000 : 1) << what;
        EXPECT_FALSE(Note().contains(u"chosen"_s)) << what;
    }
    TypeFilter(u"user"_s);
    EXPECT_EQ(Note(), found);
}

// Nobody did anything: the same users are chosen, but for those who are gone.
TEST_F(WholeList, StaysChosenWhenTheListIsReadAnew)
{
    ShowMany();
    Command("whyCommand").setChecked(true);
    TypeFilter(u"user1"_s);
    const std::pair<const char *, std::function<void()>> refills[] = {
        {"F5", [this] { QTest::keyClick(&Users(), Qt::Key_F5); }},
        {"Refresh", [this] { Command("refresh").trigger(); }},
        {"the timer",
         [this] { QMetaObject::invokeMethod(&Find<QTimer>(*frame, "refreshTimer"), "timeout"); }},
        {"a header",
         [this] {
             QTest::mouseClick(Users().header()->viewport(), Qt::LeftButton, {}, QPoint(10, 5));
         }},
        {"a column", [this] { Users().ToggleColumn(UserColumn::Group); }},
        {"the find bar's focus",
         [this] {
             Find<QLineEdit>(*frame, "findUser").setFocus();
             Command("refresh").trigger();
         }},
    };
    ChooseAll();
    qsizetype chosen = 1100;
    for (const auto &[what, refill] : refills) {
        Execute("DELETE FROM users WHERE user_id = (SELECT MAX(user_id) - 5 FROM users)");
        AddUser({.name = "user1", .group = kEverybodyGroup}); // comes to match, at the top
        refill();
        Settle();
        --chosen;
        EXPECT_EQ(Users().ChosenIds().size(), chosen) << what;
        EXPECT_EQ(Note(), u"%1 users chosen"_s.arg(QLocale().toString(chosen))) << what;
        const QStringList names = Names();
        const auto isNew = [&](int row) { return names[row] == u"user1"_s; };
        const QList<int> selected = Users().SelectedRows();
        EXPECT_GT(selected.size(), 900) << what;
        EXPECT_TRUE(std::ranges::none_of(selected, isNew)) << what;
    }
    QTest::keyClick(
        &Find<QLineEdit>(*frame, "findUser"), Qt::Key_A, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(Users().ChosenIds().size(), 1100) << "those who came, once they are chosen";
    Execute("DELETE FROM users");
    Command("refresh").trigger();
    Settle();
    EXPECT_FALSE(Users().Matching().AreChosen());
    EXPECT_FALSE(Note().contains(u"chosen"_s));
}

// Another console may do anything while a menu is open.
TEST_F(WholeList, ACommandIsForThoseForWhomItsMenuWasOpened)
{
    ShowMany();
    Execute("UPDATE users SET mode = 2");
    const auto refilled = [this](const QByteArray &statement, const QString &command) {
        return [this, statement, command](QMenu &menu) {
            Execute(statement.constData());
            frame->Refresh();
            Settle();
            Choose(menu, command);
        };
    };
    ClickCell(Users(), 0, 0);
    ClickCell(Users(), 1, 0, Qt::ControlModifier);
    OpenPopUp(Users(),
              0,
              refilled("UPDATE users SET monitored = false WHERE username = 'user10001'",
                       u"Set mode/limits..."_s));
    EXPECT_EQ(opened, QStringList(u"userLimits 1,2"_s));
    ClickCell(Users(), 0, 0);
    OpenPopUp(
        Users(), 0, refilled("DELETE FROM users WHERE username = 'user10002'", u"Properties..."_s));
    EXPECT_EQ(opened.value(1), u"userProperties 2"_s) << "which says that the user is gone";
    ClickCell(Users(), 0, 0);
    OpenPopUp(
        Users(),
        0,
        refilled("UPDATE users SET monitored = false WHERE username = 'user10003'", u"Remove"_s));
    EXPECT_EQ(prompt.TakeGoing(), QStringList(u"user10003"_s));
    (void)prompt.TakeSaid();

    TypeFilter(u"user1"_s);
    ChooseAll();
    OpenPopUp(Users(), 0, refilled("UPDATE users SET monitored = false", u"Set mode/limits..."_s));
    EXPECT_EQ(prompt.TakeSaid(),
              QStringList(u"This will change %1 users. Continue?"_s.arg(QLocale().toString(1097))));
    EXPECT_EQ(prompt.TakeGoing().size(), 1);
    Execute("UPDATE users SET monitored = true");
    TypeFilter(u""_s);

    ClickCell(Users(), 0, 0);
    {
        const WhileMenu menu(refilled("UPDATE users SET group_id = 0 WHERE username = 'user10001'",
                                      u"Properties..."_s));
        frame->menuBar()->setActiveAction(frame->menuBar()->actions().at(1));
        Settle();
    }
    Settle();
    EXPECT_EQ(opened.value(2), u"userProperties 1"_s);
    EXPECT_EQ(Users().CommandTargets().ids, Users().SelectedIds()) << "the menu is closed";

    ClickCell(Groups(), 1, 0);
    OpenPopUp(Groups(), 1, refilled("DELETE FROM groups WHERE name = 'Sales'", u"Delete"_s));
    EXPECT_EQ(prompt.TakeGoing(), QStringList(u"Sales"_s));
}

TEST_F(WholeList, IsOfferedWhereUsersAreHeldBack)
{
    AddUser({.name = "anna"});
    AddUser({.name = "bert"});
    ShowFrame();
    const auto expectOffered = [this](bool offered) {
        EXPECT_EQ(Command("selectMatching").isEnabled(), offered);
        ClickCell(Users(), 0, 0);
        OpenPopUp(Users(), 0, [&](QMenu &menu) {
            EXPECT_EQ(MenuTexts(menu).contains(u"Select all matching"_s), offered);
        });
    };
    expectOffered(false);
    TypeFilter(u"ann"_s);
    expectOffered(true);
    TypeFilter(u"nobody"_s);
    EXPECT_FALSE(Command("selectMatching").isEnabled());
}

// Dragged by one of their rows, like rows that were chosen one by one; a click chooses that row alone.
TEST_F(WholeList, AllAreDraggedByARowOfTheirs)
{
    ShowMany();
    TypeFilter(u"user1"_s);
    ChooseAll();
    qsizetype dragged = 0;
    Users().SetRunDrag([&](QDrag &drag) { dragged = UsersIn(*drag.mimeData()).size(); });
    const QPoint place = Users().visualRect(Users().model()->index(1, 0)).center();
    QTest::mousePress(Users().viewport(), Qt::LeftButton, {}, place);
    QTest::mouseMove(Users().viewport(), place + QPoint(30, 0));
    QTest::mouseMove(Users().viewport(), place + QPoint(60, 0));
    EXPECT_EQ(dragged, 1100);
    EXPECT_TRUE(Users().CommandTargets().areAllMatching) << "a drag that ends nowhere leaves them";
    QTest::mouseRelease(Users().viewport(), Qt::LeftButton, {}, place + QPoint(60, 0));
    ChooseAll();
    ClickCell(Users(), 2, 0);
    EXPECT_FALSE(Users().CommandTargets().areAllMatching);
    EXPECT_EQ(Users().SelectedIds().size(), 1);
}

TEST_F(WholeList, TheCommandsNameTheNumberAndWorkOnAll)
{
    ShowMany();
    TypeFilter(u"user1"_s);
    const QString question =
        u"This will change %1 users. Continue?"_s.arg(QLocale().toString(1100));
    const QString names =
        u"user10001, user10002, user10003, user10004, user10005 and %1 more"_s.arg(
            QLocale().toString(1095));
    const QString members = u"group_id = %1"_s.arg(sales.value);

    Settle();
    QTest::keyClick(&Find<QLineEdit>(*frame, "findUser"),
                    Qt::Key_A,
                    Qt::ControlModifier | Qt::ShiftModifier); // the focus stands there
    Command("changeGroup").trigger(); // answered No
    EXPECT_EQ(prompt.TakeSaid(), QStringList(question));
    EXPECT_EQ(prompt.TakeGoing(), QStringList(names));
    EXPECT_EQ(CountOf(members), u"0"_s);
    EXPECT_EQ(Note(), manyChosen);

    prompt.AnswerWith({true});
    OpenPopUp(Users(), 0, [](QMenu &menu) { Choose(menu, u"Set mode/limits..."_s); });
    EXPECT_EQ(prompt.TakeSaid(), QStringList(question));
    EXPECT_EQ(opened.value(0).count(u','), 1099);

    prompt.AnswerWith({true});
    {
        const WhileModal dialog(ChooseSales);
        Command("changeGroup").trigger();
    }
    EXPECT_EQ(prompt.TakeSaid(), QStringList(question));
    EXPECT_EQ(CountOf(members), u"1100"_s);
}

// The question takes the focus, and with it the first row out of the selection.
TEST_F(WholeList, StayChosenWhateverTakesTheFocus)
{
    ShowMany();
    LetMessagesTakeTheFocus();
    Command("whyCommand").setChecked(true);
    TypeFilter(u"user1"_s);
    QTest::keyClick(&Users(), Qt::Key_A, Qt::ControlModifier | Qt::ShiftModifier);
    const auto expectAll = [this](const char *after) {
        Settle();
        EXPECT_EQ(Note(), manyChosen) << after;
        EXPECT_EQ(Users().ChosenIds().size(), 1100) << after;
        EXPECT_EQ(Users().SelectedRows().size(), 1000) << after;
        EXPECT_EQ(Find<QLabel>(*frame, "whyName").text(), u"user10001, and 1,099 more chosen"_s)
            << after;
    };
    expectAll("Ctrl+Shift+A");
    const auto setLimits = [this] {
        const WhileMenu menu([](QMenu &shown) {
            for (const auto key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Return}) {
                QTest::keyClick(&shown, key);
            }
        });
        QTest::keyClick(&Users(), Qt::Key_F10, Qt::ShiftModifier);
    };
    setLimits();
    EXPECT_EQ(prompt.TakeSaid().size(), 1);
    expectAll("No");
    for (const auto &[key, modifiers] : {std::pair {Qt::Key_Return, Qt::NoModifier},
                                         std::pair {Qt::Key_Delete, Qt::NoModifier},
                                         std::pair {Qt::Key_B, Qt::ControlModifier}}) {
        QTest::keyClick(&Users(), key, modifiers);
        EXPECT_EQ(prompt.TakeSaid().size(), 1);
        expectAll("a key");
    }
    EXPECT_EQ(opened, QStringList()) << "Return would open the first one alone";
    prompt.AnswerWith({true});
    setLimits();
    EXPECT_EQ(opened.value(0).count(u','), 1099);
    expectAll("Yes");
    Find<QLineEdit>(*frame, "findUser").setFocus();
    EXPECT_EQ(Users().SelectedRows().size(), 999);
    QTest::mouseClick(Users().viewport(),
                      Qt::RightButton,
                      {},
                      Users().visualRect(Users().model()->index(0, 0)).center());
    expectAll("the right button, back from the find bar");
    QTest::keyClick(&Users(), Qt::Key_Space, Qt::ControlModifier);
    EXPECT_EQ(Users().ChosenIds().size(), 1) << "as Ctrl and a click";
}

TEST_F(WholeList, BlocksAllWithOneUndo)
{
    ShowMany();
    Execute("UPDATE users SET blocked = 1, blockreason = 3 WHERE username = 'user11100'");
    Command("whyCommand").setChecked(true);
    TypeFilter(u"user110"_s);
    ChooseAll();
    prompt.AnswerWith({true, true});
    QTest::keyClick(&Users(), Qt::Key_B, Qt::ControlModifier);
    Settle();
    EXPECT_EQ(prompt.TakeSaid(), QStringList(u"This will change 100 users. Continue?"_s));
    EXPECT_EQ(CountOf(u"blocked <> 0"_s), u"101"_s);
    EXPECT_EQ(Users().Matching().Ids().size(), 100) << "the list was read anew";
    QTest::keyClick(&Users(), Qt::Key_Z, Qt::ControlModifier);
    Settle();
    EXPECT_EQ(CountOf(u"blocked <> 0"_s), u"1"_s);

    Find<QPushButton>(*frame, "blockUsers").setFocus();
    EXPECT_TRUE(Users().Matching().AreChosen()) << "the focus may leave the list";
    Click(*frame, "blockUsers");
    Settle();
    EXPECT_EQ(CountOf(u"blocked <> 0"_s), u"101"_s);
}

TEST_F(WholeList, WhatCannotBeReadChoosesNobody)
{
    ShowMany();
    TypeFilter(u"user"_s);
    Execute("ALTER TABLE logins RENAME TO logins_away");
    ChooseAll();
    EXPECT_TRUE(prompt.TakeSaid().value(0).startsWith(u"The users could not be read."_s));
    EXPECT_FALSE(Users().Matching().AreChosen());
    Execute("ALTER TABLE logins_away RENAME TO logins");
}
