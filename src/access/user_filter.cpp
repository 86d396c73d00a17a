#include "access/user_filter.h"

#include <QCoreApplication>
#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(UserFilter)
};

// A word as it was typed: a key before a colon, if it is one of ours, and what follows.
struct TypedWord
{
    qsizetype from = 0;
    qsizetype end = 0; // behind its last character
    QString key; // in lower case, with its colon
    QString text; // without quotes
    bool quoted = false;
};

const QString kGroupKey = u"group:"_s;
const QString kModeKey = u"mode:"_s;
const QString kBlockedWord = u"blocked"_s;
const QString kOverWord = u"over"_s;

struct ModeWord
{
    QString word;
    QList<AccountingMode> modes;
};

const QList<ModeWord> &ModeWords()
{
    using enum AccountingMode;
    static const QList<ModeWord> words {{u"none"_s, {NoControl}},
                                        {u"corporate"_s, {Traffic, Time, TrafficAndTime}},
                                        {u"traffic"_s, {Traffic}},
                                        {u"time"_s, {Time}},
                                        {u"both"_s, {TrafficAndTime}},
                                        {u"provider"_s, {Provider}}};
    return words;
}

QStringList ModeNames()
{
    QStringList names;
    for (const ModeWord &mode : ModeWords()) {
        names << mode.word;
    }
    return names;
}

void TakeKey(TypedWord &word)
{
    for (const QString &key : {kGroupKey, kModeKey}) {
        if (word.key.isEmpty() && !word.quoted
            && word.text.compare(key, Qt::CaseInsensitive) == 0) {
            word.key = key;
            word.text.clear();
        }
    }
}

// The word that begins at `from`. A quote that is not closed reaches to the end: it is being typed.
TypedWord WordAt(const QString &typed, qsizetype from)
{
    TypedWord word {.from = from, .end = from, .key = {}, .text = {}};
    bool inQuotes = false;
    while (word.end < typed.size() && (inQuotes || !typed[word.end].isSpace())) {
        const QChar c = typed[word.end++];
        if (c == u'"') {
            inQuotes = !inQuotes;
            word.quoted = true;
        } else {
            word.text += c;
            TakeKey(word);
        }
    }
    return word;
}

QList<TypedWord> TypedWords(const QString &typed)
{
    QList<TypedWord> words;
    for (qsizetype at = 0; at < typed.size();) {
        if (typed[at].isSpace()) {
            ++at;
        } else {
            words << WordAt(typed, at);
            at = words.constLast().end;
        }
    }
    return words;
}

bool LooksLikeSpan(const QString &text)
{
    static const QRegularExpression shape(uR"(^[0-9]+\.[0-9.]*[/-][0-9./-]*$)"_s);
    return shape.match(text).hasMatch();
}

std::optional<AddressSpan> NetworkFrom(const QString &network, const QString &bits)
{
    const auto address = Ipv4From(network);
    bool isNumber = false;
    const int length = bits.toInt(&isNumber);
    if (!address || !isNumber || bits.size() > 2 || length < 0 || length > 32) {
        return std::nullopt;
    }
    const Ipv4 hosts = length == 0 ? ~Ipv4 {0} : (Ipv4 {1} << (32 - length)) - 1;
    return AddressSpan {*address & ~hosts, *address | hosts};
}

// Of "10.1.2.0/24" and "10.1.2.5-10.1.2.9".
std::optional<AddressSpan> SpanFrom(const QString &text)
{
    if (text.count(u'/') == 1) {
        return NetworkFrom(text.section(u'/', 0, 0), text.section(u'/', 1));
    }
    const auto first = Ipv4From(text.section(u'-', 0, 0));
    const auto last = Ipv4From(text.section(u'-', 1));
    if (!first || !last || *first > *last) {
        return std::nullopt;
    }
    return AddressSpan {*first, *last};
}

// Each of them takes a word into the filter, or says why it cannot.
using Problem = std::optional<QString>;

Problem TakeGroup(const TypedWord &word, UserFilter &filter)
{
    filter.groups << FilterGroup {word.text, word.quoted};
    return {};
}

Problem TakeMode(const TypedWord &word, UserFilter &filter)
{
    for (const ModeWord &mode : ModeWords()) {
        if (mode.word.compare(word.text, Qt::CaseInsensitive) == 0) {
            filter.modes << mode.modes;
            return {};
        }
    }
    return Words::tr("There is no mode \"%1\". The modes are: %2.")
        .arg(word.text, ModeNames().join(u", "_s));
}

Problem TakeSpan(const QString &text, UserFilter &filter)
{
    const auto span = SpanFrom(text);
    if (!span) {
        return Words::tr("\"%1\" is no range of addresses such as 10.1.2.0/24 or "
                         "10.1.2.5-10.1.2.9.")
            .arg(text);
    }
    filter.spans << *span;
    return {};
}

