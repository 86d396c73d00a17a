#include "edits.h"

#include "access/list_commands.h"
#include "access/many_users.h"
#include "accounts/sheet_actions.h"
#include "db/query.h"
#include "db/session.h"

using namespace Qt::StringLiterals;

namespace {

constexpr quint32 kFirstLimit = 1000;
constexpr double kRate = 1.0;

std::vector<UserId> TwoFrom(UserId first)
{
    return {first, UserId {first.value % kUsers + 1}};
}

struct UserRow
{
    quint32 id;
    QString own[2];
    QString time;
    QString group;
    int limit;
};

UserRow ReadUser(const Row &row)
{
    return {row.Integer(1),
            {row.Text(2), row.Text(3)},
            row.Text(4),
            row.Text(5),
            static_cast<int>(row.Integer(6))};
}

} // namespace

void MakeRows()
{
    for (quint32 id = kFirstGroup; id < kFirstGroup + kGroups; ++id) {
        Execute("INSERT INTO groups (group_id, name, mode, traflim, trafperiod) "
                "VALUES ((?), 'group', 1, 1000, 1)",
                id);
    }
    for (quint32 id = 1; id <= kUsers; ++id) {
        Execute("INSERT INTO users (user_id, username, group_id, mode, traflim, trafperiod, "
                "timeperiod) VALUES ((?), (?), 81, 5, 1000, 1, 1)",
                id,
                u"user%1"_s.arg(id));
    }
}

Outcome Console::Run(const Action &action, bool *left)
{
    Answers answers;
    Outcome outcome = RunAction(action, answers, nullptr);
    while (outcome.state == Outcome::State::NeedsAnswers) {
        for (const Question &question : outcome.questions) {
            answers.insert(question.key, false);
        }
        outcome = RunAction(action, answers, nullptr);
    }
    if (left != nullptr) {
        *left = !answers.isEmpty();
    }
    tally.leftToTheOther += answers.isEmpty() ? 0 : 1;
    ++tally.states[outcome.state];
    if (!outcome.failures.isEmpty()) {
        ++tally.failures[outcome.failures.constFirst().kind];
    }
    return outcome;
}

void Console::Take(Value &value, const QString &wanted, const Outcome &outcome)
{
    if (outcome.IsDone()) {
        value = {wanted, {}};
    } else if (outcome.state == Outcome::State::Unknown) {
        value.unknown << wanted;
    }
}

void Console::Take(Count &count, const Outcome &outcome, bool left) const
{
    count.done += outcome.IsDone() && !left ? Step() : 0;
    count.unknown += outcome.state == Outcome::State::Unknown && !left ? Step() : 0;
}

void Console::EditAnything()
{
    const UserId user {Any(1, kUsers)};
    switch (Any(0, 8)) {
    case 0:
    case 1:
        Move(user);
        break;
    case 2:
    case 3:
        SetTime(user);
        break;
    case 4:
        EditGroup(GroupId {Any(kFirstGroup, kGroups)});
        break;
    default:
        EditUser(user);
    }
}

// A record that cannot be read is not edited.
Outcome Console::EditUser(UserId userId)
{
    const auto record = LoadUser(userId);
    if (!record || !*record) {
        Outcome unread;
        unread.state = Outcome::State::NotDone;
        if (!record) {
            unread.failures << record.error();
            ++tally.failures[record.error().kind];
        }
        return unread;
    }
    UserRecord sheet = **record;
    const QString wanted = u"%1"_s.arg(++edits);
    (number == 0 ? sheet.draft.fullName : sheet.draft.description) = wanted;
    sheet.limits.traffic =
        WholeMegabytes {sheet.limits.stored.traffic.value + static_cast<quint32>(Step())};
    bool left = false;
    const Outcome outcome = Run(ApplyUserAction(sheet, kRate), &left);
    Take(own[userId.value], wanted, outcome);
    Take(userLimits[userId.value], outcome, left);
    return outcome;
}

void Console::EditGroup(GroupId groupId)
{
    const auto record = LoadGroup(groupId);
    if (!record || !*record) {
        return;
    }
    GroupRecord sheet = **record;
    sheet.limits.traffic =
        WholeMegabytes {sheet.limits.stored.traffic.value + static_cast<quint32>(Step())};
    bool left = false;
    const Outcome outcome = Run(ApplyGroupAction(sheet, kRate), &left);
    Take(groupLimits[groupId.value], outcome, left);
}

void Console::SetTime(UserId first)
{
    const quint32 hours = 2 * ++edits + static_cast<quint32>(number);
    ModeAndLimits values;
    values.mode = AccountingMode::TrafficAndTime;
    values.time = WholeHours {hours};
    const Outcome outcome = Run(SetModeAndLimitsAction(TwoFrom(first), values));
    for (const UserId user : TwoFrom(first)) {
        Take(times[user.value], QString::number(hours), outcome);
    }
}

void Console::Move(UserId first)
{
    const GroupId group {Any(kFirstGroup, kGroups)};
    const Outcome outcome = Run(MoveUsersAction(TwoFrom(first), group));
    for (const UserId user : TwoFrom(first)) {
        Take(groups[user.value], QString::number(group.value), outcome);
    }
}

QStringList Console::Untrue(const std::array<const Console *, 2> &consoles)
{
    const auto of = [](const auto &map, quint32 id) {
        const auto found = map.find(id);
        using Told = typename std::decay_t<decltype(map)>::mapped_type;
        return found == map.end() ? Told {} : found->second;
    };
    QStringList untrue;
    const auto checkCount = [&](const QString &what, quint32 id, int limit, auto member) {
        const Count first = of(consoles[0]->*member, id);
        const Count second = of(consoles[1]->*member, id);
        const int more = limit - static_cast<int>(kFirstLimit) - first.done - second.done;
        if (more < 0 || more > first.unknown + second.unknown) {
            untrue << u"%1 %2: counted up by %3 more than told"_s.arg(what).arg(id).arg(more);
        }
    };
    const auto checkOne = [&](const QString &what, quint32 id, const QString &now, auto member) {
        const Value first = of(consoles[0]->*member, id);
        const Value second = of(consoles[1]->*member, id);
        const bool isTouched = !first.done.isEmpty() || !second.done.isEmpty();
        if (isTouched && !first.MayBe(now) && !second.MayBe(now)) {
            untrue << u"%1 of user %2: %3, not %4 or %5"_s.arg(what).arg(id).arg(
                now, first.done, second.done);
        }
    };
    const auto users = ReadAll(
        "SELECT user_id, fullname, descrip, timelim, group_id, traflim FROM users", ReadUser);
    const auto limits =
        ReadAll("SELECT group_id, traflim FROM groups WHERE group_id > 80", [](const Row &row) {
            return std::pair(row.Integer(1), static_cast<int>(row.Integer(2)));
        });
    if (!users || !limits || users->size() != kUsers || limits->size() != kGroups) {
        return {u"The tables cannot be read to the end."_s};
    }
    for (const UserRow &row : *users) {
        for (const int console : {0, 1}) {
            if (!of(consoles[console]->own, row.id).MayBe(row.own[console])) {
                untrue << u"column of console %1, user %2: %3"_s.arg(console).arg(row.id).arg(
                    row.own[console]);
            }
        }
        checkOne(u"time"_s, row.id, row.time, &Console::times);
        checkOne(u"group"_s, row.id, row.group, &Console::groups);
        checkCount(u"user"_s, row.id, row.limit, &Console::userLimits);
    }
    for (const auto &[id, limit] : *limits) {
        checkCount(u"group"_s, id, limit, &Console::groupLimits);
    }
    return untrue;
}
