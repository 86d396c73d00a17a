// A list whose rows stand for rows of a table: users by their ids, or groups by theirs.
#pragma once

#include "ui/main/list_pane.h"

template <typename IdType>
class IdListPane : public ListPane
{
public:
    using ListPane::ListPane;

    // From the top down.
    [[nodiscard]] QList<IdType> SelectedIds() const
    {
        QList<IdType> ids;
        for (const int row : SelectedRows()) {
            ids.append(IdAt(row));
        }
        return ids;
    }

protected:
    using ForOne = std::function<void(IdType id, QWidget *parent)>;

    [[nodiscard]] virtual IdType IdAt(int row) const = 0;

    // -1 when the id is not listed.
    [[nodiscard]] virtual int RowOf(IdType id) const = 0;

    // Opens the dialog for the first selected row.
    void OpenFor(const ForOne &dialog)
    {
        const QList<IdType> selected = SelectedIds();
        if (dialog && !selected.isEmpty()) {
            dialog(selected.front(), window());
        }
    }

    // As above, to be called later. Empty for a dialog that does not exist, so that its entry is not
    // shown; `dialog` must outlive it.
    [[nodiscard]] std::function<void()> Opener(const ForOne &dialog)
    {
        return dialog ? [this, &dialog] { OpenFor(dialog); } : std::function<void()>();
    }

    // Runs `fill`, which reads the rows and resets the model, and then selects the same ids and scrolls
    // to the same place.
    void KeepingPlace(const std::function<void()> &fill)
    {
        Refill(fill, [this, selected = SelectedIds()] {
            QList<int> rows;
            for (const IdType id : selected) {
                rows.append(RowOf(id));
            }
            return rows;
        });
    }
};
