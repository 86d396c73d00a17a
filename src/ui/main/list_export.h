// "Export list...": every user that the list's filter finds, as a file.
#pragma once

#include "access/access_words.h"
#include "access/account_use.h"
#include "access/user_search.h"
#include "startup/app_services.h"
#include "ui/main/user_columns.h"

#include <QWidget>

// Which users, and which of their columns, from left to right.
struct ListToExport
{
    UserFilter filter;
    ListOrder order;
    QList<UserColumn> columns;
    std::optional<AccountMoment> accounts; // for columns of accounts
    WordsStyle style; // of their figures
};

// Asks for the file's name, reads on a connection of its own while `parent` waits, and tells what became
// of it. The file's ending says its kind: CSV or XLSX.
void ExportList(const AppServices &services, QWidget &parent, const ListToExport &list);
