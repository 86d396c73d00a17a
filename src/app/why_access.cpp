#include "app/why_access.h"

namespace {

// A moment of another block than the administrator's that stands is of no use any more.
std::optional<QDateTime>
BlockedSinceOf(BlockMoments &moments, UserId userId, const UserRules &rules)
{
    if (MeaningOf(rules.own.block) != BlockMeaning::ByAdministrator) {
        moments.Forget(userId);
    }
    return moments.Of(userId);
}

} // namespace

std::function<Result<WhyAnswer>()> WhyAccessOf(const AppServices &services, UserId userId)
{
    return [&settings = services.settings, moments = services.blockMoments, userId] {
        return ReadWhyAccess(settings, userId, [&moments, userId](const UserRules &rules) {
            return BlockedSinceOf(*moments, userId, rules);
        });
    };
}
