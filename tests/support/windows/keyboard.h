// Working a window with the keyboard alone.
#pragma once

#include <QString>
#include <Qt>

class QWidget;

// Presses Tab until the control called `name`, or a part of it, has the focus; fails when the focus
// comes round without it.
void TabTo(QWidget &window, const char *name);

// Presses a key where the focus is.
void Press(Qt::Key key, Qt::KeyboardModifiers held = Qt::NoModifier);

// Tab to the button, then Space.
void PressButton(QWidget &window, const char *name);

// Tab to the field and type over what stands in it.
void TypeInto(QWidget &window, const char *name, const QString &text);

// Goes round the window by Tab and fails for each control of `part` that a person could use and that
// Tab does not reach (of radio buttons in one place it reaches one), or that has no name.
void ExpectKeyboardReachesAll(const QWidget &part);

// What every window promises to the keyboard: something has the focus; Tab meets each control that can be
// used, the pages' list or the tabs first, then from the top, OK, Cancel and Help last; Shift+Tab goes
// back the same way; of the buttons one at most is the default, OK where there is one; each label that
// stands for a field and each button but OK, Cancel and Close has a mnemonic that no other shown one has.
void ExpectWorksByKeyboard(const QWidget &window);
