#include "reports/statement_files.h"

#include "reports/statement_rows.h"
#include "reports/wording.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

QString SafeName(const QString &name)
{
    constexpr qsizetype kMostLetters =
        50; // file systems count bytes, of which a letter takes four at most
    QString safe = name.left(kMostLetters);
    for (QChar &letter : safe) {
        const bool stays = letter.isLetterOrNumber() || u"-_."_s.contains(letter);
        letter = stays ? letter : QChar(u'_');
    }
    return safe;
}

QString NameOfUser(const ReportGroup &group)
{
    return std::get<QString>(group.keys[statement::UserName]);
}

// A table of the group alone; null, with the problem filled, when its rows cannot be read or stored.
ReportTablePtr OnlyGroup(const ReportTable &whole, const ReportGroup &group, ReportProblem &problem)
{
    const auto table = std::make_shared<ReportTable>();
    static_cast<ReportSubject &>(*table) = static_cast<const ReportSubject &>(whole);
    table->filter = FilterInWords({.effect = FilterEffect::Only, .names = {NameOfUser(group)}}, {});
    table->layout = whole.layout;
    table->made = whole.made;
    table->schemaVersion = whole.schemaVersion;
    table->reach = whole.reach;
    const auto isBefore = [](const LongRow &row, qint64 wanted) { return row.row < wanted; };
    for (auto row =
             std::lower_bound(whole.longRows.begin(), whole.longRows.end(), group.first, isBefore);
         row != whole.longRows.end() && row->row < group.first + group.count;
         ++row) {
        table->longRows.push_back({row->row - group.first, row->need});
    }
    const auto rows = whole.rows.Read(group.first, group.count);
    const bool isStored = static_cast<qint64>(rows.size()) == group.count
        && std::ranges::all_of(rows, [&](const CellRow &row) { return table->rows.Append(row); })
        && table->rows.Finish();
    if (!isStored) {
        const QString unstored = table->rows.Problem();
        problem = {ReportProblem::Kind::Output,
                   unstored.isEmpty() ? whole.rows.ReadProblem() : unstored};
        return nullptr;
    }
    table->groups.push_back({group.keys, 0, group.count, group.totals});
    table->totals = group.totals;
    table->allTotals = group.totals;
    table->allCount = group.count;
    return table;
}

} // namespace

QString StatementFileName(const QString &fileName, const QString &userName, qint64 userNumber)
{
    const QString ending = u'.' + QFileInfo(fileName).suffix();
    return u"%1-%2-%3%4"_s.arg(
        fileName.chopped(ending.size()), SafeName(userName), QString::number(userNumber), ending);
}

QStringList StatementFileNames(const ReportTable &table, const QString &fileName)
{
    QStringList names;
    for (const ReportGroup &group : table.groups) {
        const auto number = std::get<qint64>(group.keys[statement::UserNumber]);
        names += StatementFileName(fileName, NameOfUser(group), number);
    }
    return names;
}

bool WriteStatementFiles(const ReportTablePtr &table,
                         const QString &fileName,
                         RunControl &control,
                         ReportProblem &problem,
                         qsizetype &written,
                         const OutputOptions &options)
{
    written = 0;
    const QStringList names = StatementFileNames(*table, fileName);
    for (const QString &name : names) {
        const ReportTablePtr letter =
            OnlyGroup(*table, table->groups[static_cast<size_t>(written)], problem);
        if (!letter || !WriteReport(letter, name, control, problem, options)) {
            return false;
        }
        control.SetProgress(++written, names.size());
    }
    return true;
}
