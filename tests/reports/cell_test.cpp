// How the values of a report are written, for people and for programs.
#include "reports/cell.h"

#include <QLocale>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(Cells, AreWrittenForPeopleAsTheLocaleWritesNumbers)
{
    LayoutColumn amount;
    amount.type = ColumnType::Amount;
    amount.decimals = 2;
    LayoutColumn whole;
    whole.type = ColumnType::Integer;
    const std::tuple<const char *, QString, QString> locales[] = {
        {"C", u"1,234,567.50"_s, u"-12,345"_s},
        {"en_US", u"1,234,567.50"_s, u"-12,345"_s},
        {"de_DE", u"1.234.567,50"_s, u"-12.345"_s},
        {"de_CH", u"1\u2019234\u2019567.50"_s, u"-12\u2019345"_s},
        {"fr_FR", u"1\u202f234\u202f567,50"_s, u"-12\u202f345"_s},
        {"C", u"1,234,567.50"_s, u"-12,345"_s},
    };
    const QLocale before;
    for (const auto &[name, amountText, wholeText] : locales) {
        QLocale::setDefault(QLocale(QString::fromLatin1(name)));
        EXPECT_EQ(DisplayText(amount, 1234567.5), amountText) << name;
        EXPECT_EQ(DisplayText(whole, qint64 {-12345}), wholeText) << name;
        EXPECT_EQ(DisplayText(whole, qint64 {-123}), u"-123"_s) << name;
        EXPECT_EQ(PlainText(amount, 1234567.5), u"1234567.50"_s) << name << ", for programs";
        EXPECT_EQ(PlainText(whole, qint64 {-12345}), u"-12345"_s) << name;
    }
    QLocale::setDefault(before);
}
