// Addresses inside the local ranges that the accounting service ignores, such as servers and
// gateways. Kept as exclude<i> under the store's key localip; the list ends at the first missing one.
#pragma once

#include "base/ipv4.h"

#include <QList>

#include <functional>
#include <optional>

class ConfigStore;
class KeyEditor;
class Prompt;

constexpr qsizetype kMaxExclusions = 10; // of the option dialogs
constexpr qsizetype kMaxWizardExclusions = 50; // of the setup wizard

enum class ExclusionProblem { Blank, AlreadyExcluded };

// What a person is told about it.
[[nodiscard]] QString TextOf(ExclusionProblem problem);

// Whether the address may join the list; nothing and 0.0.0.0, the mark of an empty slot, are blank.
[[nodiscard]] std::optional<ExclusionProblem> CheckExclusion(const QList<Ipv4> &existing,
                                                             std::optional<Ipv4> address);

// The filled ones of the first `slotCount` slots.
[[nodiscard]] QList<Ipv4> LoadExclusions(const ConfigStore &store, qsizetype slotCount);

// Writes all ten slots, an empty one as 0. Before each address is written, a user who has it is
// offered for removal; whatever the answer, the address is then excluded. `usersChanged` is called
// after each removal.
void SaveExclusions(const ConfigStore &store,
                    const QList<Ipv4> &exclusions,
                    Prompt &prompt,
                    const std::function<void()> &usersChanged);

// As the setup wizard saves: the old ones are deleted, only filled slots are written, and the users
// table is not looked at.
void ReplaceExclusions(KeyEditor &localIp, const QList<Ipv4> &exclusions);
