#include "upkeep/backup_file.h"

#include "upkeep/backup_header.h"

#include <QFileInfo>
#include <QtEndian>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int kQuickCompression = 1;

// The name of a file is kept only once its folder is.
bool FlushFolder(const QString &path)
{
    const int folder = ::open(QFile::encodeName(QFileInfo(path).path()).constData(),
                              O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    const bool flushed = folder >= 0 && (::fsync(folder) == 0 || errno == EINVAL);
    if (folder >= 0) {
        ::close(folder);
    }
    return flushed;
}

} // namespace

void AppendLength(qsizetype length, QByteArray &bytes)
{
    const auto big = qToBigEndian(static_cast<quint32>(length));
    bytes.append(reinterpret_cast<const char *>(&big), sizeof big);
}

Told<std::unique_ptr<BackupFile>> BackupFile::Make(const QString &path)
{
    std::unique_ptr<BackupFile> made(new BackupFile(path));
    constexpr qsizetype kEnding = 5; // of ".part"
    made->partPath = QFile::encodeName(path) + ".XXXXXX.part";
    const int descriptor = ::mkostemps(made->partPath.data(), kEnding, O_CLOEXEC);
    if (descriptor < 0
        || !made->file.open(descriptor,
                            QIODevice::WriteOnly | QIODevice::Unbuffered,
                            QFileDevice::AutoCloseHandle)) {
        made->partPath.clear();
        return tl::unexpected(u"%1 cannot be made: %2"_s.arg(path, qt_error_string()));
    }
    return made;
}

BackupFile::~BackupFile()
{
    if (!partPath.isEmpty()) {
        ::unlink(partPath.constData());
    }
}

QString BackupFile::Unwritten() const
{
    return u"%1 cannot be written: %2"_s.arg(path, qt_error_string());
}

Told<void> BackupFile::Write(QByteArrayView bytes)
{
    sum.addData(bytes);
    while (!bytes.isEmpty()) {
        const ssize_t written = ::write(file.handle(), bytes.data(), size_t(bytes.size()));
        if (written < 0 && errno != EINTR) {
            return tl::unexpected(Unwritten());
        }
        bytes = bytes.sliced(std::max<ssize_t>(written, 0));
    }
    return {};
}

Told<void> BackupFile::WriteChunk(const QByteArray &bytes)
{
    const QByteArray compressed = qCompress(bytes, kQuickCompression);
    QByteArray length;
    AppendLength(compressed.size(), length);
    return Write(length).and_then([&] { return Write(compressed); });
}

Told<void> BackupFile::Finish(bool replaces)
{
    if (auto written = Write(sum.result()); !written) {
        return written;
    }
    // A file system may know no flushing.
    if (::fsync(file.handle()) != 0 && errno != EINVAL) {
        return tl::unexpected(Unwritten());
    }
    const QByteArray name = QFile::encodeName(path);
    if (::renameat2(AT_FDCWD,
                    partPath.constData(),
                    AT_FDCWD,
                    name.constData(),
                    replaces ? 0U : unsigned(RENAME_NOREPLACE))
        != 0) {
        return tl::unexpected(Unwritten());
    }
    partPath.clear();
    return FlushFolder(path) ? Told<void>() : tl::unexpected(Unwritten());
}
