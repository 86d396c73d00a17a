#include "reports/output.h"

#include <QDir>
#include <QFile>

#include <xlsxwriter.h>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kSheetRows = 1'048'576; // the format's own limit
constexpr qsizetype kCellCharacters = 32'767; // likewise

lxw_col_t ColumnNumber(qsizetype place)
{
    return static_cast<lxw_col_t>(place);
}

class XlsxWriter
{
public:
    XlsxWriter(const ReportTable &ofTable, const QString &fileName)
        : table(ofTable)
        , columns(ofTable.layout.DataColumns())
    {
        folder = QFile::encodeName(QDir::tempPath());
        lxw_workbook_options options {};
        options.constant_memory = LXW_TRUE;
        options.tmpdir = folder.data();
        workbook = workbook_new_opt(QFile::encodeName(fileName).constData(), &options);
        if (workbook != nullptr) {
            MakeFormats();
        }
    }

    ~XlsxWriter()
    {
        if (workbook != nullptr) {
            workbook_close(workbook);
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
            label = label.index() == 0 ? Cell(u"Total"_s) : label;
            WriteRow(totals, true);
        }
        return good && !control.IsCancelled();
    }

    // Packs the file; the library's own words when that fails.
    [[nodiscard]] QString Close()
    {
        const lxw_error error =
            workbook == nullptr ? LXW_ERROR_CREATING_XLSX_FILE : workbook_close(workbook);
        workbook = nullptr;
        return error == LXW_NO_ERROR ? QString() : QString::fromUtf8(lxw_strerror(error));
    }

private:
    void MakeFormats()
    {
        strong = workbook_add_format(workbook);
        format_set_bold(strong);
        format_set_bg_color(strong, 0xE9EDF2);
        for (const int place : columns) {
            const LayoutColumn &column = table.layout.columns.at(place);
            QByteArray shape = "#,##0";
            if (column.decimals > 0) {
                shape += "." + QByteArray(column.decimals, '0');
            }
            lxw_format *plain = workbook_add_format(workbook);
            lxw_format *total = workbook_add_format(workbook);
            format_set_bold(total);
            format_set_top(total, LXW_BORDER_DOUBLE);
            if (column.IsNumber()) {
                format_set_num_format(plain, shape.constData());
                format_set_num_format(total, shape.constData());
            }
            formats.push_back({plain, total});
        }
    }

    void StartSheet()
    {
        sheet = workbook_add_worksheet(workbook, nullptr);
        for (qsizetype place = 0; place < columns.size(); ++place) {
            const LayoutColumn &column = table.layout.columns.at(columns.at(place));
            const double width = column.IsNumber() ? 16 : 24;
            worksheet_set_column(sheet, ColumnNumber(place), ColumnNumber(place), width, nullptr);
            const QString unit = column.unit.isEmpty() ? QString() : u" ("_s + column.unit + u')';
            worksheet_write_string(sheet,
                                   0,
                                   ColumnNumber(place),
                                   (column.heading + unit).toUtf8().constData(),
                                   strong);
        }
        worksheet_freeze_panes(sheet, 1, 0);
        nextRow = 1;
    }

    void WriteRow(const CellRow &row, bool isTotal)
    {
        if (nextRow == kSheetRows) {
            StartSheet();
        }
        for (qsizetype place = 0; place < columns.size(); ++place) {
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
        if (cell.index() != 0 && column.IsNumber()) {
            error = worksheet_write_number(sheet, row, ColumnNumber(place), NumberIn(cell), format);
        } else {
            const QString text = PlainText(column, cell).left(kCellCharacters);
            error = worksheet_write_string(
                sheet, row, ColumnNumber(place), text.toUtf8().constData(), format);
        }
        good = good && error == LXW_NO_ERROR;
    }

    struct ColumnFormats
    {
        lxw_format *plain;
        lxw_format *total;
    };

    const ReportTable &table;
    QList<int> columns;
    QByteArray folder;
    lxw_workbook *workbook = nullptr;
    lxw_worksheet *sheet = nullptr;
    lxw_format *strong = nullptr;
    std::vector<ColumnFormats> formats;
    qint64 nextRow = 0;
    bool good = true;
};

} // namespace

bool WriteXlsx(const ReportTable &table,
               const QString &fileName,
               RunControl &control,
               QString &words)
{
    XlsxWriter writer(table, fileName);
    const bool written = writer.Write(control);
    words = writer.Close();
    if (!written && words.isEmpty()) {
        words = u"a row could not be written"_s;
    }
    return written && words.isEmpty();
}
