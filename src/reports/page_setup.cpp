#include "reports/page_setup.h"

#include <QCoreApplication>
#include <QImageReader>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(PageSetup)
};

constexpr int kMostPixels = 1200; // of a logo's longer side

// In the order of PageSetup::Turn.
QStringList Turns()
{
    return {QString(), u"portrait"_s, u"landscape"_s};
}

QString TextOf(const ConfigStore &settings, const TextValue &value)
{
    return settings.ReadText(value, kMostSetupBytes + 1).value_or(QString()).trimmed();
}

} // namespace

const QList<QPageSize::PageSizeId> &OfferedPapers()
{
    static const QList<QPageSize::PageSizeId> kPapers {
        QPageSize::A4, QPageSize::A5, QPageSize::A3, QPageSize::Letter, QPageSize::Legal};
    return kPapers;
}

PageSetup ReadPageSetup(const ConfigStore &settings)
{
    PageSetup setup;
    const QString paper = TextOf(settings, values::kReportPaper);
    for (const QPageSize::PageSizeId offered : OfferedPapers()) {
        if (QPageSize::key(offered).compare(paper, Qt::CaseInsensitive) == 0) {
            setup.paper = offered;
        }
    }
    const auto turn = Turns().indexOf(TextOf(settings, values::kReportTurn).toLower());
    setup.turn = static_cast<PageSetup::Turn>(std::max<qsizetype>(turn, 0));
    setup.organisation = TextOf(settings, values::kReportOwner);
    setup.address = TextOf(settings, values::kReportAddress);
    setup.logoFile = TextOf(settings, values::kReportLogo);
    setup.logo = LogoIn(setup.logoFile);
    return setup;
}

SettingsResult WritePageSetup(const ConfigStore &settings, const PageSetup &setup)
{
    return settings.Edit(ConfigKeyId::Base, [&](KeyEditor &key) {
        key.WriteText(values::kReportPaper, QPageSize::key(setup.paper));
        key.WriteText(values::kReportTurn, Turns().at(static_cast<int>(setup.turn)));
        key.WriteText(values::kReportOwner, setup.organisation);
        key.WriteText(values::kReportAddress, setup.address);
        key.WriteText(values::kReportLogo, setup.logoFile);
    });
}

QImage LogoIn(const QString &file)
{
    if (file.isEmpty()) {
        return {};
    }
    const QImage whole = QImageReader(file).read();
    return std::max(whole.width(), whole.height()) <= kMostPixels
        ? whole
        : whole.scaled(kMostPixels, kMostPixels, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

QString LogoProblem(const PageSetup &setup)
{
    return setup.logoFile.isEmpty() || !setup.logo.isNull()
        ? QString()
        : Words::tr("The logo %1 cannot be read.").arg(setup.logoFile);
}
