// F6 goes round the parts of a window, Shift+F6 the other way.
#pragma once

#include <QObject>

#include <functional>
#include <vector>

class QWidget;

struct FocusStop
{
    QWidget *area; // left out while it is hidden
    std::function<void()> takeFocus;
};

// Adds the two keys to `window`; the round goes on from the stop whose area has the focus.
void AddFocusRound(QWidget &window, std::vector<FocusStop> stops);
