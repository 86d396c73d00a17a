#include "reports/report_subject.h"

#include "reports/wording.h"

ReportSubject
SubjectOf(const ConfigStore &settings, const ReportPeriod &period, const QString &filter)
{
    ReportSubject subject;
    subject.period = PeriodInWords(period);
    if (period.choice != PeriodChoice::All) {
        subject.firstDay = ExistingDate(period.from);
        subject.lastDay = ExistingDate(period.to);
    }
    subject.filter = filter;
    subject.setup = ReadPageSetup(settings);
    subject.currency = CurrentCurrency(settings);
    if (!(subject.currency.rate > 0)) {
        subject.currency = {};
    }
    return subject;
}
