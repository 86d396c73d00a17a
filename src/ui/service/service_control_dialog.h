// "Service control": shows whether the service runs, starts it and stops it.
#pragma once

#include "service/service_control.h"
#include "ui/service/paced_dialog.h"

class QLabel;
class QPushButton;

class ServiceControlDialog : public PacedDialog
{
    Q_OBJECT

public:
    // Asks for the state; `control` must outlive the dialog.
    explicit ServiceControlDialog(const ServiceControl &control, QWidget *parent = nullptr);

    // What the dialog last showed; read after it closed.
    [[nodiscard]] bool IsServiceRunning() const { return running; }

    // A stop succeeded here at least once, whatever came after it.
    [[nodiscard]] bool WasStopped() const { return wasStopped; }

private:
    using ServiceSequence = decltype(StartService);

    void LayOut();
    void Carry(ServiceSequence &sequence);
    void ShowState(bool isRunning);
    void Changed(bool isRunning);

    const ServiceControl &control;
    bool running = false;
    bool wasStopped = false;
    QLabel *status;
    QLabel *startedPicture;
    QLabel *stoppedPicture;
    QPushButton *start;
    QPushButton *stop;
    QPushButton *close;
};
