#include "access/access_words.h"

#include <QCoreApplication>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(AccessWords)
};

// "512.4" or "500": at most two decimals, none that say nothing.
QString NumberText(double number, const QLocale &locale)
{
    QLocale plain = locale;
    plain.setNumberOptions(QLocale::OmitGroupSeparator);
    for (int decimals = 0; decimals < 2; ++decimals) {
        const double shown = plain.toDouble(plain.toString(number, 'f', decimals));
        if (qAbs(shown - number) < 0.005) {
            return locale.toString(number, 'f', decimals);
        }
    }
    return locale.toString(number, 'f', 2);
}

QString AmountWords(double amount, AccountUse::Unit unit, const WordsStyle &style)
{
    switch (unit) {
    case AccountUse::Unit::Traffic:
        return Text::tr("%1 Mb").arg(NumberText(amount, style.locale));
    case AccountUse::Unit::Time:
        return Text::tr("%1 h", "hours").arg(NumberText(amount, style.locale));
    case AccountUse::Unit::Money:
        break;
    }
    return NumberText(amount * style.rate, style.locale) + u' ' + style.currency;
}

// The words of one list of facts.
class Words
{
public:
    explicit Words(const WordsStyle &wordsStyle) : style(wordsStyle) { }

    [[nodiscard]] QString Of(const Fact &fact) const
    {
        switch (fact.kind) {
        case FactKind::Unmonitored:
            return Text::tr("This user is not monitored: nothing is counted, limited or blocked.");
        case FactKind::AdministratorBlock:
            return OfAdministrator(std::get<BlockFact>(fact.values));
        case FactKind::ServiceBlock:
            return OfService(std::get<BlockFact>(fact.values).reason);
        case FactKind::ShownAsAllowed:
            return Text::tr("Marked as blocked for reason 4, which lets the user through.");
        case FactKind::TrafficLimit:
            return OfTraffic(fact);
        case FactKind::TimeLimit:
            return OfTime(fact);
        case FactKind::PrePaid:
            return OfPrePaid(fact);
        case FactKind::TimesOfWeek:
            return OfWeek(fact);
        case FactKind::Login:
            return OfLogin(fact);
        case FactKind::GroupBlock:
            return OfGroup(std::get<BlockFact>(fact.values).reason);
        case FactKind::Protocols:
            return OfProtocols(fact);
        case FactKind::NothingWrong:
            break;
        }
        return Text::tr("Nothing stands against access.");
    }

private:
    [[nodiscard]] QString DayText(QDate day) const
    {
        const bool isThisYear = day.year() == style.today.year();
        return style.locale.toString(day,
                                     isThisYear ? Text::tr("d MMMM", "a day of this year")
                                                : Text::tr("d MMMM yyyy", "a day of another year"));
    }

    // As in "until 08:00 today".
    [[nodiscard]] QString MomentText(const Moment &moment) const
    {
        const QString time = style.locale.toString(
            moment.time, moment.time.second() == 0 ? u"HH:mm"_s : u"HH:mm:ss"_s);
        const qint64 days = style.today.daysTo(moment.day);
        if (days == 1 && moment.time == QTime(0, 0)) {
            return Text::tr("midnight");
        }
        if (days == 0) {
            return Text::tr("%1 today").arg(time);
        }
        const QString day =
            days < 7 ? style.locale.dayName(moment.day.dayOfWeek()) : DayText(moment.day);
        return Text::tr("%1 on %2", "a time and a day").arg(time, day);
    }

    [[nodiscard]] QString OfAdministrator(const BlockFact &block) const
    {
        if (block.reason != BlockReason::Administrator) {
            return Text::tr("Blocked for a reason without a meaning (%1).")
                .arg(static_cast<quint32>(block.reason));
        }
        if (!block.since) {
            return Text::tr("Blocked by the administrator.");
        }
        return Text::tr("Blocked by the administrator since %1.")
            .arg(Text::tr("%1, %2", "a day and a time")
                     .arg(DayText(block.since->date()),
                          style.locale.toString(block.since->time(), u"HH:mm"_s)));
    }

