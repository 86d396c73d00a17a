// "Refresh period": how often the lists are read anew.
#pragma once

#include <QDialog>

class QSpinBox;

class RefreshPeriodDialog : public QDialog
{
    Q_OBJECT

public:
    // `minutes` is shown at first, brought into 1 to 30.
    RefreshPeriodDialog(int minutes, QWidget *parent);

    [[nodiscard]] int Minutes() const;

private:
    QSpinBox *period;
};
