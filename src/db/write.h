// Changing the database. Only a run of an action does so, see actions/action_run.h, and the accounts of
// the service, see metering/books.h: the check of the folders lets nobody else include this.
#pragma once

#include "db/failure.h"
#include "db/parameters.h"

#include <string>

namespace write_detail {

[[nodiscard]] Result<qint64> Run(const char *sqlText);

}

// Runs a statement that changes rows; how many it changed.
template <typename... Values>
[[nodiscard]] Result<qint64> WriteRows(const char *sqlText, const Values &...values)
{
    BindValues(values...);
    return write_detail::Run(sqlText);
}

// Whether the session of this thread was given up: nobody hears any more of what is done on it.
[[nodiscard]] bool IsGivenUp();

// One transaction; a failure within it is followed by a rollback and by nothing else, although some
// engines would go on with what is left.
namespace transaction {

[[nodiscard]] Result<bool> Begin();

// The failure OutcomeUnknown tells that the connection was lost on the way.
[[nodiscard]] Result<bool> Commit();

void Rollback();

// The query that also locks the rows it reads until the transaction ends, where others may write at all.
[[nodiscard]] std::string Locking(const char *query);

// Whether one that writes keeps everybody else from writing until it ends.
[[nodiscard]] bool ShutsOutWriters();

// What follows is done in spite of a cancel, which has stopped what it was for.
void AcceptCancel();

} // namespace transaction
