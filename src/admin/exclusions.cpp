#include "admin/exclusions.h"

#include "actions/action_run.h"
#include "config/key_values.h"
#include "db/query.h"

#include <QCoreApplication>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(Exclusions)
};

constexpr int kMaxOldExclusions = 100;

QString RemovalQuestion(const QString &dotted)
{
    return Words::
        tr("IP-Address %1 is already in the active database. You can not exclude IP-addresses that "
           "are in the database. Unless you remove this user Tollbrook will not be able to process "
           "excluded address. Remove it now?")
            .arg(dotted);
}

void RemoveUsersOf(ActionRun &run, Ipv4 address)
{
    const auto areGone = [address] {
        return UsersOf(address).map([](const std::vector<UserId> &users) { return users.empty(); });
    };
    run.WriteOrLook(areGone, "DELETE FROM users WHERE ip_addr = (?)", DottedText(address));
}

} // namespace

QString TextOf(ExclusionProblem problem)
{
    return problem == ExclusionProblem::Blank
        ? Words::tr("Enter IP address please")
        : Words::tr("This IP address has been already excluded");
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

QList<Ipv4> LoadExclusions(const KeyReader &localIp, qsizetype slotCount)
{
    QList<Ipv4> exclusions;
    for (int i = 0; i < slotCount; ++i) {
        const auto address = localIp.ReadNumber(values::kExclude, i);
        if (!address) {
            break;
        }
        if (*address != 0) {
            exclusions.append(*address);
        }
    }
    return exclusions;
}

Result<std::vector<UserId>> UsersOf(Ipv4 address)
{
    return ReadAll(
        "SELECT user_id FROM users WHERE ip_addr = (?)",
        [](const Row &row) { return row.Id<UserId>(1); },
        DottedText(address));
}

Question QuestionOnUsersOf(Ipv4 address, const std::vector<UserId> &users)
{
    const QString dotted = DottedText(address);
    QString key = u"exclude "_s + dotted;
    for (const UserId user : users) {
        key += u' ' + QString::number(user.value);
    }
    return {key, RemovalQuestion(dotted), true};
}

Result<QStringList> NamesOf(const std::vector<UserId> &users)
{
    QStringList names;
    for (const UserId user : users) {
        const auto name = ReadOne(
            "SELECT username FROM users WHERE user_id = (?)",
            [](const Row &row) { return row.Text(1); },
            user);
        if (!name) {
            return tl::unexpected(name.error());
        }
        if (*name) {
            names << **name;
        }
    }
    return names;
}

Action ExcludeAddressAction(const QList<Ipv4> &addresses)
{
    return {ActionId::ExcludeAddress, [addresses](ActionRun &run) {
                for (const Ipv4 address : addresses) {
                    RemoveUsersOf(run, address);
                }
            }};
}

void SaveExclusions(KeyEditor &localIp, const QList<Ipv4> &base, const QList<Ipv4> &draft)
{
    bool stands = draft == base;
    for (int i = 0; i < kMaxExclusions; ++i) {
        // The list ends at its first missing number: what lies behind it was none of the list.
        stands = stands && localIp.Has(values::kExclude, i);
        if (!stands) {
            localIp.WriteNumber(values::kExclude, i, draft == base ? 0 : draft.value(i));
        }
    }
}

void ReplaceExclusions(KeyEditor &localIp, const QList<Ipv4> &base, const QList<Ipv4> &draft)
{
    if (draft == base) {
        return;
    }
    for (int i = 0; i < kMaxOldExclusions; ++i) {
        if (!localIp.DeleteNumber(values::kExclude, i)) {
            break;
        }
    }
    const auto count = static_cast<int>(std::min(draft.size(), kMaxWizardExclusions));
    for (int i = 0; i < count; ++i) {
        localIp.WriteNumber(values::kExcludeWizard, i, draft[i]);
    }
}
