#include "ui/service/service_control_dialog.h"

#include "ui/common/accessible.h"
#include "ui/common/look_lock.h"
#include "ui/service/service_pictures.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

ServiceControlDialog::ServiceControlDialog(const ServiceControl &serviceControl, QWidget *parent)
    : PacedDialog(parent)
    , control(serviceControl)
    , status(new QLabel(this))
    , startedPicture(PictureLabel(u"service-started"_s, tr("Service is started"), this))
    , stoppedPicture(PictureLabel(u"service-stopped"_s, tr("Service is stopped"), this))
    , start(new QPushButton(tr("Start"), this))
    , stop(new QPushButton(tr("Stop"), this))
    , close(new QPushButton(tr("Close"), this))
{
    setWindowTitle(tr("Service control"));
    setObjectName(u"serviceControl"_s);
    LayOut();
    KeepForLooking(*close);
    connect(start, &QPushButton::clicked, this, [this] { Carry(StartService); });
    connect(stop, &QPushButton::clicked, this, [this] { Carry(StopService); });
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    ShowState(control.IsRunning());
    (running ? close : start)->setDefault(true); // Enter must not stop the service by accident
}

void ServiceControlDialog::LayOut()
{
    status->setObjectName(u"status"_s);
    SetNames(*start, u"start"_s, tr("Start"));
    SetNames(*stop, u"stop"_s, tr("Stop"));
    SetNames(*close, u"close"_s, tr("Close"));
    QFont larger = status->font();
    larger.setPointSizeF(larger.pointSizeF() * 1.25);
    status->setFont(larger);
    status->setMinimumWidth(
        status->fontMetrics().horizontalAdvance(tr("Service is started") + u"    "_s));

    auto *commands = new QHBoxLayout;
    commands->addWidget(start);
    commands->addWidget(stop);
    commands->addStretch();

    auto *layout = new QGridLayout(this);
    layout->addWidget(startedPicture, 0, 0, 2, 1, Qt::AlignTop);
    layout->addWidget(stoppedPicture, 0, 0, 2, 1, Qt::AlignTop);
    layout->addWidget(status, 0, 1);
    layout->addLayout(commands, 1, 1);
    layout->addWidget(close, 2, 1, Qt::AlignRight | Qt::AlignBottom);
    layout->setRowMinimumHeight(2, close->sizeHint().height() * 3 / 2);
    layout->setColumnStretch(1, 1);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

void ServiceControlDialog::ShowState(bool isRunning)
{
    running = isRunning;
    status->setText(running ? tr("Service is started") : tr("Service is stopped"));
    startedPicture->setVisible(running);
    stoppedPicture->setVisible(!running);
    start->setEnabled(!running);
    stop->setEnabled(running);
}

void ServiceControlDialog::Carry(ServiceSequence &sequence)
{
    RunPaced([&](const StepSink &step) {
        return sequence(control, step, [this](bool isRunning) { Changed(isRunning); });
    });
}

void ServiceControlDialog::Changed(bool isRunning)
{
    wasStopped |= !isRunning;
    close->setFocus(); // else the focus would go on to the opposite command
    ShowState(isRunning);
}
