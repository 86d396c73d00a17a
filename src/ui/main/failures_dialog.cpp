#include "ui/main/failures_dialog.h"

#include "db/failure_log.h"
#include "ui/common/accessible.h"
#include "ui/common/window_memory.h"

#include <QApplication>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

QStringList Cells(const StatementFailure &failure)
{
    return {failure.time.toString(u"yyyy-MM-dd HH:mm:ss"_s),
            failure.statement.isEmpty() ? u"(connecting)"_s : failure.statement,
            failure.sqlState,
            failure.text};
}

} // namespace

FailuresDialog::FailuresDialog(QWidget *parent)
    : Dialog(parent)
    , summary(new QLabel(this))
    , list(new QTreeWidget(this))
{
    setWindowTitle(tr("Failed statements"));
    StaysUnlocked();
    setObjectName(u"failuresDialog"_s);
    SetNames(*list, u"failures"_s, tr("Failed statements, newest first"));
    list->setHeaderLabels({tr("Time"), tr("Statement"), tr("SQLSTATE"), tr("Text")});
    list->setRootIsDecorated(false);
    list->setUniformRowHeights(true);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    buttons->button(QDialogButtonBox::Close)->setObjectName(u"close"_s);
    buttons->button(QDialogButtonBox::Close)->setDefault(true);
    auto *copy = buttons->addButton(tr("&Copy all"), QDialogButtonBox::ActionRole);
    copy->setObjectName(u"copy"_s);
    connect(copy, &QPushButton::clicked, this, &FailuresDialog::CopyAll);
    connect(buttons, &QDialogButtonBox::rejected, this, &FailuresDialog::reject);
    connect(&FailureLog::Instance(), &FailureLog::Changed, this, &FailuresDialog::Fill);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(summary);
    layout->addWidget(list);
    layout->addWidget(buttons);
    Fill();
    for (const int column : {0, 2}) {
        list->resizeColumnToContents(column);
    }
    list->header()->resizeSection(1, fontMetrics().averageCharWidth() * 50);
    RememberSize(*this,
                 u"failures"_s,
                 {fontMetrics().averageCharWidth() * 130, fontMetrics().height() * 22});
}

void FailuresDialog::Fill()
{
    const FailureLog &log = FailureLog::Instance();
    const QList<StatementFailure> recent = log.Recent();
    summary->setText(tr("Failed since the program started: %1. Listed, newest first: %2.")
                         .arg(log.Count())
                         .arg(recent.size()));
    list->clear();
    for (auto failure = recent.crbegin(); failure != recent.crend(); ++failure) {
        auto *item = new QTreeWidgetItem(list, Cells(*failure));
        for (int column = 0; column < item->columnCount(); ++column) {
            item->setToolTip(column, item->text(column));
        }
    }
}

void FailuresDialog::CopyAll()
{
    QString text;
    for (const StatementFailure &failure : FailureLog::Instance().Recent()) {
        text += Cells(failure).join(u'\t') + u'\n';
    }
    QApplication::clipboard()->setText(text);
}
