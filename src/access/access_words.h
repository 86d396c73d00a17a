// Why a user may send or not, in sentences, and the commands that would change it.
#pragma once

#include "access/access_facts.h"

#include <QList>
#include <QLocale>
#include <QString>

#include <vector>

// A command that changes what a fact rests on; of a group's fact it is the group's.
enum class WhyCommand {
    Monitor, // "Unmonitored users"
    Unblock, // of a group: its access page
    Access, // the access page
    RaiseLimit, // the limits page
    AddCredit, // the account
    Times, // the times of the week
    Logins, // the login manager
    Protocols, // the protocols page
};

// With its "..." where a window opens.
[[nodiscard]] QString WhyCommandText(WhyCommand command, bool ofGroup);

struct WhyLine
{
    QString text; // a sentence or several
    FactEffect effect = FactEffect::None;
    bool decides = false; // this fact is the one that decides
    bool ofGroup = false;
    QList<WhyCommand> commands;
};

// What the sentences need besides the facts.
struct WordsStyle
{
    QDate today;
    QLocale locale;
    double rate = 1; // currency per base unit of money
    QString currency;
};

// One line for each fact, in the facts' order.
[[nodiscard]] std::vector<WhyLine> LinesOf(const AccessFindings &findings, const WordsStyle &style);

// What was used, and what is left, as the facts say it; empty for no account.
[[nodiscard]] QString UsedText(const std::optional<AccountUse> &use, const WordsStyle &style);
[[nodiscard]] QString LeftText(const std::optional<AccountUse> &use, const WordsStyle &style);

// The decision in a few words.
[[nodiscard]] QString VerdictText(Verdict verdict);

// What the users list says by its picture.
[[nodiscard]] QString StateText(AccessState state);

// Says that the users list shows something else than the decision, and what, or that it does not show the
// user at all; empty when neither is so.
[[nodiscard]] QString DifferenceText(const AccessFindings &findings);

// The same of the access page, whose words go by the user's block alone.
[[nodiscard]] QString PageDifferenceText(const AccessFindings &findings);
