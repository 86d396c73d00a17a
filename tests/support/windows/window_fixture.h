// The application as the windows find it: a fresh database, a fresh store, a prompt by script, and
// no service.
#pragma once

#include "app/administrator_app.h"
#include "support/core/database_fixture.h"
#include "support/core/scripted_prompt.h"

class WindowFixture : public DatabaseFixture
{
protected:
    // As DatabaseFixture; besides, `theApp` works on a new configuration folder whose keys are there
    // and empty, speaks through `prompt`, and has a bus that nobody answers on.
    void SetUp() override;

    // `theApp` anew with the service that answers on `bus`.
    void UseBus(const QDBusConnection &bus);

    ScriptedPrompt prompt;
};
