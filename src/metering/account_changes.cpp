#include "metering/account_changes.h"

#include "base/day.h"
#include "metering/bytes.h"
#include "metering/day_records.h"

void AccountChanges::AddTraffic(const Account &account, const Charge &charge, quint64 sentBytes)
{
    for (const BillId bill : account.trafficCredits.adopted) {
        adoptedTraffic.Add(bill.value, {static_cast<double>(account.trafficRecord.value)});
    }
    const quint64 received = BytesOf(Megabytes {charge.counted});
    if (received > 0 || sentBytes > 0) {
        traffic.Add(account.trafficRecord.value,
                    {static_cast<double>(received), static_cast<double>(sentBytes)});
    }
    Pay(charge.payments, kBytesOfMegabyte);
    Close(charge.closed);
}

void AccountChanges::AddTime(const Account &account, const Charge &charge)
{
    for (const BillId bill : account.timeCredits.adopted) {
        adoptedTime.Add(bill.value, {static_cast<double>(account.timeRecord.value)});
    }
    if (charge.counted > 0) {
        time.Add(account.timeRecord.value, {charge.counted});
    }
    Pay(charge.payments, 1);
    Close(charge.closed);
}

void AccountChanges::AddPrePaid(const Charge &charge)
{
    Pay(charge.payments, kBytesOfMegabyte);
    Close(charge.closed);
}

// Whole bytes stay whole on every engine.
void AccountChanges::Pay(const std::vector<Payment> &made, double unitsOfOne)
{
    for (const Payment &each : made) {
        payments.Add(each.credit.value,
                     {each.amount * unitsOfOne, each.money.value, each.price, unitsOfOne});
    }
}

void AccountChanges::Close(const std::vector<BillId> &bills)
{
    for (const BillId bill : bills) {
        closed.Add(bill.value);
    }
}

void AccountChanges::NoteReached(TrafficRecordId record)
{
    reachedTraffic.Add(record.value);
}

void AccountChanges::NoteReached(TimeRecordId record)
{
    reachedTime.Add(record.value);
}

void AccountChanges::Block(UserId user, BlockReason reason)
{
    blocked.Add(user.value, {static_cast<double>(reason)});
}

void AccountChanges::Block(GroupId group)
{
    blockedGroups.Add(group.value);
}

void AccountChanges::Lift(UserId user)
{
    lifted.Add(user.value);
}

void AccountChanges::Lift(GroupId group)
{
    liftedGroups.Add(group.value);
}

void AccountChanges::MarkTime(UserId user, bool mark)
{
    timeMarks.Add(user.value, {mark ? 1.0 : 0.0});
}

void AccountChanges::Write(Books &books, QDate day) const
{
    AddToTrafficRecords(books, traffic);
    AddToTimeRecords(books, time);
    books.WriteAll("UPDATE billing SET trafid = s.n1 FROM STAGED (?) AS_ROWS s "
                   "WHERE billing.bill_id = s.k",
                   adoptedTraffic);
    books.WriteAll("UPDATE billing SET time_id = s.n1 FROM STAGED (?) AS_ROWS s "
                   "WHERE billing.bill_id = s.k",
                   adoptedTime);
    books.WriteAll("UPDATE billing SET usage = billing.usage + 1.0 * s.n1 / s.n4, "
                   "moneyusage = billing.moneyusage + s.n2 "
                   "FROM STAGED (?) AS_ROWS s WHERE billing.bill_id = s.k",
                   payments);
    if (!payments.IsEmpty()) {
        books.Write("INSERT INTO credit_use (bill_id, day) "
                    "SELECT s.k, (?) FROM STAGED (?) AS_ROWS s WHERE NOT EXISTS (SELECT 1 "
                    "FROM credit_use WHERE credit_use.bill_id = s.k and credit_use.day = (?))",
                    DayOf(day),
                    payments,
                    DayOf(day));
    }
    books.WriteAll("UPDATE credit_use SET data = credit_use.data + 1.0 * s.n1 / s.n4, "
                   "money = credit_use.money + s.n2, price = s.n3 FROM STAGED (?) AS_ROWS s "
                   "WHERE credit_use.bill_id = s.k and credit_use.day = (?)",
                   payments,
                   DayOf(day));
    books.WriteAll("UPDATE billing SET closed = 1 FROM STAGED (?) AS_ROWS s "
                   "WHERE billing.bill_id = s.k",
                   closed);
    books.WriteAll("UPDATE traffic_use SET blocked = true FROM STAGED (?) AS_ROWS s "
                   "WHERE traffic_use.traf_id = s.k",
                   reachedTraffic);
    books.WriteAll("UPDATE time_use SET blocked = true FROM STAGED (?) AS_ROWS s "
                   "WHERE time_use.time_id = s.k",
                   reachedTime);
    WriteBlocks(books);
}

void AccountChanges::WriteBlocks(Books &books) const
{
    books.WriteAll("UPDATE users SET blocked = true, blockreason = s.n1 FROM STAGED (?) AS_ROWS s "
                   "WHERE users.user_id = s.k and users.blocked = false",
                   blocked);
    books.WriteAll("UPDATE users SET blocked = false FROM STAGED (?) AS_ROWS s "
                   "WHERE users.user_id = s.k and users.blockreason IN (1, 2)",
                   lifted);
    books.WriteAll("UPDATE users SET timeblocked = s.n1 FROM STAGED (?) AS_ROWS s "
                   "WHERE users.user_id = s.k",
                   timeMarks);
    books.WriteAll("UPDATE groups SET blocked = true, blockreason = 1 FROM STAGED (?) AS_ROWS s "
                   "WHERE groups.group_id = s.k and groups.blocked = false",
                   blockedGroups);
    books.WriteAll("UPDATE groups SET blocked = false FROM STAGED (?) AS_ROWS s "
                   "WHERE groups.group_id = s.k and groups.blockreason IN (1, 2)",
                   liftedGroups);
}
