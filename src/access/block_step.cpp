#include "access/block_step.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(BlockStep)
};

QString InWords(const StoredBlock &block)
{
    if (!block.blocked || block.reason == BlockReason::ShownAsAllowed) {
        return Words::tr("Access is allowed");
    }
    return block.reason == BlockReason::Administrator
        ? Words::tr("Access is denied by the administrator")
        : Words::tr("Access is denied by the service");
}

QString Present(const StoredBlock &block)
{
    return u"(%1, %2)"_s.arg(block.blocked).arg(static_cast<quint32>(block.reason));
}

bool IsAsRequested(const StoredBlock &now, bool requested)
{
    return requested ? now == StoredBlock {true, BlockReason::Administrator} : !now.blocked;
}

} // namespace

BlockStep StepFor(const BlockState &sheet, const StoredBlock &now, const Settler &settle)
{
    const BlockStep step = sheet.requested ? BlockStep::Block : BlockStep::Unblock;
    if (!sheet.editable) {
        return BlockStep::Leave;
    }
    if (now == sheet.stored) {
        return step;
    }
    const bool runs = sheet.IsClicked()
        && (IsAsRequested(now, sheet.requested)
            || settle.MayOverwrite(Words::tr("Access"), InWords(now), Present(now)));
    return runs ? step : BlockStep::Leave;
}

StoredBlock After(BlockStep step, const StoredBlock &now)
{
    switch (step) {
    case BlockStep::Block:
        return {true, BlockReason::Administrator};
    case BlockStep::Unblock:
        return {false, now.reason};
    case BlockStep::Leave:
        break;
    }
    return now;
}
