#include "ui/reports/page_setup_dialog.h"

#include "ui/common/accessible.h"
#include "ui/common/controls.h"
#include "ui/common/text_field.h"

#include <QComboBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>

using namespace Qt::StringLiterals;

namespace {

constexpr int kPictureHeight = 60; // pixels

template <typename Field>
Field *Named(Field *field, const char *name)
{
    field->setObjectName(QLatin1StringView(name));
    return field;
}

} // namespace

PageSetupDialog::PageSetupDialog(const AppServices &appServices, QWidget *parent)
    : Dialog(parent)
    , services(appServices)
    , paper(Named(new QComboBox, "paper"))
    , turn(Named(new QComboBox, "turn"))
    , organisation(Named(new TextField(nullptr, kMostSetupBytes), "organisation"))
    , address(Named(new QPlainTextEdit, "address"))
    , logo(Named(new TextField(nullptr, kMostSetupBytes), "logo"))
    , picture(Named(new QLabel, "picture"))
{
    setWindowTitle(tr("Page setup of reports"));
    for (const QPageSize::PageSizeId offered : OfferedPapers()) {
        paper->addItem(QPageSize::name(offered), offered);
    }
    turn->addItems({tr("As each report needs it"), tr("Portrait"), tr("Landscape")});
    address->setTabChangesFocus(true);
    address->setFixedHeight(5 * fontMetrics().lineSpacing());
    picture->setFixedHeight(kPictureHeight);
    picture->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    auto *browse = MakeButton<QPushButton>(tr("Browse..."), "browse");
    browse->setAutoDefault(false);
    connect(browse, &QPushButton::clicked, this, &PageSetupDialog::Browse);
    connect(logo, &QLineEdit::textChanged, this, &PageSetupDialog::ShowLogo);
    auto *file = new QHBoxLayout;
    file->addWidget(logo, 1);
    file->addWidget(browse);
    auto *form = new QFormLayout(this);
    form->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    form->addRow(LabelFor(tr("Paper:"), *paper), paper);
    form->addRow(LabelFor(tr("Orientation:"), *turn), turn);
    form->addRow(LabelFor(tr("Organisation:"), *organisation), organisation);
    form->addRow(LabelFor(tr("Address:"), *address), address);
    form->addRow(LabelFor(tr("Logo (PNG, JPEG):"), *logo), file);
    form->addRow(QString(), picture);
    form->addRow(OkAndCancel(*this));
    Fill(ReadPageSetup(services.settings));
    resize(480, sizeHint().height());
}

void PageSetupDialog::Fill(const PageSetup &setup)
{
    paper->setCurrentIndex(paper->findData(setup.paper));
    turn->setCurrentIndex(static_cast<int>(setup.turn));
    organisation->setText(setup.organisation);
    address->setPlainText(setup.address);
    logo->setText(setup.logoFile);
}

void PageSetupDialog::Browse()
{
    const QString chosen = QFileDialog::getOpenFileName(
        this, tr("Logo"), QFileInfo(logo->text()).path(), tr("Pictures (*.png *.jpg *.jpeg)"));
    if (!chosen.isEmpty()) {
        logo->setText(chosen);
    }
}

void PageSetupDialog::ShowLogo()
{
    const QImage image = LogoIn(logo->text().trimmed());
    picture->setPixmap(QPixmap::fromImage(
        image.isNull() ? image : image.scaledToHeight(kPictureHeight, Qt::SmoothTransformation)));
    picture->setAccessibleName(image.isNull() ? tr("No logo") : tr("The logo"));
}

// Empty for none.
QString PageSetupDialog::LogoFault() const
{
    const QString file = logo->text().trimmed();
    if (file.isEmpty()) {
        return {};
    }
    if (!QFileInfo::exists(file)) {
        return tr("There is no such file.");
    }
    if (QFileInfo(file).isDir()) {
        return tr("This is a folder. Choose a PNG or JPEG file.");
    }
    return LogoIn(file).isNull()
        ? tr("This file holds no picture that can be read. Choose a PNG or JPEG file.")
        : QString();
}

bool PageSetupDialog::IsInOrder()
{
    if (const QString fault = LogoFault(); !fault.isEmpty()) {
        Refuse(services.prompt, *logo, fault);
        return false;
    }
    if (address->toPlainText().toUtf8().size() > kMostSetupBytes) {
        Complain(services.prompt, tr("The address is too long."));
        address->setFocus();
        return false;
    }
    return true;
}

void PageSetupDialog::accept()
{
    if (!IsInOrder()) {
        return;
    }
    PageSetup setup;
    setup.paper = paper->currentData().value<QPageSize::PageSizeId>();
    setup.turn = static_cast<PageSetup::Turn>(turn->currentIndex());
    setup.organisation = organisation->text().trimmed();
    setup.address = address->toPlainText().trimmed();
    setup.logoFile = logo->text().trimmed();
    if (const auto written = WritePageSetup(services.settings, setup); !written) {
        services.prompt.Tell(TextOf(written.error()), Prompt::Icon::Error);
        return;
    }
    Dialog::accept();
}
