#include "action_cases.h"

#include "access/block_commands.h"
#include "access/list_commands.h"
#include "access/many_users.h"
#include "access/stored_times.h"
#include "accounts/credit.h"
#include "accounts/sheet_actions.h"
#include "admin/exclusions.h"
#include "admin/login_storage.h"
#include "admin/protocol_storage.h"
#include "admin/purge.h"
#include "admin/unmonitored.h"
#include "db/session.h"
#include "exchange/one_user.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr UserId kAnna {1};
constexpr UserId kBert {2};
constexpr GroupId kOffice {90};
constexpr double kRate = 2.5; // of the currency

void AddNothing() { }

// A limit that is used up, so that a raised one lifts the block.
void BlockForTraffic()
{
    Execute(
        "UPDATE users SET mode = 1, trafperiod = 2, traflim = 100, blocked = true, blockreason = 1 "
        "WHERE user_id = 1");
    Execute("UPDATE traffic_use SET data = 150, blocked = 1 WHERE user_id = 1 AND period = 2");
}

void BlockGroupForTraffic()
{
    Execute("UPDATE groups SET mode = 1, trafperiod = 2, traflim = 100, blocked = true, "
            "blockreason = 1 WHERE group_id = 90");
    Execute("UPDATE users SET blocked = true, blockreason = 1 WHERE group_id = 90");
    Execute("INSERT INTO traffic_use (group_id, period, data, blocked) VALUES (90, 2, 150, 1)");
}

void GiveCredits()
{
    Execute("UPDATE users SET mode = 2, blocked = true, blockreason = 1 WHERE user_id = 1");
    Execute("UPDATE groups SET mode = 2, blocked = true, blockreason = 1 WHERE group_id = 90");
    Execute("INSERT INTO billing (mode, group_id, data, unlimited) VALUES (2, 90, 5, 1)");
}

UserRecord Anna()
{
    const auto record = LoadUser(kAnna);
    EXPECT_TRUE(record && *record);
    return record.value().value();
}

GroupRecord Office()
{
    const auto record = LoadGroup(kOffice);
    EXPECT_TRUE(record && *record);
    return record.value().value();
}

// Everything on the sheet is changed, and another user loses the address.
Action StoreAnna()
{
    UserRecord record = Anna();
    record.draft.fullName = u"Anna Berg"_s;
    record.draft.ipAddress = u"10.0.0.2"_s;
    record.draft.groupId = kEverybodyGroup;
    record.draft.mode = AccountingMode::TrafficAndTime;
    record.draft.authRequired = true;
    record.limits.traffic = WholeMegabytes {200};
    record.limits.time = WholeHours {8};
    record.times.grant = true;
    record.times.Add({1, u"08:00:00"_s, u"09:00:00"_s});
    record.protocols.Select(u"FTP"_s, true);
    return ApplyUserAction(record, kRate);
}

Action StoreAnnasBlockAndCredit()
{
    UserRecord record = Anna();
    record.block.requested = !record.block.opened;
    record.limits.ownPrice = true;
    record.limits.price = 2.5;
    record.account.credits = {{BaseUnits {10}, true, {}}};
    return ApplyUserAction(record, kRate);
}

// The same one each time: an engine may list the members in any order.
void Remove(MemberTable &members, UserId userId)
{
    const auto member = std::ranges::find(members.Listed(), userId, &Member::userId);
    members.Remove(static_cast<size_t>(member - members.Listed().begin()));
}

Action StoreOffice()
{
    GroupRecord record = Office();
    record.draft.name = u"Sales"_s;
    Remove(record.members, kAnna);
    EXPECT_TRUE(record.members.Add({UserId {9}, u"zoe"_s, kEverybodyGroup}));
    record.block.requested = true;
    record.draft.mode = AccountingMode::Traffic;
    record.limits.traffic = WholeMegabytes {5};
    record.protocols.Select(u"FTP"_s, true);
    return ApplyGroupAction(record, kRate);
}

Action StoreOfficesTimes()
{
    const auto stored = ReadTimeRanges(kOffice);
    EXPECT_TRUE(stored && stored->size() == 1);
    TimeRanges times;
    times.Rebuild(stored.value());
    times.grant = true;
    times.Delete(0);
    times.Add({1, u"08:00:00"_s, u"09:00:00"_s});
    return ApplyGroupTimesAction(kOffice, times);
}

