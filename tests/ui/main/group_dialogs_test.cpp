// "Change group" with its "Add group" and "Delete group", and how moving users uses it.
#include "db/value_codes.h"
#include "list_fixture.h"
#include "support/windows/modal.h"
#include "ui/props/change_group_dialog.h"

#include <QListWidget>
#include <QMenu>

using namespace Qt::StringLiterals;

namespace {

class ChangeGroup : public ListFixture
{
protected:
    ChangeGroupDialog &Open()
    {
        dialog = std::make_unique<ChangeGroupDialog>(Services(),
                                                     ReadGroupNames().value_or(QList<NamedGroup>()),
                                                     ChangeGroupDialog::Place::Command,
                                                     nullptr);
        dialog->show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
        return *dialog;
    }

    [[nodiscard]] QListWidget &List() const { return Find<QListWidget>(*dialog, "groups"); }

    void Pick(const QString &name)
    {
        const auto found = List().findItems(name, Qt::MatchExactly);
        ASSERT_FALSE(found.isEmpty()) << qPrintable(name);
        ClickCell(List(), List().row(found.first()), 0);
    }

    void Add(const QString &name)
    {
        const WhileModal answer([&](QDialog &naming) {
            EXPECT_EQ(naming.windowTitle(), u"Add group"_s);
            EXPECT_EQ(Find<QWidget>(naming, "name").accessibleName(),
                      u"Enter the name of the group"_s);
            Type(Find<QWidget>(naming, "name"), name);
            Click(naming, "ok");
            if (naming.isVisible()) {
                refused << name;
                Click(naming, "cancel");
            }
        });
        Click(*dialog, "addGroup");
    }

    void TearDown() override
    {
        dialog.reset();
        ListFixture::TearDown();
    }

    std::unique_ptr<ChangeGroupDialog> dialog;
    QStringList refused;
};

} // namespace

TEST_F(ChangeGroup, ChoosingEnablesItsButtons)
{
    AddGroupNamed(u"Sales"_s);
    Open();
    EXPECT_EQ(dialog->windowTitle(), u"Change group"_s);
    EXPECT_EQ(List().accessibleName(), u"Select one of the groups"_s);
    EXPECT_EQ(RowTexts(List()), QStringList({u"Everybody"_s, u"Sales"_s}));
    EXPECT_FALSE(Find<QWidget>(*dialog, "ok").isEnabled());
    EXPECT_FALSE(Find<QWidget>(*dialog, "deleteGroup").isEnabled());
    dialog->accept();
    EXPECT_EQ(prompt.TakeSaid(), QStringList(u"Select group to change, please"_s));
    EXPECT_TRUE(dialog->isVisible());
    Grab(*dialog, u"change-group"_s);
    Pick(u"Sales"_s);
    EXPECT_TRUE(Find<QWidget>(*dialog, "deleteGroup").isEnabled());
    Click(*dialog, "ok");
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
    EXPECT_EQ(dialog->ChosenGroup().name, u"Sales"_s);
    EXPECT_EQ(dialog->ChosenGroup().groupId, GroupId {81});
}

TEST_F(ChangeGroup, AnAddedNameStandsForAnotherIdUntilReopened)
{
    AddGroupNamed(u"Alpha"_s); // 81
    AddGroupNamed(u"Zoo"_s); // 82
    Open();
    StatementRecorder recorder;
    Add(u"Beta"_s); // 83: sorted in, its id comes last
    const QStringList statements = recorder.Take();
    const auto inserted = statements.indexOf(u"INSERT INTO groups (name) VALUES (?)"_s);
    EXPECT_GE(inserted, 0);
    EXPECT_EQ(statements.value(inserted + 1), u"SELECT group_id FROM groups WHERE name = (?)"_s);
    EXPECT_EQ(RowTexts(List()), QStringList({u"Alpha"_s, u"Beta"_s, u"Everybody"_s, u"Zoo"_s}));
    const std::pair<QString, quint32> mismatched[] = {
        {u"Alpha"_s, 81}, {u"Beta"_s, 80}, {u"Everybody"_s, 82}, {u"Zoo"_s, 83}};
    for (const auto &[name, id] : mismatched) {
        Pick(name);
        EXPECT_EQ(dialog->ChosenGroup().groupId.value, id) << qPrintable(name);
    }
    Open();
    Pick(u"Beta"_s);
    EXPECT_EQ(dialog->ChosenGroup().groupId, GroupId {83});
}

