#include "ui/common/sheet.h"

#include "ui/common/look_lock.h"

#include <QDialogButtonBox>
#include <QPushButton>
#include <QShortcut>
#include <QSignalBlocker>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>

#include <utility>

using namespace Qt::StringLiterals;

Sheet::Sheet(const QString &caption, QWidget *parent)
    : Dialog(parent)
    , tabs(new QTabWidget(this))
    , buttons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this))
{
    setWindowTitle(caption);
    setModal(true);
    tabs->setObjectName(u"pages"_s);
    tabs->tabBar()->setAccessibleName(caption);
    // Its tabs take the focus themselves. Handed on by the widget around them, it would come to them a second
    // time on its way round, or stay where it is when they are hidden.
    tabs->setFocusProxy(nullptr);
    tabs->setFocusPolicy(Qt::NoFocus);
    buttons->button(QDialogButtonBox::Ok)->setObjectName(u"ok"_s);
    buttons->button(QDialogButtonBox::Ok)->setDefault(true);
    buttons->button(QDialogButtonBox::Cancel)->setObjectName(u"cancel"_s);
    connect(buttons, &QDialogButtonBox::accepted, this, &Sheet::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &Sheet::reject);
    connect(tabs, &QTabWidget::currentChanged, this, &Sheet::TabChosen);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(tabs);
    layout->addWidget(buttons);
    AddKeys();
}

// Shortcuts rather than the tab widget's own keys: no control of a page can swallow them.
void Sheet::AddKeys()
{
    const std::pair<QKeySequence, int> keys[] = {
        {Qt::CTRL | Qt::Key_Tab, 1},
        {Qt::CTRL | Qt::Key_PageDown, 1},
        {Qt::CTRL | Qt::SHIFT | Qt::Key_Tab, -1},
        {Qt::CTRL | Qt::SHIFT | Qt::Key_Backtab, -1},
        {Qt::CTRL | Qt::Key_PageUp, -1},
    };
    for (const auto &[key, step] : keys) {
        auto *shortcut = new QShortcut(key, this);
        connect(shortcut, &QShortcut::activated, this, [this, step = step] { Turn(step); });
    }
    // Of the tabs only, since fields need these keys themselves.
    const auto addTabKey = [this](Qt::Key key, const auto &page) {
        auto *shortcut = new QShortcut(key, tabs->tabBar());
        shortcut->setContext(Qt::WidgetShortcut);
        connect(shortcut, &QShortcut::activated, this, [this, page] { TurnTo(page()); });
    };
    addTabKey(Qt::Key_Home, [] { return 0; });
    addTabKey(Qt::Key_End, [this] { return tabs->count() - 1; });
}

void Sheet::Add(Page *page)
{
    const QSignalBlocker blocked(tabs);
    tabs->addTab(page, page->Title());
    pages.push_back(page);
}

void Sheet::SetApply(std::function<bool()> newApply)
{
    apply = std::move(newApply);
}

void Sheet::Start(int page)
{
    for (Page *each : pages) {
        each->Load();
    }
    Show(page >= 0 && page < static_cast<int>(pages.size()) ? page : 0);
}

bool Sheet::Run(int page)
{
    Start(page);
    return exec() == Accepted;
}

void Sheet::ReplaceTabs(QWidget *navigator)
{
    tabs->tabBar()->hide();
    tabs->setDocumentMode(true);
    auto *row = new QHBoxLayout;
    row->addWidget(navigator);
    row->addWidget(tabs, 1);
    static_cast<QBoxLayout *>(layout())->insertLayout(0, row);
}

void Sheet::TurnTo(int page)
{
    tabs->setCurrentIndex(page);
}

void Sheet::Turn(int step)
{
    const int count = tabs->count();
    if (count > 1) {
        tabs->setCurrentIndex((active + step + count) % count);
    }
}

void Sheet::TabChosen(int page)
{
    if (active < 0) {
        return;
    }
    {
        // The old page stays in sight while it decides.
        const QSignalBlocker blocked(tabs);
        tabs->setCurrentIndex(active);
    }
    // Whoever cannot change what a page refuses is not kept there by it.
    if (OnlyLooks(*this) || pages[active]->Leave()) {
        Show(page);
    } else {
        emit Turned(active);
    }
}

void Sheet::Show(int page)
{
    const QSignalBlocker blocked(tabs);
    active = page;
    tabs->setCurrentIndex(page);
    pages[page]->Activate();
    emit Turned(page);
}

void Sheet::accept()
{
    for (int page = 0; page < static_cast<int>(pages.size()); ++page) {
        if (!pages[page]->Leave()) {
            if (page != active) {
                Show(page);
            }
            return;
        }
    }
    for (Page *page : pages) {
        page->Collect();
    }
    if (!apply || apply()) {
        QDialog::accept();
    }
}