Action RaiseOfficesLimit()
{
    GroupRecord record = Office();
    record.limits.traffic = WholeMegabytes {500};
    return ApplyGroupAction(record, kRate);
}

Action CreditAnna()
{
    return WriteAccountAction(
        kAnna, AccountingMode::Provider, {{{Megabytes {10}, true, {}}}, {BillId {1}}}, kRate);
}

Action CreditOffice()
{
    return WriteAccountAction(
        kOffice, AccountingMode::Provider, {{{BaseUnits {10}, true, {}}}, {BillId {3}}}, kRate);
}

Action CreditAnnasLimit()
{
    return WriteAccountAction(
        kAnna, AccountingMode::Traffic, {{{Megabytes {100}, true, {}}}, {}}, kRate);
}

Action SaveTheProtocols()
{
    ProtocolTable table = LoadProtocols().value();
    EXPECT_EQ(table.Add(u"Chat"_s), std::nullopt);
    const auto chat = table.IndexOf(u"Chat"_s);
    EXPECT_EQ(table.AddPort(chat, 5222), std::nullopt);
    EXPECT_EQ(table.AddPort(chat, 5223), std::nullopt);
    table.SetMonitored(chat, true);
    EXPECT_EQ(table.AddPort(table.IndexOf(u"HTTP"_s), 8000), std::nullopt);
    table.Remove(table.IndexOf(u"NNTP"_s));
    table.RemovePort(table.IndexOf(u"FTP"_s), 0);
    table.SetMonitored(table.IndexOf(u"SSH"_s), false);
    return SaveProtocolsAction(table, std::make_shared<QStringList>());
}

// The wizard's action of one protocol that it changed.
Action SaveSetup(const QString &protocol)
{
    ProtocolTable table = LoadWizardProtocols().value();
    EXPECT_EQ(table.Add(u"Chat"_s), std::nullopt);
    EXPECT_EQ(table.AddPort(table.IndexOf(u"Chat"_s), 5222), std::nullopt);
    EXPECT_EQ(table.AddPort(table.IndexOf(u"FTP"_s), 2121), std::nullopt);
    table.RemovePort(table.IndexOf(u"FTP"_s), 0);
    table.Remove(table.IndexOf(u"NNTP"_s));
    for (const ProtocolAction &each : SaveWizardProtocolActions(table)) {
        if (each.protocol == protocol) {
            return each.action;
        }
    }
    ADD_FAILURE() << qPrintable(protocol);
    return {};
}

Action SaveTheLogins()
{
    LoginTable table = LoadLogins().value();
    const auto entry = [](const QString &name) {
        LoginEntry login;
        login.login.name = name;
        login.password = login.retyped = u"secret"_s;
        login.passwordTouched = true;
        return login;
    };
    LoginEntry changed = entry(u"anna"_s);
    changed.login = table.Logins().at(0);
    changed.login.allowStats = true;
    table.Put(changed, 0);
    LoginEntry added = entry(u"zoe"_s);
    table.Put(added, std::nullopt);
    LoginEntry second = entry(u"guest"_s);
    table.Put(second, std::nullopt);
    table.Remove(1);
    return SaveLoginsAction(table.Changes(), std::make_shared<LoginSaveReport>());
}

// A server that numbers the rows itself does not know of those that came with their numbers.
void PassTheNumbersThatAreTaken()
{
    BlockForTraffic();
    for (int row = 0; row < 10; ++row) {
        Execute("INSERT INTO users (username) VALUES ('nobody')");
        Execute("INSERT INTO groups (name) VALUES ('nobody')");
    }
    Execute("DELETE FROM users WHERE username = 'nobody'");
    Execute("DELETE FROM groups WHERE name = 'nobody'");
}

