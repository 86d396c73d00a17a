#include "ui/options/unmonitored_dialog.h"

#include "app/perform.h"
#include "app/waiting.h"
#include "ui/common/accessible.h"
#include "ui/common/empty_note.h"
#include "ui/common/icons.h"
#include "ui/common/window_memory.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

using namespace Qt::StringLiterals;

UnmonitoredDialog::UnmonitoredDialog(const AppServices &appServices,
                                     std::vector<UnmonitoredUser> unmonitored,
                                     QWidget *parent)
    : Dialog(parent)
    , services(appServices)
    , list(new QListWidget)
    , monitor(new QPushButton(tr("Monitor user")))
    , users(std::move(unmonitored))
{
    setWindowTitle(tr("Unmonitored users"));
    SetNames(*list, u"users"_s, tr("Unmonitored users"));
    list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    for (const UnmonitoredUser &user : users) {
        list->addItem(new QListWidgetItem(IconOf(Picture::Unmonitored), user.text));
    }
    new EmptyNote(*list, tr("All users are monitored."));
    monitor->setObjectName(u"monitor"_s);
    monitor->setEnabled(false);
    auto *note = new QLabel(tr("The activity of these users is not counted. Select those to bring "
                               "back under monitoring; all their old records are still there."));
    note->setWordWrap(true);
    note->setBuddy(list);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok);
    buttons->button(QDialogButtonBox::Ok)->setObjectName(u"ok"_s);
    buttons->addButton(monitor, QDialogButtonBox::ActionRole);
    auto *column = new QVBoxLayout(this);
    column->addWidget(note);
    column->addWidget(list);
    column->addWidget(buttons);
    RememberSize(*this, u"unmonitored"_s, sizeHint().expandedTo({420, 380}));

    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(monitor, &QPushButton::clicked, this, &UnmonitoredDialog::MonitorSelected);
    connect(list, &QListWidget::itemSelectionChanged, this, [this] {
        monitor->setEnabled(!list->selectedItems().isEmpty());
    });
}

// All of them or, when that fails, none: they then stay in the list as they were selected.
void UnmonitoredDialog::MonitorSelected()
{
    std::vector<UserId> chosen;
    for (int row = 0; row < list->count(); ++row) {
        if (list->item(row)->isSelected()) {
            chosen.push_back(users[static_cast<size_t>(row)].userId);
        }
    }
    if (!Perform(services,
                 this,
                 tr("Bringing the users back under monitoring..."),
                 MonitorUsersAction(chosen))) {
        return;
    }
    for (int row = list->count() - 1; row >= 0; --row) {
        if (list->item(row)->isSelected()) {
            users.erase(users.begin() + row);
            delete list->takeItem(row);
        }
    }
    list->clearSelection();
    monitor->setEnabled(false);
}

void OpenUnmonitored(const AppServices &services, QWidget *parent)
{
    const auto users = Await(services,
                             parent,
                             UnmonitoredDialog::tr("Reading the unmonitored users..."),
                             LoadUnmonitored);
    if (!users) {
        TellUnread(services,
                   UnmonitoredDialog::tr("The unmonitored users could not be read."),
                   users.error());
        return;
    }
    UnmonitoredDialog(services, *users, parent).exec();
}
