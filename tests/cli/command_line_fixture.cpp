#include "cli/command_line_fixture.h"

#include <QJsonDocument>
#include <QProcess>

using namespace Qt::StringLiterals;

void CommandLineFixture::SetUp()
{
    EngineFixture::SetUp();
    const ConfigStore settings = Settings();
    for (const ConfigKeyId key : {ConfigKeyId::Base, ConfigKeyId::Price, ConfigKeyId::DefProfile}) {
        ASSERT_TRUE(settings.CreateKey(key));
    }
    ASSERT_TRUE(settings.WriteText(values::kBillDsn, Dsn()));
}

int CommandLineFixture::Run(const QStringList &arguments, const QByteArray &input)
{
    QProcess process;
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"TOLLBROOK_CONFIG"_s, folder.path());
    environment.insert(u"DBUS_SYSTEM_BUS_ADDRESS"_s, busAddress);
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(TB_COMMAND_LINE_PROGRAM), arguments);
    process.write(input);
    process.closeWriteChannel();
    EXPECT_TRUE(process.waitForFinished(60'000)) << arguments.join(u' ').toStdString();
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit) << arguments.join(u' ').toStdString();
    said = QString::fromUtf8(process.readAllStandardError());
    printed = QString::fromUtf8(process.readAllStandardOutput());
    return process.exitCode();
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

QStringList FieldsOf(const QJsonArray &rows, const QString &field)
{
    QStringList fields;
    for (const QJsonValue &row : rows) {
        fields << row[field].toVariant().toString();
    }
    return fields;
}
