#include "admin/new_user.h"

#include "access/access_mode.h"
#include "access/group_gone.h"
#include "actions/action_run.h"
#include "db/query.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(NewUser)
};

// Refuses the run when the statement finds the name of somebody who has what is to be given.
template <typename Value>
void RefuseIfTaken(ActionRun &run, const char *sqlText, const Value &value, const QString &sentence)
{
    const auto holder = run.Take(ReadOne(
        sqlText, [](const Row &row) { return row.Text(1); }, value));
    if (holder) {
        run.Refuse(sentence.arg(*holder));
    }
}

void RefuseWhatIsTaken(ActionRun &run, const NewUser &user)
{
    if (user.name.isEmpty()) {
        run.Refuse(Words::tr("Please enter the name of the user"));
        return;
    }
    RefuseIfTaken(run,
                  "SELECT username FROM users WHERE username = (?)",
                  user.name,
                  Words::tr("There is a user %1 already. Nothing was changed."));
    if (user.ip) {
        RefuseIfTaken(run,
                      "SELECT username FROM users WHERE ip_addr = (?)",
                      DottedText(*user.ip),
                      Words::tr("User %1 has this IP address already. Nothing was changed."));
    }
    if (!user.mac.isEmpty()) {
        RefuseIfTaken(run,
                      "SELECT username FROM users WHERE mac_addr = (?)",
                      user.mac,
                      Words::tr("User %1 has this MAC address already. Nothing was changed."));
    }
}

// A code without a meaning is none that a new user gets.
AccountingMode KnownMode(AccountingMode mode)
{
    return ModeFor(ChoiceFor(mode)).value_or(AccountingMode::NoControl);
}

void WriteUser(ActionRun &run, const NewUser &user)
{
    const DefaultProfile &profile = user.profile;
    const LimitPeriod period =
        profile.period == LimitPeriod::Day ? LimitPeriod::Day : LimitPeriod::Month;
    run.Write("INSERT INTO users (username, fullname, descrip, ip_addr, mac_addr, group_id, mode, "
              "traflim, timelim, trafperiod, timeperiod, blocked, blockreason, authreq) VALUES "
              "((?), (?), (?), (?), (?), (?), (?), (?), (?), (?), (?), (?), (?), (?))",
              user.name,
              user.fullName,
              user.description,
              user.ip ? DottedText(*user.ip) : QString(),
              user.mac,
              user.groupId,
              KnownMode(profile.mode),
              static_cast<quint32>(qMax(0, profile.trafficLimit.value_or(0))),
              static_cast<quint32>(qMax(0, profile.timeLimit.value_or(0))),
              period,
              period,
              profile.blocked ? 1U : 0U,
              profile.blocked ? BlockReason::Administrator : BlockReason::None,
              profile.authRequired ? 1U : 0U);
}

} // namespace

// "Everybody" is locked besides: of two who add the same user the second one sees the first one's.
Action AddUserAction(const NewUser &user, const std::shared_ptr<UserId> &added)
{
    return {ActionId::AddUser, [=](ActionRun &run) {
                LockGroups(run, {user.groupId, kEverybodyGroup});
                RefuseIfGone(run, user.groupId);
                RefuseWhatIsTaken(run, user);
                WriteUser(run, user);
                if (run.IsStopped()) {
                    return;
                }
                const auto userId = run.Take(ReadLast(
                    "SELECT user_id FROM users WHERE username = (?)",
                    [](const Row &row) { return row.Id<UserId>(1); },
                    user.name));
                if (!userId) { // a name that no column can hold as it is
                    run.Refuse(Words::tr(
                        "The new user cannot be found by its name. Nothing was changed."));
                    return;
                }
                *added = *userId;
                // Read once more after a commit that was not answered, the row tells that it is kept.
                run.WatchAdded({"users", "user_id", userId->value, "user_id"});
            }};
}
