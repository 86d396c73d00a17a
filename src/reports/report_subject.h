// What a report is on, beside its query, and whose it is.
#pragma once

#include "accounts/currency.h"
#include "reports/page_setup.h"
#include "reports/selection.h"

#include <QDate>

struct ReportSubject
{
    QString period; // in words, for the heading
    QDate firstDay; // of the period, which a chart shows whole; invalid for all that there is
    QDate lastDay;
    QString filter; // in words; empty for none
    PageSetup setup;
    Currency currency; // that money is shown in; without a name: in base units, as the layout says
};

// `filter` in words. A rate that is no rate is not applied: money is then in base units.
[[nodiscard]] ReportSubject
SubjectOf(const ConfigStore &settings, const ReportPeriod &period, const QString &filter);
