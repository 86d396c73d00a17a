// What became of a save that goes on past whatever fails: a value, which a window tells in one
// message.
#pragma once

#include "actions/action.h"
#include "config/settings_failure.h"

#include <QCoreApplication>
#include <QList>
#include <QStringList>

// What a message calls the settings that are written together.
namespace settings_names {
constexpr const char *kAdapter = QT_TRANSLATE_NOOP("SettingsNames", "the network adapter");
constexpr const char *kAddresses =
    QT_TRANSLATE_NOOP("SettingsNames", "the address ranges and excluded addresses");
constexpr const char *kAuthentication = QT_TRANSLATE_NOOP("SettingsNames", "the authorization");
constexpr const char *kCurrency = QT_TRANSLATE_NOOP("SettingsNames", "the currency");
constexpr const char *kDefaultProfile =
    QT_TRANSLATE_NOOP("SettingsNames", "the properties of new users");
constexpr const char *kExclusions = QT_TRANSLATE_NOOP("SettingsNames", "the excluded addresses");
constexpr const char *kIdentification =
    QT_TRANSLATE_NOOP("SettingsNames", "the identification of users");
constexpr const char *kMonitorMode = QT_TRANSLATE_NOOP("SettingsNames", "the monitored protocols");
constexpr const char *kMonitorModeAndIdentification =
    QT_TRANSLATE_NOOP("SettingsNames", "the monitored protocols and identification of users");
constexpr const char *kPrice = QT_TRANSLATE_NOOP("SettingsNames", "the price");
constexpr const char *kRanges = QT_TRANSLATE_NOOP("SettingsNames", "the address ranges");
constexpr const char *kUpdatePeriod = QT_TRANSLATE_NOOP("SettingsNames", "the update period");
constexpr const char *kWorkstations = QT_TRANSLATE_NOOP(
    "SettingsNames", "the update period, control of MAC addresses and client program");
} // namespace settings_names

struct SaveReport
{
    // Unanswered ones: the same save is to be run again with their answers. They come before anything
    // is written, unless somebody else changes the same rows at that moment.
    QList<Question> questions;
    bool isDeclined = false; // a person said No to what belongs to the save: nothing was written
    bool isUnknown = false; // the save was given up on its way: some of it may have been written

    QList<SettingsFailure> settings; // files that could not be read or written
    QStringList unwritten; // names of the settings that stay as they were
    QStringList notDone; // sentences on what failed in the database
    QStringList leftOut; // sentences on what was not tried, and why
    QList<Failure> statements; // those that failed, in their order

    // True when everything was written.
    [[nodiscard]] bool IsDone() const;

    // What a person is told when something failed: what was not done, that the rest was written, and
    // why. Empty when everything was written, and while there are questions.
    [[nodiscard]] QString InWords() const;

    void Add(const char *what, const SettingsResult &result);
    void Add(ActionId action, const Outcome &outcome);
};

template <>
struct GivenUp<SaveReport>
{
    // Whatever the database kept, some of the settings may have been written before.
    [[nodiscard]] static SaveReport As(const Failure &failure, bool mayBeKept)
    {
        Q_UNUSED(mayBeKept)
        SaveReport report;
        report.isUnknown = true;
        report.statements << failure;
        return report;
    }
};
