// Actions run to their end, with one answer to whatever they ask.
#pragma once

#include "access/group_apply.h"
#include "access/user_apply.h"
#include "actions/action_run.h"

#include <QStringList>

[[nodiscard]] inline Action UserAction(const UserRecord &record)
{
    return {ActionId::ApplyUser, [record](ActionRun &run) { ApplyUser(run, record); }};
}

[[nodiscard]] inline Action GroupAction(const GroupRecord &record)
{
    return {ActionId::ApplyGroup, [record](ActionRun &run) { ApplyGroup(run, record); }};
}

struct Ran
{
    Outcome outcome;
    QStringList asked; // the questions' texts, in order

    [[nodiscard]] bool IsDone() const { return outcome.IsDone(); }
};

[[nodiscard]] inline Ran
RunAnswering(const Action &action, bool yes, const ServiceLink *link = nullptr)
{
    Ran ran;
    Answers answers;
    ran.outcome = RunAction(action, answers, link);
    while (ran.outcome.state == Outcome::State::NeedsAnswers) {
        for (const Question &question : ran.outcome.questions) {
            answers.insert(question.key, yes);
            ran.asked << question.text;
        }
        ran.outcome = RunAction(action, answers, link);
    }
    return ran;
}
