#include "base/day.h"
#include "base/ipv4.h"
#include "base/names_line.h"
#include "base/text.h"
#include "base/wait.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(Text, NumbersAreReadTheCWay)
{
    const std::pair<const char *, qint32> integers[] = {
        {"", 0},
        {"abc", 0},
        {"12abc", 12},
        {" \t7", 7},
        {"+5", 5},
        {"-3", -3},
        {"+-3", 0},
        {"4294967295", -1},
        {"1.9", 1},
        {"0x10", 0},
    };
    for (const auto &[text, value] : integers) {
        EXPECT_EQ(IntegerFrom(std::string_view(text)), value) << text;
    }
    const std::pair<const char *, double> amounts[] = {
        {"", 0.0}, {"2.50", 2.5}, {"-0.125x", -0.125}, {"1e3", 1000.0}, {"2,5", 2.0}};
    for (const auto &[text, value] : amounts) {
        EXPECT_DOUBLE_EQ(AmountFrom(std::string_view(text)), value) << text;
    }
}

TEST(Text, ACutCharacterIsLeftOut)
{
    const QString text = u"a\u00e9\u20ac\U0001F600"_s; // 1, 2, 3 and 4 bytes
    const QByteArray whole = text.toUtf8();
    for (qsizetype size = 0; size <= whole.size(); ++size) {
        const QString read = TextFromUtf8({whole.constData(), static_cast<size_t>(size)});
        EXPECT_TRUE(text.startsWith(read)) << size;
        EXPECT_FALSE(read.contains(QChar::ReplacementCharacter)) << size;
        EXPECT_EQ(Utf8Cut(text, size), read.toUtf8()) << size;
    }
    EXPECT_EQ(TextFromUtf8(whole.toStdString()), text);
    EXPECT_TRUE(TextFromUtf8("a\xffz").isValidUtf16());
}

TEST(NameKey, IsOneForWhatCountsAsOneName)
{
    const std::pair<QString, QString> same[] = {
        {u"Office"_s, u"  oFFICE\t"_s},
        {u"B\u00fcro"_s, u"BU\u0308RO"_s}, // composed and not
        {u"Stra\u00dfe"_s, u"STRASSE"_s},
        {u"\u03a3\u03af\u03c3\u03c5\u03c6\u03bf\u03c2"_s,
         u"\u03c3\u03af\u03c3\u03c5\u03c6\u03bf\u03c3"_s},
        {u"\u00a0Office\u2003"_s, u"office"_s},
        {QString(), u" \t\n"_s},
    };
    for (const auto &[one, other] : same) {
        EXPECT_EQ(NameKey(one), NameKey(other));
    }
    const std::pair<QString, QString> different[] = {
        {u"Buro"_s, u"B\u00fcro"_s},
        {u"Off ice"_s, u"Office"_s},
        {u"Office"_s, u"Offices"_s},
    };
    for (const auto &[one, other] : different) {
        EXPECT_NE(NameKey(one), NameKey(other));
    }
}

TEST(Day, LastWeekAndLastMonthAreSimpleArithmetic)
{
    struct Case
    {
        QDate today;
        Day week;
        Day month;
        QDate weekExisting;
    };
    const Case cases[] = {
        {{2026, 3, 3}, {2026, 2, 27}, {2026, 2, 3}, {2026, 2, 27}},
        {{2026, 3, 6}, {2026, 2, 30}, {2026, 2, 6}, {2026, 3, 1}},
        {{2026, 1, 1}, {2026, 12, 25}, {2026, 12, 1}, {2026, 12, 25}},
        {{2026, 5, 31}, {2026, 5, 25}, {2026, 4, 31}, {2026, 5, 25}},
        {{2028, 3, 5}, {2028, 2, 29}, {2028, 2, 5}, {2028, 2, 29}},
        {{2026, 11, 7}, {2026, 11, 1}, {2026, 10, 7}, {2026, 11, 1}},
    };
    for (const auto &[today, week, month, weekExisting] : cases) {
        EXPECT_EQ(FirstDayOfLastWeek(today), week) << qPrintable(today.toString());
        EXPECT_EQ(FirstDayOfLastMonth(today), month) << qPrintable(today.toString());
        EXPECT_EQ(ExistingDate(week), weekExisting) << qPrintable(today.toString());
    }
    EXPECT_EQ(ExistingDate({2026, 4, 31}), QDate(2026, 5, 1));
}

