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

WaitDialog::WaitDialog(const QString &what, QWidget *parent)
    : QDialog(parent)
    , text(new QLabel(what, this))
    , progress(new QProgressBar(this))
{
    setObjectName(u"waitDialog"_s);
    setWindowTitle(tr("Please wait"));
    setModal(true);
    text->setObjectName(u"what"_s);
    text->setTextFormat(Qt::PlainText);
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
}

void WaitDialog::ShowProgress(qint64 done, qint64 whole)
{
    progress->setRange(0, static_cast<int>(whole));
    progress->setValue(static_cast<int>(done));
}

void WaitDialog::reject()
{
    text->setText(tr("Cancelling..."));
    findChild<QPushButton *>(u"cancel"_s)->setEnabled(false);
    emit Cancelled();
}

SessionWait::SessionWait(SessionThread &session, QString whatFor, QWidget *window)
    : database(session)
    , what(std::move(whatFor))
    , parent(window)
{
    delay.setSingleShot(true);
    connect(&delay, &QTimer::timeout, this, &SessionWait::ShowDialog);
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
}

SessionWait::~SessionWait()
{
    QGuiApplication::restoreOverrideCursor();
}

void SessionWait::Run()
{
    delay.start(hiddenFor);
    if (!finished) {
        hidden.exec(QEventLoop::ExcludeUserInputEvents);
    }
    if (!finished) {
        shown.exec();
    }
}

void SessionWait::ShowDialog()
{
    dialog = std::make_unique<WaitDialog>(what, parent);
    connect(dialog.get(), &WaitDialog::Cancelled, this, [this] { database.Cancel(); });
    dialog->show();
    QGuiApplication::changeOverrideCursor(Qt::BusyCursor); // an arrow: something can be done here
    hidden.quit();
}

void SessionWait::Finish()
{
    finished = true;
    delay.stop();
    if (dialog) {
        dialog->hide();
    }
    hidden.quit();
    shown.quit();
}

WaitDelayOverride::WaitDelayOverride(std::chrono::milliseconds delay)
    : previous(std::exchange(hiddenFor, delay))
{ }

WaitDelayOverride::~WaitDelayOverride()
{
    hiddenFor = previous;
}
