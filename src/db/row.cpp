#include "db/row.h"

#include "db/session.h"

QString Row::Text(int column) const
{
    return buffer.Text(column);
}

quint32 Row::Integer(int column) const
{
    return buffer.Integer(column);
}

double Row::Amount(int column) const
{
    return buffer.Amount(column);
}

bool Row::Flag(int column) const
{
    return buffer.Flag(column);
}

bool Row::IsEmpty(int column) const
{
    return buffer.IsEmpty(column);
}
