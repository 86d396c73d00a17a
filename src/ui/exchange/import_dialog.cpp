#include "ui/exchange/import_dialog.h"

#include "accounts/currency.h"
#include "app/perform.h"
#include "app/waiting.h"
#include "exchange/user_export.h"
#include "ui/common/accessible.h"
#include "ui/common/controls.h"
#include "ui/common/empty_note.h"
#include "ui/common/window_memory.h"
#include "ui/exchange/choose_table_file.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QTreeView>
#include <QVBoxLayout>

#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(ImportDialog)
};

// The states as they are listed to choose from, behind all rows.
constexpr std::array kStates {
    ImportState::New, ImportState::Changed, ImportState::Unchanged, ImportState::Refused};

// Null with a problem in words.
struct ReadJob
{
    std::shared_ptr<const ImportJob> job;
    QString problem;
};

Result<ReadJob> ReadJobOf(const QString &fileName, const ImportContext &context)
{
    auto table = ReadImportFile(fileName);
    if (!table) {
        return ReadJob {nullptr, table.error()};
    }
    return ReadStoredUsers().map([&](const StoredUsers &stored) {
        auto job = std::make_shared<ImportJob>();
        job->table = *std::move(table);
        job->context = context;
        job->plan = PlanImport(job->table, stored, context);
        return ReadJob {std::move(job), {}};
    });
}

// Null when it could not be read, which is told.
std::shared_ptr<const ImportJob>
AwaitJob(const AppServices &services, QWidget *parent, const QString &fileName)
{
    const QString notRead = Words::tr("The file was not imported.");
    const auto context = ReadImportContext(services.settings);
    if (!context) {
        services.prompt.Tell(notRead + u"\n\n" + context.error(), Prompt::Icon::Error);
        return nullptr;
    }
    const auto read = AwaitBeside(
        services, parent, Words::tr("Reading the file..."), [fileName, context = *context] {
            return ReadJobOf(fileName, context);
        });
    if (!read) {
        TellUnread(services, notRead, read.error());
    } else if (read->job == nullptr) {
        services.prompt.Tell(notRead + u"\n\n" + read->problem, Prompt::Icon::Warning);
    }
    return read ? read->job : nullptr;
}

QString Count(qsizetype count)
{
    return QLocale().toString(count);
}

// What is to be known of the file: what was made of its bytes, and what of it is left out.
QString AboutFile(const QString &fileName, const ImportTable &table)
{
    QStringList words {
        Words::tr("%1, read as %2.").arg(QFileInfo(fileName).fileName(), NameOf(table.encoding))};
    if (table.encoding == TextEncoding::Windows1252) {
        words << Words::tr("Please see whether letters with accents are right.");
    }
    if (!table.unknownHeadings.isEmpty()) {
        words << Words::tr("Columns that are not known and left out: %1.")
                     .arg(table.unknownHeadings.join(u", "_s));
    }
    return words.join(u' ');
}

QString Summary(const ImportPlan &plan)
{
    QStringList words;
    if (const auto refused = plan.Count(ImportState::Refused); refused > 0) {
        words << Words::tr("Refused rows are left out: %1.").arg(Count(refused));
    }
    if (!plan.newGroups.isEmpty()) {
        words << Words::tr("Groups that are made: %1.").arg(plan.newGroups.join(u", "_s));
    }
    if (!plan.ChangesAnything()) {
        words << Words::tr("There is nothing to import.");
    }
    return words.join(u' ');
}

} // namespace

ImportDialog::ImportDialog(const AppServices &appServices,
                           QString ofFile,
                           const std::shared_ptr<const ImportJob> &newJob,
                           QWidget *parent)
    : Dialog(parent)
    , services(appServices)
    , fileName(std::move(ofFile))
    , about(new QLabel)
    , filter(new QComboBox)
    , list(new QTreeView)
    , model(new ImportModel(this))
    , whole(new QLabel)
    , summary(new QLabel)
    , import(nullptr)
{
    setObjectName(u"importDialog"_s);
    setWindowTitle(tr("Import users"));
    Lay();
    Show(newJob);
    RememberSize(
        *this, u"import"_s, {fontMetrics().averageCharWidth() * 130, fontMetrics().height() * 28});
    connect(filter, &QComboBox::currentIndexChanged, this, &ImportDialog::ShowRows);
    connect(list->selectionModel(),
            &QItemSelectionModel::currentRowChanged,
            this,
            &ImportDialog::ShowWhole);
}

