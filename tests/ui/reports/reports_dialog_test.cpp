#include "reports_fixture.h"
#include "ui/common/number_field.h"
#include "ui/reports/crystal_ctrl.h"
#include "ui/reports/print_pages.h"
#include "ui/reports/report_job.h"

#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QPrinter>

using namespace Qt::StringLiterals;

namespace {

// A property put, as "number=value".
QStringList Puts(const QSignalSpy &spy)
{
    QStringList puts;
    for (const auto &put : spy) {
        puts += u"%1=%2"_s.arg(put.at(0).toInt()).arg(put.at(1).value<QVariant>().toString());
    }
    return puts;
}

} // namespace

TEST_F(Reports, OpensWithoutASelectionButTheFirstDescription)
{
    auto &catalogue = Find<QListWidget>(*dialog, "catalogue");
    EXPECT_EQ(catalogue.count(), kListedCount);
    EXPECT_EQ(catalogue.item(0)->text(), u"Traffic (Summary) "_s);
    EXPECT_TRUE(catalogue.selectedItems().isEmpty()); // kept: the search finds no title
    EXPECT_EQ(Find<QLabel>(*dialog, "description").text(), DescriptionOf(ReportCatalogue()[0]));
    EXPECT_TRUE(Find<QAbstractButton>(*dialog, "allAvailable").isChecked());
    EXPECT_FALSE(Find<QLineEdit>(*dialog, "since").isEnabled());
    EXPECT_FALSE(Find<QLineEdit>(*dialog, "until").isEnabled());
    Grab(*dialog, u"reports-opened"_s);
}

TEST_F(Reports, ARowShowsItsDescriptionAndEnablesItsFilters)
{
    for (int row = 0; row < kListedCount; ++row) {
        Select(row);
        EXPECT_EQ(Find<QLabel>(*dialog, "description").text(), DescriptionOf(EntryOf(row)));
        EXPECT_EQ(Find<QWidget>(*dialog, "users").isEnabled(), row != 1 && row != 3);
        EXPECT_EQ(Find<QWidget>(*dialog, "groups").isEnabled(), row != 1 && row != 3);
    }
    Click(*dialog, "custom");
    EXPECT_TRUE(Find<QLineEdit>(*dialog, "since").isEnabled());
    Click(*dialog, "lastWeek");
    EXPECT_FALSE(Find<QLineEdit>(*dialog, "until").isEnabled());
}

// As when the dialog opens: the focus alone makes the first row the current one.
TEST_F(Reports, ARowThatOnlyHasTheFocusIsNotSelected)
{
    auto &catalogue = Find<QListWidget>(*dialog, "catalogue");
    dialog->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
    catalogue.setFocus(Qt::TabFocusReason);
    ASSERT_EQ(catalogue.currentRow(), 0);
    ClickGenerate();
    EXPECT_EQ(Message(), u"Please select a report"_s);
    EXPECT_FALSE(dialog->Viewer().Table());
    QTest::keyClick(&catalogue, Qt::Key_Space);
    ClickGenerate();
    EXPECT_TRUE(dialog->Viewer().Table());
}

TEST_F(Reports, ASelectedRowStaysSelected)
{
    auto &catalogue = Find<QListWidget>(*dialog, "catalogue");
    Select(3);
    QTest::mouseClick(catalogue.viewport(),
                      Qt::LeftButton,
                      Qt::ControlModifier,
                      catalogue.visualItemRect(catalogue.item(3)).center());
    EXPECT_EQ(catalogue.selectedItems(), QList {catalogue.item(3)});
}

