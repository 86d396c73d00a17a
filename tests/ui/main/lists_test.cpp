// The users list and the groups list, worked with by mouse and keys.
#include "access/list_commands.h"
#include "accounts/sheet_actions.h"
#include "app/perform.h"
#include "db/value_codes.h"
#include "list_fixture.h"
#include "support/core/fake_service.h"
#include "support/windows/modal.h"
#include "ui/main/auto_refresh.h"
#include "ui/main/dragged_users.h"

#include <QAction>
#include <QDialog>
#include <QDrag>
#include <QDropEvent>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QScrollBar>
#include <QTimer>
#include <QToolButton>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

class Lists : public ListFixture
{
protected:
    // Three users in two groups; the frame is shown.
    void ShowThree()
    {
        sales = AddGroupNamed(u"Sales"_s);
        anna = AddUser({.name = "anna",
                        .station = "pc-3",
                        .fullName = "Anna Berg",
                        .ip = "10.0.0.3",
                        .mac = "0011AABBCCDD",
                        .mode = AccountingMode::Provider});
        bert = AddUser({.name = "bert",
                        .station = "pc-1",
                        .fullName = "Bert Cole",
                        .ip = "10.0.0.1",
                        .group = sales,
                        .blocked = true,
                        .reason = BlockReason::Administrator});
        carl =
            AddUser({.name = "carl", .station = "pc-2", .fullName = "Al Carl", .ip = "10.0.0.2"});
        ShowFrame();
        opened.clear();
    }

    void ClickHeader(const QString &text)
    {
        QHeaderView &header = *Users().header();
        for (int section = 0; section < header.count(); ++section) {
            if (header.model()->headerData(section, Qt::Horizontal).toString() == text) {
                const QPoint place(header.sectionViewportPosition(section) + 10,
                                   header.height() / 2);
                QTest::mouseClick(header.viewport(), Qt::LeftButton, {}, place);
                return;
            }
        }
        FAIL() << qPrintable(text);
    }

    GroupId sales;
    UserId anna;
    UserId bert;
    UserId carl;
};

} // namespace

TEST_F(Lists, ShowUsersAndGroups)
{
    ShowThree();
    EXPECT_EQ(RowTexts(Users()),
              QStringList({u"anna|pc-3|Anna Berg|10.0.0.3|00-11-AA-BB-CC-DD|Everybody|"_s,
                           u"bert|pc-1|Bert Cole|10.0.0.1||Sales|"_s,
                           u"carl|pc-2|Al Carl|10.0.0.2||Everybody|"_s}));
    EXPECT_EQ(RowTexts(Groups()).size(), 2);
    EXPECT_TRUE(Users().hasFocus());
    const QModelIndex access = Users().model()->index(1, 6);
    EXPECT_EQ(access.data(Qt::AccessibleTextRole), u"Access is blocked"_s);
    EXPECT_EQ(access.data(Qt::ToolTipRole), u"Access is blocked"_s);
    EXPECT_FALSE(access.data(Qt::DecorationRole).value<QIcon>().isNull());
}

TEST_F(Lists, HeaderClicksAlternateOneDirectionForAllColumns)
{
    ShowThree();
    const std::pair<QString, QStringList> clicks[] = {
        {u"Username"_s, {u"carl"_s, u"bert"_s, u"anna"_s}}, // the first click descends
        {u"IP Address"_s, {u"bert"_s, u"carl"_s, u"anna"_s}}, // ascending
        {u"Workstation"_s, {u"anna"_s, u"carl"_s, u"bert"_s}}, // descending
        {u"Full name"_s, {u"carl"_s, u"anna"_s, u"bert"_s}}, // ascending
        {u"Group"_s, {u"carl"_s, u"anna"_s, u"bert"_s}}, // nothing happens
        {u"Access"_s, {u"bert"_s, u"carl"_s, u"anna"_s}}, // descending
    };
    for (const auto &[header, names] : clicks) {
        ClickHeader(header);
        if (header == u"Access"_s) {
            EXPECT_EQ(Names().front(), names.front());
        } else {
            EXPECT_EQ(Names(), names) << qPrintable(header);
        }
        if (header == u"Group"_s) {
            EXPECT_EQ(Users().header()->sortIndicatorSection(), 2) << "still by full name";
        }
    }
    QTest::keyClick(&Users(), Qt::Key_F5); // back to the last of name, workstation or full name
    EXPECT_EQ(Names(), QStringList({u"carl"_s, u"anna"_s, u"bert"_s}));
}

TEST_F(Lists, GroupsAreNeverSorted)
{
    AddGroupNamed(u"Zoo"_s);
    AddGroupNamed(u"Alpha"_s);
    ShowFrame();
    const QStringList before = RowTexts(Groups());
    QTest::mouseClick(Groups().header()->viewport(), Qt::LeftButton, {}, QPoint(10, 5));
    EXPECT_EQ(RowTexts(Groups()), before);
}

TEST_F(Lists, PropertiesOpenForTheFirstSelectedRow)
{
    ShowThree();
    DoubleClickCell(Users(), 1, 3);
    EXPECT_EQ(opened, QStringList(u"userProperties %1"_s.arg(bert.value)));
    opened.clear();
    ClickCell(Users(), 2, 0);
    ClickCell(Users(), 0, 0, Qt::ControlModifier);
    EXPECT_EQ(Users().SelectedIds(), QList<UserId>({anna, carl}));
    QTest::keyClick(&Users(), Qt::Key_Return);
    EXPECT_EQ(opened, QStringList(u"userProperties %1"_s.arg(anna.value)));
    opened.clear();
    DoubleClickCell(Groups(), 1, 0);
    QTest::keyClick(&Groups(), Qt::Key_Enter);
    EXPECT_EQ(opened,
              QStringList({u"groupProperties %1"_s.arg(sales.value),
                           u"groupProperties %1"_s.arg(sales.value)}));
    opened.clear();
    Groups().clearSelection();
    QTest::keyClick(&Groups(), Qt::Key_Return);
    EXPECT_EQ(opened, QStringList());
}

