// A store with the keys of the settings beside a database with two protocols, on every engine.
#pragma once

#include "admin/options.h"
#include "admin/protocol_storage.h"
#include "admin/setup.h"
#include "config/config_store.h"
#include "support/core/engine_fixture.h"

#include <QTemporaryDir>

class OptionsFixture : public EngineFixture
{
protected:
    static constexpr auto kProtocolRows = "SELECT proto_name, mon FROM protocols ORDER BY id";
    static constexpr auto kPortRows =
        "SELECT proto_name, port_number FROM protocols, ports WHERE protocols.id = ports.proto_id "
        "ORDER BY proto_name, port_number, port_id";
    // Who is denied which port.
    static constexpr auto kDenials =
        "SELECT proto_name, port_number, user_id, group_id FROM protocols, ports, port_blocked WHERE "
        "protocols.id = ports.proto_id AND ports.port_id = port_blocked.port_id ORDER BY "
        "port_blocked.pb_id";

    void SetUp() override
    {
        EngineFixture::SetUp();
        for (const ConfigKeyId key : {ConfigKeyId::Base,
                                      ConfigKeyId::LocalIp,
                                      ConfigKeyId::Price,
                                      ConfigKeyId::DefProfile}) {
            ASSERT_TRUE(store.CreateKey(key));
        }
    }

    // The options as a window opens with them.
    [[nodiscard]] Options Load() const
    {
        Loaded<Options> loaded = LoadOptions(store);
        EXPECT_TRUE(loaded.failures.isEmpty());
        auto protocols = LoadProtocols();
        EXPECT_TRUE(protocols);
        loaded.settings.protocols = *std::move(protocols);
        return loaded.settings;
    }

    [[nodiscard]] NetworkSetup LoadWizard() const
    {
        Loaded<NetworkSetup> loaded = LoadSetup(store);
        EXPECT_TRUE(loaded.failures.isEmpty());
        auto protocols = LoadWizardProtocols();
        EXPECT_TRUE(protocols);
        loaded.settings.protocols = *std::move(protocols);
        return loaded.settings;
    }

    // Everything is written, and nobody is asked.
    void Save(const Options &base, const Options &draft) const
    {
        const SaveReport report = SaveOptions({base, draft}, store, {});
        EXPECT_TRUE(report.IsDone()) << qPrintable(report.InWords());
        EXPECT_TRUE(report.questions.isEmpty());
    }

    // Every question of the report, answered with `yes`.
    static Answers AllAnswered(const SaveReport &report, bool yes)
    {
        Answers answers;
        for (const Question &question : report.questions) {
            answers.insert(question.key, yes);
        }
        return answers;
    }

    // A table with the rows that the cases count on, and nothing else: HTTP 80 and FTP 80, monitored.
    static void OnlyHttpAndFtp()
    {
        Execute("DELETE FROM Ports");
        Execute("DELETE FROM Protocols");
        for (const auto *name : {"HTTP", "FTP"}) {
            Execute("INSERT INTO Protocols (proto_name, mon) VALUES ((?), 1)",
                    QString::fromLatin1(name));
            AddPort(QString::fromLatin1(name), 80);
        }
    }

    static void AddPort(const QString &protocol, quint32 number)
    {
        Execute("INSERT INTO Ports (proto_id, port_number) VALUES ((?), (?))",
                ProtocolOf(protocol),
                number);
    }

    static ProtocolId ProtocolOf(const QString &name)
    {
        RunQuery("SELECT id FROM Protocols WHERE proto_name = (?)", FetchMode::All, name);
        return queryResult.Id<ProtocolId>(1);
    }

    static PortId PortOf(const QString &protocol, quint32 number)
    {
        RunQuery("SELECT port_id FROM Ports WHERE proto_id = (?) AND port_number = (?)",
                 FetchMode::All,
                 ProtocolOf(protocol),
                 number);
        return queryResult.Id<PortId>(1);
    }

    static void DenyUser(quint32 userId, PortId portId)
    {
        Execute("INSERT INTO Port_blocked (user_id, port_id) VALUES ((?), (?))", userId, portId);
    }

    static void DenyGroup(quint32 groupId, PortId portId)
    {
        Execute("INSERT INTO Port_blocked (Group_id, port_id) VALUES ((?), (?))", groupId, portId);
    }

    QTemporaryDir configFolder;
    ConfigStore store {configFolder.path(), 50};
};
