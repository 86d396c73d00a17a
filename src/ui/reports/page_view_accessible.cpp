#include "ui/reports/page_view_accessible.h"

#include "ui/reports/page_view.h"

#include <QAccessibleWidget>

namespace {

class AccessiblePages : public QAccessibleWidget, public QAccessibleTextInterface
{
public:
    explicit AccessiblePages(PageView &ofView)
        : QAccessibleWidget(&ofView, QAccessible::Document)
        , view(ofView)
    { }

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::TextInterface ? static_cast<QAccessibleTextInterface *>(this)
                                                  : QAccessibleWidget::interface_cast(type);
    }

    [[nodiscard]] QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.readOnly = true;
        state.multiLine = true;
        state.selectableText = false;
        return state;
    }

    [[nodiscard]] int characterCount() const override { return static_cast<int>(Words().size()); }
    [[nodiscard]] QString text(int from, int to) const override
    {
        return Words().mid(from, to - from);
    }
    using QAccessibleWidget::text;

    [[nodiscard]] int cursorPosition() const override { return cursor; }
    void setCursorPosition(int position) override { cursor = position; }

    [[nodiscard]] QRect characterRect(int offset) const override
    {
        for (const Stretch &stretch : Stretches()) {
            if (offset >= stretch.first && offset < stretch.first + stretch.text.text.size()) {
                return InScreen(stretch.text.PlaceOf(offset - stretch.first, 1));
            }
        }
        return {};
    }

    [[nodiscard]] int offsetAtPoint(const QPoint &point) const override
    {
        for (const Stretch &stretch : Stretches()) {
            if (InScreen(stretch.text.place).contains(point)) {
                return static_cast<int>(stretch.first);
            }
        }
        return -1;
    }

    [[nodiscard]] QString attributes(int, int *from, int *to) const override
    {
        *from = 0;
        *to = characterCount();
        return {};
    }

    // Nothing is chosen on a page.
    void selection(int, int *from, int *to) const override { *from = *to = 0; }
    [[nodiscard]] int selectionCount() const override { return 0; }
    void addSelection(int, int) override { }
    void removeSelection(int) override { }
    void setSelection(int, int, int) override { }

    void scrollToSubstring(int from, int) override
    {
        for (const Stretch &stretch : Stretches()) {
            if (from >= stretch.first && from < stretch.first + stretch.text.text.size()) {
                const QRectF &place = stretch.text.place;
                view.ScrollIntoSight(view.CurrentPage(), {place.topLeft() / 10, place.size() / 10});
                return;
            }
        }
    }

private:
    struct Stretch
    {
        qsizetype first; // of the page's words
        PlacedText text;
    };

    [[nodiscard]] QString Words() const
    {
        return view.Pages() == nullptr ? QString() : view.Pages()->PageText(view.CurrentPage());
    }

    // The words of a page are its texts with one sign between each two.
    [[nodiscard]] std::vector<Stretch> Stretches() const
    {
        std::vector<Stretch> stretches;
        qsizetype first = 0;
        if (view.Pages() != nullptr) {
            for (const PlacedText &text : view.Pages()->Texts(view.CurrentPage())) {
                stretches.push_back({first, text});
                first += text.text.size() + 1;
            }
        }
        return stretches;
    }

    [[nodiscard]] QRect InScreen(const QRectF &place) const
    {
        const QRect shown =
            view.PlaceInView(view.CurrentPage(), {place.topLeft() / 10, place.size() / 10})
                .toAlignedRect();
        return {view.viewport()->mapToGlobal(shown.topLeft()), shown.size()};
    }

    PageView &view;
    int cursor = 0;
};

QAccessibleInterface *Make(const QString &, QObject *object)
{
    auto *view = qobject_cast<PageView *>(object);
    return view == nullptr ? nullptr : new AccessiblePages(*view);
}

} // namespace

void MakeReadable()
{
    static const bool kOnce = [] {
        QAccessible::installFactory(Make);
        return true;
    }();
    std::ignore = kOnce;
}

void TellTextChanged(PageView &view)
{
    if (QAccessible::isActive() && view.Pages() != nullptr) {
        QAccessibleTextUpdateEvent changed(
            &view, 0, {}, view.Pages()->PageText(view.CurrentPage()));
        QAccessible::updateAccessibility(&changed);
    }
}