void ImportDialog::Lay()
{
    for (QLabel *text : {about, whole, summary}) {
        text->setTextFormat(Qt::PlainText);
        text->setWordWrap(true);
    }
    about->setObjectName(u"about"_s);
    whole->setObjectName(u"whole"_s);
    whole->setTextInteractionFlags(Qt::TextSelectableByMouse);
    summary->setObjectName(u"summary"_s);
    filter->setObjectName(u"filter"_s);
    filter->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    SetNames(*list, u"rows"_s, tr("Rows of the file"));
    model->Show(std::make_shared<ImportJob>(), {});
    list->setModel(model);
    list->setRootIsDecorated(false);
    list->setUniformRowHeights(true);
    list->setAllColumnsShowFocus(true);
    new EmptyNote(*list, tr("There are no such rows."));
    auto *buttons = OkAndCancel(*this);
    import = buttons->button(QDialogButtonBox::Ok);
    import->setText(tr("&Import"));
    auto *choice = new QHBoxLayout;
    choice->addWidget(LabelFor(tr("&Show:"), *filter));
    choice->addWidget(filter);
    choice->addStretch();
    auto *column = new QVBoxLayout(this);
    column->addWidget(about);
    column->addLayout(choice);
    column->addWidget(list, 1);
    column->addWidget(whole);
    column->addWidget(summary);
    column->addWidget(buttons);
}

void ImportDialog::Show(const std::shared_ptr<const ImportJob> &newJob)
{
    job = newJob;
    about->setText(AboutFile(fileName, job->table));
    summary->setText(Summary(job->plan));
    summary->setVisible(!summary->text().isEmpty());
    import->setEnabled(job->plan.ChangesAnything());
    const QSignalBlocker blocker(filter);
    const int chosen = std::max(filter->currentIndex(), 0);
    filter->clear();
    filter->addItem(tr("All rows (%1)").arg(Count(static_cast<qsizetype>(job->plan.rows.size()))));
    const std::array words {tr("Only new ones (%1)"),
                            tr("Only changed ones (%1)"),
                            tr("Only unchanged ones (%1)"),
                            tr("Only refused ones (%1)")};
    for (size_t place = 0; place < kStates.size(); ++place) {
        filter->addItem(words[place].arg(Count(job->plan.Count(kStates[place]))));
    }
    filter->setCurrentIndex(chosen);
    ShowRows();
    for (const int each : {ImportModel::Line, ImportModel::User, ImportModel::State}) {
        list->resizeColumnToContents(each);
    }
    const int widest = fontMetrics().averageCharWidth() * 30;
    list->setColumnWidth(ImportModel::User, std::min(list->columnWidth(ImportModel::User), widest));
}

void ImportDialog::ShowRows()
{
    const int chosen = filter->currentIndex();
    model->Show(
        job, chosen > 0 ? std::optional(kStates[static_cast<size_t>(chosen - 1)]) : std::nullopt);
    ShowWhole({});
}

void ImportDialog::ShowWhole(const QModelIndex &row)
{
    const QString words = row.siblingAtColumn(ImportModel::What).data().toString();
    whole->setText(words);
    whole->setVisible(!words.isEmpty());
}

void ImportDialog::accept()
{
    const Outcome outcome = PerformTelling(services,
                                           this,
                                           tr("Importing the users..."),
                                           ImportAction(job),
                                           SessionThread::Patience::Endless);
    if (outcome.IsDone()) {
        services.prompt.Tell(tr("Users added: %1. Users changed: %2.")
                                 .arg(Count(job->plan.Count(ImportState::New)),
                                      Count(job->plan.Count(ImportState::Changed))));
        Dialog::accept();
    } else if (outcome.state == Outcome::State::Refused) {
        ReadAgain();
    }
}

void ImportDialog::ReadAgain()
{
    if (const auto again = AwaitJob(services, this, fileName)) {
        Show(again);
    }
}

void OpenImport(const AppServices &services, QWidget *parent)
{
    QFileDialog chooser(parent, ImportDialog::tr("Import users"));
    chooser.setObjectName(u"importFile"_s);
    chooser.setFileMode(QFileDialog::ExistingFile);
    chooser.setNameFilters(
        {ImportDialog::tr("Tables (*.csv *.txt *.tsv)"), ImportDialog::tr("All files (*)")});
    if (chooser.exec() != QDialog::Accepted) {
        return;
    }
    OpenImportOf(services, chooser.selectedFiles().constFirst(), parent);
}

void OpenImportOf(const AppServices &services, const QString &fileName, QWidget *parent)
{
    if (const auto job = AwaitJob(services, parent, fileName)) {
        ImportDialog(services, fileName, job, parent).exec();
    }
}

void OpenUserExport(const AppServices &services, QWidget *parent)
{
    const QString fileName = ChooseTableFile(parent,
                                             {.name = u"exportUsers"_s,
                                              .caption = ImportDialog::tr("Export users"),
                                              .proposed = ImportDialog::tr("Users"),
                                              .csvFirst = true});
    if (fileName.isEmpty()) {
        return;
    }
    const double rate = CurrentRate(services.settings);
    const auto written =
        AwaitBeside(services, parent, ImportDialog::tr("Exporting the users..."), [fileName, rate] {
            return ExportUsers(fileName, rate);
        });
    if (written) {
        services.prompt.Tell(
            ImportDialog::tr("%1 users were saved as %2.").arg(Count(*written), fileName));
    } else {
        TellUnread(services, ImportDialog::tr("The users were not exported."), written.error());
    }
}
