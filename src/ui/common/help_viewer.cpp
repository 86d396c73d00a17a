#include "ui/common/help_viewer.h"

#include "ui/common/accessible.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextTable>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int kFittingDelay = 50; // milliseconds

// How a heading is written in a link to it: small letters, words joined with "-".
QString FragmentOf(const QString &heading)
{
    static const QRegularExpression notInLinks(u"[^a-z0-9 -]"_s);
    return heading.toLower().remove(notInLinks).replace(u' ', u'-');
}

bool Holds(const QUrl &page, const QString &text)
{
    QFile file(page.toLocalFile());
    QTextDocument document;
    if (file.open(QIODevice::ReadOnly)) {
        document.setMarkdown(QString::fromUtf8(file.readAll()));
    }
    return !document.find(text).isNull();
}

// Text tables come with every line drawn twice and none of the text's own spacing.
void GiveRoom(QTextTable &table)
{
    QTextTableFormat format = table.format();
    format.setBorder(0);
    format.setCellSpacing(0);
    format.setCellPadding(4);
    format.setTopMargin(8);
    format.setBottomMargin(8);
    table.setFormat(format);
}

// The guide's other pages in the order of their names, from the one behind this.
QList<QUrl> PagesBehind(const QUrl &page)
{
    const QFileInfo here(page.toLocalFile());
    QStringList names =
        here.dir().entryList({u"user-guide.md"_s, u"guide-*.md"_s}, QDir::Files, QDir::Name);
    const auto place = names.indexOf(here.fileName());
    names = names.mid(place + 1) + names.first(std::max<qsizetype>(place, 0));
    QList<QUrl> pages;
    for (const QString &name : std::as_const(names)) {
        pages << QUrl::fromLocalFile(here.dir().filePath(name));
    }
    return pages;
}

} // namespace

HelpViewer::HelpViewer(const QString &file, QWidget *parent) : QTextBrowser(parent)
{
    SetNames(*this, u"helpViewer"_s, tr("User guide"));
    setOpenLinks(false);
    fitting.setSingleShot(true);
    fitting.setInterval(kFittingDelay);
    connect(&fitting, &QTimer::timeout, this, &HelpViewer::FitPictures);
    connect(this, &QTextBrowser::anchorClicked, this, &HelpViewer::Follow);
    ShowPage(QUrl::fromLocalFile(file));
}

void HelpViewer::ShowPage(const QUrl &page)
{
    pictures.clear();
    setSource(page, QTextDocument::MarkdownResource);
    const auto frames = document()->rootFrame()->childFrames();
    for (QTextFrame *frame : frames) {
        if (auto *table = qobject_cast<QTextTable *>(frame)) {
            GiveRoom(*table);
        }
    }
}

void HelpViewer::ShowHeading(const QString &fragment)
{
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        if (block.blockFormat().headingLevel() > 0 && FragmentOf(block.text()) == fragment) {
            // From the end, so that the heading comes to stand at the top.
            moveCursor(QTextCursor::End);
            setTextCursor(QTextCursor(block));
            return;
        }
    }
}

HelpViewer::Place HelpViewer::Here() const
{
    return {source(), verticalScrollBar()->value()};
}

void HelpViewer::Return(const Place &place)
{
    if (place.page != source()) {
        ShowPage(place.page);
    }
    verticalScrollBar()->setValue(place.scrolled);
    emit HistoryChanged();
}

void HelpViewer::GoBack()
{
    if (CanGoBack()) {
        ahead.push_back(Here());
        const Place place = behind.back();
        behind.pop_back();
        Return(place);
    }
}

void HelpViewer::GoForward()
{
    if (CanGoForward()) {
        behind.push_back(Here());
        const Place place = ahead.back();
        ahead.pop_back();
        Return(place);
    }
}

bool HelpViewer::FindNext(const QString &text)
{
    if (text.isEmpty() || find(text)) {
        return !text.isEmpty();
    }
    for (const QUrl &page : PagesBehind(source())) {
        if (Holds(page, text)) {
            Follow(page);
            return find(text);
        }
    }
    moveCursor(QTextCursor::Start);
    return find(text);
}

QVariant HelpViewer::loadResource(int type, const QUrl &name)
{
    if (type != QTextDocument::ImageResource) {
        return QTextBrowser::loadResource(type, name);
    }
    const QString file = QFileInfo(name.path()).fileName();
    QPixmap &picture = pictures[name];
    if (picture.isNull()) {
        picture = file.endsWith(u".svg") ? QPixmap(u":/icons/"_s + file)
                                         : QPixmap(source().resolved(name).toLocalFile());
    }
    return Fitting(picture);
}

// A picture is not wider than the page: nobody reads by scrolling sideways.
QPixmap HelpViewer::Fitting(const QPixmap &picture) const
{
    const int width = viewport()->width() - qRound(4 * document()->documentMargin());
    return picture.width() > width && width > 0
        ? picture.scaledToWidth(width, Qt::SmoothTransformation)
        : picture;
}

void HelpViewer::FitPictures()
{
    for (auto [name, picture] : pictures.asKeyValueRange()) {
        document()->addResource(QTextDocument::ImageResource, name, Fitting(picture));
    }
    document()->markContentsDirty(0, document()->characterCount());
}

void HelpViewer::resizeEvent(QResizeEvent *event)
{
    QTextBrowser::resizeEvent(event);
    fitting.start();
}

void HelpViewer::Follow(const QUrl &link)
{
    const QUrl target = source().resolved(link);
    if (target.scheme() != u"file"_s) {
        QDesktopServices::openUrl(target);
        return;
    }
    behind.push_back(Here());
    ahead.clear();
    if (target.path() != source().path()) {
        ShowPage(target.adjusted(QUrl::RemoveFragment));
    }
    ShowHeading(target.fragment());
    emit HistoryChanged();
}
