#include "exchange/import_action.h"

#include "access/blocking.h"
#include "access/group_name.h"
#include "access/list_commands.h"
#include "access/present_users.h"
#include "access/user_apply.h"
#include "accounts/credit.h"
#include "actions/action_run.h"
#include "admin/login_rows.h"
#include "base/text.h"
#include "db/query.h"
#include "exchange/user_writer.h"

#include <QCoreApplication>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(Import)
};

using Rows = std::vector<ImportRow>;

// Whether both are the same change. Blocks by the service come and go, and are no change of the plan.
bool IsSame(const ImportRow &shown, const ImportRow &now)
{
    ImportRow alike = now;
    alike.isBlocked = shown.isBlocked;
    alike.hasUsedUp = shown.hasUsedUp;
    return alike == shown;
}

class Importing
{
public:
    Importing(ActionRun &actionRun, const ImportJob &importJob) : run(actionRun), job(importJob) { }

    Rows Run()
    {
        Lock();
        PlanAgain();
        if (run.IsStopped()) {
            return {};
        }
        MakeGroups();
        UserWriter(run, written).Write();
        FindNewUsers();
        WriteAccess();
        WriteCredits();
        WriteBlocks();
        WriteLogins();
        return std::move(written);
    }

private:
    void Lock()
    {
        std::vector<GroupId> targets;
        std::vector<UserId> single;
        StagedRows changed;
        for (const ImportRow &row : job.plan.rows) {
            if (!row.IsWritten()) {
                continue;
            }
            if (row.after.groupId.IsSet() && std::ranges::count(targets, row.after.groupId) == 0) {
                targets.push_back(row.after.groupId);
            }
            if (row.userId.IsSet()) {
                changed.Add(row.userId.value);
                const bool isFirst = single.empty(); // its row tells whether a lost commit was kept
                if (isFirst || row.NeedsSheet() || row.after.blocked != row.before.blocked) {
                    single.push_back(row.userId);
                }
            }
        }
        LockToNameGroup(run, targets);
        run.LockEach("SELECT user_id FROM users WHERE user_id IN (SELECT s.k FROM STAGED (?) "
                     "AS_ROWS s) ORDER BY user_id",
                     changed);
        LockUsers(run, single);
    }

    void PlanAgain()
    {
        const auto stored = run.Take(ReadStoredUsers());
        if (run.IsStopped()) {
            return;
        }
        const ImportPlan now = PlanImport(job.table, stored, job.context);
        for (size_t place = 0; place < now.rows.size(); ++place) {
            const ImportRow &shown = job.plan.rows[place];
            const ImportRow &row = now.rows[place];
            const bool isWritten = shown.IsWritten() || row.IsWritten();
            if (isWritten && !IsSame(shown, row)) {
                run.Refuse(
                    Words::tr("The user \"%1\", or what it is to get, was changed meanwhile. "
                              "Nothing was written. Please look again.")
                        .arg(row.name));
                return;
            }
            if (isWritten) {
                written.push_back(row);
            }
        }
        newGroups = now.newGroups;
    }

    void MakeGroups()
    {
        QHash<QString, GroupId> made; // by NameKey
        for (const QString &name : newGroups) {
            made.insert(NameKey(name), AddGroup(run, name));
        }
        for (ImportRow &row : written) {
            if (!row.after.groupId.IsSet()) {
                row.after.groupId = made.value(NameKey(row.after.groupName));
            }
        }
    }

    void FindNewUsers()
    {
        const bool areNew =
            std::ranges::any_of(written, [](const ImportRow &row) { return !row.userId.IsSet(); });
        if (!areNew || run.IsStopped()) {
            return;
        }
        QHash<QString, UserId> ids; // by NameKey
        for (const auto &[name, userId] :
             run.Take(ReadAll("SELECT username, user_id FROM users", [](const Row &row) {
                 return std::pair(row.Text(1), row.Id<UserId>(2));
             }))) {
            ids.insert(NameKey(name), userId);
        }
        bool isFirst = true;
        for (ImportRow &row : written) {
            if (row.state != ImportState::New) {
                continue;
            }
            row.userId = ids.value(NameKey(row.name));
            if (!row.userId.IsSet()) {
                run.Refuse(Words::tr("The new user \"%1\" cannot be found by its name. Nothing was "
                                     "imported.")
                               .arg(row.name));
                return;
            }
            if (std::exchange(isFirst, false)) { // tells whether a lost commit was kept
                run.WatchAdded({"users", "user_id", row.userId.value, "user_id"});
            }
        }
    }

    void WriteAccess()
    {
        for (const ImportRow &row : written) {
            if (!run.IsStopped() && row.NeedsSheet()) {
                ApplySheet(row);
            }
        }
    }

    void ApplySheet(const ImportRow &row)
    {
        auto sheet = run.Take(LoadUser(row.userId));
        if (!sheet) {
            RefuseGoneUsers(run, 1);
            return;
        }
        const Limits &limits = row.after.limits;
        sheet->draft.mode = row.after.mode;
        sheet->limits.traffic = limits.traffic;
        sheet->limits.time = limits.time;
        sheet->limits.period = PeriodIn(row.after.mode, limits);
        sheet->limits.ownPrice = limits.ownPrice;
        sheet->limits.price = limits.price;
        if (row.credit) {
            sheet->account.credits = {*row.credit};
        }
        const OwnerModes modes {row.after.mode, ApplyUser(run, *sheet)};
        WriteStagedAccount(run, row.userId, modes, sheet->account, job.context.rate);
    }

    void WriteCredits()
    {
        std::vector<std::pair<UserId, StagedCredit>> credits;
        for (const ImportRow &row : written) {
            if (row.credit && !row.NeedsSheet()) {
                credits.emplace_back(row.userId, *row.credit);
            }
        }
        WriteFirstCredits(run, credits, job.context.rate);
    }

    void WriteBlocks()
    {
        for (const ImportRow &row : written) {
            const bool wasBlocked = row.state == ImportState::Changed && row.before.blocked;
            if (row.after.blocked && !wasBlocked) {
                BlockUser(run, row.userId, BlockReason::Administrator);
            } else if (!row.after.blocked && wasBlocked) {
                UnblockUser(run, row.userId);
            }
        }
    }

    void WriteLogins()
    {
        for (const ImportRow &row : written) {
            if (run.IsStopped()) {
                return;
            }
            if (row.isNewLogin) {
                Login login;
                login.name = row.after.login;
                login.userId = row.userId;
                login.digest = row.digest.value_or(QString());
                InsertLogin(run, login);
            } else if (row.digest || row.after.login != row.before.login) {
                ChangeLogin(row);
            }
        }
    }

    void ChangeLogin(const ImportRow &row)
    {
        auto login = run.Take(ReadStoredLogin(row.after.login));
        const auto digest = run.Take(ReadDigest(row.after.login));
        if (login && digest) {
            login->userId = row.userId;
            login->digest = row.digest.value_or(*digest);
            UpdateLogin(run, *login);
        }
    }

    ActionRun &run;
    const ImportJob &job;
    Rows written; // as they stand under the locks
    QStringList newGroups;
};

} // namespace

Action ImportAction(const std::shared_ptr<const ImportJob> &job)
{
    return {ActionId::ImportUsers, [job](ActionRun &run) { RunImport(run, *job); }};
}

std::vector<ImportRow> RunImport(ActionRun &run, const ImportJob &job)
{
    return Importing(run, job).Run();
}
