// The local address ranges and the addresses excluded from them.
#pragma once

#include "base/prompt.h"
#include "ui/common/page.h"
#include "ui/options/exclusion_editor.h"
#include "ui/options/range_editor.h"

class NetworkPage : public Page
{
    Q_OBJECT

public:
    // Edits both lists in place.
    NetworkPage(Prompt &prompt,
                QList<AddressRange> &ranges,
                const RangeEditor::Texts &rangeTexts,
                QList<Ipv4> &exclusions,
                const ExclusionEditor::Texts &exclusionTexts);

    [[nodiscard]] QString Title() const override;
    [[nodiscard]] bool Leave() override;
};
