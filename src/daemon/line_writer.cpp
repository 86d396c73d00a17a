#include "daemon/line_writer.h"

#include <algorithm>
#include <cerrno>
#include <limits.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

// How many of the bytes were taken at once. A pipe that takes any takes as many as one write to it is
// sure to write undivided.
qsizetype Taken(int target, const QByteArray &bytes)
{
    const auto size = static_cast<size_t>(bytes.size());
    const ssize_t sent = send(target, bytes.constData(), size, MSG_DONTWAIT | MSG_NOSIGNAL);
    if (sent >= 0 || errno != ENOTSOCK) {
        return std::max<qsizetype>(sent, 0);
    }
    pollfd ready {target, POLLOUT, 0};
    if (poll(&ready, 1, 0) != 1 || (ready.revents & POLLOUT) == 0) {
        return 0;
    }
    return std::max<qsizetype>(write(target, bytes.constData(), std::min<size_t>(size, PIPE_BUF)),
                               0);
}

} // namespace

void LineWriter::Write(const QByteArray &line)
{
    const std::lock_guard lock(mutex);
    if (!WriteRest()) {
        ++lost;
        return;
    }
    if (lost > 0) {
        rest = "Lines that were lost here, as nobody took them: ";
        rest.append(QByteArray::number(lost)).append('\n');
        lost = 0;
    }
    rest += line;
    WriteRest();
}

// Whether nothing is left of it.
bool LineWriter::WriteRest()
{
    while (!rest.isEmpty()) {
        const qsizetype taken = Taken(target, rest);
        if (taken == 0) {
            return false;
        }
        rest.remove(0, taken);
    }
    return true;
}