TEST(Day, IsReadFromTheBeginningOfAText)
{
    const QDate day(2026, 2, 28);
    for (const QString &text : {u"2026-02-28"_s, u"2026-02-28 10:11:12"_s}) {
        EXPECT_EQ(DateIn(text, u'-'), day) << qPrintable(text);
    }
    EXPECT_EQ(DateIn(u"2026.02.28", u'.'), day);
    for (const QString &text : {u""_s,
                                u"2026-02-2"_s,
                                u"2026-02-30"_s,
                                u"2026-13-01"_s,
                                u"0000-01-01"_s,
                                u"-026-02-28"_s,
                                u"2026-2 -28"_s,
                                u"2026-02-\u0662\u0668"_s,
                                u"2026.02.28"_s}) {
        EXPECT_FALSE(DateIn(text, u'-').isValid()) << qPrintable(text);
    }
}

TEST(Day, TodayCanBeAnotherDay)
{
    {
        const TodayOverride other({2026, 1, 31});
        EXPECT_EQ(Today(), QDate(2026, 1, 31));
    }
    EXPECT_EQ(Today(), QDate::currentDate());
}

TEST(Wait, CanBeReplaced)
{
    int waited = 0;
    const WaitOverride instant([&](int milliseconds) { waited += milliseconds; });
    PacedWait(1300);
    EXPECT_EQ(waited, 1300);
}

TEST(Ipv4, OnlyWholeDottedTextsAreAddresses)
{
    EXPECT_EQ(Ipv4From(u"192.168.1.0"_s), Ipv4 {0xC0A80100});
    EXPECT_EQ(DottedText(0xC0A80100), u"192.168.1.0"_s);
    EXPECT_EQ(DottedText(0xFFFFFFFF), u"255.255.255.255"_s);
    for (const auto *text : {"",
                             "1.2.3",
                             "1.2.3.256",
                             "1.2.3.4.5",
                             "1.2..4",
                             "a.b.c.d",
                             " 1.2.3.4",
                             "1.2.3.",
                             ".1.2.3",
                             "1.2.3.0004",
                             "1.2.3.4\n"}) {
        EXPECT_FALSE(Ipv4From(QString::fromLatin1(text))) << text;
    }
}

TEST(NamesLine, NamesFiveAndCountsTheRest)
{
    QStringList many;
    for (int number = 1; number <= 17; ++number) {
        many << u"u%1"_s.arg(number);
    }
    const std::pair<QStringList, QString> cases[] = {
        {{}, {}},
        {{u"anna"_s}, u"anna"_s},
        {many.first(5), u"u1, u2, u3, u4, u5"_s},
        {many.first(6), u"u1, u2, u3, u4, u5 and 1 more"_s},
        {many, u"u1, u2, u3, u4, u5 and 12 more"_s},
        {{u"%1"_s, u"%2"_s, u"c"_s, u"d"_s, u"e"_s, u"f"_s}, u"%1, %2, c, d, e and 1 more"_s},
        {{QString(), u" \t"_s}, u"(no name), (no name)"_s},
        {{u"a\nb"_s}, u"a b"_s},
        {{QString(40, u'x')}, QString(40, u'x')},
        {{QString(41, u'x')}, QString(39, u'x') + u'\u2026'},
    };
    for (const auto &[names, line] : cases) {
        EXPECT_EQ(NamesLine(names), line);
    }
    EXPECT_EQ(NamesLine(many.first(5), 17), u"u1, u2, u3, u4, u5 and 12 more"_s);
}
