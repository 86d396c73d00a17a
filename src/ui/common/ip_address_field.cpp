#include "ui/common/ip_address_field.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QRegularExpressionValidator>
#include <QStyleOptionFrame>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int kDigits = 3;

QLineEdit *MakeOctet(int index, const QString &name, QWidget *parent)
{
    static const QRegularExpression upTo255(u"[01]?[0-9]{0,2}|2[0-4][0-9]|25[0-5]"_s);
    auto *octet = new QLineEdit(parent);
    octet->setObjectName(u"octet%1"_s.arg(index));
    octet->setAccessibleName(u"%1, part %2 of 4"_s.arg(name).arg(index + 1));
    octet->setValidator(new QRegularExpressionValidator(upTo255, octet));
    octet->setFrame(false);
    octet->setAlignment(Qt::AlignCenter);
    octet->setAcceptDrops(false);
    octet->setMinimumWidth(octet->fontMetrics().horizontalAdvance(u"00000"_s));
    QPalette clear = octet->palette();
    clear.setBrush(QPalette::Base, Qt::transparent); // the whole field paints its frame and ground
    octet->setPalette(clear);
    return octet;
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
        connect(octet, &QLineEdit::textChanged, this, &IpAddressField::Changed);
        connect(octet, &QLineEdit::textEdited, this, [this, index](const QString &text) {
            if (text.size() == kDigits) {
                GoTo(index + 1);
            }
        });
        octets[static_cast<size_t>(index)] = octet;
        row->addWidget(octet);
    }
    setFocusProxy(octets.front());
}

bool IpAddressField::IsComplete() const
{
    return std::ranges::none_of(octets,
                                [](const QLineEdit *octet) { return octet->text().isEmpty(); });
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
        address = address << 8 | octet->text().toUInt();
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

bool IpAddressField::eventFilter(QObject *watched, QEvent *event)
{
    const auto place = std::ranges::find(octets, watched);
    if (place == octets.end()) {
        return QWidget::eventFilter(watched, event);
    }
    if (event->type() == QEvent::KeyPress) {
        const auto *press = static_cast<const QKeyEvent *>(event);
        if (press->matches(QKeySequence::Paste) && PasteWhole()) {
            return true;
        }
        const int index = static_cast<int>(place - octets.begin());
        return press->modifiers() == Qt::NoModifier
            && HandleKey(index, press->key(), press->text());
    }
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
        update();
    }
    if (event->type() == QEvent::ContextMenu) {
        ShowMenu(**place, static_cast<const QContextMenuEvent *>(event)->globalPos());
        return true;
    }
    return false;
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
}

// True when the key is used up.
bool IpAddressField::HandleKey(int index, int key, const QString &text)
{
    const QLineEdit &octet = *octets[static_cast<size_t>(index)];
    const bool atStart = octet.cursorPosition() == 0 && !octet.hasSelectedText();
    const bool atEnd = octet.cursorPosition() == octet.text().size();
    if (text == u"."_s) {
        if (!octet.text().isEmpty() && !octet.hasSelectedText()) {
            GoTo(index + 1);
        }
        return true;
    }
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

bool IpAddressField::PasteWhole()
{
    const auto address = Ipv4From(QApplication::clipboard()->text().trimmed());
    if (address) {
        SetAddress(*address);
        GoTo(3);
    }
    return address.has_value();
}

void IpAddressField::ShowMenu(QLineEdit &octet, const QPoint &position)
{
    QMenu *menu = octet.createStandardContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (auto *paste = menu->findChild<QAction *>(u"edit-paste"_s)) {
        paste->disconnect(&octet);
        connect(paste, &QAction::triggered, &octet, [this, &octet] {
            if (!PasteWhole()) {
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
