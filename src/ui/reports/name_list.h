// A list of names out of which some can be searched, chosen and moved, however many there are.
#pragma once

#include <QAbstractListModel>

#include <vector>

class QLineEdit;
class QListView;

struct ListedName
{
    quint32 id;
    QString name;
};

// All names, of which those that hold the searched text are shown.
class NameModel : public QAbstractListModel
{
    Q_OBJECT

public:
    using QAbstractListModel::QAbstractListModel;

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;

    [[nodiscard]] const std::vector<ListedName> &Names() const { return names; }
    void SetNames(std::vector<ListedName> newNames);

    // Without regard to case; an empty text shows all.
    void Search(const QString &text);

    // Takes the shown rows, in their order, out of the list.
    [[nodiscard]] std::vector<ListedName> Take(std::vector<int> rows);
    [[nodiscard]] std::vector<ListedName> TakeShown();

    void Append(const std::vector<ListedName> &more);
    void Sort();

private:
    void Show();

    std::vector<ListedName> names;
    std::vector<size_t> shown; // places in `names`
    QString searched;
};

// The view of such a list with its field for searching.
struct NameList
{
    NameModel *model;
    QListView *view;
    QLineEdit *search;

    // `name` is the view's object name, and with "Search" behind it the field's.
    [[nodiscard]] static NameList
    Make(QObject *parent, const char *name, const QString &searchWords);

    void MoveChosenTo(NameList &other);
    void MoveShownTo(NameList &other);
};
