#include "ui/reports/group_outline.h"

#include "reports/row_choice.h"
#include "ui/common/accessible.h"
#include "ui/common/controls.h"

#include <QHeaderView>
#include <QScrollBar>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int kTitleWidth = 130; // pixels, at first
constexpr double kHeadingHeight = 20; // points

} // namespace

void GroupModel::SetTable(const ReportTable *newTable)
{
    beginResetModel();
    table = newTable;
    sums.clear();
    const bool isSummed =
        table != nullptr && !table->layout.pageForEach; // a letter's sums are its own
    for (int place = 0; isSummed && place < table->layout.columns.size(); ++place) {
        const LayoutColumn &column = table->layout.columns.at(place);
        if (column.total && !column.hidden) {
            sums += place;
        }
    }
    endResetModel();
}

int GroupModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() || table == nullptr ? 0 : static_cast<int>(table->groups.size());
}

int GroupModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() || table == nullptr ? 0 : static_cast<int>(1 + sums.size());
}

QVariant GroupModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid()) {
        return {};
    }
    const ReportGroup &group = table->groups[static_cast<size_t>(index.row())];
    const bool isSum = index.column() > 0;
    if (role == Qt::TextAlignmentRole) {
        return QVariant(Qt::AlignVCenter | (isSum ? Qt::AlignRight : Qt::AlignLeft));
    }
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole) {
        return {};
    }
    if (!isSum) {
        return GroupTitle(*table, group);
    }
    const int place = sums.at(index.column() - 1);
    return DisplayText(table->layout.columns.at(place), group.totals[static_cast<size_t>(place)]);
}

QVariant GroupModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal || table == nullptr) {
        return {};
    }
    return section == 0 ? tr("Group") : HeadingOf(table->layout.columns.at(sums.at(section - 1)));
}

GroupOutline::GroupOutline(QWidget *parent) : QTreeView(parent), model(new GroupModel(this))
{
    SetNames(*this, u"outline"_s, tr("Groups of the report"));
    setModel(model);
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    header()->setStretchLastSection(false);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn); // its width counts in WidthWithin()
    connect(this, &QTreeView::clicked, this, &GroupOutline::TellChosen);
    TakeReturn(*this, [this] {
        if (currentIndex().isValid()) {
            TellChosen(currentIndex());
        }
    });
}

void GroupOutline::SetPages(std::shared_ptr<const ReportPages> newPages)
{
    model->SetTable(newPages ? &newPages->Table() : nullptr);
    pages = std::move(newPages); // the model's table lives as long as the pages
    for (int column = 0; column < model->columnCount(); ++column) {
        resizeColumnToContents(column);
    }
    if (model->columnCount() > 0) {
        setColumnWidth(0, std::min(columnWidth(0), kTitleWidth));
    }
}

int GroupOutline::WidthWithin(int most) const
{
    const int around = 2 * frameWidth() + verticalScrollBar()->sizeHint().width();
    int width = columnWidth(0) + around;
    for (int column = 1; column < model->columnCount(); ++column) {
        const int wider = width + columnWidth(column);
        if (wider > most) {
            break; // a figure that is cut says something else
        }
        width = wider;
    }
    return width;
}

void GroupOutline::ShowPage(int page)
{
    if (!HasGroups()) {
        return;
    }
    int begin = 0; // pages follow each other as the groups do
    int end = model->rowCount();
    while (begin < end) {
        const int middle = (begin + end) / 2;
        if (pages->PageOfGroup(static_cast<size_t>(middle)) <= page) {
            begin = middle + 1;
        } else {
            end = middle;
        }
    }
    const int shown = std::max(0, begin - 1);
    const int chosen = currentIndex().row();
    const bool isThere = chosen >= 0 && pages->PageOfGroup(static_cast<size_t>(chosen)) == page;
    if (!isThere) {
        setCurrentIndex(model->index(shown, 0));
    }
}

// Whoever goes from group to group by keys sees each of them.
void GroupOutline::keyPressEvent(QKeyEvent *event)
{
    const QModelIndex before = currentIndex();
    QTreeView::keyPressEvent(event);
    if (currentIndex() != before) {
        TellChosen(currentIndex());
    }
}

void GroupOutline::TellChosen(const QModelIndex &index)
{
    const auto group = static_cast<size_t>(index.row());
    emit GroupChosen(pages->PageOfGroup(group),
                     {0, pages->TopOfGroup(group), pages->Size().width(), kHeadingHeight});
}
