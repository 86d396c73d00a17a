// A CSV file as a table: its columns found by the line of headings, its rows as texts.
#pragma once

#include "exchange/import_column.h"
#include "exchange/text_encoding.h"

#include <QStringList>

#include <array>
#include <bitset>
#include <vector>

struct ImportLine
{
    int number = 0; // of the line in the file where the row begins, from 1
    std::array<QString, kImportColumns> cells;
    QString fault; // why the line is no row; empty for one that is
};

struct ImportTable
{
    std::bitset<kImportColumns> columns; // those that the file has
    std::vector<ImportLine> lines; // without those where every cell is empty
    QStringList unknownHeadings; // of columns that are left out
    QChar separator = u',';
    TextEncoding encoding = TextEncoding::Utf8;

    [[nodiscard]] bool Has(ImportColumn column) const
    {
        return columns.test(static_cast<size_t>(column));
    }
};

// The table of a file's bytes, or in words why there is none. Commas, semicolons and tabs part the cells,
// whichever makes most of the headings known. An apostrophe that keeps a text from being taken for a
// formula is taken off.
[[nodiscard]] tl::expected<ImportTable, QString> ReadImportTable(const QByteArray &bytes);

// The same of a file of at most 256 MB.
[[nodiscard]] tl::expected<ImportTable, QString> ReadImportFile(const QString &fileName);
