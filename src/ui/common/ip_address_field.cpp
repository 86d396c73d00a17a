#include "ui/common/ip_address_field.h"

#include "base/number_entry.h"
#include "ui/common/wrong_mark.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QStyleOptionFrame>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int kDigits = 3;

std::optional<Ipv4> NumberIn(const QLineEdit &octet)
{
    const auto number = NumberFrom(octet.text(), {.least = 0, .most = 255});
    return number ? std::optional(static_cast<Ipv4>(*number)) : std::nullopt;
}

QLineEdit *MakeOctet(int index, const QString &name, QWidget *parent)
{
    auto *octet = new QLineEdit(parent);
    octet->setObjectName(u"octet%1"_s.arg(index));
    octet->setAccessibleName(IpAddressField::tr("%1, part %2 of 4").arg(name).arg(index + 1));
    octet->setMaxLength(kDigits);
    octet->setFrame(false);
    octet->setAlignment(Qt::AlignCenter);
    octet->setAcceptDrops(false);
    octet->setMinimumWidth(octet->fontMetrics().horizontalAdvance(u"00000"_s));
    QPalette clear = octet->palette();
    clear.setBrush(QPalette::Base, Qt::transparent); // the whole field paints its frame and ground
    octet->setPalette(clear);
    return octet;
}

bool IsWrong(const QLineEdit &octet)
{
    return !octet.text().isEmpty() && !NumberIn(octet);
}

} // namespace

IpAddressField::IpAddressField(const QString &name, QWidget *parent) : QWidget(parent)
{
    setAccessibleName(name);
    const int frame = style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, this);
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(frame, frame, frame, frame);
    row->setSpacing(0);
    for (int index = 0; index < 4; ++index) {
        if (index > 0) {
            row->addWidget(new QLabel(u"."_s, this));
        }
        auto *octet = MakeOctet(index, name, this);
        octet->installEventFilter(this);
        connect(octet, &QLineEdit::textChanged, this, [this, octet] { Judge(*octet); });
        connect(octet, &QLineEdit::textEdited, this, [this, index] { Typed(index); });
        octets[static_cast<size_t>(index)] = octet;
        row->addWidget(octet);
    }
    setFocusProxy(octets.front());
}

bool IpAddressField::IsComplete() const
{
    return std::ranges::all_of(octets,
                               [](const QLineEdit *octet) { return NumberIn(*octet).has_value(); });
}

bool IpAddressField::IsBlank() const
{
    return std::ranges::all_of(octets,
                               [](const QLineEdit *octet) { return octet->text().isEmpty(); });
}

std::optional<Ipv4> IpAddressField::Address() const
{
    if (!IsComplete()) {
        return std::nullopt;
    }
    Ipv4 address = 0;
    for (const QLineEdit *octet : octets) {
        address = address << 8 | NumberIn(*octet).value_or(0);
    }
    return address;
}

void IpAddressField::SetAddress(Ipv4 address)
{
    for (int index = 0; index < 4; ++index) {
        octets[static_cast<size_t>(index)]->setText(QString::number(Octet(address, index)));
    }
}

void IpAddressField::Clear()
{
    for (QLineEdit *octet : octets) {
        octet->clear();
    }
}

void IpAddressField::FocusWhatIsMissing()
{
    const auto missing = std::ranges::find_if(
        octets, [](const QLineEdit *octet) { return !NumberIn(*octet).has_value(); });
    GoTo(missing == octets.end() ? 0 : static_cast<int>(missing - octets.begin()));
}

bool IpAddressField::eventFilter(QObject *watched, QEvent *event)
{
    const auto place = std::ranges::find(octets, watched);
    if (place == octets.end()) {
        return QWidget::eventFilter(watched, event);
    }
    if (event->type() == QEvent::KeyPress) {
        const auto *press = static_cast<const QKeyEvent *>(event);
        if (press->matches(QKeySequence::Paste)) {
            return Paste(QApplication::clipboard()->text());
        }
        const int index = static_cast<int>(place - octets.begin());
        return !(press->modifiers() & ~Qt::KeypadModifier)
            && HandleKey(index, press->key(), press->text());
    }
    return Watch(**place, *event);
}

