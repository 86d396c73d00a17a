#include "app/waiting.h"

#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

std::chrono::milliseconds hiddenFor {1000};

}

WaitDialog::WaitDialog(SessionThread &session, const QString &what, QWidget *parent)
    : QDialog(parent)
    , database(session)
    , text(new QLabel(what, this))
{
    setObjectName(u"waitDialog"_s);
    setWindowTitle(tr("Please wait"));
    setModal(true);
    text->setObjectName(u"what"_s);
    text->setTextFormat(Qt::PlainText);
    auto *progress = new QProgressBar(this);
    progress->setObjectName(u"progress"_s);
    progress->setAccessibleName(what);
    progress->setRange(0, 0); // nobody knows how long
    progress->setTextVisible(false);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Cancel)->setObjectName(u"cancel"_s);
    connect(buttons, &QDialogButtonBox::rejected, this, &WaitDialog::reject);
    auto *column = new QVBoxLayout(this);
    column->addWidget(text);
    column->addWidget(progress);
    column->addWidget(buttons);
    setMinimumWidth(fontMetrics().averageCharWidth() * 50);
    delay.setSingleShot(true);
    connect(&delay, &QTimer::timeout, this, &WaitDialog::ShowItself);
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
}

WaitDialog::~WaitDialog()
{
    QGuiApplication::restoreOverrideCursor();
}

void WaitDialog::Wait()
{
    delay.start(hiddenFor);
    if (!finished) {
        hidden.exec(QEventLoop::ExcludeUserInputEvents);
    }
    if (!finished) {
        shown.exec();
    }
}

// The pointer shows at "Cancel" that something can be done here.
void WaitDialog::ShowItself()
{
    setCursor(Qt::ArrowCursor);
    show();
    hidden.quit();
}

void WaitDialog::Finish()
{
    finished = true;
    delay.stop();
    hide();
    hidden.quit();
    shown.quit();
}

void WaitDialog::reject()
{
    text->setText(tr("Cancelling..."));
    findChild<QPushButton *>(u"cancel"_s)->setEnabled(false);
    database.Cancel();
}

WaitDelayOverride::WaitDelayOverride(std::chrono::milliseconds delay)
    : previous(std::exchange(hiddenFor, delay))
{ }

WaitDelayOverride::~WaitDelayOverride()
{
    hiddenFor = previous;
}
