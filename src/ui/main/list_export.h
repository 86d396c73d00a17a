// "Export list...": every user that the list's filter finds, as a file. And the table of them, for others.
#pragma once

#include "access/access_words.h"
#include "access/account_use.h"
#include "access/user_search.h"
#include "reports/report_table.h"
#include "startup/app_services.h"
#include "ui/main/user_columns.h"

#include <QWidget>

// Which users, and which of their columns, from left to right.
struct ListToExport
{
    UserFilter filter;
    QString filterText {}; // as it was typed
    ListOrder order;
    QList<UserColumn> columns;
    QList<int> widths {}; // of the columns, in pixels
    std::optional<AccountMoment> accounts {}; // for columns of accounts
    WordsStyle style {}; // of their figures
};

// Every user of the list with the texts of its cells. On the session of the calling thread.
[[nodiscard]] Result<ReportTablePtr> ReadWholeList(const ListToExport &list);

// Asks for the file's name, reads on a connection of its own while `parent` waits, and tells what became
// of it. The file's ending says its kind: CSV or XLSX.
void ExportList(const AppServices &services, QWidget &parent, const ListToExport &list);
