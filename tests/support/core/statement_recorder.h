// The statements that reached the driver while this lives, in order, as the code writes them.
#pragma once

#include <QStringList>

class StatementRecorder
{
public:
    StatementRecorder();
    ~StatementRecorder();
    StatementRecorder(const StatementRecorder &) = delete;
    StatementRecorder &operator=(const StatementRecorder &) = delete;

    // Those since the last call.
    [[nodiscard]] QStringList Take();

    // Of those, the ones that change rows.
    [[nodiscard]] QStringList TakeChanging();
};
