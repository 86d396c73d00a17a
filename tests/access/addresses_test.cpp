// Addresses that another user holds.
#include "apply_fixture.h"

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

namespace {

const char *const kGeneral = "UPDATE users SET fullname = (?), descrip = (?) WHERE user_id = (?)";

class Addresses : public ApplyFixture
{
protected:
    [[nodiscard]] static UserRecord Record() { return LoadUser(UserId {1}).value().value(); }

    // The changing statements.
    [[nodiscard]] QStringList Apply(const UserRecord &record, bool yes = false)
    {
        return ChangesOf(UserAction(record), yes);
    }
};

} // namespace

TEST_F(Addresses, AnAddressHeldByAnotherUserIsTakenOnlyAfterAYes)
{
    UserRecord record = Record();
    record.draft.ipAddress = u"10.0.0.2"_s;
    record.draft.fullName = u"Anna"_s;
    EXPECT_FALSE(Apply(record).contains(u"UPDATE users SET ip_addr = (?)  WHERE user_id = (?)"_s));
    EXPECT_THAT(ran.asked,
                ElementsAre(u"This IP address is bind to another user. This user will be removed. "
                            "Proceed?"_s));
    EXPECT_THAT(RowsOf("SELECT user_id, ip_addr, fullname FROM users WHERE user_id < 3 "
                       "ORDER BY user_id"),
                ElementsAre(u"1|10.0.0.1|Anna"_s, u"2|10.0.0.2|"_s));

    const QStringList run = Apply(record, true);
    EXPECT_THAT(run.mid(0, 3),
                ElementsAreArray(Strings({kGeneral,
                                          "DELETE from users WHERE user_id=(?)",
                                          "UPDATE users SET ip_addr = (?)  WHERE user_id = (?)"})));
    EXPECT_THAT(RowsOf("SELECT user_id, ip_addr FROM users WHERE user_id < 3"),
                ElementsAre(u"1|10.0.0.2"_s));
}

// Nothing is written before the answer, and another holder is another question.
TEST_F(Addresses, AnAnswerHoldsForTheUserThatItWasGivenFor)
{
    UserRecord record = Record();
    record.draft.ipAddress = u"10.0.0.2"_s;
    const QStringList before = EveryRow();
    const Outcome first = RunAction(UserAction(record), {}, nullptr);
    EXPECT_EQ(first.state, Outcome::State::NeedsAnswers);
    ASSERT_EQ(first.questions.size(), 1);
    EXPECT_TRUE(first.questions.front().destroys);
    EXPECT_EQ(first.questions.front().goes,
              RowsOf("SELECT username FROM users WHERE user_id = 2")[0]);
    EXPECT_EQ(EveryRow(), before);

    Execute("UPDATE users SET ip_addr = '10.0.0.3' WHERE user_id = 2");
    Execute("UPDATE users SET ip_addr = '10.0.0.2' WHERE user_id = 9");
    const Answers answers {{first.questions.front().key, true}};
    const Outcome second = RunAction(UserAction(record), answers, nullptr);
    EXPECT_EQ(second.state, Outcome::State::NeedsAnswers);
    ASSERT_EQ(second.questions.size(), 1);
    EXPECT_NE(second.questions.front().key, first.questions.front().key);

    Execute("UPDATE users SET ip_addr = '' WHERE user_id = 9");
    EXPECT_TRUE(RunAction(UserAction(record), answers, nullptr).IsDone());
    EXPECT_THAT(RowsOf("SELECT user_id FROM users ORDER BY user_id"),
                ElementsAre(u"1"_s, u"2"_s, u"9"_s));
}

TEST_F(Addresses, AMacAddressHeldByAnotherUserIsNeverNoticed)
{
    UserRecord record = Record();
    record.draft.macAddress = u"000000000002"_s;
    (void)Apply(record);
    EXPECT_THAT(ran.asked, IsEmpty());
    EXPECT_THAT(
        RowsOf("SELECT user_id FROM users WHERE mac_addr = '000000000002' ORDER BY user_id"),
        ElementsAre(u"1"_s, u"2"_s));

    // The text is compared with IP addresses, so one that reads like an address does find a holder.
    Execute("UPDATE users SET ip_addr = '192.168.10.1' WHERE user_id = 2");
    record = Record();
    record.draft.macAddress = u"192.168.10.1"_s;
    (void)Apply(record);
    EXPECT_THAT(ran.asked,
                ElementsAre(u"This MAC address is bind to another user. This user will be removed. "
                            "Proceed?"_s));

    // Who is removed for the IP address is not asked about again.
    record.draft.ipAddress = u"192.168.10.1"_s;
    EXPECT_EQ(Apply(record, true).count(u"DELETE from users WHERE user_id=(?)"_s), 1);
    EXPECT_THAT(ran.asked,
                ElementsAre(u"This IP address is bind to another user. This user will be removed. "
                            "Proceed?"_s));
    EXPECT_THAT(RowsOf("SELECT ip_addr, mac_addr FROM users WHERE user_id < 3"),
                ElementsAre(u"192.168.10.1|192.168.10.1"_s));
}
