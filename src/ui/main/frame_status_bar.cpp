#include "ui/main/frame_status_bar.h"

#include "db/failure_log.h"
#include "ui/main/failures_dialog.h"
#include "ui/main/status_pane.h"

#include <QLabel>
#include <QToolButton>

using namespace Qt::StringLiterals;

FrameStatusBar::FrameStatusBar(QWidget *parent)
    : QStatusBar(parent)
    , notice(new QLabel(this))
    , userCount(new QLabel(tr("Total users: 12"), this))
    , service(new StatusPane(u"servicePane"_s, tr("A double click controls the service"), this))
    , connection(new StatusPane(
          u"connectionPane"_s, tr("Without a connection, a double click reconnects"), this))
    , cancel(new QToolButton(this))
    , undo(new QToolButton(this))
    , failures(new QToolButton(this))
{
    setObjectName(u"statusBar"_s);
    notice->setObjectName(u"messagePane"_s);
    notice->setTextFormat(Qt::PlainText);
    userCount->setObjectName(u"usersPane"_s);
    userCount->setMargin(2);
    addWidget(notice, 1);
    cancel->setObjectName(u"cancelPane"_s);
    cancel->setText(tr("Cancel"));
    cancel->hide();
    addPermanentWidget(cancel);
    connect(cancel, &QToolButton::clicked, this, &FrameStatusBar::Cancelled);
    undo->setObjectName(u"undoPane"_s);
    undo->hide();
    addPermanentWidget(undo);
    connect(undo, &QToolButton::clicked, this, &FrameStatusBar::UndoChosen);
    AddFailuresPane();
    addPermanentWidget(userCount);
    addPermanentWidget(service);
    addPermanentWidget(connection);
    ShowNotice({});
    connect(service, &StatusPane::Opened, this, &FrameStatusBar::ServiceOpened);
    connect(connection, &StatusPane::Opened, this, &FrameStatusBar::ConnectionOpened);
}

void FrameStatusBar::AddFailuresPane()
{
    failures->setObjectName(u"failuresPane"_s);
    failures->setAutoRaise(true);
    failures->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    failures->setIcon(IconOf(Picture::Failures));
    failures->setToolTip(tr("Database statements that failed since the program started"));
    addPermanentWidget(failures);
    connect(failures, &QToolButton::clicked, this, [this] { FailuresDialog(window()).exec(); });
    connect(&FailureLog::Instance(), &FailureLog::Changed, this, &FrameStatusBar::ShowFailures);
    ShowFailures();
}

void FrameStatusBar::ShowNotice(const QString &text)
{
    notice->setText(text.isEmpty() ? tr("Ready") : text);
}

void FrameStatusBar::OfferCancel(bool offered)
{
    cancel->setVisible(offered);
}

void FrameStatusBar::OfferUndo(const QString &what)
{
    undo->setText(tr("Undo \"%1\"").arg(what));
    undo->setToolTip(tr("Takes it back for the users that it changed (Ctrl+Z)"));
    undo->setVisible(!what.isEmpty());
}

void FrameStatusBar::ShowUserCount(int users)
{
    userCount->setText(tr("Active users: %1 ").arg(users));
}

void FrameStatusBar::ShowUserCountUnread()
{
    userCount->setText(tr("Active users: ? "));
}

void FrameStatusBar::ShowService(bool running)
{
    if (running) {
        service->ShowPicture(u"SERVICEON"_s, Picture::ServiceOn, tr("The accounting service runs"));
    } else {
        service->ShowPicture(
            u"SERVICEOFF"_s, Picture::ServiceOff, tr("The accounting service does not run"));
    }
}

void FrameStatusBar::ShowConnection(bool connected)
{
    if (connected) {
        connection->ShowPicture(u"CONN"_s, Picture::Connected, tr("Connected to the service"));
    } else {
        connection->ShowPicture(
            u"NOCONN"_s, Picture::NotConnected, tr("Not connected to the service"));
    }
}

void FrameStatusBar::ShowFailures()
{
    const qsizetype count = FailureLog::Instance().Count();
    failures->setText(tr("Failed statements: %1").arg(count));
    failures->setVisible(count > 0);
}
