#include "ui/reports/filter_dialog.h"

#include "reports/wording.h"
#include "ui/common/accessible.h"
#include "ui/common/controls.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QShortcut>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

ReportFilterDialog::ReportFilterDialog(Of what, QWidget *parent)
    : Dialog(parent)
    , of(what)
    , taken(NameList::Make(this, "taken", tr("Search those chosen")))
    , left(NameList::Make(this, "left", tr("Search the others")))
{
    const bool ofUsers = what == Of::Users;
    setWindowTitle(ofUsers ? tr("Users to report on") : tr("Groups to report on"));
    StaysUnlocked();
    auto *take = MakeButton<QPushButton>(tr("< &Add"), "take");
    auto *takeAll = MakeButton<QPushButton>(tr("<< Add a&ll"), "takeAll");
    auto *drop = MakeButton<QPushButton>(tr("&Remove >"), "drop");
    auto *dropAll = MakeButton<QPushButton>(tr("R&emove all >>"), "dropAll");
    connect(take, &QPushButton::clicked, this, [this] { left.MoveChosenTo(taken); });
    connect(takeAll, &QPushButton::clicked, this, [this] { left.MoveShownTo(taken); });
    connect(drop, &QPushButton::clicked, this, [this] { taken.MoveChosenTo(left); });
    connect(dropAll, &QPushButton::clicked, this, [this] { taken.MoveShownTo(left); });
    for (auto *button : {takeAll, dropAll}) {
        button->setToolTip(tr("With a search only those that it finds"));
    }
    MoveWhenChosen(left, taken);
    MoveWhenChosen(taken, left);
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
    grid->addWidget(LabelFor(these, *taken.view), 0, 0);
    grid->addWidget(LabelFor(others, *left.view), 0, 2);
    grid->addWidget(taken.search, 1, 0);
    grid->addWidget(left.search, 1, 2);
    grid->addWidget(taken.view, 2, 0);
    grid->addLayout(buttons, 2, 1);
    grid->addWidget(left.view, 2, 2);
    auto *note = new QLabel(tr("With none or all of them chosen the report is made on everybody."));
    note->setWordWrap(true);
    grid->addWidget(note, 3, 0, 1, 3);
    warning = new QLabel;
    warning->setObjectName(u"warning"_s);
    warning->setWordWrap(true);
    warning->setMinimumHeight(2 * fontMetrics().lineSpacing()); // so that nothing moves as it comes
    grid->addWidget(warning, 4, 0, 1, 3);
    grid->addWidget(OkAndCancel(*this), 5, 0, 1, 3);
    for (const NameList *list : {&taken, &left}) {
        connect(list->model, &NameModel::modelReset, this, &ReportFilterDialog::ShowWarning);
    }
    resize(560, 460);
}

// What is put into one list was taken from the other before: then the two are complete.
void ReportFilterDialog::ShowWarning()
{
    const auto those = static_cast<qsizetype>(taken.model->Names().size());
    const auto others = static_cast<qsizetype>(left.model->Names().size());
    warning->setText(of == Of::Users ? UserFilterWarning(UserFilterEffect(those, others))
                                     : GroupFilterWarning(GroupFilterEffect(those, others)));
}

QString ReportFilterDialog::ShownName(const QString &name)
{
    return name.isEmpty() ? tr("(no name)") : name;
}

// By a double click, or by Return: as a shortcut it does not press the dialog's button besides.
void ReportFilterDialog::MoveWhenChosen(NameList &from, NameList &to)
{
    const auto move = [&from, &to] { from.MoveChosenTo(to); };
    connect(from.view, &QListView::doubleClicked, this, move);
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter}) {
        auto *shortcut = new QShortcut(key, from.view);
        shortcut->setContext(Qt::WidgetShortcut);
        connect(shortcut, &QShortcut::activated, this, move);
    }
}
