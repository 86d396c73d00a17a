#include "ui/options/unmonitored_dialog.h"

#include "ui/common/accessible.h"
#include "ui/common/icons.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

UnmonitoredDialog::UnmonitoredDialog(QWidget *parent)
    : QDialog(parent)
    , list(new QListWidget)
    , monitor(new QPushButton(u"Monitor user"_s))
    , users(LoadUnmonitored())
{
    setWindowTitle(u"Unmonitored users"_s);
    SetNames(*list, u"users"_s, u"Unmonitored users"_s);
    list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    for (const UnmonitoredUser &user : users) {
        list->addItem(new QListWidgetItem(IconOf(Picture::Unmonitored), user.text));
    }
    monitor->setObjectName(u"monitor"_s);
    monitor->setEnabled(false);
    auto *note = new QLabel(u"The activity of these users is not counted. Select those to bring "
                            "back under monitoring; all their old records are still there."_s);
    note->setWordWrap(true);
    note->setBuddy(list);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok);
    buttons->button(QDialogButtonBox::Ok)->setObjectName(u"ok"_s);
    buttons->addButton(monitor, QDialogButtonBox::ActionRole);
    auto *column = new QVBoxLayout(this);
    column->addWidget(note);
    column->addWidget(list);
    column->addWidget(buttons);
    resize(sizeHint().expandedTo({420, 380}));

    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(monitor, &QPushButton::clicked, this, &UnmonitoredDialog::MonitorSelected);
    connect(list, &QListWidget::itemSelectionChanged, this, [this] {
        monitor->setEnabled(!list->selectedItems().isEmpty());
    });
}

void UnmonitoredDialog::MonitorSelected()
{
    for (int row = 0; row < list->count();) {
        if (!list->item(row)->isSelected()) {
            ++row;
            continue;
        }
        MonitorUser(users[static_cast<size_t>(row)].userId);
        users.erase(users.begin() + row);
        delete list->takeItem(row);
    }
    list->clearSelection();
    monitor->setEnabled(false);
}

void OpenUnmonitored(QWidget *parent)
{
    UnmonitoredDialog(parent).exec();
}
