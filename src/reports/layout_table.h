// One table of a layout file while it is read: typed values, and an error that names the line.
#pragma once

#include "reports/layout.h"

#include <initializer_list>
#include <toml++/toml.h>

// The known key that is most like `key`; the first one when none is.
[[nodiscard]] QString NearestName(const QString &key, const QStringList &known);

// The first error stays; every value read after it is the default.
class LayoutTable
{
public:
    LayoutTable(const toml::table &source, LayoutError &firstError)
        : table(source)
        , error(firstError)
    { }

    // Refuses every key that is not among `known`.
    void AllowOnly(const QStringList &known) const;

    [[nodiscard]] bool Has(const char *key) const { return table.contains(key); }
    [[nodiscard]] int Line(const char *key) const; // of the value; of the table when there is none

    [[nodiscard]] QString Text(const char *key, const QString &otherwise = {}) const;
    [[nodiscard]] bool Flag(const char *key) const;
    [[nodiscard]] int Integer(const char *key, int otherwise, int least, int most) const;
    [[nodiscard]] double Number(const char *key, double otherwise, double least, double most) const;
    [[nodiscard]] QStringList Texts(const char *key) const;
    [[nodiscard]] QList<quint32> Numbers(const char *key) const; // ids of rows, from 1
    // The place of the text among `choices`; the first when the key is missing.
    [[nodiscard]] int Choice(const char *key, const QStringList &choices) const;

    void Fail(int line, const QString &text) const;

private:
    const toml::table &table;
    LayoutError &error;
};
