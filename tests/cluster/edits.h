// What a console edits, and what must stand in the tables if all that it was told is true.
#pragma once

#include "actions/action.h"
#include "db/ids.h"

#include <QString>

#include <array>
#include <map>
#include <random>

inline constexpr quint32 kUsers = 12; // ids from 1
inline constexpr quint32 kFirstGroup = 81;
inline constexpr quint32 kGroups = 4;

// Makes the users and groups that are edited, over the session of this thread.
void MakeRows();

// How many edits ended in what way.
struct Tally
{
    std::map<Outcome::State, int> states;
    int leftToTheOther = 0; // a value was changed meanwhile: the question was answered No
    std::map<Failure::Kind, int> failures; // the first one of each outcome
};

// One console, on the session of the thread that uses it. Each counts up what both count up, and has
// a column of its own and values of its own elsewhere.
class Console
{
public:
    explicit Console(int consoleNumber) : number(consoleNumber), random(consoleNumber) { }

    // One random edit through an action, to its end.
    void EditAnything();

    // Counts up a user's traffic limit and writes the own column, by the user's sheet.
    Outcome EditUser(UserId userId);

    [[nodiscard]] const Tally &Told() const { return tally; }

    // What does not stand in the tables although a console was told so; the consoles edited all of it.
    [[nodiscard]] static QStringList Untrue(const std::array<const Console *, 2> &consoles);

private:
    // What was told of one value.
    struct Value
    {
        QString done;
        QStringList unknown; // since then

        [[nodiscard]] bool MayBe(const QString &now) const
        {
            return now == done || unknown.contains(now);
        }
    };

    // By how much a number was counted up.
    struct Count
    {
        int done = 0;
        int unknown = 0;
    };

    Outcome Run(const Action &action, bool *left = nullptr);
    void EditGroup(GroupId groupId);
    void SetTime(UserId first);
    void Move(UserId first);
    static void Take(Value &value, const QString &wanted, const Outcome &outcome);
    void Take(Count &count, const Outcome &outcome, bool left) const;

    // What this console counts by: were it the same for both, they would come to store the same value, and
    // neither would overwrite anything.
    [[nodiscard]] int Step() const { return number == 0 ? 1 : 1000; }
    quint32 Any(quint32 first, quint32 count)
    {
        return first + std::uniform_int_distribution<quint32>(0, count - 1)(random);
    }

    int number;
    std::mt19937 random;
    quint32 edits = 0;
    Tally tally;
    std::map<quint32, Value> own; // of each user
    std::map<quint32, Value> times;
    std::map<quint32, Value> groups;
    std::map<quint32, Count> userLimits;
    std::map<quint32, Count> groupLimits;
};
