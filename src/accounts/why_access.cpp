#include "accounts/why_access.h"

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

} // namespace

Result<WhyAnswer>
ReadWhyAccess(const ConfigStore &settings, UserId userId, const BlockedSince &blockedSince)
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
                if (blockedSince) {
                    user->rules.blockedSince = blockedSince(user->rules);
                }
                answer.why = Judge(*std::move(user), now, currency);
            }
            return answer;
        });
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
