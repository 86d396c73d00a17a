#include "demo/made_up_gateway.h"

#include "metering/bytes.h"

#include <QRandomGenerator>

using namespace Qt::StringLiterals;

MadeUpGateway::MadeUpGateway() : generation(QRandomGenerator::global()->generate64()) { }

void MadeUpGateway::Add(UserId user, const Activity &activity)
{
    AddressCounters &ofUser = counters[user];
    ofUser.address = NetAddress::FromIpv4(user.value); // each another, which is enough here
    ofUser.owner = user;
    ofUser.received += BytesOf(activity.received);
    ofUser.sent += BytesOf(activity.sent);
    seconds[user] += activity.hours.value * 3600;
}

Count MadeUpGateway::At(const QDateTime &moment) const
{
    Count count {u"made up"_s, generation, moment, {}, {}, {}, {}};
    for (auto each = seconds.begin(); each != seconds.end(); ++each) {
        count.counters.push_back(counters.value(each.key()));
        count.online.push_back({each.key(), each.value()});
    }
    return count;
}

void MadeUpGateway::TakeWritten()
{
    seconds.clear();
}
