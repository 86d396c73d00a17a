// Since when users are blocked by the administrator, of those whom this console blocked itself: nothing in
// the database tells. Kept in memory for as long as the program runs.
#pragma once

#include "db/ids.h"

#include <QDateTime>
#include <QHash>
#include <QMutex>

#include <optional>

// For any thread.
class BlockMoments
{
public:
    void Keep(UserId userId, const QDateTime &since);

    // For a user whose block has changed.
    void Forget(UserId userId);

    // Nothing for a user that was not blocked here.
    [[nodiscard]] std::optional<QDateTime> Of(UserId userId) const;

private:
    mutable QMutex mutex;
    QHash<UserId, QDateTime> moments;
};
