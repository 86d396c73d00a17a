// A user and a group, with service, for what the sheets store.
#pragma once

#include "db/value_codes.h"
#include "running.h"
#include "service/service_link.h"
#include "support/core/database_fixture.h"
#include "support/core/fake_service.h"
#include "support/core/statement_recorder.h"

#include <gmock/gmock.h>
#include <vector>

using Texts = std::vector<const char *>;

// Statements to compare with what was recorded.
[[nodiscard]] inline std::vector<QString> Strings(const Texts &texts)
{
    std::vector<QString> strings;
    for (const char *text : texts) {
        strings.push_back(QString::fromLatin1(text));
    }
    return strings;
}

// User 1 and others below stand in group 81, which user 9 does not belong to.
class ApplyFixture : public DatabaseFixture
{
protected:
    void SetUp() override
    {
        DatabaseFixture::SetUp();
        Execute("DELETE FROM ports");
        Execute("DELETE FROM protocols");
        Execute("INSERT INTO protocols (id, proto_name) VALUES (1, 'FTP'), (2, 'HTTP')");
        Execute(
            "INSERT INTO ports (port_id, proto_id, port_number) VALUES (20, 1, 20), (21, 1, 21), "
            "(80, 2, 80)");
        Execute("INSERT INTO groups (group_id, name) VALUES (81, 'Office')");
        Execute("INSERT INTO users (user_id, username, group_id, ip_addr, mac_addr) VALUES "
                "(1, 'anna', 81, '10.0.0.1', '000000000001'), "
                "(2, 'bert', 81, '10.0.0.2', '000000000002'), "
                "(9, 'zoe', 80, '10.0.0.9', '000000000009')");
    }

    // The statements that `act` ran.
    template <typename Act>
    [[nodiscard]] static QStringList StatementsOf(Act act)
    {
        StatementRecorder recorder;
        act();
        return recorder.Take();
    }

    // Those that change rows.
    [[nodiscard]] QStringList ChangesOf(const Action &action, bool yes = false)
    {
        StatementRecorder recorder;
        ran = RunAnswering(action, yes);
        return recorder.TakeChanging();
    }

    Ran ran; // the last one
};
