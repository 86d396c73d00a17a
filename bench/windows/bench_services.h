// What the benchmarks hand to windows.
#pragma once

#include "startup/app_services.h"
#include "startup/start_up.h"

#include <QStringList>
#include <QTemporaryDir>

// Answers every question with Yes and keeps what was told.
class YesPrompt : public Prompt
{
public:
    void Tell(const QString &text, Icon /*icon*/, const QString & /*caption*/) override
    {
        told << text;
    }
    [[nodiscard]] bool Ask(const QString & /*text*/, const QString & /*caption*/) override
    {
        return true;
    }
    [[nodiscard]] bool AskToDestroy(const QString & /*text*/, const QString & /*goes*/) override
    {
        return true;
    }

    QStringList told;
};

// Services on settings of their own, whose keys are there and empty, with no accounting service.
class BenchServices
{
public:
    // Opens the data source on the session's thread; without one there is no database.
    explicit BenchServices(const QString &dsn = {});

    [[nodiscard]] const AppServices &Services() const { return services; }
    [[nodiscard]] const QStringList &Told() const { return prompt.told; }

private:
    const QTemporaryDir folder;
    StartedProgram program;
    SessionThread database;
    ChangeNews news;
    YesPrompt prompt;
    const AppServices services;
};
