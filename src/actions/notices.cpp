#include "actions/notices.h"

#include "db/query.h"
#include "db/value_codes.h"
#include "service/service_link.h"

void Notices::BeginRun()
{
    if (!repeats) {
        sent = now;
    }
    now.clear();
    repeats = true;
    ++runs;
}

bool Notices::Tell(const Notice &notice)
{
    if (link == nullptr) {
        return false;
    }
    now.push_back(notice);
    repeats = repeats && now.size() <= sent.size() && sent[now.size() - 1] == notice;
    const auto last = heard.constFind(notice.userId);
    const bool isKnown = runs > 1 && last != heard.constEnd() && *last == notice.blocked;
    if (!repeats && !isKnown) {
        Send(notice);
        heard[notice.userId] = notice.blocked;
    }
    return true;
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
