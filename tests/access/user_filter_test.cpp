// What is typed to find users, understood and completed.
#include "access/user_filter.h"

#include "support/core/print_text.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

Ipv4 Address(const char *dotted)
{
    return *Ipv4From(QString::fromLatin1(dotted));
}

} // namespace

TEST(UserFilters, WordsAreUnderstood)
{
    using enum AccountingMode;
    const std::pair<QString, UserFilter> cases[] = {
        {u""_s, {}},
        {u"  \t "_s, {}},
        {u"anna"_s, {.texts = {u"anna"_s}}},
        {u" anna  Berg "_s, {.texts = {u"anna"_s, u"Berg"_s}}},
        {u"\"Anna Berg\" pc"_s, {.texts = {u"Anna Berg"_s, u"pc"_s}}},
        {u"\"Anna B"_s, {.texts = {u"Anna B"_s}}}, // still being typed
        {u"100%_!"_s, {.texts = {u"100%_!"_s}}},
        {u"blocked"_s, {.blocked = true}},
        {u"OVER Blocked"_s, {.blocked = true, .usedUp = true}},
        {u"\"blocked\""_s, {.texts = {u"blocked"_s}}},
        {u"overhead"_s, {.texts = {u"overhead"_s}}},
        {u"group:sal"_s, {.groups = {{u"sal"_s, false}}}},
        {u"Group:\"Night shift\" x"_s, {.texts = {u"x"_s}, .groups = {{u"Night shift"_s, true}}}},
        {u"\"group:x\""_s, {.texts = {u"group:x"_s}}},
        {u"mode:traffic"_s, {.modes = {{Traffic}}}},
        {u"MODE:Corporate"_s, {.modes = {{Traffic, Time, TrafficAndTime}}}},
        {u"mode:none mode:both"_s, {.modes = {{NoControl}, {TrafficAndTime}}}},
        {u"10.1.2"_s, {.texts = {u"10.1.2"_s}}},
        {u"00:11:aa"_s, {.texts = {u"00:11:aa"_s}}},
        {u"00 11 aa"_s, {.texts = {u"00"_s, u"11"_s, u"aa"_s}, .runs = {{0, 3, u"0011AA"_s}}}},
        {u"pc 0011 a"_s, {.texts = {u"pc"_s, u"0011"_s, u"a"_s}, .runs = {{1, 2, u"0011A"_s}}}},
        {u"00 1 22"_s, {.texts = {u"00"_s, u"1"_s, u"22"_s}}},
        {u"\"00\" 11"_s, {.texts = {u"00"_s, u"11"_s}}},
        {u"00 11 mode:traffic 22"_s,
         {.texts = {u"00"_s, u"11"_s, u"22"_s},
          .runs = {{0, 3, u"001122"_s}},
          .modes = {{Traffic}}}},
        {u"pc-10"_s, {.texts = {u"pc-10"_s}}},
        {u"10-12"_s, {.texts = {u"10-12"_s}}},
        {u"10.1.2.0/24"_s, {.spans = {{Address("10.1.2.0"), Address("10.1.2.255")}}}},
        {u"10.1.2.77/30"_s, {.spans = {{Address("10.1.2.76"), Address("10.1.2.79")}}}},
        {u"10.1.2.3/32"_s, {.spans = {{Address("10.1.2.3"), Address("10.1.2.3")}}}},
        {u"10.1.2.3/0"_s, {.spans = {{Address("0.0.0.0"), Address("255.255.255.255")}}}},
        {u"10.1.2.5-10.1.2.9"_s, {.spans = {{Address("10.1.2.5"), Address("10.1.2.9")}}}},
    };
    for (const auto &[typed, filter] : cases) {
        const auto understood = UserFilterFrom(typed);
        ASSERT_TRUE(understood.has_value()) << qPrintable(typed);
        EXPECT_EQ(*understood, filter) << qPrintable(typed);
        EXPECT_EQ(IsEmpty(*understood), filter == UserFilter()) << qPrintable(typed);
    }
}

