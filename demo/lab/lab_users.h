// The users of the laboratory's network, each with another rule.
#pragma once

#include <QString>

#include <optional>

struct LabUser
{
    const char *name;
    const char *station;
    const char *rule; // shown as the description
    int received; // kilobytes a second that somebody sends to the workstation while it is active
    int sent; // and that it sends
    int pause; // seconds of every minute without traffic
};

inline constexpr LabUser kLabUsers[] {
    {"Anna Winter", "reception", "no limit", 400, 40, 0},
    {"Bert Sommer", "workshop", "50 Mb a day, nearly used up", 200, 20, 0},
    {"Clara Berg", "stock", "blocked by the administrator", 60, 10, 20},
    {"David Stein", "office-1", "pre-paid, 200 Mb", 150, 15, 10},
    {"Emma Wald", "office-2", "weekdays from 8 to 18 only", 100, 20, 0},
    {"Felix Bach", "office-3", "1000 Mb a month", 250, 30, 20},
    {"Greta Feld", "office-4", "2 hours a day, one minute left", 30, 10, 0},
    {"Hugo Land", "meeting", "must log in", 20, 10, 30},
    {"Ida Moor", "office-5", "no limit, rarely there", 80, 8, 45},
    {"Jan Heide", "office-6", "traffic and time of a month", 120, 60, 15},
    {"Klara See", "guest", "pre-paid, 10 Mb left", 100, 10, 0},
    {"Leo Quell", "server", "no limit, sends most", 50, 300, 0},
};

// The address of the workstation at this place of the list.
[[nodiscard]] QString LabAddress(size_t place);

// Fills a fresh database; nothing when it is done, else what went wrong.
[[nodiscard]] std::optional<QString> FillWithLabUsers(const QString &dsn);
