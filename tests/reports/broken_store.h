// A store of rows whose temporary file fails.
#pragma once

#include "reports/row_store.h"

#include <QDir>
#include <QFileInfo>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

// Cuts the files of all stores that have one short, to so many bytes; of how many.
inline int CutStoresShort(off_t left = 100)
{
    int broken = 0;
    for (const QFileInfo &open :
         QDir(QStringLiteral("/proc/self/fd")).entryInfoList(QDir::Files | QDir::System)) {
        if (open.symLinkTarget().contains(QStringLiteral("tollbrook-report-"))) {
            broken += ::ftruncate(open.fileName().toInt(), left) == 0 ? 1 : 0;
        }
    }
    return broken;
}

// Fills the store with so many rows of one text that it has a file, and cuts that short.
inline void FillAndBreak(RowStore &store)
{
    constexpr int kRows = 20'000;
    for (int row = 0; row < kRows; ++row) {
        ASSERT_TRUE(store.Append({QStringLiteral("a text of some length, number %1").arg(row)}));
    }
    ASSERT_TRUE(store.Finish());
    ASSERT_GT(CutStoresShort(), 0);
}