    [[nodiscard]] static QString OfService(BlockReason reason)
    {
        const QString lasts = u' ' + Text::tr("The block stays until the service lifts it.");
        switch (reason) {
        case BlockReason::TrafficUsedUp:
            return Text::tr(
                       "Blocked by the accounting service for traffic, though by now nothing that "
                       "limits it is used up.")
                + lasts;
        case BlockReason::TimeUsedUp:
            return Text::tr(
                       "Blocked by the accounting service for time, though by now nothing that "
                       "limits it is used up.")
                + lasts;
        default:
            return Text::tr("Blocked by the accounting service, which did not say why.") + lasts;
        }
    }

    // How much was used since when, as in "512.4 Mb since 1 November".
    [[nodiscard]] QString UsedText(const QString &used, QDate since) const
    {
        if (!since.isValid()) {
            return used;
        }
        return since == style.today
            ? Text::tr("%1 today", "an amount used").arg(used)
            : Text::tr("%1 since %2", "an amount used").arg(used, DayText(since));
    }

    [[nodiscard]] QString PeriodText(QDate lastDay) const
    {
        if (!lastDay.isValid()) {
            return {};
        }
        return u' '
            + (lastDay == style.today ? Text::tr("The period ends today.")
                                      : Text::tr("The period ends on %1.").arg(DayText(lastDay)));
    }

    [[nodiscard]] QString ExpiredText(const ExpiredCredits &expired) const
    {
        if (expired.count == 0) {
            return {};
        }
        const QString day = DayText(expired.lastDay);
        return u' '
            + (expired.count == 1
                   ? Text::tr("A credit has expired: its last day was %1.").arg(day)
                   : Text::tr("%1 credits have expired: the last one's last day was %2.")
                         .arg(style.locale.toString(expired.count), day));
    }

    // The sentences of one kind of limit: used up, and with something left.
    struct LimitTexts
    {
        QString usedUp; // %1 limit, %2 used since
        QString left; // besides: %3 left
        QString unit; // %1 amount
    };

    template <typename Unit>
    [[nodiscard]] QString
    OfLimit(const LimitFact<Unit> &fact, bool isUsedUp, const LimitTexts &texts) const
    {
        const auto amount = [&](Unit value) {
            return texts.unit.arg(NumberText(value.value, style.locale));
        };
        const QString limit = amount(fact.limit);
        const QString used = UsedText(amount(fact.used), fact.since);
        QString text = isUsedUp ? texts.usedUp.arg(limit, used)
                                : texts.left.arg(limit, used, amount(fact.left));
        if (fact.creditLeft > Unit {}) {
            text += u' ' + Text::tr("Of that, credits give %1.").arg(amount(fact.creditLeft));
        }
        return text + ExpiredText(fact.expired) + PeriodText(fact.lastDay);
    }

    [[nodiscard]] QString OfTraffic(const Fact &fact) const
    {
        const LimitTexts own {Text::tr("The traffic limit of %1 is used up (%2)."),
                              Text::tr("Of the traffic limit of %1, %3 is left (used: %2)."),
                              Text::tr("%1 Mb")};
        const LimitTexts ofGroup {
            Text::tr("The traffic limit of %1 that the group shares is used up (%2)."),
            Text::tr("Of the traffic limit of %1 that the group shares, %3 is left (used: %2)."),
            own.unit};
        return OfLimit(std::get<LimitFact<Megabytes>>(fact.values),
                       fact.effect == FactEffect::Refuses,
                       fact.ofGroup ? ofGroup : own);
    }

    [[nodiscard]] QString OfTime(const Fact &fact) const
    {
        const LimitTexts texts {Text::tr("The time limit of %1 is used up (%2)."),
                                Text::tr("Of the time limit of %1, %3 is left (used: %2)."),
                                Text::tr("%1 h", "hours")};
        return OfLimit(
            std::get<LimitFact<Hours>>(fact.values), fact.effect == FactEffect::Refuses, texts);
    }

    // Such as "6 Mb and 2 euro"; what there is nothing of is left out.
    [[nodiscard]] QString LeftText(const PrePaidFact &credit) const
    {
        QStringList amounts;
        if (credit.traffic > Megabytes {}) {
            amounts << AmountWords(credit.traffic.value, AccountUse::Unit::Traffic, style);
        }
        if (credit.money > BaseUnits {}) {
            amounts << AmountWords(credit.money.value, AccountUse::Unit::Money, style);
        }
        return amounts.join(Text::tr(" and ", "between two amounts"));
    }

