// An extension of the embedded engine, which leaves a trace in the program that has loaded it.
#include <cstdlib>

// The engine looks for this name.
// NOLINTBEGIN(readability-identifier-naming)
extern "C" __attribute__((visibility("default"))) int
sqlite3_extension_init(void * /*database*/, char ** /*words*/, const void * /*functions*/)
// NOLINTEND(readability-identifier-naming)
{
    return setenv("TB_EXTENSION_HAS_RUN", "1", 1);
}
