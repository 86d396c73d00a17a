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

    // From the top down: row numbers, and the database ids behind them.
    [[nodiscard]] QList<int> SelectedRows() const;
    [[nodiscard]] QList<quint32> SelectedIds() const;

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
    using ForOne = std::function<void(quint32 id, QWidget *parent)>;

    [[nodiscard]] virtual quint32 IdAt(int row) const = 0;

    // -1 when the id is not listed.
    [[nodiscard]] virtual int RowOf(quint32 id) const = 0;

    // Opens the dialog for the first selected row.
    void OpenFor(const ForOne &dialog);

    // As above, to be called later. Empty for a dialog that does not exist, so that its entry is not
    // shown; `dialog` must outlive it.
    [[nodiscard]] std::function<void()> Opener(const ForOne &dialog);

    // F5.
    virtual void RefreshKey() = 0;

    // Entries for the rows that are selected now, at least one.
    virtual void FillPopUp(QMenu &menu) = 0;

    void DeselectFirst();

    // Takes the model over and tells of its selection.
    void ShowModel(QAbstractItemModel *model);

    // Runs `fill`, which reads the rows and resets the model, and then selects the same ids and scrolls
    // to the same place.
    void KeepingPlace(const std::function<void()> &fill);

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
