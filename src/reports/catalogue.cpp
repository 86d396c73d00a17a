#include "reports/catalogue.h"

#include <QFileInfo>

using enum ReportCategory;

namespace {

// Kept: rows 9 to 11 are paired with their files and descriptions as they stand, though some titles
// read otherwise.
constexpr std::array<ReportEntry, kReportCount> kRows {{
    {u"Traffic (Summary) ",
     u"This report shows volume of data downloaded and uploaded by the users. You can choose the "
     u"particular user(s) to make report on.",
     u"reports\\trafall.rpt",
     Traffic},
    {u"Top 10 Users (Traffic)",
     u"This report presents in graphical form Top 10 users by amount of data downloaded and uploaded. "
     u"You can choose the particular user(s) to make the report on.",
     u"reports\\trafalltop.rpt",
     Traffic},
    {u"Traffic (Detailed) ",
     u"This report presents user's Internet-activity on a daily basis: MBytes downloaded and uploaded. "
     u"You can set period of time to make report on.",
     u"reports\\traffordays.rpt",
     Traffic},
    {u"Traffic (Chart)",
     u"This report presents user's Internet-activity in chart form (traffic). You can easily see peaks "
     u"of user activity",
     u"reports\\traftopfordays.rpt",
     Traffic},
    {u"Groups Traffic (Summary)",
     u"Report shows volume of data received and sent by groups of users. You can choose the particular "
     u"group(s) to make report on ",
     u"reports\\trafall-groups.rpt",
     Traffic},
    {u"Account Balance (Traffic)",
     u"Report shows users' accounts (in traffic): usage and updates",
     u"reports\\billtraffordays.rpt",
     Billing},
    {u"Time (Summary)",
     u"This report shows summary by users and the time they spent in the Internet",
     u"reports\\timeall.rpt",
     Time},
    {u"Top 10 Users (Time)",
     u"This report presents in graphical form Top 10 users by the time they spent in the Internet. You "
     u"can choose the particular user(s) to make the report on.",
     u"reports\\timealltop.rpt",
     Time},
    {u"Time (Detail)",
     u"This report presents user's Internet-activity on a daily basis: time spent in the Internet. You "
     u"can set period of time to make report on.",
     u"reports\\timefordays.rpt",
     Time},
    {u"Detail Time Top10",
     u"This report presents user's Internet-activity in chart form (Internet time). You can easily see "
     u"peaks of user activity",
     u"reports\\timetopfordays.rpt",
     Time},
    {u"Time (Chart)",
     u"Report shows users' accounts in Provider mode: usage and updates",
     u"reports\\billtimefordays.rpt",
     Billing},
    {u"Provider mode activity",
     u"Report shows Top 10 users' accounts by usage in Provider mode",
     u"reports\\provbill.rpt",
     Billing},
    {u"Top 10 Payers",
     u"Report shows Top 10 users by payment they made for the Internet services",
     u"reports\\provbilltop10.rpt",
     Billing},
    {u"Site Access",
     u"This report presents list of sites, accessed during software's work. Hits shows how many times "
     u"site has been visited",
     u"reports\\webhits.rpt",
     SiteAccess},
    {u"Top 10 Sites",
     u"This report presents top 10 accessed sites",
     u"reports\\webtop.rpt",
     SiteAccess},
    {u"User Site Access",
     u"This report presents user site access. You can customize this report by user or time period.",
     u"reports\\webuser.rpt",
     SiteAccess},
}};

} // namespace

const std::array<ReportEntry, kReportCount> &ReportCatalogue()
{
    return kRows;
}

QString LayoutPath(const QString &installationFolder, int row)
{
    return installationFolder + ReportCatalogue().at(static_cast<size_t>(row)).layoutFile;
}

QString FileNameOf(QString layoutPath)
{
    return layoutPath.replace(u'\\', u'/');
}

int FindReport(const QString &name)
{
    bool isNumber = false;
    const int number = name.toInt(&isNumber);
    if (isNumber) {
        return number >= 0 && number < kReportCount ? number : -1;
    }
    for (int row = 0; row < kReportCount; ++row) {
        const auto &entry = ReportCatalogue().at(static_cast<size_t>(row));
        const QString file = QFileInfo(FileNameOf(entry.layoutFile.toString())).completeBaseName();
        if (entry.title.trimmed().compare(name.trimmed(), Qt::CaseInsensitive) == 0
            || file.compare(name, Qt::CaseInsensitive) == 0) {
            return row;
        }
    }
    return -1;
}
