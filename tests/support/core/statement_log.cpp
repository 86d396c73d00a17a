#include "support/core/statement_log.h"

#include "db/bound_parameters.h"
#include "db/session_state.h"
#include "db/translation.h"

#include <QtGlobal>

#include <fstream>
#include <mutex>
#include <set>
#include <string>
#include <string_view>

namespace {

constexpr const char *kFileVariable = "TB_STATEMENT_LOG";

struct Log
{
    Log()
    {
        if (const QByteArray name = qgetenv(kFileVariable); !name.isEmpty()) {
            file.open(name.toStdString(), std::ios::trunc);
        }
        qunsetenv(kFileVariable);
    }

    std::mutex mutex; // guards what follows
    std::ofstream file;
    std::set<std::string> known;
};

// Opened before the first test, so that nothing of an older run stays. A thread that was given up may
// outlive all else.
Log &theLog = *new Log;

char KindOf(ParameterKind kind, ParameterChange change)
{
    switch (kind) {
    case ParameterKind::Integer:
        return 'i';
    case ParameterKind::Amount:
        return 'a';
    case ParameterKind::Day:
        return 'd';
    case ParameterKind::Rows:
        return 'r';
    case ParameterKind::Text:
        break;
    }
    return change == ParameterChange::DayToStamp ? 's' : 't';
}

// One letter for each marker of the statement.
std::string KindsOf(const session::State &state)
{
    std::string translated;
    ParameterChanges changes {};
    Translate(*state.dialect, state.written, bound_parameters::Kinds(), translated, changes);
    std::string kinds;
    const std::string_view text = state.written;
    for (auto at = text.find("(?)"); at != std::string_view::npos; at = text.find("(?)", at + 1)) {
        const size_t number = kinds.size();
        kinds += KindOf(bound_parameters::Kinds().at(number), changes.at(number));
    }
    return kinds;
}

} // namespace

void statement_log::Add(const char *translated)
{
    const session::State &state = session::Current();
    if (!theLog.file.is_open() || translated != state.translated.c_str()) {
        return;
    }
    std::string line = KindsOf(state) + '\t' + state.written;
    const std::lock_guard lock(theLog.mutex);
    if (line.find('\n') == std::string::npos && theLog.known.insert(line).second) {
        theLog.file << line << std::endl; // at once: some tests end their program early
    }
}
