#include "admin/local_addresses.h"

#include "admin/address_ranges.h"
#include "admin/exclusions.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(LocalAddresses)
};

// Nothing when rangenum can be read; without it there is no range.
std::optional<QString> WhatIsWrongWithCount(const KeyReader &localIp)
{
    if (localIp.IsOfAnotherKind(values::kRangeNum)) {
        return Words::tr("is to be a text in quotation marks");
    }
    const QString text = localIp.ReadText(values::kRangeNum).value_or(QString()).trimmed();
    bool isNumber = true;
    const int count = text.isEmpty() ? 0 : text.toInt(&isNumber);
    if (!isNumber || count < 0 || count > kMaxRanges) {
        return Words::tr("is to be a number from %1 to %2").arg(0).arg(kMaxRanges);
    }
    return std::nullopt;
}

UnreadValue NoNumber(const NumberFamily &family, int index)
{
    return {QString::fromLatin1(family.prefix) + QString::number(index),
            Words::tr("is to be a number without quotation marks")};
}

} // namespace

QList<UnreadValue> UnreadAddresses(const KeyReader &localIp)
{
    QList<UnreadValue> unread;
    if (const auto wrong = WhatIsWrongWithCount(localIp)) {
        unread << UnreadValue {QString::fromLatin1(values::kRangeNum.name), *wrong};
    }
    const int count = unread.isEmpty() ? localIp.ReadInteger(values::kRangeNum) : 0;
    for (int i = 0; i < count; ++i) {
        for (const NumberFamily &family : {values::kNet, values::kMask}) {
            if (!localIp.ReadNumber(family, i)) {
                unread << NoNumber(family, i);
            }
        }
    }
    for (int i = 0; i < kMaxWizardExclusions; ++i) {
        if (localIp.IsOfAnotherKind(values::kExclude, i)) {
            unread << NoNumber(values::kExclude, i);
        }
    }
    return unread;
}

std::optional<SettingsFailure> AddressesFailure(const ConfigStore &store, const KeyReader &localIp)
{
    const QList<UnreadValue> unread = UnreadAddresses(localIp);
    if (unread.isEmpty()) {
        return std::nullopt;
    }
    const UnreadValue &first = unread.first();
    return SettingsFailure {store.FileOf(ConfigKeyId::LocalIp),
                            0,
                            Words::tr("cannot be used: %1 %2").arg(first.name, first.whatIsWrong)};
}

tl::expected<KeyReader, SettingsFailure> ReadAddresses(const ConfigStore &store)
{
    auto localIp = store.ReadKey(ConfigKeyId::LocalIp);
    if (localIp) {
        if (const auto failure = AddressesFailure(store, *localIp)) {
            return tl::unexpected(*failure);
        }
    }
    return localIp;
}
