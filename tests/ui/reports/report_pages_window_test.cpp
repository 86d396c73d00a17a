// The pages in the Reports window: turned, searched, listened to, saved and printed.
#include "reports_fixture.h"
#include "ui/common/number_field.h"
#include "ui/reports/filter_dialog.h"
#include "ui/reports/page_setup_dialog.h"

#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QLineEdit>
#include <QListView>
#include <QPlainTextEdit>
#include <QPrinter>
#include <QProcess>
#include <QScrollBar>

using namespace Qt::StringLiterals;

namespace {

class ReportPagesWindow : public Reports
{
protected:
    PageView &View() { return dialog->Viewer().View(); }

    // A report of several pages.
    void MakeLong()
    {
        MultiplyVisits(3);
        Select(15);
        ClickGenerate();
        ASSERT_GT(View().Pages()->Count(), 3);
    }

    QString Number() { return Find<NumberField>(*dialog, "pageNumber").text(); }

    void SearchFor(const QString &text)
    {
        QSignalSpy ready(&dialog->Viewer(), &ReportViewer::Ready);
        Type(Find<QLineEdit>(*dialog, "find"), text);
        QTest::keyClick(&Find<QLineEdit>(*dialog, "find"), Qt::Key_Return);
        ASSERT_TRUE(ready.wait(20'000));
    }

    void SearchAgain()
    {
        QSignalSpy ready(&dialog->Viewer(), &ReportViewer::Ready);
        Click(*dialog, "findNextButton");
        ASSERT_TRUE(ready.wait(20'000));
    }

    // The middle of what is marked as found, in the view; the mark's frame has a colour of its own.
    QPoint Mark()
    {
        const QImage shown = View().viewport()->grab().toImage();
        QRect found;
        for (int y = 0; y < shown.height(); ++y) {
            for (int x = 0; x < shown.width(); ++x) {
                if (shown.pixel(x, y) == qRgb(0xb3, 0x6b, 0x00)) {
                    found |= QRect(x, y, 1, 1);
                }
            }
        }
        return found.isNull() ? QPoint(-1, -1) : found.center();
    }

    // What is written at that place.
    QString TextAt(QPoint place)
    {
        const int page = View().CurrentPage();
        for (const PlacedText &text : View().Pages()->Texts(page)) {
            const QRectF points(text.place.topLeft() / 10, text.place.size() / 10);
            if (View().PlaceInView(page, points).contains(place)) {
                return text.text;
            }
        }
        return {};
    }
};

} // namespace

TEST_F(ReportPagesWindow, EscapeLeavesAFieldBeforeItClosesTheWindow)
{
    MakeLong();
    const QString number = Number();
    for (const char *field : {"pageNumber", "find"}) {
        auto &line = Find<QLineEdit>(*dialog, field);
        line.setFocus();
        Type(line, u"2"_s);
        QTest::keyClick(&line, Qt::Key_Escape);
        EXPECT_TRUE(dialog->isVisible()) << field;
        EXPECT_EQ(QApplication::focusWidget(), &View()) << field;
    }
    EXPECT_EQ(Number(), number);
    Click(*dialog, "asTableButton");
    auto &filter = Find<QLineEdit>(*dialog, "rowFilter");
    filter.setFocus();
    Type(filter, u"10"_s);
    QTest::keyClick(&filter, Qt::Key_Escape);
    EXPECT_EQ(filter.text(), QString());
    EXPECT_TRUE(dialog->isVisible());
    ASSERT_TRUE(QTest::qWaitFor([&] { return !dialog->Viewer().IsBusy(); }));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(dialog->isVisible());
}

TEST_F(ReportPagesWindow, PagesAreTurnedOneByOneAtAnyZoomAndSize)
{
    MakeLong();
    const int count = View().Pages()->Count();
    for (const QSize size : {QSize(700, 480), QSize(1024, 600), QSize(1600, 2000)}) {
        dialog->resize(size);
        for (const char16_t *zoom : {u"50 %", u"100 %", u"300 %", u"Fit width"}) {
            Choose(Find<QComboBox>(*dialog, "zoom"), QString::fromUtf16(zoom));
            ClickGenerate();
            EXPECT_EQ(Number(), u"1"_s) << size.width();
            for (int page = 2; page <= count; ++page) {
                Click(*dialog, "nextPageButton");
                EXPECT_EQ(Number(), QString::number(page)) << size.width();
            }
            Click(*dialog, "nextPageButton");
            EXPECT_EQ(Number(), QString::number(count)) << size.width();
            for (int page = count - 1; page >= 1; --page) {
                Click(*dialog, "previousPageButton");
                EXPECT_EQ(Number(), QString::number(page)) << size.width();
            }
        }
    }
}

TEST_F(ReportPagesWindow, ScrollingTurnsToThePageThatShowsMost)
{
    MakeLong();
    Choose(Find<QComboBox>(*dialog, "zoom"), u"100 %"_s);
    auto &bar = *View().verticalScrollBar();
    bar.setValue(bar.maximum());
    EXPECT_EQ(Number(), QString::number(View().Pages()->Count()));
    bar.setValue(0);
    EXPECT_EQ(Number(), u"1"_s);
    dialog->resize(dialog->width() + 50, dialog->height() - 100); // scrolls nothing
    EXPECT_EQ(Number(), u"1"_s);
    Click(*dialog, "lastPageButton");
    ClickGenerate(); // a fresh report shows its first page
    EXPECT_EQ(Number(), u"1"_s);
    EXPECT_EQ(bar.value(), 0);
}

TEST_F(ReportPagesWindow, FindGoesFromPlaceToPlaceAndShowsEach)
{
    MakeLong();
    for (const char16_t *zoom : {u"Fit width", u"300 %"}) {
        Choose(Find<QComboBox>(*dialog, "zoom"), QString::fromUtf16(zoom));
        Click(*dialog, "firstPageButton");
        struct Case
        {
            QString text;
            int page; // from 1; 0 for the last
        };
        const Case cases[] = {
            {u"user site"_s, 1}, // the title of the page that shows
            {u"site"_s, 1},
            {u"IP ADDRESS"_s, 1}, // a column's heading
            {u"grand total"_s, 0},
        };
        for (const auto &[text, page] : cases) {
            SearchFor(text);
            EXPECT_EQ(Message(), QString());
            const int wanted = page > 0 ? page : View().Pages()->Count();
            EXPECT_EQ(Number(), QString::number(wanted)) << text.toStdString();
            EXPECT_TRUE(TextAt(Mark()).contains(text, Qt::CaseInsensitive))
                << text.toStdString() << TextAt(Mark()).toStdString();
            if (page == 1) {
                Click(*dialog, "firstPageButton");
            }
        }
    }
    Grab(*dialog, u"reports-found"_s);
    Click(*dialog, "firstPageButton");
    SearchFor(u"www.example03.org"_s);
    QSet<QPair<int, int>> places;
    for (int again = 0; again < 4; ++again) {
        places.insert({View().CurrentPage(), Mark().y() + View().verticalScrollBar()->value()});
        EXPECT_EQ(TextAt(Mark()), u"www.example03.org"_s);
        SearchAgain();
    }
    EXPECT_EQ(places.size(), 4); // each time another
    SearchFor(u"nowhere"_s);
    EXPECT_EQ(Message(), u"\"nowhere\" is not in this report."_s);
    EXPECT_EQ(Mark(), QPoint(-1, -1));
}

TEST_F(ReportPagesWindow, AScreenReaderReadsThePageThatShows)
{
    MakeLong();
    QAccessibleInterface *heard = QAccessible::queryAccessibleInterface(&View());
    ASSERT_NE(heard, nullptr);
    EXPECT_EQ(heard->role(), QAccessible::Document);
    EXPECT_EQ(heard->text(QAccessible::Name), u"Pages of the report"_s);
    QAccessibleTextInterface *words = heard->textInterface();
    ASSERT_NE(words, nullptr);
    const QString first = words->text(0, words->characterCount());
    EXPECT_TRUE(first.startsWith(u"User Site Access\n"_s)) << first.left(60).toStdString();
    EXPECT_TRUE(first.contains(u"Time\tSite\tIP address"_s)) << first.left(300).toStdString();
    EXPECT_TRUE(first.contains(u"\tPage 1 of "_s));
    const int site = static_cast<int>(first.indexOf(u"www.example"));
    EXPECT_EQ(words->text(site, site + 11), u"www.example"_s);
    const QRect place = words->characterRect(site);
    EXPECT_TRUE(
        QRect(View().viewport()->mapToGlobal(QPoint()), View().viewport()->size()).contains(place));
    EXPECT_EQ(words->offsetAtPoint(place.center()), site);
    int from = 0;
    int to = 0;
    EXPECT_EQ(words->textAtOffset(site, QAccessible::LineBoundary, &from, &to).count(u'\t'), 2);
    Click(*dialog, "nextPageButton");
    EXPECT_TRUE(words->text(0, words->characterCount()).contains(u"\tPage 2 of "_s));
    dialog->Viewer().View().SetPages(nullptr);
    EXPECT_EQ(words->characterCount(), 0);
}

TEST_F(ReportPagesWindow, TheChosenKindWinsOverADotInTheName)
{
    Select(6);
    ClickGenerate();
    struct Case
    {
        QString typed;
        QString kind;
        QString saved;
    };
    const Case cases[] = {
        {u"November 2026.11"_s, u"pdf"_s, u"November 2026.11.pdf"_s},
        {u"plain"_s, u"csv"_s, u"plain.csv"_s},
        {u"other.csv"_s, u"xlsx"_s, u"other.xlsx"_s},
        {u"same.HTML"_s, u"html"_s, u"same.HTML"_s},
    };
    for (const Case &each : cases) {
        const auto choose = [&](QDialog &box) {
            auto &files = dynamic_cast<QFileDialog &>(box);
            auto &kinds = Find<QComboBox>(files, "fileTypeCombo");
            kinds.setCurrentIndex(kinds.findText(each.kind, Qt::MatchContains));
            emit kinds.textActivated(kinds.currentText());
            Type(Find<QLineEdit>(files, "fileNameEdit"), folder.filePath(each.typed));
            box.accept();
        };
        QSignalSpy ready(&dialog->Viewer(), &ReportViewer::Ready);
        {
            const WhileModal chosen(choose);
            Click(*dialog, "saveButton");
        }
        ASSERT_TRUE(ready.count() > 0 || ready.wait(20'000));
        EXPECT_TRUE(QFile::exists(folder.filePath(each.saved))) << each.saved.toStdString();
        EXPECT_TRUE(prompt.TakeSaid().isEmpty());
        // What is there already is replaced only when that is wanted.
        prompt.AnswerWith({true});
        const WhileModal chosen(choose);
        Click(*dialog, "saveButton");
        EXPECT_EQ(prompt.TakeSaid(),
                  QStringList(u"%1 already exists.\nDo you want to replace it?"_s.arg(
                      folder.filePath(each.saved))));
        ASSERT_TRUE(ready.count() > 1 || ready.wait(20'000));
    }
}

TEST_F(ReportPagesWindow, ThePaperOfTheDialogIsPrintedOn)
{
    MakeLong();
    auto printer = std::make_shared<QPrinter>();
    const QString file = folder.filePath(u"printed.pdf"_s);
    printer->setOutputFormat(QPrinter::PdfFormat);
    printer->setOutputFileName(file);
    printer->setPageSize(QPageSize(QPageSize::A5));
    printer->setPageOrientation(QPageLayout::Landscape);
    QSignalSpy ready(&dialog->Viewer(), &ReportViewer::Ready);
    dialog->Viewer().PrintOn(printer);
    ASSERT_TRUE(ready.wait(20'000));
    QProcess reader;
    reader.start(u"pdfinfo"_s, {file});
    ASSERT_TRUE(reader.waitForFinished());
    const QByteArray told = reader.readAllStandardOutput();
    EXPECT_TRUE(told.contains("595 x 420 pts"));
    // Laid out for that paper, not made smaller from the site's.
    const int pages = ReportPages(dialog->Viewer().Table(), QSizeF(595, 420), nullptr).Count();
    EXPECT_NE(pages, View().Pages()->Count());
    EXPECT_EQ(QString::fromUtf8(told).section(u"Pages:"_s, 1).section(u'\n', 0, 0).trimmed(),
              QString::number(pages));
}

TEST_F(ReportPagesWindow, ThePageSetUpIsKeptAndShown)
{
    Select(0);
    ClickGenerate();
    const QString logo = folder.filePath(u"logo.png"_s);
    QImage picture(40, 20, QImage::Format_RGB32);
    picture.fill(Qt::darkGreen);
    ASSERT_TRUE(picture.save(logo));
    QSignalSpy ready(&dialog->Viewer(), &ReportViewer::Ready);
    {
        const WhileModal setUp([&](QDialog &box) {
            Choose(Find<QComboBox>(box, "paper"), QPageSize::name(QPageSize::A5));
            Choose(Find<QComboBox>(box, "turn"), u"Landscape"_s);
            Type(Find<QLineEdit>(box, "organisation"), u"Harbour Net"_s);
            Find<QPlainTextEdit>(box, "address").setPlainText(u"Quay 4\n24103 Kiel"_s);
            for (const auto &[file, told] :
                 {std::pair {folder.filePath(u"none.png"_s), u"There is no such file."_s},
                  {folder.path(), u"This is a folder. Choose a PNG or JPEG file."_s},
                  {Settings().FileOf(ConfigKeyId::Base),
                   u"This file holds no picture that can be read. Choose a PNG or JPEG file."_s}}) {
                Type(Find<QLineEdit>(box, "logo"), file);
                Click(box, "ok");
                EXPECT_TRUE(box.isVisible());
                EXPECT_EQ(prompt.TakeSaid(), QStringList(told));
            }
            Type(Find<QLineEdit>(box, "logo"), logo);
            Grab(box, u"reports-page-setup"_s);
            Click(box, "ok");
        });
        Click(*dialog, "pageSetupButton");
    }
    ASSERT_TRUE(ready.count() > 0 || ready.wait(20'000));
    const QSizeF size = View().Pages()->Size();
    EXPECT_NEAR(size.width() / size.height(), 595.0 / 420.0, 0.01);
    EXPECT_TRUE(View().Pages()->PageText(0).startsWith(u"Harbour Net\nQuay 4\n24103 Kiel\n"_s));
    const PageSetup kept = ReadPageSetup(Settings());
    EXPECT_EQ(kept.paper, QPageSize::A5);
    EXPECT_EQ(kept.turn, PageSetup::Turn::Landscape);
    EXPECT_EQ(kept.address, u"Quay 4\n24103 Kiel"_s);
    EXPECT_FALSE(kept.logo.isNull());
    QFile::remove(logo);
    ClickGenerate(); // without it the report is made all the same
    EXPECT_EQ(Message(), u"The logo %1 cannot be read."_s.arg(logo));
    EXPECT_TRUE(dialog->Viewer().Table());
    Settings().WriteText(values::kReportPaper, u"Papyrus"_s);
    Settings().WriteText(values::kReportTurn, u"sideways"_s);
    EXPECT_EQ(ReadPageSetup(Settings()).paper, QPageSize::A4);
    EXPECT_EQ(ReadPageSetup(Settings()).turn, PageSetup::Turn::AsReport);
}

TEST_F(ReportPagesWindow, WindowsFitASmallScreen)
{
    const QSize small(1024, 600);
    Find<QLabel>(*dialog, "filterNote").setText(QString(1500, u'n'));
    EXPECT_EQ(dialog->minimumSizeHint().boundedTo(small), dialog->minimumSizeHint());
    dialog->resize(small);
    EXPECT_EQ(dialog->size(), small);
    for (const auto what : {ReportFilterDialog::Of::Users, ReportFilterDialog::Of::Groups}) {
        ReportFilterDialog filter(what, dialog.get());
        EXPECT_EQ(filter.minimumSizeHint().boundedTo(small), filter.minimumSizeHint());
    }
    PageSetupDialog setUp(Services(), dialog.get());
    EXPECT_EQ(setUp.minimumSizeHint().boundedTo(small), setUp.minimumSizeHint());
}

TEST_F(ReportPagesWindow, TwentyThousandNamesMoveAtOnce)
{
    constexpr int kNames = 20'000;
    constexpr qint64 kAtOnce = 500; // milliseconds, on a busy machine too
    std::vector<Named<UserId>> offered;
    for (quint32 id = 1; id <= kNames; ++id) {
        offered.push_back(
            {UserId {id}, u"user %1"_s.arg((id * 7919) % 20'011, 5, 10, QChar(u'0'))});
    }
    ReportFilterDialog filter(ReportFilterDialog::Of::Users, dialog.get());
    filter.Offer(offered, ReportFilter<UserId> {});
    filter.show();
    auto &taken = *Find<QListView>(filter, "taken").model();
    auto &left = Find<QListView>(filter, "left");
    QElapsedTimer watch;
    const auto timed = [&](const char *what, const std::function<void()> &act) {
        watch.start();
        act();
        QCoreApplication::processEvents();
        EXPECT_LT(watch.elapsed(), kAtOnce) << what;
    };
    timed("all", [&] { Click(filter, "takeAll"); });
    EXPECT_EQ(taken.rowCount(), kNames);
    timed("back", [&] { Click(filter, "dropAll"); });
    EXPECT_EQ(taken.rowCount(), 0);
    timed("chosen", [&] {
        left.selectAll();
        Click(filter, "take");
    });
    EXPECT_EQ(taken.rowCount(), kNames);
    EXPECT_EQ(filter.Filter<UserId>().left.size(), 0);
}

TEST_F(ReportPagesWindow, ASearchNarrowsTheNamesOfAFilter)
{
    ReportFilterDialog filter(ReportFilterDialog::Of::Users, dialog.get());
    filter.Offer(std::vector<Named<UserId>> {{UserId {1}, u"anna"_s},
                                             {UserId {2}, u"Hannah"_s},
                                             {UserId {3}, u"bert"_s},
                                             {UserId {4}, QString()}},
                 ReportFilter<UserId> {});
    filter.show();
    Type(Find<QLineEdit>(filter, "leftSearch"), u"ANNA"_s);
    EXPECT_EQ(RowTexts(Find<QListView>(filter, "left")), QStringList({u"anna"_s, u"Hannah"_s}));
    ClickCell(Find<QListView>(filter, "left"), 1, 0);
    Click(filter, "take");
    EXPECT_EQ(RowTexts(Find<QListView>(filter, "left")), QStringList(u"anna"_s));
    Click(filter, "takeAll"); // of those that show
    const auto chosen = filter.Filter<UserId>();
    EXPECT_EQ(chosen.taken, QList({UserId {1}, UserId {2}}));
    EXPECT_EQ(chosen.left, QList({UserId {3}, UserId {4}}));
    Type(Find<QLineEdit>(filter, "leftSearch"), u""_s);
    EXPECT_EQ(RowTexts(Find<QListView>(filter, "left")), QStringList({u"bert"_s, u"(no name)"_s}));
}