TEST_F(Reports, PropertiesArePutInTheirOrder)
{
    QSignalSpy puts(&dialog->Viewer(), &ReportViewer::PropertyPut);
    ClickGenerate();
    const QString connection = u"20=DSN = bill;UID = System;PWD;DSQ="_s;
    const QStringList end {u"24=0"_s, u"125=true"_s, u"123=true"_s, u"120=true"_s, u"64="_s};
    // Without a row no layout is set.
    EXPECT_EQ(Puts(puts), QStringList({connection, u"67=2"_s}) + end + QStringList(u"17=1"_s));
    EXPECT_EQ(Message(), u"Please select a report"_s);
    puts.clear();
    Select(6);
    Click(*dialog, "today");
    ClickGenerate();
    const QString layout = u"3="_s + LayoutPath(folder.path() + u'/', 6);
    const QString query = u"64="_s + QueryText(6, PeriodUpTo(kToday, PeriodChoice::Today), {}, {});
    EXPECT_EQ(Puts(puts),
              QStringList({connection, u"67=2"_s, layout}) + end + QStringList({query, u"17=1"_s}));
    puts.clear();
    Settings().WriteText(values::kReportsDsn, u"own"_s);
    ClickGenerate();
    EXPECT_EQ(Puts(puts).value(0), u"20=DSN = own;UID = System;PWD;DSQ="_s);
    EXPECT_EQ(CCrystalCtrl::staticMetaObject.className(), std::string("CCrystalCtrl"));
}

TEST_F(Reports, FromAfterToRunsNothing)
{
    Select(0);
    Click(*dialog, "custom");
    Type(Find(*dialog, "since"), u"2026-11-05"_s);
    Type(Find(*dialog, "until"), u"2026-11-04"_s);
    QSignalSpy puts(&dialog->Viewer(), &ReportViewer::PropertyPut);
    QTest::keyClick(&Find<QListWidget>(*dialog, "catalogue"), Qt::Key_Return);
    EXPECT_EQ(
        prompt.TakeSaid(),
        QStringList(u"You entered incorrect time period. Please re-enter one of the dates"_s));
    EXPECT_TRUE(puts.isEmpty());
    EXPECT_EQ(Find<QLineEdit>(*dialog, "until").text(), u"2026-11-05"_s);
    Type(Find(*dialog, "since"), u"5.11.20265"_s);
    QTest::keyClick(&Find(*dialog, "since"), Qt::Key_Return);
    EXPECT_EQ(prompt.TakeSaid().size(), 1);
    EXPECT_EQ(Find<QLineEdit>(*dialog, "since").text(), u"5.11.20265"_s);
    EXPECT_TRUE(puts.isEmpty());
    Type(Find(*dialog, "since"), u"5.11.2026"_s);
    ClickGenerate();
    EXPECT_TRUE(dialog->Viewer().Table());
}

TEST_F(Reports, EveryRowIsShown)
{
    for (int row = 0; row < kListedCount; ++row) {
        Select(row);
        ClickGenerate();
        ASSERT_TRUE(dialog->Viewer().Table()) << row << Message().toStdString();
        EXPECT_GE(dialog->Viewer().View().Pages()->Count(), 1);
        Grab(*dialog, u"reports-%1"_s.arg(row));
    }
}

