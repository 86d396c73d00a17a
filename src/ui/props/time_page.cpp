#include "ui/props/time_page.h"

#include "app/perform.h"
#include "app/waiting.h"
#include "ui/common/controls.h"
#include "ui/props/time_range_dialog.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QRadioButton>
#include <QTreeWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int kColumnWidth = 85;

QTreeWidget *MakeList()
{
    auto *list = new QTreeWidget;
    list->setObjectName(u"ranges"_s);
    list->setAccessibleName(TimePage::tr("Time ranges"));
    list->setHeaderLabels(
        {TimePage::tr("Day"), TimePage::tr("Since time"), TimePage::tr("Until time")});
    list->setRootIsDecorated(false);
    list->setAllColumnsShowFocus(true);
    list->setUniformRowHeights(true);
    list->header()->setStretchLastSection(false);
    for (int column = 0; column < list->columnCount(); ++column) {
        list->setColumnWidth(column, kColumnWidth);
    }
    return list;
}

} // namespace

TimePage::TimePage(const AppServices &appServices,
                   const Owner &whose,
                   TimeRanges &staged,
                   const QString &format,
                   QWidget *parent)
    : Page(parent)
    , services(appServices)
    , owner(whose)
    , ranges(staged)
    , timeFormat(format)
    , grant(MakeButton<QRadioButton>(tr("Grant access"), "grant"))
    , deny(MakeButton<QRadioButton>(tr("Deny access"), "deny"))
    , list(MakeList())
    , unread(UnreadNote())
{
    auto *column = new QVBoxLayout(this);
    column->addWidget(grant);
    column->addWidget(deny);
    column->addWidget(MakeRanges());
    connect(grant, &QRadioButton::toggled, this, [this](bool granted) { ranges.grant = granted; });
}

QGroupBox *TimePage::MakeRanges()
{
    auto *box = new QGroupBox(tr("Specify time ranges please"));
    auto *add = MakeButton<QPushButton>(tr("Add range"), "addRange");
    auto *remove = MakeButton<QPushButton>(tr("Delete range"), "deleteRange");
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(add);
    buttons->addWidget(remove);
    buttons->addStretch();
    auto *column = new QVBoxLayout(box);
    column->addWidget(list);
    column->addWidget(unread);
    column->addLayout(buttons);
    connect(add, &QPushButton::clicked, this, &TimePage::AddRange);
    connect(remove, &QPushButton::clicked, this, &TimePage::DeleteRange);
    return box;
}

QString TimePage::Title() const
{
    return tr("Time");
}

void TimePage::Load()
{
    CheckOneOf({grant, deny}, ranges.grant ? grant : deny);
}

void TimePage::Activate()
{
    const auto stored = Await(services, this, tr("Reading the times..."), [whose = owner] {
        return ReadTimeRanges(whose);
    });
    unread->setHidden(stored.has_value());
    if (!stored) {
        TellUnread(services, tr("The time ranges could not be read."), stored.error());
        return;
    }
    ranges.Rebuild(*stored);
    list->clear();
    for (const TimeRange &range : ranges.Shown()) {
        ShowRow(range);
    }
}

void TimePage::ShowRow(const TimeRange &range)
{
    new QTreeWidgetItem(list, {DayName(range.day), range.start, range.stop});
}

void TimePage::AddRange()
{
    TimeRangeDialog dialog(services.prompt, this);
    if (dialog.exec() != QDialog::Accepted) {
        return;
    }
    const TimeRange range = {
        dialog.Day(), dialog.Since().toString(timeFormat), dialog.Until().toString(timeFormat)};
    ranges.Add(range);
    ShowRow(range);
    list->setCurrentItem(list->topLevelItem(list->topLevelItemCount() - 1));
}

void TimePage::DeleteRange()
{
    const auto selected = list->selectedItems();
    if (selected.isEmpty()) {
        Complain(services.prompt, tr("Select the item to delete"));
        return;
    }
    const int row = list->indexOfTopLevelItem(selected.first());
    ranges.Delete(static_cast<size_t>(row));
    delete list->takeTopLevelItem(row);
}

CAdministratorUserPTime::CAdministratorUserPTime(const AppServices &appServices,
                                                 UserRecord &record,
                                                 QWidget *parent)
    : TimePage(appServices, record.Self(), record.times, u"HH:mm:ss"_s, parent)
{ }

CAdministratorGroupPTime::CAdministratorGroupPTime(const AppServices &appServices,
                                                   GroupRecord &record,
                                                   QWidget *parent)
    : TimePage(appServices, record.Self(), record.times, u"HH.mm"_s, parent)
{ }
