// What a command tells: rows under columns, as aligned text for people or as JSON for programs.
#pragma once

#include <QJsonValue>
#include <QList>
#include <QString>

class QJsonArray;
class QJsonObject;

struct Column
{
    const char *field; // the name in JSON, which scripts rely on
    const char *heading;
    bool atRight = false; // figures
};

struct Cell
{
    QJsonValue value;
    QString text; // the same for people

    Cell() = default; // nothing: null in JSON
    Cell(const QString &words) : value(words), text(words) { }
    Cell(bool flag);
    Cell(quint32 number);
    Cell(double amount); // people see two decimals
    Cell(const QJsonValue &forPrograms, const QString &forPeople)
        : value(forPrograms)
        , text(forPeople)
    { }
};

using Cells = QList<Cell>; // parallel to the columns

struct Table
{
    QList<Column> columns;
    QList<Cells> rows;
};

// A line of headings and a line for each row.
[[nodiscard]] QString TextOf(const Table &table);

// One row as lines of "heading: text"; what is empty is left out.
[[nodiscard]] QString TextOf(const QList<Column> &columns, const Cells &row);

[[nodiscard]] QJsonObject JsonOf(const QList<Column> &columns, const Cells &row);
[[nodiscard]] QJsonArray JsonOf(const Table &table);

// Indented, with its line end. What a terminal could obey is written as "\u001b".
[[nodiscard]] QString JsonText(const QJsonValue &value);
