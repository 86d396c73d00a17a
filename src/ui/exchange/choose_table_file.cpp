#include "ui/exchange/choose_table_file.h"

#include "reports/output_format.h"

#include <QFileDialog>

#include <algorithm>

QString ChooseTableFile(QWidget *parent, const TableFileChoice &choice)
{
    QList<OutputFormat> formats {OutputFormat::Xlsx, OutputFormat::Csv};
    if (choice.csvFirst) {
        std::ranges::reverse(formats);
    }
    QStringList endings;
    QStringList kinds;
    for (const OutputFormat format : formats) {
        endings << EndingOf(format);
        kinds << KindOf(format);
    }
    QFileDialog dialog(parent, choice.caption);
    dialog.setObjectName(choice.name);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilters(kinds);
    const auto takeEnding = [&](const QString &kind) {
        dialog.setDefaultSuffix(endings.value(kinds.indexOf(kind)));
    };
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, takeEnding);
    takeEnding(kinds.front());
    dialog.selectFile(choice.proposed);
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().constFirst() : QString();
}
