#include "ui/reports/filter_dialog.h"

#include "reports/wording.h"
#include "ui/common/accessible.h"
#include "ui/common/controls.h"

#include <QGridLayout>
#include <QLabel>
#include <QListWidget>
#include <QShortcut>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

ReportFilterDialog::ReportFilterDialog(Of what, QWidget *parent) : Dialog(parent), of(what)
{
    const bool ofUsers = what == Of::Users;
    setWindowTitle(ofUsers ? tr("Users to report on") : tr("Groups to report on"));
    taken = MakeList("taken");
    left = MakeList("left");
    auto *take = MakeButton<QPushButton>(tr("< &Add"), "take");
    auto *takeAll = MakeButton<QPushButton>(tr("<< Add a&ll"), "takeAll");
    auto *drop = MakeButton<QPushButton>(tr("&Remove >"), "drop");
    auto *dropAll = MakeButton<QPushButton>(tr("R&emove all >>"), "dropAll");
    connect(take, &QPushButton::clicked, this, [this] { Move(*left, *taken); });
    connect(takeAll, &QPushButton::clicked, this, [this] { MoveAll(*left, *taken); });
    connect(drop, &QPushButton::clicked, this, [this] { Move(*taken, *left); });
    connect(dropAll, &QPushButton::clicked, this, [this] { MoveAll(*taken, *left); });
    MoveWhenChosen(*left, *taken);
    MoveWhenChosen(*taken, *left);
    auto *buttons = new QVBoxLayout;
    buttons->addStretch();
    for (auto *button : {take, takeAll, drop, dropAll}) {
        button->setAutoDefault(false);
        buttons->addWidget(button);
    }
    buttons->addStretch();
    auto *grid = new QGridLayout(this);
    const QString these = ofUsers ? tr("Report on &these users:") : tr("Report on &these groups:");
    const QString others = ofUsers ? tr("&Other users:") : tr("&Other groups:");
    grid->addWidget(LabelFor(these, *taken), 0, 0);
    grid->addWidget(LabelFor(others, *left), 0, 2);
    grid->addWidget(taken, 1, 0);
    grid->addLayout(buttons, 1, 1);
    grid->addWidget(left, 1, 2);
    auto *note = new QLabel(tr("With none or all of them chosen the report is made on everybody."));
    note->setWordWrap(true);
    grid->addWidget(note, 2, 0, 1, 3);
    warning = new QLabel;
    warning->setObjectName(u"warning"_s);
    warning->setWordWrap(true);
    warning->setMinimumHeight(2 * fontMetrics().lineSpacing()); // so that nothing moves as it comes
    grid->addWidget(warning, 3, 0, 1, 3);
    grid->addWidget(OkAndCancel(*this), 4, 0, 1, 3);
    for (const auto *list : {taken, left}) {
        connect(list->model(),
                &QAbstractItemModel::rowsInserted,
                this,
                &ReportFilterDialog::ShowWarning);
    }
    resize(560, 460);
}

// A name is put into one list after it was taken from the other: then the two are complete.
void ReportFilterDialog::ShowWarning()
{
    warning->setText(of == Of::Users
                         ? UserFilterWarning(UserFilterEffect(taken->count(), left->count()))
                         : GroupFilterWarning(GroupFilterEffect(taken->count(), left->count())));
}

void ReportFilterDialog::Add(QListWidget &list, const QString &name, quint32 id)
{
    auto *item = new QListWidgetItem(name.isEmpty() ? tr("(no name)") : name, &list);
    item->setData(Qt::UserRole, id);
}

QList<quint32> ReportFilterDialog::NumbersIn(const QListWidget &list)
{
    QList<quint32> numbers;
    for (int row = 0; row < list.count(); ++row) {
        numbers += list.item(row)->data(Qt::UserRole).toUInt();
    }
    return numbers;
}

QListWidget *ReportFilterDialog::MakeList(const char *name)
{
    auto *list = new QListWidget;
    list->setObjectName(QLatin1StringView(name));
    list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    list->setUniformItemSizes(true);
    return list;
}

// By a double click, or by Return: as a shortcut it does not press the dialog's button besides.
void ReportFilterDialog::MoveWhenChosen(QListWidget &from, QListWidget &to)
{
    const auto move = [&from, &to] { Move(from, to); };
    connect(&from, &QListWidget::itemDoubleClicked, this, move);
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter}) {
        auto *shortcut = new QShortcut(key, &from);
        shortcut->setContext(Qt::WidgetShortcut);
        connect(shortcut, &QShortcut::activated, this, move);
    }
}

void ReportFilterDialog::Move(QListWidget &from, QListWidget &to)
{
    for (QListWidgetItem *item : from.selectedItems()) {
        to.addItem(from.takeItem(from.row(item)));
    }
}

void ReportFilterDialog::MoveAll(QListWidget &from, QListWidget &to)
{
    while (from.count() > 0) {
        to.addItem(from.takeItem(from.count() - 1));
    }
    to.sortItems();
}
