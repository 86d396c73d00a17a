#include "admin/exclusions.h"

#include "base/prompt.h"
#include "config/config_store.h"
#include "db/session.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kMaxOldExclusions = 100;

bool IsUsersAddress(const QString &dotted)
{
    RunQuery("SELECT user_id FROM users WHERE ip_addr = (?)", FetchMode::All, dotted);
    return static_cast<qint32>(queryResult.Integer(1)) > 0;
}

QString RemovalQuestion(const QString &dotted)
{
    return u"IP-Address %1 is already in the active database. You can not exclude IP-addresses that "
           u"are in the database. Unless you remove this user Tollbrook will not be able to process "
           u"excluded address. Remove it now?"_s.arg(dotted);
}

} // namespace

QString TextOf(ExclusionProblem problem)
{
    return problem == ExclusionProblem::Blank ? u"Enter IP address please"_s
                                              : u"This IP address has been already excluded"_s;
}

std::optional<ExclusionProblem> CheckExclusion(const QList<Ipv4> &existing,
                                               std::optional<Ipv4> address)
{
    if (!address || *address == 0) {
        return ExclusionProblem::Blank;
    }
    if (existing.contains(*address)) {
        return ExclusionProblem::AlreadyExcluded;
    }
    return std::nullopt;
}

QList<Ipv4> LoadExclusions(const ConfigStore &store, qsizetype slotCount)
{
    QList<Ipv4> exclusions;
    for (int i = 0; i < slotCount; ++i) {
        const auto address = store.ReadNumber(values::kExclude, i);
        if (!address) {
            break;
        }
        if (*address != 0) {
            exclusions.append(*address);
        }
    }
    return exclusions;
}

void SaveExclusions(const ConfigStore &store,
                    const QList<Ipv4> &exclusions,
                    Prompt &prompt,
                    const std::function<void()> &usersChanged)
{
    for (int i = 0; i < kMaxExclusions; ++i) {
        const Ipv4 address = exclusions.value(i);
        const QString dotted = DottedText(address);
        if (address != 0 && IsUsersAddress(dotted) && prompt.Ask(RemovalQuestion(dotted))) {
            Execute("DELETE FROM users WHERE ip_addr = (?)", dotted);
            usersChanged();
        }
        store.WriteNumber(values::kExclude, i, address);
    }
}

void ReplaceExclusions(KeyEditor &localIp, const QList<Ipv4> &exclusions)
{
    for (int i = 0; i < kMaxOldExclusions; ++i) {
        if (!localIp.DeleteNumber(values::kExclude, i)) {
            break;
        }
    }
    const auto count = static_cast<int>(std::min(exclusions.size(), kMaxWizardExclusions));
    for (int i = 0; i < count; ++i) {
        localIp.WriteNumber(values::kExcludeWizard, i, exclusions[i]);
    }
}