TEST_F(Reports, PagesAreTurnedFoundAndSaved)
{
    MultiplyVisits(3);
    Select(15);
    ClickGenerate();
    ReportViewer &viewer = dialog->Viewer();
    const int count = viewer.View().Pages()->Count();
    ASSERT_GT(count, 3);
    const auto &number = Find<NumberField>(*dialog, "pageNumber");
    Click(*dialog, "lastPageButton");
    EXPECT_EQ(number.text(), QString::number(count));
    Click(*dialog, "previousPageButton");
    EXPECT_EQ(number.text(), QString::number(count - 1));
    Click(*dialog, "firstPageButton");
    Click(*dialog, "nextPageButton");
    EXPECT_EQ(number.text(), QString::number(2));
    Choose(Find<QComboBox>(*dialog, "zoom"), u"150 %"_s);
    EXPECT_DOUBLE_EQ(viewer.View().Zoom(), 1.5);
    EXPECT_EQ(number.text(), QString::number(2));

    QSignalSpy ready(&viewer, &ReportViewer::Ready);
    Type(Find<QLineEdit>(*dialog, "find"), u"O'HARA"_s);
    QTest::keyClick(&Find<QLineEdit>(*dialog, "find"), Qt::Key_Return);
    ASSERT_TRUE(ready.wait(20'000));
    EXPECT_TRUE(viewer.View().Pages()->PageText(number.text().toInt() - 1).contains(u"O'Hara"));
    Type(Find<QLineEdit>(*dialog, "find"), u"nowhere"_s);
    QTest::keyClick(&Find<QLineEdit>(*dialog, "find"), Qt::Key_Return);
    ASSERT_TRUE(ready.wait(20'000));
    EXPECT_EQ(Message(), u"\"nowhere\" is not in this report."_s);

    viewer.SaveTo(folder.filePath(u"visits.pdf"_s));
    ASSERT_TRUE(ready.wait(20'000));
    EXPECT_TRUE(QFile::exists(folder.filePath(u"visits.pdf"_s)));
    viewer.SaveTo(folder.filePath(u"none/visits.pdf"_s));
    ASSERT_TRUE(ready.wait(20'000));
    EXPECT_TRUE(prompt.TakeSaid().value(0).contains(u"does not exist"));
    viewer.Print();
    EXPECT_EQ(prompt.TakeSaid(),
              QStringList(u"No printer is installed. The report can be saved as PDF."_s));
}

// The dialog that chooses a printer offers a file as well.
TEST_F(Reports, APrintSaysWhereItWent)
{
    QPrinter printer;
    printer.setOutputFormat(QPrinter::NativeFormat);
    printer.setOutputFileName({});
    EXPECT_EQ(ReportPrintedText(printer, 3, false), u"The report was sent to the printer."_s);
    EXPECT_EQ(ReportPrintedText(printer, 3, true),
              u"Printing was stopped; pages sent before: 3."_s);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(u"/tmp/list.pdf"_s);
    EXPECT_EQ(ReportPrintedText(printer, 3, false),
              u"The report was printed to the file /tmp/list.pdf."_s);
    EXPECT_EQ(ReportPrintedText(printer, 3, true),
              u"Printing was stopped; pages in the file /tmp/list.pdf: 3."_s);
    EXPECT_EQ(ReportPrintedText(printer, 0, true), u"The report was not printed."_s);
}

TEST_F(Reports, APageIsGoneToByItsNumberOrRefused)
{
    MultiplyVisits(3);
    Select(15);
    ClickGenerate();
    ReportViewer &viewer = dialog->Viewer();
    const int count = viewer.View().Pages()->Count();
    auto &number = Find<NumberField>(*dialog, "pageNumber");
    for (const QString &typed : {u"2,5"_s, u"0"_s, QString::number(count + 1), u""_s}) {
        Type(number, typed);
        QTest::keyClick(&number, Qt::Key_Return);
        EXPECT_EQ(prompt.TakeSaid(),
                  QStringList(u"Please enter an integer between 1 and %1."_s.arg(count)));
        EXPECT_EQ(number.text(), typed);
        EXPECT_EQ(viewer.View().CurrentPage(), 0);
    }
    Type(number, u"3"_s);
    EXPECT_EQ(viewer.View().CurrentPage(), 0);
    QTest::keyClick(&number, Qt::Key_Return);
    EXPECT_EQ(viewer.View().CurrentPage(), 2);
    QTest::keyClick(&number, Qt::Key_Down);
    EXPECT_EQ(viewer.View().CurrentPage(), 1);
    EXPECT_EQ(number.text(), u"2"_s);
}

TEST_F(Reports, ASavedFileEndsAsTheKindThatWasChosen)
{
    Select(6);
    ClickGenerate();
    for (const QString &ending : {u"csv"_s, u"xlsx"_s}) {
        const QString name = folder.filePath(u"saved"_s);
        const WhileModal choose([&](QDialog &dialogBox) {
            auto &files = dynamic_cast<QFileDialog &>(dialogBox);
            EXPECT_EQ(files.selectedNameFilter(), u"PDF (*.pdf)"_s);
            auto &kinds = Find<QComboBox>(files, "fileTypeCombo");
            kinds.setCurrentIndex(kinds.findText(ending, Qt::MatchContains));
            emit kinds.textActivated(kinds.currentText());
            Type(Find<QLineEdit>(files, "fileNameEdit"), name);
            dialogBox.accept();
        });
        QSignalSpy ready(&dialog->Viewer(), &ReportViewer::Ready);
        Click(*dialog, "saveButton");
        ASSERT_TRUE(ready.count() > 0 || ready.wait(20'000));
        EXPECT_TRUE(QFile::exists(name + u'.' + ending)) << Message().toStdString();
    }
}

TEST_F(Reports, StatementsAreOnPagesOfTheirOwnAndNameNobodyElse)
{
    Select(kStatementRow);
    ClickGenerate();
    const auto pages = dialog->Viewer().View().Pages();
    ASSERT_TRUE(pages) << Message().toStdString();
    ASSERT_EQ(pages->Table().groups.size(), 9U);
    QSet<int> begins;
    for (size_t group = 0; group < 9; ++group) {
        const int page = pages->PageOfGroup(group);
        begins += page;
        const QString text = pages->PageText(page);
        EXPECT_TRUE(text.contains(u"Statement"_s) && text.contains(u"Page 1 of "_s))
            << text.toStdString();
        for (size_t other = 0; other < 9; ++other) {
            const QString name = GroupTitle(pages->Table(), pages->Table().groups[other]);
            EXPECT_EQ(text.contains(name), other == group) << text.toStdString();
        }
    }
    EXPECT_EQ(begins.size(), 9);
    Grab(*dialog, u"reports-statement"_s);
    Select(0); // a report of a layout again
    ClickGenerate();
    EXPECT_TRUE(dialog->Viewer().View().Pages()->PageText(0).contains(u"Traffic (Summary)"_s));
}

TEST_F(Reports, StatementsAreSavedAsAFileForEachUserWhereThatIsWanted)
{
    Select(kStatementRow);
    ClickGenerate();
    for (const bool each : {true, false}) {
        const WhileModal choose([&](QDialog &dialogBox) {
            Type(Find<QLineEdit>(dynamic_cast<QFileDialog &>(dialogBox), "fileNameEdit"),
                 folder.filePath(u"letter"_s));
            dialogBox.accept();
        });
        prompt.AnswerWith({each});
        QSignalSpy ready(&dialog->Viewer(), &ReportViewer::Ready);
        Click(*dialog, "saveButton");
        ASSERT_TRUE(ready.count() > 0 || ready.wait(60'000));
        EXPECT_EQ(QDir(folder.path()).entryList({u"letter-*.pdf"_s}).size(), 9);
        EXPECT_EQ(QFile::exists(folder.filePath(u"letter.pdf"_s)), !each);
    }
    EXPECT_EQ(prompt.TakeSaid().size(), 2);
}

TEST_F(Reports, ReturnInAFieldOfTheViewerGeneratesNothing)
{
    Select(15);
    ClickGenerate();
    QSignalSpy puts(&dialog->Viewer(), &ReportViewer::PropertyPut);
    QSignalSpy ready(&dialog->Viewer(), &ReportViewer::Ready);
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter}) {
        Type(Find<QLineEdit>(*dialog, "find"), u"anna"_s);
        QTest::keyClick(dialog->focusWidget(), key);
        ASSERT_TRUE(ready.wait(20'000)); // it searches
        EXPECT_EQ(dialog->focusWidget()->objectName(), u"find"_s); // for the next Return
        Type(Find<NumberField>(*dialog, "pageNumber"), u"1"_s);
        QTest::keyClick(dialog->focusWidget(), key);
        EXPECT_FALSE(dialog->Viewer().IsBusy());
    }
    EXPECT_TRUE(puts.isEmpty());
    EXPECT_TRUE(dialog->isVisible());
    Find<QListWidget>(*dialog, "catalogue").setFocus();
    QTest::keyClick(dialog->focusWidget(), Qt::Key_Return); // there it does
    EXPECT_TRUE(ready.wait(20'000));
    EXPECT_FALSE(puts.isEmpty());
}

TEST_F(Reports, UsersAndGroupsNarrowAReportWithAPeriod)
{
    Select(0);
    QString name;
    {
        const WhileModal choose([&](QDialog &filter) {
            name = RowTexts(Find<QListView>(filter, "left")).value(2);
            ClickCell(Find<QListView>(filter, "left"), 2, 0);
            Click(filter, "take");
            EXPECT_EQ(Find<QListView>(filter, "taken").model()->rowCount(), 1);
            Grab(filter, u"reports-filter"_s);
            Click(filter, "ok");
        });
        Click(*dialog, "users");
    }
    EXPECT_TRUE(
        Find<QLabel>(*dialog, "filterNote").text().endsWith(u"filters apply only with a period."));
    QSignalSpy puts(&dialog->Viewer(), &ReportViewer::PropertyPut);
    ClickGenerate();
    EXPECT_EQ(dialog->Viewer().Table()->rows.Count(), OddNames().size());
    Click(*dialog, "lastMonth");
    ClickGenerate();
    EXPECT_EQ(dialog->Viewer().Table()->rows.Count(), 1);
    EXPECT_EQ(dialog->Viewer().Table()->filter, u"users "_s + name);
    EXPECT_TRUE(Puts(puts).filter(u" AND (users.user_id = "_s).size() == 1);
}

// Beyond half of the names the clause says whom to leave out, and lets in who was never offered.
TEST_F(Reports, MoreThanWasChosenIsSaidBeforeAndInTheHeading)
{
    Execute("UPDATE users SET monitored = 0 WHERE user_id = 2");
    Select(0);
    Click(*dialog, "lastMonth");
    QString leftOut;
    const WhileModal choose([&](QDialog &filter) {
        auto &left = Find<QListView>(filter, "left");
        const auto &warning = Find<QLabel>(filter, "warning");
        ClickCell(left, 0, 0);
        Click(filter, "take");
        EXPECT_EQ(warning.text(), QString());
        const QModelIndex first = left.model()->index(0, 0);
        left.selectAll();
        left.selectionModel()->select(first, QItemSelectionModel::Deselect);
        leftOut = first.data().toString();
        Click(filter, "take");
        EXPECT_TRUE(warning.text().contains(u"not monitored"_s)) << warning.text().toStdString();
        Grab(filter, u"reports-filter-warning"_s);
        Click(filter, "ok");
    });
    Click(*dialog, "users");
    ClickGenerate();
    EXPECT_EQ(dialog->Viewer().Table()->filter, u"all users but "_s + leftOut);
    EXPECT_EQ(dialog->Viewer().Table()->rows.Count(),
              OddNames().size() - 1); // the unmonitored one too
}

TEST_F(Reports, AFilterIsKeptWhenItsNamesCannotBeRead)
{
    for (const char *name : {"users", "groups"}) {
        const WhileModal take([&](QDialog &filter) {
            ClickCell(Find<QListView>(filter, "left"), 0, 0);
            Click(filter, "take");
            Click(filter, "ok");
        });
        Click(*dialog, name);
    }
    const QString note = Find<QLabel>(*dialog, "filterNote").text();
    Execute("DROP TABLE users");
    Execute("DROP TABLE groups");
    for (const char *name : {"users", "groups"}) {
        Click(*dialog, name);
        const QString told = prompt.TakeSaid().value(0);
        EXPECT_TRUE(told.startsWith(u"The %1 cannot be read.\n"_s.arg(QLatin1StringView(name))));
        EXPECT_TRUE(told.contains(u"no such table: "_s + QLatin1StringView(name)))
            << told.toStdString();
    }
    EXPECT_TRUE(note.contains(u"users ") && note.contains(u"groups ")) << note.toStdString();
    EXPECT_EQ(Find<QLabel>(*dialog, "filterNote").text(), note);
}

TEST_F(Reports, ForeignTextsAreNoMarkupAndTakeNoRoomFromThePages)
{
    Select(6);
    ClickGenerate();
    const int pagesWidth = dialog->Viewer().View().width();
    const WhileModal take([&](QDialog &filter) {
        auto &left = Find<QListView>(filter, "left");
        for (const QString &part : {u"<b>"_s, u"www"_s, u"Hara"_s}) {
            const auto found = left.model()->match(
                left.model()->index(0, 0), Qt::DisplayRole, part, 1, Qt::MatchContains);
            left.selectionModel()->select(found.value(0), QItemSelectionModel::Select);
        }
        Click(filter, "take");
        Click(filter, "ok");
    });
    Click(*dialog, "users");
    QSignalSpy ready(&dialog->Viewer(), &ReportViewer::Ready);
    dialog->Viewer().Find(u"<b>"_s + QString(1000, u'w'));
    ASSERT_TRUE(ready.wait(20'000));
    Grab(*dialog, u"reports-foreign-texts"_s);
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(dialog->Viewer().View().width(), pagesWidth);
    for (const char *name : {"filterNote", "message"}) {
        EXPECT_TRUE(Find<QLabel>(*dialog, name).text().contains(u"<b>"));
        EXPECT_EQ(Find<QLabel>(*dialog, name).textFormat(), Qt::PlainText);
    }
}

TEST_F(Reports, EachKeyOfAFilterDialogIsThereOnce)
{
    const WhileModal look([](QDialog &filter) {
        QStringList keys;
        for (const auto *label : filter.findChildren<QLabel *>()) {
            keys += QKeySequence::mnemonic(label->text()).toString();
        }
        for (const auto *button : filter.findChildren<QAbstractButton *>()) {
            keys += QKeySequence::mnemonic(button->text()).toString();
        }
        keys.removeAll(QString());
        EXPECT_GE(keys.size(), 6);
        EXPECT_EQ(keys.removeDuplicates(), 0) << keys.join(u' ').toStdString();
        filter.reject();
    });
    Click(*dialog, "users");
}

TEST_F(Reports, ReturnMovesNamesOfAFilterOneByOne)
{
    const WhileModal choose([](QDialog &filter) {
        auto &taken = Find<QListView>(filter, "taken");
        auto &left = Find<QListView>(filter, "left");
        const int offered = left.model()->rowCount();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&filter));
        for (int name = 1; name <= 2; ++name) {
            ClickCell(left, 0, 0);
            QTest::keyClick(&left, Qt::Key_Return);
            EXPECT_EQ(taken.model()->rowCount(), name);
        }
        ClickCell(taken, 0, 0);
        QTest::keyClick(&taken, Qt::Key_Enter);
        EXPECT_EQ(taken.model()->rowCount(), 1);
        EXPECT_EQ(left.model()->rowCount(), offered - 1);
        EXPECT_TRUE(filter.isVisible());
        Click(filter, "ok");
    });
    Click(*dialog, "users");
    EXPECT_TRUE(Find<QLabel>(*dialog, "filterNote").text().startsWith(u"users "_s));
}

TEST_F(Reports, AFailedReportCanBeMadeAgainByTheSameKey)
{
    dialog->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
    Settings().WriteText(values::kPath, u"/nowhere/"_s);
    Select(0);
    Find<QWidget>(*dialog, "generate").setFocus();
    ClickGenerate();
    EXPECT_FALSE(Message().isEmpty());
    EXPECT_EQ(dialog->focusWidget(), &Find<QWidget>(*dialog, "catalogue"));
}

TEST_F(Reports, FailuresAreToldInTheDialog)
{
    Settings().WriteText(values::kPath, u"/nowhere/"_s);
    Select(0);
    ClickGenerate();
    EXPECT_EQ(Message(), u"/nowhere/reports/trafall.rpt: there is no such layout file"_s);
    Settings().WriteText(values::kPath, {});
    ClickGenerate();
    EXPECT_EQ(Message(), u"reports/trafall.rpt: there is no such layout file"_s);
}

TEST_F(Reports, SettingsThatCannotBeReadAreToldInPlaceOfAMissingLayout)
{
    Select(0);
    QFile file(Settings().FileOf(ConfigKeyId::Base));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("= broken");
    file.close();
    const QSignalSpy puts(&dialog->Viewer(), &ReportViewer::PropertyPut);
    ClickGenerate();
    EXPECT_TRUE(prompt.TakeSaid().value(0).contains(file.fileName()));
    EXPECT_TRUE(puts.isEmpty());
}

TEST_F(Reports, ARunCanBeStopped)
{
    QDir(folder.path()).mkpath(u"slow/reports"_s);
    QFile layout(folder.filePath(u"slow/reports/trafall.rpt"_s));
    ASSERT_TRUE(layout.open(QIODevice::WriteOnly));
    layout.write(
        "title = \"Slow\"\nrows = \"summed\"\nquery = \"SELECT a.sitename FROM Sites a, SiteAccess b, "
        "SiteAccess c, SiteAccess d, SiteAccess e\"\n[[column]]\nname = \"sitename\"\n");
    layout.close();
    Settings().WriteText(values::kPath, folder.path() + u"/slow/");
    Select(0);
    QSignalSpy ready(&dialog->Viewer(), &ReportViewer::Ready);
    for (const bool byKey : {false, true}) {
        Click(*dialog, "generate");
        ASSERT_TRUE(QTest::qWaitFor([&] { return IsShown(*dialog, "stop"); }));
        QElapsedTimer watch;
        watch.start();
        if (byKey) {
            QTest::keyClick(&Find<QWidget>(*dialog, "catalogue"), Qt::Key_Escape);
        } else {
            Click(*dialog, "stop");
        }
        ASSERT_TRUE(ready.wait(20'000));
        EXPECT_LT(watch.elapsed(), 250);
        EXPECT_EQ(Message(), u"The report was stopped."_s);
        EXPECT_TRUE(Find<QWidget>(*dialog, "generate").isEnabled());
        EXPECT_TRUE(dialog->isVisible());
    }
}

TEST_F(Reports, ProgressIsShownOnlyWhileAReportIsMade)
{
    MultiplyVisits(9);
    Select(15);
    const QSignalSpy progressed(dialog->findChild<ReportJob *>(), &ReportJob::Progressed);
    ClickGenerate();
    ASSERT_GT(progressed.count(), 0);
    EXPECT_EQ(Message(), QString());
}

TEST_F(Reports, ASavingCanBeStopped)
{
    MultiplyVisits(6);
    Select(15);
    ClickGenerate();
    QSignalSpy ready(&dialog->Viewer(), &ReportViewer::Ready);
    const QString file = folder.filePath(u"stopped.pdf"_s);
    dialog->Viewer().SaveTo(file);
    QElapsedTimer watch;
    watch.start();
    Click(*dialog, "stop");
    ASSERT_TRUE(ready.wait(20'000));
    EXPECT_LT(watch.elapsed(), 250);
    EXPECT_EQ(Message(), u"The report was not saved."_s);
    EXPECT_FALSE(QFile::exists(file));
    EXPECT_TRUE(Find<QWidget>(*dialog, "saveButton").isEnabled());
}