TEST_F(Lists, TabDeselectsAndPassesTheFocus)
{
    ShowThree();
    ClickCell(Users(), 1, 0);
    QTest::keyClick(&Users(), Qt::Key_Tab);
    EXPECT_TRUE(Groups().hasFocus());
    EXPECT_EQ(Users().SelectedIds(), QList<UserId>());
    ClickCell(Groups(), 1, 0);
    QTest::keyClick(&Groups(), Qt::Key_Tab);
    EXPECT_TRUE(Users().hasFocus());
    EXPECT_TRUE(Groups().SelectedRows().isEmpty());

    ClickCell(Users(), 0, 0);
    ClickCell(Users(), 2, 0, Qt::ControlModifier);
    Find<QWidget>(*frame, "findUser").setFocus();
    EXPECT_EQ(Users().SelectedIds(), QList<UserId>({carl})); // only the first one goes
}

TEST_F(Lists, PopUpOfOneUser)
{
    ShowThree();
    ClickCell(Users(), 0, 0);
    const QStringList entries = {u"Properties..."_s,
                                 u"Account..."_s,
                                 u"Statistics"_s,
                                 u"Change group..."_s,
                                 u"-"_s,
                                 u"Do not monitor"_s,
                                 u"Remove"_s};
    OpenPopUp(Users(), 0, [&](QMenu &menu) {
        EXPECT_EQ(MenuTexts(menu), entries);
        Choose(menu, u"Account..."_s);
    });
    for (const QString &entry : {u"Statistics"_s, u"Properties..."_s}) {
        ClickCell(Users(), 0, 0);
        OpenPopUp(Users(), 0, [&](QMenu &menu) { Choose(menu, entry); });
    }
    EXPECT_EQ(opened,
              QStringList({u"userAccount %1"_s.arg(anna.value),
                           u"userStatistics %1"_s.arg(anna.value),
                           u"userProperties %1"_s.arg(anna.value)}));
    ClickCell(Users(), 1, 0); // without control there is no account
    OpenPopUp(Users(), 1, [](QMenu &menu) { EXPECT_EQ(MenuTexts(menu)[1], u"~Account..."_s); });
}

TEST_F(Lists, PopUpOfSeveralUsers)
{
    ShowThree();
    ClickCell(Users(), 0, 0);
    ClickCell(Users(), 2, 0, Qt::ControlModifier);
    OpenPopUp(Users(), 2, [](QMenu &menu) {
        EXPECT_EQ(MenuTexts(menu),
                  QStringList({u"Change group..."_s,
                               u"Set mode/limits..."_s,
                               u"-"_s,
                               u"Do not monitor"_s,
                               u"Delete"_s}));
        Choose(menu, u"Set mode/limits..."_s);
    });
    EXPECT_EQ(opened, QStringList(u"userLimits %1,%2"_s.arg(anna.value).arg(carl.value)));
}

TEST_F(Lists, PopUpOfAGroup)
{
    const GroupId provider = AddGroupNamed(u"Provider"_s, {}, AccountingMode::Provider);
    ShowFrame();
    opened.clear();
    ClickCell(Groups(), 1, 0);
    const QStringList entries = {
        u"Properties..."_s, u"Account..."_s, u"Statistics"_s, u"-"_s, u"Rename..."_s, u"Delete"_s};
    OpenPopUp(Groups(), 1, [&](QMenu &menu) {
        EXPECT_EQ(MenuTexts(menu), entries);
        Choose(menu, u"Account..."_s);
    });
    ClickCell(Groups(), 1, 0);
    OpenPopUp(Groups(), 1, [](QMenu &menu) { Choose(menu, u"Statistics"_s); });
    EXPECT_EQ(opened,
              QStringList({u"groupAccount %1"_s.arg(provider.value),
                           u"groupStatistics %1"_s.arg(provider.value)}));
    ClickCell(Groups(), 0, 0);
    OpenPopUp(Groups(), 0, [](QMenu &menu) { EXPECT_EQ(MenuTexts(menu)[1], u"~Account..."_s); });
}

TEST_F(Lists, NoPopUpWithoutASelection)
{
    ShowThree();
    Users().clearSelection();
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(5, 5), QPoint(5, 5));
    QApplication::sendEvent(Users().viewport(), &event);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST_F(Lists, AnEntryWithoutItsWindowIsNotShown)
{
    dialogs.userAccount = {};
    dialogs.userLimits = {};
    ShowThree();
    ClickCell(Users(), 0, 0);
    OpenPopUp(Users(), 0, [](QMenu &menu) { EXPECT_EQ(MenuTexts(menu)[1], u"Statistics"_s); });
    QTest::keyClick(&Users(), Qt::Key_A, Qt::ControlModifier);
    OpenPopUp(Users(), 0, [](QMenu &menu) { EXPECT_EQ(MenuTexts(menu)[1], u"-"_s); });
}

