// A list whose rows stand for rows of a table: users by their ids, or groups by theirs.
#pragma once

#include "base/names_line.h"
#include "db/failure.h"
#include "ui/main/list_pane.h"

#include <QAction>
#include <QMenu>

#include <optional>

// Whom a command is for.
template <typename IdType>
struct Targets
{
    QList<IdType> ids; // from the top of the list down
    QStringList names; // of the first of them that are listed, up to kMostNames
    bool areAllMatching = false; // also some that are not listed
};

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

    // While a menu is open, and for the command that is chosen from it, those for whom it was opened,
    // whatever the list shows by then; else those who are chosen.
    [[nodiscard]] Targets<IdType> CommandTargets() const { return held ? *held : PresentTargets(); }

    void HoldTargets() override { held = PresentTargets(); }
    void ReleaseTargets() override { held.reset(); }

    [[nodiscard]] qsizetype TargetCount() const override { return CommandTargets().ids.size(); }

protected:
    using ForOne = std::function<void(IdType id, QWidget *parent)>;

    [[nodiscard]] virtual IdType IdAt(int row) const = 0;

    // -1 when the id is not listed.
    [[nodiscard]] virtual int RowOf(IdType id) const = 0;

    [[nodiscard]] virtual QString NameAt(int row) const = 0;

    [[nodiscard]] virtual Targets<IdType> PresentTargets() const
    {
        Targets<IdType> targets;
        for (const int row : SelectedRows()) {
            targets.ids << IdAt(row);
            if (targets.names.size() < kMostNames) {
                targets.names << NameAt(row);
            }
        }
        return targets;
    }

    // Opens the dialog for the first one.
    void OpenFor(const ForOne &dialog)
    {
        const QList<IdType> targets = CommandTargets().ids;
        if (dialog && !targets.isEmpty()) {
            dialog(targets.front(), window());
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
        const QList<IdType> targets = CommandTargets().ids;
        if (targets.isEmpty()) {
            answer(false);
            return;
        }
        database.Start(
            context,
            [hasAccount, id = targets.front()] { return hasAccount(id); },
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

private:
    std::optional<Targets<IdType>> held;
};
