// What the toolkit's PDF files lack: bookmarks, the language of the document, and that a reader shows
// its title. Appended to a finished file the way the format has for changes.
#pragma once

#include <QByteArray>
#include <QIODevice>
#include <QString>

#include <vector>

struct PdfBookmark
{
    QString title;
    int page = 0; // from 0
    double top = 0; // points from the page's lower edge
};

// Hands on what is written, and keeps the end of it.
class TailKeeper : public QIODevice
{
public:
    // `bytes` is how much of the end is kept at least.
    TailKeeper(QIODevice &target, qsizetype bytes);

    [[nodiscard]] const QByteArray &Tail() const { return tail; }
    [[nodiscard]] qint64 Written() const { return written; }
    [[nodiscard]] bool HasFailed() const { return failed; } // the target took less than all
    [[nodiscard]] bool isSequential() const override { return true; }

protected:
    qint64 readData(char *, qint64) override { return -1; }
    qint64 writeData(const char *bytes, qint64 count) override;

private:
    QIODevice &target;
    qsizetype kept;
    QByteArray tail;
    qint64 written = 0;
    bool failed = false;
};

// As much of a file of so many pages as AppendToPdf must see.
[[nodiscard]] qsizetype PdfTailBytes(int pages);

// `written` has the whole file behind it. A file that does not end as this toolkit's do stays as it is.
// False when the device fails.
[[nodiscard]] bool AppendToPdf(TailKeeper &written,
                               const std::vector<PdfBookmark> &bookmarks,
                               const QString &language);
