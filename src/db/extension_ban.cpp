#include "db/extension_ban.h"

#include <QLibrary>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

thread_local std::vector<void *> *openedHere = nullptr;

int NoteOpened(void *database, void * /*words*/, const void * /*functions*/)
{
    if (openedHere != nullptr) {
        openedHere->push_back(database);
    }
    return 0;
}

// The engine's library as its driver has loaded it: there is one in the process.
struct Engine
{
    Engine()
    {
        file.setLoadHints(QLibrary::PreventUnloadHint);
        const auto callWithEachOpened = reinterpret_cast<int (*)(decltype(&NoteOpened))>(
            file.resolve("sqlite3_auto_extension"));
        allow =
            reinterpret_cast<int (*)(void *, int)>(file.resolve("sqlite3_enable_load_extension"));
        if (callWithEachOpened != nullptr) {
            callWithEachOpened(NoteOpened);
        }
    }

    QLibrary file {u"sqlite3"_s, 0};
    int (*allow)(void *database, int allowed) = nullptr; // 0 when done
};

const Engine &LoadedEngine()
{
    static const Engine engine;
    return engine;
}

} // namespace

ExtensionBan::ExtensionBan()
{
    LoadedEngine();
    openedHere = &opened;
}

ExtensionBan::~ExtensionBan()
{
    openedHere = nullptr;
}

bool ExtensionBan::Enforce() const
{
    const auto allow = LoadedEngine().allow;
    return allow != nullptr && !opened.empty()
        && std::ranges::all_of(opened, [allow](void *database) { return allow(database, 0) == 0; });
}
