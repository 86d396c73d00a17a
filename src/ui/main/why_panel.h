// Beside the lists: whether the chosen user may send, why, and until when, with the commands that would
// change it.
#pragma once

#include "app/why_access.h"
#include "startup/app_services.h"

#include <QFrame>
#include <QList>
#include <QSet>
#include <QTimer>

class QLabel;
class QPushButton;
class WhyLines;

class WhyPanel : public QFrame
{
    Q_OBJECT

public:
    WhyPanel(const AppServices &services, QWidget *parent);

    // Tells of the first of these; "Block" and "Unblock" are for all of them.
    void ShowUsers(const QList<UserId> &userIds);

    // Reads anew; nothing while the panel is hidden, which reads when it is shown.
    void Refresh();

    void TakeFocus();

    // The letters that others in the window have: the commands get different ones.
    void LeaveLetters(const QSet<QChar> &letters);

    [[nodiscard]] QSize sizeHint() const override;

signals:
    void BlockChosen();
    void UnblockChosen();

    // A command on the user that is told of, who belongs to that group.
    void CommandChosen(WhyCommand command, bool ofGroup, UserId userId, GroupId groupId);

protected:
    void showEvent(QShowEvent *event) override;

private:
    void CreateControls();
    void CreateButtons();
    void Take(UserId userId, const Result<WhyAnswer> &answer);
    void Clear();
    void ShowNobody();
    void ShowVerdict(Verdict verdict);

    const AppServices &services;
    QList<UserId> chosen;
    UserId shown; // of whom the lines tell; not set while they tell of nobody
    GroupId shownGroup;
    bool reads = false;
    bool readsAgain = false;
    QLabel *name = nullptr;
    QLabel *picture = nullptr;
    QLabel *verdict = nullptr;
    WhyLines *lines = nullptr;
    QPushButton *block = nullptr;
    QPushButton *unblock = nullptr;
};
