#include "ui/options/bind_page.h"

#include "admin/options.h"
#include "ui/common/controls.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QRadioButton>
#include <QStyle>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

// A line below a radio button, in line with its text.
QLabel *LineBelow(const QRadioButton &button, const QString &text)
{
    auto *line = new QLabel(text);
    line->setObjectName(button.objectName() + u"Needs"_s);
    line->setWordWrap(true);
    const QStyle &style = *button.style();
    line->setIndent(style.pixelMetric(QStyle::PM_ExclusiveIndicatorWidth)
                    + style.pixelMetric(QStyle::PM_RadioButtonLabelSpacing));
    return line;
}

} // namespace

IdentModeBox::IdentModeBox(qint32 &mode, const QString &userName, QWidget *parent)
    : QWidget(parent)
    , buttons(new QButtonGroup(this))
{
    struct Choice
    {
        int mode;
        QString text;
        const char *name;
        QString needs;
    };
    const Choice choices[] = {
        {ident_mode::kIpAddress,
         tr("IP-address"),
         "byIpAddress",
         tr("Each workstation needs an address that stays the same.")},
        {ident_mode::kMacAddress,
         tr("MAC-address"),
         "byMacAddress",
         tr("The workstations must not be behind a further router.")},
        {ident_mode::kUserName,
         userName,
         "byUserName",
         tr("Each user needs a login, and each workstation the agent.")},
    };
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    for (const Choice &choice : choices) {
        auto *button = MakeButton<QRadioButton>(choice.text, choice.name);
        button->setChecked(choice.mode == mode);
        buttons->addButton(button, choice.mode);
        button->setAccessibleDescription(choice.needs);
        column->addWidget(button);
        column->addWidget(LineBelow(*button, choice.needs));
    }
    connect(buttons, &QButtonGroup::idToggled, this, [&mode](int chosen, bool checked) {
        if (checked) {
            mode = chosen;
        }
    });
}

BindPage::BindPage(qint32 &identMode, bool &edited, const QString &controlText)
    : controlMac(edited)
    , control(MakeButton<QCheckBox>(controlText, "controlMac"))
{
    auto *box = new QGroupBox(tr("Identify users with:"));
    auto *inBox = new QVBoxLayout(box);
    inBox->addWidget(
        new IdentModeBox(identMode, tr("Windows username (requires Username Agent installed)")));
    auto *column = new QVBoxLayout(this);
    column->addWidget(box);
    column->addWidget(control);
    column->addStretch();
}

QString BindPage::Title() const
{
    return tr("Bind");
}

void BindPage::Load()
{
    control->setChecked(controlMac);
}

void BindPage::Collect()
{
    controlMac = control->isChecked();
}
