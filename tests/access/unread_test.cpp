// What could not be read is told, whichever of the statements it was: never taken for zero, empty or
// gone.
#include "access/group_list.h"
#include "access/list_commands.h"
#include "access/many_users.h"
#include "access/open_credit.h"
#include "access/stored_group.h"
#include "access/usage_records.h"
#include "access/user_list.h"
#include "apply_fixture.h"
#include "support/core/statement_hook.h"

using testing::IsEmpty;

namespace {

class Unread : public ApplyFixture
{
protected:
    void SetUp() override
    {
        ApplyFixture::SetUp();
        Execute("INSERT INTO logins (login, userid) VALUES ('anna', 1)");
        Execute("INSERT INTO billing (object_id, group_id, mode) VALUES (1, 81, 1), (1, 81, 2), "
                "(1, 81, 4)");
    }
};

} // namespace

TEST_F(Unread, SheetsDoNotOpen)
{
    EXPECT_THAT(UntoldFailures(Dsn(), [] { return LoadUser(UserId {1}).has_value(); }), IsEmpty());
    EXPECT_THAT(UntoldFailures(Dsn(), [] { return LoadGroup(GroupId {81}).has_value(); }),
                IsEmpty());
    EXPECT_THAT(UntoldFailures(Dsn(), [] { return ReadGroupToStore(GroupId {81}).has_value(); }),
                IsEmpty());
    Execute("UPDATE users SET group_id = 999 WHERE user_id = 1"); // a second statement looks for it
    EXPECT_THAT(UntoldFailures(Dsn(), [] { return LoadUser(UserId {1}).has_value(); }), IsEmpty());
}

TEST_F(Unread, PagesAreToldSo)
{
    for (const Owner &owner : {Owner {UserId {1}}, Owner {GroupId {81}}}) {
        EXPECT_THAT(UntoldFailures(Dsn(), [&] { return ReadLimits(owner).has_value(); }),
                    IsEmpty());
        EXPECT_THAT(UntoldFailures(Dsn(), [&] { return ReadTimeAccess(owner).has_value(); }),
                    IsEmpty());
        EXPECT_THAT(UntoldFailures(Dsn(), [&] { return ReadTimeRanges(owner).has_value(); }),
                    IsEmpty());
        EXPECT_THAT(UntoldFailures(Dsn(), [&] { return ReadProtocolChoice(owner).has_value(); }),
                    IsEmpty());
    }
    MemberTable members;
    members.Open(GroupId {81}, {});
    EXPECT_THAT(UntoldFailures(Dsn(), [&] { return ReadMembers(GroupId {81}).has_value(); }),
                IsEmpty());
    EXPECT_THAT(UntoldFailures(Dsn(), [&] { return ReadCandidates(members).has_value(); }),
                IsEmpty());
}

TEST_F(Unread, ListsAreToldSo)
{
    EXPECT_THAT(UntoldFailures(Dsn(), [] { return ReadUserList(0, true, true).has_value(); }),
                IsEmpty());
    EXPECT_THAT(UntoldFailures(Dsn(), [] { return CountListedUsers().has_value(); }), IsEmpty());
    EXPECT_THAT(UntoldFailures(Dsn(), [] { return ReadGroupList().has_value(); }), IsEmpty());
    EXPECT_THAT(UntoldFailures(Dsn(), [] { return CountGroups().has_value(); }), IsEmpty());
    EXPECT_THAT(UntoldFailures(Dsn(), [] { return ReadGroupNames().has_value(); }), IsEmpty());
    EXPECT_THAT(UntoldFailures(Dsn(), [] { return UserHasAccount(UserId {1}).has_value(); }),
                IsEmpty());
    EXPECT_THAT(UntoldFailures(Dsn(), [] { return GroupHasAccount(GroupId {81}).has_value(); }),
                IsEmpty());
    EXPECT_THAT(UntoldFailures(Dsn(), [] { return NamesOfUsers({UserId {1}}).has_value(); }),
                IsEmpty());
    EXPECT_THAT(UntoldFailures(Dsn(), [] { return ReadModeAndLimits(UserId {1}).has_value(); }),
                IsEmpty());
}

TEST_F(Unread, CreditsAndUsageAreToldSo)
{
    for (const Owner &owner : {Owner {UserId {1}}, Owner {GroupId {81}}}) {
        EXPECT_THAT(UntoldFailures(Dsn(), [&] { return HasCreditLeft(owner).has_value(); }),
                    IsEmpty());
        EXPECT_THAT(UntoldFailures(Dsn(), [&] { return HasOpenTrafficCredit(owner).has_value(); }),
                    IsEmpty());
    }
    EXPECT_THAT(UntoldFailures(Dsn(), [] { return HasOpenTimeCredit(UserId {1}).has_value(); }),
                IsEmpty());
    EXPECT_THAT(
        UntoldFailures(Dsn(), [] { return FindGroupTrafficRecord(GroupId {81}).has_value(); }),
        IsEmpty());
}
