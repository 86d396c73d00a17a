#include "reports/readable_names.h"

#include <QHash>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

QSet<QString> Named(const QString &names)
{
    const QStringList list = names.split(u' ');
    return {list.begin(), list.end()};
}

const QHash<QString, QSet<QString>> &Tables()
{
    static const QHash<QString, QSet<QString>> kTables {
        {u"users"_s,
         Named(
             u"user_id username stationname fullname descrip ip_addr mac_addr group_id mode traflim "
             "timelim trafperiod timeperiod trafprice own_price blocked blockreason authreq monitored "
             "portaccess timeaccess timeblocked virtual"_s)},
        {u"groups"_s,
         Named(
             u"group_id name descrip mode traflim trafperiod trafprice own_price blocked blockreason "
             "portaccess timeaccess credit creditvalue"_s)},
        {u"traffic_use"_s,
         Named(u"traf_id user_id group_id period current_time data senddata blocked"_s)},
        {u"time_use"_s, Named(u"time_id user_id period current_time data blocked"_s)},
        {u"billing"_s,
         Named(
             u"bill_id mode object_id group_id trafid time_id date data usage moneydata moneyusage "
             "currencydata unlimited expiredday closed"_s)},
        {u"credit_use"_s, Named(u"bill_id day data money price"_s)},
        {u"time_blocked"_s, Named(u"tb_id user_id group_id dayofweek timestart timestop"_s)},
        {u"protocols"_s, Named(u"id proto_name mon"_s)},
        {u"ports"_s, Named(u"port_id proto_id port_number"_s)},
        {u"port_blocked"_s, Named(u"pb_id user_id group_id port_id"_s)},
        {u"sites"_s, Named(u"site_id sitename site_ip"_s)},
        {u"siteaccess"_s, Named(u"access_id user_id site_id access_time"_s)},
    };
    return kTables;
}

} // namespace

const QSet<QString> *ReadableColumns(const QString &tableInLowerCase)
{
    const auto found = Tables().constFind(tableInLowerCase);
    return found == Tables().constEnd() ? nullptr : &*found;
}

bool IsReadingFunction(const QString &nameInLowerCase)
{
    static const QSet<QString> kFunctions = Named(
        u"abs avg coalesce concat count ifnull length lower max min nullif replace round substr "
        "substring sum trim upper"_s);
    return kFunctions.contains(nameInLowerCase);
}
