// The panel beside the lists: why the chosen user may send or not, and the commands that change it.
#include "ui/main/why_panel.h"

#include "list_fixture.h"
#include "ui/common/keyboard_order.h"
#include "ui/props/why_lines.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QSplitter>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

const char kBlocks[] = "SELECT username, blocked, blockreason FROM users ORDER BY username";

class WhyPanelTest : public ListFixture
{
protected:
    void SetUp() override
    {
        ListFixture::SetUp();
        AddUser({.name = "anna"});
        AddUser({.name = "bert", .blocked = true, .reason = BlockReason::Administrator});
        AddUser({.name = "carl", .mode = AccountingMode::Traffic});
        Execute("UPDATE users SET traflim = 500, trafperiod = 2 WHERE username = 'carl'");
    }

    // The main window with the panel, which the View menu shows.
    void ShowPanel()
    {
        ShowFrame();
        if (!Panel().isVisible()) {
            Command("whyCommand").trigger();
        }
        Settle();
    }

    [[nodiscard]] WhyPanel &Panel() const { return Find<WhyPanel>(*frame, "whyPanel"); }

    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const
    {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
        Settle();
    }

    // Clicks the row of the users list, with Ctrl to add it.
    void Click(int row, Qt::KeyboardModifiers modifiers = {}) const
    {
        CAdministratorView &users = Users();
        users.setFocus();
        QTest::mouseClick(users.viewport(),
                          Qt::LeftButton,
                          modifiers,
                          users.visualRect(users.model()->index(row, 0)).center());
        Settle();
    }

    [[nodiscard]] QString Text(const char *label) const
    {
        return Find<QLabel>(*frame, label).text();
    }

    // The lines and the buttons below them, from the top.
    [[nodiscard]] QStringList Lines() const
    {
        QStringList lines;
        for (const QLabel *line : Panel().findChildren<QLabel *>(u"whyLine"_s)) {
            lines << line->text();
        }
        return lines;
    }

    void PressCommand(const QString &text) const
    {
        for (QPushButton *button : Panel().findChildren<QPushButton *>()) {
            if (QString(button->text()).remove(u'&') == text) {
                QTest::mouseClick(button, Qt::LeftButton);
                Settle();
                return;
            }
        }
        FAIL() << qPrintable(text);
    }

    [[nodiscard]] QToolButton &Undo() const { return Find<QToolButton>(*frame, "undoPane"); }
};

} // namespace

TEST_F(WhyPanelTest, IsShownByItsCommandAndKeptForTheNextStart)
{
    ShowFrame();
    EXPECT_FALSE(Panel().isVisible());
    Press(Qt::Key_F8);
    EXPECT_TRUE(Panel().isVisible());
    EXPECT_TRUE(Command("whyCommand").isChecked());
    CloseFrame();
    ShowFrame();
    EXPECT_TRUE(Panel().isVisible());
    Press(Qt::Key_F8);
    CloseFrame();
    ShowFrame();
    EXPECT_FALSE(Panel().isVisible());
}

TEST_F(WhyPanelTest, IsWideEnoughForTheCommandsThatItComesToShow)
{
    ShowPanel();
    auto *splitter = qobject_cast<QSplitter *>(Panel().parentWidget());
    ASSERT_NE(splitter, nullptr);
    splitter->setSizes({10000, 1});
    Click(2);
    const auto &lines = Find<WhyLines>(Panel(), "whyLines");
    const auto buttons = lines.findChildren<QPushButton *>();
    ASSERT_FALSE(buttons.isEmpty());
    for (const QPushButton *button : buttons) {
        const QPoint end = button->mapTo(lines.viewport(), button->rect().bottomRight());
        EXPECT_LT(end.x(), lines.viewport()->width()) << qPrintable(button->text());
    }
}

// Before anybody has seen it, the panel has no width that could be kept.
TEST_F(WhyPanelTest, IsAsWideForEverybodyAfterAStartWithoutIt)
{
    ShowFrame();
    CloseFrame();
    ShowPanel();
    const int width = Panel().width();
    EXPECT_GE(width, Panel().sizeHint().width());
    for (int row = 0; row < Users().model()->rowCount(); ++row) {
        Click(row);
        EXPECT_EQ(Panel().width(), width) << row;
    }
}

