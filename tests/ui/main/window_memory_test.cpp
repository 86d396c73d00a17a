// What the windows keep for the person at this desktop, and how they fit a small screen.
#include "ui/common/window_memory.h"

#include "list_fixture.h"
#include "support/windows/modal.h"
#include "ui/options/login_manager.h"
#include "ui/options/purge_dialog.h"
#include "ui/reports/reports_dialog.h"

#include <QHeaderView>
#include <QSettings>
#include <QSplitter>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

namespace {

class WindowMemory : public ListFixture
{
protected:
    void SetUp() override
    {
        ListFixture::SetUp();
        AddUser({.name = "anna", .mac = "DDDDDDDDDDDD"});
    }

    void ShowAgain()
    {
        CloseFrame();
        ShowFrame();
    }

    [[nodiscard]] QHeaderView &Header() const { return *Users().header(); }

    // Drags a border or a whole header cell by the mouse.
    static void Drag(QHeaderView &header, int from, int to)
    {
        QWidget *view = header.viewport();
        const int y = header.height() / 2;
        QTest::mousePress(view, Qt::LeftButton, {}, QPoint(from, y));
        for (int step = 1; step <= 5; ++step) {
            const QPoint place(from + (to - from) * step / 5, y);
            QMouseEvent move(QEvent::MouseMove,
                             place,
                             view->mapToGlobal(place),
                             Qt::NoButton,
                             Qt::LeftButton,
                             Qt::NoModifier);
            QApplication::sendEvent(view, &move);
        }
        QTest::mouseRelease(view, Qt::LeftButton, {}, QPoint(to, y));
    }

    static int RightOf(const QHeaderView &header, int section)
    {
        return header.sectionViewportPosition(section) + header.sectionSize(section) - 1;
    }

    [[nodiscard]] QStringList Shown() const
    {
        QStringList texts;
        for (int place = 0; place < Header().count(); ++place) {
            texts << Header()
                         .model()
                         ->headerData(Header().logicalIndex(place), Qt::Horizontal)
                         .toString();
        }
        return texts;
    }
};

} // namespace

TEST_F(WindowMemory, TheMainWindowIsAsItWasLeft)
{
    ShowFrame().resize(720, 500);
    auto *splitter = &Find<QSplitter>(*frame, "splitter");
    splitter->setSizes({150, 200});
    const QList<int> parts = splitter->sizes();
    const QSize size = frame->size();
    ShowAgain();
    EXPECT_EQ(frame->size(), size);
    splitter = &Find<QSplitter>(*frame, "splitter");
    EXPECT_EQ(splitter->sizes(), parts);
}

TEST_F(WindowMemory, ColumnsAreAsTheyWereDragged)
{
    ShowFrame();
    Drag(Header(), RightOf(Header(), 1), RightOf(Header(), 1) + 40);
    EXPECT_EQ(Header().sectionSize(1), 190);
    Drag(Header(),
         Header().sectionViewportPosition(3) + 30,
         Header().sectionViewportPosition(1) + 5);
    const QStringList order = {u"Username"_s,
                               u"IP Address"_s,
                               u"Workstation"_s,
                               u"Full name"_s,
                               u"MAC Address"_s,
                               u"Group"_s,
                               u"Access"_s};
    EXPECT_EQ(Shown(), order);
    QHeaderView *groups = Groups().header();
    Drag(*groups, RightOf(*groups, 0), RightOf(*groups, 0) + 25);
    ShowAgain();
    EXPECT_EQ(Header().sectionSize(1), 190);
    EXPECT_EQ(Shown(), order);
    EXPECT_EQ(Groups().header()->sectionSize(0), 175);
    EXPECT_EQ(Settings().ReadText(values::kWksHdrWidth), u"150"_s) << "the store's own stays";

    Users().ToggleColumn(UserColumn::Workstation);
    ShowAgain();
    Users().ToggleColumn(UserColumn::Workstation);
    LetSessionFinish();
    EXPECT_EQ(Header().sectionSize(1), 190) << "also of a column that was away";
}

TEST_F(WindowMemory, AMacAddressIsNotCutUnlessSomebodyWantsIt)
{
    constexpr int kMac = 4;
    ShowFrame();
    const auto width = [this] { return Header().sectionSize(kMac); };
    QStyleOptionViewItem cell;
    cell.initFrom(&Users());
    cell.font = Users().font();
    const QModelIndex address = Users().model()->index(0, kMac);
    EXPECT_GE(width(), Users().itemDelegate()->sizeHint(cell, address).width());
    Grab(*frame, u"mac-addresses"_s);
    EXPECT_GT(width(), 100);
    const int whole = width();
    ShowAgain(); // the first window has stored its usual width of 100
    EXPECT_EQ(Settings().ReadText(values::kMACHdrWidth), u"100"_s);
    EXPECT_EQ(width(), whole);

    CloseFrame();
    ASSERT_TRUE(Settings().WriteText(values::kMACHdrWidth, u"60"_s));
    ShowFrame();
    EXPECT_EQ(width(), 60);
    Drag(Header(), RightOf(Header(), kMac), RightOf(Header(), kMac) + 20);
    EXPECT_EQ(width(), 80);
    ShowAgain();
    EXPECT_EQ(width(), 80);

    Execute("UPDATE users SET mac_addr = ''");
    CloseFrame();
    ASSERT_TRUE(Settings().WriteText(values::kMACHdrWidth, u"100"_s));
    QSettings(QSettings::IniFormat, QSettings::UserScope, u"Tollbrook"_s, u"Tests"_s).clear();
    ShowFrame();
    EXPECT_EQ(width(), 100);
}

TEST_F(WindowMemory, NothingIsKeptWithoutAPerson)
{
    KeepWindowsFor({}, {});
    ShowFrame();
    const QSize first = frame->size();
    frame->resize(700, 480);
    ShowAgain();
    EXPECT_EQ(frame->size(), first);
}

TEST_F(WindowMemory, DialogsAreAsTheyWereLeft)
{
    const std::function<std::unique_ptr<QDialog>()> makers[] = {
        [this] {
            return std::make_unique<LoginManager>(
                Services(), LoginManager::Read().value(), nullptr);
        },
        [this] { return std::make_unique<PurgeDialog>(Services(), nullptr); },
        [this] { return std::make_unique<ReportsDialog>(Services(), nullptr); },
    };
    for (const auto &make : makers) {
        const auto first = make();
        first->show();
        first->resize(first->size() - QSize(11, 13));
        const QSize size = first->size();
        first->close();
        const auto second = make();
        second->show();
        EXPECT_EQ(second->size(), size) << qPrintable(second->windowTitle());
        Grab(*second, u"remembered-"_s + second->windowTitle());
    }
}

TEST_F(WindowMemory, WindowsFitASmallScreen)
{
    ShowFrame();
    const LoginManager logins(Services(), LoginManager::Read().value(), nullptr);
    const PurgeDialog purge(Services(), nullptr);
    const ReportsDialog reports(Services(), nullptr);
    for (const QWidget *window :
         std::initializer_list<const QWidget *> {frame.get(), &logins, &purge, &reports}) {
        const QSize least = window->minimumSizeHint();
        EXPECT_LE(least.width(), 1016) << qPrintable(window->windowTitle());
        EXPECT_LE(least.height(), 560) << qPrintable(window->windowTitle());
    }
}
