// A report's rows as a table in the Reports window.
#include "ui/reports/row_table.h"

#include "reports/layout.h"
#include "reports_fixture.h"
#include "support/windows/dark_palette.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QTableView>

using namespace Qt::StringLiterals;

namespace {

class Table : public Reports
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

    // Does it, and waits for the rows that come of it.
    void Await(const std::function<void()> &act)
    {
        QSignalSpy ready(&dialog->Viewer(), &ReportViewer::Ready);
        act();
        ASSERT_TRUE(ready.count() > 0 || ready.wait(20'000));
    }

    void TurnToTable()
    {
        Await([&] { Click(*dialog, "asTableButton"); });
    }

    void Filter(const QString &text)
    {
        Await([&] {
            auto &field = Find<QLineEdit>(*dialog, "rowFilter");
            field.setFocus();
            field.setText(text);
            QTest::keyClick(&field, Qt::Key_Return);
        });
    }

    void ClickHeading(int column)
    {
        QApplication::processEvents(); // the table that has just come into sight is laid out
        Await([&] {
            QHeaderView &header = *View().horizontalHeader();
            const int x = header.sectionViewportPosition(column) + header.sectionSize(column) / 2;
            QTest::mouseClick(header.viewport(), Qt::LeftButton, {}, {x, header.height() / 2});
        });
    }

    QTableView &View() { return Find<QTableView>(*dialog, "rows"); }

    QStringList Column(int column)
    {
        QStringList texts;
        for (int row = 0; row < View().model()->rowCount(); ++row) {
            texts += View().model()->index(row, column).data().toString();
        }
        return texts;
    }

    QString Sums() { return Find<QLabel>(*dialog, "sums").text(); }
};

} // namespace

TEST_F(Table, ShowsTheSameRowsAndTheirTotals)
{
    Make(0);
    EXPECT_FALSE(View().isVisible());
    TurnToTable();
    EXPECT_TRUE(View().isVisible());
    EXPECT_FALSE(dialog->Viewer().View().isVisible());
    const ReportTable &table = *dialog->Viewer().Table();
    EXPECT_EQ(View().model()->rowCount(), table.rows.Count());
    EXPECT_EQ(View().model()->headerData(2, Qt::Horizontal).toString(), u"Received (MB)"_s);
    EXPECT_EQ(Sums(), u"9 of 9 rows. "_s + TotalsInWords(table.layout, table.totals));
    EXPECT_FALSE(Find<QWidget>(*dialog, "find").isEnabled());
    EXPECT_FALSE(Find<QWidget>(*dialog, "nextPageButton").isEnabled());
    Grab(*dialog, u"table"_s);
    {
        const DarkPalette dark;
        dialog->resize(1024, 600);
        QApplication::processEvents();
        Grab(*dialog, u"table-dark"_s);
    }
    Click(*dialog, "asTableButton");
    EXPECT_TRUE(dialog->Viewer().View().isVisible());
    EXPECT_TRUE(Find<QWidget>(*dialog, "find").isEnabled());
}

TEST_F(Table, IsFilteredAndItsTotalsFollow)
{
    Make(2);
    TurnToTable();
    QTest::keyClick(dialog.get(), Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(dialog->focusWidget()->objectName(), u"rowFilter"_s);
    Filter(u"ANNA"_s);
    EXPECT_EQ(Column(0), QStringList(4, u"anna"_s));
    EXPECT_EQ(Sums(), u"4 of 36 rows. Received: 98.00 MB; Sent: 0.50 MB; Total: 98.50 MB"_s);
    Await([&] { Choose(Find<QComboBox>(*dialog, "rowFilterColumn"), u"in \"IP address\""_s); });
    EXPECT_EQ(View().model()->rowCount(), 0);
    EXPECT_EQ(Sums().section(u'.', 0, 0), u"0 of 36 rows"_s);
    Make(0); // a new report shows all of its rows
    EXPECT_EQ(View().model()->rowCount(), 9);
    EXPECT_EQ(Find<QLineEdit>(*dialog, "rowFilter").text(), QString());
}

TEST_F(Table, IsFilteredByWhatItsCellsShow)
{
    Execute("UPDATE users SET username = '100%_done''s' WHERE user_id = 4"); // "two lines" before
    Execute("UPDATE users SET username = (?) WHERE user_id = 5", u"two\nlines"_s);
    Execute("UPDATE traffic_use SET data = 1234567.5 WHERE user_id = 1 AND period = 0");
    Make(0);
    TurnToTable();
    const std::pair<const char16_t *, const char16_t *> cases[] = {
        {u"two lines", u"two lines"},
        {u"0%_D", u"100%_done's"},
        {u"e's", u"100%_done's"},
        {u"\"FRANK\"", u"O'Hara, \"Frank\""},
        {u"4,938,270.00", u"anna"},
        {u"4938270", u"anna"}};
    for (const auto &[text, name] : cases) {
        Filter(QString::fromUtf16(text));
        EXPECT_EQ(Column(0), QStringList(QString::fromUtf16(name)));
    }
    Filter(u"%"_s);
    EXPECT_EQ(Column(0).size(), 1) << "no pattern";
}

TEST_F(Table, WhatIsTypedFiltersWithoutReturn)
{
    Make(0);
    TurnToTable();
    Await([&] { Type(Find<QLineEdit>(*dialog, "rowFilter"), u"anna"_s); });
    EXPECT_EQ(Column(0), QStringList(u"anna"_s));
}

TEST_F(Table, IsSortedByItsHeadingsAndAsTheReportAgain)
{
    Make(0);
    TurnToTable();
    const QStringList before = Column(0);
    ClickHeading(2);
    const QStringList ascending = Column(0);
    EXPECT_EQ(ascending.constFirst(), u"anna"_s); // who has received least
    ClickHeading(2);
    const QStringList descending = Column(0);
    EXPECT_EQ(descending, QStringList(ascending.rbegin(), ascending.rend()));
    ClickHeading(2);
    EXPECT_EQ(Column(0), before);
}

TEST_F(Table, CopiesTheSelectedRowsAsASpreadsheetTakesThem)
{
    Execute("UPDATE traffic_use SET data = data * 1000 WHERE user_id = 1");
    Make(0);
    TurnToTable();
    Filter(u"anna"_s);
    ClickCell(View(), 0, 0);
    QTest::keyClick(&View(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(),
              u"User\tIP address\tReceived (MB)\tSent (MB)\tTotal (MB)\n"
              "anna\t10.0.0.1\t98000.00\t0.50\t98000.50\n"_s);
}

TEST_F(Table, ASpreadsheetTakesNoCopiedTextForAFormulaOrAQuotation)
{
    Execute("UPDATE users SET username = (?) WHERE user_id = 1", u"\"quoted\" text"_s);
    Make(0);
    TurnToTable();
    ClickCell(View(), 0, 0);
    QTest::keyClick(&View(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&View(), Qt::Key_C, Qt::ControlModifier);
    QStringList names;
    const QStringList lines = QApplication::clipboard()->text().split(u'\n');
    for (const QString &line : lines.mid(1, lines.size() - 2)) {
        EXPECT_EQ(line.count(u'\t'), 4) << qPrintable(line);
        names += line.section(u'\t', 0, 0);
    }
    EXPECT_EQ(names.size(), 9);
    for (const auto *name : {u"'=1+1",
                             u"'@Zo\u00eb",
                             u"'  -blank",
                             u"two lines",
                             u"\"\"\"quoted\"\" text\"",
                             u"O'Hara, \"Frank\""}) {
        EXPECT_TRUE(names.contains(QString::fromUtf16(name))) << qPrintable(names.join(u'|'));
    }
}

TEST_F(Table, ACopyOfFewerRowsThanWereSelectedSaysSo)
{
    constexpr qint64 kMost = 100'000;
    LayoutError error;
    const auto many = std::make_shared<ReportTable>();
    many->layout =
        ParseLayout("title = 'T'\nquery = 'SELECT group_id FROM groups'\n"
                    "[[column]]\nname = 'group_id'\nheading = 'Number'\ntype = 'integer'\n",
                    u"t"_s,
                    error)
            .value();
    ChosenRows all {{}, CellRow(1)};
    for (qint64 row = 0; row <= kMost; ++row) {
        ASSERT_TRUE(many->rows.Append({row}));
        all.rows.push_back(static_cast<quint32>(kMost - row)); // against the order of the report
    }
    ASSERT_TRUE(many->rows.Finish());
    RowTable table;
    QSignalSpy told(&table, &RowTable::Told);
    table.SetTable(many);
    table.Show(all);
    table.show();
    table.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&table));
    auto &view = Find<QTableView>(table, "rows");
    const auto copy = [&] {
        view.setFocus();
        QTest::keyClick(&view, Qt::Key_C, Qt::ControlModifier);
        return told.isEmpty() ? u"nothing told"_s : told.takeLast().constFirst().toString();
    };
    view.selectAll();
    EXPECT_EQ(
        copy(),
        u"Only the first 100000 of 100001 selected rows were copied. \"Save as...\" takes all "
        "rows of the report."_s);
    const QString text = QApplication::clipboard()->text();
    EXPECT_EQ(text.count(u'\n'), 1 + kMost);
    EXPECT_TRUE(text.startsWith(u"Number\n100000\n99999\n"_s));
    EXPECT_TRUE(text.endsWith(u"\n2\n1\n"_s));
    view.selectRow(3);
    EXPECT_EQ(copy(), QString()) << "nothing more of an earlier copy";
}

TEST_F(Table, EveryReportHasOne)
{
    Make(0);
    TurnToTable();
    for (int row = 0; row < kListedCount; ++row) {
        Make(row);
        const qint64 count = dialog->Viewer().Table()->rows.Count();
        EXPECT_EQ(View().model()->rowCount(), count);
        EXPECT_TRUE(Sums().startsWith(u"%1 of %1 rows"_s.arg(count))) << Sums().toStdString();
        Grab(*dialog, u"table-%1"_s.arg(row));
    }
    EXPECT_EQ(Sums().count(u'.'), 0); // a statement's lines have no sum
}
