// "Import": shows what every row of a file becomes before anything is written.
#pragma once

#include "startup/app_services.h"
#include "ui/common/dialog.h"
#include "ui/exchange/import_model.h"

class QComboBox;
class QLabel;
class QPushButton;
class QTreeView;

class ImportDialog : public Dialog
{
    Q_OBJECT

public:
    // `fileName` is read again when a user was changed between the list and the import.
    ImportDialog(const AppServices &services,
                 QString fileName,
                 const std::shared_ptr<const ImportJob> &job,
                 QWidget *parent);

    // Imports the rows that are new or changed. Stays open when they could not be written.
    void accept() override;

private:
    void Lay();
    void Show(const std::shared_ptr<const ImportJob> &newJob);
    void ShowRows();
    void ShowWhole(const QModelIndex &row);
    void ReadAgain();

    const AppServices &services;
    const QString fileName;
    std::shared_ptr<const ImportJob> job;
    QLabel *about;
    QComboBox *filter;
    QTreeView *list;
    ImportModel *model;
    QLabel *whole; // what a cell has no room for
    QLabel *summary;
    QPushButton *import;
};

// Has a file chosen, reads it on a connection of its own and shows what becomes of its rows; what cannot
// be read is told. The lists are to be refilled afterwards.
void OpenImport(const AppServices &services, QWidget *parent);

// The same with a file that is chosen already.
void OpenImportOf(const AppServices &services, const QString &fileName, QWidget *parent);

// Has the name of a CSV or XLSX file chosen and saves all monitored users in it, as an import reads them.
void OpenUserExport(const AppServices &services, QWidget *parent);
