// What pages and dialogs are put together from.
#pragma once

#include "base/prompt.h"

#include <QDialogButtonBox>
#include <QPushButton>

#include <functional>
#include <initializer_list>

class MomentField;
class NumberField;
class QDialog;
class QLabel;
class QLineEdit;
class QRadioButton;
class QWidget;

// A button with its text and its object name; the text is its accessible name too, unless `says` it
// better, as for one of several buttons "Change".
template <typename Button>
[[nodiscard]] Button *
MakeButton(const QString &text, const char *objectName, const QString &says = {})
{
    auto *button = new Button(text);
    button->setObjectName(QLatin1String(objectName));
    button->setAccessibleName(says);
    return button;
}

// A line that shows a value and lets it be copied.
[[nodiscard]] QLineEdit *ShownValue(const char *objectName);

// "OK" and "Cancel", connected to the dialog; OK is the default.
[[nodiscard]] QDialogButtonBox *OkAndCancel(QDialog &dialog);

// Has Return and Enter do this in the field alone: the dialog around it would press its default button.
void TakeReturn(QWidget &field, const std::function<void()> &act);

// Has Escape do this in the field alone: the dialog around it would close.
void TakeEscape(QWidget &field, const std::function<void()> &act);

// Checks one of the buttons that exclude each other, so that Tab goes to that one from the start.
void CheckOneOf(std::initializer_list<QRadioButton *> buttons, const QRadioButton *chosen);

// Says, below a list, that it could not be read; hidden until then.
[[nodiscard]] QLabel *UnreadNote();

// Tells what is wrong with an entry.
void Complain(Prompt &prompt, const QString &text);

// As above, with the focus on the field afterwards; what was typed stays, chosen to be typed over.
void Refuse(Prompt &prompt, QLineEdit &field, const QString &text);

// As Refuse; of a number that must only be written otherwise the field's own request tells more.
void RefuseNumber(Prompt &prompt, NumberField &field, const QString &text);

// Whether the field holds a number that it takes. Tells so when it does not: in the words of `missing`,
// or of the field's own request when there are none or what stands there is a number.
[[nodiscard]] bool HoldsNumber(Prompt &prompt, NumberField &field, const QString &missing = {});

// Whether the field holds a day or a time. Tells so, in the words of its request, when it does not.
[[nodiscard]] bool HoldsMoment(Prompt &prompt, MomentField &field);

// As HoldsNumber for a field that may stay blank, or that is disabled.
[[nodiscard]] bool HoldsNumberIfAny(Prompt &prompt, NumberField &field);
