#include "reports/xlsx_text.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(ReportSheet)
};

constexpr qsizetype kCellCharacters = 32'767; // the format's own limit
constexpr qsizetype kNameCharacters = 31; // likewise

// What stands for a control character, as _x0041_ does for A. The library writes them so by itself, and
// takes no look at a text that looks so already.
bool LooksEncoded(QStringView text)
{
    static const QRegularExpression kShape(u"^_x[0-9A-Fa-f]{4}_"_s);
    return text.startsWith(u"_x"_s) && kShape.match(text.left(7).toString()).hasMatch();
}

// Most texts are: a report may write a million of them.
bool IsPlain(const QString &text)
{
    return text.size() <= kCellCharacters && !text.contains(u"_x"_s)
        && std::ranges::all_of(text, [](QChar c) {
               return !c.isSurrogate() && !c.isNull() && c.unicode() < 0xfffe;
           });
}

QString CutTo(const QString &text, qsizetype most)
{
    const bool splits = text.size() > most && text[most - 1].isHighSurrogate();
    return text.left(splits ? most - 1 : most);
}

} // namespace

QByteArray SheetText(const QString &text)
{
    if (IsPlain(text)) {
        return text.toUtf8();
    }
    QString written;
    for (qsizetype at = 0; at < text.size(); ++at) {
        QString next(text[at]);
        if (text[at].isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate()) {
            next += text[++at];
        } else if (text[at].isSurrogate() || text[at].isNull() || text[at].unicode() >= 0xfffe) {
            next = QChar(QChar::ReplacementCharacter);
        } else if (text[at] == u'_' && LooksEncoded(QStringView(text).mid(at))) {
            next = u"_x005F_"_s;
        }
        if (written.size() + next.size() > kCellCharacters) {
            break;
        }
        written += next;
    }
    return written.toUtf8();
}

QByteArray SheetName(const QString &title, int number)
{
    static const QRegularExpression kRefused(u"[\\[\\]:*?/\\\\]"_s);
    QString name = QString::fromUtf8(SheetText(title)).replace(kRefused, u"-"_s).simplified();
    while (name.startsWith(u'\'')) {
        name.remove(0, 1);
    }
    const QString suffix = number > 1 ? u" (%1)"_s.arg(number) : QString();
    name = CutTo(name, kNameCharacters - suffix.size());
    while (name.endsWith(u'\'')) {
        name.chop(1);
    }
    const bool isReserved = name.compare(u"History"_s, Qt::CaseInsensitive) == 0;
    return ((name.isEmpty() || isReserved ? Words::tr("Report") : name) + suffix).toUtf8();
}

std::optional<double> SheetMoment(const QString &text)
{
    constexpr int kDaySeconds = 86'400;
    const QDate first(1900, 3, 1);
    const QDate zero(1899, 12, 30);
    const bool isTimed = text.size() > 10;
    const QDate day = QDate::fromString(text.left(10), Qt::ISODate);
    const QTime time = isTimed ? QTime::fromString(text.sliced(11), u"HH:mm:ss"_s) : QTime(0, 0);
    if (!day.isValid() || !time.isValid() || day < first) {
        return std::nullopt;
    }
    return static_cast<double>(zero.daysTo(day))
        + static_cast<double>(QTime(0, 0).secsTo(time)) / kDaySeconds;
}
