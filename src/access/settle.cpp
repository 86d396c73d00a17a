#include "access/settle.h"

#include "access/access_mode.h"

#include <QCoreApplication>
#include <QLocale>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(Settle)
};

QString PeriodText(LimitPeriod period)
{
    switch (period) {
    case LimitPeriod::Day:
        return Words::tr("Day");
    case LimitPeriod::Month:
        return Words::tr("Month");
    case LimitPeriod::None:
        break;
    }
    return QString::number(static_cast<quint32>(period));
}

template <typename Limit>
QString LimitText(Limit limit)
{
    return QString::number(limit.value);
}

QString PriceText(double price)
{
    return QString::number(price, 'g', QLocale::FloatingPointShortest);
}

} // namespace

Settler::Settler(const Owner &whose, Ask questions) : owner(whose), ask(std::move(questions)) { }

QString Settler::operator()(const QString &label,
                            const QString &base,
                            const QString &draft,
                            const QString &now) const
{
    return (*this)(label, base, draft, now, [](const QString &text) { return text; });
}

bool Settler::Flag(bool base, bool draft, bool now)
{
    return draft != base ? draft : now;
}

bool Settler::MayOverwrite(const QString &label, const QString &now, const QString &present) const
{
    const QString kind = owner.IsUser() ? u"user"_s : u"group"_s;
    const QString number = QString::number(owner.Number());
    return ask({u"%1 %2: %3 is %4 %5"_s.arg(kind, number, label, now, present),
                Words::tr("%1: changed meanwhile to \"%2\". Overwrite?").arg(label, now)});
}

Limits SettleLimits(const Settler &settle,
                    AccountingMode mode,
                    const LimitsDraft &draft,
                    const Limits &now)
{
    const LimitFields fields = FieldsFor(mode);
    const Limits &base = draft.stored;
    const Limits staged = draft.Staged();
    const auto period = Words::tr("Accounting period");
    Limits limits = now;
    if (fields.traffic) {
        limits.period = settle(period, base.period, staged.period, now.period, PeriodText);
        limits.traffic = settle(Words::tr("Traffic limit, Mb"),
                                base.traffic,
                                staged.traffic,
                                now.traffic,
                                LimitText<WholeMegabytes>);
    }
    if (fields.time) {
        limits.timePeriod =
            settle(period, base.timePeriod, staged.timePeriod, now.timePeriod, PeriodText);
        limits.time = settle(
            Words::tr("Time limit, Hr"), base.time, staged.time, now.time, LimitText<WholeHours>);
    }
    if (fields.rates) {
        limits.ownPrice = Settler::Flag(base.ownPrice, staged.ownPrice, now.ownPrice);
        limits.price =
            settle(Words::tr("Price of traffic"), base.price, staged.price, now.price, PriceText);
    }
    return limits;
}

AccountingMode
SettleMode(const Settler &settle, AccountingMode base, AccountingMode draft, AccountingMode now)
{
    return settle(Words::tr("Access type"), base, draft, now, AccessTypeText);
}
