#include "ui/service/reconnect_dialog.h"

#include "ui/common/accessible.h"
#include "ui/service/service_pictures.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int kTextWidthInCharacters = 60;

} // namespace

ReconnectDialog::ReconnectDialog(const ServiceControl &serviceControl,
                                 std::function<int()> connectFunction,
                                 QWidget *parent)
    : PacedDialog(parent)
    , control(serviceControl)
    , connectService(std::move(connectFunction))
    , text(new QLabel(
          tr("The Tollbrook service is currently unavailable. This may be caused by the service "
             "being stopped or by communication problems. You still can administer users and set "
             "options, but they will not be enforced until you restart the service. "),
          this))
    , message(new QLabel(tr("Try to reconnect?"), this))
    , lostPicture(PictureLabel(u"connection-lost"_s, tr("Not connected"), this))
    , restoredPicture(PictureLabel(u"connection-restored"_s, tr("Connected"), this))
    , reconnect(new QPushButton(tr("Reconnect"), this))
    , close(new QPushButton(tr("Close"), this))
{
    setWindowTitle(message->text());
    StaysUnlocked();
    setObjectName(u"reconnectDialog"_s);
    LayOut();
    restoredPicture->hide();
    connect(reconnect, &QPushButton::clicked, this, &ReconnectDialog::TryAgain);
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    reconnect->setDefault(true);
    flags.serviceRunning = control.IsRunning();
}

void ReconnectDialog::LayOut()
{
    text->setObjectName(u"text"_s);
    message->setObjectName(u"message"_s);
    SetNames(*reconnect, u"reconnect"_s, tr("Reconnect"));
    SetNames(*close, u"close"_s, tr("Close"));
    text->setWordWrap(true);
    text->setMinimumWidth(fontMetrics().averageCharWidth() * kTextWidthInCharacters);
    text->setIndent(fontMetrics().averageCharWidth());
    message->setIndent(text->indent());
    text->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    QFont bold = message->font();
    bold.setBold(true);
    message->setFont(bold);

    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(reconnect);
    buttons->addWidget(close);

    auto *layout = new QGridLayout(this);
    layout->addWidget(lostPicture, 0, 0, Qt::AlignTop);
    layout->addWidget(restoredPicture, 0, 0, Qt::AlignTop);
    layout->addWidget(text, 0, 1);
    layout->addWidget(message, 1, 1);
    layout->addLayout(buttons, 2, 0, 1, 2);
    layout->setColumnStretch(1, 1);
    layout->setRowStretch(0, 1);
}

void ReconnectDialog::TryAgain()
{
    RunPaced([this](const StepSink &step) {
        Reconnect(control, step, connectService, flags);
        return true;
    });
    if (flags.Restored()) {
        ShowRestored();
    }
}

void ReconnectDialog::ShowRestored()
{
    setWindowTitle(tr("Connection restored"));
    message->setText(windowTitle());
    text->setText(tr("Tollbrook Administrator successfully connected to the service. Since now all "
                     "changes in user set up will be enforced immediately"));
    lostPicture->hide();
    restoredPicture->show();
    close->setFocus();
    reconnect->setEnabled(false);
}
