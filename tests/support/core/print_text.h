// How failed expectations show Qt's texts; the framework would print their bytes. It comes with the
// precompiled headers, since no test names it.
#pragma once

#include <QString>

#include <ostream>

inline void PrintTo(const QString &text, std::ostream *out)
{
    *out << '"' << text.toStdString() << '"';
}
