// What both lists of the main window do alike: rows, selection, mouse and keys.
#pragma once

#include <QTreeView>

#include <functional>

class QMenu;

class ListPane : public QTreeView
{
    Q_OBJECT

public:
    explicit ListPane(QWidget *parent);

    [[nodiscard]] int RowCount() const;

    // From the top down.
    [[nodiscard]] QList<int> SelectedRows() const;

    // The commands that the menus and the toolbar share between the lists. Each works on the
    // selection and does nothing without one.
    virtual void OpenProperties() = 0;
    virtual void OpenAccount() = 0;
    virtual void DeleteSelected() = 0;

    // Whether the first selected row has an account to open; asks the database.
    [[nodiscard]] virtual bool HasAccount() const = 0;

    // False when the rows could not be read the last time; the failure log tells why.
    [[nodiscard]] bool WasRead() const { return wasRead; }

signals:
    // The list was filled by a key or a command of its own.
    void Filled();
    void SelectionChanged();
    void LeftByTab();
    void Focused();

protected:
    // F5.
    virtual void RefreshKey() = 0;

    // Entries for the rows that are selected now, at least one.
    virtual void FillPopUp(QMenu &menu) = 0;

    void DeselectFirst();

    // Takes the model over and tells of its selection.
    void ShowModel(QAbstractItemModel *model);

    // Runs `fill`, which reads the rows and resets the model, then selects the rows that `chosen` gives,
    // of which -1 stands for none, and scrolls to the same place.
    void Refill(const std::function<void()> &fill, const std::function<QList<int>()> &chosen);

    void keyPressEvent(QKeyEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    bool focusNextPrevChild(bool next) override;

private:
    [[nodiscard]] QPoint PlaceOfMenu(const QContextMenuEvent &event) const;

    bool wasRead = true;
};

// Adds an entry called by its text; an entry without a function is not shown.
void AddEntry(QMenu &menu,
              const QString &text,
              const std::function<void()> &run,
              bool enabled = true);
