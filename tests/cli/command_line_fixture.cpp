#include "cli/command_line_fixture.h"

#include <QJsonDocument>

#include <fcntl.h>
#include <gmock/gmock.h>
#include <pty.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

void CommandLineFixture::SetUp()
{
    EngineFixture::SetUp();
    const ConfigStore settings = Settings();
    for (const ConfigKeyId key : {ConfigKeyId::Base, ConfigKeyId::Price, ConfigKeyId::DefProfile}) {
        ASSERT_TRUE(settings.CreateKey(key));
    }
    ASSERT_TRUE(settings.WriteText(values::kBillDsn, DsnOf("console")));
}

void CommandLineFixture::AddOwners()
{
    RunBeside("INSERT INTO groups (group_id, name) VALUES (90, 'Yard')");
    RunBeside("INSERT INTO users (username, ip_addr, mac_addr, group_id, mode, traflim) "
              "VALUES ('anna', '10.0.0.1', '0011223344AA', 90, 1, 500)");
    RunBeside("INSERT INTO users (username, group_id, blocked, blockreason) "
              "VALUES ('bert', 90, 1, 3)");
    RunBeside("INSERT INTO logins (login, userid) "
              "SELECT 'bertie', user_id FROM users WHERE username = 'bert'");
}

int CommandLineFixture::RunWith(QProcess &process,
                                const QStringList &arguments,
                                const std::function<void()> &attend)
{
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"TOLLBROOK_CONFIG"_s, folder.path());
    environment.insert(u"DBUS_SYSTEM_BUS_ADDRESS"_s, busAddress);
    process.setProcessEnvironment(environment);
    if (!outputFile.isEmpty()) {
        process.setStandardOutputFile(outputFile);
    }
    process.start(QStringLiteral(TB_COMMAND_LINE_PROGRAM), arguments);
    attend();
    EXPECT_TRUE(process.waitForFinished(60'000)) << arguments.join(u' ').toStdString();
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit) << arguments.join(u' ').toStdString();
    said += QString::fromUtf8(process.readAllStandardError());
    printed = QString::fromUtf8(process.readAllStandardOutput());
    return process.exitCode();
}

int CommandLineFixture::Run(const QStringList &arguments, const QByteArray &input)
{
    said.clear();
    QProcess process;
    return RunWith(process, arguments, [&] {
        process.write(input);
        process.closeWriteChannel();
    });
}

int CommandLineFixture::RunOnTerminal(const QStringList &arguments, const QByteArray &typed)
{
    int master = -1;
    int slave = -1;
    EXPECT_EQ(openpty(&master, &slave, nullptr, nullptr, nullptr), 0);
    said.clear();
    QString asked;
    QProcess process;
    process.setChildProcessModifier([slave] { dup2(slave, STDIN_FILENO); });
    QList<QByteArray> lines = typed.split('\n');
    if (lines.size() > 1) {
        lines.removeLast(); // behind the last line end
    }
    // Each line is typed once the program has asked for it.
    const auto typeLines = [&] {
        for (const QByteArray &line : lines) {
            while (!said.endsWith(u' ') && process.waitForReadyRead(10'000)) {
                said += QString::fromUtf8(process.readAllStandardError());
            }
            const QByteArray keys = line.endsWith('\x04') ? line : line + '\n';
            if (process.state() == QProcess::Running) {
                EXPECT_EQ(write(master, keys.constData(), size_t(keys.size())), keys.size());
                asked += said;
                said.clear();
            }
        }
    };
    process.setReadChannel(QProcess::StandardError); // where it asks
    const int status = RunWith(process, arguments, typeLines);
    said = asked + said;
    fcntl(master, F_SETFL, O_NONBLOCK);
    seenOnTerminal.resize(4096);
    const ssize_t seen = read(master, seenOnTerminal.data(), 4096);
    seenOnTerminal.resize(qMax<ssize_t>(0, seen));
    close(master);
    close(slave);
    return status;
}

QJsonArray CommandLineFixture::ListOf(const QStringList &arguments)
{
    EXPECT_EQ(Run(arguments + QStringList {u"--json"_s}), 0) << said.toStdString();
    const auto document = QJsonDocument::fromJson(printed.toUtf8());
    EXPECT_TRUE(document.isArray()) << printed.toStdString();
    return document.array();
}

QJsonObject CommandLineFixture::ObjectOf(const QStringList &arguments)
{
    EXPECT_EQ(Run(arguments + QStringList {u"--json"_s}), 0) << said.toStdString();
    const auto document = QJsonDocument::fromJson(printed.toUtf8());
    EXPECT_TRUE(document.isObject()) << printed.toStdString();
    return document.object();
}

void CommandLineFixture::ExpectRefused(const char *line, int status, const char *words)
{
    const QStringList before = EveryRow();
    EXPECT_EQ(Run(QString::fromUtf8(line).split(u' ')), status) << line << qPrintable(said);
    EXPECT_THAT(said.toStdString(), testing::HasSubstr(words)) << line;
    EXPECT_EQ(printed, QString()) << line;
    EXPECT_EQ(EveryRow(), before) << line;
}

QStringList FieldsOf(const QJsonArray &rows, const QString &field)
{
    QStringList fields;
    for (const QJsonValue &row : rows) {
        fields << row[field].toVariant().toString();
    }
    return fields;
}
