// How a site wants its reports on paper: the sheets, and whose reports they are.
#pragma once

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
