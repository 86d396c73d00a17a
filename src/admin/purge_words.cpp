#include "admin/purge_words.h"

#include <QCoreApplication>
#include <QLocale>

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(PurgePeriod)
};

} // namespace

QDate FirstDateKept(const PurgeChoice &choice, QDate today)
{
    return ExistingDate(FirstDayKept(choice, today));
}

QString DayInWords(QDate date)
{
    return QLocale().toString(date, QLocale::LongFormat);
}

QString PurgeInWords(const PurgeChoice &choice, QDate today)
{
    if (choice.keep == PurgeChoice::Keep::Nothing) {
        return choice.deleteUsers ? Words::tr("No record is kept, and no user.")
                                  : Words::tr("No record is kept.");
    }
    const QDate firstKept = FirstDateKept(choice, today);
    const QString first = DayInWords(firstKept);
    if (choice.keep == PurgeChoice::Keep::Custom) {
        return Words::tr("Kept are the days from %1 to %2. All records before and after go.")
            .arg(first, DayInWords(choice.until));
    }
    if (firstKept > today) {
        return Words::tr("Kept is nothing up to today, %1: all records before %2 go.")
            .arg(DayInWords(today), first);
    }
    return Words::tr("Kept are the days from %1 to today, %2. All records before go.")
        .arg(first, DayInWords(today));
}

std::optional<QString> QuestionOnLateDay(const PurgeChoice &choice, QDate today)
{
    if (choice.keep == PurgeChoice::Keep::Nothing || FirstDateKept(choice, today) <= today) {
        return std::nullopt;
    }
    return Words::tr("The period that is kept begins on %1, which is after today. All records up "
                     "to today would go. Continue?")
        .arg(DayInWords(FirstDateKept(choice, today)));
}
