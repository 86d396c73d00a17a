#include "startup/block_moments.h"

#include <QMutexLocker>

void BlockMoments::Keep(UserId userId, const QDateTime &since)
{
    const QMutexLocker lock(&mutex);
    moments.insert(userId, since);
}

void BlockMoments::Forget(UserId userId)
{
    const QMutexLocker lock(&mutex);
    moments.remove(userId);
}

std::optional<QDateTime> BlockMoments::Of(UserId userId) const
{
    const QMutexLocker lock(&mutex);
    const auto found = moments.constFind(userId);
    return found == moments.constEnd() ? std::nullopt : std::optional(*found);
}
