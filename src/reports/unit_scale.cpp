#include "reports/unit_scale.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(ReportUnit)
};

constexpr int kMostSteps = 4;

// As 1000 of the unit are written, 1 000 000, and so on.
QString Thousands(int steps, const QString &unit)
{
    if (unit.isEmpty()) {
        const QString alone[] = {Words::tr("thousands"),
                                 Words::tr("millions"),
                                 Words::tr("billions"),
                                 Words::tr("trillions")};
        return alone[steps - 1];
    }
    const QString texts[] = {Words::tr("thousand %1"),
                             Words::tr("million %1"),
                             //: 1 000 000 000
                             Words::tr("billion %1"),
                             //: 1 000 000 000 000
                             Words::tr("trillion %1")};
    return texts[steps - 1].arg(unit);
}

} // namespace

std::optional<UnitScale> UnitScale::Larger(const QString &ownUnit) const
{
    if (steps == kMostSteps) {
        return std::nullopt;
    }
    const QStringList bytes {u"GB"_s, u"TB"_s, u"PB"_s, u"EB"_s};
    // As the layouts' texts have it in the language of the program.
    const bool isBytes = ownUnit == QCoreApplication::translate("ReportLayouts", "MB");
    return UnitScale {divisor * (isBytes ? 1024 : 1000),
                      isBytes ? bytes.at(steps) : Thousands(steps + 1, ownUnit),
                      steps + 1};
}
