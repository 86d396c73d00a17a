#include "ui/options/monitor_mode_box.h"

#include "admin/protocol_table.h"
#include "ui/common/controls.h"

#include <QButtonGroup>
#include <QRadioButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

MonitorModeBox::MonitorModeBox(qint32 &edited, QWidget *parent)
    : QWidget(parent)
    , mode(edited)
    , buttons(new QButtonGroup(this))
{
    struct Choice
    {
        int mode;
        QString text;
        const char *name;
    };
    const Choice choices[] = {
        {monitor_mode::kAll, tr("Monitor all protocols"), "monitorAll"},
        {monitor_mode::kBasic, tr("Monitor basic Internet protocols"), "monitorBasic"},
        {monitor_mode::kSpecifiedOnly, tr("Monitor specified protocols only"), "monitorSpecified"},
        {monitor_mode::kAllButSpecified,
         tr("Monitor all protocols but specified"),
         "monitorAllBut"},
    };
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    for (const Choice &choice : choices) {
        auto *button = MakeButton<QRadioButton>(choice.text, choice.name);
        buttons->addButton(button, choice.mode);
        column->addWidget(button);
    }
    Show();
    connect(buttons, &QButtonGroup::idToggled, this, [this](int chosen, bool checked) {
        if (checked) {
            mode = chosen;
            emit Changed();
        }
    });
}

void MonitorModeBox::Show()
{
    if (QAbstractButton *button = buttons->button(mode)) {
        const QSignalBlocker quiet(buttons);
        button->setChecked(true);
    }
}
