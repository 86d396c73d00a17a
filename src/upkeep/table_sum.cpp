#include "upkeep/table_sum.h"

using namespace Qt::StringLiterals;

void TableSum::Add(const RowBlock &block, const QByteArray &bytes)
{
    rows += qint64(block.rows);
    sum.addData(bytes);
}

QString TableSum::InWords(const QString &table) const
{
    constexpr qsizetype kDigits = 8;
    return u"%1: %2 rows, checksum %3"_s.arg(
        table, QString::number(rows), QString::fromLatin1(sum.result().toHex().first(kDigits)));
}
