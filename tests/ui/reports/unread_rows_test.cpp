// Rows that cannot be read any more, in all that the Reports window does with them.
#include "broken_store.h"
#include "reports_fixture.h"
#include "ui/reports/print_pages.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QPrinter>
#include <QTableView>

using namespace Qt::StringLiterals;

namespace {

const QString kUnread = u"cannot be read"_s;

class UnreadRows : public Reports
{
protected:
    // A report whose rows fill a file.
    void SetUp() override
    {
        Reports::SetUp();
        Execute("UPDATE users SET username = 'wide' WHERE user_id = 7"); // each row has one line
        while (RowsOf("SELECT count(*) FROM users").value(0).toInt() < 12'000) {
            Execute(
                "INSERT INTO users (username, ip_addr, group_id, mode, monitored) SELECT 'u' || (user_id + "
                "100000 * (SELECT count(*) FROM users)), ip_addr, group_id, mode, 1 FROM users");
        }
        Execute(
            "INSERT INTO traffic_use (user_id, group_id, period, current_time, data, senddata) SELECT user_id, 0, "
            "0, '2026-11-15', 1, 1 FROM users WHERE user_id > 9");
        Select(0);
        ClickGenerate();
        ASSERT_GT(Viewer().Table()->rows.Count(), 9'000);
    }

    void Await(const std::function<void()> &act)
    {
        QSignalSpy ready(&Viewer(), &ReportViewer::Ready);
        act();
        ASSERT_TRUE(ready.count() > 0 || ready.wait(20'000));
    }

    std::shared_ptr<QPrinter> FilePrinter()
    {
        auto printer = std::make_shared<QPrinter>();
        printer->setOutputFormat(QPrinter::PdfFormat);
        printer->setOutputFileName(folder.filePath(u"printed.pdf"_s));
        return printer;
    }

    ReportViewer &Viewer() { return dialog->Viewer(); }
};

} // namespace

TEST_F(UnreadRows, AreNotPrintedAsIfTheReportWereWhole)
{
    Await([&] { Viewer().PrintOn(FilePrinter()); });
    EXPECT_TRUE(Message().startsWith(u"The report was printed to the file"_s))
        << qPrintable(Message());
    ASSERT_GT(CutStoresShort(1 << 17), 0); // some pages can still be read
    Await([&] { Viewer().PrintOn(FilePrinter()); });
    const QString said = prompt.TakeSaid().value(0);
    EXPECT_TRUE(said.startsWith(
        u"Printing ended, since rows could not be read; pages in the file %1: "_s.arg(
            folder.filePath(u"printed.pdf"_s))))
        << qPrintable(said);
    EXPECT_TRUE(said.contains(kUnread)) << qPrintable(said);
    const int sent = said.section(u".pdf: "_s, 1).section(u'.', 0, 0).toInt();
    EXPECT_GT(sent, 0);
    EXPECT_LT(sent, Viewer().View().Pages()->Count()) << "no page behind the first unread row";
    EXPECT_FALSE(Message().contains(u"printed"_s)) << qPrintable(Message());
    Await([&] { Viewer().PrintOn(FilePrinter()); }); // now it is known before the first page
    EXPECT_TRUE(prompt.TakeSaid().value(0).startsWith(u"Nothing was printed"_s));
}

TEST_F(UnreadRows, AreNotSearchedAsIfTheyHeldNothing)
{
    ASSERT_GT(CutStoresShort(), 0);
    Await([&] { Viewer().Find(u"nobody of this name"_s); });
    EXPECT_TRUE(Message().contains(u"not all rows could be read"_s)) << qPrintable(Message());
    EXPECT_TRUE(Message().contains(kUnread)) << qPrintable(Message());
}

TEST_F(UnreadRows, AreToldOnTheSummaryAndOnThePages)
{
    ASSERT_TRUE(Viewer().View().Pages()->HasSummary());
    const QString whole = Viewer().View().Pages()->PageText(0);
    ASSERT_GT(CutStoresShort(), 0);
    const QString marked = u"(this row cannot be read)"_s;
    const auto pages = Viewer().View().Pages();
    EXPECT_FALSE(whole.contains(marked));
    EXPECT_EQ(pages->PageText(0).count(marked), 10) << qPrintable(pages->PageText(0));
    EXPECT_GT(pages->PageText(2).count(marked), 20);
}

TEST_F(UnreadRows, OpenNothingAndAreNotCopied)
{
    Await([&] { Click(*dialog, "asTableButton"); });
    auto &view = Find<QTableView>(*dialog, "rows");
    ClickCell(view, 0, 0);
    QTest::keyClick(&view, Qt::Key_C, Qt::ControlModifier);
    const QString copied = QApplication::clipboard()->text();
    EXPECT_EQ(copied.count(u'\n'), 2);
    ASSERT_GT(CutStoresShort(), 0);
    const QModelIndex last = view.model()->index(view.model()->rowCount() - 1, 0);
    view.scrollTo(last);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, view.visualRect(last).center());
    EXPECT_EQ(last.data().toString(), u"cannot be read"_s);
    QTest::keyClick(&view, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), copied) << "what was copied before is still there";
    EXPECT_TRUE(Message().startsWith(u"Nothing was copied."_s)) << qPrintable(Message());
    EXPECT_TRUE(Message().contains(kUnread)) << qPrintable(Message());
    Find<QLabel>(*dialog, "message").clear();
    QTest::keyClick(&view, Qt::Key_Return);
    EXPECT_TRUE(Message().contains(kUnread)) << qPrintable(Message());
}

TEST_F(UnreadRows, MakeNoChoiceOfRows)
{
    Await([&] { Click(*dialog, "asTableButton"); });
    const QString before = Find<QLabel>(*dialog, "sums").text();
    ASSERT_GT(CutStoresShort(), 0);
    Await([&] {
        auto &field = Find<QLineEdit>(*dialog, "rowFilter");
        field.setText(u"anna"_s);
        QTest::keyClick(&field, Qt::Key_Return);
    });
    EXPECT_TRUE(Message().contains(kUnread)) << qPrintable(Message());
    EXPECT_EQ(Find<QLabel>(*dialog, "sums").text(), before);
}
