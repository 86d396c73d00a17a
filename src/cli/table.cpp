#include "cli/table.h"

#include "base/amount_text.h"
#include "cli/plain_text.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace {

QString Padded(const QString &text, qsizetype width, bool atRight)
{
    const QString blanks(width - TerminalWidth(text), u' ');
    return atRight ? blanks + text : text + blanks;
}

QString LineOf(const QStringList &texts, const QList<qsizetype> &widths, const Table &table)
{
    QStringList padded;
    for (qsizetype i = 0; i < texts.size(); ++i) {
        padded << Padded(texts[i], widths[i], table.columns[i].atRight);
    }
    QString line = padded.join(u"  "_s);
    while (line.endsWith(u' ')) {
        line.chop(1);
    }
    return line + u'\n';
}

QStringList HeadingsOf(const QList<Column> &columns)
{
    QStringList headings;
    for (const Column &column : columns) {
        headings << QString::fromLatin1(column.heading);
    }
    return headings;
}

} // namespace

Cell::Cell(bool flag) : value(flag), text(flag ? u"yes"_s : u"no"_s) { }

Cell::Cell(quint32 number) : value(qint64 {number}), text(QString::number(number)) { }

Cell::Cell(double amount) : value(amount), text(AmountText(amount, QLocale::c())) { }

QString TextOf(const Table &table)
{
    QList<QStringList> lines {HeadingsOf(table.columns)};
    for (const Cells &row : table.rows) {
        QStringList texts;
        for (const Cell &cell : row) {
            texts << PlainText(cell.text);
        }
        lines << texts;
    }
    QList<qsizetype> widths(table.columns.size(), 0);
    for (const QStringList &texts : lines) {
        for (qsizetype i = 0; i < texts.size(); ++i) {
            widths[i] = qMax(widths[i], TerminalWidth(texts[i]));
        }
    }
    QString whole;
    for (const QStringList &texts : lines) {
        whole += LineOf(texts, widths, table);
    }
    return whole;
}

QString TextOf(const QList<Column> &columns, const Cells &row)
{
    QString whole;
    const QStringList headings = HeadingsOf(columns);
    qsizetype width = 0;
    for (const QString &heading : headings) {
        width = qMax(width, TerminalWidth(heading));
    }
    for (qsizetype i = 0; i < row.size(); ++i) {
        if (!row[i].text.isEmpty()) {
            whole += Padded(headings[i] + u':', width + 2, false) + PlainText(row[i].text) + u'\n';
        }
    }
    return whole;
}

QJsonObject JsonOf(const QList<Column> &columns, const Cells &row)
{
    QJsonObject object;
    for (qsizetype i = 0; i < row.size(); ++i) {
        object.insert(QLatin1StringView(columns[i].field), row[i].value);
    }
    return object;
}

QJsonArray JsonOf(const Table &table)
{
    QJsonArray array;
    for (const Cells &row : table.rows) {
        array.append(JsonOf(table.columns, row));
    }
    return array;
}

QString JsonText(const QJsonValue &value)
{
    const QJsonDocument document =
        value.isArray() ? QJsonDocument(value.toArray()) : QJsonDocument(value.toObject());
    return PlainText(QString::fromUtf8(document.toJson()), true);
}
