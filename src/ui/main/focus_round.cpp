#include "ui/main/focus_round.h"

#include <QApplication>
#include <QShortcut>
#include <QWidget>

#include <algorithm>
#include <memory>

namespace {

bool HasFocus(const QWidget &window, const FocusStop &stop)
{
    const QWidget *focus = window.focusWidget();
    return focus != nullptr && (focus == stop.area || stop.area->isAncestorOf(focus));
}

// From elsewhere the round begins with its first stop, or backwards with its last.
void Go(const QWidget &window, const std::vector<FocusStop> &stops, int step)
{
    const int count = static_cast<int>(stops.size());
    const auto at = std::ranges::find_if(
        stops, [&window](const FocusStop &stop) { return HasFocus(window, stop); });
    int next = at != stops.end() ? static_cast<int>(at - stops.begin()) : (step > 0 ? -1 : count);
    for (int tried = 0; tried < count; ++tried) {
        next = (next + step + count) % count;
        const FocusStop &stop = stops[static_cast<size_t>(next)];
        if (stop.area->isVisible()) {
            if (QWidget *popup = QApplication::activePopupWidget()) {
                popup->close(); // the words offered for what is typed, which stay without the field
            }
            stop.takeFocus();
            return;
        }
    }
}

} // namespace

void AddFocusRound(QWidget &window, std::vector<FocusStop> stops)
{
    const auto shared = std::make_shared<const std::vector<FocusStop>>(std::move(stops));
    for (const auto &[keys, step] : {std::pair {QKeySequence(Qt::Key_F6), 1},
                                     std::pair {QKeySequence(Qt::SHIFT | Qt::Key_F6), -1}}) {
        QObject::connect(new QShortcut(keys, &window),
                         &QShortcut::activated,
                         &window,
                         [&window, shared, step = step] { Go(window, *shared, step); });
    }
}