TEST_F(Lists, DeleteAsksAndRemovesExactlyTheSelectedUsers)
{
    ShowThree();
    ClickCell(Users(), 0, 0);
    ClickCell(Users(), 2, 0, Qt::ControlModifier);
    const QStringList before = EveryRow();
    QTest::keyClick(&Users(), Qt::Key_Delete); // answered No
    EXPECT_EQ(prompt.TakeSaid(),
              QStringList(
                  u"This will delete these users and all corresponding information. Continue?"_s));
    EXPECT_EQ(prompt.TakeGoing(), QStringList(u"anna, carl"_s));
    EXPECT_EQ(EveryRow(), before);
    EXPECT_TRUE(Users().SelectedIds().isEmpty()); // deselected all the same

    ClickCell(Users(), 0, 0);
    ClickCell(Users(), 2, 0, Qt::ControlModifier);
    prompt.AnswerWith({true});
    StatementRecorder recorder;
    QTest::keyClick(&Users(), Qt::Key_Delete);
    LetSessionFinish();
    const QStringList statements = recorder.TakeChanging();
    ASSERT_EQ(statements.size(), 12); // six for each user
    EXPECT_EQ(statements[0], u"DELETE FROM users WHERE user_id = (?)"_s);
    EXPECT_EQ(statements[5], u"UPDATE logins SET userid=0 WHERE userid = (?)"_s);
    EXPECT_EQ(statements[6], statements[0]);
    EXPECT_EQ(Names(), QStringList(u"bert"_s));
    EXPECT_EQ(RowsOf("SELECT username FROM users"), QStringList(u"bert"_s));
    EXPECT_EQ(Find<QLabel>(*frame, "usersPane").text(), u"Active users: 1 "_s);

    ClickCell(Users(), 0, 0);
    QTest::keyClick(&Users(), Qt::Key_Delete);
    EXPECT_EQ(prompt.TakeSaid().back(),
              u"This will delete this user and all corresponding information. Continue?"_s);
    EXPECT_EQ(prompt.TakeGoing().back(), u"bert"_s);
}

TEST_F(Lists, TheQuestionNamesWhoGoesWhateverColumnsThereAre)
{
    AddUser({.name = " ", .fullName = "No Login"});
    ShowThree();
    Users().ToggleColumn(UserColumn::UserName);
    LetSessionFinish();
    Users().selectAll();
    QTest::keyClick(&Users(), Qt::Key_Delete);
    EXPECT_EQ(prompt.TakeGoing(), QStringList(u"No Login, anna, bert, carl"_s));
    Users().selectAll();
    OpenPopUp(Users(), 0, [](QMenu &menu) { Choose(menu, u"Do not monitor"_s); });
    EXPECT_TRUE(prompt.TakeGoing().isEmpty()) << "who is not monitored comes back";
}

TEST_F(Lists, ARefillDuringTheQuestionChangesNothing)
{
    ShowThree();
    class RefillingPrompt : public ScriptedPrompt
    {
    public:
        [[nodiscard]] bool AskToDestroy(const QString & /*text*/, const QString & /*goes*/) override
        {
            meanwhile();
            return true;
        }

        std::function<void()> meanwhile;
    } refilling;
    const AppServices withRefilling {Services().settings,
                                     Services().database,
                                     Services().control,
                                     Services().connection,
                                     Services().news,
                                     refilling};
    CAdministratorView view(withRefilling, dialogs, nullptr);
    view.LoadColumns();
    view.FirstFill();
    LetSessionFinish();
    refilling.meanwhile = [&] {
        AddUser({.name = "aaron"}); // comes to stand first
        view.FillList(0, true);
        LetSessionFinish();
    };
    view.selectionModel()->select(view.model()->index(1, 0),
                                  QItemSelectionModel::Select | QItemSelectionModel::Rows);
    view.DeleteSelected();
    LetSessionFinish();
    EXPECT_EQ(RowsOf("SELECT username FROM users ORDER BY username"),
              QStringList({u"aaron"_s, u"anna"_s, u"carl"_s}));
}

TEST_F(Lists, DoNotMonitorMovesUsersOut)
{
    ShowThree();
    ClickCell(Users(), 1, 0);
    prompt.AnswerWith({true, true});
    OpenPopUp(Users(), 1, [](QMenu &menu) { Choose(menu, u"Do not monitor"_s); });
    EXPECT_EQ(prompt.TakeSaid(),
              QStringList(u"This will move this user to the unmonitored list. Continue?"_s));
    EXPECT_EQ(Names(), QStringList({u"anna"_s, u"carl"_s}));
    QTest::keyClick(&Users(), Qt::Key_A, Qt::ControlModifier);
    OpenPopUp(Users(), 0, [](QMenu &menu) { Choose(menu, u"Do not monitor"_s); });
    EXPECT_EQ(prompt.TakeSaid(),
              QStringList(u"This will move these users to the unmonitored list. Continue?"_s));
    EXPECT_EQ(RowsOf("SELECT COUNT(*) FROM users WHERE monitored = 0"), QStringList(u"3"_s));
    LetSessionFinish();
    EXPECT_EQ(Find<QLabel>(*frame, "usersPane").text(), u"Active users: 0 "_s);
}

TEST_F(Lists, DeletingAGroupTakesOnlyItsRowOut)
{
    ShowThree();
    ClickCell(Groups(), 1, 0);
    QTest::keyClick(&Groups(), Qt::Key_Delete); // No
    EXPECT_EQ(RowsOf("SELECT COUNT(*) FROM groups"), QStringList(u"2"_s));
    ClickCell(Groups(), 1, 0);
    prompt.AnswerWith({true});
    StatementRecorder recorder;
    QTest::keyClick(&Groups(), Qt::Key_Delete);
    EXPECT_EQ(prompt.TakeSaid().back(), u"This will delete the selected group. Contunue?"_s);
    EXPECT_EQ(prompt.TakeGoing(), QStringList({u"Sales"_s, u"Sales"_s}));
    EXPECT_EQ(recorder.TakeChanging(),
              QStringList({u"DELETE FROM groups WHERE group_id = (?)"_s,
                           u"UPDATE users SET group_id = 80 WHERE group_id = (?)"_s}));
    EXPECT_EQ(Groups().RowCount(), 1);
    EXPECT_TRUE(RowTexts(Users())[1].contains(u"|Sales|"_s)); // until the next refill
    QTest::keyClick(&Users(), Qt::Key_F5);
    EXPECT_TRUE(RowTexts(Users())[1].contains(u"|Everybody|"_s));
}

