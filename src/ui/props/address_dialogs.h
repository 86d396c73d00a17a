// "Change IP Address" and "Change MAC address", opened from a user's general page.
#pragma once

#include "base/ipv4.h"
#include "base/prompt.h"
#include "ui/common/dialog.h"

class IpAddressField;
class TextField;

class ChangeIpDialog : public Dialog
{
    Q_OBJECT

public:
    // Starts with `address` when that is one.
    ChangeIpDialog(Prompt &prompt, const QString &address, QWidget *parent = nullptr);

    // Refuses an incomplete address.
    void accept() override;

signals:
    // The address that was confirmed, just before the dialog closes.
    void Entered(Ipv4 address);

private:
    Prompt &prompt;
    IpAddressField *field;
};

class ChangeMacDialog : public Dialog
{
    Q_OBJECT

public:
    ChangeMacDialog(Prompt &prompt, const QString &address, QWidget *parent = nullptr);

    // Refuses any text that is not twelve characters long. Kept: it may be any twelve characters.
    void accept() override;

    [[nodiscard]] QString Address() const;

private:
    Prompt &prompt;
    TextField *field;
};
