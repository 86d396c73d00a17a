// A sheet while the database keeps it waiting.
#include "app/waiting.h"
#include "db/direct_connection.h"
#include "db/session_limits.h"
#include "props_fixture.h"
#include "support/core/faulty_driver.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

namespace {

class PropsWaits : public PropsFixture
{
protected:
    void SetUp() override
    {
        PropsFixture::SetUp();
        LetSessionFinish();
        SessionLimits quick = usual;
        quick.cancel = 100ms;
        SetLimits(quick);
    }

    void TearDown() override
    {
        PropsFixture::TearDown();
        SetLimits(usual);
    }

    // Acts on the window that a wait shows by and by.
    static void WhileItWaits(const Act &act, const std::function<void()> &run)
    {
        const WaitDelayOverride soon(20ms);
        const WhileWaiting waiting(act);
        run();
    }

    static void Cancel(QDialog &wait)
    {
        Click(wait, "cancel");
        EXPECT_FALSE(Find<QPushButton>(wait, "cancel").isEnabled());
    }

    std::string Told() { return prompt.TakeSaid().join(u" / ").toStdString(); }

private:
    const SessionLimits usual = Limits();
};

// Another program that is in the middle of changing the database.
class Holder
{
public:
    explicit Holder(const QString &dsn)
    {
        EXPECT_TRUE(connection.Open(dsn)) << qPrintable(connection.Error());
        EXPECT_TRUE(connection.Run(u"BEGIN IMMEDIATE"_s)) << qPrintable(connection.Error());
    }
    void LetGo() { EXPECT_TRUE(connection.Run(u"ROLLBACK"_s)) << qPrintable(connection.Error()); }

private:
    DirectConnection connection;
};

} // namespace

TEST_F(PropsWaits, AnOkThatWaitsForAnotherProgramCanBeCancelledAndRepeated)
{
    EXPECT_TRUE(UserSheet(user_page::kGeneral, [this](QDialog &sheet) {
        Type(Find(sheet, "fullName"), u"Anna Holm"_s);
        Holder other(Dsn());
        const auto cancel = [&sheet](QDialog &wait) {
            EXPECT_EQ(Find<QLabel>(wait, "what").text(), u"Storing the user..."_s);
            EXPECT_EQ(wait.parentWidget(), &sheet);
            Cancel(wait);
        };
        WhileItWaits(cancel, [&] { Click(sheet, "ok"); });
        EXPECT_TRUE(sheet.isVisible());
        EXPECT_EQ(TextOf(sheet, "fullName"), u"Anna Holm"_s);
        EXPECT_EQ(Told(),
                  "The user's properties were not stored. Nothing was changed in the "
                  "database.\n\nIt was cancelled.");
        other.LetGo();
        Click(sheet, "ok");
    }));
    EXPECT_THAT(RowsOf("SELECT fullname FROM users WHERE user_id = 1"),
                ElementsAre(u"Anna Holm"_s));
    EXPECT_EQ(Told(), "");
}

TEST_F(PropsWaits, AnOkGoesOnByItselfWhenTheOtherProgramIsDone)
{
    EXPECT_TRUE(UserSheet(user_page::kGeneral, [](QDialog &sheet) {
        Type(Find(sheet, "fullName"), u"Anna Holm"_s);
        Holder other(Dsn());
        WhileItWaits([&other](QDialog &) { other.LetGo(); }, [&] { Click(sheet, "ok"); });
    }));
    EXPECT_THAT(RowsOf("SELECT fullname FROM users WHERE user_id = 1"),
                ElementsAre(u"Anna Holm"_s));
    EXPECT_THAT(prompt.TakeSaid(), IsEmpty());
}

TEST_F(PropsWaits, AnOkGivesUpByItselfWhenTheOtherProgramIsNot)
{
    SessionLimits quick = Limits();
    quick.lock = 300ms;
    SetLimits(quick);
    (void)UserSheet(user_page::kGeneral, [this](QDialog &sheet) {
        Type(Find(sheet, "fullName"), u"Anna Holm"_s);
        const Holder other(Dsn());
        Click(sheet, "ok");
        EXPECT_THAT(Told(),
                    StartsWith("The user's properties were not stored. Nothing was changed in the "
                               "database.\n\nAnother program holds the database."));
        EXPECT_EQ(TextOf(sheet, "fullName"), u"Anna Holm"_s);
        sheet.reject();
    });
}

TEST_F(PropsWaits, AWindowWhoseReadingIsCancelledDoesNotOpen)
{
    {
        FaultyDriver driver(Dsn());
        driver.Hold(1);
        const auto cancel = [](QDialog &wait) {
            EXPECT_EQ(Find<QLabel>(wait, "what").text(), u"Reading the user..."_s);
            Cancel(wait);
        };
        WhileItWaits(cancel, [this] {
            EXPECT_FALSE(OpenUserSheet(Services(), UserId {1}, user_page::kGeneral, nullptr));
        });
        EXPECT_EQ(Told(), "The user could not be read.\n\nIt was cancelled.");
    }
    EXPECT_TRUE(QTest::qWaitFor([] { return SessionThread::AbandonedCalls() == 0; }));
    EXPECT_TRUE(UserSheet(user_page::kGeneral, [](QDialog &sheet) { Click(sheet, "ok"); }));
}
