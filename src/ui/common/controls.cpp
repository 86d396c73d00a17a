#include "ui/common/controls.h"

#include "ui/common/moment_field.h"
#include "ui/common/number_field.h"

#include <QAction>
#include <QCoreApplication>
#include <QDialog>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(Controls)
};

void TakeKeys(QWidget &field, const QList<QKeySequence> &keys, const std::function<void()> &act)
{
    auto *action = new QAction(&field);
    action->setShortcuts(keys);
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    QObject::connect(action, &QAction::triggered, &field, act);
    field.addAction(action);
}

} // namespace

QLineEdit *ShownValue(const char *objectName)
{
    auto *field = new QLineEdit;
    field->setObjectName(QLatin1String(objectName));
    field->setReadOnly(true);
    // Of a long value the beginning is seen.
    QObject::connect(
        field, &QLineEdit::textChanged, field, [field] { field->setCursorPosition(0); });
    // On the window's own ground, so that it does not look like a field to be filled in.
    QPalette palette = field->palette();
    palette.setColor(QPalette::Base, palette.color(QPalette::Window));
    field->setPalette(palette);
    return field;
}

QDialogButtonBox *OkAndCancel(QDialog &dialog)
{
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttons->button(QDialogButtonBox::Ok)->setObjectName(u"ok"_s);
    buttons->button(QDialogButtonBox::Ok)->setDefault(true);
    buttons->button(QDialogButtonBox::Cancel)->setObjectName(u"cancel"_s);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    return buttons;
}

void TakeReturn(QWidget &field, const std::function<void()> &act)
{
    TakeKeys(field, {QKeySequence(Qt::Key_Return), QKeySequence(Qt::Key_Enter)}, act);
}

void TakeEscape(QWidget &field, const std::function<void()> &act)
{
    TakeKeys(field, {QKeySequence(Qt::Key_Escape)}, act);
}

void CheckOneOf(std::initializer_list<QRadioButton *> buttons, const QRadioButton *chosen)
{
    for (QRadioButton *button : buttons) {
        button->setChecked(button == chosen);
        button->setFocusPolicy(button == chosen ? Qt::StrongFocus : Qt::ClickFocus);
    }
}

QLabel *UnreadNote()
{
    auto *note = new QLabel(
        Words::tr("This could not be read. What is shown may be incomplete or out of date."));
    note->setObjectName(u"unread"_s);
    note->setWordWrap(true);
    note->hide();
    return note;
}

void Complain(Prompt &prompt, const QString &text)
{
    prompt.Tell(text, Prompt::Icon::Warning);
}

void Refuse(Prompt &prompt, QLineEdit &field, const QString &text)
{
    Complain(prompt, text);
    field.setFocus();
    field.selectAll();
}

void RefuseNumber(Prompt &prompt, NumberField &field, const QString &text)
{
    Refuse(prompt, field, field.IsUnclear() ? field.Request() : text);
}

bool HoldsNumber(Prompt &prompt, NumberField &field, const QString &missing)
{
    const auto entered = field.Entered();
    if (!entered) {
        const bool isOutside = entered.error() == NumberFault::OutOfRange;
        RefuseNumber(prompt, field, isOutside || missing.isEmpty() ? field.Request() : missing);
    }
    return entered.has_value();
}

bool HoldsMoment(Prompt &prompt, MomentField &field)
{
    if (!field.IsReadable()) {
        Refuse(prompt, field, field.Request());
        return false;
    }
    return true;
}

bool HoldsNumberIfAny(Prompt &prompt, NumberField &field)
{
    return !field.isEnabled() || field.IsBlank() || HoldsNumber(prompt, field);
}
