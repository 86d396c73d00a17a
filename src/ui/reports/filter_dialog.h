// Chooses the users or the groups that a report is made on, out of all that are offered.
#pragma once

#include "reports/filter_choices.h"
#include "ui/common/dialog.h"

#include <QSet>

class QListWidget;

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
        for (const auto &[id, name] : offered) {
            Add(wanted.contains(id) ? *taken : *left, name, id.value);
        }
    }

    // The two lists as they stand, in their order; with the kind of ids that were offered.
    template <typename IdType>
    [[nodiscard]] ReportFilter<IdType> Filter() const
    {
        return {IdsIn<IdType>(*taken), IdsIn<IdType>(*left)};
    }

private:
    static void Add(QListWidget &list, const QString &name, quint32 id);
    [[nodiscard]] static QList<quint32> NumbersIn(const QListWidget &list);

    template <typename IdType>
    [[nodiscard]] static QList<IdType> IdsIn(const QListWidget &list)
    {
        QList<IdType> ids;
        for (const quint32 number : NumbersIn(list)) {
            ids += IdType {number};
        }
        return ids;
    }

    [[nodiscard]] QListWidget *MakeList(const char *name);
    void MoveWhenChosen(QListWidget &from, QListWidget &to);
    static void Move(QListWidget &from, QListWidget &to);
    static void MoveAll(QListWidget &from, QListWidget &to);
    void ShowWarning();

    const Of of;
    QListWidget *taken;
    QListWidget *left;
    QLabel *warning; // that the report will be on more than was chosen
};