    [[nodiscard]] QString OfPrePaid(const Fact &fact) const
    {
        const auto &credit = std::get<PrePaidFact>(fact.values);
        if (fact.effect == FactEffect::Refuses) {
            return (fact.ofGroup ? Text::tr("No pre-paid credit of the group is left.")
                                 : Text::tr("No pre-paid credit is left."))
                + ExpiredText(credit.expired);
        }
        QString text;
        if (credit.unbounded) {
            text = fact.ofGroup ? Text::tr("The group has a pre-paid credit without a bound.")
                                : Text::tr("There is a pre-paid credit without a bound.");
        } else {
            text = (fact.ofGroup ? Text::tr("Of the group's pre-paid credit, %1 is left.")
                                 : Text::tr("Of the pre-paid credit, %1 is left."))
                       .arg(LeftText(credit));
        }
        if (credit.lastDay.isValid()) {
            text += u' ' + Text::tr("Its last day is %1.").arg(DayText(credit.lastDay));
        }
        return text + ExpiredText(credit.expired);
    }

    [[nodiscard]] QString OfWeek(const Fact &fact) const
    {
        const WeekState &state = std::get<WeekFact>(fact.values).state;
        QString text;
        if (!state.until) {
            text = state.allowed ? Text::tr("The allowed time lasts the whole week.")
                                 : Text::tr("No time of the week is an allowed one.");
        } else if (state.allowed) {
            text = Text::tr("Within the allowed time, until %1.").arg(MomentText(*state.until));
        } else {
            text = Text::tr("Outside the allowed time until %1.").arg(MomentText(*state.until))
                + u' '
                + Text::tr("The next allowed time lasts until %1.")
                      .arg(MomentText(*state.changesBack));
        }
        if (fact.ofGroup) {
            text += u' ' + Text::tr("These are the times of the group.");
        }
        if (state.unreadable > 0) {
            text += u' '
                + Text::tr("Time ranges that cannot be read: %1.")
                      .arg(style.locale.toString(state.unreadable));
        }
        return text;
    }

    [[nodiscard]] static QString OfLogin(const Fact &fact)
    {
        if (fact.effect == FactEffect::None) {
            return Text::tr("The user is logged in.");
        }
        const QString text = fact.effect == FactEffect::Refuses
            ? Text::tr("The user is not logged in.")
            : Text::tr("The user must log in. Whether that was done, only the service knows.");
        return std::get<LoginFact>(fact.values).logins > 0
            ? text
            : text + u' ' + Text::tr("No login belongs to this user.");
    }

    [[nodiscard]] static QString OfGroup(BlockReason reason)
    {
        return reason == BlockReason::Administrator
            ? Text::tr("The user's group is blocked by the administrator.")
            : Text::tr("The user's group is blocked by the accounting service.");
    }

    [[nodiscard]] static QString OfProtocols(const Fact &fact)
    {
        const auto &ports = std::get<PortRules>(fact.values);
        const QString names = ports.picked.join(u", "_s);
        if (fact.ofGroup) {
            return ports.allowOnly
                ? Text::tr("Only these protocols are allowed to the group: %1.").arg(names)
                : Text::tr("These protocols are denied to the group: %1.").arg(names);
        }
        return ports.allowOnly ? Text::tr("Only these protocols are allowed: %1.").arg(names)
                               : Text::tr("These protocols are denied: %1.").arg(names);
    }

    const WordsStyle &style;
};

// What lifts a block by the service. Without a limit or a credit only another access type does, which the
// access page gives.
QList<WhyCommand> CommandsLifting(AccountingMode mode)
{
    switch (mode) {
    case AccountingMode::Traffic:
    case AccountingMode::Time:
    case AccountingMode::TrafficAndTime:
        return {WhyCommand::RaiseLimit, WhyCommand::AddCredit};
    case AccountingMode::Provider:
        return {WhyCommand::AddCredit};
    case AccountingMode::NoControl:
        break;
    }
    return {WhyCommand::Access};
}

// Of a group the access page lifts the administrator's block alone.
QList<WhyCommand> CommandsOfGroupBlock(const BlockFact &block)
{
    return block.reason == BlockReason::Administrator ? QList {WhyCommand::Unblock}
                                                      : CommandsLifting(block.mode);
}

