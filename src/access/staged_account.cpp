#include "access/staged_account.h"

#include <algorithm>
#include <type_traits>

CreditKind KindOf(const CreditAmount &amount)
{
    if (std::holds_alternative<Megabytes>(amount)) {
        return CreditKind::Traffic;
    }
    if (std::holds_alternative<BaseUnits>(amount)) {
        return CreditKind::Money;
    }
    return std::holds_alternative<Hours>(amount) ? CreditKind::Time : CreditKind::Unlimited;
}

double NumberOf(const CreditAmount &amount)
{
    return std::visit(
        [](const auto &given) {
            if constexpr (std::is_same_v<decltype(given), const Unbounded &>) {
                return 0.0;
            } else {
                return given.value;
            }
        },
        amount);
}

bool StagedAccount::MayUnblock() const
{
    return std::any_of(credits.begin(), credits.end(), [](const StagedCredit &credit) {
        return credit.MayUnblock();
    });
}
