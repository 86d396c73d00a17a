// The excluded addresses: a list, the field for a new one, and their buttons.
#pragma once

#include "admin/exclusions.h"
#include "base/prompt.h"

#include <QWidget>

class EditableList;
class IpAddressField;

class ExclusionEditor : public QWidget
{
    Q_OBJECT

public:
    struct Texts
    {
        QString list;
        QString entry;
        QString add;
        QString remove;
    };

    // Edits `exclusions` in place; while it holds `capacity` of them nothing can be entered.
    ExclusionEditor(Prompt &prompt,
                    QList<Ipv4> &exclusions,
                    qsizetype capacity,
                    const Texts &texts,
                    QWidget *parent = nullptr);

    void Show();

private:
    void Add();
    void Remove();

    Prompt &prompt;
    QList<Ipv4> &exclusions;
    qsizetype capacity;
    IpAddressField *address;
    EditableList *list;
};
