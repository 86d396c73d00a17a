#include "ui/main/list_export.h"

#include "app/perform.h"
#include "app/waiting.h"
#include "reports/output.h"
#include "reports/user_table.h"
#include "ui/exchange/choose_table_file.h"
#include "ui/main/user_list_model.h"

#include <QCoreApplication>
#include <QLocale>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(ListExport)
};

QList<UserTableColumn> TableColumns(const ListToExport &list)
{
    QList<UserTableColumn> table;
    for (const UserColumn column : list.columns) {
        table.append({HeaderText(column),
                      [column, style = list.style](const UserRow &user) {
                          return CellWords(user, column, style);
                      },
                      static_cast<double>(list.widths.value(table.size(), 1))});
    }
    return table;
}

// How many users were written.
Result<qint64> Write(const ListToExport &list, const QString &fileName)
{
    const auto table = ReadWholeList(list);
    if (!table) {
        return tl::unexpected(table.error());
    }
    return SaveRows(*table, fileName);
}

} // namespace

Result<ReportTablePtr> ReadWholeList(const ListToExport &list)
{
    return ReadUserTable(
        list.filter,
        list.order,
        TableColumns(list),
        {.title = Words::tr("Users"),
         .filter = list.filterText.isEmpty() ? Words::tr("all users") : list.filterText,
         .noun = Words::tr("users"),
         .accounts = list.accounts});
}

void ExportList(const AppServices &services, QWidget &parent, const ListToExport &list)
{
    const QString fileName = ChooseTableFile(&parent,
                                             {.name = u"exportList"_s,
                                              .caption = Words::tr("Export list"),
                                              .proposed = Words::tr("Users")});
    if (fileName.isEmpty()) {
        return;
    }
    const auto written =
        AwaitBeside(services, &parent, Words::tr("Exporting the list..."), [list, fileName] {
            return Write(list, fileName);
        });
    if (written) {
        services.prompt.Tell(
            Words::tr("%1 users were saved as %2.").arg(QLocale().toString(*written), fileName));
    } else {
        TellUnread(services, Words::tr("The list was not exported."), written.error());
    }
}
