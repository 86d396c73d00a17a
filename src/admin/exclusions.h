// Addresses inside the local ranges that the accounting service ignores, such as servers and
// gateways. Kept as exclude<i> under the store's key localip; the list ends at the first missing one.
#pragma once

#include "actions/action.h"
#include "base/ipv4.h"
#include "db/ids.h"

#include <QList>

#include <optional>
#include <vector>

class KeyEditor;
class KeyReader;

constexpr qsizetype kMaxExclusions = 10; // of the option dialogs
constexpr qsizetype kMaxWizardExclusions = 50; // of the setup wizard

enum class ExclusionProblem { Blank, AlreadyExcluded };

// What a person is told about it.
[[nodiscard]] QString TextOf(ExclusionProblem problem);

// Whether the address may join the list; nothing and 0.0.0.0, the mark of an empty slot, are blank.
[[nodiscard]] std::optional<ExclusionProblem> CheckExclusion(const QList<Ipv4> &existing,
                                                             std::optional<Ipv4> address);

// The filled ones of the first `slotCount` slots.
[[nodiscard]] QList<Ipv4> LoadExclusions(const KeyReader &localIp, qsizetype slotCount);

// The users who have the address.
[[nodiscard]] Result<std::vector<UserId>> UsersOf(Ipv4 address);

// Whether these users of an address that is to be excluded are removed. Whatever the answer, the
// address is then excluded. The question still lacks their names.
[[nodiscard]] Question QuestionOnUsersOf(Ipv4 address, const std::vector<UserId> &users);

// The names of those users that are there, for the question.
[[nodiscard]] Result<QStringList> NamesOf(const std::vector<UserId> &users);

// Removes the users of these addresses.
[[nodiscard]] Action ExcludeAddressAction(const QList<Ipv4> &addresses);

// Writes all ten slots, an empty one as 0. Exclusions that were not touched stay as they stand now;
// what is missing of their ten slots becomes 0.
void SaveExclusions(KeyEditor &localIp, const QList<Ipv4> &base, const QList<Ipv4> &draft);

// As the setup wizard saves: the old ones are deleted, only filled slots are written, and the users
// table is not looked at. Exclusions that were not touched stay as they stand now.
void ReplaceExclusions(KeyEditor &localIp, const QList<Ipv4> &base, const QList<Ipv4> &draft);
