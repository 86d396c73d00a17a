#include "reports/wording.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kMostNames = 12;

QString InWords(Day day)
{
    return u"%1-%2-%3"_s.arg(day.year, 4, 10, QChar(u'0'))
        .arg(day.month, 2, 10, QChar(u'0'))
        .arg(day.day, 2, 10, QChar(u'0'));
}

QString NamesInWords(const QString &kind, const QStringList &names)
{
    const QString all = kind + u' ' + names.mid(0, kMostNames).join(u", "_s);
    return names.size() > kMostNames ? all + u" and %1 more"_s.arg(names.size() - kMostNames) : all;
}

} // namespace

QString PeriodInWords(const ReportPeriod &period)
{
    if (period.choice == PeriodChoice::All) {
        return u"all available"_s;
    }
    const QString last = InWords(period.to);
    return period.from == period.to ? last : InWords(period.from) + u" to " + last;
}

QString FilterInWords(const QStringList &users, const QStringList &groups)
{
    QStringList parts;
    if (!users.isEmpty()) {
        parts += NamesInWords(u"users"_s, users);
    }
    if (!groups.isEmpty()) {
        parts += NamesInWords(u"groups"_s, groups);
    }
    return parts.isEmpty() ? u"all users and groups"_s : parts.join(u"; "_s);
}
