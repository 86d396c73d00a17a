// The status bar of the main window: messages, users, service, connection. A fifth pane shows up with
// the first failed statement.
#pragma once

#include <QStatusBar>

class QLabel;
class QToolButton;
class StatusPane;

class FrameStatusBar : public QStatusBar
{
    Q_OBJECT

public:
    explicit FrameStatusBar(QWidget *parent);

    // What stands in the message pane while no menu prompt covers it; empty for "Ready".
    void ShowNotice(const QString &text);
    void OfferCancel(bool offered); // of what is waited for
    void OfferUndo(const QString &what); // as in "Block"; empty for nothing to undo
    void ShowUserCount(int users);
    void ShowUserCountUnread(); // nobody knows how many there are
    void ShowService(bool running);
    void ShowConnection(bool connected);

signals:
    void ServiceOpened();
    void ConnectionOpened();
    void Cancelled();
    void UndoChosen();

private:
    void AddFailuresPane();
    void ShowFailures();

    QLabel *notice;
    QLabel *userCount;
    StatusPane *service;
    StatusPane *connection;
    QToolButton *cancel;
    QToolButton *undo;
    QToolButton *failures;
};
