// Chooses the users or the groups that a report is made on, out of all that are offered.
#pragma once

#include "reports/filter_choices.h"
#include "ui/common/dialog.h"
#include "ui/reports/name_list.h"

#include <QSet>

class QLabel;

class ReportFilterDialog : public Dialog
{
    Q_OBJECT

public:
    enum class Of { Users, Groups };

    ReportFilterDialog(Of what, QWidget *parent);

    // Those of `offered` that `filter` takes stand among the taken; all others among those left.
    template <typename IdType>
    void Offer(const std::vector<Named<IdType>> &offered, const ReportFilter<IdType> &filter)
    {
        const QSet<IdType> wanted(filter.taken.begin(), filter.taken.end());
        std::vector<ListedName> those;
        std::vector<ListedName> others;
        for (const auto &[id, name] : offered) {
            (wanted.contains(id) ? those : others).push_back({id.value, ShownName(name)});
        }
        taken.model->SetNames(std::move(those));
        left.model->SetNames(std::move(others));
    }

    // The two lists as they stand, in their order; with the kind of ids that were offered.
    template <typename IdType>
    [[nodiscard]] ReportFilter<IdType> Filter() const
    {
        return {IdsIn<IdType>(taken), IdsIn<IdType>(left)};
    }

private:
    [[nodiscard]] static QString ShownName(const QString &name);

    template <typename IdType>
    [[nodiscard]] static QList<IdType> IdsIn(const NameList &list)
    {
        QList<IdType> ids;
        for (const ListedName &listed : list.model->Names()) {
            ids += IdType {listed.id};
        }
        return ids;
    }

    void MoveWhenChosen(NameList &from, NameList &to);
    void ShowWarning();

    const Of of;
    NameList taken;
    NameList left;
    QLabel *warning; // that the report will be on more than was chosen
};