TEST_F(WhyPanelTest, TabGoesThroughItFromTheTop)
{
    ShowPanel();
    Click(2);
    Find<WhyLines>(Panel(), "whyLines").setFocus();
    QStringList passed;
    for (int i = 0; i < 4; ++i) {
        Press(Qt::Key_Tab);
        const auto *button = qobject_cast<QPushButton *>(QApplication::focusWidget());
        passed << (button != nullptr ? button->text() : QString());
    }
    const qsizetype block = passed.indexOf(u"&Block"_s);
    EXPECT_GT(block, 0) << "behind the commands of the lines";
    EXPECT_EQ(passed.indexOf(u"U&nblock"_s), block + 1);
    EXPECT_FALSE(passed.first(block).contains(QString()));
}

TEST_F(WhyPanelTest, TellsOfTheSelectedUser)
{
    ShowPanel();
    EXPECT_EQ(Text("whyName"), u"Choose a user in the list."_s);
    EXPECT_FALSE(Find<QPushButton>(*frame, "blockUsers").isEnabled());
    Click(0);
    EXPECT_EQ(Text("whyName"), u"anna"_s);
    EXPECT_EQ(Text("whyVerdict"), u"Access is allowed"_s);
    EXPECT_EQ(Lines(), QStringList({u"Nothing stands against access."_s}));
    Press(Qt::Key_Down);
    EXPECT_EQ(Text("whyName"), u"bert"_s);
    EXPECT_EQ(Text("whyVerdict"), u"Access is denied"_s);
    EXPECT_EQ(Lines(), QStringList({u"Blocked by the administrator."_s}));
    Click(2, Qt::ControlModifier);
    EXPECT_EQ(Text("whyName"), u"bert, and 1 more chosen"_s);
}

TEST_F(WhyPanelTest, SaysWhereTheListShowsSomethingElse)
{
    Execute("UPDATE groups SET blocked = true, blockreason = 3");
    ShowPanel();
    Click(0);
    EXPECT_EQ(
        Lines(),
        QStringList({u"The user's group is blocked by the administrator."_s,
                     u"The users list shows \"Access is allowed\" instead: it goes by the marks "
                     u"in the user's row alone."_s}));
    PressCommand(u"Unblock group..."_s);
    EXPECT_EQ(opened.last(), u"groupPage 80 1"_s);
}

TEST_F(WhyPanelTest, NamesNoPictureOfAUserThatIsNotListed)
{
    ShowPanel();
    Click(1);
    Find<QPushButton>(*frame, "blockUsers").setFocus();
    Execute(
        "UPDATE users SET monitored = false WHERE username = 'bert'"); // as another console does
    frame->Refresh();
    Settle();
    EXPECT_EQ(Lines(),
              QStringList(
                  {u"This user is not monitored: nothing is counted, limited or blocked."_s,
                   u"The users list does not show this user: it holds monitored users alone."_s}));
}

TEST_F(WhyPanelTest, KeepsTheUsersThatWereChosenWhenTheListLosesTheFocus)
{
    ShowPanel();
    Click(0);
    Click(2, Qt::ControlModifier);
    Find<QPushButton>(*frame, "blockUsers").setFocus();
    Settle();
    EXPECT_EQ(Users().SelectedIds(), QList {UserId {3}}) << "the first one is deselected";
    EXPECT_EQ(Text("whyName"), u"anna, and 1 more chosen"_s);
    QTest::mouseClick(&Find<QPushButton>(*frame, "blockUsers"), Qt::LeftButton);
    Settle();
    EXPECT_EQ(RowsOf(kBlocks), QStringList({u"anna|1|3"_s, u"bert|1|3"_s, u"carl|1|3"_s}));
    EXPECT_EQ(Text("whyVerdict"), u"Access is denied"_s);
}

TEST_F(WhyPanelTest, TheListGoesOnWithTheUsersThatThePanelNames)
{
    ShowPanel();
    LetMessagesTakeTheFocus();
    Click(0);
    Click(2, Qt::ControlModifier);
    for (int refused = 1; refused <= 2; ++refused) {
        Press(Qt::Key_B, Qt::ControlModifier | Qt::ShiftModifier);
        EXPECT_EQ(prompt.TakeSaid().size(), 1);
        EXPECT_EQ(Users().SelectedIds(), QList({UserId {1}, UserId {3}})) << refused;
        EXPECT_EQ(Text("whyName"), u"anna, and 1 more chosen"_s) << refused;
    }
    Press(Qt::Key_F6, Qt::ShiftModifier); // to the panel, and back
    EXPECT_EQ(Users().SelectedIds(), QList {UserId {3}});
    Press(Qt::Key_F6);
    EXPECT_EQ(Users().SelectedIds(), QList({UserId {1}, UserId {3}}));
    opened.clear();
    Press(Qt::Key_Return);
    EXPECT_EQ(opened, QStringList(u"userProperties 1"_s));

    Press(Qt::Key_Tab); // deselects the first one
    Press(Qt::Key_Tab);
    EXPECT_TRUE(Users().hasFocus());
    Settle();
    const QList<UserId> left = Users().SelectedIds();
    EXPECT_TRUE(left.isEmpty());
    EXPECT_EQ(Text("whyName"), u"Choose a user in the list."_s);
}