// A text that is not understood must never find everybody.
TEST(UserFilters, WhatIsNotUnderstoodIsSaid)
{
    const QString noSpan = u" is no range of addresses such as 10.1.2.0/24 or 10.1.2.5-10.1.2.9."_s;
    const std::pair<QString, QString> cases[] = {
        {u"\"\""_s, u"Nothing stands between the quotes."_s},
        {u"anna \" "_s, u"Nothing stands between the quotes."_s},
        {u"group:"_s, u"A name is missing behind \"group:\"."_s},
        {u"group:\"\""_s, u"A name is missing behind \"group:\"."_s},
        {u"anna Mode:"_s, u"A name is missing behind \"mode:\"."_s},
        {u"mode:fast"_s,
         u"There is no mode \"fast\". The modes are: none, corporate, traffic, time, both, provider."_s},
        {u"10.1.2.0/33"_s, u"\"10.1.2.0/33\""_s + noSpan},
        {u"10.1.2.0/"_s, u"\"10.1.2.0/\""_s + noSpan},
        {u"10.1.2/24"_s, u"\"10.1.2/24\""_s + noSpan},
        {u"10.1.2.0/24/8"_s, u"\"10.1.2.0/24/8\""_s + noSpan},
        {u"10.1.2.256/24"_s, u"\"10.1.2.256/24\""_s + noSpan},
        {u"10.1.2.9-10.1.2.5"_s, u"\"10.1.2.9-10.1.2.5\""_s + noSpan},
        {u"10.1.2.5-9"_s, u"\"10.1.2.5-9\""_s + noSpan},
        {u"a b c d e f g"_s, u"At most 6 words can be looked for at once."_s},
        {QString(61, u'a'), u"A word has at most 60 characters."_s},
    };
    for (const auto &[typed, message] : cases) {
        const auto understood = UserFilterFrom(typed);
        ASSERT_FALSE(understood.has_value()) << qPrintable(typed);
        EXPECT_EQ(understood.error(), message) << qPrintable(typed);
    }
    EXPECT_TRUE(UserFilterFrom(QString(60, u'a')).has_value());
    EXPECT_TRUE(UserFilterFrom(u"a b c d e f"_s).has_value());
}

TEST(UserFilters, TheWordAtTheCursorIsCompleted)
{
    struct Case
    {
        QString typed; // the cursor stands at |
        QStringList candidates;
        qsizetype from = 0;
        qsizetype length = 0;
    };
    const Case cases[] = {
        {u"|"_s, {}, 0, 0},
        {u"b|"_s, {u"blocked"_s}, 0, 1},
        {u"anna O|"_s, {u"over"_s}, 5, 1},
        {u"|anna"_s, {}, 0, 0},
        {u"g|roup anna"_s, {u"group:"_s}, 0, 5},
        {u"mode:|"_s,
         {u"mode:none"_s,
          u"mode:corporate"_s,
          u"mode:traffic"_s,
          u"mode:time"_s,
          u"mode:both"_s,
          u"mode:provider"_s},
         0,
         5},
        {u"x mode:t|"_s, {u"mode:traffic"_s, u"mode:time"_s}, 2, 6},
        {u"group:|"_s, {u"group:\"Sales\""_s, u"group:\"Night shift\""_s}, 0, 6},
        {u"GROUP:ni|"_s, {u"group:\"Night shift\""_s}, 0, 8},
        {u"group:\"night s|\" x"_s, {u"group:\"Night shift\""_s}, 0, 15},
        {u"\"b|"_s, {}, 0, 2},
        {u"zzz|"_s, {}, 0, 3},
    };
    for (const Case &one : cases) {
        QString typed = one.typed;
        const qsizetype cursor = typed.indexOf(u'|');
        typed.remove(cursor, 1);
        const auto found =
            CompletionAt(typed, cursor, {u"Sales"_s, u"Night shift"_s, u"a \"b\" c"_s});
        EXPECT_EQ(found.candidates, one.candidates) << qPrintable(one.typed);
        EXPECT_EQ(found.from, one.from) << qPrintable(one.typed);
        EXPECT_EQ(found.length, one.length) << qPrintable(one.typed);
    }
}
