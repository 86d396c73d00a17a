// Offers what may stand instead of the word at the cursor of a field in which a filter is typed.
#pragma once

#include <QCompleter>
#include <QStringListModel>

#include <functional>

class QLineEdit;

class FilterCompleter : public QCompleter
{
    Q_OBJECT

public:
    FilterCompleter(QLineEdit &field, std::function<QStringList()> groupNames);

    // Whether the list is open, and whether one of its entries is chosen by the arrow keys.
    [[nodiscard]] bool IsOpen() const;
    [[nodiscard]] bool IsChosen() const;

private:
    void Offer();
    void Take(const QString &candidate);

    QLineEdit &field;
    std::function<QStringList()> groupNames;
    QStringListModel candidates;
};
