// What windows are handed: a fresh database, a fresh store, a prompt by script, and no service.
#pragma once

#include "startup/start_up.h"
#include "support/core/database_fixture.h"
#include "support/core/scripted_prompt.h"

#include <optional>

class WindowFixture : public DatabaseFixture
{
protected:
    // As DatabaseFixture; besides, there are services to hand to windows, on a new configuration
    // folder whose keys are there and empty, with a bus that nobody answers on.
    void SetUp() override;

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
    std::optional<AppServices> services;
};
