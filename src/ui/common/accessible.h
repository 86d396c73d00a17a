// Names that tests, the keyboard and assistive technology go by.
#pragma once

#include <QString>

class QLabel;
class QWidget;

// What a person reads of a label or a menu text: without the mnemonic mark "&", a final colon, comma
// or "...", and without blanks around it. Some languages end it with " …".
[[nodiscard]] QString PlainLabel(const QString &label);

// Object name and accessible name in one go.
void SetNames(QWidget &widget, const QString &objectName, const QString &accessibleName);

// A label whose buddy is `field`; the field takes the label as its accessible name unless it has one.
[[nodiscard]] QLabel *LabelFor(const QString &text, QWidget &field);
