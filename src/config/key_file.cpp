#include "config/key_file.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QThread>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace key_file {

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(KeyFile)
};

constexpr unsigned long kLockPauseMilliseconds = 5;

QByteArray Native(const QString &path)
{
    return QFile::encodeName(path);
}

bool IsAbsence(int error)
{
    return error == ENOENT || error == ENOTDIR;
}

tl::unexpected<SettingsFailure> Unreadable(const QString &path, const QString &why)
{
    return tl::unexpected(SettingsFailure {path, 0, Words::tr("cannot be read: %1").arg(why)});
}

tl::unexpected<SettingsFailure> Unwritten(const QString &path, const QString &why)
{
    return tl::unexpected(SettingsFailure {path, 0, Words::tr("cannot be written: %1").arg(why)});
}

} // namespace

SettingsFailure Damaged(const QString &path, int line, const QString &why)
{
    return {path, line, Words::tr("is damaged and must be mended: %1").arg(why)};
}

bool IsMissing(const QString &path)
{
    struct stat status = {};
    return ::stat(Native(path).constData(), &status) != 0 && IsAbsence(errno);
}

tl::expected<std::optional<QByteArray>, SettingsFailure> Read(const QString &path)
{
    struct stat status = {};
    if (::stat(Native(path).constData(), &status) != 0) {
        const int error = errno;
        if (IsAbsence(error)) {
            return std::nullopt;
        }
        return Unreadable(path, qt_error_string(error));
    }
    if (!S_ISREG(status.st_mode)) {
        return Unreadable(path, Words::tr("it is not a file"));
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return Unreadable(path, file.errorString());
    }
    QByteArray bytes = file.read(kMaxBytes + 1);
    if (file.error() != QFileDevice::NoError) {
        return Unreadable(path, file.errorString());
    }
    if (bytes.size() > kMaxBytes) {
        return tl::unexpected(
            Damaged(path, 0, Words::tr("it is larger than %1 bytes").arg(kMaxBytes)));
    }
    return bytes;
}

SettingsResult Replace(const QString &path, const QByteArray &bytes)
{
    struct stat old = {};
    const bool replaces = ::stat(Native(path).constData(), &old) == 0;
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) {
        return Unwritten(path, file.errorString());
    }
    // Another owner can be given only by root; the permissions come over with QSaveFile.
    if (replaces && ::fchown(file.handle(), old.st_uid, old.st_gid) == 0) {
        ::fchmod(file.handle(), old.st_mode & 07777U);
    }
    // A disk that fills up takes a part first, and says why only when asked to take the rest.
    for (qsizetype written = 0; written < bytes.size();) {
        const qint64 more = file.write(bytes.constData() + written, bytes.size() - written);
        if (more <= 0) {
            return Unwritten(path, file.errorString());
        }
        written += more;
    }
    // QSaveFile flushes too, but does not look at the outcome. A file system may know no flushing.
    if (::fsync(file.handle()) != 0 && errno != EINVAL) {
        return Unwritten(path, qt_error_string(errno));
    }
    return file.commit() ? SettingsResult() : Unwritten(path, file.errorString());
}

bool IsOpenToEverybody(const QString &path)
{
    struct stat status = {};
    return ::stat(Native(path).constData(), &status) == 0
        && (status.st_mode & (S_IROTH | S_IWOTH)) != 0;
}

WriterLock::WriterLock(const QString &folder, int waitMilliseconds)
    : descriptor(::open(Native(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
{
    if (descriptor < 0) {
        problem = Words::tr("cannot be written: its folder: %1").arg(qt_error_string(errno));
        return;
    }
    QElapsedTimer waited;
    waited.start();
    while (::flock(descriptor, LOCK_EX | LOCK_NB) != 0) {
        if (errno != EWOULDBLOCK) {
            problem = Words::tr("cannot be written: its folder: %1").arg(qt_error_string(errno));
            return;
        }
        if (waited.elapsed() >= waitMilliseconds) {
            problem = Words::tr("cannot be written: another program is at work in its folder");
            return;
        }
        QThread::msleep(kLockPauseMilliseconds);
    }
}

WriterLock::~WriterLock()
{
    if (descriptor >= 0) {
        ::close(descriptor);
    }
}

} // namespace key_file
