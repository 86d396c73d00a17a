// From a line of a summary to what stands behind it, and the groups beside the pages.
#include "reports_fixture.h"
#include "support/windows/dark_palette.h"
#include "ui/reports/group_outline.h"

#include <QAction>
#include <QApplication>
#include <QTableView>

using namespace Qt::StringLiterals;

namespace {

class DrillDown : public Reports
{
protected:
    void SetUp() override
    {
        Reports::SetUp();
        dialog->resize(1024, 600); // the least that windows are made for
        QApplication::processEvents();
    }

    void Make(int row)
    {
        Select(row);
        ClickGenerate();
    }

    // Clicks on the text where it stands on the page, and waits for the report behind it.
    void ClickText(const QString &text)
    {
        PageView &view = dialog->Viewer().View();
        ASSERT_TRUE(view.Pages());
        QApplication::processEvents(); // the layout has settled
        const auto hit = view.Pages()->FindText(text, 0);
        ASSERT_TRUE(hit) << text.toStdString();
        view.ScrollIntoSight(hit->page, hit->place);
        const QPoint place = view.PlaceInView(hit->page, hit->place).center().toPoint();
        QTest::mouseMove(view.viewport(), place);
        QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, place);
        Wait();
    }

    void Wait()
    {
        QSignalSpy ready(&dialog->Viewer(), &ReportViewer::Ready);
        if (dialog->Viewer().IsBusy()) {
            ASSERT_TRUE(ready.wait(20'000));
        }
    }

    bool LeadsBack() { return Find<QAction>(*dialog, "back").isVisible(); }

    const ReportTable &Table() { return *dialog->Viewer().Table(); }

    // No figure is shown in part.
    static bool EndsAtAColumn(const GroupOutline &outline)
    {
        QApplication::processEvents();
        const QHeaderView &header = *outline.header();
        const int width = outline.viewport()->width();
        int whole = 0;
        for (int column = 0; column < header.count(); ++column) {
            const int begin = header.sectionViewportPosition(column);
            whole += begin + header.sectionSize(column) <= width ? 1 : 0;
            if (begin < width && begin + header.sectionSize(column) > width) {
                return false;
            }
        }
        return whole > 1;
    }

    GroupOutline &Outline() { return Find<GroupOutline>(*dialog, "outline"); }
};

} // namespace

TEST_F(DrillDown, AClickOnALineOpensItsDetailsAndBackTheSummary)
{
    Click(*dialog, "lastWeek");
    Make(4);
    EXPECT_FALSE(LeadsBack());
    ClickText(u"Workshop"_s);
    EXPECT_EQ(Table().layout.title.trimmed(), u"Traffic (Summary)"_s);
    EXPECT_EQ(Table().filter, u"groups Workshop"_s);
    EXPECT_EQ(Table().period, u"2026-11-15 to 2026-11-21"_s);
    ClickText(u"anna"_s);
    EXPECT_EQ(Table().filter, u"users anna; groups Workshop"_s);
    EXPECT_EQ(Table().groups.size(), 1U);
    Grab(*dialog, u"drill-down"_s);
    ClickText(u"anna"_s); // there is nothing behind a detailed report
    EXPECT_EQ(Table().groups.size(), 1U);
    Click(*dialog, "backButton");
    EXPECT_EQ(Table().filter, u"groups Workshop"_s);
    ClickText(u"=1+1"_s); // the former selection counts again
    EXPECT_EQ(Table().filter, u"users =1+1; groups Workshop"_s);
    Click(*dialog, "backButton");
    Click(*dialog, "backButton");
    EXPECT_EQ(Table().filter, QString());
    EXPECT_FALSE(LeadsBack());
    ClickText(u"Workshop"_s);
    Make(0); // a report of its own leads nowhere back
    EXPECT_FALSE(LeadsBack());
    EXPECT_EQ(Find<QListWidget>(*dialog, "catalogue").currentRow(), 0);
}

TEST_F(DrillDown, AReportOnAllThatThereIsHasDetailsToo)
{
    Make(0);
    ClickText(u"10.0.0.2"_s);
    EXPECT_EQ(Table().period, u"all available"_s);
    EXPECT_EQ(Table().rows.Count(), 4);
    EXPECT_EQ(Table().filter, u"users O'Hara, \"Frank\""_s);
    Click(*dialog, "backButton");
    Execute("DELETE FROM users WHERE user_id = 2");
    ClickText(u"10.0.0.2"_s);
    EXPECT_EQ(prompt.TakeSaid(),
              QStringList(u"The user or group of this line does not exist any more."_s));
    EXPECT_EQ(Table().rows.Count(), 9);
    EXPECT_FALSE(LeadsBack());
}

TEST_F(DrillDown, ARowOfTheTableOpensByReturn)
{
    Make(1);
    Click(*dialog, "asTableButton");
    Wait();
    auto &view = Find<QTableView>(*dialog, "rows");
    ClickCell(view, 0, 0);
    QTest::keyClick(&view, Qt::Key_Return);
    Wait();
    EXPECT_EQ(Table().groups.size(), 1U);
    EXPECT_EQ(view.model()->rowCount(), 4);
    Click(*dialog, "backButton");
    Wait();
    EXPECT_EQ(view.model()->rowCount(), 9);
}

TEST_F(DrillDown, TheWayBackLeadsToTheRowsThatWereChosen)
{
    Make(1);
    Click(*dialog, "asTableButton");
    Wait();
    auto &view = Find<QTableView>(*dialog, "rows");
    auto &filter = Find<QLineEdit>(*dialog, "rowFilter");
    // The button fades in and out.
    const auto showsClearButton = [&filter](bool shows) {
        const auto *clear = filter.findChild<QToolButton *>();
        return QTest::qWaitFor(
            [&] { return clear->property("opacity").toDouble() == (shows ? 1 : 0); }, 2000);
    };
    view.horizontalHeader()->setSortIndicator(3, Qt::DescendingOrder);
    Wait();
    Choose(Find<QComboBox>(*dialog, "rowFilterColumn"), u"in \"User\""_s);
    Wait();
    filter.setFocus();
    QTest::keyClicks(&filter, u"n"_s);
    QTest::keyClick(&filter, Qt::Key_Return);
    Wait();
    const QStringList chosen = RowTexts(view);
    ASSERT_GT(chosen.size(), 1);
    ASSERT_LT(chosen.size(), 9);
    EXPECT_TRUE(showsClearButton(true));
    ClickCell(view, 1, 0);
    QTest::keyClick(&view, Qt::Key_Return);
    Wait();
    EXPECT_EQ(filter.text(), QString());
    EXPECT_TRUE(showsClearButton(false));
    EXPECT_NE(RowTexts(view), chosen);
    Click(*dialog, "backButton");
    Wait();
    EXPECT_EQ(filter.text(), u"n"_s);
    EXPECT_TRUE(showsClearButton(true));
    EXPECT_EQ(RowTexts(view), chosen);
}

TEST_F(DrillDown, TheGroupsStandBesideThePagesAndLeadToThem)
{
    EXPECT_FALSE(IsShown(*dialog, "outline")) << "before there is a report";
    Make(0);
    EXPECT_FALSE(IsShown(*dialog, "outline"));
    Make(2);
    ASSERT_TRUE(IsShown(*dialog, "outline"));
    EXPECT_TRUE(EndsAtAColumn(Outline()));
    const QStringList rows = RowTexts(Outline());
    ASSERT_EQ(rows.size(), 9);
    EXPECT_TRUE(rows.contains(u"anna, 10.0.0.1|98.00|0.50|98.50"_s))
        << rows.join(u';').toStdString();
    MultiplyVisits(3);
    Make(15);
    PageView &view = dialog->Viewer().View();
    const size_t last = Table().groups.size() - 1;
    ClickCell(Outline(), static_cast<int>(last), 0);
    EXPECT_EQ(view.CurrentPage(), view.Pages()->PageOfGroup(last));
    EXPECT_GT(view.CurrentPage(), 0);
    Grab(*dialog, u"outline"_s);
    Outline().setFocus();
    const ReportTable *made = &Table();
    QTest::keyClick(&Outline(), Qt::Key_Up);
    EXPECT_EQ(view.CurrentPage(), view.Pages()->PageOfGroup(last - 1));
    EXPECT_EQ(Outline().currentIndex().row(), static_cast<int>(last) - 1);
    view.GoTo(0);
    const QAbstractItemView &list = Outline();
    Outline().setCurrentIndex(list.model()->index(static_cast<int>(last), 0));
    QTest::keyClick(&Outline(), Qt::Key_Return);
    EXPECT_EQ(view.CurrentPage(), view.Pages()->PageOfGroup(last));
    EXPECT_TRUE(Outline().hasFocus());
    EXPECT_EQ(&Table(), made) << "no report was made";
    Click(*dialog, "firstPageButton");
    EXPECT_EQ(Outline().currentIndex().row(), 0);
    {
        const DarkPalette dark;
        dialog->resize(1024, 600);
        QApplication::processEvents();
        Grab(*dialog, u"outline-dark"_s);
    }
    Click(*dialog, "outlineActionButton");
    EXPECT_FALSE(IsShown(*dialog, "outline"));
    Make(2);
    QApplication::processEvents(); // the tool bar's layout
    EXPECT_FALSE(IsShown(*dialog, "outline")); // until it is wanted again
    Click(*dialog, "outlineActionButton");
    EXPECT_TRUE(IsShown(*dialog, "outline"));
}

TEST_F(DrillDown, AStatementsOutlineNamesItsUsers)
{
    Make(kStatementRow);
    EXPECT_EQ(RowTexts(Outline()).size(), 9);
    ClickCell(Outline(), 8, 0);
    EXPECT_EQ(dialog->Viewer().View().CurrentPage(),
              dialog->Viewer().View().Pages()->PageOfGroup(8));
}
