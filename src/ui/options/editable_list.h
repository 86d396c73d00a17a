// A list with the buttons that add to it and take from it, and above them the field for what is
// added, where there is one.
#pragma once

#include <QWidget>

class QLabel;
class QLineEdit;
class QPushButton;
class QTreeWidget;

class EditableList : public QWidget
{
    Q_OBJECT

public:
    struct Texts
    {
        QString list; // above the list; empty where the box around it says it
        QString entry; // before the field
        QString add;
        QString remove;
    };

    // The controls are called `name`, `name`Add, `name`Remove and, for the entry, what it is called
    // already. One column has no heading. The list takes `entry`; Enter in it adds.
    EditableList(const QString &name,
                 const Texts &texts,
                 const QStringList &columns,
                 QWidget *entry = nullptr);

    // The row that was selected stays selected as far as there is one at its place.
    void SetRows(const QList<QStringList> &rows);
    void SelectRow(int row);
    void SelectRow(const QString &firstColumn);

    [[nodiscard]] int Row() const; // -1 while none is selected
    [[nodiscard]] QString RowText() const; // of the first column
    [[nodiscard]] QTreeWidget &List() { return *list; }

    void SetAddEnabled(bool enabled); // the entry goes with it
    void SetRemoveEnabled(bool enabled);
    void FocusEntry();

    // Adds what stands in the entry as the button does. False when it was refused and still stands there;
    // what the button refused already, and a person was told of, is passed over.
    [[nodiscard]] bool AddEntered();

signals:
    void AddRequested();
    void RemoveRequested();
    void RowChanged();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    [[nodiscard]] QStringList Entered() const; // empty while nothing stands in the entry
    void RequestAdd();

    QTreeWidget *list;
    QWidget *entry;
    QList<QLineEdit *> entryLines;
    QStringList refused; // what the button did not add
    QPushButton *add;
    QPushButton *remove;
};

// For a page that is left: what was typed into the lists' entries and not added yet is added, not dropped.
// False when some of it was refused.
[[nodiscard]] bool AddWhatWasEntered(const QWidget &page);
