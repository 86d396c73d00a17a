#include "ui/reports/name_list.h"

#include "ui/common/accessible.h"

#include <QLineEdit>
#include <QListView>

#include <algorithm>

using namespace Qt::StringLiterals;

int NameModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(shown.size());
}

QVariant NameModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || role != Qt::DisplayRole) {
        return {};
    }
    return names[shown[static_cast<size_t>(index.row())]].name;
}

void NameModel::SetNames(std::vector<ListedName> newNames)
{
    names = std::move(newNames);
    Show();
}

void NameModel::Search(const QString &text)
{
    searched = text;
    Show();
}

void NameModel::Show()
{
    beginResetModel();
    shown.clear();
    for (size_t place = 0; place < names.size(); ++place) {
        if (names[place].name.contains(searched, Qt::CaseInsensitive)) {
            shown.push_back(place);
        }
    }
    endResetModel();
}

std::vector<ListedName> NameModel::Take(std::vector<int> rows)
{
    std::sort(rows.begin(), rows.end());
    std::vector<bool> goes(names.size());
    std::vector<ListedName> taken;
    for (const int row : rows) {
        const size_t place = shown[static_cast<size_t>(row)];
        goes[place] = true;
        taken.push_back(names[place]);
    }
    std::vector<ListedName> stay;
    for (size_t place = 0; place < names.size(); ++place) {
        if (!goes[place]) {
            stay.push_back(std::move(names[place]));
        }
    }
    SetNames(std::move(stay));
    return taken;
}

std::vector<ListedName> NameModel::TakeShown()
{
    std::vector<int> rows(shown.size());
    std::generate(rows.begin(), rows.end(), [row = 0]() mutable { return row++; });
    return Take(std::move(rows));
}

void NameModel::Append(const std::vector<ListedName> &more)
{
    names.insert(names.end(), more.begin(), more.end());
    Show();
}

void NameModel::Sort()
{
    std::stable_sort(
        names.begin(), names.end(), [](const ListedName &one, const ListedName &other) {
            const int folded = one.name.compare(other.name, Qt::CaseInsensitive);
            return folded != 0 ? folded < 0 : one.name < other.name;
        });
    Show();
}

NameList NameList::Make(QObject *parent, const char *name, const QString &searchWords)
{
    NameList list {new NameModel(parent), new QListView, new QLineEdit};
    list.view->setObjectName(QLatin1StringView(name));
    list.view->setModel(list.model);
    list.view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    list.view->setUniformItemSizes(true);
    SetNames(*list.search, QLatin1StringView(name) + u"Search"_s, searchWords);
    list.search->setPlaceholderText(searchWords);
    list.search->setClearButtonEnabled(true);
    QObject::connect(list.search, &QLineEdit::textChanged, list.model, &NameModel::Search);
    return list;
}

void NameList::MoveChosenTo(NameList &other)
{
    std::vector<int> rows;
    for (const QModelIndex &index : view->selectionModel()->selectedIndexes()) {
        rows.push_back(index.row());
    }
    if (rows.empty()) {
        return;
    }
    const int first = *std::min_element(rows.begin(), rows.end());
    other.model->Append(model->Take(std::move(rows)));
    // The keyboard goes on where it was.
    const int next = std::min(first, model->rowCount() - 1);
    view->selectionModel()->setCurrentIndex(model->index(next), QItemSelectionModel::NoUpdate);
}

void NameList::MoveShownTo(NameList &other)
{
    other.model->Append(model->TakeShown());
    other.model->Sort();
}
