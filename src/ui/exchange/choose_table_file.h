// Where a table is saved: a CSV or an XLSX file.
#pragma once

#include <QString>

class QWidget;

struct TableFileChoice
{
    QString name; // of the dialog
    QString caption;
    QString proposed; // name of the file, without its ending
    bool csvFirst = false; // else XLSX
};

// Empty when none was chosen.
[[nodiscard]] QString ChooseTableFile(QWidget *parent, const TableFileChoice &choice);
