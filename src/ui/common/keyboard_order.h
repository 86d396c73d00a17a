// A window's keyboard, made from how its controls are laid out: the order of Tab, and a letter with Alt
// for each label and button.
#pragma once

#include <QSet>
#include <QWidget>

#include <vector>

// A control or label, as a person reads the window.
struct ReadWidget
{
    QWidget *widget;
    int page; // from 1 on a page behind tabs, which is never seen together with another; 0 elsewhere
};

// Every control and label of the window in reading order, by its layouts: rows from the top, each from
// the left, the tabs before their pages, OK, Cancel and Help in this order. Also of what is hidden.
[[nodiscard]] std::vector<ReadWidget> InReadingOrder(QWidget &window);

// Tab and Shift+Tab go through the window in reading order.
void SetTabOrderByReading(QWidget &window);

// Marks a letter in the text of each label that stands for a field and of each button but OK and
// Cancel, different ones on each page; the text itself stays. A mark that is there already stays where
// no other has its letter. `taken` are letters that others have, in capitals; returns these and those
// that stand on no page.
QSet<QChar> GiveMnemonics(QWidget &window, QSet<QChar> taken = {});

// The letter that is marked in the text, as a capital; null for none.
[[nodiscard]] QChar MnemonicIn(const QString &text);
