#include "ui/options/create_login_dialog.h"

#include "app/perform.h"
#include "app/waiting.h"
#include "ui/common/accessible.h"
#include "ui/common/controls.h"
#include "ui/common/ip_address_field.h"
#include "ui/common/text_field.h"
#include "ui/common/wrong_mark.h"
#include "ui/options/browse_user_dialog.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

// Marked while it is too long: nobody sees how long it is.
class PasswordField : public QLineEdit
{
protected:
    void paintEvent(QPaintEvent *event) override
    {
        QLineEdit::paintEvent(event);
        if (CheckPasswordLength(text())) {
            PaintWrongMark(*this);
        }
    }
};

QLineEdit *MakePasswordField(const char *objectName)
{
    auto *field = new PasswordField;
    field->setObjectName(QLatin1String(objectName));
    field->setEchoMode(QLineEdit::Password);
    return field;
}

} // namespace

CreateLoginDialog::CreateLoginDialog(const AppServices &appServices,
                                     LoginTable &logins,
                                     std::optional<size_t> place,
                                     QWidget *parent)
    : Dialog(parent)
    , services(appServices)
    , table(logins)
    , index(place)
{
    setWindowTitle(index ? tr("Login properties") : tr("Create login"));
    Build();
    Show(index ? table.Logins()[*index] : Login());
}

void CreateLoginDialog::Build()
{
    allowStats = MakeButton<QCheckBox>(tr("Allow access to personal statistics"), "allowStats");
    guest = MakeButton<QCheckBox>(tr("This is a guest user"), "guest");
    auto *column = new QVBoxLayout(this);
    column->addWidget(LoginBox());
    column->addWidget(UserBox());
    column->addWidget(LimitBox());
    column->addWidget(allowStats);
    column->addWidget(guest);
    column->addStretch();
    column->addWidget(OkAndCancel(*this));
}

QWidget *CreateLoginDialog::LoginBox()
{
    auto *box = new QGroupBox(tr("Login"));
    name = new TextField;
    name->setObjectName(u"name"_s);
    password = MakePasswordField("password");
    retyped = MakePasswordField("retyped");
    auto *form = new QFormLayout(box);
    form->addRow(LabelFor(tr("Login name:"), *name), name);
    form->addRow(LabelFor(tr("Password:"), *password), password);
    form->addRow(LabelFor(tr("Re-type password:"), *retyped), retyped);
    passwordNote = new QLabel;
    passwordNote->setObjectName(u"passwordNote"_s);
    passwordNote->setWordWrap(true);
    passwordNote->hide();
    form->addRow(passwordNote);
    for (const QLineEdit *field : {password, retyped}) {
        connect(field, &QLineEdit::textChanged, this, &CreateLoginDialog::MarkPassword);
    }
    return box;
}

// While it is typed.
void CreateLoginDialog::MarkPassword()
{
    const auto problem = CheckPasswordLength(password->text());
    const auto retypedProblem = CheckPasswordLength(retyped->text());
    passwordNote->setText(problem.value_or(retypedProblem.value_or(QString())));
    passwordNote->setVisible(!passwordNote->text().isEmpty());
}

QWidget *CreateLoginDialog::UserBox()
{
    auto *box = new QGroupBox(tr("User"));
    bindToUser = MakeButton<QCheckBox>(tr("Bind this login to existing user"), "bindToUser");
    user = new QLineEdit;
    SetNames(*user, u"user"_s, tr("Bound user"));
    user->setReadOnly(true);
    browse = MakeButton<QPushButton>(tr("Browse for user..."), "browse");
    auto *row = new QHBoxLayout;
    row->addWidget(user);
    row->addWidget(browse);
    auto *column = new QVBoxLayout(box);
    column->addWidget(bindToUser);
    column->addLayout(row);
    connect(bindToUser, &QCheckBox::toggled, this, &CreateLoginDialog::EnableControls);
    connect(browse, &QPushButton::clicked, this, &CreateLoginDialog::Browse);
    return box;
}

