// What pages and dialogs are put together from.
#pragma once

#include "base/prompt.h"

#include <QDialogButtonBox>
#include <QPushButton>

#include <initializer_list>

class QDialog;
class QLabel;
class QLineEdit;
class QRadioButton;

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

// Checks one of the buttons that exclude each other, so that Tab goes to that one from the start.
void CheckOneOf(std::initializer_list<QRadioButton *> buttons, const QRadioButton *chosen);

// Says, below a list, that it could not be read; hidden until then.
[[nodiscard]] QLabel *UnreadNote();

// Tells what is wrong with an entry.
void Complain(Prompt &prompt, const QString &text);
