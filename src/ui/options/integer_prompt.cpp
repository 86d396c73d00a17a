#include "ui/options/integer_prompt.h"

#include "ui/common/controls.h"
#include "ui/common/number_field.h"

using namespace Qt::StringLiterals;

namespace {

bool Refuse(Prompt &prompt, WholeNumberField &field, const QString &text)
{
    Complain(prompt, text);
    field.setFocus();
    field.selectAll();
    return false;
}

} // namespace

bool HoldsInteger(Prompt &prompt, WholeNumberField &field)
{
    return field.Number().has_value() || Refuse(prompt, field, u"Please enter an integer."_s);
}

bool HoldsInteger(Prompt &prompt, WholeNumberField &field, quint32 least, quint32 most)
{
    const auto number = field.Number();
    return (number && *number >= least && *number <= most)
        || Refuse(
               prompt, field, u"Please enter an integer between %1 and %2."_s.arg(least).arg(most));
}
