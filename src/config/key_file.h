// One key's file as bytes: read with a bound, replaced whole, changed by one writer at a time.
#pragma once

#include <QByteArray>
#include <QString>

namespace key_file {

enum class Reading { Missing, Unreadable, TooLarge, Whole };

// A key is a few kilobytes; a file beyond this is no key of ours.
constexpr qint64 kMaxBytes = qint64(1024) * 1024;

struct Content
{
    Reading reading = Reading::Missing;
    QByteArray bytes;
    QString problem; // why it is unreadable
};

[[nodiscard]] Content Read(const QString &path);

// Puts `bytes` in the file's place through a temporary file beside it, flushed to the disk before it
// is renamed, with the old file's permissions and owner. False, and the old file stands, when that
// fails; the reason is in `problem`.
[[nodiscard]] bool Replace(const QString &path, const QByteArray &bytes, QString &problem);

// Copies the file to the first free name of path.damaged, path.damaged-2, ... Empty when it fails.
[[nodiscard]] QString KeepAside(const QString &path);

// True when users beyond the owner and the group may read or change what is at `path`.
[[nodiscard]] bool IsOpenToEverybody(const QString &path);

// Held by whoever changes a file of the folder. It lies on the folder itself, so no lock file is left
// behind, and ends with the process that holds it. Waits for others at most as
// long as it is told.
class WriterLock
{
public:
    explicit WriterLock(const QString &folder, int waitMilliseconds = 2000);
    ~WriterLock();
    WriterLock(const WriterLock &) = delete;
    WriterLock &operator=(const WriterLock &) = delete;

    [[nodiscard]] bool IsHeld() const { return held; }

private:
    int descriptor = -1;
    bool held = false;
};

} // namespace key_file
