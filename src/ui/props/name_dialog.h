// "Add group" and "Rename group": one name, OK and Cancel.
#pragma once

#include "ui/common/dialog.h"

#include <functional>

class TextField;

class NameDialog : public Dialog
{
    Q_OBJECT

public:
    NameDialog(const QString &title, const QString &label, QWidget *parent);

    // The name that stands there at first, selected.
    void SetName(const QString &name);
    [[nodiscard]] QString Name() const; // without the blanks around it

    // Asked on OK; a refusal, which says why itself, keeps the dialog open.
    void SetCheck(std::function<bool(const QString &name)> newCheck);

    void accept() override;

private:
    TextField *name;
    std::function<bool(const QString &)> check;
};
