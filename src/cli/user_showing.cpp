// "user show": one user, and why it may send or may not.
#include "access/user_list.h"
#include "access/user_record.h"
#include "accounts/why_access.h"
#include "admin/login_storage.h"
#include "cli/numbers.h"
#include "cli/owners.h"
#include "cli/user_listing.h"
#include "cli/work.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;

namespace {

const QList<Column> kColumns {{"id", "Number"},
                              {"name", "User name"},
                              {"fullName", "Full name"},
                              {"description", "Description"},
                              {"workstation", "Workstation"},
                              {"ip", "IP address"},
                              {"mac", "MAC address"},
                              {"group", "Group"},
                              {"groupId", "Group number"},
                              {"guest", "Guest"},
                              {"logins", "Logins"},
                              {"loginRequired", "Login required"},
                              {"mode", "Mode"},
                              {"trafficLimit", "Traffic limit, MB"},
                              {"timeLimit", "Time limit, h"},
                              {"period", "Period"},
                              {"blocked", "Blocked"},
                              {"verdict", "Access"},
                              {"why", "Why"}};

struct ShownUser
{
    UserRecord record;
    QStringList logins;
    WhyAccess why;
};

// Nothing when the user is gone; what cannot be read of the settings is told.
using Found = std::optional<tl::expected<ShownUser, SettingsFailure>>;

Result<Found> ReadShown(const ConfigStore &settings, UserId userId)
{
    const auto record = LoadUser(userId);
    const auto logins = LoginsOf(userId);
    const auto answer = ReadWhyAccess(settings, userId);
    if (!record || !logins || !answer) {
        return tl::unexpected(!record ? record.error()
                                      : (!logins ? logins.error() : answer.error()));
    }
    if (answer->unread) {
        return Found(tl::unexpected(*answer->unread));
    }
    if (!*record || !answer->why) {
        return Found();
    }
    return Found(ShownUser {**record, *logins, *answer->why});
}

QJsonArray ArrayOf(const std::vector<WhyLine> &lines)
{
    QJsonArray array;
    for (const WhyLine &line : lines) {
        array.append(QJsonObject {{u"text"_s, line.text}, {u"decides"_s, line.decides}});
    }
    return array;
}

QString VerdictWord(Verdict verdict)
{
    switch (verdict) {
    case Verdict::MaySend:
        return u"allowed"_s;
    case Verdict::AfterLogin:
        return u"allowed after login"_s;
    case Verdict::MayNotSend:
        break;
    }
    return u"denied"_s;
}

Cells CellsOf(const ShownUser &user)
{
    const UserFields &fields = user.record.base;
    const Limits &limits = user.record.limits.stored;
    const LimitFields used = FieldsFor(fields.mode);
    QStringList logins = user.logins;
    return {user.record.userId.value,
            fields.userName,
            fields.fullName,
            fields.description,
            fields.workstation,
            fields.ipAddress,
            MacAddressText(fields.macAddress),
            fields.groupName,
            fields.groupId.value,
            fields.guest,
            {QJsonArray::fromStringList(logins), logins.join(u", "_s)},
            fields.authRequired,
            WordOf(fields.mode),
            used.traffic ? Cell(limits.traffic.value) : Cell(),
            used.time ? Cell(limits.time.value) : Cell(),
            used.period ? Cell(WordOf(PeriodIn(fields.mode, limits))) : Cell(),
            user.record.block.stored.blocked,
            VerdictWord(user.why.findings.verdict),
            {ArrayOf(user.why.lines), QString()}};
}

} // namespace

Or<void> ShowUser(Work &work, const Given &given)
{
    const auto user = FindUser(work, given.Word(0));
    if (!user) {
        return tl::unexpected(user.error());
    }
    const auto found = work.Read([&settings = work.Settings(), userId = user->userId] {
        return ReadShown(settings, userId);
    });
    if (!found) {
        return tl::unexpected(found.error());
    }
    if (!*found) {
        return StopWith(ExitStatus::Refused,
                        u"User %1 has been deleted meanwhile."_s.arg(user->name));
    }
    if (!**found) {
        return StopWith(ExitStatus::Failed, TextOf((*found)->error()));
    }
    const ShownUser &shown = ***found;
    work.Print(kColumns, CellsOf(shown));
    if (!work.IsJson()) {
        for (const WhyLine &line : shown.why.lines) {
            work.PrintLine((line.decides ? u"* "_s : u"  "_s) + line.text);
        }
    }
    return {};
}