TEST_F(ChangeGroup, ANameIsAddedOnce)
{
    AddGroupNamed(u"\u00c9t\u00e9"_s);
    Open();
    for (const QString &name : {u"everybody"_s, u"EVERYBODY "_s, u"e\u0301T\u00c9"_s}) {
        Add(name);
    }
    EXPECT_EQ(refused.size(), 3);
    EXPECT_EQ(prompt.TakeSaid(), QStringList(3, u"The group with this name already exists!"_s));
    Execute("INSERT INTO groups (name) VALUES ('Meanwhile')"); // not in the dialog's list
    Add(u"MEANWHILE"_s);
    EXPECT_EQ(prompt.TakeSaid(), QStringList(u"The group with this name already exists!"_s));
    Add(QString());
    EXPECT_EQ(prompt.TakeSaid(), QStringList(u"Please enter the name of the group"_s));
    EXPECT_EQ(refused.size(), 5);
    refused.clear();
    Execute("DELETE FROM groups WHERE name = 'Meanwhile'");
    Add(u"  O'Hara\"s\t"_s);
    EXPECT_TRUE(refused.isEmpty());
    EXPECT_TRUE(RowTexts(List()).contains(u"O'Hara\"s"_s)) << "without the blanks around it";
    EXPECT_EQ(RowsOf("SELECT name FROM groups WHERE group_id > 81"), QStringList(u"O'Hara\"s"_s));
}

TEST_F(ChangeGroup, DeletingMovesTheMembersFirst)
{
    const GroupId sales = AddGroupNamed(u"Sales"_s);
    AddGroupNamed(u"Zoo"_s);
    AddUser({.name = "anna", .group = sales});
    Open();
    Pick(u"Sales"_s);
    Click(*dialog, "deleteGroup"); // No
    EXPECT_EQ(prompt.TakeSaid(), QStringList(u"You are going to remove the group. Continue?"_s));
    EXPECT_EQ(List().count(), 3);
    prompt.AnswerWith({true});
    StatementRecorder recorder;
    Click(*dialog, "deleteGroup");
    EXPECT_EQ(recorder.TakeChanging(),
              QStringList({u"UPDATE users SET group_id = 80  WHERE group_id = (?)"_s,
                           u"DELETE FROM groups WHERE group_id = (?)"_s}));
    EXPECT_EQ(RowTexts(List()), QStringList({u"Everybody"_s, u"Zoo"_s}));
    EXPECT_FALSE(Find<QWidget>(*dialog, "ok").isEnabled());
    Pick(u"Zoo"_s); // still its own id
    EXPECT_EQ(dialog->ChosenGroup().groupId, GroupId {82});
    EXPECT_EQ(RowsOf("SELECT group_id FROM users"), QStringList(u"80"_s));
}

TEST_F(ChangeGroup, TheQuestionNamesTheGroupWhoseIdIsDeleted)
{
    AddGroupNamed(u"Sales"_s);
    AddGroupNamed(u"Zoo"_s);
    Open();
    Add(u"Home"_s); // stands before "Sales", and has the last id
    const std::pair<QString, QString> names[] = {{u"Everybody"_s, u"Everybody"_s},
                                                 {u"Home"_s, u"Sales"_s},
                                                 {u"Sales"_s, u"Zoo"_s},
                                                 {u"Zoo"_s, u"Home"_s}};
    for (const auto &[shown, goes] : names) {
        Pick(shown);
        Click(*dialog, "deleteGroup");
        EXPECT_EQ(prompt.TakeGoing(), QStringList(goes));
    }
    Pick(u"Home"_s);
    prompt.AnswerWith({true});
    Click(*dialog, "deleteGroup");
    EXPECT_EQ(RowsOf("SELECT COUNT(*) FROM groups WHERE name = 'Sales'"), QStringList(u"0"_s));

    Pick(u"Sales"_s);
    (void)prompt.TakeSaid();
    Execute("ALTER TABLE groups RENAME TO groups_away");
    prompt.AnswerWith({true});
    Click(*dialog, "deleteGroup");
    const QStringList said = prompt.TakeSaid();
    ASSERT_EQ(said.size(), 1) << "nothing is asked about a group that nobody can name";
    EXPECT_TRUE(said[0].startsWith(u"The group's name could not be read."_s))
        << qPrintable(said[0]);
}

TEST_F(ChangeGroup, TheMessageDoesNotStopTheDeletionOfEverybody)
{
    Open();
    Pick(u"Everybody"_s);
    prompt.AnswerWith({true});
    Click(*dialog, "deleteGroup");
    EXPECT_EQ(prompt.TakeSaid().back(), u"You can not delete 'Everybody' group"_s);
    EXPECT_EQ(RowTexts(List()), QStringList(u"Everybody"_s));
    EXPECT_EQ(RowsOf("SELECT COUNT(*) FROM groups"), QStringList(u"0"_s));
}

TEST_F(ChangeGroup, AGroupThatTheDatabaseDidNotTakeIsNotOffered)
{
    Open();
    Execute("CREATE TRIGGER refuse BEFORE INSERT ON groups BEGIN SELECT RAISE(ABORT, 'full'); END");
    Add(u"Sales"_s);
    const QStringList said = prompt.TakeSaid();
    ASSERT_EQ(said.size(), 1);
    EXPECT_TRUE(said[0].startsWith(u"The group was not added. Nothing was changed"_s));
    EXPECT_TRUE(said[0].contains(u"full"_s)) << qPrintable(said[0]);
    EXPECT_EQ(RowTexts(List()), QStringList(u"Everybody"_s));
}

