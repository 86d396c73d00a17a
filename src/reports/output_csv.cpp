#include "reports/csv_text.h"
#include "reports/output.h"
#include "reports/piece_writer.h"

using namespace Qt::StringLiterals;

bool WriteCsv(const ReportTable &table,
              QIODevice &device,
              RunControl &control,
              const OutputOptions &options)
{
    constexpr qint64 kAtOnce = 4096;
    const auto columns = table.layout.DataColumns();
    PieceWriter out(device);
    if (options.csvBom) {
        out.Write(QString(QChar::ByteOrderMark));
    }
    QStringList fields;
    for (const int place : columns) {
        const LayoutColumn &column = table.layout.columns.at(place);
        const QString unit = column.unit.isEmpty() ? QString() : u" ("_s + column.unit + u')';
        fields += CsvField(column.heading + unit, true);
    }
    out.Write(fields.join(u',') + u"\r\n");
    for (qint64 first = 0; first < table.rows.Count() && out.IsGood() && !control.IsCancelled();
         first += kAtOnce) {
        for (const CellRow &row : table.rows.Read(first, kAtOnce)) {
            fields.clear();
            for (const int place : columns) {
                const LayoutColumn &column = table.layout.columns.at(place);
                fields += CsvField(PlainText(column, row[static_cast<size_t>(place)]),
                                   !column.IsNumber());
            }
            out.Write(fields.join(u',') + u"\r\n");
        }
        control.SetProgress(first, table.rows.Count());
    }
    return out.Flush() && !control.IsCancelled();
}
