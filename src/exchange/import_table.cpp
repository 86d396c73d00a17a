#include "exchange/import_table.h"

#include "reports/csv_text.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QSet>

#include <algorithm>
#include <csv.h>
#include <functional>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(ImportTable)
};

constexpr qint64 kMostBytes = 256LL * 1024 * 1024;

struct CsvRow
{
    int line = 0;
    QStringList cells;
};

// Reads UTF-8 row by row, each handed to `take`, which says whether more are wanted.
class CsvReader
{
public:
    CsvReader(char separator, std::function<bool(CsvRow &&)> takeRow) : take(std::move(takeRow))
    {
        csv_init(&parser, CSV_STRICT | CSV_STRICT_FINI);
        csv_set_delim(&parser, static_cast<unsigned char>(separator));
    }
    ~CsvReader() { csv_free(&parser); }
    CsvReader(const CsvReader &) = delete;
    CsvReader &operator=(const CsvReader &) = delete;

    // Nothing when all was read or enough of it; else in words what is wrong.
    std::optional<QString> Read(const QByteArray &text)
    {
        qsizetype done = 0;
        while (done < text.size() && wantsMore) {
            const qsizetype end = text.indexOf('\n', done);
            const qsizetype size = (end < 0 ? text.size() : end + 1) - done;
            const size_t read = csv_parse(&parser,
                                          text.constData() + done,
                                          static_cast<size_t>(size),
                                          &AddCell,
                                          &AddRow,
                                          this);
            if (read != static_cast<size_t>(size)) {
                return Fault();
            }
            const bool isBlank = QByteArrayView(text).sliced(done, size).trimmed().isEmpty();
            if (isBlank && rowLine == line) { // no row begins there
                ++rowLine;
            }
            done += size;
            ++line;
        }
        if (wantsMore && csv_fini(&parser, &AddCell, &AddRow, this) != 0) {
            return Fault();
        }
        return std::nullopt;
    }

private:
    static void AddCell(void *bytes, size_t size, void *reader)
    {
        auto &self = *static_cast<CsvReader *>(reader);
        if (self.row.cells.isEmpty()) {
            self.row.line = self.rowLine;
        }
        self.row.cells << QString::fromUtf8(static_cast<const char *>(bytes),
                                            static_cast<qsizetype>(size));
    }

    static void AddRow(int, void *reader)
    {
        auto &self = *static_cast<CsvReader *>(reader);
        self.rowLine = self.line + 1;
        if (self.wantsMore) {
            self.wantsMore = self.take(std::move(self.row));
        }
        self.row = {};
    }

    [[nodiscard]] QString Fault()
    {
        return csv_error(&parser) == CSV_EPARSE
            ? Words::tr("In the row that begins on line %1 a quotation mark stands where none may. "
                        "A cell with quotation marks stands in quotation marks, and those within "
                        "are doubled")
                  .arg(rowLine)
            : Words::tr("The file is too large for the memory");
    }

    csv_parser parser {};
    std::function<bool(CsvRow &&)> take;
    CsvRow row;
    int line = 1; // that is being read
    int rowLine = 1; // where the row at hand begins
    bool wantsMore = true;
};

std::optional<CsvRow> FirstRow(const QByteArray &text, char separator)
{
    std::optional<CsvRow> first;
    CsvReader reader(separator, [&first](CsvRow &&row) {
        first = std::move(row);
        return false;
    });
    (void)reader.Read(text);
    return first;
}

qsizetype KnownIn(const QStringList &headings)
{
    return std::ranges::count_if(
        headings, [](const QString &heading) { return ColumnCalled(heading).has_value(); });
}

// The comma where none makes more headings known.
char SeparatorOf(const QByteArray &text)
{
    char best = ',';
    qsizetype most = 0;
    for (const char separator : {',', ';', '\t'}) {
        const auto first = FirstRow(text, separator);
        const qsizetype known = first ? KnownIn(first->cells) : 0;
        if (known > most) {
            best = separator;
            most = known;
        }
    }
    return best;
}

