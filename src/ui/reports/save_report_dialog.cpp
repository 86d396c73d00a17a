#include "ui/reports/save_report_dialog.h"

#include "reports/catalogue.h"
#include "reports/output_format.h"
#include "reports/wording.h"
#include "ui/common/accessible.h"
#include "ui/common/controls.h"
#include "ui/common/text_field.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kMostBytes = 1023; // of a path
constexpr int kWidth = 560; // pixels
constexpr int kTextWidth = 400; // of a text beside its label

const QString kFolder =
    u"/var/lib/tollbrook-report/"_s; // where the account of the timers may write

template <typename Field>
Field *WithName(Field *field, const char *name)
{
    field->setObjectName(QLatin1StringView(name));
    return field;
}

QLabel *Said(const QString &text, const char *name)
{
    auto *label = WithName(new QLabel(text), name);
    label->setWordWrap(true);
    label->setTextFormat(Qt::PlainText);
    label->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    label->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    label->setMinimumHeight(std::max(0, label->heightForWidth(kTextWidth)));
    return label;
}

} // namespace

SaveReportDialog::SaveReportDialog(const AppServices &appServices,
                                   const SavedReport &shown,
                                   const QString &filterInWords,
                                   const QString &shownName,
                                   QWidget *parent)
    : Dialog(parent)
    , services(appServices)
    , report(shown)
    , formerName(shownName)
    , name(WithName(new TextField, "name"))
    , period(WithName(new QComboBox, "period"))
    , output(WithName(new TextField(nullptr, kMostBytes), "output"))
    , split(MakeButton<QCheckBox>(tr("A file for each &user"), "split"))
    , failIfEmpty(MakeButton<QCheckBox>(
          tr("Leave the &former file when there is nothing to report"), "failIfEmpty"))
    , mail(WithName(new TextField, "mail"))
{
    setWindowTitle(tr("Save report"));
    FillPeriods();
    auto *browse = MakeButton<QPushButton>(tr("Browse..."), "browse");
    browse->setAutoDefault(false);
    connect(browse, &QPushButton::clicked, this, &SaveReportDialog::Browse);
    auto *file = new QHBoxLayout;
    file->addWidget(output, 1);
    file->addWidget(browse);
    auto *form = new QFormLayout(this);
    form->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    form->addRow(tr("Report:"), Said(TitleOf(EntryOf(report.row)).trimmed(), "report"));
    form->addRow(
        tr("On:"),
        Said(filterInWords.isEmpty() ? tr("all users and groups") : filterInWords, "filter"));
    form->addRow(LabelFor(tr("&Name:"), *name), name);
    form->addRow(LabelFor(tr("&Period:"), *period), period);
    form->addRow(LabelFor(tr("&File:"), *output), file);
    form->addRow(QString(), split);
    form->addRow(QString(), failIfEmpty);
    form->addRow(LabelFor(tr("Send to (&mail):"), *mail), mail);
    form->addRow(QString(),
                 Said(tr("Without an address the file is not sent. Reports that are made at their "
                         "times are written by the account tollbrook-report, whose folder is %1.")
                          .arg(kFolder),
                      "note"));
    form->addRow(OkAndCancel(*this));
    name->setText(shownName);
    output->setText(report.output.isEmpty() ? kFolder + ShortNameOf(report.row) + u".pdf"
                                            : report.output);
    split->setChecked(report.split);
    split->setEnabled(report.row == kStatementRow);
    failIfEmpty->setChecked(report.failIfEmpty);
    mail->setText(report.mail);
    resize(kWidth, sizeHint().height());
}

// The rules; and the days that were chosen, when they are none.
void SaveReportDialog::FillPeriods()
{
    QStringList rules = PeriodWords();
    if (!rules.contains(report.period)) {
        rules += report.period;
    }
    for (const QString &rule : rules) {
        period->addItem(PeriodRuleInWords(rule), rule);
    }
    period->setCurrentIndex(period->findData(report.period));
}

void SaveReportDialog::Browse()
{
    QStringList kinds;
    for (const FormatEntry &entry : OutputFormats()) {
        kinds += KindOf(entry.format);
    }
    const QString chosen = QFileDialog::getSaveFileName(this,
                                                        tr("File of the report"),
                                                        output->text(),
                                                        kinds.join(u";;"_s),
                                                        nullptr,
                                                        QFileDialog::DontConfirmOverwrite);
    if (!chosen.isEmpty()) {
        output->setText(chosen);
    }
}

QString SaveReportDialog::Name() const
{
    return name->text().trimmed();
}

SavedReport SaveReportDialog::Entered() const
{
    SavedReport entered = report;
    entered.period = period->currentData().toString();
    entered.output = output->text().trimmed();
    entered.split = split->isChecked();
    entered.failIfEmpty = failIfEmpty->isChecked();
    entered.mail = mail->text().trimmed();
    return entered;
}

bool SaveReportDialog::IsInOrder(const SavedReport &entered)
{
    if (const QString problem = NameProblem(Name()); !problem.isEmpty()) {
        Refuse(services.prompt, *name, problem);
        return false;
    }
    if (const QString problem = ProblemOf(entered); !problem.isEmpty()) {
        Complain(services.prompt, problem);
        return false;
    }
    return true;
}

// The schedule is the name's and is not this window's to change: what stands there now stays. Others may have changed
// the report, or deleted it, since this window was opened.
bool SaveReportDialog::MayReplace(SavedReport &entered)
{
    const SavedReports saved(services.settings);
    const bool isThere = saved.Has(Name());
    const auto present = isThere ? saved.Read(Name()) : SavedReport();
    if (!present) {
        services.prompt.Tell(TextOf(present.error()), Prompt::Icon::Error);
        return false;
    }
    entered.schedule = present->schedule;
    SavedReport former = report;
    former.schedule = present->schedule;
    if (Name() != formerName) {
        return !isThere
            || services.prompt.Ask(
                tr("A report is saved as \"%1\" already.\nDo you want to replace it?").arg(Name()));
    }
    if (!isThere) {
        return services.prompt.Ask(
            tr("The report \"%1\" was deleted meanwhile.\nDo you want to save it again?")
                .arg(Name()));
    }
    return *present == former
        || services.prompt.Ask(
            tr("The report \"%1\" was changed meanwhile.\nDo you want to replace it?").arg(Name()));
}

void SaveReportDialog::accept()
{
    SavedReport entered = Entered();
    if (!IsInOrder(entered) || !MayReplace(entered)) {
        return;
    }
    if (const auto written = SavedReports(services.settings).Write(Name(), entered); !written) {
        services.prompt.Tell(TextOf(written.error()), Prompt::Icon::Error);
        return;
    }
    Dialog::accept();
}
