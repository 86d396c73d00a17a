#include "reports/user_table.h"

#include "reports/row_collector.h"

namespace {

CellRow CellsOf(const UserRow &user, const QList<UserTableColumn> &columns)
{
    CellRow cells;
    for (const UserTableColumn &column : columns) {
        cells.emplace_back(column.text(user));
    }
    return cells;
}

} // namespace

std::shared_ptr<ReportTable> EmptyUserTable(const QList<UserTableColumn> &columns,
                                            const UserTableHead &head)
{
    auto table = std::make_shared<ReportTable>();
    table->layout.title = head.title;
    table->layout.noun = head.noun;
    table->filter = head.filter;
    for (const UserTableColumn &column : columns) {
        LayoutColumn &added = table->layout.columns.emplaceBack();
        added.name = column.heading;
        added.heading = column.heading;
        added.width = column.width;
    }
    table->totals.resize(static_cast<size_t>(columns.size()));
    table->made = QDateTime::currentDateTime();
    return table;
}

Result<ReportTablePtr> ReadUserTable(const UserFilter &filter,
                                     ListOrder order,
                                     const QList<UserTableColumn> &columns,
                                     const UserTableHead &head)
{
    const auto uses = head.accounts ? ReadAllAccountUses(*head.accounts) : Result<AccountUses>();
    if (!uses) {
        return tl::unexpected(uses.error());
    }
    auto table = EmptyUserTable(columns, head);
    auto collector = std::make_unique<RowCollector>(*table);
    bool stored = true;
    auto failure = ForEachFoundUser(
        filter,
        order,
        [&] {
            table = EmptyUserTable(columns, head);
            collector = std::make_unique<RowCollector>(*table);
        },
        [&](UserRow user, UserId userId) {
            if (const auto use = uses->constFind(userId); use != uses->constEnd()) {
                user.use = *use;
            }
            stored = collector->Store(CellsOf(user, columns));
            return stored;
        });
    if (!failure && !(stored && table->rows.Finish())) {
        failure = OutputFailure(table->rows.Problem());
    }
    if (failure) {
        return tl::unexpected(*std::move(failure));
    }
    table->allCount = table->rows.Count();
    return ReportTablePtr(std::move(table));
}
