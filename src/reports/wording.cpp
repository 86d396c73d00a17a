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

QString PeriodRuleInWords(const QString &name)
{
    const auto period = PeriodNamed(name, Today());
    switch (period.value_or(ReportPeriod {PeriodChoice::Custom, {}, {}}).choice) {
    case PeriodChoice::All:
        return Words::tr("all available");
    case PeriodChoice::Today:
        return Words::tr("the day of the run");
    case PeriodChoice::LastWeek:
        return Words::tr("last week");
    case PeriodChoice::LastMonth:
        return Words::tr("last month");
    case PeriodChoice::PreviousMonth:
        return Words::tr("previous calendar month");
    case PeriodChoice::ThisYear:
        return Words::tr("this year");
    case PeriodChoice::Custom:
        break;
    }
    return period ? PeriodInWords(*period) : name;
}

QString FilterInWords(const FilterScope &users, const FilterScope &groups)
{
    QStringList parts;
    if (!users.names.isEmpty()) {
        const QString whom = Listed(users.names);
        parts += users.effect == FilterEffect::AllBut ? Words::tr("all users but %1").arg(whom)
                                                      : Words::tr("users %1").arg(whom);
    }
    if (!groups.names.isEmpty()) {
        const QString which = Listed(groups.names);
        parts += groups.effect == FilterEffect::AllBut ? Words::tr("all groups but %1").arg(which)
                                                       : Words::tr("groups %1").arg(which);
    }
    return parts.isEmpty() ? Words::tr("all users and groups") : parts.join(u"; "_s);
}

QString UserFilterWarning(FilterEffect effect)
{
    return effect == FilterEffect::AllBut ? Words::tr(
               "The report will be on all users but those on the right, also on users that are "
               "not monitored.")
                                          : QString();
}

QString GroupFilterWarning(FilterEffect effect)
{
    switch (effect) {
    case FilterEffect::AllBut:
        return Words::tr(
            "The report will be on all users but those of the group on the right, also "
            "on users without a group.");
    case FilterEffect::Everybody:
        return Words::tr(
            "Leaving out several groups leaves out none: the report will be on everybody.");
    default:
        return {};
    }
}

QString LanguageOfTexts()
{
    //: The two letters that stand for the language of these texts
    return Words::tr("en");
}
