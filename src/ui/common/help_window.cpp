#include "ui/common/help_window.h"

#include "ui/common/accessible.h"
#include "ui/common/help_viewer.h"
#include "ui/common/keyboard_order.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QShortcut>
#include <QToolButton>

using namespace Qt::StringLiterals;

HelpWindow::HelpWindow(const QString &file, QWidget *parent)
    : QWidget(parent, Qt::Window)
    , viewer(new HelpViewer(file, this))
{
    setObjectName(u"helpWindow"_s);
    setWindowTitle(tr("User guide"));
    setAttribute(Qt::WA_DeleteOnClose);
    auto *column = new QVBoxLayout(this);
    column->addLayout(MakeBar());
    column->addWidget(viewer);
    connect(viewer, &HelpViewer::HistoryChanged, this, &HelpWindow::ShowHistory);
    connect(new QShortcut(QKeySequence::Back, this),
            &QShortcut::activated,
            viewer,
            &HelpViewer::GoBack);
    connect(new QShortcut(QKeySequence::Forward, this),
            &QShortcut::activated,
            viewer,
            &HelpViewer::GoForward);
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, search, [this] {
        search->setFocus(Qt::ShortcutFocusReason);
        search->selectAll();
    });
    connect(new QShortcut(QKeySequence::FindNext, this),
            &QShortcut::activated,
            this,
            &HelpWindow::Search);
    connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &QWidget::close);
    SetTabOrderByReading(*this);
    ShowHistory();
    viewer->setFocus();
    const QSize wanted(fontMetrics().averageCharWidth() * 110, fontMetrics().height() * 40);
    resize(wanted.boundedTo(screen()->availableSize()));
}

QHBoxLayout *HelpWindow::MakeBar()
{
    auto *bar = new QHBoxLayout;
    back = AddButton(*bar, "back", tr("&Back"));
    forward = AddButton(*bar, "forward", tr("&Forward"));
    connect(back, &QToolButton::clicked, viewer, &HelpViewer::GoBack);
    connect(forward, &QToolButton::clicked, viewer, &HelpViewer::GoForward);
    search = new QLineEdit(this);
    search->setClearButtonEnabled(true);
    outcome = new QLabel(this);
    outcome->setObjectName(u"outcome"_s);
    bar->addStretch();
    bar->addWidget(outcome);
    auto *label = new QLabel(tr("&Search:"), this);
    label->setBuddy(search);
    SetNames(*search, u"search"_s, PlainLabel(label->text()));
    bar->addWidget(label);
    bar->addWidget(search);
    connect(search, &QLineEdit::returnPressed, this, &HelpWindow::Search);
    connect(search, &QLineEdit::textEdited, outcome, &QLabel::clear);
    return bar;
}

QToolButton *HelpWindow::AddButton(QHBoxLayout &bar, const char *name, const QString &text)
{
    auto *button = new QToolButton(this);
    button->setText(text);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::StrongFocus);
    SetNames(*button, QString::fromLatin1(name), PlainLabel(text));
    bar.addWidget(button);
    return button;
}

QString HelpWindow::GuideFile()
{
    const QDir programs(QCoreApplication::applicationDirPath());
    for (const auto &place :
         {u"../share/doc/tollbrook-admin/user-guide.md"_s, u"../../../docs/user-guide.md"_s}) {
        if (QFileInfo::exists(programs.filePath(place))) {
            return QDir::cleanPath(programs.filePath(place));
        }
    }
    return {};
}

void HelpWindow::Search()
{
    outcome->setText(viewer->FindNext(search->text()) ? QString() : tr("Not found"));
}

void HelpWindow::ShowHistory()
{
    back->setEnabled(viewer->CanGoBack());
    forward->setEnabled(viewer->CanGoForward());
}

void OpenHelpTopics(Prompt &prompt, QWidget *parent)
{
    auto *window = parent->findChild<HelpWindow *>();
    if (window == nullptr) {
        const QString file = HelpWindow::GuideFile();
        if (file.isEmpty()) {
            prompt.Tell(HelpWindow::tr("The user guide is not installed"));
            return;
        }
        window = new HelpWindow(file, parent);
    }
    window->show();
    window->raise();
    window->activateWindow();
}
