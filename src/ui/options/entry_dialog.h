// A small dialog around one field.
#pragma once

#include "ui/common/dialog.h"

#include <functional>

class EntryDialog : public Dialog
{
    Q_OBJECT

public:
    // `field` goes to the dialog. On OK `accepts` is asked; a refusal, which says why itself, keeps
    // the dialog open.
    EntryDialog(const QString &title,
                const QString &label,
                QWidget *field,
                std::function<bool()> accepts,
                QWidget *parent);

    void accept() override;

private:
    std::function<bool()> check;
};
