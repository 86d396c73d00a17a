#include "ui/options/page_list_sheet.h"

#include "ui/common/accessible.h"
#include "ui/common/help_window.h"

#include <QDialogButtonBox>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>

using namespace Qt::StringLiterals;

namespace {

constexpr int kIconSize = 20;
constexpr int kMargin = 8;

// The pictures have colours of their own, which the usual colour of a selection would swallow.
void SoftenSelection(QWidget &list)
{
    QPalette palette = list.palette();
    const QColor base = palette.color(QPalette::Base);
    const QColor strong = palette.color(QPalette::Highlight);
    const auto mix = [](int most, int least) { return (3 * most + least) / 4; };
    palette.setColor(QPalette::Highlight,
                     QColor(mix(base.red(), strong.red()),
                            mix(base.green(), strong.green()),
                            mix(base.blue(), strong.blue())));
    palette.setColor(QPalette::HighlightedText, palette.color(QPalette::Text));
    list.setPalette(palette);
}

// The same picture whether it is selected or not.
QIcon Untinted(const QIcon &icon)
{
    QIcon same;
    for (const QIcon::Mode mode : {QIcon::Normal, QIcon::Selected}) {
        same.addPixmap(icon.pixmap(2 * kIconSize), mode);
    }
    return same;
}

// Neither keys nor clicks mark an entry, they only make it the current one: which one is marked follows
// from the page that shows.
class EntryList : public QListWidget
{
protected:
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex & /*index*/,
                                                         const QEvent * /*event*/) const override
    {
        return QItemSelectionModel::NoUpdate;
    }
};

} // namespace

PageListSheet::PageListSheet(Prompt &prompt, const QString &caption, QWidget *parent)
    : Sheet(caption, parent)
    , list(new EntryList)
{
    SetNames(*list, u"pageList"_s, caption);
    list->setIconSize({kIconSize, kIconSize});
    list->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
    SoftenSelection(*list);
    ReplaceTabs(list);
    connect(list, &QListWidget::currentRowChanged, this, &PageListSheet::Choose);
    connect(this, &Sheet::Turned, this, &PageListSheet::Follow);
    auto *help = Buttons().addButton(QDialogButtonBox::Help);
    help->setObjectName(u"help"_s);
    connect(help, &QPushButton::clicked, this, [this, &prompt] { OpenHelpTopics(prompt, this); });
}

void PageListSheet::Add(Page *page, Picture picture)
{
    Sheet::Add(page);
    const QSignalBlocker quiet(list);
    auto *entry = new QListWidgetItem(Untinted(IconOf(picture)), page->Title(), list);
    const int width =
        list->fontMetrics().horizontalAdvance(page->Title()) + kIconSize + 3 * kMargin;
    entry->setSizeHint({width, kIconSize + kMargin});
    list->setFixedWidth(std::max(list->minimumWidth(), width + 2 * list->frameWidth()));
}

void PageListSheet::Choose(int row)
{
    if (row >= 0 && row != Active()) {
        TurnTo(row);
    }
}

// The page that shows is the one that is marked in the list, also when it refused to be left.
void PageListSheet::Follow(int page)
{
    const QSignalBlocker quiet(list);
    list->setCurrentRow(page, QItemSelectionModel::ClearAndSelect);
}
