// The pages of the user guide: Markdown with pictures, followed by its links.
#pragma once

#include <QHash>
#include <QPixmap>
#include <QTextBrowser>
#include <QTimer>

#include <vector>

class HelpViewer : public QTextBrowser
{
    Q_OBJECT

public:
    // Shows the page of the file, and from then on what its links lead to.
    HelpViewer(const QString &file, QWidget *parent);

    // Scrolls to the heading that a link such as "#find-a-user" means.
    void ShowHeading(const QString &fragment);

    // To where the reader was before the last link, and there again.
    void GoBack();
    void GoForward();
    [[nodiscard]] bool CanGoBack() const { return !behind.empty(); }
    [[nodiscard]] bool CanGoForward() const { return !ahead.empty(); }

    // Selects the next place of the text behind the selection, whatever its case: on this page, then on
    // the others that its folder holds, and again from the first. False when no page has it.
    bool FindNext(const QString &text);

signals:
    void HistoryChanged();

protected:
    // Pictures that an installation does not bring along are among the program's own artwork.
    QVariant loadResource(int type, const QUrl &name) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    // What a reader sees of the guide.
    struct Place
    {
        QUrl page;
        int scrolled = 0;
    };

    [[nodiscard]] Place Here() const;
    void Return(const Place &place);
    void Follow(const QUrl &link);
    void ShowPage(const QUrl &page);
    [[nodiscard]] QPixmap Fitting(const QPixmap &picture) const;
    void FitPictures();

    std::vector<Place> behind;
    std::vector<Place> ahead;
    QHash<QUrl, QPixmap> pictures; // of the page, in their own size
    QTimer fitting; // once the window has come to its new size
};
