// A user's values as the cells of a file: what an export writes, and by what an import sees that nothing
// changes.
#pragma once

#include "exchange/import_column.h"
#include "exchange/stored_users.h"

// Empty for what the user has not, and for what the file does not tell, as limits that the access type
// does not have. Of the credit's columns and the password nothing.
[[nodiscard]] QString CellOf(ImportColumn column, const UserValues &values);

// The columns of the first credit. `rate`: currency per base unit.
[[nodiscard]] QString CreditCell(ImportColumn column, const PrePaidCredit &credit, double rate);

// The same value as a person is shown it.
[[nodiscard]] QString ShownValue(ImportColumn column, const UserValues &values);