QWidget *CreateLoginDialog::LimitBox()
{
    auto *box = new QGroupBox(tr("Limit the workstation"));
    noLimit = MakeButton<QRadioButton>(tr("No limit"), "noLimit");
    byIp = MakeButton<QRadioButton>(tr("By IP address"), "byIp");
    byMac = MakeButton<QRadioButton>(tr("By MAC address"), "byMac");
    ip = new IpAddressField(tr("IP address"));
    ip->setObjectName(u"ip"_s);
    mac = new TextField;
    SetNames(*mac, u"mac"_s, tr("MAC address"));
    mac->setPlaceholderText(tr("12 characters"));
    auto *grid = new QGridLayout(box);
    grid->addWidget(noLimit, 0, 0);
    grid->addWidget(byIp, 1, 0);
    grid->addWidget(ip, 1, 1);
    grid->addWidget(byMac, 2, 0);
    grid->addWidget(mac, 2, 1);
    connect(byIp, &QRadioButton::toggled, this, &CreateLoginDialog::EnableControls);
    connect(byMac, &QRadioButton::toggled, this, &CreateLoginDialog::EnableControls);
    return box;
}

void CreateLoginDialog::Show(const Login &shown)
{
    login = shown;
    name->setText(login.name);
    // The row's key stays, and a stored login stays a guest's or not: no statement changes either.
    name->setReadOnly(index.has_value());
    guest->setEnabled(!index);
    (index ? password : name)->setFocus();
    if (index) {
        password->setPlaceholderText(tr("unchanged"));
        retyped->setPlaceholderText(tr("unchanged"));
    }
    bindToUser->setChecked(login.userId.IsSet());
    user->setText(login.userName);
    QRadioButton *const limits[] = {noLimit, byIp, byMac}; // as Login::Limit
    CheckOneOf({noLimit, byIp, byMac}, limits[static_cast<int>(login.limit)]);
    if (const auto address = Ipv4From(login.limitIp)) {
        ip->SetAddress(*address);
    }
    mac->setText(login.limitMac);
    allowStats->setChecked(login.allowStats);
    guest->setChecked(login.guest);
    EnableControls();
}

void CreateLoginDialog::EnableControls()
{
    user->setEnabled(bindToUser->isChecked());
    browse->setEnabled(bindToUser->isChecked());
    ip->setEnabled(byIp->isChecked());
    mac->setEnabled(byMac->isChecked());
}

void CreateLoginDialog::Browse()
{
    const auto groups = Await(services, this, tr("Reading the users..."), LoadLoginUsers);
    if (!groups) {
        TellUnread(services, tr("The users could not be read."), groups.error());
        return;
    }
    BrowseUserDialog dialog(
        services,
        *groups,
        [this](UserId userId, const QStringList &stored) {
            return table.HasLogin(userId, index, stored);
        },
        index ? UserHasLoginText() : tr("This user already has login. Please select another user"),
        this);
    if (dialog.exec() == Accepted) {
        login.userId = dialog.Chosen().userId;
        login.groupId = dialog.Chosen().groupId;
        login.userName = dialog.ChosenName();
        user->setText(login.userName);
    }
}

LoginEntry CreateLoginDialog::Entry() const
{
    LoginEntry entry;
    entry.login = login;
    entry.login.name = name->text();
    entry.login.allowStats = allowStats->isChecked();
    entry.login.guest = guest->isChecked();
    entry.bindToUser = bindToUser->isChecked();
    if (byIp->isChecked()) {
        const auto address = ip->Address();
        entry.login.limit = Login::Limit::IpAddress;
        entry.login.limitIp = address ? DottedText(*address) : QString();
    } else if (byMac->isChecked()) {
        entry.login.limit = Login::Limit::MacAddress;
        entry.login.limitMac = mac->text();
    } else {
        entry.login.limit = Login::Limit::None;
    }
    entry.password = password->text();
    entry.retyped = retyped->text();
    entry.passwordTouched = password->isModified() || retyped->isModified();
    return entry;
}

void CreateLoginDialog::accept()
{
    LoginEntry entry = Entry();
    if (const auto problem = table.Check(entry, index)) {
        Complain(services.prompt, *problem);
        if (byIp->isChecked() && !ip->IsComplete()) { // this is what is refused first
            ip->FocusWhatIsMissing();
        }
        return;
    }
    table.Put(entry, index);
    password->clear();
    retyped->clear();
    QDialog::accept();
}
