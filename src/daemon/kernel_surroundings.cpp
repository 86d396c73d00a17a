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
