// "Try to reconnect?": says that the service is out of reach, starts it and connects to it.
#pragma once

#include "service/service_control.h"
#include "ui/service/paced_dialog.h"

class QLabel;
class QPushButton;

class ReconnectDialog : public PacedDialog
{
    Q_OBJECT

public:
    // Asks for the state; `control` must outlive the dialog. `connectService` makes the connection
    // and returns 0 for success.
    ReconnectDialog(const ServiceControl &control,
                    std::function<int()> connectService,
                    QWidget *parent = nullptr);

    // What was found and reached; read after the dialog closed.
    [[nodiscard]] const ReconnectFlags &Flags() const { return flags; }

private:
    void LayOut();
    void TryAgain();
    void ShowRestored();

    const ServiceControl &control;
    std::function<int()> connectService;
    ReconnectFlags flags;
    QLabel *text;
    QLabel *message;
    QLabel *lostPicture;
    QLabel *restoredPicture;
    QPushButton *reconnect;
    QPushButton *close;
};
