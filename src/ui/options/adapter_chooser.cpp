#include "ui/options/adapter_chooser.h"

#include "ui/common/accessible.h"
#include "ui/common/controls.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>

using namespace Qt::StringLiterals;

AdapterChooser::AdapterChooser(Prompt &messages, const QList<Adapter> &listed, QWidget *parent)
    : QWidget(parent)
    , prompt(messages)
    , adapters(Selectable(listed))
    , current(ShownValue("currentAdapter"))
    , address(ShownValue("boundAddress"))
    , choice(new QComboBox)
{
    choice->setObjectName(u"newAdapter"_s);
    choice->setAccessibleDescription(u"Select new adapter from the list"_s);
    for (const Adapter &adapter : adapters) {
        choice->addItem(adapter.description);
    }
    choice->setCurrentIndex(-1);
    auto *form = new QFormLayout(this);
    form->setContentsMargins(0, 0, 0, 0);
    form->setRowWrapPolicy(QFormLayout::WrapAllRows);
    form->addRow(LabelFor(u"Current adapter:"_s, *current), current);
    form->addRow(LabelFor(u"Bind to IP address:"_s, *address), address);
    form->addRow(LabelFor(u"Select new adapter from the list:"_s, *choice), choice);
    connect(choice, &QComboBox::activated, this, &AdapterChooser::Pick);
}

void AdapterChooser::SetCurrent(const QString &description)
{
    const Adapter *adapter = FindAdapter(adapters, description);
    current->setText(description);
    current->setCursorPosition(0);
    address->setText(adapter && adapter->address ? DottedText(*adapter->address) : QString());
    choice->setCurrentIndex(adapter ? static_cast<int>(adapter - adapters.constData()) : -1);
}

void AdapterChooser::SetMayChange(bool mayChange)
{
    choice->setEnabled(mayChange);
}

void AdapterChooser::Pick(int row)
{
    const Adapter picked = adapters[row];
    if (picked.description == current->text()) {
        return;
    }
    if (!prompt.Ask(
            u"You are about to bind Tollbrook service to another network card. Continue?"_s)) {
        SetCurrent(current->text());
        return;
    }
    SetCurrent(picked.description);
    emit Picked(picked);
}
