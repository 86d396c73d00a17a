// What both lists of the main window do alike: rows, selection, mouse and keys.
#pragma once

#include "db/session_thread.h"

#include <QItemSelection>
#include <QTreeView>

#include <functional>
#include <utility>

class EmptyNote;
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

    // From a menu's opening until its command has begun, the commands are for whom it was opened.
    virtual void HoldTargets() = 0;
    virtual void ReleaseTargets() = 0;
    [[nodiscard]] virtual qsizetype TargetCount() const = 0;

    // What the status bar says of the command "Account...".
    [[nodiscard]] virtual QString AccountPrompt() const = 0;

    // Asks the database whether the first selected row has an account to open; `answer` hears it,
    // unless `context` is gone by then. Without a selection there is none. Where it could not be read
    // the answer is Yes: the account's own window tells why.
    virtual void AskForAccount(QObject *context, const std::function<void(bool)> &answer) = 0;

    // False when the rows could not be read the last time: the list shows what it did before.
    [[nodiscard]] bool WasRead() const { return wasRead; }

    // While the rows that it will show are being read.
    [[nodiscard]] bool IsReading() const { return reading; }

signals:
    // The rows were read, or could not be.
    void Filled();
    void ReadingChanged(bool reading);
    void SelectionChanged();
    void LeftByTab();
    void Focused();

protected:
    // F5.
    virtual void RefreshKey() = 0;

    // Entries for the rows that are selected now, at least one.
    virtual void FillPopUp(QMenu &menu) = 0;

    // What stands in the list when it was read and has no rows; empty for nothing.
    [[nodiscard]] virtual QString TextWhenEmpty() const = 0;

    void DeselectFirst();

    // Takes the model over and tells of its selection.
    void ShowModel(QAbstractItemModel *model);

    // Runs `read`, which gives the rows or a failure, beside the window and hands the rows to `take`.
    // A list that is being read already is read once more when it was.
    template <typename Read, typename Take>
    void StartReading(SessionThread &database, Read read, Take take)
    {
        if (reading) {
            again = [this, &database, read, take] { StartReading(database, read, take); };
            return;
        }
        SetReading(true);
        database.Start(this, std::move(read), [this, take = std::move(take)](auto rows) {
            SetReading(false);
            wasRead = rows.has_value();
            if (rows) {
                take(*std::move(rows));
            }
            emit Filled();
            if (const auto next = std::exchange(again, nullptr)) {
                next();
            }
        });
    }

    // For rows that come another way: they are being read; and whether they could be.
    void AwaitRows();
    void TellRead(bool couldBeRead);

    // Runs `fill`, which changes the model row by row, and sees to it that the same rows stay in view.
    void KeepingPlace(const std::function<void()> &fill);

    // The row becomes the current one and the one from which Shift selects; -1 leaves both as they are.
    // Selected are `rows` alone, of which -1 stands for none.
    void GoTo(int currentRow, const QList<int> &rows);

    void keyPressEvent(QKeyEvent *event) override;

    // A key that runs no command: it may move the current row and select.
    virtual void MoveByKey(QKeyEvent *event);

    void mousePressEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    bool focusNextPrevChild(bool next) override;
    void rowsAboutToBeRemoved(const QModelIndex &parent, int start, int end) override;

private:
    [[nodiscard]] bool IsInView(const QModelIndex &index) const;
    [[nodiscard]] QList<QPersistentModelIndex> RowsInView() const;
    [[nodiscard]] QPoint PlaceByKeyboard() const; // of the pop-up menu, on the screen
    void OpenPopUp(const QPoint &place);
    [[nodiscard]] QItemSelection SelectionOf(QList<int> rows) const;
    void SelectAgainAfter(Qt::FocusReason reason);
    void SetReading(bool nowReading);
    void CopySelected() const;
    void ShowEmptyNote();

    EmptyNote *emptyNote = nullptr; // until there is a model
    QPersistentModelIndex deselectedRow; // by the lost focus; none once anything else is selected
    bool wasRead = true;
    bool reading = false;
    std::function<void()> again; // reads once more; empty for no need
};

// Adds an entry called by its text; an entry without a function is not shown, and null.
QAction *
AddEntry(QMenu &menu, const QString &text, const std::function<void()> &run, bool enabled = true);
