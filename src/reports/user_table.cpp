#include "reports/user_table.h"

namespace {

std::shared_ptr<ReportTable> EmptyTable(const QList<UserTableColumn> &columns)
{
    auto table = std::make_shared<ReportTable>();
    for (const UserTableColumn &column : columns) {
        LayoutColumn &added = table->layout.columns.emplaceBack();
        added.name = column.heading;
        added.heading = column.heading;
    }
    table->made = QDateTime::currentDateTime();
    return table;
}

CellRow CellsOf(const UserRow &user, const QList<UserTableColumn> &columns)
{
    CellRow cells;
    for (const UserTableColumn &column : columns) {
        cells.emplace_back(column.text(user));
    }
    return cells;
}

} // namespace

Result<ReportTablePtr> ReadUserTable(const UserFilter &filter,
                                     ListOrder order,
                                     const std::optional<AccountMoment> &accounts,
                                     const QList<UserTableColumn> &columns)
{
    const auto uses = accounts ? ReadAllAccountUses(*accounts) : Result<AccountUses>();
    if (!uses) {
        return tl::unexpected(uses.error());
    }
    auto table = EmptyTable(columns);
    bool stored = true;
    auto failure = ForEachFoundUser(
        filter,
        order,
        [&] { table = EmptyTable(columns); },
        [&](UserRow user, UserId userId) {
            if (const auto use = uses->constFind(userId); use != uses->constEnd()) {
                user.use = *use;
            }
            stored = table->rows.Append(CellsOf(user, columns));
            return stored;
        });
    if (!failure && !(stored && table->rows.Finish())) {
        failure = Failure {.kind = Failure::Kind::Refused,
                           .statement = {},
                           .sqlState = {},
                           .native = 0,
                           .text = table->rows.Problem()};
    }
    if (failure) {
        return tl::unexpected(*std::move(failure));
    }
    table->allCount = table->rows.Count();
    return ReportTablePtr(std::move(table));
}
