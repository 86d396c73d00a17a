// The address ranges and excluded addresses as they stand in the file of the key localip: whether they
// can be read. A file that was written by hand may hold texts where numbers are to be, and a range whose
// mask is not known would hold every address there is.
#pragma once

#include "config/config_store.h"

#include <QList>

#include <optional>

struct UnreadValue
{
    QString name;
    QString whatIsWrong; // said of the name, as in "is to be a number without quotation marks"
};

// Those of the key's values that are of another kind or out of range, and those that a range lacks.
[[nodiscard]] QList<UnreadValue> UnreadAddresses(const KeyReader &localIp);

// Names the first of them; nothing when all can be read.
[[nodiscard]] std::optional<SettingsFailure> AddressesFailure(const ConfigStore &store,
                                                              const KeyReader &localIp);

// The key localip, for LoadRanges() and LoadExclusions(): only when they give what the file means.
[[nodiscard]] tl::expected<KeyReader, SettingsFailure> ReadAddresses(const ConfigStore &store);
