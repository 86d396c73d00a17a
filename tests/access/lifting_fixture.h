// A user and a group whose limits are used up, on every database engine.
#pragma once

#include "base/day.h"
#include "running.h"
#include "support/core/engine_fixture.h"

#include <gmock/gmock.h>

class LiftingFixture : public EngineFixture
{
protected:
    void SetUp() override
    {
        EngineFixture::SetUp();
        Execute("INSERT INTO groups (group_id, name) VALUES (81, 'Office')");
        Execute("INSERT INTO users (user_id, username, group_id) VALUES (1, 'anna', 81), "
                "(2, 'bert', 81)");
    }

    static UserRecord User() { return LoadUser(UserId {1}).value().value(); }
    static GroupRecord Group() { return LoadGroup(GroupId {81}).value().value(); }

    static void Store(const UserRecord &record)
    {
        EXPECT_TRUE(RunAnswering(UserAction(record), false).IsDone());
    }

    static void Store(const GroupRecord &record)
    {
        EXPECT_TRUE(RunAnswering(GroupAction(record), false).IsDone());
    }

    // A credit with these columns and values: "(closed) VALUES (0)"; null for none.
    static void AddCredit(const char *columns)
    {
        if (columns != nullptr) {
            const QByteArray text = QByteArray("INSERT INTO billing ") + columns;
            Execute(text.constData());
        }
    }

    TodayOverride today {QDate(2026, 11, 21)};
};
