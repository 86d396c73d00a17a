// Choosing in a list by the keyboard.
#pragma once

#include <QAbstractItemView>

class QKeyEvent;

// A list may have a current row that nobody has chosen, and from the last row there is no way down. A key
// that could not move on from such a row chooses it. True when this one did, and there is nothing left
// for the view to do.
[[nodiscard]] bool ChoosesCurrentRow(QAbstractItemView &list, const QKeyEvent &key);

// Lets the keys do so in every list that `window` holds now.
void LetKeysChoose(QWidget &window);
