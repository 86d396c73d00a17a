// "Time" of a user and of a group: the times of the week at which access is granted or denied.
#pragma once

#include "access/group_record.h"
#include "access/user_record.h"
#include "base/prompt.h"
#include "ui/common/page.h"

class QGroupBox;
class QRadioButton;
class QTreeWidget;

// What both pages have in common; they differ in how a time is written.
class TimePage : public Page
{
    Q_OBJECT

public:
    [[nodiscard]] QString Title() const override;
    void Load() override;
    void Activate() override;

protected:
    // `timeFormat` is Qt's, for the texts that are stored.
    TimePage(Prompt &prompt, TimeRanges &ranges, const QString &timeFormat, QWidget *parent);

private:
    QGroupBox *MakeRanges();
    void ShowRow(const TimeRange &range);
    void AddRange();
    void DeleteRange();

    Prompt &prompt;
    TimeRanges &ranges;
    QString timeFormat;
    QRadioButton *grant;
    QRadioButton *deny;
    QTreeWidget *list;
};

class CAdministratorUserPTime : public TimePage
{
    Q_OBJECT

public:
    CAdministratorUserPTime(Prompt &prompt, UserRecord &record, QWidget *parent = nullptr);
};

// Kept: made with the group's sheet and never shown there; nothing of it is stored.
class CAdministratorGroupPTime : public TimePage
{
    Q_OBJECT

public:
    CAdministratorGroupPTime(Prompt &prompt, GroupRecord &record, QWidget *parent = nullptr);
};
