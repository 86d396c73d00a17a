#include "ui/main/upgrade_dialog.h"

#include "base/day.h"
#include "db/schema_scripts.h"
#include "ui/common/accessible.h"
#include "ui/common/controls.h"
#include "upkeep/guided_upgrade.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int kLogLines = 8;
constexpr int kWidthLetters = 70; // at least

QString ProposedFile(const QString &dsn, int version)
{
    const QString name = QString(dsn).replace(u'/', u'_');
    return QDir::home().filePath(u"tollbrook-%1-version-%2-%3.backup"_s.arg(
        name, QString::number(version), Today().toString(Qt::ISODate)));
}

QLabel *Paragraph(const QString &text, const char *name)
{
    auto *label = new QLabel(text);
    label->setObjectName(QLatin1StringView(name));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

} // namespace

UpgradeDialog::UpgradeDialog(const AppServices &appServices, int version, QWidget *parent)
    : Dialog(parent)
    , services(appServices)
    , dsn(appServices.database.DataSource())
{
    setObjectName(u"upgradeDialog"_s);
    setWindowTitle(tr("Upgrade of the database"));
    Build(version);
    Look();
}

UpgradeDialog::~UpgradeDialog() = default;

void UpgradeDialog::Build(int version)
{
    auto *intro = Paragraph(
        tr("The tables of the database \"%1\" have version %2, and this program is made for version "
           "%3. The upgrade keeps what they hold.")
            .arg(dsn, QString::number(version), QString::number(NewestSchema())),
        "intro");
    log = new QPlainTextEdit;
    log->setReadOnly(true);
    log->setTabChangesFocus(true);
    log->setMinimumHeight(fontMetrics().lineSpacing() * kLogLines);
    SetNames(*log, u"log"_s, tr("What the upgrade does"));
    auto *alone = Paragraph(
        tr("Nobody else may be connected meanwhile: stop the accounting service, and close other "
           "consoles and reports."),
        "alone");
    backsUp = MakeButton<QCheckBox>(tr("&Make a backup before, in this file:"), "backsUp");
    backsUp->setChecked(true);
    file = new QLineEdit(ProposedFile(dsn, version));
    SetNames(*file, u"file"_s, tr("File of the backup"));
    browse = MakeButton<QPushButton>(tr("&Browse..."), "browse");
    progress = new QProgressBar;
    SetNames(*progress, u"progress"_s, tr("The upgrade is at work"));
    progress->setRange(0, 0); // nobody knows how long
    progress->setTextVisible(false);
    outcome = Paragraph({}, "outcome");
    upgrade = MakeButton<QPushButton>(tr("&Upgrade"), "upgrade");
    close = MakeButton<QPushButton>(tr("&Not now"), "close");
    auto *buttons = new QDialogButtonBox;
    buttons->addButton(upgrade, QDialogButtonBox::ActionRole);
    buttons->addButton(close, QDialogButtonBox::RejectRole);
    upgrade->setDefault(true);
    auto *place = new QHBoxLayout;
    place->addWidget(file, 1);
    place->addWidget(browse);
    auto *column = new QVBoxLayout(this);
    for (QWidget *widget : std::initializer_list<QWidget *> {intro, log, alone, backsUp}) {
        column->addWidget(widget);
    }
    column->addLayout(place);
    for (QWidget *widget : std::initializer_list<QWidget *> {progress, outcome, buttons}) {
        column->addWidget(widget);
    }
    setMinimumWidth(fontMetrics().averageCharWidth() * kWidthLetters);
    // A layout takes a wrapped text for as low as it may ever be, and would put the list over it.
    const QMargins margins = column->contentsMargins();
    for (QLabel *label : {intro, alone}) {
        label->setMinimumHeight(
            label->heightForWidth(minimumWidth() - margins.left() - margins.right()));
    }
    connect(backsUp, &QCheckBox::toggled, this, [this] { SetRunning(isRunning); });
    connect(browse, &QPushButton::clicked, this, &UpgradeDialog::Browse);
    connect(upgrade, &QPushButton::clicked, this, &UpgradeDialog::Upgrade);
    connect(close, &QPushButton::clicked, this, &UpgradeDialog::reject);
}

