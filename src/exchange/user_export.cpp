#include "exchange/user_export.h"

#include "base/day.h"
#include "base/text.h"
#include "exchange/user_cells.h"
#include "reports/output.h"
#include "reports/row_collector.h"
#include "reports/user_table.h"

#include <QBuffer>
#include <QCoreApplication>

#include <algorithm>

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(UserExport)
};

QList<ImportColumn> ExportedColumns()
{
    QList<ImportColumn> columns;
    for (size_t place = 0; place < kImportColumns; ++place) {
        const auto column = static_cast<ImportColumn>(place);
        if (column != ImportColumn::Password) {
            columns.append(column);
        }
    }
    return columns;
}

std::shared_ptr<ReportTable> EmptyExport(const QList<ImportColumn> &columns)
{
    QList<UserTableColumn> headings;
    for (const ImportColumn column : columns) {
        headings.append({HeadingOf(column), {}});
    }
    return EmptyUserTable(headings,
                          {.title = Words::tr("Users"),
                           .filter = Words::tr("all users"),
                           .noun = Words::tr("users")});
}

QString
ExportedCell(ImportColumn column, const StoredUserRow &user, const StoredUsers &stored, double rate)
{
    if (column == ImportColumn::UserName) {
        return user.name;
    }
    const QString cell = CellOf(column, user.values);
    const auto credit = stored.credits.constFind(user.userId);
    const bool hasCredit = user.values.mode == AccountingMode::Provider
        && credit != stored.credits.constEnd() && !credit->expiry.IsOver(Today());
    return cell.isEmpty() && hasCredit ? CreditCell(column, *credit, rate) : cell;
}

Result<ReportTablePtr> ReadUsersToExport(double rate)
{
    auto stored = ReadStoredUsers();
    if (!stored) {
        return tl::unexpected(stored.error());
    }
    std::ranges::stable_sort(
        stored->users, {}, [](const StoredUserRow &user) { return NameKey(user.name); });
    const QList<ImportColumn> columns = ExportedColumns();
    auto table = EmptyExport(columns);
    RowCollector collector(*table);
    bool isStored = true;
    for (const StoredUserRow &user : stored->users) {
        if (!user.isMonitored) {
            continue;
        }
        CellRow cells;
        for (const ImportColumn column : columns) {
            cells.emplace_back(ExportedCell(column, user, *stored, rate));
        }
        isStored = isStored && collector.Store(cells);
    }
    if (!isStored || !table->rows.Finish()) {
        return tl::unexpected(OutputFailure(table->rows.Problem()));
    }
    table->allCount = table->rows.Count();
    return ReportTablePtr(std::move(table));
}

} // namespace

Result<qint64> ExportUsers(const QString &fileName, double rate, bool isTrial)
{
    return ReadUsersToExport(rate).and_then([&fileName, isTrial](const ReportTablePtr &table) {
        return SaveRows(table, fileName, {.csvBom = true, .isTrial = isTrial});
    });
}

Result<QByteArray> ExportedUsers(double rate)
{
    const auto table = ReadUsersToExport(rate);
    if (!table) {
        return tl::unexpected(table.error());
    }
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    RunControl control;
    if (!WriteCsv(**table, buffer, control)) {
        return tl::unexpected(OutputFailure((*table)->rows.ReadProblem()));
    }
    return buffer.data();
}
