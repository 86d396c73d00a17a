#include "ui/options/page_list_sheet.h"

#include "ui/common/accessible.h"

#include <QListWidget>
#include <QSignalBlocker>

using namespace Qt::StringLiterals;

namespace {

constexpr int kIconSize = 20;

}

PageListSheet::PageListSheet(const QString &caption, QWidget *parent)
    : Sheet(caption, parent)
    , list(new QListWidget)
{
    SetNames(*list, u"pageList"_s, caption);
    list->setIconSize({kIconSize, kIconSize});
    list->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
    ReplaceTabs(list);
    connect(list, &QListWidget::currentRowChanged, this, &PageListSheet::Choose);
    connect(this, &Sheet::Turned, this, &PageListSheet::Follow);
}

void PageListSheet::Add(Page *page, Picture picture)
{
    Sheet::Add(page);
    const QSignalBlocker quiet(list);
    auto *entry = new QListWidgetItem(IconOf(picture), page->Title(), list);
    entry->setSizeHint({0, kIconSize + list->fontMetrics().height() / 2});
    list->setFixedWidth(list->sizeHintForColumn(0) + kIconSize + 4 * list->frameWidth());
}

void PageListSheet::Choose(int row)
{
    if (row >= 0 && row != Active()) {
        TurnTo(row);
    }
}

// A page that refused to be left is chosen in the list again.
void PageListSheet::Follow(int page)
{
    const QSignalBlocker quiet(list);
    list->setCurrentRow(page);
}
