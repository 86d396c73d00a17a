#include "reports/report_schedule.h"

#include <QCoreApplication>
#include <QLocale>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(ReportSchedule)
};

// As the service manager writes any text as a part of a unit's name.
QString Escaped(const QString &text)
{
    QString escaped;
    for (const char byte : text.toUtf8()) {
        const bool isPlain = (byte >= '0' && byte <= '9') || (byte >= 'a' && byte <= 'z')
            || (byte >= 'A' && byte <= 'Z') || byte == '_' || (byte == '.' && !escaped.isEmpty());
        escaped += isPlain ? QString(QLatin1Char(byte))
                           : u"\\x%1"_s.arg(static_cast<unsigned char>(byte), 2, 16, QChar(u'0'));
    }
    return escaped;
}

QString UnitName(const QString &reportName)
{
    return u"tollbrook-report@"_s + Escaped(reportName);
}

} // namespace

QString TimeText(QTime time)
{
    return time.toString(time.second() == 0 ? u"HH:mm"_s : u"HH:mm:ss"_s);
}

QString CalendarText(const ReportSchedule &schedule)
{
    const QString time = schedule.at.toString(u"HH:mm:ss"_s);
    switch (schedule.every) {
    case ReportSchedule::Every::Never:
        return {};
    case ReportSchedule::Every::Day:
        return u"*-*-* "_s + time;
    case ReportSchedule::Every::Week:
        return QLocale::c().dayName(schedule.day, QLocale::ShortFormat) + u" *-*-* " + time;
    case ReportSchedule::Every::Month:
        return u"*-*-%1 %2"_s.arg(schedule.day, 2, 10, QChar(u'0')).arg(time);
    }
    return {};
}

QString InWords(const ReportSchedule &schedule)
{
    const QString time = TimeText(schedule.at);
    switch (schedule.every) {
    case ReportSchedule::Every::Never:
        return Words::tr("not scheduled");
    case ReportSchedule::Every::Day:
        return Words::tr("each day at %1").arg(time);
    case ReportSchedule::Every::Week:
        return Words::tr("each %1 at %2").arg(QLocale().dayName(schedule.day), time);
    case ReportSchedule::Every::Month:
        return Words::tr("on day %1 of each month at %2").arg(QString::number(schedule.day), time);
    }
    return {};
}

QString TimerUnit(const QString &reportName)
{
    return UnitName(reportName) + u".timer";
}

QString ServiceUnit(const QString &reportName)
{
    return UnitName(reportName) + u".service";
}

QString TimerText(const QString &reportName, const ReportSchedule &schedule)
{
    return u"# Made by \"tollbrook-report --schedule\", which makes it anew at each change.\n"
           "[Unit]\n"
           "Description=Time of the Tollbrook report \"%1\"\n"
           "\n"
           "[Timer]\n"
           "OnCalendar=%2\n"
           "Persistent=true\n"
           "\n"
           "[Install]\n"
           "WantedBy=timers.target\n"_s.arg(reportName, CalendarText(schedule));
}
