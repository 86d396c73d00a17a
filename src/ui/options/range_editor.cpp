#include "ui/options/range_editor.h"

#include "ui/common/accessible.h"
#include "ui/common/controls.h"
#include "ui/common/ip_address_field.h"
#include "ui/options/editable_list.h"

#include <QFormLayout>
#include <QLabel>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

// After a refusal: the address is complete when the mask is what is wrong.
void FocusWhatIsMissing(IpAddressField &network, IpAddressField &mask)
{
    (network.IsComplete() && !mask.IsComplete() ? mask : network).FocusWhatIsMissing();
}

} // namespace

AddRangeDialog::AddRangeDialog(Prompt &messages,
                               const QList<AddressRange> &existing,
                               QWidget *parent)
    : Dialog(parent)
    , prompt(messages)
    , ranges(existing)
    , network(new IpAddressField(tr("IP address")))
    , mask(new IpAddressField(tr("Subnet mask")))
{
    setWindowTitle(tr("Add IP addresses range"));
    network->setObjectName(u"network"_s);
    mask->setObjectName(u"mask"_s);
    auto *form = new QFormLayout(this);
    form->addRow(LabelFor(tr("IP address:"), *network), network);
    form->addRow(LabelFor(tr("Subnet mask:"), *mask), mask);
    form->addRow(OkAndCancel(*this));
}

void AddRangeDialog::accept()
{
    if (const auto problem = CheckRange(ranges, network->Address(), mask->Address())) {
        Complain(prompt, TextOf(*problem));
        FocusWhatIsMissing(*network, *mask);
        return;
    }
    range = {*network->Address(), *mask->Address()};
    QDialog::accept();
}

RangeEditor::RangeEditor(
    Prompt &messages, QList<AddressRange> &edited, Entry entry, const Texts &texts, QWidget *parent)
    : QWidget(parent)
    , prompt(messages)
    , ranges(edited)
{
    QWidget *fields = entry == Entry::Fields ? MakeFields() : nullptr;
    const QStringList columns = fields ? QStringList {tr("Net address"), tr("Subnet mask")}
                                       : QStringList {tr("IP Address"), tr("Subnet mask")};
    list =
        new EditableList(u"ranges"_s, {texts.list, {}, texts.add, texts.remove}, columns, fields);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(list);
    connect(list, &EditableList::AddRequested, this, &RangeEditor::AddEntered);
    connect(list, &EditableList::RemoveRequested, this, &RangeEditor::Remove);
    Show();
}

QWidget *RangeEditor::MakeFields()
{
    auto *fields = new QWidget;
    network = new IpAddressField(tr("Net address"));
    network->setObjectName(u"network"_s);
    mask = new IpAddressField(tr("Subnet mask"));
    mask->setObjectName(u"mask"_s);
    auto *form = new QFormLayout(fields);
    form->setContentsMargins(0, 0, 0, 0);
    form->addRow(LabelFor(tr("Net address"), *network), network);
    form->addRow(LabelFor(tr("Subnet mask"), *mask), mask);
    fields->setFocusProxy(network);
    return fields;
}

void RangeEditor::AddEntered()
{
    if (ranges.size() >= kMaxRanges) {
        Complain(prompt, TextOf(RangeProblem::Full));
        return;
    }
    if (!network) {
        AddRangeDialog dialog(prompt, ranges, this);
        if (dialog.exec() == QDialog::Accepted) {
            Add(dialog.Range());
        }
        return;
    }
    if (const auto problem = CheckRange(ranges, network->Address(), mask->Address())) {
        Complain(prompt, TextOf(*problem));
        FocusWhatIsMissing(*network, *mask);
        return;
    }
    Add({*network->Address(), *mask->Address()});
    network->Clear();
    mask->Clear();
    network->setFocus();
}

void RangeEditor::Add(const AddressRange &range)
{
    ranges.append(range);
    Show();
    list->SelectRow(static_cast<int>(ranges.size()) - 1);
    emit Changed();
}

void RangeEditor::Remove()
{
    const int row = list->Row();
    if (row < 0) {
        Complain(prompt, tr("Select an item to delete"));
        return;
    }
    ranges.removeAt(row);
    Show();
    emit Changed();
}

void RangeEditor::Show()
{
    QList<QStringList> rows;
    for (const AddressRange &range : ranges) {
        rows.append({DottedText(range.network), DottedText(range.mask)});
    }
    list->SetRows(rows);
}
