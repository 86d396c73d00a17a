#include "ui/options/protocol_editor.h"

#include "ui/common/controls.h"
#include "ui/common/elided_label.h"
#include "ui/common/number_field.h"
#include "ui/common/text_field.h"
#include "ui/options/editable_list.h"
#include "ui/options/entry_dialog.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

TextField *NameField()
{
    auto *field = new TextField;
    field->setObjectName(u"protocol"_s);
    return field;
}

NumberField *PortField()
{
    auto *field = new NumberField({.least = 1, .most = kHighestPort});
    field->setObjectName(u"port"_s);
    return field;
}

bool Accepted(Prompt &prompt, std::optional<ProtocolProblem> problem)
{
    if (problem) {
        Complain(prompt, TextOf(*problem));
    }
    return !problem;
}

} // namespace

ProtocolList::ProtocolList(Prompt &messages,
                           ProtocolTable &edited,
                           ProtocolEntry entry,
                           const Texts &texts,
                           QWidget *parent)
    : QWidget(parent)
    , prompt(messages)
    , table(edited)
{
    if (entry == ProtocolEntry::Field) {
        name = NameField();
    }
    list = new EditableList(
        u"protocols"_s, {texts.list, texts.entry, texts.add, texts.remove}, {tr("Protocol")}, name);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(list);
    connect(list, &EditableList::AddRequested, this, &ProtocolList::AddEntered);
    connect(list, &EditableList::RemoveRequested, this, &ProtocolList::Remove);
    connect(list, &EditableList::RowChanged, this, &ProtocolList::Changed);
    Show();
}

qsizetype ProtocolList::Selected() const
{
    return list->Row() < 0 ? -1 : table.IndexOf(list->RowText());
}

bool ProtocolList::Add(const QString &newName)
{
    if (!Accepted(prompt, table.Add(newName))) {
        return false;
    }
    Show();
    list->SelectRow(table.Protocols().last().name);
    return true;
}

void ProtocolList::AddEntered()
{
    if (name) {
        if (Add(name->text().trimmed())) {
            name->clear();
        }
        name->setFocus();
        return;
    }
    auto *field = NameField();
    EntryDialog dialog(
        tr("Add protocol"),
        tr("Protocol title:"),
        field,
        [this, field] { return Add(field->text().trimmed()); },
        this);
    dialog.exec();
}

void ProtocolList::Remove()
{
    const qsizetype selected = Selected();
    if (selected < 0) {
        Complain(prompt, tr("Select an item to delete"));
        return;
    }
    table.Remove(selected);
    Show();
}

void ProtocolList::Show()
{
    QList<QStringList> rows;
    for (const Protocol &protocol : table.Protocols()) {
        rows.append({protocol.name});
    }
    list->SetRows(rows);
    list->SetRemoveEnabled(!rows.isEmpty());
    emit Changed();
}

PortList::PortList(Prompt &messages,
                   ProtocolTable &edited,
                   ProtocolEntry entry,
                   const Texts &texts,
                   QWidget *parent)
    : QWidget(parent)
    , prompt(messages)
    , table(edited)
    , owner(new ElidedLabel)
{
    if (entry == ProtocolEntry::Field) {
        number = PortField();
    }
    list = new EditableList(
        u"ports"_s, {{}, texts.entry, texts.add, texts.remove}, {tr("Port")}, number);
    auto *heading = new QLabel(texts.list);
    heading->setBuddy(list->findChild<QWidget *>(u"ports"_s));
    owner->setObjectName(u"portsOwner"_s);
    auto *row = new QHBoxLayout;
    row->addWidget(heading);
    row->addWidget(owner, 1);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addLayout(row);
    column->addWidget(list);
    connect(list, &EditableList::AddRequested, this, &PortList::AddEntered);
    connect(list, &EditableList::RemoveRequested, this, &PortList::Remove);
    Show(-1);
}

bool PortList::Add(const NumberField &entered)
{
    const auto port = entered.Number();
    const auto typed = port ? std::optional(static_cast<qint32>(*port)) : std::nullopt;
    if (!Accepted(prompt, table.AddPort(protocol, typed))) {
        return false;
    }
    Show(protocol);
    list->SelectRow(static_cast<int>(table.Protocols()[protocol].ports.size()) - 1);
    return true;
}

void PortList::AddEntered()
{
    if (number) {
        if (Add(*number)) {
            number->clear();
        }
        number->setFocus();
        return;
    }
    auto *field = PortField();
    EntryDialog dialog(
        tr("Add port"), tr("Port number:"), field, [this, field] { return Add(*field); }, this);
    dialog.exec();
}

void PortList::Remove()
{
    if (list->Row() < 0) {
        Complain(prompt, tr("Select an item to delete"));
        return;
    }
    table.RemovePort(protocol, list->Row());
    Show(protocol);
}

void PortList::Show(qsizetype shown)
{
    if (shown != protocol) {
        list->SelectRow(-1);
    }
    protocol = shown;
    QList<QStringList> rows;
    if (protocol >= 0) {
        for (const ProtocolPort &port : table.Protocols()[protocol].ports) {
            rows.append({QString::number(port.number)});
        }
    }
    owner->setText(protocol < 0 ? QString() : table.Protocols()[protocol].name);
    list->SetRows(rows);
    list->setEnabled(protocol >= 0);
    list->SetRemoveEnabled(!rows.isEmpty());
}
