#include "config/key_file.h"

#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QThread>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace key_file {

namespace {

constexpr unsigned long kLockPauseMilliseconds = 5;
constexpr int kMaxAsideNames = 1000;

QByteArray Native(const QString &path)
{
    return QFile::encodeName(path);
}

} // namespace

Content Read(const QString &path)
{
    struct stat status = {};
    if (::stat(Native(path).constData(), &status) != 0) {
        const bool isMissing = errno == ENOENT || errno == ENOTDIR;
        return isMissing ? Content() : Content {Reading::Unreadable, {}, qt_error_string(errno)};
    }
    if (!S_ISREG(status.st_mode)) {
        return {Reading::Unreadable, {}, u"not a file"_s};
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return {Reading::Unreadable, {}, file.errorString()};
    }
    const QByteArray bytes = file.read(kMaxBytes + 1);
    if (file.error() != QFileDevice::NoError) {
        return {Reading::Unreadable, {}, file.errorString()};
    }
    if (bytes.size() > kMaxBytes) {
        return {Reading::TooLarge, {}, u"larger than %1 bytes"_s.arg(kMaxBytes)};
    }
    return {Reading::Whole, bytes, {}};
}

bool Replace(const QString &path, const QByteArray &bytes, QString &problem)
{
    struct stat old = {};
    const bool replaces = ::stat(Native(path).constData(), &old) == 0;
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) {
        problem = file.errorString();
        return false;
    }
    // Another owner can be given only by root; the permissions come over with QSaveFile.
    if (replaces && ::fchown(file.handle(), old.st_uid, old.st_gid) == 0) {
        ::fchmod(file.handle(), old.st_mode & 07777U);
    }
    if (file.write(bytes) != bytes.size() || !file.commit()) {
        problem = file.errorString();
        return false;
    }
    return true;
}

QString KeepAside(const QString &path)
{
    for (int number = 1; number <= kMaxAsideNames; ++number) {
        const QString suffix = number == 1 ? QString() : u"-%1"_s.arg(number);
        const QString aside = path + u".damaged"_s + suffix;
        if (!QFile::exists(aside)) {
            return QFile::copy(path, aside) ? aside : QString();
        }
    }
    return {};
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
        return;
    }
    QElapsedTimer waited;
    waited.start();
    held = ::flock(descriptor, LOCK_EX | LOCK_NB) == 0;
    while (!held && waited.elapsed() < waitMilliseconds) {
        QThread::msleep(kLockPauseMilliseconds);
        held = ::flock(descriptor, LOCK_EX | LOCK_NB) == 0;
    }
}

WriterLock::~WriterLock()
{
    if (descriptor >= 0) {
        ::close(descriptor);
    }
}

} // namespace key_file
