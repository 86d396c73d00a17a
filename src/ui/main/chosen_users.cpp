#include "ui/main/chosen_users.h"

#include "ui/main/administrator_view.h"

// A list that is read anew is empty for a moment: what it shows when the events at hand are done counts.
ChosenUsers::ChosenUsers(CAdministratorView &users, QObject *parent) : QObject(parent), list(users)
{
    soon.setSingleShot(true);
    connect(&soon, &QTimer::timeout, this, &ChosenUsers::Take);
    connect(&list, &ListPane::SelectionChanged, this, [this] {
        if (list.hasFocus()) {
            soon.start(0);
        }
    });
}

void ChosenUsers::Take()
{
    const QList<UserId> selected = list.SelectedIds();
    if (list.hasFocus() && selected != ids) {
        ids = selected;
        emit Changed();
    }
}