// A new user, one with other texts and addresses, and one whose raised limit lifts the service's block.
Action ImportThree()
{
    const auto table = ReadImportTable(
        "Name,Full name,IP,Group,Create group,Access,Traffic limit,Blocked,Login,Password,Money "
        "credit\n"
        "anna,,10.0.0.1,Office,,,200,,,,\n"
        "bert,Bert Berg,10.0.0.22,Sales,yes,,,yes,bert,secret,\n"
        "dora,Dora,10.0.0.2,Office,,Provider,,,dora,secret,10\n");
    ImportJob job {table.value(), {}, {}};
    job.plan = PlanImport(job.table, ReadStoredUsers().value(), job.context);
    EXPECT_EQ(job.plan.Count(ImportState::Refused), 0);
    return ImportAction(std::make_shared<const ImportJob>(job));
}

Action PurgeTraffic()
{
    const auto steps = PurgeSteps(
        {.keep = PurgeChoice::Keep::Nothing, .deleteUsers = true, .since = {}, .until = {}},
        QDate(2026, 11, 21));
    EXPECT_FALSE(steps.empty());
    return PurgeAction(steps.at(0), std::make_shared<qint64>());
}

Action SetBothUsers()
{
    return SetModeAndLimitsAction({kAnna, kBert},
                                  {.mode = AccountingMode::Traffic,
                                   .traffic = WholeMegabytes {7},
                                   .time = {},
                                   .period = LimitPeriod::Day});
}

void BlockByAdministrator()
{
    Execute("UPDATE users SET blocked = true, blockreason = 3");
}

Action BlockBothUsers()
{
    return BlockUsersAction({kAnna, kBert}, std::make_shared<std::vector<BlockChange>>());
}

Action UnblockBothUsers()
{
    return UnblockUsersAction({kAnna, kBert}, std::make_shared<std::vector<BlockChange>>());
}

// One of them was blocked for traffic before, the other not at all.
Action UndoBothBlocks()
{
    const StoredBlock now {true, BlockReason::Administrator};
    return UndoBlocksAction({{kAnna, {true, BlockReason::TrafficUsedUp}, now},
                             {kBert, {false, BlockReason::None}, now}},
                            std::make_shared<QStringList>());
}

} // namespace

