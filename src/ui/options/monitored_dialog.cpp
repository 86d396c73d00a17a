#include "ui/options/monitored_dialog.h"

#include "ui/common/accessible.h"
#include "ui/common/controls.h"

#include <QListWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

MonitoredDialog::MonitoredDialog(Prompt &messages,
                                 ProtocolTable &edited,
                                 int monitorMode,
                                 QWidget *parent)
    : Dialog(parent)
    , prompt(messages)
    , table(edited)
    , mode(monitorMode)
    , list(new QListWidget)
{
    setWindowTitle(tr("Monitored protocols"));
    SetNames(*list, u"monitored"_s, tr("Monitored protocols"));
    for (const Protocol &protocol : table.Protocols()) {
        auto *item = new QListWidgetItem(protocol.name, list);
        item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
        item->setCheckState(protocol.monitored ? Qt::Checked : Qt::Unchecked);
    }
    list->setCurrentRow(0);
    auto *column = new QVBoxLayout(this);
    column->addWidget(list);
    column->addWidget(OkAndCancel(*this));
}

void MonitoredDialog::accept()
{
    const auto isChecked = [this](int row) { return list->item(row)->checkState() == Qt::Checked; };
    bool any = false;
    for (int row = 0; row < list->count(); ++row) {
        any = any || isChecked(row);
    }
    const auto question = QuestionOnMonitoring(any, mode);
    if (question && !prompt.Ask(*question)) {
        return;
    }
    for (int row = 0; row < list->count(); ++row) {
        table.SetMonitored(row, isChecked(row));
    }
    QDialog::accept();
}
