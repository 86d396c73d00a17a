#include "reports/cell.h"

#include "base/text.h"

#include <QDate>
#include <QLocale>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

// Days come as 2026-11-21, 2026.11.21 or with a time behind; anything else stays as it is.
QString DayFrom(const QString &text, ColumnType type)
{
    static const QRegularExpression kShape(
        u"^\\s*(\\d{4})[-./](\\d{1,2})[-./](\\d{1,2})(?:[T ](\\d{2}:\\d{2}:\\d{2}))?"_s);
    const auto match = kShape.match(text);
    if (!match.hasMatch()) {
        return text;
    }
    const QString day = u"%1-%2-%3"_s.arg(match.captured(1),
                                          match.captured(2).rightJustified(2, u'0'),
                                          match.captured(3).rightJustified(2, u'0'));
    return type == ColumnType::Day || match.captured(4).isEmpty() ? day
                                                                  : day + u' ' + match.captured(4);
}

qint64 WholeNumberFrom(std::string_view text)
{
    if (!text.empty() && (text.front() == 't' || text.front() == 'T')) {
        return 1; // an engine's own truth value
    }
    return static_cast<qint64>(AmountFrom(text));
}

struct Marks
{
    QLocale locale;
    QString decimal;
    QString group;
};

// A report may write millions of numbers: the locale is asked once.
const Marks &MarksOfLocale()
{
    static thread_local Marks marks {QLocale::c(), u"."_s, u","_s};
    if (const QLocale locale; locale != marks.locale) {
        marks = {locale, locale.decimalPoint(), locale.groupSeparator()};
    }
    return marks;
}

QString Grouped(QString digits)
{
    const Marks &marks = MarksOfLocale();
    auto point = digits.indexOf(u'.');
    if (point < 0) {
        point = digits.size();
    } else {
        digits.replace(point, 1, marks.decimal);
    }
    const qsizetype first = digits.startsWith(u'-') ? 1 : 0;
    for (auto place = point - 3; place > first; place -= 3) {
        digits.insert(place, marks.group);
    }
    return digits;
}

QString AmountText(double value, int decimals)
{
    const QString text = QString::number(value, 'f', decimals);
    const bool minusNothing =
        text.startsWith(u'-') && text.count(u'0') + text.count(u'.') == text.size() - 1;
    return minusNothing ? text.sliced(1) : text;
}

} // namespace

Cell CellFrom(const LayoutColumn &column, std::string_view utf8)
{
    switch (column.type) {
    case ColumnType::Integer:
    case ColumnType::Count:
    case ColumnType::Rank:
    case ColumnType::Flag:
        return WholeNumberFrom(utf8);
    case ColumnType::Amount:
    case ColumnType::Share:
        return AmountFrom(utf8);
    case ColumnType::Day:
    case ColumnType::Time:
        return DayFrom(TextFromUtf8(utf8), column.type);
    case ColumnType::Text:
        break;
    }
    return TextFromUtf8(utf8);
}

double NumberIn(const Cell &cell)
{
    if (const auto *whole = std::get_if<qint64>(&cell)) {
        return static_cast<double>(*whole);
    }
    const auto *amount = std::get_if<double>(&cell);
    return amount != nullptr ? *amount : 0;
}

int Compare(const Cell &one, const Cell &other)
{
    const auto *text = std::get_if<QString>(&one);
    const auto *otherText = std::get_if<QString>(&other);
    if (text != nullptr && otherText != nullptr) {
        const int folded = text->compare(*otherText, Qt::CaseInsensitive);
        return folded != 0 ? folded : text->compare(*otherText);
    }
    if (one.index() != other.index() && (one.index() == 0 || other.index() == 0)) {
        return one.index() == 0 ? -1 : 1;
    }
    const double number = NumberIn(one);
    const double otherNumber = NumberIn(other);
    return number < otherNumber ? -1 : number > otherNumber ? 1 : 0;
}

QString PlainText(const LayoutColumn &column, const Cell &cell)
{
    if (const auto *text = std::get_if<QString>(&cell)) {
        return text->isEmpty() ? column.blank : *text;
    }
    if (const auto *amount = std::get_if<double>(&cell)) {
        return AmountText(*amount, column.decimals);
    }
    const auto *whole = std::get_if<qint64>(&cell);
    if (whole == nullptr) {
        return {};
    }
    return column.type == ColumnType::Flag ? column.words.at(*whole == 0 ? 0 : 1)
                                           : QString::number(*whole);
}

QString DisplayText(const LayoutColumn &column, const Cell &cell)
{
    const QString text = PlainText(column, cell);
    // What stands in place of a number, as before a sum, is a text.
    return column.IsNumber() && !std::holds_alternative<QString>(cell) ? Grouped(text) : text;
}

QString OneLine(QString text)
{
    for (QChar &c : text) {
        const bool breaks = c.category() == QChar::Other_Control || c == QChar::LineSeparator
            || c == QChar::ParagraphSeparator;
        c = breaks ? QChar(u' ') : c;
    }
    return text;
}

void Compute(const QList<LayoutColumn> &columns, CellRow &row)
{
    for (qsizetype place = 0; place < columns.size(); ++place) {
        const LayoutColumn &column = columns.at(place);
        if (!column.IsComputed()) {
            continue;
        }
        double value = 0;
        for (const int part : column.adds) {
            value += NumberIn(row[static_cast<size_t>(part)]);
        }
        for (const int part : column.less) {
            value -= NumberIn(row[static_cast<size_t>(part)]);
        }
        Cell &cell = row[static_cast<size_t>(place)];
        cell = column.type == ColumnType::Integer ? Cell(static_cast<qint64>(value)) : Cell(value);
    }
}