const std::vector<ActionCase> &ActionCases() // NOLINT(readability-function-size): it is a table
{
    static const std::vector<ActionCase> cases {
        {"a user's sheet", ActionId::ApplyUser, BlockForTraffic, StoreAnna},
        {"a user's block and credit", ActionId::ApplyUser, AddNothing, StoreAnnasBlockAndCredit},
        {"a group's sheet", ActionId::ApplyGroup, AddNothing, StoreOffice},
        {"a group's times",
         ActionId::ApplyGroupTimes,
         [] {
             Execute("INSERT INTO time_blocked (group_id, dayofweek, timestart, timestop) "
                     "VALUES (90, 2, '10:00:00', '11:00:00')");
         },
         StoreOfficesTimes},
        {"a group's raised limit", ActionId::ApplyGroup, BlockGroupForTraffic, RaiseOfficesLimit},
        {"a user's credits", ActionId::WriteAccount, GiveCredits, CreditAnna},
        {"a group's credits", ActionId::WriteAccount, GiveCredits, CreditOffice},
        {"a limit's credit", ActionId::WriteAccount, BlockForTraffic, CreditAnnasLimit},
        {"mode and limits", ActionId::SetModeAndLimits, AddNothing, SetBothUsers},
        {"users moved",
         ActionId::MoveUsers,
         AddNothing,
         [] {
             return MoveUsersAction({kAnna, kBert}, kEverybodyGroup);
         }},
        {"users deleted",
         ActionId::DeleteUsers,
         AddNothing,
         [] {
             return DeleteUsersAction({kAnna, kBert});
         }},
        {"users unmonitored",
         ActionId::StopMonitoring,
         AddNothing,
         [] {
             return StopMonitoringAction({kAnna, kBert});
         }},
        {"users blocked", ActionId::BlockUsers, BlockForTraffic, BlockBothUsers},
        {"users unblocked", ActionId::UnblockUsers, BlockByAdministrator, UnblockBothUsers},
        {"a block undone", ActionId::UndoBlocks, BlockByAdministrator, UndoBothBlocks},
        {"users monitored",
         ActionId::MonitorUsers,
         [] { Execute("UPDATE users SET monitored = false"); },
         [] {
             return MonitorUsersAction({kAnna, kBert});
         }},
        {"a user added",
         ActionId::AddUser,
         // A server's counter gives the numbers from 1, which rows with numbers of their own have.
         [] { Execute("UPDATE users SET user_id = user_id + 100"); },
         [] {
             const auto plan =
                 PlanNewUser({.name = u"carl"_s, .ip = 0x0A0000FEU, .mac = u"0011223344FE"_s}, {});
             EXPECT_EQ(plan.value().refusal, QString());
             return AddUserAction(*plan, std::make_shared<UserId>());
         }},
        {"a group added",
         ActionId::AddGroup,
         AddNothing,
         [] { return AddGroupAction(u"Sales"_s, std::make_shared<GroupId>()); }},
        {"a group renamed",
         ActionId::RenameGroup,
         AddNothing,
         [] { return RenameGroupAction(kOffice, u"Sales"_s); }},
        {"a group of the list deleted",
         ActionId::DeleteGroupOfList,
         AddNothing,
         [] { return DeleteGroupOfListAction(kOffice); }},
        {"a group of the dialog deleted",
         ActionId::DeleteGroupOfDialog,
         AddNothing,
         [] { return DeleteGroupOfDialogAction(kOffice); }},
        {"addresses excluded",
         ActionId::ExcludeAddress,
         AddNothing,
         [] {
             return ExcludeAddressAction({0x0A000001U, 0x0A000002U});
         }},
        {"protocols", ActionId::SaveProtocols, AddNothing, SaveTheProtocols},
        {"the wizard's new protocol",
         ActionId::SaveSetupProtocols,
         AddNothing,
         [] { return SaveSetup(u"Chat"_s); }},
        {"the wizard's changed protocol",
         ActionId::SaveSetupProtocols,
         AddNothing,
         [] { return SaveSetup(u"FTP"_s); }},
        {"the wizard's unlisted protocol",
         ActionId::SaveSetupProtocols,
         AddNothing,
         [] { return SaveSetup(u"NNTP"_s); }},
        {"logins", ActionId::SaveLogins, AddNothing, SaveTheLogins},
        {"an import", ActionId::ImportUsers, PassTheNumbersThatAreTaken, ImportThree},
        {"a purge", ActionId::Purge, AddNothing, PurgeTraffic},
    };
    return cases;
}

void PrepareRows()
{
    Execute("INSERT INTO groups (group_id, name) VALUES (90, 'Office')");
    Execute("INSERT INTO users (user_id, username, group_id, ip_addr, mac_addr) VALUES "
            "(1, 'anna', 90, '10.0.0.1', '000000000001')");
    Execute("INSERT INTO users (user_id, username, group_id, ip_addr, mac_addr) VALUES "
            "(2, 'bert', 90, '10.0.0.2', '000000000002')");
    Execute("INSERT INTO users (user_id, username, group_id, ip_addr, mac_addr) VALUES "
            "(9, 'zoe', 80, '10.0.0.9', '000000000009')");
    Execute("INSERT INTO sites (sitename) VALUES ('example.org')");
    for (const quint32 user : {1U, 2U}) {
        Execute("INSERT INTO traffic_use (user_id, period, data) VALUES ((?), 2, 5)", user);
        Execute("INSERT INTO time_use (user_id, period, data) VALUES ((?), 2, 5)", user);
        Execute("INSERT INTO siteaccess (user_id, site_id) VALUES ((?), 1)", user);
        Execute("INSERT INTO billing (mode, object_id, data) VALUES (2, (?), 5)", user);
        Execute("INSERT INTO time_blocked (user_id, dayofweek, timestart, timestop) VALUES "
                "((?), 2, '10:00:00', '11:00:00')",
                user);
    }
    Execute("INSERT INTO port_blocked (user_id, port_id) VALUES (1, 4)");
    Execute("INSERT INTO port_blocked (user_id, port_id) VALUES (2, 12)");
    Execute("INSERT INTO logins (login, pwd, userid) VALUES ('anna', 'd1', 1)");
    Execute("INSERT INTO logins (login, pwd, userid) VALUES ('bert', 'd2', 2)");
}
