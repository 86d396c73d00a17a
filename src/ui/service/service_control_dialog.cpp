#include "ui/service/service_control_dialog.h"

#include "ui/common/accessible.h"
#include "ui/service/service_pictures.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

const QString kStarted = u"Service is started"_s;
const QString kStopped = u"Service is stopped"_s;

} // namespace

ServiceControlDialog::ServiceControlDialog(const ServiceControl &serviceControl, QWidget *parent)
    : PacedDialog(parent)
    , control(serviceControl)
    , status(new QLabel(this))
    , startedPicture(PictureLabel(u"service-started"_s, kStarted, this))
    , stoppedPicture(PictureLabel(u"service-stopped"_s, kStopped, this))
    , start(new QPushButton(u"Start"_s, this))
    , stop(new QPushButton(u"Stop"_s, this))
    , close(new QPushButton(u"Close"_s, this))
{
    setWindowTitle(u"Service control"_s);
    setObjectName(u"serviceControl"_s);
    LayOut();
    connect(start, &QPushButton::clicked, this, [this] { Carry(StartService); });
    connect(stop, &QPushButton::clicked, this, [this] { Carry(StopService); });
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    ShowState(control.IsRunning());
    (running ? close : start)->setDefault(true); // Enter must not stop the service by accident
}

void ServiceControlDialog::LayOut()
{
    status->setObjectName(u"status"_s);
    SetNames(*start, u"start"_s, u"Start"_s);
    SetNames(*stop, u"stop"_s, u"Stop"_s);
    SetNames(*close, u"close"_s, u"Close"_s);
    QFont larger = status->font();
    larger.setPointSizeF(larger.pointSizeF() * 1.25);
    status->setFont(larger);
    status->setMinimumWidth(status->fontMetrics().horizontalAdvance(kStarted + u"    "_s));

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
    status->setText(running ? kStarted : kStopped);
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
