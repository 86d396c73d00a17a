#include "reports/output.h"
#include "reports/piece_writer.h"
#include "reports/xlsx_library.h"

#include <QCoreApplication>
#include <QDir>
#include <QTemporaryFile>

#include <cstdio>
#include <future>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(ReportSheet)
};

constexpr qint64 kSheetRows = 1'048'576; // the format's own limit
constexpr qsizetype kCellCharacters = 32'767; // likewise

lxw_col_t ColumnNumber(qsizetype place)
{
    return static_cast<lxw_col_t>(place);
}

// Ends a workbook that is not wanted any more; the library closes these files only as it packs them.
void Discard(const XlsxLibrary &xlsx,
             lxw_workbook *workbook,
             const std::vector<lxw_worksheet *> &sheets)
{
    for (lxw_worksheet *sheet : sheets) {
        std::fclose(sheet->optimize_tmpfile);
    }
    xlsx.lxw_workbook_free(workbook);
}

class XlsxWriter
{
public:
    // Packs into `toFile`, which the library knows by the number it is open as.
    XlsxWriter(const XlsxLibrary &library,
               const ReportTable &ofTable,
               std::shared_ptr<QTemporaryFile> toFile)
        : xlsx(library)
        , table(ofTable)
        , columns(ofTable.layout.DataColumns())
        , file(std::move(toFile))
        , folder(QFile::encodeName(QDir::tempPath()))
    {
        lxw_workbook_options options {};
        options.constant_memory = LXW_TRUE;
        options.tmpdir = folder.data();
        const QByteArray name = "/proc/self/fd/" + QByteArray::number(file->handle());
        workbook = xlsx.workbook_new_opt(name.constData(), &options);
        if (workbook != nullptr) {
            MakeFormats();
        }
    }

    ~XlsxWriter()
    {
        if (workbook != nullptr) {
            Discard(xlsx, workbook, sheets);
        }
    }
    XlsxWriter(const XlsxWriter &) = delete;
    XlsxWriter &operator=(const XlsxWriter &) = delete;

    bool Write(RunControl &control)
    {
        constexpr qint64 kAtOnce = 4096;
        if (workbook == nullptr) {
            return false;
        }
        StartSheet();
        for (qint64 first = 0; first < table.rows.Count() && good && !control.IsCancelled();
             first += kAtOnce) {
            for (const CellRow &row : table.rows.Read(first, kAtOnce)) {
                WriteRow(row, false);
            }
            control.SetProgress(first, table.rows.Count());
        }
        if (table.HasTotals() && !table.IsEmpty()) {
            CellRow totals = table.totals;
            Cell &label = totals[static_cast<size_t>(columns.front())];
            label = label.index() == 0 ? Cell(Words::tr("Total")) : label;
            WriteRow(totals, true);
        }
        return good && !control.IsCancelled();
    }

    // Packs the file; the library's own words when that fails. It does so in one go and cannot be
    // told to stop: a cancelled one comes to its end by itself, in a file that nobody will see.
    [[nodiscard]] QString Pack(const RunControl &control)
    {
        constexpr std::chrono::milliseconds kBetweenLooks(20);
        std::packaged_task<lxw_error()> task([close = xlsx.workbook_close,
                                              packed = std::exchange(workbook, nullptr),
                                              until = file] { return close(packed); });
        auto packing = task.get_future();
        std::thread(std::move(task)).detach();
        while (packing.wait_for(kBetweenLooks) != std::future_status::ready) {
            if (control.IsCancelled()) {
                return Words::tr("cancelled");
            }
        }
        const lxw_error error = packing.get();
        return error == LXW_NO_ERROR ? QString() : QString::fromUtf8(xlsx.lxw_strerror(error));
    }

private:
    void MakeFormats()
    {
        strong = xlsx.workbook_add_format(workbook);
        xlsx.format_set_bold(strong);
        xlsx.format_set_bg_color(strong, 0xE9EDF2);
        for (const int place : columns) {
            const LayoutColumn &column = table.layout.columns.at(place);
            QByteArray shape = "#,##0";
            if (column.decimals > 0) {
                shape += "." + QByteArray(column.decimals, '0');
            }
            lxw_format *plain = xlsx.workbook_add_format(workbook);
            lxw_format *total = xlsx.workbook_add_format(workbook);
            xlsx.format_set_bold(total);
            xlsx.format_set_top(total, LXW_BORDER_DOUBLE);
            if (column.IsNumber()) {
                xlsx.format_set_num_format(plain, shape.constData());
                xlsx.format_set_num_format(total, shape.constData());
            }
            formats.push_back({plain, total});
        }
    }

