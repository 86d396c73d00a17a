// Work that may come back with questions: they are asked while no transaction is open.
#pragma once

#include "actions/action.h"
#include "app/waiting.h"

#include <utility>

// The questions that keep an action from being done.
[[nodiscard]] inline QList<Question> OpenQuestions(const Outcome &outcome)
{
    return outcome.state == Outcome::State::NeedsAnswers ? outcome.questions : QList<Question>();
}

// What the work gives once all its questions are answered. `workWith` makes the work for the answers so
// far, in the window's thread; it is run as by Await, and again as often as `questionsOf` finds open
// questions in what it gave.
template <typename WorkWith, typename QuestionsOf>
[[nodiscard]] auto
AwaitAnswered(const AppServices &services,
              QWidget *parent,
              const QString &what,
              const WorkWith &workWith,
              const QuestionsOf &questionsOf,
              SessionThread::Patience patience = SessionThread::Patience::Bounded)
{
    Answers answers;
    while (true) {
        auto value = Await(services, parent, what, workWith(std::as_const(answers)), patience);
        const QList<Question> questions = questionsOf(std::as_const(value));
        if (questions.isEmpty()) {
            return value;
        }
        for (const Question &question : questions) {
            answers.insert(question.key,
                           question.destroys
                               ? services.prompt.AskToDestroy(question.text, question.goes)
                               : services.prompt.Ask(question.text));
        }
    }
}
