// Chooses the users or the groups that a report is made on, out of all that are offered.
#pragma once

#include "reports/filter_choices.h"

#include <QDialog>

class QListWidget;

class ReportFilterDialog : public QDialog
{
    Q_OBJECT

public:
    // `what` is "users" or "groups". Those of `offered` that `filter` takes stand among the taken;
    // all others among those left.
    ReportFilterDialog(const QString &what,
                       const std::vector<NamedId> &offered,
                       const ReportFilter &filter,
                       QWidget *parent);

    // The two lists as they stand, in their order.
    [[nodiscard]] ReportFilter Filter() const;

private:
    [[nodiscard]] QListWidget *MakeList(const char *name);
    void MoveWhenChosen(QListWidget &from, QListWidget &to);
    static void Move(QListWidget &from, QListWidget &to);
    static void MoveAll(QListWidget &from, QListWidget &to);

    QListWidget *taken;
    QListWidget *left;
};
