// Word to the accounting service of users that are blocked and unblocked, as one action sends it.
#pragma once

#include "db/ids.h"

#include <QMap>

#include <vector>

class ServiceLink;

// The service is told before the row changes. What an action that runs again has told already is not
// told twice, and whoever was told of what did not come about hears what holds instead.
class Notices
{
public:
    // `link` is null while not connected.
    explicit Notices(const ServiceLink *serviceLink) : link(serviceLink) { }

    // The action begins, or begins anew.
    void BeginRun();

    // True when the service was told, in this run or in one before it.
    bool Block(UserId userId) { return Tell({userId, true}); }
    bool Unblock(UserId userId) { return Tell({userId, false}); }

    // Whether this run told anything, itself or because one before it had.
    [[nodiscard]] bool AnyTold() const { return !now.empty(); }

    // After the last run: tells the users of earlier runs what their rows say; `kept` tells whether the
    // last run's own changes stand.
    void Correct(bool kept);

private:
    struct Notice
    {
        UserId userId;
        bool blocked;

        bool operator==(const Notice &) const = default;
    };

    bool Tell(const Notice &notice);
    [[nodiscard]] bool WasHeardBefore(const Notice &notice) const;
    void Send(const Notice &notice) const;

    const ServiceLink *link;
    std::vector<Notice> sent; // of the earlier run that told most
    std::vector<Notice> now; // of this run
    bool deviates = false; // this run told something else than the earlier one
    QMap<UserId, bool> heard; // what each user's last notice said
    QMap<UserId, bool> heardBefore; // this run
};
