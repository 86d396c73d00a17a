#include "reports/report_status.h"

#include <QCoreApplication>
#include <QTextStream>

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(ReportStatus)
};

} // namespace

QString InWords(ReportStatus status)
{
    switch (status) {
    case ReportStatus::Done:
        return Words::tr("done");
    case ReportStatus::Empty:
        return Words::tr("nothing to report");
    case ReportStatus::BadArguments:
        return Words::tr("what is saved cannot be made");
    case ReportStatus::Database:
        return Words::tr("the database could not be read");
    case ReportStatus::LayoutFile:
        return Words::tr("the layout file is not in order");
    case ReportStatus::Output:
        return Words::tr("the file could not be written");
    case ReportStatus::Mail:
        return Words::tr("the mail was not sent");
    case ReportStatus::Timer:
        return Words::tr("the timer could not be set up");
    }
    return Words::tr("the program ended before its time");
}

int Fail(ReportStatus status, const QString &text)
{
    QTextStream(stderr) << "tollbrook-report: " << text << Qt::endl;
    return static_cast<int>(status);
}
