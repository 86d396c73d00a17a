// The small untitled window that shows how far a start, a stop or a reconnect has come.
#pragma once

#include "service/service_progress.h"

#include <QDialog>

class QLabel;
class QProgressBar;

class ProgressWindow : public QDialog
{
    Q_OBJECT

public:
    // Shown at once, as the active window beside `parent`.
    explicit ProgressWindow(QWidget *parent);

    // Shows the step before it returns.
    void Take(ProgressStep step);

private:
    void ShowProgress();

    ServiceProgress progress;
    QLabel *text;
    QProgressBar *bar;
};