// The places of the file's cells in a line; nothing for those of unknown headings.
using Places = std::vector<std::optional<ImportColumn>>;

tl::expected<Places, QString> PlacesOf(const QStringList &headings, ImportTable &table)
{
    Places places;
    for (const QString &heading : headings) {
        const auto column = ColumnCalled(TextOfCsvField(heading));
        if (column && table.Has(*column)) {
            return tl::unexpected(
                Words::tr("Two columns are called \"%1\"").arg(HeadingOf(*column)));
        }
        if (column) {
            table.columns.set(static_cast<size_t>(*column));
        } else if (!heading.trimmed().isEmpty()) {
            table.unknownHeadings << heading;
        }
        places.push_back(column);
    }
    if (!table.Has(ImportColumn::UserName)) {
        return tl::unexpected(
            Words::tr("The first line has no column called \"%1\": it must name the columns")
                .arg(HeadingOf(ImportColumn::UserName)));
    }
    return places;
}

bool IsBlank(const QStringList &cells)
{
    return std::ranges::all_of(cells, [](const QString &cell) { return cell.trimmed().isEmpty(); });
}

ImportLine LineOf(const CsvRow &row, const Places &places)
{
    ImportLine line;
    line.number = row.line;
    for (qsizetype i = 0; i < row.cells.size(); ++i) {
        const size_t place = static_cast<size_t>(i);
        if (place < places.size() && places[place]) {
            line.cells[static_cast<size_t>(*places[place])] = TextOfCsvField(row.cells[i]);
        }
    }
    const auto expected = static_cast<qsizetype>(places.size());
    const bool isLonger = row.cells.size() > expected && !IsBlank(row.cells.sliced(expected));
    if (row.cells.size() < expected || isLonger) {
        line.fault = Words::tr("The row has %1 cells, and there are %2 columns")
                         .arg(row.cells.size())
                         .arg(expected);
    }
    return line;
}

} // namespace

tl::expected<ImportTable, QString> ReadImportTable(const QByteArray &bytes)
{
    const auto decoded = DecodeText(bytes);
    if (!decoded) {
        return tl::unexpected(decoded.error());
    }
    QByteArray text = decoded->text.toUtf8();
    if (!text.contains('\n')) { // older systems end lines so
        text.replace('\r', '\n');
    }
    ImportTable table;
    table.encoding = decoded->encoding;
    const char separator = SeparatorOf(text);
    table.separator = QLatin1Char(separator);
    std::optional<tl::expected<Places, QString>> places;
    CsvReader reader(separator, [&](CsvRow &&row) {
        if (!places) {
            places = PlacesOf(row.cells, table);
        } else if (!IsBlank(row.cells)) {
            table.lines.push_back(LineOf(row, **places));
        }
        return places->has_value();
    });
    if (const auto fault = reader.Read(text)) {
        return tl::unexpected(*fault);
    }
    if (!places) {
        return tl::unexpected(Words::tr("The file is empty"));
    }
    return places->map([&table](const Places &) { return std::move(table); });
}

tl::expected<ImportTable, QString> ReadImportFile(const QString &fileName)
{
    QFile file(fileName);
    if (QFileInfo(fileName).exists() && !QFileInfo(fileName).isFile()) {
        return tl::unexpected(Words::tr("%1 is not a file").arg(fileName));
    }
    if (!file.open(QIODevice::ReadOnly)) {
        return tl::unexpected(
            Words::tr("%1 could not be read: %2").arg(fileName, file.errorString()));
    }
    if (file.size() > kMostBytes) {
        return tl::unexpected(Words::tr("%1 is too large: at most 256 MB are read").arg(fileName));
    }
    const QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError) {
        return tl::unexpected(
            Words::tr("%1 could not be read: %2").arg(fileName, file.errorString()));
    }
    return ReadImportTable(bytes);
}