TEST_F(Lists, EverybodyIsKeptByNameAndById)
{
    const GroupId twin = AddGroupNamed(u"Everybody"_s);
    ShowFrame();
    prompt.AnswerWith({true, true, true});
    ClickCell(Groups(), 1, 0); // the twin: its name alone protects it
    const QStringList before = EveryRow();
    QTest::keyClick(&Groups(), Qt::Key_Delete);
    EXPECT_EQ(prompt.TakeSaid().back(), u"You cannot delete Everybody group"_s);
    EXPECT_EQ(prompt.TakeGoing(), QStringList(QString())) << "nothing goes";
    EXPECT_EQ(EveryRow(), before);

    Execute("UPDATE groups SET name = 'All' WHERE group_id = 80");
    QTest::keyClick(&Groups(), Qt::Key_F5);
    ClickCell(Groups(), 0, 0);
    OpenPopUp(Groups(), 0, [](QMenu &menu) { Choose(menu, u"Rename..."_s); });
    EXPECT_EQ(prompt.TakeSaid(), QStringList(u"You can not rename Everybody group"_s));
    ClickCell(Groups(), 0, 0);
    QTest::keyClick(&Groups(), Qt::Key_Delete); // under another name it can be deleted
    EXPECT_EQ(RowsOf("SELECT group_id FROM groups"), QStringList(QString::number(twin.value)));
}

TEST_F(Lists, RenamingAGroupRefillsTheGroups)
{
    ShowThree();
    for (const QString &name : {u"O'Hara & \u00e9\u00e9"_s, u" SALES "_s}) {
        ClickCell(Groups(), 1, 0);
        const WhileModal rename([&](QDialog &dialog) {
            EXPECT_EQ(dialog.windowTitle(), u"Rename group"_s);
            EXPECT_EQ(Find<QLabel>(dialog, "owner").text(),
                      u"Group: "_s + RowTexts(Groups())[1].section(u'|', 0, 0));
            Type(Find<QWidget>(dialog, "name"), name);
            Click(dialog, "ok");
        });
        OpenPopUp(Groups(), 1, [](QMenu &menu) { Choose(menu, u"Rename..."_s); });
        EXPECT_EQ(RowTexts(Groups())[1].section(u'|', 0, 0), name.trimmed());
    }
    EXPECT_EQ(prompt.TakeSaid(), QStringList());
}

TEST_F(Lists, TheAccountCommandSaysWhoseAccountItOpens)
{
    ShowThree();
    const std::pair<ListPane *, QString> prompts[] = {
        {&Users(), u"Refill current user account"_s},
        {&Groups(), u"Refill current group account"_s},
        {&Users(), u"Refill current user account"_s},
    };
    for (const auto &[list, said] : prompts) {
        ClickCell(*list, 0, 0);
        EXPECT_EQ(Command("account").statusTip(), said);
        EXPECT_EQ(Command("account").toolTip(), said);
    }
}

