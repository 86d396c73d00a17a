#include "exchange/one_user.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(NewUser)
};

ImportTable TableOf(const NewUser &user)
{
    ImportTable table;
    ImportLine line;
    const auto add = [&](ImportColumn column, const QString &cell) {
        const auto place = static_cast<size_t>(column);
        table.columns.set(place);
        line.cells[place] = cell;
    };
    line.number = 1;
    add(ImportColumn::UserName, user.name.trimmed());
    add(ImportColumn::FullName, user.fullName);
    add(ImportColumn::Description, user.description);
    add(ImportColumn::Group, user.group ? user.group->name : QString());
    add(ImportColumn::IpAddress, user.ip ? DottedText(*user.ip) : QString());
    add(ImportColumn::MacAddress, user.mac);
    table.lines.push_back(line);
    return table;
}

QString RefusalOf(const ImportRow &row, const NewUser &user)
{
    if (user.name.trimmed().isEmpty()) {
        return Words::tr("Please enter the name of the user");
    }
    if (row.userId.IsSet()) {
        return Words::tr("There is a user %1 already. Nothing was changed.").arg(row.name);
    }
    // The row finds its group by the name, which another one may have by now.
    if (user.group && row.after.groupId != user.group->groupId) {
        return Words::tr("The group %1 cannot be found by its name. Nothing was changed.")
            .arg(user.group->name);
    }
    return row.reason;
}

} // namespace

Result<NewUserPlan> PlanNewUser(const NewUser &user, const ImportContext &context)
{
    return ReadStoredUsers().map([&](const StoredUsers &stored) {
        const ImportTable table = TableOf(user);
        const auto job = std::make_shared<const ImportJob>(
            ImportJob {table, context, PlanImport(table, stored, context)});
        const ImportRow &row = job->plan.rows.front();
        return NewUserPlan {job, RefusalOf(row, user), row.userId.IsSet()};
    });
}

Action AddUserAction(const NewUserPlan &plan, const std::shared_ptr<UserId> &added)
{
    return {ActionId::AddUser, [job = plan.job, added](ActionRun &run) {
                const std::vector<ImportRow> written = RunImport(run, *job);
                if (!written.empty()) {
                    *added = written.front().userId;
                }
            }};
}