// The digits of a hardware address, where they may be some that were typed with blanks between.
bool AreDigits(const TypedWord &word)
{
    static const QRegularExpression shape(u"^[0-9A-Fa-f]{1,6}$"_s);
    return !word.quoted && shape.match(word.text).hasMatch();
}

// The next text, which continues a run or begins one: pairs, fours or halves of an address, the last of
// which may still be typed.
void TakeDigits(UserFilter &filter, const QString &text)
{
    constexpr qsizetype kWholeAddress = 12;
    if (!filter.runs.isEmpty()) {
        DigitRun &run = filter.runs.last();
        const qsizetype width = filter.texts[run.first].size();
        const bool isNext = run.first + run.count == filter.texts.size()
            && run.digits.size() == run.count * width && text.size() <= width;
        if (isNext && run.digits.size() + text.size() <= kWholeAddress) {
            ++run.count;
            run.digits += text.toUpper();
            return;
        }
    }
    if (text.size() % 2 == 0) {
        filter.runs << DigitRun {filter.texts.size(), 1, text.toUpper()};
    }
}

Problem TakePlain(const TypedWord &word, UserFilter &filter)
{
    const auto isWord = [&word](const QString &known) {
        return !word.quoted && word.text.compare(known, Qt::CaseInsensitive) == 0;
    };
    if (!word.quoted && LooksLikeSpan(word.text)) {
        return TakeSpan(word.text, filter);
    }
    if (isWord(kBlockedWord)) {
        filter.blocked = true;
    } else if (isWord(kOverWord)) {
        filter.usedUp = true;
    } else {
        if (AreDigits(word)) {
            TakeDigits(filter, word.text);
        }
        filter.texts << word.text;
    }
    return {};
}

Problem TakeWord(const TypedWord &word, UserFilter &filter)
{
    if (word.text.trimmed().isEmpty()) {
        return word.key.isEmpty() ? Words::tr("Nothing stands between the quotes.")
                                  : Words::tr("A name is missing behind \"%1\".").arg(word.key);
    }
    if (word.text.size() > kLongestFilterWord) {
        return Words::tr("A word has at most %1 characters.").arg(kLongestFilterWord);
    }
    if (word.key == kGroupKey) {
        return TakeGroup(word, filter);
    }
    return word.key == kModeKey ? TakeMode(word, filter) : TakePlain(word, filter);
}

QStringList Beginning(const QStringList &candidates, const QString &begin)
{
    QStringList matching;
    std::ranges::copy_if(candidates, std::back_inserter(matching), [&begin](const QString &word) {
        return word.startsWith(begin, Qt::CaseInsensitive);
    });
    return matching;
}

// In quotes, so that the name is meant as a whole. One with a quote in it cannot be typed so.
QStringList GroupCandidates(const QStringList &groupNames, const QString &begin)
{
    QStringList candidates;
    for (const QString &name : Beginning(groupNames, begin)) {
        if (!name.contains(u'"') && !name.trimmed().isEmpty()) {
            candidates << kGroupKey + u'"' + name + u'"';
        }
    }
    return candidates;
}

QStringList CandidatesFor(const TypedWord &word, const QStringList &groupNames)
{
    if (word.key == kGroupKey) {
        return GroupCandidates(groupNames, word.text);
    }
    QStringList candidates {kBlockedWord, kGroupKey, kModeKey, kOverWord};
    if (word.key == kModeKey) {
        candidates = ModeNames();
        std::ranges::for_each(candidates, [](QString &name) { name.prepend(kModeKey); });
    }
    return word.quoted ? QStringList() : Beginning(candidates, word.key + word.text);
}

} // namespace

tl::expected<UserFilter, QString> UserFilterFrom(const QString &typed)
{
    const QList<TypedWord> words = TypedWords(typed);
    if (words.size() > kMostFilterWords) {
        return tl::unexpected(
            Words::tr("At most %1 words can be looked for at once.").arg(kMostFilterWords));
    }
    UserFilter filter;
    for (const TypedWord &word : words) {
        if (const Problem problem = TakeWord(word, filter)) {
            return tl::unexpected(*problem);
        }
    }
    constexpr qsizetype kFewDigits = 4; // fewer stand in too many addresses
    filter.runs.removeIf(
        [](const DigitRun &run) { return run.count < 2 || run.digits.size() < kFewDigits; });
    return filter;
}

bool IsEmpty(const UserFilter &filter)
{
    return filter == UserFilter();
}

FilterCompletion CompletionAt(const QString &typed, qsizetype cursor, const QStringList &groupNames)
{
    for (const TypedWord &word : TypedWords(typed)) {
        if (word.from < cursor && cursor <= word.end) {
            const TypedWord begun = WordAt(typed.left(cursor), word.from);
            return {word.from, word.end - word.from, CandidatesFor(begun, groupNames)};
        }
    }
    return {.from = cursor, .length = 0, .candidates = {}};
}
