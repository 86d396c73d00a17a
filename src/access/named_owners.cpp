#include "access/named_owners.h"

#include "base/ipv4.h"
#include "base/mac_address.h"
#include "base/text.h"
#include "db/query.h"

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

FoundOwner OwnerIn(const Row &row)
{
    return {row.Integer(1), row.Text(2), row.Text(3)};
}

// The number of "#12" or "id:12".
std::optional<quint32> NumberIn(const QString &text)
{
    for (const QString &mark : {u"#"_s, u"id:"_s}) {
        bool isNumber = false;
        const quint32 number = text.mid(mark.size()).toUInt(&isNumber);
        if (text.startsWith(mark) && isNumber) {
            return number;
        }
    }
    return std::nullopt;
}

Result<std::vector<FoundOwner>> UserOfNumber(quint32 number)
{
    return ReadAll(
        "SELECT user_id, username, ip_addr FROM users WHERE user_id = (?)", OwnerIn, number);
}

// Of several reads the first failure, or all that they found.
class Gathering
{
public:
    void Add(Result<std::vector<FoundOwner>> read)
    {
        if (whole && read) {
            whole->insert(whole->end(), read->begin(), read->end());
        } else if (whole) {
            whole = std::move(read);
        }
    }

    [[nodiscard]] Result<std::vector<FoundOwner>> Sorted()
    {
        if (whole) {
            std::ranges::sort(*whole, {}, &FoundOwner::number);
            whole->erase(std::unique(whole->begin(), whole->end()), whole->end());
        }
        return std::move(whole);
    }

private:
    Result<std::vector<FoundOwner>> whole;
};

// A name with letters beyond a to z in any letter case, which not every engine knows them in.
Result<std::vector<FoundOwner>> UsersNamedInAnyCase(const QString &text)
{
    QString pattern;
    for (const char32_t letter : text.toUcs4()) {
        const bool isPlain = letter < 0x80;
        pattern += isPlain ? QString(QChar(static_cast<char16_t>(letter))) : u"_"_s;
        if (pattern.endsWith(u'%') || pattern.endsWith(u'!') || letter == U'_') {
            pattern.insert(pattern.size() - 1, u'!');
        }
    }
    return ReadAll(
               "SELECT user_id, username, ip_addr FROM users WHERE CASE_FOLDED (username PLAIN_CASE) HOLDS "
               "CASE_FOLDED ((?) PLAIN_CASE) PLAIN_CASE ESCAPE '!'",
               OwnerIn,
               pattern)
        .map([&text](std::vector<FoundOwner> users) {
            std::erase_if(users, [key = NameKey(text)](const FoundOwner &user) {
                return NameKey(user.name) != key;
            });
            return users;
        });
}

bool IsPlain(const QString &text)
{
    return std::ranges::all_of(text, [](QChar c) { return c.unicode() < 0x80; });
}

} // namespace

Result<std::vector<FoundOwner>> UsersCalled(const QString &text)
{
    Gathering found;
    if (const auto number = NumberIn(text)) {
        found.Add(UserOfNumber(*number)); // who may be another one than whoever is called so
    }
    if (!IsPlain(text)) {
        found.Add(UsersNamedInAnyCase(text));
    }
    found.Add(ReadAll(
        "SELECT user_id, username, ip_addr FROM users WHERE username = (?)", OwnerIn, text));
    if (Ipv4From(text)) {
        found.Add(ReadAll(
            "SELECT user_id, username, ip_addr FROM users WHERE ip_addr = (?)", OwnerIn, text));
    }
    if (const auto mac = MacFrom(text)) {
        found.Add(
            ReadAll("SELECT user_id, username, ip_addr FROM users WHERE mac_addr IN ((?), (?))",
                    OwnerIn,
                    *mac,
                    mac->toLower()));
    }
    return found.Sorted();
}

Result<std::vector<FoundOwner>> GroupsCalled(const QString &text)
{
    const auto number = NumberIn(text);
    return ReadAll("SELECT group_id, name, descrip FROM groups ORDER BY group_id", OwnerIn)
        .map([&](std::vector<FoundOwner> groups) {
            std::erase_if(groups, [&](const FoundOwner &group) {
                return group.number != number && NameKey(group.name) != NameKey(text);
            });
            return groups;
        });
}
