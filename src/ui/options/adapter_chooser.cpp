#include "ui/options/adapter_chooser.h"

#include "ui/common/accessible.h"
#include "ui/common/controls.h"

#include <QComboBox>
#include <QFormLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace {

// An arrow, or the beginning of a name; the space bar opens the list itself.
bool ChangesChoice(const QKeyEvent &press)
{
    switch (press.key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Home:
    case Qt::Key_End:
        return true;
    default:
        return !press.text().isEmpty() && press.text()[0].isPrint() && !press.text()[0].isSpace();
    }
}

} // namespace

AdapterChooser::AdapterChooser(Prompt &messages, const QList<Adapter> &listed, QWidget *parent)
    : QWidget(parent)
    , prompt(messages)
    , adapters(Selectable(listed))
    , current(ShownValue("currentAdapter"))
    , address(ShownValue("boundAddress"))
    , choice(new QComboBox)
{
    choice->setObjectName(u"newAdapter"_s);
    choice->setAccessibleDescription(tr("Select new adapter from the list"));
    for (const Adapter &adapter : adapters) {
        choice->addItem(adapter.description);
    }
    choice->setCurrentIndex(-1);
    auto *form = new QFormLayout(this);
    form->setContentsMargins(0, 0, 0, 0);
    form->setRowWrapPolicy(QFormLayout::WrapAllRows);
    form->addRow(LabelFor(tr("Current adapter:"), *current), current);
    form->addRow(LabelFor(tr("Bind to IP address:"), *address), address);
    form->addRow(LabelFor(tr("Select new adapter from the list:"), *choice), choice);
    choice->installEventFilter(this);
    connect(choice, &QComboBox::activated, this, &AdapterChooser::Pick);
}

void AdapterChooser::SetCurrent(const QString &description)
{
    const Adapter *adapter = FindAdapter(adapters, description);
    current->setText(description);
    address->setText(adapter && adapter->address ? DottedText(*adapter->address) : QString());
    choice->setCurrentIndex(adapter ? static_cast<int>(adapter - adapters.constData()) : -1);
}

void AdapterChooser::SetMayChange(bool mayChange)
{
    choice->setEnabled(mayChange);
}

// A key held down, the letters of a name or a turn of the wheel would otherwise ask again and again, for
// adapters that are only passed on the way.
bool AdapterChooser::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Wheel) {
        event->ignore();
        return true;
    }
    if (event->type() == QEvent::KeyPress && ChangesChoice(*static_cast<QKeyEvent *>(event))) {
        choice->showPopup();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void AdapterChooser::Pick(int row)
{
    const Adapter picked = adapters[row];
    if (picked.description == current->text()) {
        return;
    }
    if (!prompt.Ask(
            tr("You are about to bind Tollbrook service to another network card. Continue?"))) {
        SetCurrent(current->text());
        return;
    }
    SetCurrent(picked.description);
    emit Picked(picked);
}
