#include "ui/main/chosen_users.h"

#include "ui/main/administrator_view.h"

// A list that is read anew is empty for a moment: what it shows when the events at hand are done counts.
ChosenUsers::ChosenUsers(CAdministratorView &users, QObject *parent) : QObject(parent), list(users)
{
    soon.setSingleShot(true);
    connect(&soon, &QTimer::timeout, this, &ChosenUsers::Take);
    connect(&list.Matching(), &MatchingUsers::Changed, this, [this] {
        ids = list.ChosenIds();
        emit Changed();
    });
    connect(&list, &ListPane::Focused, this, [this] { soon.start(0); });
    connect(&list, &ListPane::SelectionChanged, this, [this] {
        if (list.hasFocus()) {
            soon.start(0);
        }
    });
}

void ChosenUsers::Take()
{
    const QList<UserId> chosen = list.ChosenIds();
    if (list.hasFocus() && chosen != ids) {
        ids = chosen;
        emit Changed();
    }
}
