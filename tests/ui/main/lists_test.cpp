// The users list and the groups list, worked with by mouse and keys.
#include "access/list_commands.h"
#include "list_fixture.h"
#include "support/windows/modal.h"

#include <QAction>
#include <QHeaderView>
#include <QMenu>

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
                        .mode = 2});
        bert = AddUser({.name = "bert",
                        .station = "pc-1",
                        .fullName = "Bert Cole",
                        .ip = "10.0.0.1",
                        .group = sales,
                        .blocked = true,
                        .reason = 3});
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

    void OpenPopUp(ListPane &pane, int row, std::function<void(QMenu &)> act)
    {
        const WhileMenu menu(std::move(act));
        const QPoint place = pane.visualRect(pane.model()->index(row, 0)).center();
        QContextMenuEvent event(
            QContextMenuEvent::Mouse, place, pane.viewport()->mapToGlobal(place));
        QApplication::sendEvent(pane.viewport(), &event);
    }

    quint32 sales = 0;
    quint32 anna = 0;
    quint32 bert = 0;
    quint32 carl = 0;
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
    Grab(*frame, u"frame-smoke"_s);
}