TEST_F(Lists, AGroupIsNotGivenAnEmptyOrATakenName)
{
    ShowThree();
    ClickCell(Groups(), 1, 0);
    const WhileModal rename([&](QDialog &dialog) {
        for (const QString &name : {u" "_s, u" everyBODY"_s}) {
            Type(Find<QWidget>(dialog, "name"), name);
            Click(dialog, "ok");
            EXPECT_TRUE(dialog.isVisible());
        }
        EXPECT_EQ(prompt.TakeSaid(),
                  QStringList({u"Please enter the name of the group"_s,
                               u"The group with this name already exists!"_s}));
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    OpenPopUp(Groups(), 1, [](QMenu &menu) { Choose(menu, u"Rename..."_s); });
    EXPECT_EQ(RowTexts(Groups())[1].section(u'|', 0, 0), u"Sales"_s);
}

TEST_F(Lists, FindLooksForThePrefixOfTheFirstColumn)
{
    ShowThree();
    auto &field = Find<QWidget>(*frame, "findUser");
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_EQ(prompt.TakeSaid(), QStringList(u"Enter search criteria please"_s));
    Type(field, u"BE"_s);
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_EQ(Users().SelectedIds(), QList<UserId>({bert}));
    EXPECT_TRUE(Users().hasFocus());
    Type(field, u"Cole"_s); // stands in another column: the filter finds him
    Click(*frame, "find");
    EXPECT_EQ(Users().SelectedIds(), QList<UserId>({bert}));
    EXPECT_EQ(frame->focusWidget(), &Users())
        << "the words of a filter were offered meanwhile, in a window of their own";
    EXPECT_EQ(prompt.TakeSaid(), QStringList());
    Type(field, u"nobody"_s);
    Click(*frame, "find");
    EXPECT_EQ(Names(), QStringList());
    EXPECT_EQ(prompt.TakeSaid(), QStringList(u"No user found"_s));
    EXPECT_EQ(prompt.lastCaption, u"Tollbrook Administrator"_s);
    EXPECT_TRUE(field.hasFocus());
    QTest::mouseClick(field.findChild<QToolButton *>(), Qt::LeftButton); // clears the text
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_EQ(prompt.TakeSaid(), QStringList(u"Enter search criteria please"_s));

    Users().ToggleColumn(UserColumn::UserName);
    LetSessionFinish();
    Type(field, u"pc-2"_s);
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_EQ(Users().SelectedIds(), QList<UserId>({carl}));
    QTest::keyClick(frame.get(), Qt::Key_F, Qt::ControlModifier);
    EXPECT_TRUE(field.hasFocus());
}

TEST_F(Lists, ARefillKeepsTheSelection)
{
    ShowThree();
    ClickCell(Users(), 2, 0);
    AddUser({.name = "aaron"});
    QTest::keyClick(&Users(), Qt::Key_F5);
    EXPECT_EQ(Users().SelectedIds(), QList<UserId>({carl}));
    EXPECT_EQ(Users().SelectedRows(), QList<int>({3}));
}

namespace {

// Forty users u01 to u40 and as many groups, in a window that does not show them all.
class LongLists : public Lists
{
protected:
    void ShowForty()
    {
        for (int number = 1; number <= 40; ++number) {
            const QByteArray name = u"u%1"_s.arg(number, 2, 10, QChar(u'0')).toLatin1();
            ids << AddUser({.name = name.constData()});
            groupIds << AddGroupNamed(QString::fromLatin1(name));
        }
        ShowFrame();
    }

    // The selected users' numbers.
    [[nodiscard]] QList<int> Selected() const
    {
        QList<int> numbers;
        for (const UserId id : Users().SelectedIds()) {
            numbers << static_cast<int>(ids.indexOf(id)) + 1;
        }
        std::ranges::sort(numbers);
        return numbers;
    }

    QList<UserId> ids;
    QList<GroupId> groupIds;
};

} // namespace

TEST_F(LongLists, ShiftSelectsFromTheCurrentRowAfterARefresh)
{
    ShowForty();
    const std::pair<const char *, std::function<void()>> refreshes[] = {
        {"F5", [&] { QTest::keyClick(&Users(), Qt::Key_F5); }},
        {"timer", [&] { emit frame->Refreshing().Due(); }},
        {"header", [&] { ClickHeader(u"Username"_s); }},
        {"new user",
         [&] {
             AddUser({.name = "a-new-one"});
             QTest::keyClick(&Users(), Qt::Key_F5);
         }},
    };
    for (const auto &[how, refresh] : refreshes) {
        ClickCell(Users(), Names().indexOf(u"u11"_s), 0);
        refresh();
        LetSessionFinish();
        EXPECT_EQ(Selected(), QList<int>({11})) << how;
        ClickCell(Users(), Names().indexOf(u"u13"_s), 0, Qt::ShiftModifier);
        EXPECT_EQ(Selected(), QList<int>({11, 12, 13})) << how;
        refresh();
        LetSessionFinish();
        QTest::keyClick(
            &Users(), Names()[3] < Names()[4] ? Qt::Key_Down : Qt::Key_Up, Qt::ShiftModifier);
        EXPECT_EQ(Selected(), QList<int>({11, 12, 13, 14})) << how;
        refresh();
        LetSessionFinish();
        QTest::keyClick(&Users(), Names()[3] < Names()[4] ? Qt::Key_Down : Qt::Key_Up);
        EXPECT_EQ(Selected(), QList<int>({15})) << how;
    }
}

TEST_F(LongLists, AColumnThatComesOrGoesLeavesTheSelection)
{
    ShowForty();
    ClickCell(Users(), 29, 0);
    ClickCell(Users(), 30, 0, Qt::ControlModifier);
    for (int turn = 0; turn < 2; ++turn) {
        Users().ToggleColumn(UserColumn::FullName);
        LetSessionFinish();
        EXPECT_EQ(Selected(), QList<int>({30, 31}));
        EXPECT_EQ(Users().currentIndex().row(), 30);
    }
    QTest::keyClick(&Users(), Qt::Key_Down);
    EXPECT_EQ(Selected(), QList<int>({32}));
}

TEST_F(LongLists, ADeletionLeavesTheCurrentRowBesideWhatIsGone)
{
    ShowForty();
    ClickCell(Users(), 9, 0);
    ClickCell(Users(), 11, 0, Qt::ShiftModifier);
    prompt.AnswerWith({true, true});
    QTest::keyClick(&Users(), Qt::Key_Delete);
    EXPECT_EQ(RowsOf("SELECT COUNT(*) FROM users"), QStringList(u"37"_s));
    EXPECT_TRUE(Selected().isEmpty());
    ClickCell(Users(), 11, 0, Qt::ShiftModifier); // of u13, which came to stand there, to u15
    EXPECT_EQ(Selected(), QList<int>({13, 14, 15}));
    Users().clearSelection(); // as the list does when it loses the focus
    QTest::keyClick(&Users(), Qt::Key_F5);
    LetSessionFinish();
    QTest::keyClick(&Users(), Qt::Key_Down);
    EXPECT_EQ(Selected(), QList<int>({16}));

    Execute("DELETE FROM users WHERE user_id = (?)", ids[15]); // u16, by somebody else
    QTest::keyClick(&Users(), Qt::Key_F5);
    EXPECT_TRUE(Selected().isEmpty()) << "nobody has chosen another one";
    QTest::keyClick(&Users(), Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(Selected(), QList<int>({17, 18}));
}

TEST_F(LongLists, ShiftWithoutACurrentRowSelectsTheClickedOne)
{
    ShowForty();
    Users().setCurrentIndex({});
    Users().clearSelection();
    ClickCell(Users(), 12, 0, Qt::ShiftModifier);
    EXPECT_EQ(Selected(), QList<int>({13}));
}

TEST_F(LongLists, TheSameRowsStayInView)
{
    ShowForty();
    const auto top = [this] { return Users().indexAt({}).data().toString(); };
    Users().verticalScrollBar()->setValue(12);
    const QString shown = top();
    AddUser({.name = "a-new-one"});
    QTest::keyClick(&Users(), Qt::Key_F5);
    EXPECT_EQ(top(), shown);
    Execute("DELETE FROM users WHERE username < 'u10'");
    QTest::keyClick(&Users(), Qt::Key_F5);
    EXPECT_EQ(top(), shown);
    Execute("DELETE FROM users WHERE username = (?)", shown);
    QTest::keyClick(&Users(), Qt::Key_F5);
    EXPECT_EQ(top(), u"u14"_s) << "the first that is left of those in view";

    Users().verticalScrollBar()->setValue(0);
    AddUser({.name = "another-new-one"});
    QTest::keyClick(&Users(), Qt::Key_F5);
    EXPECT_EQ(top(), u"another-new-one"_s) << "the beginning stays the beginning";

    ClickCell(Users(), 3, 0);
    const QString current = Users().currentIndex().data().toString();
    ClickHeader(u"Username"_s);
    EXPECT_EQ(Users().currentIndex().data().toString(), current);
    EXPECT_TRUE(Users().viewport()->rect().contains(Users().visualRect(Users().currentIndex())));
}

TEST_F(LongLists, TheGroupsKeepTheirPlaceToo)
{
    ShowForty();
    ClickCell(Groups(), 11, 0); // u11, behind "Everybody"
    const int scrolledTo = Groups().verticalScrollBar()->value();
    ASSERT_GT(scrolledTo, 0);
    QTest::keyClick(&Groups(), Qt::Key_F5);
    EXPECT_EQ(Groups().SelectedIds(), QList<GroupId>({groupIds[10]}));
    EXPECT_EQ(Groups().verticalScrollBar()->value(), scrolledTo);
    QTest::keyClick(&Groups(), Qt::Key_Down);
    EXPECT_EQ(Groups().SelectedIds(), QList<GroupId>({groupIds[11]}));

    Execute("DELETE FROM groups WHERE group_id = (?)", groupIds[11]);
    QTest::keyClick(&Groups(), Qt::Key_F5);
    EXPECT_TRUE(Groups().SelectedIds().isEmpty()) << "Delete would take another one";
    QTest::keyClick(&Groups(), Qt::Key_Down);
    EXPECT_EQ(Groups().SelectedIds(), QList<GroupId>({groupIds[13]}));
    prompt.AnswerWith({true});
    QTest::keyClick(&Groups(), Qt::Key_Delete);
    EXPECT_TRUE(Groups().SelectedIds().isEmpty());
    QTest::keyClick(&Groups(), Qt::Key_Up);
    EXPECT_EQ(Groups().SelectedIds(), QList<GroupId>({groupIds[12]}));
}

TEST_F(LongLists, FindIsWhereShiftGoesOnFrom)
{
    ShowForty();
    ClickCell(Users(), 1, 0);
    Type(Find<QWidget>(*frame, "findUser"), u"u20"_s);
    QTest::keyClick(&Find<QWidget>(*frame, "findUser"), Qt::Key_Return);
    QTest::keyClick(&Users(), Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(Selected(), QList<int>({20, 21}));
}

TEST_F(LongLists, TheMenuKeysOpenThePopUpAtTheCurrentRow)
{
    ShowForty();
    const std::pair<Qt::Key, Qt::KeyboardModifiers> keys[] = {{Qt::Key_F10, Qt::ShiftModifier},
                                                              {Qt::Key_Menu, Qt::NoModifier}};
    for (const auto &[key, held] : keys) {
        for (ListPane *list :
             {static_cast<ListPane *>(&Users()), static_cast<ListPane *>(&Groups())}) {
            ClickCell(*list, 2, 0);
            if (list == &Users()) {
                ClickCell(*list, 4, 0, Qt::ControlModifier);
            }
            const QRect row = list->visualRect(list->currentIndex());
            const WhileMenu menu([&](QMenu &shown) {
                LetSessionFinish();
                EXPECT_TRUE(MenuTexts(shown).contains(list == &Users() ? u"Change group..."_s
                                                                       : u"Rename..."_s));
                EXPECT_EQ(shown.y(), list->viewport()->mapToGlobal(row.bottomLeft()).y());
            });
            QTest::keyClick(list, key, held);
        }
    }
    Users().clearSelection();
    QTest::keyClick(&Users(), Qt::Key_Menu);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST_F(Lists, WhatCannotBeReadStaysAsItWasShown)
{
    ShowThree();
    QLabel &notice = Find<QLabel>(*frame, "messagePane");
    const QString unread = u"The lists could not be read; the failed statements tell why."_s;
    Execute("ALTER TABLE users RENAME TO users_away");
    Execute("ALTER TABLE groups RENAME TO groups_away");
    QTest::keyClick(&Find<QWidget>(*frame, "findUser"), Qt::Key_F5);
    EXPECT_EQ(Names(), QStringList({u"anna"_s, u"bert"_s, u"carl"_s}));
    EXPECT_EQ(Groups().RowCount(), 2);
    EXPECT_TRUE(IsShown(*frame, "failuresPane"));
    EXPECT_EQ(notice.text(), unread);
    for (ListPane *list : {static_cast<ListPane *>(&Users()), static_cast<ListPane *>(&Groups())}) {
        notice.clear();
        QTest::keyClick(list, Qt::Key_F5);
        LetSessionFinish();
        EXPECT_EQ(notice.text(), unread);
    }
    notice.clear();
    ClickHeader(u"Username"_s);
    LetSessionFinish();
    EXPECT_EQ(notice.text(), unread);
    EXPECT_EQ(Users().header()->sortIndicatorOrder(), Qt::AscendingOrder) << "as it is shown";

    Execute("ALTER TABLE users_away RENAME TO users");
    Execute("ALTER TABLE groups_away RENAME TO groups");
    QTest::keyClick(&Find<QWidget>(*frame, "findUser"), Qt::Key_F5);
    LetSessionFinish();
    EXPECT_EQ(notice.text(), u"Ready"_s);
}

TEST_F(Lists, AnEmptyListSaysWhyItIs)
{
    ShowFrame();
    const auto said = [](const ListPane &list) {
        const auto &note = Find<QLabel>(list, "emptyNote");
        return note.isVisible() ? note.text() : QString();
    };
    EXPECT_TRUE(said(Users()).startsWith(u"There are no users yet."_s));
    EXPECT_EQ(said(Groups()), QString());
    Grab(*frame, u"empty-lists"_s);
    anna = AddUser({.name = "anna"});
    QTest::keyClick(&Users(), Qt::Key_F5);
    EXPECT_EQ(said(Users()), QString());
    TypeFilter(u"bert"_s);
    EXPECT_EQ(said(Users()), u"Nobody matches."_s);
    TypeFilter(u"an"_s);
    EXPECT_EQ(said(Users()), QString());
    TypeFilter(u"bert"_s);
    Execute("ALTER TABLE users RENAME TO users_away");
    TypeFilter(u"carl"_s);
    EXPECT_EQ(said(Users()), u"The list could not be read."_s);
    Execute("ALTER TABLE users_away RENAME TO users");
    TypeFilter({});
    EXPECT_EQ(Names(), QStringList(u"anna"_s));
    Execute("DELETE FROM users WHERE user_id = (?)", anna);
    QTest::keyClick(&Users(), Qt::Key_F5);
    (void)Users();
    EXPECT_TRUE(said(Users()).startsWith(u"There are no users yet."_s));
    QTest::keyClick(&Users(), Qt::Key_F5);
    EXPECT_EQ(said(*static_cast<const ListPane *>(frame->findChild<CAdministratorView *>())),
              QString())
        << "while it is read";
}

TEST_F(Lists, NobodyKnowsHowManyUsersThereAreBeforeTheyWereRead)
{
    AddUser({.name = "anna"});
    Execute("ALTER TABLE users RENAME TO users_away");
    ShowFrame();
    EXPECT_EQ(Find<QLabel>(*frame, "usersPane").text(), u"Active users: ? "_s);
    EXPECT_EQ(Find<QLabel>(Users(), "emptyNote").text(), u"The list could not be read."_s);
    Execute("ALTER TABLE users_away RENAME TO users");
    QTest::keyClick(&Users(), Qt::Key_F5);
    EXPECT_EQ(Names(), QStringList(u"anna"_s));
    EXPECT_EQ(Find<QLabel>(*frame, "usersPane").text(), u"Active users: 1 "_s);
}

TEST_F(Lists, ACommandThatFailedTakesNothingOutOfItsList)
{
    ShowThree();
    Execute("ALTER TABLE billing RENAME TO billing_away");
    const QStringList before = RowsOf("SELECT * FROM users");
    prompt.AnswerWith({true, true});
    ClickCell(Users(), 0, 0);
    QTest::keyClick(&Users(), Qt::Key_Delete);
    LetSessionFinish();
    QStringList said = prompt.TakeSaid();
    ASSERT_EQ(said.size(), 2);
    EXPECT_TRUE(said[1].startsWith(u"No user was deleted. Nothing was changed"_s))
        << qPrintable(said[1]);
    EXPECT_EQ(Names(), QStringList({u"anna"_s, u"bert"_s, u"carl"_s}));
    EXPECT_EQ(RowsOf("SELECT * FROM users"), before);
    Execute("ALTER TABLE billing_away RENAME TO billing");

    Execute("CREATE TRIGGER refuse BEFORE UPDATE OF group_id ON users "
            "BEGIN SELECT RAISE(ABORT, 'not now'); END");
    ClickCell(Groups(), 1, 0);
    QTest::keyClick(&Groups(), Qt::Key_Delete);
    said = prompt.TakeSaid();
    ASSERT_EQ(said.size(), 2);
    EXPECT_TRUE(said[1].contains(u"not now"_s)) << qPrintable(said[1]);
    EXPECT_EQ(Groups().RowCount(), 2);
    EXPECT_EQ(RowTexts(Groups())[1].section(u'|', 0, 0), u"Sales"_s);
    EXPECT_EQ(RowsOf("SELECT COUNT(*) FROM groups"), QStringList(u"2"_s));
}

TEST_F(Lists, AChangeIsInForceWhenTheServiceHasHeardOfIt)
{
    PrivateBus bus;
    FakeService service(bus);
    service.OfferAccounting();
    UseBus(bus.Connection());
    ASSERT_EQ(Services().connection.Connect(prompt), 0);
    ShowThree();
    QLabel &notice = Find<QLabel>(*frame, "messagePane");
    const auto block = [&](UserId user) {
        UserRecord record = LoadUser(user).value().value();
        record.block.requested = true;
        return Perform(Services(), frame.get(), u"Storing..."_s, ApplyUserAction(record, 1));
    };
    service.LeaveNoticesUnanswered();
    EXPECT_TRUE(block(anna));
    EXPECT_EQ(notice.text(), u"The service is being told of the change..."_s);
    service.AnswerNotices();
    EXPECT_TRUE(
        QTest::qWaitFor([&] { return notice.text() == u"The change is in force."_s; }, 5000))
        << qPrintable(notice.text());

    service.LeaveNoticesUnanswered();
    EXPECT_TRUE(block(carl));
    Services().connection.Disconnect();
    EXPECT_EQ(notice.text(),
              u"The service was not told and will find the change in the database."_s);
}

TEST_F(Lists, TheMessagePaneTellsOfTheConnectionToTheDatabase)
{
    ShowThree();
    QLabel &notice = Find<QLabel>(*frame, "messagePane");
    emit Services().database.ConnectionChanged(false);
    EXPECT_EQ(notice.text(), u"No connection to the database"_s);
    emit Services().news.Stored(true);
    EXPECT_EQ(notice.text(), u"No connection to the database"_s) << "as long as it lasts";
    emit Services().database.ConnectionChanged(true);
    EXPECT_EQ(notice.text(), u"The change is in force."_s);
    emit Services().news.Stored(false);
    EXPECT_EQ(notice.text(), u"The change will be in force when the service starts."_s);
    emit Services().news.SettingsStored();
    EXPECT_EQ(notice.text(), u"The settings will be in force when the service is restarted."_s);
    emit Services().news.ServiceSettled(true);
    EXPECT_EQ(notice.text(), u"The settings will be in force when the service is restarted."_s)
        << "what was heard of before is no news";
    emit Services().news.ServiceSettled(false);
    EXPECT_EQ(notice.text(),
              u"The service was not told and will find the change in the database."_s);
}

namespace {

// Users are dragged from the users list and let go over the groups list.
class Drags : public Lists
{
protected:
    [[nodiscard]] QPoint MiddleOf(int row) const
    {
        return Groups().visualRect(Groups().model()->index(row, 0)).center();
    }

    // Whether it may be let go there.
    bool MoveOver(const QMimeData &data, const QPoint &place) const
    {
        QDragEnterEvent enter(place, Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(Groups().viewport(), &enter);
        QDragMoveEvent move(place, Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(Groups().viewport(), &move);
        return enter.isAccepted() && move.isAccepted();
    }

    bool Drop(const QMimeData &data, const QPoint &place) const
    {
        (void)MoveOver(data, place);
        QDropEvent drop(place, Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(Groups().viewport(), &drop);
        Settle();
        return drop.isAccepted();
    }

    [[nodiscard]] static QStringList Members()
    {
        return RowsOf("SELECT user_id, group_id FROM users ORDER BY user_id");
    }

    [[nodiscard]] std::unique_ptr<QMimeData> Selected() const
    {
        return std::unique_ptr<QMimeData>(DataOfUsers(Users().SelectedIds()));
    }
};

} // namespace

TEST_F(Drags, OneUserIsMovedAfterAQuestion)
{
    ShowThree();
    ClickCell(Users(), 0, 0);
    const auto data = Selected();
    const QStringList before = Members();
    EXPECT_TRUE(Drop(*data, MiddleOf(1))); // answered No
    EXPECT_EQ(prompt.TakeSaid(), QStringList(u"Move anna to the group Sales?"_s));
    EXPECT_EQ(prompt.TakeGoing(), QStringList()) << "Yes is the usual answer";
    EXPECT_EQ(Members(), before);
    prompt.AnswerWith({true});
    EXPECT_TRUE(Drop(*data, MiddleOf(1)));
    EXPECT_NE(Members(), before);
    EXPECT_TRUE(RowTexts(Users())[0].contains(u"Sales"_s)) << "the list shows where anna is";
}

TEST_F(Drags, SeveralUsersAreNamedAndTakenAsTheDragBegan)
{
    ShowThree();
    ClickCell(Users(), 0, 0);
    ClickCell(Users(), 2, 0, Qt::ControlModifier);
    const auto data = Selected();
    ClickCell(Groups(), 0, 0); // the users list loses the focus and deselects its first row
    prompt.AnswerWith({true});
    EXPECT_TRUE(Drop(*data, MiddleOf(1)));
    EXPECT_EQ(prompt.TakeSaid(),
              QStringList(u"This will move 2 users to the group Sales. Continue?"_s));
    EXPECT_EQ(prompt.TakeGoing(), QStringList(u"anna, carl"_s));
    for (const QString &row : RowTexts(Users())) {
        EXPECT_TRUE(row.contains(u"Sales"_s)) << qPrintable(row);
    }
}

TEST_F(Drags, TheGroupUnderTheMouseIsMarked)
{
    ShowThree();
    ClickCell(Users(), 0, 0);
    const auto data = Selected();
    const auto shown = [this] { return Groups().viewport()->grab().toImage(); };
    const QImage plain = shown();
    EXPECT_TRUE(MoveOver(*data, MiddleOf(0)));
    const QImage first = shown();
    Grab(*frame, u"drag-over-group"_s);
    EXPECT_TRUE(MoveOver(*data, MiddleOf(1)));
    EXPECT_NE(first, plain);
    EXPECT_NE(shown(), first);
    QDragLeaveEvent leave;
    QCoreApplication::sendEvent(Groups().viewport(), &leave);
    EXPECT_EQ(shown(), plain);
}

TEST_F(Drags, WhatIsNotForAGroupIsRefused)
{
    ShowThree();
    ClickCell(Users(), 0, 0);
    const auto data = Selected();
    const QStringList before = Members();
    const QPoint below(MiddleOf(0).x(), Groups().viewport()->height() - 2);
    EXPECT_FALSE(Drop(*data, below)) << "no group is there";
    QMimeData foreign;
    foreign.setText(u"anna"_s);
    EXPECT_FALSE(Drop(foreign, MiddleOf(1)));
    foreign.setData(data->formats().constFirst(), QByteArray(20, '\1'));
    EXPECT_FALSE(Drop(foreign, MiddleOf(1))) << "of another program";
    EXPECT_FALSE(Users().acceptDrops());
    EXPECT_EQ(prompt.TakeSaid(), QStringList());
    EXPECT_EQ(Members(), before);
}

// The real mouse: what is dragged are the rows that are selected, and a drag that ends nowhere leaves them.
TEST_F(Drags, BeginWithTheMouse)
{
    ShowThree();
    ClickCell(Users(), 0, 0);
    ClickCell(Users(), 1, 0, Qt::ControlModifier);
    QStringList dragged;
    Users().SetRunDrag([&](QDrag &drag) {
        for (const UserId userId : UsersIn(*drag.mimeData())) {
            dragged << QString::number(userId.value);
        }
        EXPECT_FALSE(drag.pixmap().isNull());
    });
    const auto middle = [this](int row) {
        return Users().visualRect(Users().model()->index(row, 0)).center();
    };
    const auto drag = [&](int row) {
        QTest::mousePress(Users().viewport(), Qt::LeftButton, {}, middle(row));
        QTest::mouseMove(Users().viewport(), middle(row) + QPoint(30, 0));
        QTest::mouseMove(Users().viewport(), middle(row) + QPoint(60, 0));
        QTest::mouseRelease(Users().viewport(), Qt::LeftButton, {}, middle(row) + QPoint(60, 0));
    };
    drag(1);
    EXPECT_EQ(dragged, QStringList({QString::number(anna.value), QString::number(bert.value)}));
    EXPECT_EQ(prompt.TakeSaid(), QStringList());
    dragged.clear();
    drag(2);
    EXPECT_EQ(dragged, QStringList(QString::number(carl.value))) << "pressing selects it first";
}
