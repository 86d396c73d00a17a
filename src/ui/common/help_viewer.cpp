#include "ui/common/help_viewer.h"

#include "ui/common/accessible.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTextBlock>

using namespace Qt::StringLiterals;

namespace {

// How a heading is written in a link to it: small letters, words joined with "-".
QString FragmentOf(const QString &heading)
{
    static const QRegularExpression notInLinks(u"[^a-z0-9 -]"_s);
    return heading.toLower().remove(notInLinks).replace(u' ', u'-');
}

} // namespace

HelpViewer::HelpViewer(const QString &file, QWidget *parent) : QTextBrowser(parent)
{
    SetNames(*this, u"helpViewer"_s, u"User guide"_s);
    setWindowFlags(Qt::Window);
    setWindowTitle(u"User guide"_s);
    setAttribute(Qt::WA_DeleteOnClose);
    setOpenLinks(false);
    setSource(QUrl::fromLocalFile(file), QTextDocument::MarkdownResource);
    connect(this, &QTextBrowser::anchorClicked, this, &HelpViewer::Follow);
    resize(fontMetrics().averageCharWidth() * 110, fontMetrics().height() * 40);
}

QString HelpViewer::GuideFile()
{
    const QDir programs(QCoreApplication::applicationDirPath());
    for (const auto &place :
         {u"../share/doc/tollbrook-admin/user-guide.md"_s, u"../../../docs/user-guide.md"_s}) {
        if (QFileInfo::exists(programs.filePath(place))) {
            return QDir::cleanPath(programs.filePath(place));
        }
    }
    return {};
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

QVariant HelpViewer::loadResource(int type, const QUrl &name)
{
    const QString file = QFileInfo(name.path()).fileName();
    if (type == QTextDocument::ImageResource && file.endsWith(u".svg")) {
        return QPixmap(u":/icons/"_s + file);
    }
    return QTextBrowser::loadResource(type, name);
}

void HelpViewer::Follow(const QUrl &link)
{
    const QUrl target = source().resolved(link);
    if (target.scheme() != u"file"_s) {
        QDesktopServices::openUrl(target);
        return;
    }
    if (target.path() != source().path()) {
        setSource(target.adjusted(QUrl::RemoveFragment), QTextDocument::MarkdownResource);
    }
    ShowHeading(target.fragment());
}

void OpenHelpTopics(Prompt &prompt, QWidget *parent)
{
    auto *viewer = parent->findChild<HelpViewer *>();
    if (viewer == nullptr) {
        const QString file = HelpViewer::GuideFile();
        if (file.isEmpty()) {
            prompt.Tell(u"The user guide is not installed"_s);
            return;
        }
        viewer = new HelpViewer(file, parent);
    }
    viewer->show();
    viewer->raise();
    viewer->activateWindow();
}
