// "Time" of a user and of a group: the times of the week at which access is granted or denied.
#pragma once

#include "access/group_record.h"
#include "access/user_record.h"
#include "startup/app_services.h"
#include "ui/common/page.h"

class QGroupBox;
class QLabel;
class QRadioButton;
class QTreeWidget;

// What both pages have in common; they differ in how a time is written. The list is read each time the
// page becomes active; when it cannot be read it keeps the ranges that it shows, and says so.
class TimePage : public Page
{
    Q_OBJECT

public:
    [[nodiscard]] QString Title() const override;
    void Load() override;
    void Activate() override;

protected:
    // `timeFormat` is Qt's, for the texts that are stored.
    TimePage(const AppServices &services,
             const Owner &owner,
             TimeRanges &ranges,
             const QString &timeFormat,
             QWidget *parent);

private:
    QGroupBox *MakeRanges();
    void ShowRow(const TimeRange &range);
    void AddRange();
    void DeleteRange();

    const AppServices &services;
    const Owner owner;
    TimeRanges &ranges;
    QString timeFormat;
    QRadioButton *grant;
    QRadioButton *deny;
    QTreeWidget *list;
    QLabel *unread;
};

class CAdministratorUserPTime : public TimePage
{
    Q_OBJECT

public:
    CAdministratorUserPTime(const AppServices &services,
                            UserRecord &record,
                            QWidget *parent = nullptr);
};

// Kept: made with the group's sheet and never shown there; nothing of it is stored.
class CAdministratorGroupPTime : public TimePage
{
    Q_OBJECT

public:
    CAdministratorGroupPTime(const AppServices &services,
                             GroupRecord &record,
                             QWidget *parent = nullptr);
};
