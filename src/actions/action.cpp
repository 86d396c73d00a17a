#include "actions/action.h"

#include <QCoreApplication>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(Action)
};

// What was not done, and what stands in the database now.
QString WhatStands(const ActionKind &kind, Outcome::State state)
{
    switch (state) {
    case Outcome::State::Partly:
        return Words::tr(kind.notDone) + u' '
            + Words::tr("What is not named here was written as it was entered.");
    case Outcome::State::Unknown:
        return Words::tr(kind.unknown) + u' '
            + Words::tr("Please look at it again before you repeat it.");
    default:
        return Words::tr(kind.notDone) + u' ' + Words::tr("Nothing was changed in the database.");
    }
}

} // namespace

const QList<ActionKind> &AllActions() // NOLINT(readability-function-size): it is a table
{
    constexpr bool kOne = true; // all of it or nothing
    constexpr bool kEach = false;
    constexpr bool kEnforced = true;
    constexpr bool kShown = false; // seen by administrators alone
    static const QList<ActionKind> actions {
        {ActionId::ApplyUser,
         "user.apply",
         kOne,
         kEnforced,
         QT_TRANSLATE_NOOP("Action", "The user's properties were not stored."),
         QT_TRANSLATE_NOOP("Action", "It is not known whether the user's properties were stored.")},
        {ActionId::ApplyGroup,
         "group.apply",
         kOne,
         kEnforced,
         QT_TRANSLATE_NOOP("Action", "The group's properties were not stored."),
         QT_TRANSLATE_NOOP("Action",
                           "It is not known whether the group's properties were stored.")},
        {ActionId::ApplyGroupTimes,
         "group.apply-times",
         kOne,
         kEnforced,
         QT_TRANSLATE_NOOP("Action", "The group's times were not stored."),
         QT_TRANSLATE_NOOP("Action", "It is not known whether the group's times were stored.")},
        {ActionId::WriteAccount,
         "account.write",
         kOne,
         kEnforced,
         QT_TRANSLATE_NOOP("Action", "The account was not changed."),
         QT_TRANSLATE_NOOP("Action", "It is not known whether the account was changed.")},
        {ActionId::SetModeAndLimits,
         "users.set-mode-and-limits",
         kOne,
         kEnforced,
         QT_TRANSLATE_NOOP("Action", "No user's access properties were changed."),
         QT_TRANSLATE_NOOP("Action",
                           "It is not known whether the users' access properties were changed.")},
        {ActionId::AddUser,
         "user.add",
         kOne,
         kEnforced,
         QT_TRANSLATE_NOOP("Action", "The user was not added."),
         QT_TRANSLATE_NOOP("Action", "It is not known whether the user was added.")},
        {ActionId::MoveUsers,
         "users.move",
         kOne,
         kEnforced,
         QT_TRANSLATE_NOOP("Action", "The group was not changed."),
         QT_TRANSLATE_NOOP("Action", "It is not known whether the group was changed.")},
        {ActionId::DeleteUsers,
         "users.delete",
         kOne,
         kEnforced,
         QT_TRANSLATE_NOOP("Action", "No user was deleted."),
         QT_TRANSLATE_NOOP("Action", "It is not known whether the users were deleted.")},
        {ActionId::StopMonitoring,
         "users.stop-monitoring",
         kOne,
         kEnforced,
         QT_TRANSLATE_NOOP("Action", "No user was moved to the unmonitored list."),
         QT_TRANSLATE_NOOP(
             "Action", "It is not known whether the users were moved to the unmonitored list.")},
        {ActionId::MonitorUsers,
         "users.monitor",
         kOne,
         kEnforced,
         QT_TRANSLATE_NOOP("Action", "No user was brought back under monitoring."),
         QT_TRANSLATE_NOOP(
             "Action", "It is not known whether the users were brought back under monitoring.")},
        {ActionId::BlockUsers,
         "users.block",
         kOne,
         kEnforced,
         QT_TRANSLATE_NOOP("Action", "No user was blocked."),
         QT_TRANSLATE_NOOP("Action", "It is not known whether the users were blocked.")},
        {ActionId::UnblockUsers,
         "users.unblock",
         kOne,
         kEnforced,
         QT_TRANSLATE_NOOP("Action", "No user was unblocked."),
         QT_TRANSLATE_NOOP("Action", "It is not known whether the users were unblocked.")},
        {ActionId::UndoBlocks,
         "users.undo-block",
         kOne,
         kEnforced,
         QT_TRANSLATE_NOOP("Action", "Nothing was undone."),
         QT_TRANSLATE_NOOP("Action", "It is not known whether the change was undone.")},
        {ActionId::AddGroup,
         "group.add",
         kOne,
         kShown,
         QT_TRANSLATE_NOOP("Action", "The group was not added."),
         QT_TRANSLATE_NOOP("Action", "It is not known whether the group was added.")},
        {ActionId::RenameGroup,
         "group.rename",
         kOne,
         kShown,
         QT_TRANSLATE_NOOP("Action", "The group was not renamed."),
         QT_TRANSLATE_NOOP("Action", "It is not known whether the group was renamed.")},
        {ActionId::DeleteGroupOfList,
         "group.delete",
         kOne,
         kEnforced,
         QT_TRANSLATE_NOOP("Action", "The group was not deleted."),
         QT_TRANSLATE_NOOP("Action", "It is not known whether the group was deleted.")},
        {ActionId::DeleteGroupOfDialog,
         "group.remove",
         kOne,
         kEnforced,
         QT_TRANSLATE_NOOP("Action", "The group was not deleted."),
         QT_TRANSLATE_NOOP("Action", "It is not known whether the group was deleted.")},
        {ActionId::ExcludeAddress,
         "address.exclude",
         kEach,
         kEnforced,
         QT_TRANSLATE_NOOP("Action", "The user of an excluded address was not removed."),
         QT_TRANSLATE_NOOP("Action",
                           "It is not known whether the user of an excluded address was removed.")},
        {ActionId::SaveProtocols,
         "protocols.save",
         kEach,
         kEnforced,
         QT_TRANSLATE_NOOP("Action", "Not all protocols and ports were stored."),
         QT_TRANSLATE_NOOP("Action",
                           "It is not known whether the protocols and ports were stored.")},
        {ActionId::SaveSetupProtocols,
         "protocols.set-up",
         kOne,
         kEnforced,
         QT_TRANSLATE_NOOP("Action", "Not all protocols and ports were stored."),
         QT_TRANSLATE_NOOP("Action",
                           "It is not known whether the protocols and ports were stored.")},
        {ActionId::SaveLogins,
         "logins.save",
         kEach,
         kEnforced,
         QT_TRANSLATE_NOOP("Action", "Not all logins were stored."),
         QT_TRANSLATE_NOOP("Action", "It is not known whether the logins were stored.")},
        {ActionId::ImportUsers,
         "users.import",
         kOne,
         kEnforced,
         QT_TRANSLATE_NOOP("Action", "Nothing was imported."),
         QT_TRANSLATE_NOOP("Action", "It is not known whether the users were imported.")},
        {ActionId::Purge,
         "database.purge",
         kEach,
         kShown,
         QT_TRANSLATE_NOOP("Action", "Not all records were removed."),
         QT_TRANSLATE_NOOP("Action", "It is not known whether the records were removed.")},
    };
    return actions;
}

const ActionKind &KindOf(ActionId id)
{
    const auto &actions = AllActions();
    return *std::find_if(
        actions.begin(), actions.end(), [id](const ActionKind &kind) { return kind.id == id; });
}

QString InWords(ActionId id, const Outcome &outcome)
{
    if (outcome.state == Outcome::State::Refused) {
        return outcome.refusal;
    }
    QStringList reasons = ReasonsOf(outcome.failures);
    if (!outcome.refusal.isEmpty()) {
        reasons.prepend(outcome.refusal);
    }
    return WhatStands(KindOf(id), outcome.state) + u"\n\n"_s + reasons.join(u"\n\n"_s);
}
