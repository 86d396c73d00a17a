#include "ui/service/progress_window.h"

#include "ui/common/accessible.h"

#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int kWidthInCharacters = 56;

}

ProgressWindow::ProgressWindow(QWidget *parent)
    : QDialog(parent)
    , text(new QLabel(this))
    , bar(new QProgressBar(this))
{
    SetNames(*this, u"progressWindow"_s, tr("Progress"));
    setWindowTitle(u" "_s); // without any, the toolkit would put the program's name there
    text->setObjectName(u"progressText"_s);
    SetNames(*bar, u"progressBar"_s, tr("Progress"));
    bar->setRange(0, 100);
    bar->setMinimumWidth(fontMetrics().averageCharWidth() * kWidthInCharacters);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(text);
    layout->addWidget(bar);
    layout->setSizeConstraint(QLayout::SetFixedSize);

    ShowProgress();
    show();
    raise();
    activateWindow();
}

void ProgressWindow::Take(ProgressStep step)
{
    progress.Take(step);
    ShowProgress();
    repaint();
}

void ProgressWindow::ShowProgress()
{
    text->setText(progress.text);
    bar->setValue(progress.total);
    bar->setAccessibleDescription(progress.text);
}
