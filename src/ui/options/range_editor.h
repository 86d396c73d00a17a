// The local address ranges: the list with its buttons, and where a new range is entered.
#pragma once

#include "admin/address_ranges.h"
#include "base/prompt.h"
#include "ui/common/dialog.h"

class EditableList;
class IpAddressField;

// "Add IP addresses range"
class AddRangeDialog : public Dialog
{
    Q_OBJECT

public:
    // The new range must not overlap the existing ones.
    AddRangeDialog(Prompt &prompt, const QList<AddressRange> &existing, QWidget *parent);

    [[nodiscard]] AddressRange Range() const { return range; }

    // Stays open while the range is refused, and says why.
    void accept() override;

private:
    Prompt &prompt;
    const QList<AddressRange> &ranges;
    IpAddressField *network;
    IpAddressField *mask;
    AddressRange range;
};

class RangeEditor : public QWidget
{
    Q_OBJECT

public:
    enum class Entry { Dialog, Fields };
    struct Texts
    {
        QString list;
        QString add;
        QString remove;
    };

    // Edits `ranges` in place. With fields, "Net address" and "Subnet mask" stand above the list.
    RangeEditor(Prompt &prompt,
                QList<AddressRange> &ranges,
                Entry entry,
                const Texts &texts,
                QWidget *parent = nullptr);

    // Adds the range as if it had been entered.
    void Add(const AddressRange &range);
    void Show();

signals:
    void Changed();

private:
    [[nodiscard]] QWidget *MakeFields();
    void AddEntered();
    void Remove();

    Prompt &prompt;
    QList<AddressRange> &ranges;
    IpAddressField *network = nullptr;
    IpAddressField *mask = nullptr;
    EditableList *list;
};
