#include "reports/pdf_outline.h"

#include "reports/piece_writer.h"

#include <algorithm>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kSlack = qsizetype(256) * 1024; // that is kept beyond before it goes at once

// What must be known of the file: the numbers of its objects.
struct PdfEnd
{
    int size = 0; // the first number that is free
    int info = 0;
    int catalog = 0;
    int pageRoot = 0;
    std::vector<int> pages;
    qint64 crossReferences = 0; // where their table begins
};

int NumberBehind(const QByteArray &text, const char *key)
{
    const auto place = text.lastIndexOf(key);
    return place < 0 ? 0 : text.mid(place + qstrlen(key)).simplified().split(' ').first().toInt();
}

bool ReadEnd(const QByteArray &tail, PdfEnd &end)
{
    end.size = NumberBehind(tail, "/Size ");
    end.info = NumberBehind(tail, "/Info ");
    end.catalog = NumberBehind(tail, "/Root ");
    const auto start = tail.lastIndexOf("startxref\n");
    end.crossReferences =
        start < 0 ? 0 : tail.mid(start + 10).split('\n').first().trimmed().toLongLong();
    const auto root = tail.lastIndexOf("/Type /Pages");
    const auto from = tail.indexOf('[', root);
    const auto to = tail.indexOf(']', root);
    const auto header = tail.lastIndexOf(" 0 obj", root);
    if (root < 0 || from < 0 || to < from || header < 0) {
        return false;
    }
    const auto line = tail.lastIndexOf('\n', header) + 1;
    end.pageRoot = tail.mid(line, header - line).toInt();
    // "6 0 R 13 0 R"; of thousands of pages no copy is made.
    const char *at = tail.constData() + from + 1;
    const char *const last = tail.constData() + to;
    while (at < last) {
        char *behind = nullptr;
        const long number = std::strtol(at, &behind, 10);
        const char *const reference = std::find(at, last, 'R');
        if (behind == at || reference == last) {
            break;
        }
        end.pages.push_back(static_cast<int>(number));
        at = reference + 1;
    }
    return end.size > 0 && end.catalog > 0 && end.pageRoot > 0 && end.crossReferences > 0
        && !end.pages.empty();
}

// A text in any script, written as the digits of its UTF-16.
QString PdfText(const QString &text)
{
    QString digits = u"<FEFF"_s;
    for (const QChar letter : text) {
        digits += QString::number(letter.unicode(), 16).rightJustified(4, u'0').toUpper();
    }
    return digits + u'>';
}

class Appendix
{
public:
    Appendix(QIODevice &device, qint64 position, const PdfEnd &ofFile)
        : out(device)
        , at(position)
        , end(ofFile)
    { }

    [[nodiscard]] bool Write(const std::vector<PdfBookmark> &bookmarks, const QString &language)
    {
        const QString outlines = bookmarks.empty()
            ? QString()
            : u"/Outlines %1 0 R\n/PageMode /UseOutlines\n"_s.arg(end.size);
        const qint64 catalog = at;
        WriteObject(end.catalog,
                    u"/Type /Catalog\n/Pages %1 0 R\n/Lang (%2)\n"
                    "/ViewerPreferences << /DisplayDocTitle true >>\n"_s.arg(end.pageRoot)
                            .arg(language)
                        + outlines);
        if (!bookmarks.empty()) {
            WriteBookmarks(bookmarks);
        }
        WriteTrailer(catalog);
        return out.Flush();
    }

private:
    void Put(const QString &text)
    {
        at += text.size(); // all of it is ASCII
        out.Write(text);
    }

    void WriteObject(int number, const QString &entries)
    {
        Put(u"%1 0 obj\n<<\n"_s.arg(number) + entries + u">>\nendobj\n");
    }

    void WriteBookmarks(const std::vector<PdfBookmark> &bookmarks)
    {
        const int root = end.size;
        const int count = static_cast<int>(bookmarks.size());
        starts.push_back(at);
        WriteObject(root,
                    u"/Type /Outlines\n/First %1 0 R\n/Last %2 0 R\n/Count %3\n"_s.arg(root + 1)
                        .arg(root + count)
                        .arg(count));
        for (int place = 0; place < count; ++place) {
            const PdfBookmark &bookmark = bookmarks[static_cast<size_t>(place)];
            const int number = root + 1 + place;
            QString entries = u"/Title "_s + PdfText(bookmark.title)
                + u"\n/Parent %1 0 R\n/Dest [%2 0 R /XYZ 0 %3 0]\n"_s.arg(root)
                      .arg(end.pages.at(static_cast<size_t>(bookmark.page)))
                      .arg(bookmark.top, 0, 'f', 1);
            entries += place > 0 ? u"/Prev %1 0 R\n"_s.arg(number - 1) : QString();
            entries += place + 1 < count ? u"/Next %1 0 R\n"_s.arg(number + 1) : QString();
            starts.push_back(at);
            WriteObject(number, entries);
        }
    }

    void WriteTrailer(qint64 catalog)
    {
        const qint64 table = at;
        Put(u"xref\n%1 1\n"_s.arg(end.catalog) + Entry(catalog));
        if (!starts.empty()) {
            Put(u"%1 %2\n"_s.arg(end.size).arg(starts.size()));
            for (const qint64 start : starts) {
                Put(Entry(start));
            }
        }
        Put(u"trailer\n<<\n/Size %1\n/Info %2 0 R\n/Root %3 0 R\n/Prev %4\n>>\nstartxref\n%5\n%%EOF\n"_s
                .arg(end.size + static_cast<int>(starts.size()))
                .arg(end.info)
                .arg(end.catalog)
                .arg(end.crossReferences)
                .arg(table));
    }

    [[nodiscard]] static QString Entry(qint64 start)
    {
        return u"%1 00000 n \n"_s.arg(start, 10, 10, QChar(u'0'));
    }

    PieceWriter out;
    qint64 at;
    const PdfEnd &end;
    std::vector<qint64> starts; // of the new objects
};

} // namespace

TailKeeper::TailKeeper(QIODevice &toTarget, qsizetype bytes) : target(toTarget), kept(bytes)
{
    tail.reserve(kept + 2 * kSlack);
    open(QIODevice::WriteOnly | QIODevice::Unbuffered);
}

qint64 TailKeeper::writeData(const char *bytes, qint64 count)
{
    if (failed) {
        return -1; // the target would forget the reason
    }
    const qint64 done = target.write(bytes, count);
    failed = done != count;
    if (done > 0) {
        written += done;
        tail.append(bytes, done);
        if (tail.size() > kept + kSlack) {
            tail.remove(0, tail.size() - kept);
        }
    } else {
        setErrorString(target.errorString());
    }
    return done;
}

qsizetype PdfTailBytes(int pages)
{
    constexpr qsizetype kOfPage = 140; // its place among the pages, and those of its objects
    constexpr qsizetype kOthers = qsizetype(64) * 1024;
    return pages * kOfPage + kOthers;
}

bool AppendToPdf(TailKeeper &written,
                 const std::vector<PdfBookmark> &bookmarks,
                 const QString &language)
{
    PdfEnd end;
    if (written.HasFailed()) {
        return false; // the toolkit does not tell
    }
    const bool isKnown = ReadEnd(written.Tail(), end)
        && std::ranges::all_of(bookmarks, [&](const PdfBookmark &bookmark) {
                             return static_cast<size_t>(bookmark.page) < end.pages.size();
                         });
    return !isKnown || Appendix(written, written.Written(), end).Write(bookmarks, language);
}
