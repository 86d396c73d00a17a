#include "exchange/import_plan.h"

#include "accounts/currency.h"
#include "admin/exclusions.h"
#include "admin/local_addresses.h"
#include "admin/login_table.h"
#include "base/text.h"
#include "exchange/claims.h"
#include "exchange/row_planner.h"
#include "exchange/user_cells.h"

#include <QCoreApplication>
#include <QLocale>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(ImportPlan)
};

bool ChangesSomething(const ImportRow &row)
{
    return row.after != row.before || row.digest || row.credit;
}

void SetState(ImportRow &row)
{
    if (!row.reason.isEmpty()) {
        row.state = ImportState::Refused;
    } else if (!row.userId.IsSet()) {
        row.state = ImportState::New;
    } else {
        row.state = ChangesSomething(row) ? ImportState::Changed : ImportState::Unchanged;
    }
}

// As many logins as the login manager shows.
void RefuseLoginsWithoutRoom(std::vector<ImportRow> &rows, qsizetype stored)
{
    auto count = static_cast<size_t>(stored);
    for (ImportRow &row : rows) {
        if (row.reason.isEmpty() && row.isNewLogin && ++count > LoginTable::kCapacity) {
            row.reason =
                Words::tr("There are %1 logins, and no more are taken").arg(LoginTable::kCapacity);
        }
    }
}

QStringList GroupsToMake(const std::vector<ImportRow> &rows)
{
    QStringList names;
    QSet<QString> keys;
    for (const ImportRow &row : rows) {
        const QString key = NameKey(row.after.groupName);
        const bool isMade = row.IsWritten() && !key.isEmpty() && !row.after.groupId.IsSet();
        if (isMade && !keys.contains(key)) {
            keys.insert(key);
            names << row.after.groupName;
        }
    }
    return names;
}

QString CreditWords(const ImportRow &row)
{
    const QString figure =
        QLocale().toString(row.creditFigure, 'f', QLocale::FloatingPointShortest);
    switch (row.credit->Kind()) {
    case CreditKind::Traffic:
        return Words::tr("%1 megabytes").arg(figure);
    case CreditKind::Money:
        return Words::tr("%1 of money").arg(figure);
    default:
        return Words::tr("unlimited");
    }
}

} // namespace

tl::expected<ImportContext, QString> ReadImportContext(const ConfigStore &settings)
{
    const auto profile = settings.ReadKey(ConfigKeyId::DefProfile);
    const auto addresses = ReadAddresses(settings);
    if (!profile || !addresses) {
        return tl::unexpected(TextOf(profile ? addresses.error() : profile.error()));
    }
    ImportContext context;
    context.profile = LoadDefaultProfile(*profile, KeyReader::kBufferBytes);
    const QList<Ipv4> excluded = LoadExclusions(*addresses, kMaxWizardExclusions);
    context.excluded = {excluded.begin(), excluded.end()};
    context.rate = CurrentRate(settings);
    return context;
}

qsizetype ImportPlan::Count(ImportState state) const
{
    return std::ranges::count(rows, state, &ImportRow::state);
}

bool ImportPlan::ChangesAnything() const
{
    return std::ranges::any_of(rows, &ImportRow::IsWritten);
}

ImportPlan
PlanImport(const ImportTable &table, const StoredUsers &stored, const ImportContext &context)
{
    ImportPlan plan;
    plan.rows.reserve(table.lines.size());
    const RowPlanner planner(table, stored, context);
    for (const ImportLine &line : table.lines) {
        plan.rows.push_back(planner.Plan(line));
    }
    RefuseLoginsWithoutRoom(plan.rows, stored.logins.size());
    RefuseDoubleClaims(plan.rows, stored);
    std::ranges::for_each(plan.rows, SetState);
    plan.newGroups = GroupsToMake(plan.rows);
    return plan;
}

QList<ImportChange> ChangesOf(const ImportRow &row)
{
    QList<ImportChange> changes;
    for (size_t place = 0; place < kImportColumns; ++place) {
        const auto column = static_cast<ImportColumn>(place);
        if (column == ImportColumn::CreateGroup) {
            continue;
        }
        const QString before = row.userId.IsSet() ? ShownValue(column, row.before) : QString();
        const QString after = ShownValue(column, row.after);
        if (row.userId.IsSet() ? CellOf(column, row.before) != CellOf(column, row.after)
                               : !after.isEmpty()) {
            changes.append({column, before, after});
        } else if (column == ImportColumn::Password && row.digest) {
            changes.append({column, {}, Words::tr("a new one")});
        } else if (column == ImportColumn::TrafficCredit && row.credit) {
            changes.append({row.credit->Kind() == CreditKind::Money ? ImportColumn::MoneyCredit
                                                                    : ImportColumn::TrafficCredit,
                            {},
                            CreditWords(row)});
        } else if (column == ImportColumn::CreditExpires && row.credit
                   && !row.credit->neverExpires) {
            changes.append({column, {}, QString(row.credit->expiryDay).replace(u'.', u'-')});
        }
    }
    return changes;
}

QString TextOf(ImportState state)
{
    switch (state) {
    case ImportState::New:
        return Words::tr("new");
    case ImportState::Changed:
        return Words::tr("changed");
    case ImportState::Unchanged:
        return Words::tr("unchanged");
    case ImportState::Refused:
        break;
    }
    return Words::tr("refused");
}

QString WordsFor(const ImportRow &row)
{
    if (row.state == ImportState::Refused) {
        return row.reason;
    }
    QStringList words;
    for (const auto &[column, before, after] : ChangesOf(row)) {
        const QString value = after.isEmpty() ? Words::tr("none") : after;
        if (!row.userId.IsSet() || column == ImportColumn::Password
            || column == ImportColumn::TrafficCredit || column == ImportColumn::MoneyCredit
            || column == ImportColumn::CreditExpires) {
            words << Words::tr("%1: %2", "column, value").arg(LabelOf(column), value);
        } else {
            words << Words::tr("%1: %2 \u2192 %3", "column, old value, new value")
                         .arg(
                             LabelOf(column), before.isEmpty() ? Words::tr("none") : before, value);
        }
    }
    return words.join(u"; "_s);
}
