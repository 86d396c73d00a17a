#include "access/present_users.h"

#include "db/query.h"

#include <QCoreApplication>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(PresentUsers)
};

} // namespace

void LockUsers(ActionRun &run, std::vector<UserId> userIds)
{
    std::ranges::sort(userIds);
    for (const UserId userId : userIds) {
        run.Lock({"users", "user_id", userId.value, "user_id"});
    }
}

std::vector<UserId> PresentUsers(ActionRun &run, const std::vector<UserId> &userIds)
{
    std::vector<UserId> present;
    for (const UserId userId : userIds) {
        if (run.IsStopped()) {
            return {};
        }
        if (run.Take(Exists("SELECT blocked FROM users WHERE user_id = (?)", userId))) {
            present.push_back(userId);
        }
    }
    if (present.empty()) {
        RefuseGoneUsers(run, userIds.size());
    }
    return present;
}

void RefuseGoneUsers(ActionRun &run, size_t count)
{
    run.Refuse(count == 1
                   ? Words::tr("This user has been deleted meanwhile. Nothing was changed.")
                   : Words::tr("These users have been deleted meanwhile. Nothing was changed."));
}
