#include "support/must.h"

#include <cstdio>
#include <cstdlib>

void Fail(const QString &problem)
{
    std::fprintf(stderr, "%s\n", qPrintable(problem));
    std::exit(2);
}

void Must(bool done, const DirectConnection &connection)
{
    if (!done) {
        Fail(connection.Error());
    }
}
