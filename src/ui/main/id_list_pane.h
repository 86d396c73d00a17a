// A list whose rows stand for rows of a table: users by their ids, or groups by theirs.
#pragma once

#include "db/failure.h"
#include "ui/main/list_pane.h"

#include <QAction>
#include <QMenu>

#include <optional>

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

    // Asks by `hasAccount` (access/list_commands.h), see AskForAccount.
    void AskForAccountBy(SessionThread &database,
                         Result<bool> (*hasAccount)(IdType),
                         QObject *context,
                         const std::function<void(bool)> &answer)
    {
        const QList<IdType> selected = SelectedIds();
        if (selected.isEmpty()) {
            answer(false);
            return;
        }
        database.Start(
            context,
            [hasAccount, id = selected.front()] { return hasAccount(id); },
            [answer](const Result<bool> &has) { answer(has.value_or(true)); });
    }

    // Adds the entry "Account...", enabled once it is known that there is one.
    void AddAccountEntry(QMenu &menu, const ForOne &dialog)
    {
        if (QAction *account = AddEntry(menu, ListPane::tr("Account..."), Opener(dialog), false)) {
            AskForAccount(account, [account](bool has) { account->setEnabled(has); });
        }
    }

    // What a person has chosen, by ids: for rows that go and come back.
    struct Chosen
    {
        QList<IdType> selected;
        std::optional<IdType> current;
    };

    [[nodiscard]] Chosen WhatIsChosen() const
    {
        const int row = currentIndex().row();
        return {SelectedIds(), row < 0 ? std::nullopt : std::optional(IdAt(row))};
    }

    void ChooseAgain(const Chosen &chosen)
    {
        QList<int> rows;
        for (const IdType id : chosen.selected) {
            rows.append(RowOf(id));
        }
        GoTo(chosen.current ? RowOf(*chosen.current) : -1, rows);
    }
};
