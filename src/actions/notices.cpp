#include "actions/notices.h"

#include "db/query.h"
#include "db/value_codes.h"
#include "service/service_link.h"

void Notices::BeginRun()
{
    if (deviates || now.size() > sent.size()) {
        sent = now;
    }
    now.clear();
    deviates = false;
    heardBefore = heard;
}

bool Notices::Tell(const Notice &notice)
{
    if (link == nullptr) {
        return false;
    }
    now.push_back(notice);
    const bool isBeyond = now.size() > sent.size();
    deviates = deviates || (!isBeyond && sent[now.size() - 1] != notice);
    if (deviates ? !WasHeardBefore(notice) : isBeyond) {
        Send(notice);
        heard[notice.userId] = notice.blocked;
    }
    return true;
}

// In an earlier run, and nothing else since.
bool Notices::WasHeardBefore(const Notice &notice) const
{
    const auto before = heardBefore.constFind(notice.userId);
    return before != heardBefore.constEnd() && *before == notice.blocked
        && heard.value(notice.userId) == notice.blocked;
}

void Notices::Send(const Notice &notice) const
{
    if (notice.blocked) {
        link->BlockUser(notice.userId);
    } else {
        link->UnblockUser(notice.userId);
    }
}

// A row that cannot be read, or is gone, tells nothing: the service finds out from the database.
void Notices::Correct(bool kept)
{
    QMap<UserId, bool> meant;
    for (const Notice &notice : now) {
        meant[notice.userId] = notice.blocked;
    }
    for (auto [userId, blocked] : meant.asKeyValueRange()) {
        if (kept && heard.value(userId) == blocked) {
            heard.remove(userId);
        }
    }
    const auto users = heard.keys();
    for (const UserId userId : users) {
        const auto blocked = ReadOne(
            "SELECT blocked, blockreason FROM users WHERE user_id = (?)",
            [](const Row &row) {
                return row.Flag(1) && row.Code<BlockReason>(2) != BlockReason::ShownAsAllowed;
            },
            userId);
        if (blocked && *blocked) {
            Send({userId, **blocked});
        }
    }
}
