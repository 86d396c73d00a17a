#include "db/write.h"

#include "db/dialect.h"
#include "db/session.h"

namespace {

Result<bool> Outcome(bool done)
{
    if (done) {
        return true;
    }
    return tl::unexpected(LastFailure().value_or(Failure()));
}

} // namespace

Result<qint64> write_detail::Run(const char *sqlText)
{
    RunQuery(sqlText, FetchMode::All);
    if (const auto &failure = LastFailure()) {
        return tl::unexpected(*failure);
    }
    return AffectedRows();
}

bool IsGivenUp()
{
    return IsSessionGivenUp();
}

namespace transaction {

Result<bool> Begin()
{
    return Outcome(BeginTransaction());
}

Result<bool> Commit()
{
    return Outcome(CommitTransaction());
}

void Rollback()
{
    RollbackTransaction();
}

std::string Locking(const char *query)
{
    return std::string(query) + SessionDialect().lockRows;
}

bool ShutsOutWriters()
{
    return SessionDialect().hasOneWriter;
}

void AcceptCancel()
{
    ::AcceptCancel();
}

} // namespace transaction
