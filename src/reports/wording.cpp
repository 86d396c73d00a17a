#include "reports/wording.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kMostNames = 12;

QString InWords(Day day)
{
    return u"%1-%2-%3"_s.arg(day.year, 4, 10, QChar(u'0'))
        .arg(day.month, 2, 10, QChar(u'0'))
        .arg(day.day, 2, 10, QChar(u'0'));
}

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(ReportHeading)
};

QString Listed(const QStringList &names)
{
    const QString first = names.mid(0, kMostNames).join(u", "_s);
    return names.size() > kMostNames
        ? Words::tr("%1 and %2 more").arg(first, QString::number(names.size() - kMostNames))
        : first;
}

} // namespace

QString PeriodInWords(const ReportPeriod &period)
{
    if (period.choice == PeriodChoice::All) {
        return Words::tr("all available");
    }
    const QString last = InWords(period.to);
    return period.from == period.to ? last : Words::tr("%1 to %2").arg(InWords(period.from), last);
}

QString FilterInWords(const QStringList &users, const QStringList &groups)
{
    QStringList parts;
    if (!users.isEmpty()) {
        parts += Words::tr("users %1").arg(Listed(users));
    }
    if (!groups.isEmpty()) {
        parts += Words::tr("groups %1").arg(Listed(groups));
    }
    return parts.isEmpty() ? Words::tr("all users and groups") : parts.join(u"; "_s);
}

QString LanguageOfTexts()
{
    //: The two letters that stand for the language of these texts
    return Words::tr("en");
}
