#include "daemon/self_check.h"

#include "daemon/kernel_surroundings.h"
#include "daemon/round.h"
#include "daemon/service_settings.h"
#include "gateway/kernel_table.h"
#include "startup/start_up.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace {

void CheckSettings(const ReadSettings &read, SelfCheck &check)
{
    check.problems << read.faults << ProblemsOf(read.settings);
    QString fault;
    const QStringList interfaces = LanInterfaces(read.settings.adapter, fault);
    if (!fault.isEmpty()) {
        check.warnings << fault;
    }
    check.good << u"%1 local ranges, %2 exclusions, interfaces: %3"_s
                      .arg(read.settings.local.size())
                      .arg(read.settings.excluded.size())
                      .arg(interfaces.isEmpty() ? u"all"_s : interfaces.join(u", "_s));
}

void CheckKernel(SelfCheck &check)
{
    auto table = KernelTable::Open();
    if (!table) {
        check.problems << table.error().text;
        return;
    }
    const auto standing = (*table)->StandingGeneration();
    if (!standing) {
        check.problems << standing.error().text;
        return;
    }
    check.good << (*standing ? u"the kernel's table stands, and would be taken over"_s
                             : u"the kernel lets the service make its table"_s);
    const auto events = (*table)->TakeEvents();
    if (events && !events->newFlowtables.isEmpty()) {
        check.warnings << u"Packets that take the flowtable %1 are not counted."_s.arg(
            events->newFlowtables.join(u", "_s));
    }
}

void CheckForwarding(SelfCheck &check)
{
    QFile file(u"/proc/sys/net/ipv4/ip_forward"_s);
    const bool forwards = file.open(QIODevice::ReadOnly) && file.readAll().trimmed() == "1";
    if (forwards) {
        check.good << u"the machine forwards packets"_s;
    } else {
        check.warnings << u"This machine forwards no packets: set net.ipv4.ip_forward to 1."_s;
    }
}

void CheckDatabase(const ConfigStore &store, const ServiceSettings &settings, SelfCheck &check)
{
    if (settings.dataSource.isEmpty()) {
        return; // told already
    }
    const StartedProgram program(
        {.configFolder = store.Folder(), .dataSource = settings.dataSource});
    if (const auto problem = SchemaProblem(settings.dataSource)) {
        check.problems << u"The database %1 cannot be used: %2"_s.arg(settings.dataSource,
                                                                      *problem);
        return;
    }
    const auto standings =
        ReadStandings(MomentOf(QDateTime::currentDateTime()), {settings.price}, {});
    if (standings) {
        check.good << u"the database %1 has %2 monitored users"_s.arg(settings.dataSource)
                          .arg(standings->users.size());
    } else {
        check.problems << u"The database %1 cannot be used: %2"_s.arg(settings.dataSource,
                                                                      standings.error().text);
    }
}

} // namespace

SelfCheck CheckSelf(const ConfigStore &store)
{
    SelfCheck check;
    const ReadSettings read = ReadServiceSettings(store, {});
    CheckSettings(read, check);
    CheckKernel(check);
    CheckForwarding(check);
    CheckDatabase(store, read.settings, check);
    return check;
}
