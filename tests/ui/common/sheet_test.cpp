#include "ui/common/sheet.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <QVBoxLayout>

#include <algorithm>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

using Calls = std::vector<std::string>;

class NotedPage : public Page
{
public:
    NotedPage(QString pageTitle, Calls &noted)
        : title(std::move(pageTitle))
        , calls(noted)
        , field(new QPlainTextEdit(this))
    {
        field->setTabChangesFocus(false);
        (new QVBoxLayout(this))->addWidget(field);
    }
    [[nodiscard]] QString Title() const override { return title; }
    void Load() override { Note("load"); }
    void Activate() override { Note("activate"); }
    [[nodiscard]] bool Leave() override
    {
        Note("leave");
        return mayLeave;
    }
    void Collect() override { Note("collect"); }

    bool mayLeave = true;

private:
    void Note(const char *what) { calls.push_back(title.toStdString() + ' ' + what); }

    QString title;
    Calls &calls;
    QPlainTextEdit *field;
};

class SheetTest : public testing::Test
{
protected:
    void SetUp() override
    {
        for (NotedPage *page : {a, b, c}) {
            sheet.Add(page);
        }
    }

    void Open(int page)
    {
        sheet.Start(page);
        sheet.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&sheet));
        calls.clear();
    }

    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }

    Calls calls;
    Sheet sheet {u"User properties"_s, nullptr};
    NotedPage *a = new NotedPage(u"a"_s, calls);
    NotedPage *b = new NotedPage(u"b"_s, calls);
    NotedPage *c = new NotedPage(u"c"_s, calls);
};

} // namespace

TEST_F(SheetTest, LoadsAllPagesAndStartsOnTheOneAskedFor)
{
    sheet.Start(1);
    EXPECT_THAT(calls, ElementsAre("a load", "b load", "c load", "b activate"));
    EXPECT_EQ(sheet.windowTitle(), u"User properties"_s);
    EXPECT_TRUE(sheet.isModal());
    EXPECT_EQ(sheet.findChild<QTabWidget *>(u"pages"_s)->currentWidget(), b);
    for (const int unknown : {-1, 3}) {
        sheet.Start(unknown);
        EXPECT_EQ(sheet.Active(), 0) << unknown;
    }
}

TEST_F(SheetTest, KeysTurnThePagesBothWaysFromInsideAnyControl)
{
    Open(0);
    const std::tuple<Qt::Key, Qt::KeyboardModifiers, int> turns[] = {
        {Qt::Key_Tab, Qt::ControlModifier, 1},
        {Qt::Key_PageDown, Qt::ControlModifier, 2},
        {Qt::Key_Tab, Qt::ControlModifier, 0},
        {Qt::Key_PageUp, Qt::ControlModifier, 2},
        {Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier, 1},
    };
    for (const auto &[key, modifiers, page] : turns) {
        Press(key, modifiers);
        EXPECT_EQ(sheet.Active(), page);
    }
    EXPECT_THAT(calls,
                ElementsAre("a leave",
                            "b activate",
                            "b leave",
                            "c activate",
                            "c leave",
                            "a activate",
                            "a leave",
                            "c activate",
                            "c leave",
                            "b activate"));
}

TEST_F(SheetTest, APageThatRefusesStaysActive)
{
    Open(0);
    a->mayLeave = false;
    auto *bar = sheet.findChild<QTabWidget *>(u"pages"_s)->tabBar();
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(2).center());
    EXPECT_EQ(sheet.Active(), 0);
    EXPECT_EQ(bar->currentIndex(), 0);
    EXPECT_TRUE(a->isVisible());
    EXPECT_THAT(calls, ElementsAre("a leave"));
}

TEST_F(SheetTest, OkAsksEveryPageBeforeAnyIsCollected)
{
    Open(0);
    c->mayLeave = false;
    QTest::mouseClick(sheet.findChild<QPushButton *>(u"ok"_s), Qt::LeftButton);
    EXPECT_TRUE(sheet.isVisible());
    EXPECT_EQ(sheet.Active(), 2);
    EXPECT_THAT(calls, ElementsAre("a leave", "b leave", "c leave", "c activate"));

    c->mayLeave = true;
    calls.clear();
    sheet.findChild<QPushButton *>(u"ok"_s)->setFocus();
    Press(Qt::Key_Return);
    EXPECT_FALSE(sheet.isVisible());
    EXPECT_EQ(sheet.result(), QDialog::Accepted);
    EXPECT_THAT(
        calls, ElementsAre("a leave", "b leave", "c leave", "a collect", "b collect", "c collect"));
}

TEST_F(SheetTest, AnOkThatIsNotStoredKeepsItOpen)
{
    bool stores = false;
    sheet.SetApply([&] {
        calls.emplace_back("apply");
        return stores;
    });
    Open(0);
    auto *ok = sheet.findChild<QPushButton *>(u"ok"_s);
    QTest::mouseClick(ok, Qt::LeftButton);
    EXPECT_TRUE(sheet.isVisible());
    EXPECT_THAT(
        calls,
        ElementsAre(
            "a leave", "b leave", "c leave", "a collect", "b collect", "c collect", "apply"));

    b->mayLeave = false;
    QTest::mouseClick(ok, Qt::LeftButton);
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "apply"), 1) << "a page refused before";

    b->mayLeave = true;
    stores = true;
    QTest::mouseClick(ok, Qt::LeftButton);
    EXPECT_FALSE(sheet.isVisible());
    EXPECT_EQ(sheet.result(), QDialog::Accepted);
}

TEST_F(SheetTest, EscapeAndCancelCollectNothing)
{
    for (const bool byKey : {true, false}) {
        Open(0);
        if (byKey) {
            Press(Qt::Key_Escape);
        } else {
            QTest::mouseClick(sheet.findChild<QPushButton *>(u"cancel"_s), Qt::LeftButton);
        }
        EXPECT_FALSE(sheet.isVisible());
        EXPECT_EQ(sheet.result(), QDialog::Rejected);
        EXPECT_TRUE(calls.empty());
    }
}

TEST(SheetKeys, EnterInALineConfirms)
{
    class LinePage : public Page
    {
    public:
        LinePage() { (new QVBoxLayout(this))->addWidget(new QLineEdit(this)); }
        [[nodiscard]] QString Title() const override { return u"line"_s; }
    };
    Sheet sheet(u"Options"_s, nullptr);
    sheet.Add(new LinePage);
    sheet.Start(0);
    sheet.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&sheet));
    QTest::keyClick(sheet.findChild<QLineEdit *>(), Qt::Key_Return);
    EXPECT_EQ(sheet.result(), QDialog::Accepted);
}
