#include "daemon/kernel_surroundings.h"

#include "admin/adapters.h"

#include <algorithm>

using namespace Qt::StringLiterals;

QStringList LanInterfaces(const QString &adapter, QString &fault)
{
    if (adapter.isEmpty()) {
        return {};
    }
    const QList<Adapter> adapters = SystemAdapters();
    if (const Adapter *found = FindAdapter(adapters, adapter)) {
        return {found->name};
    }
    if (std::ranges::find(adapters, adapter, &Adapter::name) == adapters.end()) {
        fault =
            u"This machine has no adapter \"%1\": workstations are looked for behind all of them."_s
                .arg(adapter);
        return {};
    }
    return {adapter};
}

CompanionAddresses CompanionsIn(const std::vector<AddressPair> &pairs,
                                Identification identification)
{
    CompanionAddresses companions;
    for (const AddressPair &pair : pairs) {
        if (!pair.address.IsIpv4() || identification == Identification::ByMac) {
            companions[pair.hardware].push_back(pair.address);
        }
    }
    return companions;
}

QList<UserRate>
RatesBetween(const UserTotals &before, const UserTotals &now, std::chrono::duration<double> time)
{
    QList<UserRate> rates;
    if (time.count() <= 0) {
        return rates;
    }
    const auto rate = [&time](quint64 from, quint64 to) {
        return to <= from ? 0
                          : static_cast<qulonglong>(static_cast<double>(to - from) / time.count());
    };
    for (const auto &[userId, total] : now.asKeyValueRange()) {
        const auto [received, sent] = before.value(userId);
        const UserRate each {userId.value, rate(received, total.first), rate(sent, total.second)};
        if (before.contains(userId) && (each.received > 0 || each.sent > 0)) {
            rates << each;
        }
    }
    std::ranges::sort(rates, {}, &UserRate::userId);
    return rates;
}

QString ReasonWords(const Standing &standing, bool timeEnded, bool noticed)
{
    const QString whose = standing.whyOfGroup ? u" (the group)"_s : QString();
    if (noticed) {
        return u"blocked by the administrator"_s;
    }
    if (timeEnded) {
        return u"time used up"_s;
    }
    switch (standing.why) {
    case FactKind::AdministratorBlock:
        return u"blocked by the administrator"_s + whose;
    case FactKind::ServiceBlock:
    case FactKind::GroupBlock:
        return u"blocked"_s + whose;
    case FactKind::TrafficLimit:
        return u"traffic used up"_s + whose;
    case FactKind::TimeLimit:
        return u"time used up"_s + whose;
    case FactKind::PrePaid:
        return u"no credit left"_s + whose;
    case FactKind::TimesOfWeek:
        return u"outside the allowed time"_s + whose;
    case FactKind::Login:
        return u"not logged in"_s;
    case FactKind::Unmonitored:
    case FactKind::ShownAsAllowed:
    case FactKind::Protocols:
    case FactKind::NothingWrong:
        break;
    }
    return u"refused"_s;
}
