// Two users and a login, and small actions on them, on every engine.
#pragma once

#include "actions/action_run.h"
#include "db/query.h"
#include "db/session.h"
#include "support/core/engine_fixture.h"
#include "support/core/faulty_driver.h"

#include <functional>
#include <gmock/gmock.h>
#include <optional>

inline constexpr RowSet kAnna {"users", "user_id", 1, "user_id"};
inline constexpr RowSet kBen {"users", "user_id", 2, "user_id"};
inline constexpr RowSet kAnnasLogins {"logins", "userid", 1, "login"};

inline constexpr char kSetMode[] = "UPDATE users SET mode = (?) WHERE user_id = (?)";
inline constexpr char kModes[] = "SELECT user_id, mode FROM users ORDER BY user_id";

class ActionFixture : public EngineFixture
{
protected:
    using Body = std::function<void(ActionRun &)>;
    using State = Outcome::State;
    using Kind = Failure::Kind;

    void SetUp() override
    {
        EngineFixture::SetUp();
        Execute("INSERT INTO users (user_id, username) VALUES (1, 'anna')");
        Execute("INSERT INTO users (user_id, username) VALUES (2, 'ben')");
        Execute("INSERT INTO logins (login, pwd, userid) VALUES ('anna', 'hush', 1)");
        driver.emplace(Dsn());
    }

    void TearDown() override
    {
        driver.reset();
        EngineFixture::TearDown();
    }

    // As an action of one transaction.
    [[nodiscard]] static Outcome
    Run(const Body &body, const Answers &answers = {}, const ServiceLink *link = nullptr)
    {
        return RunAction({ActionId::MoveUsers, body}, answers, link);
    }

    // As an action whose statements stand for themselves.
    [[nodiscard]] static Outcome RunEach(const Body &body, const ServiceLink *link = nullptr)
    {
        return RunAction({ActionId::SaveLogins, body}, {}, link);
    }

    // Locks, reads and writes both users.
    static void SetBothModes(ActionRun &run)
    {
        run.Lock(kAnna);
        run.Lock(kBen);
        const auto users = run.Take(ReadAll("SELECT user_id FROM users ORDER BY user_id",
                                            [](const Row &row) { return row.Id<UserId>(1); }));
        for (const UserId user : users) {
            run.Write(kSetMode, quint32 {5}, user);
        }
    }

    // The statements of an action that nothing disturbs, which leaves its rows as they were before.
    [[nodiscard]] QStringList StatementsOf(const Body &body)
    {
        (void)driver->Take();
        EXPECT_EQ(Run(body).state, State::Done);
        QStringList statements = driver->Take();
        Execute("UPDATE users SET mode = 0");
        (void)driver->Take();
        return statements;
    }

    [[nodiscard]] static QStringList Modes() { return RowsOf(kModes); }

    std::optional<FaultyDriver> driver;
};
