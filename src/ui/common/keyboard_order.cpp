#include "ui/common/keyboard_order.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QLabel>
#include <QMap>
#include <QPushButton>
#include <QSplitter>
#include <QTabBar>
#include <QTabWidget>
#include <QToolButton>

#include <algorithm>
#include <map>
#include <utility>

namespace {

class Reader
{
public:
    void Read(QWidget &widget);

    std::vector<ReadWidget> found;

private:
    void ReadItem(QLayoutItem *item);
    void ReadLayout(QLayout &layout);
    void ReadGrid(QGridLayout &grid);
    void ReadForm(QFormLayout &form);
    void ReadTabs(QTabWidget &tabs);
    void ReadSplitter(QSplitter &splitter);
    void ReadButtons(QDialogButtonBox &box);
    void Add(QWidget &widget) { found.push_back({&widget, page}); }

    int page = 0;
};

// Its parts are the toolkit's own.
bool IsOnePiece(const QWidget &widget)
{
    return qobject_cast<const QAbstractScrollArea *>(&widget)
        || qobject_cast<const QComboBox *>(&widget)
        || qobject_cast<const QAbstractSpinBox *>(&widget);
}

void Reader::Read(QWidget &widget)
{
    if (auto *tabs = qobject_cast<QTabWidget *>(&widget)) {
        ReadTabs(*tabs);
    } else if (auto *splitter = qobject_cast<QSplitter *>(&widget)) {
        ReadSplitter(*splitter);
    } else if (auto *box = qobject_cast<QDialogButtonBox *>(&widget)) {
        ReadButtons(*box);
    } else {
        Add(widget);
        if (widget.layout() != nullptr && !IsOnePiece(widget)) {
            ReadLayout(*widget.layout());
        }
    }
}

void Reader::ReadItem(QLayoutItem *item)
{
    if (item != nullptr && item->widget() != nullptr) {
        Read(*item->widget());
    } else if (item != nullptr && item->layout() != nullptr) {
        ReadLayout(*item->layout());
    }
}

void Reader::ReadLayout(QLayout &layout)
{
    if (auto *grid = qobject_cast<QGridLayout *>(&layout)) {
        ReadGrid(*grid);
    } else if (auto *form = qobject_cast<QFormLayout *>(&layout)) {
        ReadForm(*form);
    } else {
        for (int index = 0; index < layout.count(); ++index) {
            ReadItem(layout.itemAt(index));
        }
    }
}

// The items keep the order in which they were added.
void Reader::ReadGrid(QGridLayout &grid)
{
    QMap<std::pair<int, int>, QLayoutItem *> byPlace;
    for (int index = 0; index < grid.count(); ++index) {
        int row = 0;
        int column = 0;
        int rows = 0;
        int columns = 0;
        grid.getItemPosition(index, &row, &column, &rows, &columns);
        byPlace.insert({row, column}, grid.itemAt(index));
    }
    for (QLayoutItem *item : std::as_const(byPlace)) {
        ReadItem(item);
    }
}

void Reader::ReadForm(QFormLayout &form)
{
    for (int row = 0; row < form.rowCount(); ++row) {
        ReadItem(form.itemAt(row, QFormLayout::LabelRole));
        ReadItem(form.itemAt(row, QFormLayout::FieldRole)); // also what spans the row
    }
}

void Reader::ReadTabs(QTabWidget &tabs)
{
    Add(*tabs.tabBar());
    for (int index = 0; index < tabs.count(); ++index) {
        page = index + 1;
        Read(*tabs.widget(index));
    }
    page = 0;
}

void Reader::ReadSplitter(QSplitter &splitter)
{
    for (int index = 0; index < splitter.count(); ++index) {
        Read(*splitter.widget(index));
    }
}

// A desktop may lay them out in an order of its own. Commands belong to what stands above them.
void Reader::ReadButtons(QDialogButtonBox &box)
{
    QList<QAbstractButton *> buttons = box.buttons();
    const auto rank = [&box](QAbstractButton *button) {
        switch (box.buttonRole(button)) {
        case QDialogButtonBox::AcceptRole:
            return 1;
        case QDialogButtonBox::RejectRole:
            return 2;
        case QDialogButtonBox::HelpRole:
            return 3;
        default:
            return 0;
        }
    };
    std::ranges::stable_sort(buttons, {}, rank);
    for (QAbstractButton *button : buttons) {
        Add(*button);
    }
}

bool TakesFocus(const QWidget &widget)
{
    return widget.focusPolicy() != Qt::NoFocus && widget.focusProxy() == nullptr;
}

// Hands the focus to one of its parts, as the field for an address does.
bool IsComposite(const QWidget &widget)
{
    return widget.focusProxy() != nullptr && widget.isAncestorOf(widget.focusProxy());
}

// Where the mark "&" stands; -1 for none. Two of them are a written "&".
qsizetype MarkIn(const QString &text)
{
    for (qsizetype place = 0; place + 1 < text.size(); ++place) {
        if (text[place] == u'&') {
            if (text[place + 1] != u'&') {
                return place;
            }
            ++place;
        }
    }
    return -1;
}

// Where the mark goes: at the beginning of a word, else at any letter, else at a digit; -1 when each is
// taken.
qsizetype PlaceForMark(const QString &text, const QSet<QChar> &taken)
{
    qsizetype letter = -1;
    qsizetype digit = -1;
    for (qsizetype place = 0; place < text.size(); ++place) {
        const QChar c = text[place];
        if (!c.isLetterOrNumber() || taken.contains(c.toUpper())) {
            continue;
        }
        const bool beginsWord = place == 0 || !text[place - 1].isLetterOrNumber();
        if (c.isLetter() && beginsWord) {
            return place;
        }
        qsizetype &first = c.isLetter() ? letter : digit;
        first = first < 0 ? place : first;
    }
    return letter >= 0 ? letter : digit;
}

// Its text is not seen.
bool IsPicture(const QAbstractButton &button)
{
    const auto *tool = qobject_cast<const QToolButton *>(&button);
    return tool != nullptr && tool->toolButtonStyle() == Qt::ToolButtonIconOnly
        && !tool->icon().isNull();
}

// What carries a mnemonic: a label that stands for a field, or a button with a text. OK and Cancel have
// Enter and Escape.
class Marked
{
public:
    explicit Marked(QWidget &widget)
        : label(qobject_cast<QLabel *>(&widget))
        , button(qobject_cast<QAbstractButton *>(&widget))
    { }

