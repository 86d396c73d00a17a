// One key's file as bytes: read with a bound, replaced whole, changed by one writer at a time.
#pragma once

#include "config/settings_failure.h"

#include <QByteArray>
#include <QString>

#include <optional>

namespace key_file {

// A key is a few kilobytes; a file beyond this is no key of ours.
constexpr qint64 kMaxBytes = qint64(1024) * 1024;

// The failure of a file that is itself at fault, in `line` where that is known, else 0.
[[nodiscard]] SettingsFailure Damaged(const QString &path, int line, const QString &why);

// True when there is no such file, which is not the same as one that cannot be reached.
[[nodiscard]] bool IsMissing(const QString &path);

// Nothing when there is no such file.
[[nodiscard]] tl::expected<std::optional<QByteArray>, SettingsFailure> Read(const QString &path);

// Puts `bytes` in the file's place through a temporary file beside it, flushed to the disk before it
// is renamed, with the old file's permissions and owner. The old file stands when that fails.
[[nodiscard]] SettingsResult Replace(const QString &path, const QByteArray &bytes);

// True when users beyond the owner and the group may read or change what is at `path`.
[[nodiscard]] bool IsOpenToEverybody(const QString &path);

// Held by whoever changes a file of the folder. It lies on the folder itself, so no lock file is left
// behind, and ends with the process that holds it. Threads of one process exclude each other too.
class WriterLock
{
public:
    // Waits for others for at most `waitMilliseconds`.
    WriterLock(const QString &folder, int waitMilliseconds);
    ~WriterLock();
    WriterLock(const WriterLock &) = delete;
    WriterLock &operator=(const WriterLock &) = delete;

    [[nodiscard]] bool IsHeld() const { return problem.isEmpty(); }

    // Why it is not held, said of the file that was to be changed; empty when it is held.
    [[nodiscard]] const QString &Problem() const { return problem; }

private:
    int descriptor = -1;
    QString problem;
};

} // namespace key_file
