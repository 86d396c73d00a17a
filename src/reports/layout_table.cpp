#include "reports/layout_table.h"

#include <QCoreApplication>

#include <algorithm>
#include <limits>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(LayoutTable)
};

// How many single letters must be put in, taken out or exchanged.
int Distance(const QString &from, const QString &to)
{
    std::vector<int> row(static_cast<size_t>(to.size()) + 1);
    for (size_t column = 0; column < row.size(); ++column) {
        row[column] = static_cast<int>(column);
    }
    for (qsizetype line = 0; line < from.size(); ++line) {
        int diagonal = row[0]++;
        for (size_t column = 1; column < row.size(); ++column) {
            const int same = from[line] == to[static_cast<qsizetype>(column) - 1] ? 0 : 1;
            const int best = std::min({row[column] + 1, row[column - 1] + 1, diagonal + same});
            diagonal = std::exchange(row[column], best);
        }
    }
    return row.back();
}

int LineOf(const toml::node &node)
{
    return static_cast<int>(node.source().begin.line);
}

QString FromToml(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace

QString NearestName(const QString &key, const QStringList &known)
{
    constexpr qsizetype kLongest = 64; // beyond it the nearest is anyone's guess
    const QString start = key.left(kLongest).toLower();
    return *std::min_element(
        known.begin(), known.end(), [&](const QString &one, const QString &other) {
            return Distance(start, one) < Distance(start, other);
        });
}

void LayoutTable::AllowOnly(const QStringList &known) const
{
    for (const auto &[key, value] : table) {
        const QString name = FromToml(key.str());
        if (!known.contains(name)) {
            Fail(static_cast<int>(key.source().begin.line),
                 Words::tr("unknown key \"%1\"; the nearest known one is \"%2\"")
                     .arg(name.left(80), NearestName(name, known)));
        }
    }
}

int LayoutTable::Line(const char *key) const
{
    const toml::node *node = table.get(key);
    return LineOf(node != nullptr ? *node : table);
}

QString LayoutTable::Text(const char *key, const QString &otherwise) const
{
    const toml::node *node = table.get(key);
    if (node == nullptr) {
        return otherwise;
    }
    const auto *text = node->as_string();
    if (text == nullptr) {
        Fail(LineOf(*node), Words::tr("\"%1\" is not a text").arg(QLatin1StringView(key)));
        return otherwise;
    }
    return FromToml(text->get());
}

bool LayoutTable::Flag(const char *key) const
{
    const toml::node *node = table.get(key);
    if (node == nullptr) {
        return false;
    }
    const auto *flag = node->as_boolean();
    if (flag == nullptr) {
        Fail(LineOf(*node),
             Words::tr("\"%1\" is neither true nor false").arg(QLatin1StringView(key)));
        return false;
    }
    return flag->get();
}

int LayoutTable::Integer(const char *key, int otherwise, int least, int most) const
{
    const double number = Number(key, otherwise, least, most);
    if (number != static_cast<int>(number)) {
        Fail(Line(key), Words::tr("\"%1\" is not a whole number").arg(QLatin1StringView(key)));
    }
    return static_cast<int>(number);
}

double LayoutTable::Number(const char *key, double otherwise, double least, double most) const
{
    const toml::node *node = table.get(key);
    if (node == nullptr) {
        return otherwise;
    }
    const auto number = node->value<double>();
    if (!number || !(*number >= least && *number <= most)) {
        Fail(LineOf(*node),
             Words::tr("\"%1\" is not a number from %2 to %3")
                 .arg(QLatin1StringView(key))
                 .arg(least)
                 .arg(most));
        return otherwise;
    }
    return *number;
}

QStringList LayoutTable::Texts(const char *key) const
{
    const toml::node *node = table.get(key);
    if (node == nullptr) {
        return {};
    }
    const auto *array = node->as_array();
    if (array == nullptr) {
        Fail(LineOf(*node), Words::tr("\"%1\" is not a list of texts").arg(QLatin1StringView(key)));
        return {};
    }
    QStringList texts;
    for (const auto &element : *array) {
        if (const auto *text = element.as_string()) {
            texts += FromToml(text->get());
        } else {
            Fail(
                LineOf(element),
                Words::tr("\"%1\" holds something that is not a text").arg(QLatin1StringView(key)));
        }
    }
    return texts;
}

QList<quint32> LayoutTable::Numbers(const char *key) const
{
    const toml::node *node = table.get(key);
    if (node == nullptr) {
        return {};
    }
    QList<quint32> numbers;
    const auto *array = node->as_array();
    for (size_t place = 0; array != nullptr && place < array->size(); ++place) {
        const auto number = array->at(place).value_exact<int64_t>().value_or(0);
        if (number < 1 || number > std::numeric_limits<quint32>::max()) {
            array = nullptr;
        } else {
            numbers += static_cast<quint32>(number);
        }
    }
    if (array == nullptr) {
        Fail(LineOf(*node),
             Words::tr("\"%1\" is not a list of numbers from 1").arg(QLatin1StringView(key)));
        return {};
    }
    return numbers;
}

int LayoutTable::Choice(const char *key, const QStringList &choices) const
{
    const QString text = Text(key, choices.front());
    const auto place = choices.indexOf(text);
    if (place < 0) {
        Fail(Line(key),
             Words::tr("\"%1\" cannot be \"%2\"; the nearest known is \"%3\"")
                 .arg(QLatin1StringView(key), text.left(80), NearestName(text, choices)));
        return 0;
    }
    return static_cast<int>(place);
}

void LayoutTable::Fail(int line, const QString &text) const
{
    if (error.text.isEmpty()) {
        error.line = line;
        error.text = text;
    }
}
