// The user guide in its window: links, the way back, the search and the pictures.
#include "support/windows/keyboard.h"
#include "support/windows/widgets.h"
#include "ui/common/help_viewer.h"
#include "ui/common/help_window.h"

#include <QFile>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTextBlock>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

class Help : public testing::Test
{
protected:
    void SetUp() override
    {
        QImage wide(3000, 200, QImage::Format_RGB32);
        wide.fill(Qt::blue);
        ASSERT_TRUE(wide.save(folder.filePath(u"wide.png"_s)));
        const QByteArray much = QByteArray("text\n\n").repeated(200);
        Write(u"user-guide.md"_s,
              "# Guide\n\n![](wide.png)\n\n[Find](#find-a-user) [Reports](guide-reports.md)\n\n"
                  + much + "## Find a user\n\nType its name. ![](../icons/user.svg)\n\n" + much);
        Write(u"guide-reports.md"_s,
              "# Reports\n\nSixteen of them.\n\n" + much + "Sixteen again.\n");
        Write(u"notes.md"_s, "Nobody reads that a penguin stands here.\n");
        window.emplace(folder.filePath(u"user-guide.md"_s), nullptr);
        window->setAttribute(Qt::WA_DeleteOnClose, false);
        window->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&*window));
    }

    void Write(const QString &name, const QByteArray &text) const
    {
        QFile page(folder.filePath(name));
        ASSERT_TRUE(page.open(QIODevice::WriteOnly));
        page.write(text);
    }

    [[nodiscard]] HelpViewer &Viewer() const { return Find<HelpViewer>(*window, "helpViewer"); }

    [[nodiscard]] QString Page() const { return Viewer().source().fileName(); }

    // What is found behind what was found, or what is told instead.
    QString FindAgain(const QString &text)
    {
        auto &search = Find<QLineEdit>(*window, "search");
        QTest::keyClick(&*window, Qt::Key_F, Qt::ControlModifier);
        EXPECT_TRUE(search.hasFocus());
        search.clear();
        QTest::keyClicks(&search, text);
        QTest::keyClick(&search, Qt::Key_Return);
        const QString told = Find<QLabel>(*window, "outcome").text();
        return told.isEmpty() ? Viewer().textCursor().block().text() : told;
    }

    QTemporaryDir folder;
    std::optional<HelpWindow> window;
};

TEST_F(Help, FollowsLinksAndFindsBack)
{
    HelpViewer &viewer = Viewer();
    auto &back = Find<QToolButton>(*window, "back");
    auto &forward = Find<QToolButton>(*window, "forward");
    EXPECT_TRUE(viewer.toPlainText().startsWith(u"Guide"_s));
    EXPECT_FALSE(back.isEnabled() || forward.isEnabled());
    emit viewer.anchorClicked(QUrl(u"#find-a-user"_s));
    EXPECT_EQ(viewer.textCursor().block().text(), u"Find a user"_s);
    EXPECT_TRUE(viewer.rect().contains(viewer.cursorRect()));
    const int scrolled = viewer.verticalScrollBar()->value();
    EXPECT_GT(scrolled, 0);
    emit viewer.anchorClicked(QUrl(u"guide-reports.md"_s));
    EXPECT_EQ(Page(), u"guide-reports.md"_s);

    Click(*window, "back");
    EXPECT_EQ(Page(), u"user-guide.md"_s);
    EXPECT_EQ(viewer.verticalScrollBar()->value(), scrolled) << "where the reader was";
    QTest::keyClick(&viewer, Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(viewer.verticalScrollBar()->value(), 0);
    EXPECT_FALSE(back.isEnabled());
    QTest::keyClick(&viewer, Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(viewer.verticalScrollBar()->value(), scrolled);
    emit viewer.anchorClicked(QUrl(u"guide-reports.md"_s));
    EXPECT_FALSE(forward.isEnabled()) << "another way was taken";
}

TEST_F(Help, IsReadFromTheTopByKeyboard)
{
    EXPECT_TRUE(Viewer().hasFocus());
    emit Viewer().anchorClicked(QUrl(u"guide-reports.md"_s));
    ExpectWorksByKeyboard(*window);
}

TEST_F(Help, FindsOnEveryPageOfTheGuide)
{
    EXPECT_EQ(FindAgain(u"type its"_s).left(14), u"Type its name."_s);
    EXPECT_EQ(FindAgain(u"sixteen"_s), u"Sixteen of them."_s);
    EXPECT_EQ(Page(), u"guide-reports.md"_s);
    EXPECT_EQ(FindAgain(u"sixteen"_s), u"Sixteen again."_s);
    EXPECT_EQ(FindAgain(u"sixteen"_s), u"Sixteen of them."_s) << "from the first again";
    EXPECT_EQ(FindAgain(u"penguin"_s), u"Not found"_s);
    QTest::keyClick(&*window, Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(Page(), u"user-guide.md"_s);
}

TEST_F(Help, ShowsPicturesNoWiderThanThePage)
{
    for (const int width : {1200, 600, 900}) {
        window->resize(width, 600);
        EXPECT_TRUE(QTest::qWaitFor([this] {
            const QSizeF size = Viewer().document()->size();
            return size.width() <= Viewer().viewport()->width()
                && Viewer().horizontalScrollBar()->maximum() == 0;
        })) << width;
        const auto shown = Viewer()
                               .document()
                               ->resource(QTextDocument::ImageResource, QUrl(u"wide.png"_s))
                               .value<QPixmap>();
        EXPECT_GT(shown.width(), width * 3 / 4) << "as wide as there is room";
    }
}

} // namespace
