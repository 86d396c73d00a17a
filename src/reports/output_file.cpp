#include "reports/output_file.h"

#include <QCoreApplication>
#include <QRandomGenerator>

#include <array>
#include <cerrno>
#include <climits>
#include <cstring>
#include <deque>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(OutputFile)
};

constexpr int kForeignLink = -1; // beside the system's own error numbers

bool IsTrusted(uid_t owner)
{
    return owner == ::geteuid() || owner == 0;
}

bool IsShared(const struct stat &folder)
{
    return (folder.st_mode & (S_IWGRP | S_IWOTH)) != 0;
}

bool IsFollowed(const struct stat &link, const struct stat &folder)
{
    return IsTrusted(link.st_uid) || (::geteuid() != 0 && !IsShared(folder));
}

// A second name of a file may lend rights that were never meant for this one.
bool HandsRightsOn(const struct stat &former, const struct stat &folder)
{
    return former.st_nlink == 1 && (IsTrusted(former.st_uid) || !IsShared(folder));
}

// Goes to a file's folder name by name, so that no link on the way is followed unseen.
class Walk
{
public:
    explicit Walk(const QByteArray &path)
    {
        Prepend(path);
        Step(AT_FDCWD, path.startsWith('/') ? "/" : ".");
    }
    ~Walk()
    {
        if (folder >= 0) {
            ::close(folder);
        }
    }
    Walk(const Walk &) = delete;
    Walk &operator=(const Walk &) = delete;

    // 0 when the folder of the last name is reached; else what stopped it.
    [[nodiscard]] int Go()
    {
        while (error == 0 && !names.empty()) {
            const QByteArray name = names.front();
            names.pop_front();
            struct stat found
            { };
            const bool isLast = names.empty();
            if (::fstatat(folder, name.constData(), &found, AT_SYMLINK_NOFOLLOW) != 0) {
                error = isLast && errno == ENOENT ? 0 : errno;
                last = name;
            } else if (S_ISLNK(found.st_mode)) {
                Follow(name, found);
            } else if (isLast) {
                last = name;
                former = found;
            } else {
                Step(folder, name.constData());
            }
        }
        return error;
    }

    [[nodiscard]] int TakeFolder() { return std::exchange(folder, -1); }
    [[nodiscard]] const QByteArray &Last() const { return last; }
    // Of the folder; and of what bears the last name, whose type is 0 when nothing does.
    [[nodiscard]] const struct stat &Folder() const { return place; }
    [[nodiscard]] const struct stat &Former() const { return former; }

private:
    void Prepend(const QByteArray &path)
    {
        QByteArrayList parts = path.split('/');
        parts.removeAll(QByteArray());
        parts.removeAll(QByteArrayLiteral("."));
        names.insert(names.begin(), parts.begin(), parts.end());
    }

    void Step(int from, const char *to)
    {
        const int next = ::openat(from, to, O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
        error = next < 0 || ::fstat(next, &place) != 0 ? errno : 0;
        if (folder >= 0) {
            ::close(folder);
        }
        folder = next;
    }

    void Follow(const QByteArray &name, const struct stat &link)
    {
        constexpr int kMostLinks = 40;
        std::array<char, PATH_MAX> target {};
        if (!IsFollowed(link, place)) {
            error = kForeignLink;
            return;
        }
        const auto length =
            ::readlinkat(folder, name.constData(), target.data(), target.size() - 1);
        error = length < 0 ? errno : ++followed > kMostLinks ? ELOOP : 0;
        const QByteArray path(target.data());
        Prepend(path);
        if (error == 0 && path.startsWith('/')) {
            Step(AT_FDCWD, "/");
        }
    }

    int folder = -1;
    int error = 0;
    int followed = 0;
    std::deque<QByteArray> names;
    QByteArray last;
    struct stat place
    { };
    struct stat former
    { };
};

int WhyNotReplaced(const Walk &walk, int folder)
{
    const struct stat &former = walk.Former();
    if (walk.Last().isEmpty() || walk.Last() == ".." || S_ISDIR(former.st_mode)) {
        return EISDIR;
    }
    if (former.st_mode == 0) {
        return 0;
    }
    if (!S_ISREG(former.st_mode)) {
        return EEXIST;
    }
    const bool isWritable = ::faccessat(folder, walk.Last().constData(), W_OK, AT_EACCESS) == 0;
    return isWritable ? 0 : errno;
}

} // namespace

OutputFile::~OutputFile()
{
    file.close();
    if (!writtenAs.isEmpty()) {
        ::unlinkat(folder, writtenAs.constData(), 0);
    }
    if (folder >= 0) {
        ::close(folder);
    }
}

bool OutputFile::Open(const QString &path)
{
    Walk walk(QFile::encodeName(path));
    if (const int error = walk.Go(); error != 0) {
        return Fail(error);
    }
    folder = walk.TakeFolder();
    name = walk.Last();
    if (const int error = WhyNotReplaced(walk, folder); error != 0) {
        return Fail(error);
    }
    if (walk.Former().st_mode != 0 && HandsRightsOn(walk.Former(), walk.Folder())) {
        mode = walk.Former().st_mode & (S_IRWXU | S_IRWXG | S_IRWXO);
    }
    return Begin();
}

bool OutputFile::Begin()
{
    constexpr int kTries = 100;
    for (int attempt = 0; attempt < kTries; ++attempt) {
        writtenAs =
            ".tollbrook-report-" + QByteArray::number(QRandomGenerator::system()->generate64(), 36);
        const int opened = ::openat(folder,
                                    writtenAs.constData(),
                                    O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
                                    0600);
        if (opened >= 0) {
            return file.open(opened, QIODevice::WriteOnly, QFileDevice::AutoCloseHandle)
                || Fail(EIO);
        }
        writtenAs.clear();
        if (errno != EEXIST) {
            break;
        }
    }
    return Fail(errno);
}

bool OutputFile::Keep()
{
    if (!file.flush()) {
        problem = file.errorString();
        return false;
    }
    const bool kept = ::fchmod(file.handle(), mode) == 0
        && ::renameat(folder, writtenAs.constData(), folder, name.constData()) == 0;
    if (!kept) {
        return Fail(errno);
    }
    writtenAs.clear();
    return true;
}

bool OutputFile::Fail(int error)
{
    problem = error == kForeignLink ? Words::tr("a symbolic link of somebody else leads there")
                                    : QString::fromLocal8Bit(std::strerror(error));
    return false;
}