void UpgradeDialog::Look()
{
    SetRunning(true);
    worker = std::jthread([this, source = dsn] {
        const auto lines = LookAtUpgrade(source);
        QMetaObject::invokeMethod(
            this, [this, lines] { ShowSteps(lines); }, Qt::QueuedConnection);
    });
}

void UpgradeDialog::ShowSteps(const Told<QStringList> &lines)
{
    SetRunning(false);
    if (lines) {
        log->setPlainText(lines->join(u'\n'));
    } else {
        log->setPlainText(lines.error());
        outcome->setText(tr("What the upgrade would do cannot be told."));
        upgrade->setEnabled(false);
    }
}

void UpgradeDialog::Browse()
{
    const QString chosen =
        QFileDialog::getSaveFileName(this, tr("File of the backup"), file->text());
    if (!chosen.isEmpty()) {
        file->setText(chosen);
    }
}

bool UpgradeDialog::HasBackupFile()
{
    if (backsUp->isChecked() && file->text().trimmed().isEmpty()) {
        Refuse(services.prompt, *file, tr("Please enter the file of the backup"));
        return false;
    }
    return true;
}

// What the session is at comes to its end before: another window may wait for it.
void UpgradeDialog::Upgrade()
{
    if (!HasBackupFile()) {
        return;
    }
    log->clear();
    outcome->clear();
    SetRunning(true);
    if (services.database.IsBusy()) {
        connect(&services.database,
                &SessionThread::BecameIdle,
                this,
                &UpgradeDialog::Begin,
                Qt::SingleShotConnection);
    } else {
        Begin();
    }
}

// The session of the console would be one that is connected, too.
void UpgradeDialog::Begin()
{
    UpgradeWish wish {dsn};
    if (backsUp->isChecked()) {
        wish.backup = BackupWish {dsn, file->text().trimmed(), services.settings.Folder()};
    }
    services.database.Close();
    worker = std::jthread([this, wish = std::move(wish)] {
        const auto tell = [this](const QString &line) {
            QMetaObject::invokeMethod(
                this, [this, line] { log->appendPlainText(line); }, Qt::QueuedConnection);
        };
        const auto done = UpgradeAlone(wish, tell);
        QMetaObject::invokeMethod(
            this, [this, done] { Finish(done); }, Qt::QueuedConnection);
    });
}

void UpgradeDialog::Finish(const Told<void> &done)
{
    services.database.Open(dsn);
    SetRunning(false);
    isUpgraded = done.has_value();
    if (isUpgraded) {
        outcome->setText(tr("The tables are up to date."));
        upgrade->setEnabled(false);
        backsUp->setEnabled(false);
        close->setText(tr("&Close"));
        close->setDefault(true);
    } else {
        log->appendPlainText(done.error());
        outcome->setText(
            tr("The upgrade was not made, and nothing is lost. Somebody who may alter the tables can "
               "make it with: tollbrook-db upgrade --dsn %1")
                .arg(dsn));
    }
    (isUpgraded ? close : upgrade)->setFocus();
}

void UpgradeDialog::SetRunning(bool runs)
{
    isRunning = runs;
    progress->setVisible(runs);
    for (QWidget *widget : std::initializer_list<QWidget *> {upgrade, close, backsUp}) {
        widget->setEnabled(!runs);
    }
    for (QWidget *widget : std::initializer_list<QWidget *> {file, browse}) {
        widget->setEnabled(!runs && backsUp->isChecked());
    }
}

void UpgradeDialog::reject()
{
    if (!isRunning) {
        Dialog::reject();
    }
}

bool OfferUpgrade(const AppServices &services, int version, QWidget *parent)
{
    UpgradeDialog dialog(services, version, parent);
    dialog.exec();
    return dialog.IsUpgraded();
}
