// What windows are handed: a fresh database with a session of their own on it, a fresh store, a prompt
// by script, and no service. The test itself prepares and reads rows on the session of its own thread.
#pragma once

#include "startup/app_services.h"
#include "startup/start_up.h"
#include "support/core/database_fixture.h"
#include "support/core/scripted_prompt.h"

#include <memory>
#include <optional>

class WindowFixture : public DatabaseFixture
{
protected:
    // As DatabaseFixture; besides, there are services to hand to windows, on a new configuration
    // folder whose keys are there and empty, with a bus that nobody answers on.
    void SetUp() override;

    void TearDown() override;

    // Returns once the session has done all that windows gave it, and they have heard of it.
    void LetSessionFinish() const;

    // The services anew: those handed out before must not be used any more.
    void UseBus(const QDBusConnection &bus); // with the service that answers on `bus`
    void UseConfigFolder(const QString &configFolder); // with another configuration folder

    [[nodiscard]] const AppServices &Services() const { return *services; }
    [[nodiscard]] ConfigStore &Settings() const { return services->settings; }

    ScriptedPrompt prompt;

private:
    void Start(const StartUpOptions &options);
    [[nodiscard]] QString ConfigFolder() const;

    std::optional<StartedProgram> program;
    std::unique_ptr<SessionThread> database; // open on the test's data source
    ChangeNews news;
    std::optional<AppServices> services;
};
