// How the service tells users apart.
#pragma once

#include "ui/common/page.h"

class QButtonGroup;
class QCheckBox;

// The three radio buttons, which the setup wizard shows as well.
class IdentModeBox : public QWidget
{
    Q_OBJECT

public:
    // Edits `mode` in place; a code of no meaning shows nothing chosen and stays. The dialogs do not
    // name the third choice alike.
    IdentModeBox(qint32 &mode, const QString &userName, QWidget *parent = nullptr);

private:
    QButtonGroup *buttons;
};

class BindPage : public Page
{
    Q_OBJECT

public:
    // Edits both in place; `control` is the check box's text.
    BindPage(qint32 &identMode, bool &controlMac, const QString &control);

    [[nodiscard]] QString Title() const override;
    void Load() override;
    void Collect() override;

private:
    bool &controlMac;
    QCheckBox *control;
};
