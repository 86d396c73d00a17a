// Files of all kinds as tables.
#include "exchange/import_table.h"

#include "reports/csv_text.h"

#include <QRandomGenerator>
#include <QStringEncoder>
#include <QTemporaryDir>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

QString Cell(const ImportTable &table, size_t line, ImportColumn column)
{
    return table.lines.at(line).cells[static_cast<size_t>(column)];
}

QString Fault(const QByteArray &bytes)
{
    const auto table = ReadImportTable(bytes);
    return table ? u"read"_s : table.error();
}

QByteArray Encoded(const QString &text, QStringConverter::Encoding encoding, bool mark)
{
    QStringEncoder encoder(
        encoding, mark ? QStringConverter::Flag::WriteBom : QStringConverter::Flag::Default);
    return encoder(text);
}

} // namespace

TEST(ImportTables, EachEncodingIsToldAndRead)
{
    const QString text = u"User name,Full name\nanna,Anna M\u00fcller\n"_s;
    using Converter = QStringConverter;
    const struct
    {
        QByteArray bytes;
        TextEncoding encoding;
    } cases[] {
        {text.toUtf8(), TextEncoding::Utf8},
        {Encoded(text, Converter::Utf8, true), TextEncoding::Utf8},
        {Encoded(text, Converter::Utf16LE, true), TextEncoding::Utf16},
        {Encoded(text, Converter::Utf16BE, true), TextEncoding::Utf16},
        {Encoded(text, Converter::Utf16LE, false), TextEncoding::Utf16},
        {Encoded(text, Converter::Utf16BE, false), TextEncoding::Utf16},
        {text.toLatin1(), TextEncoding::Windows1252},
    };
    for (const auto &[bytes, encoding] : cases) {
        const auto table = ReadImportTable(bytes);
        ASSERT_TRUE(table) << qPrintable(table.error());
        EXPECT_EQ(table->encoding, encoding);
        ASSERT_EQ(table->lines.size(), 1U);
        EXPECT_EQ(Cell(*table, 0, ImportColumn::FullName), u"Anna M\u00fcller"_s);
    }
    const auto euro = ReadImportTable("Name;Beschreibung\nanna;5 \x80 \x96\n");
    ASSERT_TRUE(euro);
    EXPECT_EQ(Cell(*euro, 0, ImportColumn::Description), u"5 \u20ac \u2013"_s);
}

TEST(ImportTables, HeadingsAreFoundInBothLanguagesAndBySeparator)
{
    for (const char *head : {"User name,IP address",
                             "USERNAME;IP-Adresse",
                             "Benutzername\tIP",
                             "user_name,ip-address (dotted)",
                             "\"Benutzer\";\"ip address\""}) {
        const QByteArray line(head);
        const char separator = line.contains(';') ? ';' : (line.contains('\t') ? '\t' : ',');
        const auto table = ReadImportTable(line + "\r\nanna" + separator + "10.0.0.1\r\n");
        ASSERT_TRUE(table) << head;
        EXPECT_EQ(table->separator, QLatin1Char(separator));
        EXPECT_EQ(Cell(*table, 0, ImportColumn::IpAddress), u"10.0.0.1"_s) << head;
    }
    const auto table = ReadImportTable("Name,Shoe size,Group\nanna,39,Office\n");
    ASSERT_TRUE(table);
    EXPECT_THAT(table->unknownHeadings, ElementsAre(u"Shoe size"_s));
    EXPECT_TRUE(table->Has(ImportColumn::Group));
    EXPECT_FALSE(table->Has(ImportColumn::Login));
}

TEST(ImportTables, RowsKeepTheirLineAndTheirQuotedText)
{
    const auto table = ReadImportTable(
        "Name,Description\n\nanna,\"two\nlines, \"\"said\"\"\"\nbert\ncarl,a,b\n,\n");
    ASSERT_TRUE(table) << qPrintable(table.error());
    ASSERT_EQ(table->lines.size(), 3U);
    EXPECT_EQ(Cell(*table, 0, ImportColumn::Description), u"two\nlines, \"said\""_s);
    EXPECT_EQ(table->lines[0].number, 3);
    EXPECT_EQ(table->lines[0].fault, QString());
    EXPECT_EQ(table->lines[1].number, 5);
    EXPECT_EQ(table->lines[1].fault, u"The row has 1 cells, and there are 2 columns"_s);
    EXPECT_EQ(table->lines[2].fault, u"The row has 3 cells, and there are 2 columns"_s);
}

TEST(ImportTables, WhatIsNoTableIsRefusedInWords)
{
    EXPECT_EQ(Fault(""), u"The file is empty"_s);
    EXPECT_EQ(Fault("PK\x03\x04zip"),
              u"This is a spreadsheet. Please save it there as CSV, and import that file"_s);
    EXPECT_EQ(Fault("Group\nOffice\n"),
              u"The first line has no column called \"User name\": it must name the columns"_s);
    EXPECT_EQ(Fault("Name,User name\nanna,anna\n"), u"Two columns are called \"User name\""_s);
    EXPECT_TRUE(
        Fault("Name,Group\nanna,a\"b\n")
            .startsWith(
                u"In the row that begins on line 2 a quotation mark stands where none may"_s));
    EXPECT_TRUE(Fault("Name\n\"anna\n").startsWith(u"In the row that begins on line 2"_s));
    EXPECT_EQ(Fault(QByteArray("Name\nan\0na\n", 11)), u"This is not a file of text"_s);
    QTemporaryDir folder;
    EXPECT_FALSE(ReadImportFile(folder.path()));
    EXPECT_FALSE(ReadImportFile(folder.filePath(u"missing.csv"_s)));
}

TEST(ImportTables, AFieldIsReadAsItWasWritten)
{
    for (const QString &text : {u"=1+1"_s,
                                u"'=1"_s,
                                u"''"_s,
                                u"'t Hooft"_s,
                                u" +49"_s,
                                u"-"_s,
                                u"@a\"b\",c"_s,
                                u"line\nbreak"_s,
                                u" blanks "_s,
                                u"'"_s,
                                u""_s}) {
        const auto table =
            ReadImportTable("Name,Description\r\nanna," + CsvField(text, true).toUtf8() + "\r\n");
        ASSERT_TRUE(table);
        EXPECT_EQ(Cell(*table, 0, ImportColumn::Description), text) << qPrintable(text);
    }
}

// Whatever comes, it is read or refused, and neither takes long.
TEST(ImportTables, AnythingIsReadOrRefused)
{
    const QByteArray valid =
        "Name;Full name;IP;Group\nanna;\"Anna; M\xC3\xBCller\";10.0.0.1;Office\nbert;;;\n";
    QRandomGenerator random(20261122);
    int read = 0;
    for (int round = 0; round < 3000; ++round) {
        QByteArray bytes = valid;
        if (round % 3 == 0) {
            bytes.resize(random.bounded(1, 300));
            std::generate(
                bytes.begin(), bytes.end(), [&] { return static_cast<char>(random.bounded(256)); });
        } else {
            for (int change = random.bounded(1, 6); change > 0; --change) {
                bytes[random.bounded(static_cast<int>(bytes.size()))] =
                    static_cast<char>(random.bounded(256));
            }
        }
        const auto table = ReadImportTable(bytes);
        read += table ? 1 : 0;
        if (!table) {
            EXPECT_FALSE(table.error().isEmpty());
        }
    }
    EXPECT_GT(read, 100);
    EXPECT_LT(read, 3000);
}
