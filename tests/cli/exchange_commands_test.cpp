// "import" and "export" from the command line.
#include "cli/command_line_fixture.h"

#include <QFile>
#include <QJsonDocument>

using namespace Qt::StringLiterals;

namespace {

class ExchangeCommands : public CommandLineFixture
{
protected:
    void SetUp() override
    {
        CommandLineFixture::SetUp();
        RunBeside(
            "INSERT INTO users (username, ip_addr, group_id) VALUES ('anna', '10.0.0.1', 80)");
        file = folder.filePath(u"people.csv"_s);
        Write("Name,Full name,IP,Shoe size\nanna,Anna Berg,10.0.0.1,39\ndora,,10.0.0.2,38\n");
    }

    void Write(const QByteArray &text) const
    {
        QFile written(file);
        ASSERT_TRUE(written.open(QIODevice::WriteOnly));
        written.write(text);
    }

    static QStringList Users()
    {
        return RowsOf("SELECT username, fullname, ip_addr FROM users ORDER BY username");
    }

    const QStringList asBefore {u"anna||10.0.0.1"_s};
    const QStringList asImported {u"anna|Anna Berg|10.0.0.1"_s, u"dora||10.0.0.2"_s};
    QString file;
};
TB_ON_EVERY_ENGINE(ExchangeCommands);

} // namespace

TEST_P(ExchangeCommands, AnImportIsShownAndConfirmed)
{
    EXPECT_EQ(Run({u"import"_s, file, u"--dry-run"_s}), 0) << said.toStdString();
    EXPECT_TRUE(printed.contains(u"Columns that are not known and left out: Shoe size."_s));
    EXPECT_TRUE(printed.contains(u"   2  anna  changed  Full name: none \u2192 Anna Berg\n"_s))
        << printed.toStdString();
    EXPECT_TRUE(printed.contains(u"New: 1, changed: 1, unchanged: 0, refused: 0."_s));
    EXPECT_EQ(Users(), asBefore);

    EXPECT_EQ(Run({u"import"_s, file}), 1) << "nobody is there to be asked";
    EXPECT_EQ(Users(), asBefore);

    EXPECT_EQ(Run({u"import"_s, file, u"--yes"_s}), 0) << said.toStdString();
    EXPECT_EQ(Users(), asImported);
    EXPECT_EQ(Run({u"import"_s, file, u"--yes"_s}), 0);
    EXPECT_TRUE(printed.endsWith(u"Nothing was changed.\n"_s)) << printed.toStdString();
}

TEST_P(ExchangeCommands, AnImportTellsProgramsOfEachRow)
{
    Write("Name,IP\nanna,10.0.0.9\nemil,10.0.0\n");
    QStringList arguments {u"import"_s, file, u"--yes"_s, u"--json"_s};
    EXPECT_EQ(Run(arguments), 4) << said.toStdString();
    EXPECT_EQ(said, u"tollbrook: Refused rows were left out: 1.\n"_s);
    const QJsonObject told = QJsonDocument::fromJson(printed.toUtf8()).object();
    EXPECT_EQ(told[u"imported"_s], true);
    EXPECT_EQ(told[u"dryRun"_s], false);
    EXPECT_EQ(told[u"service"_s], u"not reached"_s);
    EXPECT_EQ(told[u"changed"_s], 1);
    const QJsonArray rows = told[u"rows"_s].toArray();
    EXPECT_EQ(rows[0].toObject(),
              (QJsonObject {{u"line"_s, 2},
                            {u"user"_s, u"anna"_s},
                            {u"state"_s, u"changed"_s},
                            {u"changes"_s,
                             QJsonArray {QJsonObject {{u"column"_s, u"IP address"_s},
                                                      {u"before"_s, u"10.0.0.1"_s},
                                                      {u"after"_s, u"10.0.0.9"_s}}}}}));
    EXPECT_EQ(rows[1].toObject()[u"reason"_s], u"IP address \"10.0.0\": it is no IP address"_s);
    EXPECT_EQ(Users(), QStringList(u"anna||10.0.0.9"_s));
}

TEST_P(ExchangeCommands, AnExportIsImportedWithoutAChange)
{
    ASSERT_EQ(Run({u"export"_s}), 0) << said.toStdString();
    EXPECT_TRUE(printed.startsWith(u"User name,Full name,"_s));
    Write(printed.toUtf8());
    EXPECT_EQ(Run({u"import"_s, file, u"--dry-run"_s}), 0);
    EXPECT_TRUE(printed.contains(u"New: 0, changed: 0, unchanged: 1, refused: 0."_s));
    for (const QString &ending : {u"csv"_s, u"xlsx"_s}) {
        const QString saved = folder.filePath(u"saved."_s + ending);
        EXPECT_EQ(Run({u"export"_s, saved, u"--format"_s, ending}), 0) << said.toStdString();
        EXPECT_GT(QFile(saved).size(), 50);
        EXPECT_EQ(Run({u"export"_s, saved + u".txt"_s, u"--format"_s, ending}), 2);
    }
    for (const QString &ending : {u"pdf"_s, u"html"_s, u"txt"_s}) {
        EXPECT_EQ(Run({u"export"_s, folder.filePath(u"saved."_s + ending)}), 2)
            << said.toStdString();
    }
    EXPECT_EQ(Run({u"export"_s, u"--json"_s}), 2);
    EXPECT_EQ(Run({u"export"_s, QString()}), 2);
    EXPECT_EQ(Run({u"import"_s, QString()}), 2);
    EXPECT_EQ(Run({u"export"_s, u"--format"_s, u"xlsx"_s}), 2);
    EXPECT_EQ(Run({u"export"_s, u"--format"_s, u"pdf"_s}), 2);
    for (const QString &trial : {QString(), u"--dry-run"_s}) {
        QStringList words {u"export"_s, folder.filePath(u"no/such.csv"_s), trial};
        words.removeAll(QString());
        EXPECT_EQ(Run(words), 3);
    }
    EXPECT_TRUE(said.contains(u"does not exist"_s) && !said.contains(u"database"_s))
        << said.toStdString();
    EXPECT_EQ(Run({u"import"_s, folder.filePath(u"missing.csv"_s)}), 3);
}

TEST_P(ExchangeCommands, ATrialOfAnExportWritesNothing)
{
    const QString saved = folder.filePath(u"saved.csv"_s);
    EXPECT_EQ(Run({u"export"_s, saved, u"--dry-run"_s}), 0) << said.toStdString();
    EXPECT_EQ(printed,
              u"1 users would be saved as %1. Nothing was written (--dry-run).\n"_s.arg(saved));
    EXPECT_FALSE(QFile::exists(saved));
}
