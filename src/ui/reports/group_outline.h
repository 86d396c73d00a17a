// The groups of a report beside its pages, with what each comes to.
#pragma once

#include "reports/report_pages.h"

#include <QAbstractTableModel>
#include <QTreeView>

#include <memory>

class GroupModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    void SetTable(const ReportTable *newTable); // null for none

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QVariant
    headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    const ReportTable *table = nullptr;
    QList<int> sums; // columns of the layout that stand behind the group's title
};

class GroupOutline : public QTreeView
{
    Q_OBJECT

public:
    explicit GroupOutline(QWidget *parent = nullptr);

    void SetPages(std::shared_ptr<const ReportPages> newPages); // null for none
    // More than one, between which to choose.
    [[nodiscard]] bool HasGroups() const { return model->rowCount() > 1; }

    // Of the names and as many whole columns of figures as are no wider in all; pixels.
    [[nodiscard]] int WidthWithin(int most) const;

    // Marks the group that the page begins with, without choosing it.
    void ShowPage(int page);

protected:
    void keyPressEvent(QKeyEvent *event) override;

signals:
    // `place` is where the group's heading stands on the page, in points.
    void GroupChosen(int page, const QRectF &place);

private:
    void TellChosen(const QModelIndex &index);

    std::shared_ptr<const ReportPages> pages;
    GroupModel *model;
};
