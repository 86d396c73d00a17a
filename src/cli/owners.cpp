#include "cli/owners.h"

#include "access/named_owners.h"
#include "cli/work.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct Kind
{
    Result<std::vector<FoundOwner>> (*find)(const QString &text);
    QString nobody;
    QString several;
};

const Kind kUser {UsersCalled,
                  u"There is no user \"%1\"."_s,
                  u"\"%1\" may be one of %2 users. Name one by its number:"_s};
const Kind kGroup {GroupsCalled,
                   u"There is no group \"%1\"."_s,
                   u"\"%1\" may be one of %2 groups. Name one by its number:"_s};

QString LineOf(const FoundOwner &owner)
{
    const QString line = u"\n  #%1  %2"_s.arg(QString::number(owner.number), owner.name);
    return owner.detail.isEmpty() ? line : line + u"  "_s + owner.detail;
}

Or<FoundOwner> FindOne(Work &work, const Kind &kind, const QString &text)
{
    const auto found = work.Read([find = kind.find, text] { return find(text); });
    if (!found) {
        return tl::unexpected(found.error());
    }
    if (found->empty()) {
        return StopWith(ExitStatus::Refused, kind.nobody.arg(text));
    }
    if (found->size() == 1) {
        return found->front();
    }
    QString candidates = kind.several.arg(text, QString::number(found->size()));
    for (const FoundOwner &owner : *found) {
        candidates += LineOf(owner);
    }
    return StopWith(ExitStatus::Refused, candidates);
}

} // namespace

Or<NamedUser> FindUser(Work &work, const QString &text)
{
    return FindOne(work, kUser, text).map([](const FoundOwner &owner) {
        return NamedUser {UserId {owner.number}, owner.name};
    });
}

Or<std::vector<NamedUser>> FindUsers(Work &work, const QStringList &texts)
{
    std::vector<NamedUser> users;
    for (const QString &text : texts) {
        const auto user = FindUser(work, text);
        if (!user) {
            return tl::unexpected(user.error());
        }
        if (std::ranges::find(users, *user) == users.end()) {
            users.push_back(*user);
        }
    }
    return users;
}

Or<NamedGroup> FindGroup(Work &work, const QString &text)
{
    return FindOne(work, kGroup, text).map([](const FoundOwner &owner) {
        return NamedGroup {owner.name, GroupId {owner.number}};
    });
}

Or<NamedOwner> FindOwner(Work &work, const Given &given)
{
    const auto group = given.Value(u"group"_s);
    if (group.has_value() == !given.Words().isEmpty()) {
        return WrongUse(u"Name either a user or, with --group, a group."_s);
    }
    if (group) {
        return FindGroup(work, *group).map([](const NamedGroup &found) {
            return NamedOwner {found.groupId, found.name};
        });
    }
    return FindUser(work, given.Word(0)).map([](const NamedUser &found) {
        return NamedOwner {found.userId, found.name};
    });
}

QString TextOf(const NamedOwner &owner)
{
    return (owner.owner.IsUser() ? u"User %1"_s : u"Group %1"_s).arg(owner.name);
}

QStringList NamesOf(const std::vector<NamedUser> &users)
{
    QStringList names;
    for (const NamedUser &user : users) {
        names << user.name;
    }
    return names;
}

std::vector<UserId> IdsOf(const std::vector<NamedUser> &users)
{
    std::vector<UserId> ids;
    ids.reserve(users.size());
    for (const NamedUser &user : users) {
        ids.push_back(user.userId);
    }
    return ids;
}

Cells UseCells(const std::optional<AccountUse> &use, const Currency &currency)
{
    if (!use) {
        return {{}, {}, {}};
    }
    const bool isMoney = use->unit == AccountUse::Unit::Money;
    const auto shown = [&](double amount) {
        return isMoney ? InCurrency(BaseUnits {amount}, currency.rate) : amount;
    };
    const QString unit =
        isMoney ? currency.name : (use->unit == AccountUse::Unit::Time ? u"h"_s : u"MB"_s);
    return {shown(use->used), use->left ? Cell(shown(*use->left)) : Cell(), unit};
}
