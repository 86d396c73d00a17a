#include "ui/options/editable_list.h"

#include "ui/common/accessible.h"

#include <QGridLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int kShownRows = 6;

QTreeWidget *MakeList(const QString &name, const QStringList &columns)
{
    auto *list = new QTreeWidget;
    list->setObjectName(name);
    list->setRootIsDecorated(false);
    list->setUniformRowHeights(true);
    list->setHeaderLabels(columns);
    list->setHeaderHidden(columns.size() < 2);
    list->header()->setStretchLastSection(true);
    if (columns.size() == 1) {
        list->header()->setSectionResizeMode(QHeaderView::Stretch);
        list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    }
    list->setMinimumHeight(list->fontMetrics().height() * kShownRows);
    list->setAllColumnsShowFocus(true);
    return list;
}

QList<QLineEdit *> LinesOf(QWidget *entry)
{
    if (auto *line = qobject_cast<QLineEdit *>(entry)) {
        return {line};
    }
    return entry ? entry->findChildren<QLineEdit *>() : QList<QLineEdit *>();
}

} // namespace

EditableList::EditableList(const QString &name,
                           const Texts &texts,
                           const QStringList &columns,
                           QWidget *entryField)
    : list(MakeList(name, columns))
    , entry(entryField)
    , add(new QPushButton(texts.add))
    , remove(new QPushButton(texts.remove))
{
    add->setObjectName(name + u"Add"_s);
    add->setAutoDefault(false);
    remove->setObjectName(name + u"Remove"_s);
    remove->setAutoDefault(false);
    list->setAccessibleName(PlainLabel(texts.list.isEmpty() ? columns[0] : texts.list));
    auto *grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    int row = 0;
    if (entry) {
        if (!texts.entry.isEmpty()) {
            grid->addWidget(LabelFor(texts.entry, *entry), row++, 0);
        }
        grid->addWidget(entry, row, 0);
        grid->addWidget(add, row++, 1);
    }
    if (!texts.list.isEmpty()) {
        grid->addWidget(LabelFor(texts.list, *list), row++, 0);
    }
    grid->addWidget(list, row, 0, 3, 1);
    if (!entry) {
        grid->addWidget(add, row++, 1);
    }
    grid->addWidget(remove, row, 1);
    grid->setRowStretch(row + 1, 1);
    grid->setColumnStretch(0, 1);
    connect(add, &QPushButton::clicked, this, &EditableList::RequestAdd);
    connect(remove, &QPushButton::clicked, this, &EditableList::RemoveRequested);
    connect(list, &QTreeWidget::itemSelectionChanged, this, &EditableList::RowChanged);
    list->installEventFilter(this);
    entryLines = LinesOf(entry);
    for (QLineEdit *line : std::as_const(entryLines)) {
        line->installEventFilter(this);
    }
}

// Enter in a field that holds something adds it instead of closing the dialog around the list.
bool EditableList::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress) {
        return QWidget::eventFilter(watched, event);
    }
    const int key = static_cast<QKeyEvent *>(event)->key();
    if (watched == list) {
        if (key == Qt::Key_Delete && remove->isEnabled()) {
            emit RemoveRequested();
            return true;
        }
        return false;
    }
    const auto *line = qobject_cast<QLineEdit *>(watched);
    if ((key == Qt::Key_Return || key == Qt::Key_Enter) && line && !line->text().isEmpty()) {
        RequestAdd();
        return true;
    }
    return false;
}

void EditableList::SetRows(const QList<QStringList> &rows)
{
    const int selected = Row();
    {
        const QSignalBlocker quiet(list);
        list->clear();
        for (const QStringList &row : rows) {
            list->addTopLevelItem(new QTreeWidgetItem(row));
        }
        for (int column = 0; column + 1 < list->columnCount(); ++column) {
            list->resizeColumnToContents(column);
        }
    }
    if (selected >= 0) {
        SelectRow(std::min(selected, static_cast<int>(rows.size()) - 1));
    }
}

void EditableList::SelectRow(int row)
{
    list->setCurrentItem(list->topLevelItem(row));
    emit RowChanged();
}

void EditableList::SelectRow(const QString &firstColumn)
{
    const auto found = list->findItems(firstColumn, Qt::MatchExactly | Qt::MatchCaseSensitive);
    SelectRow(found.isEmpty() ? -1 : list->indexOfTopLevelItem(found.first()));
}

int EditableList::Row() const
{
    const auto selected = list->selectedItems();
    return selected.isEmpty() ? -1 : list->indexOfTopLevelItem(selected.first());
}

QString EditableList::RowText() const
{
    const auto selected = list->selectedItems();
    return selected.isEmpty() ? QString() : selected.first()->text(0);
}

void EditableList::SetAddEnabled(bool enabled)
{
    add->setEnabled(enabled);
    if (entry) {
        entry->setEnabled(enabled);
    }
}

void EditableList::SetRemoveEnabled(bool enabled)
{
    remove->setEnabled(enabled);
}

void EditableList::FocusEntry()
{
    if (entry) {
        entry->setFocus();
    }
}

QStringList EditableList::Entered() const
{
    QStringList texts;
    for (const QLineEdit *line : entryLines) {
        texts << line->text();
    }
    return texts.join(QString()).isEmpty() ? QStringList() : texts;
}

void EditableList::RequestAdd()
{
    emit AddRequested();
    refused = Entered();
}

bool EditableList::AddEntered()
{
    const QStringList entered = Entered();
    if (entered.isEmpty() || entered == refused || !entry->isEnabled()) {
        return true;
    }
    emit AddRequested();
    return Entered().isEmpty();
}

bool AddWhatWasEntered(const QWidget &page)
{
    return std::ranges::all_of(page.findChildren<EditableList *>(),
                               [](auto *list) { return list->AddEntered(); });
}
