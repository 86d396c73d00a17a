// The protocols and their ports: two lists that edit one table.
#pragma once

#include "admin/protocol_table.h"
#include "base/prompt.h"

#include <QWidget>

#include <optional>

class EditableList;
class ElidedLabel;
class NumberField;
class QLineEdit;

// How something new is entered: in a small dialog or in a field above the list.
enum class ProtocolEntry { Dialog, Field };

class ProtocolList : public QWidget
{
    Q_OBJECT

public:
    struct Texts
    {
        QString list;
        QString entry; // before the field
        QString add;
        QString remove;
    };

    // Edits `table` in place.
    ProtocolList(Prompt &prompt,
                 ProtocolTable &table,
                 ProtocolEntry entry,
                 const Texts &texts,
                 QWidget *parent = nullptr);

    // The selected protocol, counted from 0; -1 while none is.
    [[nodiscard]] qsizetype Selected() const;
    void Show();

signals:
    void Changed();

private:
    [[nodiscard]] bool Add(const QString &name);
    void AddEntered();
    void Remove();

    Prompt &prompt;
    ProtocolTable &table;
    QLineEdit *name = nullptr;
    EditableList *list;
};

class PortList : public QWidget
{
    Q_OBJECT

public:
    using Texts = ProtocolList::Texts;

    PortList(Prompt &prompt,
             ProtocolTable &table,
             ProtocolEntry entry,
             const Texts &texts,
             QWidget *parent = nullptr);

    // Shows the ports of this protocol; -1 for none, and nothing can then be entered.
    void Show(qsizetype protocol);

private:
    [[nodiscard]] bool Add(const NumberField &entered);
    void AddEntered();
    void Remove();

    Prompt &prompt;
    ProtocolTable &table;
    qsizetype protocol = -1;
    NumberField *number = nullptr;
    ElidedLabel *owner;
    EditableList *list;
};
