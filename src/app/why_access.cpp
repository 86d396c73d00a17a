#include "app/why_access.h"

#include "accounts/currency.h"
#include "base/day.h"

#include <QCoreApplication>

#include <utility>

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(WhyAccess)
};

// The settings that money needs; why they cannot be read otherwise.
std::optional<SettingsFailure> ProblemOf(const ConfigStore &settings)
{
    const auto problem = settings.Problem(ConfigKeyId::Base);
    return problem ? problem : settings.Problem(ConfigKeyId::Price);
}

WhyAccess Judge(StoredUser user, const Moment &now, const Currency &currency)
{
    AccessFindings findings = DecideAccess(user.rules, now);
    auto lines = LinesOf(findings, {now.day, QLocale(), currency.rate, currency.name});
    return {std::move(user.name), user.groupId, std::move(findings), std::move(lines)};
}

// A moment of another block than the administrator's that stands is of no use any more.
std::optional<QDateTime> BlockedSince(BlockMoments &moments, UserId userId, const UserRules &rules)
{
    if (MeaningOf(rules.own.block) != BlockMeaning::ByAdministrator) {
        moments.Forget(userId);
    }
    return moments.Of(userId);
}

Result<WhyAnswer> Read(const ConfigStore &settings, BlockMoments &moments, UserId userId)
{
    if (const auto problem = ProblemOf(settings)) {
        return WhyAnswer {problem, std::nullopt};
    }
    const Currency currency = CurrentCurrency(settings);
    const Moment now {Today(), QTime::currentTime()};
    return ReadUserRules(userId, now, settings.ReadAmount(values::kTrafPrice))
        .map([&](std::optional<StoredUser> user) {
            WhyAnswer answer;
            if (user) {
                user->rules.blockedSince = BlockedSince(moments, userId, user->rules);
                answer.why = Judge(*std::move(user), now, currency);
            }
            return answer;
        });
}

} // namespace

std::function<Result<WhyAnswer>()> WhyAccessOf(const AppServices &services, UserId userId)
{
    return [&settings = services.settings, moments = services.blockMoments, userId] {
        return Read(settings, *moments, userId);
    };
}

QString WhyNot(const Result<WhyAnswer> &answer)
{
    if (!answer) {
        return Words::tr("Why access is as it is could not be read.") + u"\n\n"
            + answer.error().InWords();
    }
    return answer->unread ? TextOf(*answer->unread)
                          : Words::tr("This user has been deleted meanwhile.");
}
