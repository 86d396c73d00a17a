#include "daemon/notice_board.h"

#include <QTimer>

#include <array>
#include <chrono>

using namespace std::chrono_literals;

namespace {

constexpr std::array kReadAgain {100ms, 500ms, 2000ms};

} // namespace

void NoticeBoard::Put(UserId userId, bool blocked)
{
    notices.insert(userId, blocked ? Notice::Blocked : Notice::Unblocked);
    const quint64 number = ++lastNumber;
    numbers.insert(userId, number);
    for (const auto delay : kReadAgain) {
        const bool isLast = delay == kReadAgain.back();
        QTimer::singleShot(delay, Qt::PreciseTimer, this, [this, userId, number, isLast] {
            if (numbers.value(userId) == number) {
                emit ReadWanted(userId, isLast ? number : 0);
            }
        });
    }
}

void NoticeBoard::End(UserId userId, quint64 number)
{
    if (number != 0 && numbers.value(userId) == number) {
        notices.remove(userId);
        numbers.remove(userId);
    }
}
