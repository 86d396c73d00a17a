// How a site wants its reports on paper: the sheets, and whose reports they are.
#pragma once

#include "config/config_store.h"

#include <QImage>
#include <QPageLayout>
#include <QPageSize>
#include <QString>

struct PageSetup
{
    enum class Turn { AsReport, Portrait, Landscape }; // AsReport: as the layout wants it

    QPageSize::PageSizeId paper = QPageSize::A4;
    Turn turn = Turn::AsReport;
    QString organisation; // above every report; empty for none
    QString address; // below it, in lines
    QString logoFile; // a picture; empty for none
    QImage logo; // read from it; null where there is none or it could not be read

    // `isWide`: what the layout wants.
    [[nodiscard]] QPageLayout SheetFor(bool isWide) const
    {
        const bool lying = turn == Turn::AsReport ? isWide : turn == Turn::Landscape;
        return {
            QPageSize(paper), lying ? QPageLayout::Landscape : QPageLayout::Portrait, QMarginsF()};
    }

    [[nodiscard]] bool HasHead() const
    {
        return !organisation.isEmpty() || !address.isEmpty() || !logo.isNull();
    }
};

// The sizes of paper that are offered, the usual one first.
[[nodiscard]] const QList<QPageSize::PageSizeId> &OfferedPapers();

constexpr qsizetype kMostSetupBytes = 1023; // of a text of the set-up

// What the settings hold; a paper or a turn that is not known counts as missing.
[[nodiscard]] PageSetup ReadPageSetup(const ConfigStore &settings);
SettingsResult WritePageSetup(const ConfigStore &settings, const PageSetup &setup);

// The picture in the file, no larger than a page's heading needs it; null when there is none that can be
// read.
[[nodiscard]] QImage LogoIn(const QString &file);

// What is to be told when a logo is wanted and cannot be read; empty otherwise.
[[nodiscard]] QString LogoProblem(const PageSetup &setup);
