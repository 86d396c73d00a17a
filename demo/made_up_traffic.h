// Activity of people who do not exist, the same again for the same seed.
#pragma once

#include "db/ids.h"
#include "db/quantities.h"

#include <QRandomGenerator>

#include <vector>

// What one user did since the last count.
struct Activity
{
    Megabytes received; // what limits and credits are about
    Megabytes sent;
    Hours hours; // on line
};

class MadeUpTraffic
{
public:
    explicit MadeUpTraffic(quint32 seed) : random(seed) { }

    // Up to `count` of `users`, each at most once; one in forty is always among them.
    [[nodiscard]] std::vector<UserId> Choose(std::vector<UserId> users, size_t count);

    // A few megabytes received, fewer sent, and one to three minutes on line.
    [[nodiscard]] Activity Next();

private:
    QRandomGenerator random;
};