TEST_F(ChangeGroup, NothingIsAddedBeyondItsCapacity)
{
    for (int number = 1; number < 500; ++number) {
        Execute("INSERT INTO groups (name) VALUES (?)", u"group%1"_s.arg(number));
    }
    Open();
    EXPECT_EQ(List().count(), 500);
    EXPECT_FALSE(Find<QWidget>(*dialog, "addGroup").isEnabled());
}

TEST_F(ChangeGroup, SelectedUsersMoveAndTheListWaitsForItsRefill)
{
    const GroupId sales = AddGroupNamed(u"Sales"_s);
    for (const auto *name : {"anna", "bert", "carl"}) {
        AddUser({.name = name});
    }
    ShowFrame();
    const auto chooseLast = [](QDialog &choosing) {
        auto &list = Find<QListWidget>(choosing, "groups");
        list.setFocus();
        QTest::keyClick(&list, Qt::Key_Home); // from where the user's own group may stand already
        QTest::keyClick(&list, Qt::Key_End);
        QTest::keyClick(&list, Qt::Key_Return);
    };
    const auto selectFirstAndLast = [this] {
        ClickCell(Users(), 0, 0);
        ClickCell(Users(), 2, 0, Qt::ControlModifier);
    };
    const QString move = u"UPDATE users SET group_id = (?)  WHERE user_id = (?)"_s;
    {
        selectFirstAndLast();
        QAction &command = Command("changeGroup");
        const WhileModal answer(chooseLast);
        StatementRecorder recorder;
        command.trigger();
        EXPECT_EQ(recorder.TakeChanging(), QStringList(move)); // the first one only
        EXPECT_EQ(RowsOf("SELECT user_id FROM users WHERE group_id <> 80"), QStringList(u"1"_s));
    }
    selectFirstAndLast();
    const WhileModal answer(chooseLast);
    StatementRecorder recorder;
    OpenPopUp(Users(), 0, [](QMenu &menu) { Choose(menu, u"Change group..."_s); });
    EXPECT_EQ(recorder.Take().filter(u"UPDATE"_s), QStringList({move, move}));
    EXPECT_EQ(RowsOf("SELECT user_id, group_id FROM users ORDER BY user_id"),
              QStringList({u"1|%1"_s.arg(sales.value), u"2|80"_s, u"3|%1"_s.arg(sales.value)}));
    EXPECT_FALSE(RowTexts(Users()).join(u' ').contains(u"Sales"_s));
    QTest::keyClick(&Users(), Qt::Key_F5);
    EXPECT_TRUE(RowTexts(Users()).join(u' ').contains(u"Sales"_s));
}

// Whoever is in the last group, or in the only one, can choose it by the same keys as any other.
TEST_F(ChangeGroup, AKeyChoosesTheUsersOwnGroupWhereItCannotMoveOn)
{
    AddGroupNamed(u"Sales"_s);
    const std::pair<quint32, Qt::Key> keys[] = {
        {81, Qt::Key_Down}, {81, Qt::Key_End}, {81, Qt::Key_Space}, {80, Qt::Key_Up}};
    for (const auto &[groupId, key] : keys) {
        Open().StartAt(GroupId {groupId});
        List().setFocus();
        EXPECT_FALSE(Find<QWidget>(*dialog, "ok").isEnabled());
        QTest::keyClick(&List(), key);
        EXPECT_TRUE(Find<QWidget>(*dialog, "ok").isEnabled()) << key;
        EXPECT_EQ(dialog->ChosenGroup().groupId, GroupId {groupId}) << key;
    }
    Open().StartAt(kEverybodyGroup);
    QTest::keyClick(&List(), Qt::Key_Down);
    EXPECT_EQ(dialog->ChosenGroup().groupId, GroupId {81}) << "it moves on from it";
}

TEST_F(ChangeGroup, NoneIsChosenForAUserThatIsGone)
{
    AddUser({.name = "anna"});
    ShowFrame();
    ClickCell(Users(), 0, 0);
    Execute("DELETE FROM users"); // by another console
    ClosedDialogs unasked;
    Command("changeGroup").trigger();
    EXPECT_EQ(unasked.Take(), 0);
    EXPECT_EQ(prompt.TakeSaid(),
              QStringList(u"This user is no longer in the database. Nothing was changed"_s));
}

TEST_F(ChangeGroup, CancelMovesNobody)
{
    AddGroupNamed(u"Sales"_s);
    AddUser({.name = "anna"});
    ShowFrame();
    ClickCell(Users(), 0, 0);
    const QStringList before = EveryRow();
    const WhileModal answer([](QDialog &choosing) {
        ClickCell(Find<QListWidget>(choosing, "groups"), 1, 0);
        QTest::keyClick(&choosing, Qt::Key_Escape);
    });
    Command("changeGroup").trigger();
    EXPECT_EQ(EveryRow(), before);
}