// "Delete" takes them out of the selection whatever is answered.
TEST_F(WhyPanelTest, FollowsAListThatHasDeselected)
{
    ShowPanel();
    LetMessagesTakeTheFocus();
    Click(0);
    Press(Qt::Key_Delete); // answered No
    EXPECT_TRUE(Users().SelectedIds().isEmpty());
    EXPECT_EQ(Text("whyName"), u"Choose a user in the list."_s);
}

TEST_F(WhyPanelTest, ItsCommandsOpenTheWindowsThatChangeIt)
{
    ShowPanel();
    Click(2);
    EXPECT_TRUE(Lines().first().startsWith(u"Of the traffic limit of 500 Mb, 500 Mb is left"_s));
    PressCommand(u"Raise limit..."_s);
    PressCommand(u"Add credit..."_s);
    EXPECT_EQ(opened.mid(opened.size() - 2), QStringList({u"userPage 3 2"_s, u"userAccount 3"_s}));
    Click(1);
    PressCommand(u"Unblock"_s);
    EXPECT_EQ(RowsOf(kBlocks).at(1), u"bert|0|3"_s);
    EXPECT_EQ(Lines(), QStringList({u"Nothing stands against access."_s}));
}

TEST_F(WhyPanelTest, BlocksByKeysAndUndoesItUntilTheNextAction)
{
    ShowPanel();
    Click(0);
    Click(1, Qt::ControlModifier);
    EXPECT_FALSE(Undo().isVisible());
    Press(Qt::Key_B, Qt::ControlModifier);
    EXPECT_EQ(RowsOf(kBlocks), QStringList({u"anna|1|3"_s, u"bert|1|3"_s, u"carl|0|0"_s}));
    EXPECT_EQ(Undo().text(), u"Undo \"Block\""_s);
    ASSERT_TRUE(Undo().isVisible());
    QTest::mouseClick(&Undo(), Qt::LeftButton);
    Settle();
    EXPECT_EQ(RowsOf(kBlocks), QStringList({u"anna|0|0"_s, u"bert|1|3"_s, u"carl|0|0"_s}))
        << "bert was blocked before";
    EXPECT_FALSE(Undo().isVisible());

    Click(1);
    Press(Qt::Key_B, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(RowsOf(kBlocks).at(1), u"bert|0|3"_s);
    EXPECT_TRUE(Undo().isVisible());
    emit Services().news.Stored(false); // by another window
    EXPECT_FALSE(Undo().isVisible());
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(RowsOf(kBlocks).at(1), u"bert|0|3"_s) << "there is nothing to undo any more";
}

TEST_F(WhyPanelTest, TellsSinceWhenOfABlockMadeHere)
{
    ShowPanel();
    const auto line = [this](int row) {
        Click(row);
        return Lines().value(0);
    };
    EXPECT_EQ(line(1), u"Blocked by the administrator."_s) << "nobody knows since when";
    Click(0);
    Press(Qt::Key_B, Qt::ControlModifier);
    EXPECT_TRUE(line(0).startsWith(u"Blocked by the administrator since "_s))
        << qPrintable(line(0));
    Execute("UPDATE users SET blocked = 0"); // by somebody else, who then blocks them again
    EXPECT_EQ(line(1), u"Nothing stands against access."_s);
    EXPECT_EQ(line(0), u"Nothing stands against access."_s);
    Execute("UPDATE users SET blocked = 1");
    EXPECT_EQ(line(1), u"Blocked by the administrator."_s);
    EXPECT_EQ(line(0), u"Blocked by the administrator."_s);
}

TEST_F(WhyPanelTest, UndoRefusesWhatSomebodyElseChanged)
{
    ShowPanel();
    Click(0);
    Press(Qt::Key_B, Qt::ControlModifier);
    Execute("UPDATE users SET blockreason = 1 WHERE username = 'anna'");
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(prompt.TakeSaid().last(),
              u"The block of these users was changed meanwhile. Nothing was undone."_s);
    EXPECT_EQ(RowsOf(kBlocks).at(0), u"anna|1|1"_s);
    EXPECT_FALSE(Undo().isVisible());
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(prompt.TakeSaid(), QStringList());
}

TEST_F(WhyPanelTest, KeysInTheGroupsListBlockNobody)
{
    ShowPanel();
    Click(0);
    Groups().setFocus();
    Press(Qt::Key_B, Qt::ControlModifier);
    EXPECT_EQ(RowsOf(kBlocks).at(0), u"anna|0|0"_s);
}

TEST_F(WhyPanelTest, TellsWhatCouldNotBeRead)
{
    ShowPanel();
    Execute("ALTER TABLE logins RENAME TO away");
    Click(0);
    EXPECT_TRUE(Lines().first().startsWith(u"Why access is as it is could not be read."_s));
    EXPECT_EQ(Text("whyVerdict"), QString());
    Execute("ALTER TABLE away RENAME TO logins");
    Execute("DELETE FROM users WHERE username = 'bert'");
    Click(1);
    EXPECT_EQ(Lines(), QStringList({u"This user has been deleted meanwhile."_s}));
}

TEST_F(WhyPanelTest, F6GoesRoundListsFindBarAndPanel)
{
    ShowPanel();
    Users().setFocus();
    const auto place = [this] { return QApplication::focusWidget()->objectName(); };
    QStringList round;
    for (int i = 0; i < 4; ++i) {
        Press(Qt::Key_F6);
        round << place();
    }
    EXPECT_EQ(round, QStringList({u"groupsList"_s, u"findUser"_s, u"whyLines"_s, u"usersList"_s}));
    Press(Qt::Key_F6, Qt::ShiftModifier);
    EXPECT_EQ(place(), u"whyLines"_s);
    Command("whyCommand").trigger(); // hides the panel: it is left out
    Users().setFocus();
    Press(Qt::Key_F6, Qt::ShiftModifier);
    EXPECT_EQ(place(), u"findUser"_s);
}

// What is offered for the typed words belongs to the field alone.
TEST_F(WhyPanelTest, F6ClosesTheWordsOfTheFindBar)
{
    ShowPanel();
    auto &field = Find<QLineEdit>(*frame, "findUser");
    field.setFocus();
    QTest::keyClicks(&field, u"gr"_s);
    const QWidget *words = field.findChild<QCompleter *>()->popup();
    ASSERT_TRUE(words->isVisible());
    Press(Qt::Key_F6);
    EXPECT_FALSE(words->isVisible());
    EXPECT_EQ(QApplication::focusWidget()->objectName(), u"whyLines"_s);
}

TEST_F(WhyPanelTest, EachCommandHasALetterOfItsOwnInTheWindow)
{
    Execute("UPDATE users SET mode = 5, authreq = 1, blocked = true, blockreason = 3 "
            "WHERE username = 'carl'");
    ShowPanel();
    Click(2);
    QStringList letters;
    for (const QAction *menu : frame->menuBar()->actions()) {
        letters << MnemonicIn(menu->text());
    }
    for (const auto *button : Panel().findChildren<QPushButton *>()) {
        letters << MnemonicIn(button->text());
        EXPECT_FALSE(letters.constLast().at(0).isNull()) << qPrintable(button->text());
    }
    EXPECT_GT(Find<WhyLines>(Panel(), "whyLines").findChildren<QPushButton *>().size(), 2);
    const auto &bar = Find<QWidget>(*frame, "findBar");
    for (const auto *label : bar.findChildren<QLabel *>()) {
        if (label->buddy() != nullptr) {
            letters << MnemonicIn(label->text());
            EXPECT_FALSE(letters.constLast().isEmpty());
        }
    }
    letters << MnemonicIn(Find<QToolButton>(*frame, "savedFilters").text());
    EXPECT_EQ(letters.removeDuplicates(), 0) << qPrintable(letters.join(u' '));

    const auto *unblock = Find<WhyLines>(Panel(), "whyLines").findChild<QPushButton *>();
    Press(Qt::Key(MnemonicIn(unblock->text()).unicode()), Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([] { return RowsOf(kBlocks).at(2) == u"carl|0|3"_s; }));
}

TEST_F(WhyPanelTest, FitsASmallScreen)
{
    ShowPanel();
    Execute("UPDATE users SET mode = 5, authreq = 1, blocked = true, blockreason = 3 "
            "WHERE username = 'carl'");
    Click(2);
    EXPECT_LE(frame->minimumSizeHint().width(), 1024);
    EXPECT_LE(frame->minimumSizeHint().height(), 600);
    frame->resize(1024, 600);
    Settle();
    for (const QPushButton *button : Panel().findChildren<QPushButton *>()) {
        EXPECT_GE(button->width(), button->sizeHint().width()) << qPrintable(button->text());
        const QPoint right = button->mapTo(&Panel(), QPoint(button->width(), 0));
        EXPECT_LE(right.x(), Panel().width()) << qPrintable(button->text());
    }
}
