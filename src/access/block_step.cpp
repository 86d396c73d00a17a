#include "access/block_step.h"

using namespace Qt::StringLiterals;

namespace {

QString Words(const StoredBlock &block)
{
    if (!block.blocked || block.reason == BlockReason::ShownAsAllowed) {
        return u"Access is allowed"_s;
    }
    return block.reason == BlockReason::Administrator ? u"Access is denied by the administrator"_s
                                                      : u"Access is denied by the service"_s;
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
            || settle.MayOverwrite(u"Access"_s, Words(now), Present(now)));
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
