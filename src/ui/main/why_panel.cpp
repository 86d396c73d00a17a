#include "ui/main/why_panel.h"

#include "ui/common/accessible.h"
#include "ui/common/controls.h"
#include "ui/common/icons.h"
#include "ui/common/look_lock.h"
#include "ui/props/why_lines.h"

#include <QBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QStyle>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

Picture PictureOf(Verdict verdict)
{
    return verdict == Verdict::MayNotSend ? Picture::AccessBlocked : Picture::AccessAllowed;
}

} // namespace

WhyPanel::WhyPanel(const AppServices &appServices, QWidget *parent)
    : QFrame(parent)
    , services(appServices)
    , name(new QLabel)
    , picture(new QLabel)
    , verdict(new QLabel)
    , lines(new WhyLines(WhyLines::Commands::Shown))
    , block(MakeButton<QPushButton>(tr("&Block"), "blockUsers"))
    , unblock(MakeButton<QPushButton>(tr("U&nblock"), "unblockUsers"))
{
    SetNames(*this, u"whyPanel"_s, tr("Why, and until when"));
    setFrameShape(StyledPanel);
    CreateControls();
    CreateButtons();
    connect(lines, &WhyLines::CommandChosen, this, [this](WhyCommand command, bool ofGroup) {
        emit CommandChosen(command, ofGroup, shown, shownGroup);
    });
    ShowNobody();
}

void WhyPanel::CreateControls()
{
    name->setObjectName(u"whyName"_s);
    name->setTextFormat(Qt::PlainText);
    name->setWordWrap(true);
    picture->setObjectName(u"whyPicture"_s);
    verdict->setObjectName(u"whyVerdict"_s);
    verdict->setWordWrap(true);
    QFont strong = font();
    strong.setBold(true);
    verdict->setFont(strong);
    auto *state = new QHBoxLayout;
    state->addWidget(picture);
    state->addWidget(verdict, 1);
    auto *column = new QVBoxLayout(this);
    column->addWidget(name);
    column->addLayout(state);
    column->addWidget(lines, 1);
}

void WhyPanel::CreateButtons()
{
    block->setVisible(!OnlyLooks(*this));
    unblock->setVisible(!OnlyLooks(*this));
    block->setToolTip(tr("Blocks the chosen users at once (Ctrl+B)"));
    unblock->setToolTip(tr("Lifts the administrator's block of the chosen users (Ctrl+Shift+B)"));
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(block);
    buttons->addWidget(unblock);
    buttons->addStretch();
    static_cast<QVBoxLayout *>(layout())->addLayout(buttons);
    connect(block, &QPushButton::clicked, this, &WhyPanel::BlockChosen);
    connect(unblock, &QPushButton::clicked, this, &WhyPanel::UnblockChosen);
}

QSize WhyPanel::sizeHint() const
{
    return {fontMetrics().averageCharWidth() * 42, QFrame::sizeHint().height()};
}

void WhyPanel::TakeFocus()
{
    lines->setFocus(Qt::ShortcutFocusReason);
}

void WhyPanel::LeaveLetters(const QSet<QChar> &letters)
{
    lines->LeaveLetters(letters);
}

void WhyPanel::ShowUsers(const QList<UserId> &userIds)
{
    chosen = userIds;
    Refresh();
}

void WhyPanel::showEvent(QShowEvent *event)
{
    QFrame::showEvent(event);
    Refresh();
}

// One question at a time: whoever was chosen meanwhile is asked about once more.
void WhyPanel::Refresh()
{
    if (!isVisible() || reads) {
        readsAgain = reads;
        return;
    }
    if (chosen.isEmpty()) {
        ShowNobody();
        return;
    }
    reads = true;
    services.database.Start(this,
                            WhyAccessOf(services, chosen.front()),
                            [this, userId = chosen.front()](const Result<WhyAnswer> &answer) {
                                reads = false;
                                if (std::exchange(readsAgain, false)) {
                                    Refresh();
                                } else {
                                    Take(userId, answer);
                                }
                            });
}

void WhyPanel::Take(UserId userId, const Result<WhyAnswer> &answer)
{
    Clear();
    block->setEnabled(true);
    unblock->setEnabled(true);
    if (!answer || !answer->why) {
        name->clear();
        lines->ShowText(WhyNot(answer));
        return;
    }
    const WhyAccess &why = *answer->why;
    shown = userId;
    shownGroup = why.groupId;
    const qsizetype others = chosen.size() - 1;
    name->setText(others == 0
                      ? why.userName
                      : tr("%1, and %2 more chosen").arg(why.userName, QLocale().toString(others)));
    ShowVerdict(why.findings.verdict);
    lines->Show(why, DifferenceText(why.findings));
}

void WhyPanel::ShowVerdict(Verdict decided)
{
    const int size = style()->pixelMetric(QStyle::PM_SmallIconSize);
    picture->setPixmap(IconOf(PictureOf(decided)).pixmap(size));
    verdict->setText(VerdictText(decided));
}

// The focus stays in the panel when the button that has it goes: in the list it would choose anew.
void WhyPanel::Clear()
{
    const QWidget *focus = window()->focusWidget();
    if (focus != nullptr && lines->isAncestorOf(focus)) {
        lines->setFocus(Qt::OtherFocusReason);
    }
    shown = {};
    picture->clear();
    verdict->clear();
    lines->ShowText({});
}

void WhyPanel::ShowNobody()
{
    Clear();
    name->setText(tr("Choose a user in the list."));
    block->setEnabled(false);
    unblock->setEnabled(false);
}
