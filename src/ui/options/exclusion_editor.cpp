#include "ui/options/exclusion_editor.h"

#include "ui/common/accessible.h"
#include "ui/common/controls.h"
#include "ui/common/ip_address_field.h"
#include "ui/options/editable_list.h"

#include <QVBoxLayout>

using namespace Qt::StringLiterals;

ExclusionEditor::ExclusionEditor(
    Prompt &messages, QList<Ipv4> &edited, qsizetype most, const Texts &texts, QWidget *parent)
    : QWidget(parent)
    , prompt(messages)
    , exclusions(edited)
    , capacity(most)
    , address(new IpAddressField(PlainLabel(texts.entry)))
{
    address->setObjectName(u"exclusion"_s);
    list = new EditableList(u"exclusions"_s,
                            {texts.list, texts.entry, texts.add, texts.remove},
                            {tr("IP Address")},
                            address);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(list);
    connect(list, &EditableList::AddRequested, this, &ExclusionEditor::Add);
    connect(list, &EditableList::RemoveRequested, this, &ExclusionEditor::Remove);
    Show();
}

void ExclusionEditor::Add()
{
    if (const auto problem = CheckExclusion(exclusions, address->Address())) {
        Complain(prompt, TextOf(*problem));
        address->FocusWhatIsMissing();
        return;
    }
    exclusions.append(*address->Address());
    address->Clear();
    Show();
    list->FocusEntry();
}

void ExclusionEditor::Remove()
{
    const int row = list->Row();
    if (row < 0) {
        Complain(prompt, tr("Select an item to delete"));
        return;
    }
    exclusions.removeAt(row);
    Show();
    list->SelectRow(static_cast<int>(exclusions.size()) - 1);
}

void ExclusionEditor::Show()
{
    QList<QStringList> rows;
    for (const Ipv4 exclusion : exclusions) {
        rows.append({DottedText(exclusion)});
    }
    list->SetRows(rows);
    list->SetAddEnabled(exclusions.size() < capacity);
    list->SetRemoveEnabled(!exclusions.isEmpty());
}
