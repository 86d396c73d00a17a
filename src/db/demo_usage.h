// The usage, credits, blocks and restrictions of the demonstration data, made from its users by the
// engine itself.
#pragma once

#include "db/direct_connection.h"

#include <QDate>

#include <functional>

class DemoUsage
{
public:
    // `days` of usage up to and with `today`.
    DemoUsage(DirectConnection &connection, QDate lastDay, int dayCount)
        : database(connection)
        , today(lastDay)
        , days(dayCount)
    { }

    // Each makes its part from the users that stand in the database. False when a statement failed.
    [[nodiscard]] bool MakeDayRecords(const std::function<void(QString)> &report);
    [[nodiscard]] bool MakeAccountingRecords();
    [[nodiscard]] bool MakeCredits();
    [[nodiscard]] bool BlockWhoUsedUpTheirLimit();
    [[nodiscard]] bool MakeRestrictionsAndLogins();
    [[nodiscard]] bool MakeSiteAccess();

private:
    [[nodiscard]] bool MakeCalendar();
    [[nodiscard]] bool RunAll(std::initializer_list<QString> statements);
    [[nodiscard]] bool Run(const QString &statement, const SqlValues &values = {});
    [[nodiscard]] QString FirstOfMonth() const;

    DirectConnection &database;
    QDate today;
    int days;
};
