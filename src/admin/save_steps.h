// The steps that the option windows and the setup wizard save alike: each goes on past what fails and
// notes it.
#pragma once

#include "admin/address_ranges.h"
#include "admin/edited_settings.h"
#include "admin/exclusions.h"
#include "admin/protocol_table.h"
#include "admin/save_report.h"

#include <functional>
#include <optional>

// First everything is looked up that a person must be asked, and only when all of it is answered the
// writing steps are called.
class SaveSteps
{
public:
    // Both outlive this.
    SaveSteps(const ConfigStore &configStore, const Answers &givenAnswers);

    // Users who have an address that is to be excluded. A lookup that fails counts as none; that it
    // failed is told.
    void AskOnExclusions(const QList<Ipv4> &base, const QList<Ipv4> &draft);

    // Ports that go although they are denied to somebody; nothing for a table that is not saved.
    void AskOnDenials(const std::optional<ProtocolTable> &protocols);

    [[nodiscard]] bool MayWrite() const;

    // `what` names the settings, as one of settings_names.
    void Edit(const char *what, ConfigKeyId key, const std::function<void(KeyEditor &)> &edit);
    void Add(const char *what, const SettingsResult &result) { report.Add(what, result); }

    // Addresses that stand there and could not be read stay as they are, and nothing is written.
    SettingsResult EditAddresses(const char *what, const std::function<void(KeyEditor &)> &edit);

    // The ranges, the exclusions, and then the users who are to be removed.
    void SaveNetwork(const Edited<QList<AddressRange>> &ranges,
                     const Edited<QList<Ipv4>> &exclusions);
    void SaveProtocols(const std::optional<ProtocolTable> &protocols);
    void SaveWizardProtocols(const std::optional<ProtocolTable> &protocols);

    [[nodiscard]] SaveReport Report() const;

private:
    void AskOnUsers(Ipv4 address, const std::vector<UserId> &users);
    void NoteUnread(Ipv4 address, const Failure &failure);
    [[nodiscard]] QList<Ipv4> ExclusionsToWrite(const QList<Ipv4> &base,
                                                const QList<Ipv4> &draft) const;

    const ConfigStore &store;
    const Answers &answers;
    QList<Ipv4> withUsersToRemove;
    SaveReport lookups; // what failed before anything was written
    SaveReport report;
};