// The console has no window for a group's times and protocols.
QList<WhyCommand> CommandsOf(const Fact &fact)
{
    switch (fact.kind) {
    case FactKind::Unmonitored:
        return {WhyCommand::Monitor};
    case FactKind::AdministratorBlock:
        return {WhyCommand::Unblock};
    case FactKind::GroupBlock:
        return CommandsOfGroupBlock(std::get<BlockFact>(fact.values));
    case FactKind::ServiceBlock:
        return CommandsLifting(std::get<BlockFact>(fact.values).mode);
    case FactKind::TrafficLimit:
    case FactKind::TimeLimit:
        return {WhyCommand::RaiseLimit, WhyCommand::AddCredit};
    case FactKind::PrePaid:
        return {WhyCommand::AddCredit};
    case FactKind::TimesOfWeek:
        return fact.ofGroup ? QList<WhyCommand> {} : QList {WhyCommand::Times};
    case FactKind::Login:
        return {WhyCommand::Access, WhyCommand::Logins};
    case FactKind::Protocols:
        return fact.ofGroup ? QList<WhyCommand> {} : QList {WhyCommand::Protocols};
    case FactKind::ShownAsAllowed:
    case FactKind::NothingWrong:
        break;
    }
    return {};
}

// What the list would show of such a decision.
AccessState PictureFor(const AccessFindings &findings)
{
    if (findings.verdict != Verdict::MayNotSend) {
        return AccessState::Allowed;
    }
    return findings.facts[findings.decidedBy].kind == FactKind::TimesOfWeek
        ? AccessState::OutsideAllowedTime
        : AccessState::Blocked;
}

} // namespace

QString WhyCommandText(WhyCommand command, bool ofGroup)
{
    switch (command) {
    case WhyCommand::Monitor:
        return Text::tr("Monitor...");
    case WhyCommand::Unblock:
        return ofGroup ? Text::tr("Unblock group...") : Text::tr("Unblock");
    case WhyCommand::Access:
        return Text::tr("Access...");
    case WhyCommand::RaiseLimit:
        return Text::tr("Raise limit...");
    case WhyCommand::AddCredit:
        return Text::tr("Add credit...");
    case WhyCommand::Times:
        return Text::tr("Times...");
    case WhyCommand::Logins:
        return Text::tr("Logins...");
    case WhyCommand::Protocols:
        break;
    }
    return Text::tr("Protocols...");
}

std::vector<WhyLine> LinesOf(const AccessFindings &findings, const WordsStyle &style)
{
    std::vector<WhyLine> lines;
    const Words words(style);
    for (const Fact &fact : findings.facts) {
        lines.push_back({.text = words.Of(fact),
                         .effect = fact.effect,
                         .decides = lines.size() == findings.decidedBy,
                         .ofGroup = fact.ofGroup,
                         .commands = CommandsOf(fact)});
    }
    return lines;
}

QString UsedText(const std::optional<AccountUse> &use, const WordsStyle &style)
{
    return use ? AmountWords(use->used, use->unit, style) : QString();
}

QString LeftText(const std::optional<AccountUse> &use, const WordsStyle &style)
{
    if (!use) {
        return {};
    }
    return use->left ? AmountWords(*use->left, use->unit, style) : Text::tr("without a bound");
}

QString VerdictText(Verdict verdict)
{
    switch (verdict) {
    case Verdict::MaySend:
        return Text::tr("Access is allowed");
    case Verdict::AfterLogin:
        return Text::tr("Access is allowed after login");
    case Verdict::MayNotSend:
        break;
    }
    return Text::tr("Access is denied");
}

QString StateText(AccessState state)
{
    switch (state) {
    case AccessState::Allowed:
        return Text::tr("Access is allowed");
    case AccessState::Blocked:
        return Text::tr("Access is blocked");
    case AccessState::OutsideAllowedTime:
        break;
    }
    return Text::tr("Outside the allowed time");
}

QString DifferenceText(const AccessFindings &findings)
{
    if (std::ranges::find(findings.facts, FactKind::Unmonitored, &Fact::kind)
        != findings.facts.end()) {
        return Text::tr("The users list does not show this user: it holds monitored users alone.");
    }
    if (findings.listed == PictureFor(findings)) {
        return {};
    }
    return Text::tr(
               "The users list shows \"%1\" instead: it goes by the marks in the user's row alone.")
        .arg(StateText(findings.listed));
}

QString PageDifferenceText(const AccessFindings &findings)
{
    if (findings.markedDenied == (findings.verdict == Verdict::MayNotSend)) {
        return {};
    }
    return Text::tr("The words above go by the user's block alone. With all that counts: %1.")
        .arg(VerdictText(findings.verdict));
}
