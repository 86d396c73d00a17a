// "Reports": chooses one of the catalogue, narrows it, and shows it beside.
#pragma once

#include "reports/catalogue.h"
#include "reports/drill_down.h"
#include "reports/filter_choices.h"
#include "reports/saved_report.h"
#include "reports/selection.h"
#include "startup/app_services.h"
#include "ui/common/dialog.h"
#include "ui/reports/filter_dialog.h"

#include <QStringList>

#include <vector>

class CCrystalCtrl;
class DayField;
class QLabel;
class QListWidget;
class QPushButton;
class QRadioButton;
class QScrollArea;
class ReportViewer;

class ReportsDialog : public Dialog
{
    Q_OBJECT

public:
    explicit ReportsDialog(const AppServices &services, QWidget *parent = nullptr);

    [[nodiscard]] ReportViewer &Viewer() const;

    // Builds the query from the choices and has the control run it.
    void Generate();

protected:
    // Escape stops what runs, and closes the window only when nothing does.
    void keyPressEvent(QKeyEvent *event) override;

private:
    // A filter with what it makes a report be of, as its names were offered; and the two lists of its dialog.
    template <typename IdType>
    struct ChosenFilter
    {
        KeptFilter<IdType> kept;
        FilterScope scope;
        ReportFilter<IdType> lists;
    };

    [[nodiscard]] QWidget *BuildChoices();
    [[nodiscard]] QWidget *BuildPeriod();
    [[nodiscard]] QWidget *BuildFilters();
    [[nodiscard]] QWidget *BuildButtons();
    void SelectFirst();
    void ShowSelected(int row);
    void EnablePickers();
    void ShowFilterNote();
    template <typename IdType>
    void Choose(ReportFilterDialog::Of what,
                Result<std::vector<Named<IdType>>> (*offers)(),
                ChosenFilter<IdType> &chosen);
    void ShowSaved();
    void ShowTroubleOfSaved();
    [[nodiscard]] std::optional<SavedReport> Present() const;
    void Take(const SavedReport &report);
    void TakePeriod(const ReportPeriod &period);
    void ShowHelp();
    void SetUpPages();
    void KeepSelected();
    [[nodiscard]] int SelectedRow() const;
    [[nodiscard]] PeriodChoice Choice() const;
    [[nodiscard]] ReportPeriod Period() const;
    [[nodiscard]] bool IsPeriodInOrder();
    [[nodiscard]] bool AreSettingsReadable();
    [[nodiscard]] QString FilterWords() const;
    void OpenDetail(const CellRow &line);
    void Drive(int row, const QString &query);

    const AppServices &services;
    QListWidget *catalogue;
    QLabel *description;
    QRadioButton *allAvailable;
    QRadioButton *today;
    QRadioButton *lastWeek;
    QRadioButton *lastMonth;
    QRadioButton *custom;
    DayField *since;
    DayField *until;
    QPushButton *users;
    QPushButton *groups;
    QLabel *filterNote;
    QScrollArea *filterNoteArea; // a long note is scrolled
    QLabel *savedNote; // that a saved report failed
    QPushButton *generate;
    CCrystalCtrl *control;

    ReportSelection made; // what the report that shows is on
    std::vector<ReportSelection> formers; // those that "Back" leads to

    ChosenFilter<UserId> userFilter;
    ChosenFilter<GroupId> groupFilter;
};