    void StartSheet()
    {
        sheet = xlsx.workbook_add_worksheet(workbook, nullptr);
        good = good && sheet != nullptr; // there is no room for its temporary file
        if (!good) {
            return;
        }
        sheets.push_back(sheet);
        for (qsizetype place = 0; place < columns.size(); ++place) {
            const LayoutColumn &column = table.layout.columns.at(columns.at(place));
            const double width = column.IsNumber() ? 16 : 24;
            xlsx.worksheet_set_column(
                sheet, ColumnNumber(place), ColumnNumber(place), width, nullptr);
            const QString unit = column.unit.isEmpty() ? QString() : u" ("_s + column.unit + u')';
            xlsx.worksheet_write_string(sheet,
                                        0,
                                        ColumnNumber(place),
                                        (column.heading + unit).toUtf8().constData(),
                                        strong);
        }
        xlsx.worksheet_freeze_panes(sheet, 1, 0);
        nextRow = 1;
    }

    void WriteRow(const CellRow &row, bool isTotal)
    {
        if (nextRow == kSheetRows) {
            StartSheet();
        }
        for (qsizetype place = 0; place < columns.size() && good; ++place) {
            const int column = columns.at(place);
            WriteCell(
                place, table.layout.columns.at(column), row[static_cast<size_t>(column)], isTotal);
        }
        ++nextRow;
    }

    void WriteCell(qsizetype place, const LayoutColumn &column, const Cell &cell, bool isTotal)
    {
        const auto row = static_cast<lxw_row_t>(nextRow);
        const auto [plain, total] = formats[static_cast<size_t>(place)];
        lxw_format *format = isTotal ? total : plain;
        lxw_error error = LXW_NO_ERROR;
        if (cell.index() != 0 && column.IsNumber() && !std::holds_alternative<QString>(cell)) {
            error = xlsx.worksheet_write_number(
                sheet, row, ColumnNumber(place), NumberIn(cell), format);
        } else {
            const QString text = PlainText(column, cell).left(kCellCharacters);
            error = xlsx.worksheet_write_string(
                sheet, row, ColumnNumber(place), text.toUtf8().constData(), format);
        }
        good = good && error == LXW_NO_ERROR;
    }

    struct ColumnFormats
    {
        lxw_format *plain;
        lxw_format *total;
    };

    const XlsxLibrary &xlsx;
    const ReportTable &table;
    QList<int> columns;
    std::shared_ptr<QTemporaryFile> file;
    QByteArray folder;
    lxw_workbook *workbook = nullptr;
    std::vector<lxw_worksheet *> sheets;
    lxw_worksheet *sheet = nullptr; // the last of them
    lxw_format *strong = nullptr;
    std::vector<ColumnFormats> formats;
    qint64 nextRow = 0;
    bool good = true;
};

bool Copy(QFile &from, QIODevice &to, const RunControl &control)
{
    constexpr qint64 kPiece = 1 << 18;
    from.seek(0);
    QByteArray piece;
    do {
        piece = from.read(kPiece);
        if (!WriteWhole(to, piece) || control.IsCancelled()) {
            return false;
        }
    } while (!piece.isEmpty());
    return true;
}

} // namespace

bool WriteXlsx(const ReportTable &table, QIODevice &device, RunControl &control, QString &words)
{
    const XlsxLibrary *library = LoadXlsxLibrary(words);
    if (library == nullptr) {
        return false;
    }
    const auto file = std::make_shared<QTemporaryFile>();
    if (!file->open()) {
        words = file->errorString();
        return false;
    }
    XlsxWriter writer(*library, table, file);
    if (!writer.Write(control)) {
        words = Words::tr("a row could not be written");
        return false;
    }
    words = writer.Pack(control);
    return words.isEmpty() && Copy(*file, device, control);
}
