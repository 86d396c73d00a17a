// The accounts as one would keep them by hand, user by user: what the tests hold the product against.
#pragma once

#include <QDate>
#include <QStringList>

#include <map>
#include <optional>
#include <vector>

struct PlainCredit
{
    double given = 0; // megabytes, hours or money; less than 0: without a bound
    bool isMoney = false;
    std::optional<QDate> lastDay;
    quint64 usedBytes = 0;
    double usedHours = 0;
    double usedMoney = 0;
    bool closed = false;
    int ofRecord = -1; // of a limit: which of its records, once it has one
};

// One limit with all its records, those of days before too.
struct PlainLimit
{
    struct Record
    {
        QDate day;
        quint64 bytes = 0;
        quint64 sent = 0;
        double hours = 0;
        bool reached = false;
    };

    bool monthly = false;
    int limit = 0; // megabytes or hours
    std::vector<Record> records;
    std::vector<PlainCredit> credits;
};

struct PlainUser
{
    int mode = 0;
    int group = 0; // index; 0: one without control
    double price = 0;
    PlainLimit traffic;
    PlainLimit time;
    std::vector<PlainCredit> prePaid;
    std::map<QDate, PlainLimit::Record> days;
    int blocked = 0; // the reason; 0: not blocked
};

class PlainAccounts
{
public:
    // users[0] is no user; groups are users without days.
    std::vector<PlainUser> users;
    std::vector<PlainUser> groups;

    // What a user did up to the end of a count, each once.
    void Count(size_t user, QDate day, quint64 received, quint64 sent, double hours);
    // Behind all users of a count.
    void Settle(size_t user, QDate day);

private:
    void ChargeTraffic(PlainUser &payer, QDate day, quint64 received, quint64 sent);
};