// Everything but the keys. True when the event is used up.
bool IpAddressField::Watch(QLineEdit &octet, QEvent &event)
{
    switch (event.type()) {
    case QEvent::FocusIn:
        // A click places the cursor after it gave the focus.
        chooseOnRelease = static_cast<const QFocusEvent &>(event).reason() == Qt::MouseFocusReason;
        if (static_cast<const QFocusEvent &>(event).reason() != Qt::PopupFocusReason) {
            octet.selectAll();
        }
        update();
        return false;
    case QEvent::FocusOut:
        steppedOn = false;
        update();
        return false;
    case QEvent::MouseButtonRelease:
        if (static_cast<const QMouseEvent &>(event).button() == Qt::MiddleButton) {
            return Paste(QApplication::clipboard()->text(QClipboard::Selection));
        }
        if (std::exchange(chooseOnRelease, false) && !octet.hasSelectedText()) {
            octet.selectAll();
        }
        return false;
    case QEvent::ContextMenu:
        ShowMenu(octet, static_cast<const QContextMenuEvent &>(event).globalPos());
        return true;
    default:
        return false;
    }
}

// The description is what a screen reader says of the frame.
void IpAddressField::Judge(QLineEdit &octet)
{
    octet.setAccessibleDescription(IsWrong(octet) ? tr("Please enter an integer between 0 and 255.")
                                                  : QString());
    update();
    emit Changed();
}

// A third digit ends an octet; one that cannot stand is left to be mended.
void IpAddressField::Typed(int index)
{
    const QLineEdit &octet = *octets[static_cast<size_t>(index)];
    if (octet.text().size() == kDigits && NumberIn(octet) && index + 1 < 4) {
        GoTo(index + 1);
        steppedOn = true;
    }
}

// One box, as a line edit's.
void IpAddressField::paintEvent(QPaintEvent * /*event*/)
{
    QStyleOptionFrame box;
    box.initFrom(this);
    box.lineWidth = style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &box, this);
    box.state |= QStyle::State_Sunken;
    box.state.setFlag(QStyle::State_HasFocus, isAncestorOf(QApplication::focusWidget()));
    QPainter painter(this);
    style()->drawPrimitive(QStyle::PE_PanelLineEdit, &box, &painter, this);
    painter.end();
    if (std::ranges::any_of(octets, [](const QLineEdit *octet) { return IsWrong(*octet); })) {
        PaintWrongMark(*this);
    }
}

// True when the key is used up.
bool IpAddressField::HandleKey(int index, int key, const QString &text)
{
    const QLineEdit &octet = *octets[static_cast<size_t>(index)];
    const bool atStart = octet.cursorPosition() == 0 && !octet.hasSelectedText();
    const bool atEnd = octet.cursorPosition() == octet.text().size();
    if (text == u"."_s || text == u","_s) { // a keypad may write either
        TypePoint(index);
        return true;
    }
    steppedOn = false;
    if (key == Qt::Key_Right && atEnd) {
        GoTo(index + 1);
        return true;
    }
    if ((key == Qt::Key_Left || key == Qt::Key_Backspace) && atStart && index > 0) {
        QLineEdit &previous = *octets[static_cast<size_t>(index - 1)];
        previous.setFocus(Qt::OtherFocusReason);
        previous.setCursorPosition(static_cast<int>(previous.text().size()));
        if (key == Qt::Key_Backspace) {
            previous.backspace();
        }
        return true;
    }
    return false;
}

void IpAddressField::TypePoint(int index)
{
    const bool isObeyed = std::exchange(steppedOn, false);
    if (!isObeyed && !octets[static_cast<size_t>(index)]->text().isEmpty()) {
        GoTo(index + 1);
    }
}

// False for what fits into one octet, which is left to the octet itself. Anything else that is no
// address changes nothing: a part of it would look like what was meant.
bool IpAddressField::Paste(const QString &text)
{
    const QString pasted = text.trimmed();
    if (const auto address = Ipv4From(pasted)) {
        SetAddress(*address);
        GoTo(3);
        return true;
    }
    return pasted.size() > kDigits;
}

void IpAddressField::ShowMenu(QLineEdit &octet, const QPoint &position)
{
    QMenu *menu = octet.createStandardContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (auto *paste = menu->findChild<QAction *>(u"edit-paste"_s)) {
        paste->disconnect(&octet);
        connect(paste, &QAction::triggered, &octet, [this, &octet] {
            if (!Paste(QApplication::clipboard()->text())) {
                octet.paste();
            }
        });
    }
    menu->popup(position);
}

void IpAddressField::GoTo(int index)
{
    if (index < 4) {
        octets[static_cast<size_t>(index)]->setFocus(Qt::OtherFocusReason);
        octets[static_cast<size_t>(index)]->selectAll();
    }
}
