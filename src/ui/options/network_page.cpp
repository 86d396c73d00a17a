#include "ui/options/network_page.h"

#include "ui/options/editable_list.h"

#include <QVBoxLayout>

using namespace Qt::StringLiterals;

NetworkPage::NetworkPage(Prompt &prompt,
                         QList<AddressRange> &ranges,
                         const RangeEditor::Texts &rangeTexts,
                         QList<Ipv4> &exclusions,
                         const ExclusionEditor::Texts &exclusionTexts)
{
    auto *column = new QVBoxLayout(this);
    column->addWidget(new RangeEditor(prompt, ranges, RangeEditor::Entry::Dialog, rangeTexts));
    column->addWidget(new ExclusionEditor(prompt, exclusions, kMaxExclusions, exclusionTexts));
}

QString NetworkPage::Title() const
{
    return tr("Network");
}

bool NetworkPage::Leave()
{
    return AddWhatWasEntered(*this);
}
