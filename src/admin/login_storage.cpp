#include "admin/login_storage.h"

#include "admin/login_rows.h"
#include "base/names_line.h"
#include "db/query.h"

#include <QCoreApplication>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(LoginStorage)
};

QString WhatStands(const LoginSaveReport &report)
{
    if (report.outcome.state == Outcome::State::Unknown) {
        return Words::tr("It is not known what was saved. Please look at the logins again.");
    }
    const bool any = !report.saved.written.empty() || !report.saved.removed.isEmpty();
    return any ? Words::tr("The other changes were saved.") : Words::tr("Nothing was saved.");
}

template <typename Run>
LoginSaveReport ReportOf(const LoginChanges &changes, const Run &run)
{
    const auto report = std::make_shared<LoginSaveReport>();
    Outcome outcome = run(SaveLoginsAction(changes, report));
    LoginSaveReport whole = *report;
    whole.outcome = std::move(outcome);
    return whole;
}

} // namespace

Result<LoginTable> LoadLogins()
{
    auto logins = ReadStoredLogins(LoginTable::kCapacity);
    if (!logins) {
        return tl::unexpected(logins.error());
    }
    for (Login &login : *logins) {
        auto complete = WithUser(login);
        if (!complete) {
            return tl::unexpected(complete.error());
        }
        login = *std::move(complete);
    }
    return LoginTable(*std::move(logins));
}

Result<QStringList> LoginsOf(UserId userId)
{
    return ReadAll(
               "SELECT login FROM logins WHERE userid=(?)",
               [](const Row &row) { return row.Text(1); },
               userId)
        .map([](const std::vector<QString> &names) {
            return QStringList(names.begin(), names.end());
        });
}

QString LoginSaveReport::InWords() const
{
    if (IsDone() || outcome.state == Outcome::State::NeedsAnswers) {
        return {};
    }
    QStringList lines;
    if (!outcome.failures.isEmpty()) {
        lines << Words::tr("Error writing information to the database");
    }
    lines += notSaved;
    lines << WhatStands(*this);
    return (QStringList(lines.join(u'\n')) + ReasonsOf(outcome.failures)).join(u"\n\n"_s);
}

LoginSaveReport SaveLogins(const LoginChanges &changes, const Answers &answers)
{
    return ReportOf(
        changes, [&answers](const Action &action) { return RunAction(action, answers, nullptr); });
}

LoginSaveReport TryLogins(const LoginChanges &changes, const Answers &answers)
{
    return ReportOf(changes,
                    [&answers](const Action &action) { return TryAction(action, answers); });
}

Question RemoveLoginQuestion(const QString &name)
{
    return {.key = u"remove login"_s,
            .text = Words::tr("Remove this login from the database?"),
            .destroys = true,
            .goes = NamesLine({name})};
}

Result<std::vector<LoginGroup>> LoadLoginGroups()
{
    return ReadAll("SELECT group_id, name FROM groups", [](const Row &row) {
        return LoginGroup {row.Id<GroupId>(1), row.Text(2), {}};
    });
}

Result<std::vector<LoginGroup>> LoadLoginUsers()
{
    auto groups =
        ReadAll("SELECT name, group_id FROM groups ORDER BY name ASC", [](const Row &row) {
            return LoginGroup {row.Id<GroupId>(2), row.Text(1), {}};
        });
    if (!groups) {
        return groups;
    }
    for (LoginGroup &group : *groups) {
        auto users = ReadAll(
            "SELECT username, user_id FROM users WHERE group_id = (?) ORDER BY username ASC",
            [](const Row &row) {
                return LoginUser {row.Id<UserId>(2), row.Text(1)};
            },
            group.groupId);
        if (!users) {
            return tl::unexpected(users.error());
        }
        group.users = *std::move(users);
    }
    return groups;
}

Result<std::optional<FoundUser>> FindUserByName(const QString &name)
{
    return ReadLast(
        "SELECT user_id, group_id FROM users WHERE username=(?)",
        [](const Row &row) {
            return FoundUser {row.Id<UserId>(1), row.Id<GroupId>(2)};
        },
        name);
}