    [[nodiscard]] bool IsOne() const
    {
        return label != nullptr
            ? label->buddy() != nullptr && !label->text().isEmpty()
            : button != nullptr && !button->text().isEmpty() && !IsPicture(*button) && !HasKey();
    }
    [[nodiscard]] QString Text() const { return label != nullptr ? label->text() : button->text(); }
    void SetText(const QString &text)
    {
        if (label != nullptr) {
            label->setText(text);
            // The letter that is underlined stands a little apart from its neighbours, which the label's
            // size does not know.
            constexpr int kApart = 2;
            label->setContentsMargins(0, 0, kApart, 0);
        } else {
            button->setText(text);
        }
    }

private:
    [[nodiscard]] bool HasKey() const
    {
        const auto *box = qobject_cast<const QDialogButtonBox *>(button->parentWidget());
        const auto role = box != nullptr ? box->buttonRole(button) : QDialogButtonBox::InvalidRole;
        return role == QDialogButtonBox::AcceptRole || role == QDialogButtonBox::RejectRole;
    }

    QLabel *label;
    QAbstractButton *button;
};

// A text that gets its mark, or none when all its letters are taken.
struct Unmarked
{
    Marked *widget;
    QString text;
    qsizetype place = -1;
};

// Those that have no mark yet, or one that another has, too; the marks of the others are `taken` then.
std::vector<Unmarked> UnmarkedOf(std::vector<Marked> &texts, QSet<QChar> &taken)
{
    std::vector<Unmarked> without;
    for (Marked &each : texts) {
        QString text = each.Text();
        const qsizetype mark = MarkIn(text);
        if (mark >= 0 && !taken.contains(text[mark + 1].toUpper())) {
            taken.insert(text[mark + 1].toUpper());
            continue;
        }
        if (mark >= 0) {
            text.remove(mark, 1);
        }
        without.push_back({&each, text});
    }
    return without;
}

// Finds a place in each, as the first before it leave it; returns the first that has none, if any.
std::vector<Unmarked>::iterator Place(std::vector<Unmarked> &texts, QSet<QChar> &taken)
{
    auto left = texts.end();
    for (auto each = texts.begin(); each != texts.end(); ++each) {
        each->place = PlaceForMark(each->text, taken);
        if (each->place >= 0) {
            taken.insert(each->text[each->place].toUpper());
        } else if (left == texts.end()) {
            left = each;
        }
    }
    return left;
}

// Marks those that stand on one page; returns the letters of `taken` and theirs. One that all others left
// without a letter chooses first.
QSet<QChar> MarkAll(std::vector<Marked> texts, QSet<QChar> taken)
{
    std::vector<Unmarked> without = UnmarkedOf(texts, taken);
    QSet<QChar> all = taken;
    auto left = Place(without, all);
    for (size_t tried = 0; left != without.end() && tried < without.size(); ++tried) {
        std::rotate(without.begin(), left, left + 1);
        all = taken;
        left = Place(without, all);
    }
    for (Unmarked &each : without) {
        if (each.place >= 0) {
            each.text.insert(each.place, u'&');
        }
        each.widget->SetText(each.text);
    }
    return all;
}

} // namespace

std::vector<ReadWidget> InReadingOrder(QWidget &window)
{
    Reader reader;
    reader.Read(window);
    return std::move(reader.found);
}

void SetTabOrderByReading(QWidget &window)
{
    // It would lead back to the first button, once the buttons are in an order of their own.
    for (auto *box : window.findChildren<QDialogButtonBox *>()) {
        box->setFocusProxy(nullptr);
    }
    QWidget *previous = nullptr;
    const QWidget *whole = nullptr; // goes with its parts, which are in order already
    for (const ReadWidget &each : InReadingOrder(window)) {
        QWidget *widget = each.widget;
        const bool isPart = whole != nullptr && whole->isAncestorOf(widget);
        if (isPart || widget == &window || !(IsComposite(*widget) || TakesFocus(*widget))) {
            continue;
        }
        if (previous != nullptr) {
            QWidget::setTabOrder(previous, widget);
        }
        previous = widget;
        whole = IsComposite(*widget) ? widget : nullptr;
    }
}

QSet<QChar> GiveMnemonics(QWidget &window, QSet<QChar> taken)
{
    std::map<int, std::vector<Marked>> byPage; // what stands beside the pages comes first
    for (const ReadWidget &each : InReadingOrder(window)) {
        const Marked marked(*each.widget);
        if (marked.IsOne()) {
            byPage[each.page].push_back(marked);
        }
    }
    taken = MarkAll(std::move(byPage[0]), std::move(taken));
    byPage.erase(0);
    for (auto &[page, texts] : byPage) {
        MarkAll(std::move(texts), taken);
    }
    return taken;
}

QChar MnemonicIn(const QString &text)
{
    const qsizetype mark = MarkIn(text);
    return mark < 0 ? QChar() : text[mark + 1].toUpper();
}
