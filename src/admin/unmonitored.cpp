#include "admin/unmonitored.h"

#include "db/session.h"

std::vector<UnmonitoredUser> LoadUnmonitored()
{
    std::vector<UnmonitoredUser> users;
    RowCursor rows("SELECT username, user_id, ip_addr FROM users WHERE monitored = false");
    while (users.size() < kMaxUnmonitored && rows.Next()) {
        const QString text = queryResult.Text(1) + u'(' + queryResult.Text(3) + u')';
        users.push_back({queryResult.Id<UserId>(2), text});
    }
    return users;
}

void MonitorUser(UserId userId)
{
    Execute("UPDATE users SET monitored=true WHERE user_id = (?) ", userId);
}
