// What is told of a table's rows, so that two databases can be compared at a glance.
#pragma once

#include "db/row_block.h"

#include <QCryptographicHash>

class TableSum
{
public:
    // `bytes` are the block's own.
    void Add(const RowBlock &block, const QByteArray &bytes);

    [[nodiscard]] qint64 Rows() const { return rows; }

    // "users: 250 rows, checksum 3f2a91cc"
    [[nodiscard]] QString InWords(const QString &table) const;

private:
    qint64 rows = 0;
    QCryptographicHash sum {QCryptographicHash::Sha1};
};
