#include "reports/catalogue.h"

#include <QCoreApplication>
#include <QFileInfo>

using enum ReportCategory;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(ReportCatalogue)
};

// Kept: rows 9 to 11 are paired with their files and descriptions as they stand, though some titles
// read otherwise.
constexpr std::array<ReportEntry, kReportCount> kRows {{
    {QT_TRANSLATE_NOOP("ReportCatalogue", "Traffic (Summary) "),
     QT_TRANSLATE_NOOP(
         "ReportCatalogue",
         "This report shows volume of data downloaded and uploaded by the users. You can choose the "
         "particular user(s) to make report on."),
     u"reports\\trafall.rpt",
     Traffic},
    {QT_TRANSLATE_NOOP("ReportCatalogue", "Top 10 Users (Traffic)"),
     QT_TRANSLATE_NOOP(
         "ReportCatalogue",
         "This report presents in graphical form Top 10 users by amount of data downloaded and uploaded. "
         "You can choose the particular user(s) to make the report on."),
     u"reports\\trafalltop.rpt",
     Traffic},
    {QT_TRANSLATE_NOOP("ReportCatalogue", "Traffic (Detailed) "),
     QT_TRANSLATE_NOOP(
         "ReportCatalogue",
         "This report presents user's Internet-activity on a daily basis: MBytes downloaded and uploaded. "
         "You can set period of time to make report on."),
     u"reports\\traffordays.rpt",
     Traffic},
    {QT_TRANSLATE_NOOP("ReportCatalogue", "Traffic (Chart)"),
     QT_TRANSLATE_NOOP(
         "ReportCatalogue",
         "This report presents user's Internet-activity in chart form (traffic). You can easily see peaks "
         "of user activity"),
     u"reports\\traftopfordays.rpt",
     Traffic},
    {QT_TRANSLATE_NOOP("ReportCatalogue", "Groups Traffic (Summary)"),
     QT_TRANSLATE_NOOP(
         "ReportCatalogue",
         "Report shows volume of data received and sent by groups of users. You can choose the particular "
         "group(s) to make report on "),
     u"reports\\trafall-groups.rpt",
     Traffic},
    {QT_TRANSLATE_NOOP("ReportCatalogue", "Account Balance (Traffic)"),
     QT_TRANSLATE_NOOP("ReportCatalogue",
                       "Report shows users' accounts (in traffic): usage and updates"),
     u"reports\\billtraffordays.rpt",
     Billing},
    {QT_TRANSLATE_NOOP("ReportCatalogue", "Time (Summary)"),
     QT_TRANSLATE_NOOP(
         "ReportCatalogue",
         "This report shows summary by users and the time they spent in the Internet"),
     u"reports\\timeall.rpt",
     Time},
    {QT_TRANSLATE_NOOP("ReportCatalogue", "Top 10 Users (Time)"),
     QT_TRANSLATE_NOOP(
         "ReportCatalogue",
         "This report presents in graphical form Top 10 users by the time they spent in the Internet. You "
         "can choose the particular user(s) to make the report on."),
     u"reports\\timealltop.rpt",
     Time},
    {QT_TRANSLATE_NOOP("ReportCatalogue", "Time (Detail)"),
     QT_TRANSLATE_NOOP(
         "ReportCatalogue",
         "This report presents user's Internet-activity on a daily basis: time spent in the Internet. You "
         "can set period of time to make report on."),
     u"reports\\timefordays.rpt",
     Time},
    {QT_TRANSLATE_NOOP("ReportCatalogue", "Detail Time Top10"),
     QT_TRANSLATE_NOOP(
         "ReportCatalogue",
         "This report presents user's Internet-activity in chart form (Internet time). You can easily see "
         "peaks of user activity"),
     u"reports\\timetopfordays.rpt",
     Time},
    {QT_TRANSLATE_NOOP("ReportCatalogue", "Time (Chart)"),
     QT_TRANSLATE_NOOP("ReportCatalogue",
                       "Report shows users' accounts in Provider mode: usage and updates"),
     u"reports\\billtimefordays.rpt",
     Billing},
    {QT_TRANSLATE_NOOP("ReportCatalogue", "Provider mode activity"),
     QT_TRANSLATE_NOOP("ReportCatalogue",
                       "Report shows Top 10 users' accounts by usage in Provider mode"),
     u"reports\\provbill.rpt",
     Billing},
    {QT_TRANSLATE_NOOP("ReportCatalogue", "Top 10 Payers"),
     QT_TRANSLATE_NOOP("ReportCatalogue",
                       "Report shows Top 10 users by payment they made for the Internet services"),
     u"reports\\provbilltop10.rpt",
     Billing},
    {QT_TRANSLATE_NOOP("ReportCatalogue", "Site Access"),
     QT_TRANSLATE_NOOP(
         "ReportCatalogue",
         "This report presents list of sites, accessed during software's work. Hits shows how many times "
         "site has been visited"),
     u"reports\\webhits.rpt",
     SiteAccess},
    {QT_TRANSLATE_NOOP("ReportCatalogue", "Top 10 Sites"),
     QT_TRANSLATE_NOOP("ReportCatalogue", "This report presents top 10 accessed sites"),
     u"reports\\webtop.rpt",
     SiteAccess},
    {QT_TRANSLATE_NOOP("ReportCatalogue", "User Site Access"),
     QT_TRANSLATE_NOOP(
         "ReportCatalogue",
         "This report presents user site access. You can customize this report by user or time period."),
     u"reports\\webuser.rpt",
     SiteAccess},
}};

constexpr ReportEntry kStatement {
    QT_TRANSLATE_NOOP("ReportCatalogue", "Statement"),
    QT_TRANSLATE_NOOP(
        "ReportCatalogue",
        "A statement for each user, on pages of its own: the account with its balances, what was used of "
        "credits, traffic and time by day. You can choose the user(s), the group(s) and the period."),
    {},
    Billing};

} // namespace

const ReportEntry &EntryOf(int row)
{
    return row == kStatementRow ? kStatement : kRows.at(static_cast<size_t>(row));
}

QString TitleOf(const ReportEntry &entry)
{
    return Words::tr(entry.title);
}

QString DescriptionOf(const ReportEntry &entry)
{
    return Words::tr(entry.description);
}

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

QString ShortNameOf(int row)
{
    return row == kStatementRow
        ? QString::fromUtf8(kStatement.title).toLower()
        : QFileInfo(FileNameOf(EntryOf(row).layoutFile.toString())).completeBaseName();
}

int FindReport(const QString &name)
{
    bool isNumber = false;
    const int number = name.toInt(&isNumber);
    if (isNumber) {
        return number >= 0 && number < kListedCount ? number : -1;
    }
    const auto isSame = [](const QString &one, const QString &other) {
        return one.compare(other, Qt::CaseInsensitive) == 0;
    };
    const QString wanted = name.trimmed();
    for (int row = 0; row < kListedCount && !wanted.isEmpty(); ++row) {
        const auto &entry = EntryOf(row);
        const QString path = FileNameOf(entry.layoutFile.toString());
        const QFileInfo file(path);
        if (isSame(wanted, QString::fromUtf8(entry.title).trimmed())
            || isSame(FileNameOf(wanted), path) || isSame(wanted, file.fileName())
            || isSame(wanted, file.completeBaseName())) {
            return row;
        }
    }
    return -1;
}
